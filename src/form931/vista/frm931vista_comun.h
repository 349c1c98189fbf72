#pragma once
// What the files of the declaration window share: colours, names, the amounts' font and the
// keyboard letters of pages and buttons.
#include <QColor>
#include <QFont>
#include <QString>

namespace vista931 {

// Colours of the model are in blue-green-red order.
QColor colorDe(quint32 bgr);
// "cmdPerdida", 2 -> "cmdPerdida(2)".
QString nombreIndice(const QString& nombre, int i);
QFont fuenteImportes();
// The caption of a page or button with its keyboard letter.
QString conAtajo(const QString& caption);

}  // namespace vista931
