#pragma once
// The preview of a spool file as a model: the array of page pictures (kept as drawing
// commands), the page shown and the print command. The window frmPreview mirrors it; how far a
// page is scrolled or zoomed is the window's own business.
#include "reports/spool.h"

#include <QList>
#include <QString>

#include <functional>

class ModeloPrevia {
public:
    ModeloPrevia();

    QString Archivo;                         // spool file in the report folder; set before load
    QString Modo = QStringLiteral("PresPrevia");
    qint16 nHojaActual = 0;
    qint16 nTotHojas = 1;

    // One element per loaded page picture (picPrevia); the shown one is the element visible
    // at nHojaActual.
    struct Elemento {
        PaginaDibujo pagina;
        bool visible = false;
    };
    QList<Elemento> picPrevia;
    bool descargar = false;      // the form unloads itself (a failed replay, "Salir")

    // Load: mode "PresPrevia", replay the file on the screen, show the first page.
    void Form_Load();
    // Replays `nombre` on the screen ("PresPrevia") or the printer (any other word).
    void pDesencripta(const QString& nombre, const QString& modo);
    // 0 first page, -2 previous, -1 next.
    void pMostrar(qint16 n);
    // Whether the previous (-2) and the next (-1) page would move the page on view: the window
    // enables "Pag Anterior" and "Pag Sgt" by them.
    bool hayAnterior() const { return nHojaActual > 0; }
    bool haySiguiente() const { return nHojaActual != nTotHojas - 1; }
    // Shows page `hoja` (from 0), held within the pages loaded: the last page (End) and the page
    // the window scrolled to.
    void pIrA(qint16 hoja);
    // Toolbar by button index: 2 previous, 3 next, 4 print, 5 exit.
    void tlbPrevia_ButtonClick(int indice);

    // The element on view, or -1.
    int elementoVisible() const;
    // The pages the preview holds, one sheet for each page from 0 to nTotHojas - 1 (a page the
    // records skipped is a blank sheet): what the window shows and what "Guardar PDF" writes.
    DocumentoSpool documento() const;
    bool guardarPdf(const QString& ruta) const;

private:
    void mostrarSolo(qint16 hoja);
    QString orientacion_;
};

// The range of pages in force (gbPorHojas, gnHojaDesde, gnHojaHasta).
RangoHojas rangoVigente();

// Opens the preview of a spool file with "Vprevia"; any other word replays it to the printer
// from a hidden preview. The window's opener is installed by the view.
void pAbrePrevia(const QString& nombre, const QString& palabra);
using AbridorPrevia = std::function<void(const QString& archivo)>;
void instalarAbridorPrevia(AbridorPrevia abridor);
