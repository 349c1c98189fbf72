#pragma once
// The main window's commands without the window: each sets the global values its form reads
// and then asks the window that was installed to open that form. The Qt view installs the
// real openers; tests install recorders.
#include <QString>
#include <QStringList>

#include <functional>

// What the status bar shows, by the names of its properties.
struct EstadoBarra {
    int Modo = 0;
    QString PanelRuc, PanelNombre, PanelPeriodo, PanelFormulario;
};

EstadoBarra& barraEstado();
// The view that mirrors the status bar (one at a time; an empty function detaches it).
void alCambiarBarra(std::function<void(const EstadoBarra&)> aviso);

// Fills the status bar; every form that changes the declaration in hand calls it with
// G().gsFormulario as last argument. A period of at most five characters (after trimming)
// shows blank, a longer one as "yyyy/mm" from its first four and last two characters.
void pBarraEstado(const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario);
QString periodoEnBarra(const QString& periodo);
void limpiarPanelNombre();
// The four panels exactly as given: the period as it comes, without the "yyyy/mm" form.
void ponerPaneles(const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario);

// Openers of the forms and the window's own actions.
struct Abridores {
    std::function<void(qint16 modo, const QStringList& datos)> declaracion;   // pAbreDeclaracion
    std::function<void(qint16 nOpcion)> contAbrir;                            // FrmContAbrir
    std::function<void(qint16 argumento)> imprimir;                           // pAbreImprimir
    std::function<void()> contAbrirEnv;                                       // FrmContAbrirEnv
    std::function<void()> consFac;                                            // FrmConsFac
    std::function<void()> consultas;                                          // FrmConsultas
    std::function<void()> acercade;                                           // frmAcercade
    std::function<void()> ayuda;                                              // help viewer
    std::function<void()> cerrarVentana;                                      // unload, end
    std::function<void(bool espera)> puntero;                                 // hourglass / default
};
void instalarAbridores(Abridores abridores);
Abridores& abridores();

// Menu commands.
void mnuNueva_Click();
void mnuModificar_Click();
void mnuEliminar_Click();
void mnuImprimir_Click();
void mnuSalir_Click();
void mnuRegistrar_Click();
void mnuEliminar1_Click();
void mnuImprimir1_Click();
void mnuFactores_Click();
void mnuDocIdent_Click();
void mnupais_Click();
void mnuUIT_Click();
void mnuContenido_Click();
void mnuAcercade_Click();
void MostrarHelp();

// Toolbar buttons by index (1-based; 6, 8 and 9 are separators and do nothing).
void tlbMenu_ButtonClick(int indice);

// The toolbar's mouse-move rule: the taxpayer's name is cleared unless the pointer's x lies
// on one of the buttons 1, 2, 3, 4, 6 and 8. `botones[i]` holds left and width of button
// i + 1 (indices 1 to 10).
struct BotonBarra {
    int izquierda = 0;
    int ancho = 0;
};
bool barraLimpiaNombre(int x, const QList<BotonBarra>& botones);

// Closing steps: the connection is closed and cleared, the helper object released, then the
// window unloads and the process ends.
void pCerrarPrograma();
