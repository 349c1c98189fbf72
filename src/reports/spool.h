#pragma once
// Spool files of the reports: a text file of drawing commands, one a line, coordinates in
// twips (1440 to the inch), single-byte Windows-1252 text, lines ended by CR LF.
//
//   <!font!>Courier New<!/font!>              directives, first page of the first copy only
//   <!nHojas!>5<!/nHojas!>
//   <!Orientacion!>V<!/Orientacion!>
//   <!Color!>&H00FFFFC0&<!/Color!>
//   pPos|x|y|text|True|size|page|            text record ("True" only for the flag -1)
//   pCuadro|x1|y1|x2|y2|page|                rectangle record
//   pPosVerti|x|y|text|bold|size|page|       vertical text (read only; never written here)
//   pNuevaHoja                               page break (for the printer)
//
// Every field is closed by "|", the last one too; pages count from 0.
//
// The writer (pLinea, pPosLinea, pCuadroLinea) keeps its state in the report globals of G()
// (gnHojaRpt, gnLineaRpt, gnPosLinea, gnLineasHoja, gsDestinoRpt, gsRutaRpt, gnArchivoRpt).
// The reader (reproduceSpool) is a pure function from the file's lines to pages of drawing
// commands, for the screen or for the printer, with or without a page range.
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <functional>

// ---------------------------------------------------------------------------------------------
// Windows-1252, the code page of the spool files. Characters outside it are written as "?".
QByteArray aCp1252(const QString& texto);
QString deCp1252(const QByteArray& bytes);

// ---------------------------------------------------------------------------------------------
// Writer.

// Opens G().gsRutaRpt for output (created or truncated) and takes a file number into
// G().gnArchivoRpt. Throws ErrorVB when the file cannot be created.
void pAbreArchivoRpt();
// Closes the file of G().gnArchivoRpt, if open. Harmless when nothing is open.
void pCierraArchivoRpt();
bool archivoRptAbierto();

// Raw line writer: directive lines as they stand (first page only); any other text becomes a
// text record of its own at x 10, 175 twips under the previous one. Counts lines and breaks the
// page after 83 (85 when fewer than 83 lines a page are set).
void pLinea(const QString& texto);
// A text record, or a page break when the text is "pNuevaHoja". `negrita` -1 means bold.
void pPosLinea(qint16 x, qint16 y, const QString& texto, qint16 negrita, qint16 tamano, qint16 hoja);
void pCuadroLinea(qint16 x1, qint16 y1, qint16 x2, qint16 y2, qint16 hoja);

// Direct printing (G().gsDestinoRpt other than "ARCHIVO"): the writers hand the record text and
// the page breaks to this output instead of the file. Nothing in the module selects it; without
// an output installed the lines go nowhere.
class SalidaDirectaRpt {
public:
    virtual ~SalidaDirectaRpt() = default;
    // Font of G().gvFuenteNombre, gvFuenteTam, gvFuenteNegrita, then the text on a line of its own.
    virtual void imprimir(const QString& texto) = 0;
    virtual void nuevaPagina() = 0;
};
void instalarSalidaDirectaRpt(SalidaDirectaRpt* salida);

// ---------------------------------------------------------------------------------------------
// Reader.

// Background colour of the preview pages as designed, in the runtime's form (0x00BBGGRR).
inline constexpr quint32 kColorFondoDiseno = 0x00FFFFC0u;
// Font of the report's texts on the screen and the printer, and of the printer's rectangles.
inline constexpr const char* kFuenteTextos = "Courier New";
inline constexpr const char* kFuenteCuadrosImpresora = "Courier";
// Line pitch of the vertical text records, in twips.
inline constexpr int kPasoVertical = 190;

struct ComandoDibujo {
    enum Tipo : quint8 { Texto, Cuadro, TextoVertical };
    Tipo tipo = Texto;
    qint16 x = 0, y = 0;          // text position, or the first corner
    qint16 x2 = 0, y2 = 0;        // second corner of a rectangle
    QString texto;
    bool negrita = false;
    qint16 tamano = 0;            // points; 0 as the builder leaves it (see reproduccion.h)
    qint16 hoja = 0;              // page field of the record
    bool operator==(const ComandoDibujo&) const = default;
};

struct PaginaDibujo {
    QList<ComandoDibujo> comandos;
    quint32 colorFondo = kColorFondoDiseno;   // screen only
    bool apaisada = false;                    // printer only: orientation "H" in force
    bool cargada = true;                      // false for a gap in the array of pages
};

struct RangoHojas {
    bool activo = false;        // gbPorHojas
    qint16 desde = 0, hasta = 0; // pages counted from 1
    bool contiene(int hoja) const { return hoja + 1 >= desde && hoja + 1 <= hasta; }
};

struct DocumentoSpool {
    bool impresora = false;
    QString fuente;                 // value of the font directive; nothing draws with it
    QString orientacion;            // value of the orientation directive (acted on in print mode)
    quint32 colorFondo = kColorFondoDiseno;   // background of element 0 after the replay
    qint16 nHojaActual = 0;
    qint16 nTotHojas = 1;           // screen: pages the records opened; printer: pages started
    QList<PaginaDibujo> paginas;    // screen: the array of page pictures; printer: paper pages
    int error = 0;                  // run-time error that ended the replay (0: none)
    QString descripcionError;
};

// One line taken apart: the head token (trimmed) and where its fields begin (0-based).
// Returns false for a line that holds none of the stop patterns "|", "!>" or "aHoja".
bool cabezaLinea(const QString& linea, QString& cabeza, int& cursor);
// The next field from `cursor` up to the following "|" (or to the end of the line when there
// is none); the cursor moves one past that "|".
QString campoLinea(const QString& linea, int& cursor);

// Replays the lines of a spool file. On the screen the pages come from the records' page
// fields; on the printer from the page breaks. `nHojaActual` is the form's current page before
// the replay. A run-time error (a field beyond 16 bits, a page that was never opened, a decimal
// colour outside 32 bits) ends the replay: the pages made so far are kept and `error` tells the
// number.
DocumentoSpool reproduceSpool(const QStringList& lineas, bool impresora, const RangoHojas& rango,
                              qint16 nHojaActual = 0);

// Lines of a spool file (Windows-1252, CR LF or LF). Throws ErrorVB 53 when it does not exist.
QStringList leeLineasSpool(const QString& ruta);
// The same from the file's bytes.
QStringList lineasSpool(const QByteArray& contenido);
// Full path of a spool file in the report folder: G().gsPathRpt + "/" + name.
QString rutaSpool(const QString& nombre);

// Page count of the "<!nHojas!>" directive of a spool file in the report folder; 0 when the
// file is missing or has no such line. A damaged count throws ErrorVB for the caller to show:
// 6 for a number beyond 16 bits, 5 for a closing tag that stands before the number.
qint16 NumRegistros(const QString& nombre);
// The same from the lines of the file.
qint16 numeroDeHojas(const QStringList& lineas);
