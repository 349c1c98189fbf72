#pragma once
// The help viewer: an HTML page in a window of its own, opened at a topic.
#include <QString>

class QWidget;

// The page that ships with the module, used when the family folder has no help file.
QString archivoAyudaIncluido();
// Shows `archivo` (or the page that ships with the module when it is missing) at the anchor
// named `contexto`. One viewer at a time; a second call brings it forward.
void mostrarAyuda(const QString& archivo, const QString& contexto, QWidget* padre);
