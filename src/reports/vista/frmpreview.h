#pragma once
// "Presentación Preliminar": the pages of a spool file on the screen as sheets of paper, with
// paging ("Pag Anterior", "Pag Sgt", PgUp, PgDn, Home, End), zoom (fit width, whole page, 50 to
// 200 per cent, Ctrl with the wheel, Ctrl++ and Ctrl+-), "Página N de M", printing and saving
// as PDF. "Pag Anterior" is disabled on the first page and "Pag Sgt" on the last, whichever way
// the page was reached. The window grows with its frame. It mirrors ModeloPrevia: the model says which page
// is on view, the window only scrolls to it.
#include "reports/previa.h"

#include <QDialog>
#include <QPrinter>

class QAction;
class QComboBox;
class QLabel;
class QPrintPreviewWidget;
class QToolBar;

class frmPreview : public QDialog {
    Q_OBJECT
public:
    // Creates the window for a spool file of the report folder and runs its load (the replay).
    explicit frmPreview(const QString& archivo, QWidget* padre = nullptr);

    ModeloPrevia& modelo() { return modelo_; }
    // Toolbar buttons by index 2..5 ("Pag Anterior", "Pag Sgt", "Imprimir", "Salir").
    QAction* boton(int indice) const;
    QAction* guardarPdf() const { return accionPdf_; }
    QAction* ajustarAncho() const { return accionAncho_; }
    QAction* paginaCompleta() const { return accionPagina_; }
    QComboBox* cboZoom() const { return cboZoom_; }
    QLabel* lblPagina() const { return lblPagina_; }
    QPrintPreviewWidget* picFondo() const { return previa_; }
    // The zoom on view, in per cent of the paper's size.
    int zoom() const;

    // The steps of the zoom box and of Ctrl++ / Ctrl+-, in per cent.
    static const QList<int>& pasosZoom();

protected:
    bool eventFilter(QObject* objeto, QEvent* e) override;

private:
    void pulsar(int indice);
    void irA(qint16 hoja);
    void refrescar();
    void fijarZoom(int porCiento);
    void pasoZoom(int sentido);
    void mostrarZoom();
    void guardarComoPdf();

    ModeloPrevia modelo_;
    QPrinter hoja_;
    QPrintPreviewWidget* previa_ = nullptr;
    QToolBar* tlbPrevia_ = nullptr;
    QAction* botones_[4] = {};
    QAction* accionPdf_ = nullptr;
    QAction* accionAncho_ = nullptr;
    QAction* accionPagina_ = nullptr;
    QComboBox* cboZoom_ = nullptr;
    QLabel* lblPagina_ = nullptr;
    bool refrescando_ = false;
};

// Shows the preview of a spool file modally over `padre` (nothing when its load failed).
void abrirPrevia(const QString& archivo, QWidget* padre);
