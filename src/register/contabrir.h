#pragma once
// The picker of working declarations (FrmContAbrir) as a presentation model: it lists the
// declarations of this form that the user may see and opens the chosen one in the declaration
// form (nOpcion 1) or deletes it (nOpcion 3). The view mirrors the list and the captions and
// forwards the clicks, the double click and the row changes.
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

// One row of grdContrib.
struct FilaContAbrir {
    QString ruc;          // column 0, DOC_ID_D
    QString nombre;       // column 1, NOMBRE
    QString periodo;      // column 2, PERIODO
    QString formulario;   // column 3, FORMULARIO
    int estado = 0;       // ESTADO (not shown)
    bool operator==(const FilaContAbrir&) const = default;
};

class FrmContAbrir {
public:
    explicit FrmContAbrir(qint16 opcion = 0);

    // Mode, set by the command before the form loads: 1 modify, 3 delete.
    qint16 nOpcion = 0;
    // Row the cursor stood on when a declaration was opened (0-based). Coming back, the cursor
    // finds that declaration again, wherever a change of the list moved it.
    qint32 nPosicion = 0;

    // Captions (those of the form's design until Form_Load sets the mode's own).
    QString Caption = QStringLiteral("Actualizar Declaraciones");
    QString Frame1 = QStringLiteral("Declaraciones Registradas");
    QString Label1;
    QString CmdOpciones[2] = {QString(), QStringLiteral("&Salir")};
    static const QStringList& columnas();   // "RUC", "Razón Social", "Periodo", "Formulario"

    // The grid: its rows, the current one (-1 when empty), whether the form is visible (row
    // changes follow on the status bar only then) and whether it was unloaded.
    QVector<FilaContAbrir> filas;
    int fila = -1;
    bool visible = false;
    bool descargado = false;

    // Events.
    void Form_Load();
    void Form_Activate();             // runs pCargadatos
    // Reads the list again. The cursor stays on the declaration it stood on (see
    // filaTrasRecarga) and, while the form is visible, the status bar names that row.
    void pCargadatos();
    void CmdOpciones_Click(int Index);
    void grdContrib_DblClick();       // as CmdOpciones(0)
    void grdContrib_RowColChange(int nuevaFila);

    // What the picker calls outside itself; each has a default that reaches the real one.
    // Opens the declaration form modally (pAbreDeclaracion); returns when it closes.
    std::function<void(qint16 modo, const QStringList& datos)> abreDeclaracion;
    // The main window's status bar (pBarraEstado).
    std::function<void(const QString& ruc, const QString& nombre, const QString& periodo,
                       const QString& formulario)> barraEstado;
    // The hourglass (true) or the default pointer (false).
    std::function<void(bool espera)> puntero;
    // Unload Me.
    std::function<void()> cerrar;

private:
    // Current row's text of a column, "" when the list is empty.
    QString columna(int indice) const;
    void consultar();
    // The list read again and the cursor placed as pCargadatos says.
    void recargar();
    // The status bar names the row the next action works on (nothing when the list is empty).
    void anunciar();
};
