#pragma once
// The picker of sent declarations (FrmContAbrirEnv) as a presentation model: it lists the
// declarations of this form already sent and either opens the chosen one in the declaration
// form to record its order number (giOpcion 2) or deletes that sent copy (giOpcion 3). The
// mode comes from G().giOpcion, set by the command. The view mirrors the list and the
// captions and forwards the clicks, the double click and the row changes.
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

// One row of grdContrib.
struct FilaContAbrirEnv {
    QString ruc;          // column 0, DOC_ID_D
    QString nombre;       // column 1, NOMBRE
    QString periodo;      // column 2, PERIODO
    QString formulario;   // column 3, FORMULARIO
    QString norden;       // column 4, NORDEN
    QString fecEnv;       // column 5, FEC_ENV as dd/mm/yyyy
    QString control;      // column 6, CONTROL
    QString correl;       // column 7, CORREL (hidden in the known modes)

    QString columna(int indice) const;
    bool operator==(const FilaContAbrirEnv&) const = default;
};

class FrmContAbrirEnv {
public:
    FrmContAbrirEnv();

    // Row the cursor stood on when the declaration form was opened (0-based). Coming back, the
    // cursor finds that sent copy again, wherever a change of the list moved it.
    qint32 nPosicion = 0;

    // Captions (those of the form's design until Form_Load sets the mode's own).
    QString Caption = QStringLiteral("Registrar número de orden");
    QString Frame1 = QStringLiteral("Declaraciones Enviadas");
    QString Label1;
    QString CmdOpciones[2] = {QString(), QStringLiteral("&Salir")};
    static const QStringList& columnas();   // "RUC" ... "Correl"
    bool correlOculta = false;              // column 7 hidden

    // The grid: its rows, the current one (-1 when empty), whether it is enabled (not when the
    // first list, of the current period, was empty), whether the form is visible (the status bar
    // follows the cursor only then) and whether it was unloaded.
    QVector<FilaContAbrirEnv> filas;
    int fila = -1;
    bool habilitada = true;
    bool visible = false;
    bool descargado = false;

    // Events.
    void Form_Load();                 // captions and the list of the current period
    // The list of every period. The cursor stays on the sent copy it stood on and, while the
    // form is visible, the status bar names that row.
    void Form_Activate();
    void CmdOpciones_Click(int Index);
    void grdContrib_DblClick();       // as CmdOpciones(0)
    void grdContrib_RowColChange(int nuevaFila);

    // What the picker calls outside itself; each has a default that reaches the real one.
    // Opens the declaration form modally (pAbreDeclaracion); returns when it closes.
    std::function<void(qint16 modo, const QStringList& datos)> abreDeclaracion;
    // The status bar's four panels, the period as given (the stored figure, not formatted).
    std::function<void(const QString& ruc, const QString& nombre, const QString& periodo,
                       const QString& formulario)> paneles;
    // The hourglass (true) or the default pointer (false).
    std::function<void(bool espera)> puntero;
    // Unload Me.
    std::function<void()> cerrar;

private:
    QString columna(int indice) const;
    void consultar(bool conPeriodo);
    void recargar(bool conPeriodo);
    // The status bar names the row the next action works on, its period as stored.
    void anunciar();
};
