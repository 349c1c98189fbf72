#pragma once
// Qt's own texts in Spanish: the buttons of message boxes and button boxes, the print and file
// dialogs, the context menus of text boxes. The translations come with the system's Qt
// (qtbase_es.qm, under QLibraryInfo's translations folder).
class QCoreApplication;

// Installs the Spanish translation of Qt on the application; false when it is not installed
// (Qt then speaks English, nothing else changes).
bool cargarTraduccionQt(QCoreApplication& aplicacion);
