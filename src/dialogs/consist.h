#pragma once
// The inconsistency viewer: shows the message file that the full validation wrote (one fault a
// line) and prints it. The file is the only channel between the validation and this window.
//
// The print is built first as a list of drawing operations in twips (no spool file), then
// painted on a paged device: the default printer, or any device a caller hands in.
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

class QPagedPaintDevice;
class QPainter;

struct OperacionDibujo {
    enum Tipo { Texto, Linea, NuevaPagina };
    Tipo tipo = Texto;
    int x = 0, y = 0;            // Texto: top-left of the text; Linea: first end
    int x2 = 0, y2 = 0;          // Linea: second end
    QString texto;
    QString fuente;
    bool negrita = false;
    qint16 tam = 0;              // points
    bool operator==(const OperacionDibujo&) const = default;
};
using Dibujo = QVector<OperacionDibujo>;

// The drawing of the inconsistency list: header with the date and time of `momento`, one
// numbered line a fault, one page break right after line 40 (the count runs on), the total and
// a frame around the list.
Dibujo dibujoConsist(const QStringList& lineas, const QDateTime& momento);
// The two drawing procedures the list is made of.
void pImprimeTexto(Dibujo& d, int x, int y, const QString& texto, bool negrita, qint16 tam);
void pImprimeCuadro(Dibujo& d, int x1, int y1, int x2, int y2);

// Paints a drawing on a painter already begun on `dispositivo`: window in twips (1440 per
// inch), fonts at points x 20 pixels, a new page of the device at each page break.
void pintarDibujo(const Dibujo& d, QPainter& p, QPagedPaintDevice& dispositivo);

// The message file: whole text, and its lines as a line reader gives them (no empty line after
// a final line end). A missing file throws ErrorVB 53.
QString leerTextoMens(const QString& archivo);
QStringList leerLineasMens(const QString& archivo);

// Where a print goes. The default is the system's default printer; it throws ErrorVB 482 when
// there is none.
class DestinoImpresion {
public:
    virtual ~DestinoImpresion() = default;
    virtual QPagedPaintDevice& dispositivo() = 0;
};

// Prints the message file G().gsArchMens on `destino` (nullptr: the default printer). Failures
// are told with a message box titled "Impresión" and leave the caller as it was.
void pImprimeConsist(DestinoImpresion* destino = nullptr);
// The text the print's error handler shows for an error number, empty when it shows nothing.
QString mensajeErrorImpresion(int numero, const QString& descripcion);

// Model of the window "Inconsistencias detectadas".
class FrmConsist {
public:
    QString Caption = QStringLiteral("Inconsistencias detectadas");
    QString Label1 = QStringLiteral("En su declaración se han detectado las siguientes inconsistencias :");
    QString CmdGrabarCaption = QStringLiteral("&Aceptar");
    QString cmdImprimirCaption = QStringLiteral("&Imprimir");
    QString TxtPreliminar;
    bool cerrado = false;        // the form unloaded itself
    DestinoImpresion* destino = nullptr;   // nullptr: the default printer

    // Marks the window open and reads the message file into TxtPreliminar.
    void Form_Load();
    void Form_Unload();
    // "&Aceptar": answers "A" and closes. Closing by the window box runs Form_Unload only.
    void CmdGrabar_Click();
    // "&Imprimir": the window stays open whatever happens.
    void cmdImprimir_Click();
};
