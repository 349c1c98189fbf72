#pragma once
// The preview of a spool file as a model: the array of page pictures (kept as drawing
// commands), the page shown, the scroll bars and the print command. The window frmPreview
// mirrors it.
#include "reports/spool.h"

#include <QList>
#include <QString>

#include <functional>

class ModeloPrevia {
public:
    // Design sizes, in twips.
    static constexpr int kAnchoMarco = 12015, kAltoMarco = 5325;   // picFondo
    static constexpr int kLadoPagina = 15000;                      // each picPrevia
    static constexpr int kMaxVertical = 11000, kMaxHorizontal = 3500;
    static constexpr int kPasoVertical0 = 400, kPasoVertical1 = 350, kPasoHorizontal = 45;

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
        int top = 0, left = 0;   // twips, within the frame
    };
    QList<Elemento> picPrevia;
    int vsbPic[2] = {0, 0};
    int HScroll1 = 0;
    bool descargar = false;      // the form unloads itself (a failed replay, "Salir")

    // Load: mode "PresPrevia", replay the file on the screen, show the first page.
    void Form_Load();
    // Replays `nombre` on the screen ("PresPrevia") or the printer (any other word).
    void pDesencripta(const QString& nombre, const QString& modo);
    // 0 first page, -2 previous, -1 next.
    void pMostrar(qint16 n);
    // Toolbar by button index: 2 previous, 3 next, 4 print, 5 exit.
    void tlbPrevia_ButtonClick(int indice);
    void setVsbPic(int i, int valor);
    void setHScroll1(int valor);

    // The element on view, or -1.
    int elementoVisible() const;
    // The pages the preview holds, for saving as PDF.
    DocumentoSpool documento() const;
    bool guardarPdf(const QString& ruta) const;

private:
    void vsbPic_Change(int i);
    QString orientacion_;
};

// The range of pages in force (gbPorHojas, gnHojaDesde, gnHojaHasta).
RangoHojas rangoVigente();

// Opens the preview of a spool file with "Vprevia"; any other word replays it to the printer
// from a hidden preview. The window's opener is installed by the view.
void pAbrePrevia(const QString& nombre, const QString& palabra);
using AbridorPrevia = std::function<void(const QString& archivo)>;
void instalarAbridorPrevia(AbridorPrevia abridor);
