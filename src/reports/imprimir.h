#pragma once
// The print selection (frmImprimir) and the page-range dialog (frmImpxPag) as models: the
// list of working or sent declarations, the loading and building of the chosen one, and the
// hand-over to the preview or the printer. The windows mirror them.
#include "shell/comandos.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class ModeloImprimir {
public:
    // Grid columns, in order.
    enum Columna {
        ColDocId, ColNombre, ColPeriodo, ColPeriodof, ColFormulario, ColNorden, ColFecEnv, ColControl,
        ColCorrel, ColEstado, ColRectifica, ColSemana, kColumnas
    };
    static const QStringList& titulosColumnas();

    // Load: the list by G().gbImpEnviada, captions, columns.
    void Form_Load();
    void Form_Activate();
    void Form_Unload();

    // The statement of the list and its values (the user filter binds G().gsUsuario).
    static QString sentenciaLista(bool enviadas, bool filtrarUsuario);

    QString Caption;
    QString Frame2;                       // caption of the grid's frame
    QList<QStringList> filas;             // kColumnas texts a row, as shown
    int filaActual = -1;                  // -1: the recordset is at its end
    bool grdContribHabilitada = true;
    bool columnaVisible[kColumnas] = {};
    int anchoColumna[kColumnas] = {};     // twips; 0 keeps the grid's default
    int anchoGrilla = 0;                  // twips; 0 keeps the design width

    // Options: 0 "Declaración", 1 "Anexos", 2 "Declaración y anexos". The report is the same
    // whatever is chosen here.
    int OptImp = 0;
    // 0 "Apéndice III", 1 "Apéndice IV al valor", 2 "Apéndice IV específico", and 3, the box
    // "Anexos" of its own, which no option enables, disables or clears.
    static constexpr int kAnexos = 4;
    bool ChkAnexos[kAnexos] = {false, false, false, false};
    bool ChkAnexosHabilitados = false;   // boxes 0 to 2
    void OptImp_Click(int indice);

    // The current row changes (the grid's row change): the main window's status bar shows
    // the row's RUC, name, period and form code.
    void grdContrib_RowColChange(int fila);
    // Double click and Enter act as "&Preliminar".
    void grdContrib_DblClick() { CmdImprimir_Click(0); }
    // 0 "&Preliminar", 1 "&Imprimir", 2 "&Salir".
    void CmdImprimir_Click(int indice);
    bool descargar = false;

    // What the last command built (for the windows and the tests).
    QString ultimoArchivo;

private:
    bool prepararReporte();   // steps shared by both buttons; false when there is no row
    void avisarBarra() const;
    QString rucFila_, periodoFila_, nombreFila_, semanaFila_;
    EstadoBarra barraAnterior_;
};

// The page-range dialog, opened by "&Preliminar" with its caption, the page count and the
// spool file's name. The window installs its opener; unset, nothing opens.
using AbridorImpxPag = std::function<void(const QString& titulo, qint16 paginas, const QString& archivo)>;
void instalarAbridorImpxPag(AbridorImpxPag abridor);

class ModeloImpxPag {
public:
    QString Caption;
    QString Tag;                              // the spool file's name
    QString txtTotPaginas;
    QString txtPagDesde = QStringLiteral("1");
    QString txtPagHasta = QStringLiteral("1");
    bool descargar = false;

    // Text of the five checks in order; empty when the range is good.
    static QString validaRango(const QString& desde, const QString& hasta, const QString& total);
    // Key filter of the two page boxes: digits, Backspace, "." and blank pass; Enter (13) is
    // returned for the window to move on as Tab does; anything else gives 0.
    static int filtraTecla(int tecla);
    // 0 "&Preliminar": checks, then the range and the preview; 1 "&Cancelar".
    void cmdAccion_Click(int indice);
};

// Text of "El   reporte   generado ..." as the dialog shows it, one item a line.
const QStringList& textoImpxPag();
