#pragma once
// Openers of the windows that the main window's commands show. Each is defined in the file of
// the window it opens. Until a window exists, its opener lives in a file named
// `pendiente_<window>.cpp` in this folder, which tells the user the option is not available
// yet; whoever builds the window deletes that file and defines the opener beside the window.
#include <QStringList>

class QWidget;

// Creates Frm931 in G().gfrmDeclaracion with the mode; with mode 1 hands it the document
// number and the name (datos[0], datos[1]); shows it modally; clears the reference on return.
void pAbreDeclaracion(qint16 modo, const QStringList& datos);
// FrmContAbrir with nOpcion 1 (modify) or 3 (delete), modal.
void abrirFrmContAbrir(qint16 nOpcion);
// frmImprimir, modal; the argument is unused (1 from mnuImprimir, -1 from mnuImprimir1).
void pAbreImprimir(qint16 argumento);
// FrmContAbrirEnv, modal; mode from G().giOpcion.
void abrirFrmContAbrirEnv();
void abrirFrmConsFac();
void abrirFrmConsultas();   // mode from G().giOpcion
void abrirFrmAcercade();

// The main window, parent of every modal window (nullptr before it is shown).
QWidget* ventanaPrincipal();
