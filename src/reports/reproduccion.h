#pragma once
// Drawing the pages of a replayed spool file (spool.h) on a QPainter, in twips. One routine
// serves the preview, the printer and PDF.
#include "reports/spool.h"

#include <QColor>
#include <QFont>
#include <QPageSize>
#include <QString>

#include <functional>

class QPainter;
class QPagedPaintDevice;

// Size given to the body lines, whose size field is 0: 8 points fits the rows' pitch of 270
// twips (an 8-point line is 160 twips high) and the widest label of the balance column.
inline constexpr int kTamanoCuerpo = 8;
// Width of the rectangles' lines: one screen pixel at 96 dpi, also on paper.
inline constexpr int kGrosorLinea = 15;
// Paper of the printed and PDF pages; the twips count from the printable area, which PDF
// places a quarter inch in from each edge, as a desktop printer does.
inline constexpr double kMargenPdfMm = 6.35;

// The font of a text record: "Courier New" (a metric-compatible mono face where it is not
// installed) at points x 20 pixels, for a painter whose window is in twips.
QFont fuenteTwips(const QString& familia, int puntos, bool negrita);

// Window and viewport of `p` so that 1440 units are one inch of its device.
void preparaTwips(QPainter& p);

// Draws the commands of a page from the painter's origin. On the screen the caller fills the
// background; on paper it stays white, and rectangles are drawn with the printer's "Courier".
void dibujaPagina(QPainter& p, const PaginaDibujo& pagina, bool impresora);

// Background of a preview page: the runtime's 0x00BBGGRR.
QColor colorRuntime(quint32 valor);

// All pages of a document on a paged device, each with its orientation (portrait unless the
// page says landscape); leaves the device in portrait. `conFondo` fills the printable area of
// each sheet with its page's background colour first, as the preview shows it; paper stays white.
void imprimeDocumento(QPagedPaintDevice& dispositivo, const DocumentoSpool& doc, bool conFondo = false);

// The paper of PDF files and of the preview: the size given, portrait, margins of kMargenPdfMm.
void preparaPapel(QPagedPaintDevice& dispositivo, QPageSize::PageSizeId papel = QPageSize::A4);

// Writes the pages to a PDF file (A4 portrait; landscape pages where the document says "H").
// Returns false when the file cannot be written.
bool guardaPdf(const QString& ruta, const DocumentoSpool& doc, QPageSize::PageSizeId papel = QPageSize::A4);

// The page of the report each sheet of a printer replay holds, counted from 1: the page field of
// its records; a sheet without records is the break that followed the page before it.
QList<int> paginasDelInforme(const DocumentoSpool& doc);
// The sheets whose report page lies within `desde`..`hasta`, the whole run `copias` times.
DocumentoSpool seleccionaHojas(const DocumentoSpool& doc, int desde, int hasta, int copias = 1);

// The printer of the print commands: the system's default printer. Throws ErrorVB 482 when
// none is configured. Tests and tools install their own destination.
using DestinoImpresion = std::function<void(const DocumentoSpool&)>;
void instalarDestinoImpresion(DestinoImpresion destino);   // empty: the default printer
void enviaAImpresora(const DocumentoSpool& doc);
