#pragma once
// "Presentación Preliminar": the pages of a spool file on the screen, with paging, the two
// vertical bars in step, the horizontal bar, printing and saving as PDF. It mirrors
// ModeloPrevia.
#include "reports/previa.h"

#include <QDialog>
#include <QWidget>

class QAction;
class QScrollBar;
class QToolBar;

// The frame that clips the page on view (picFondo), drawn in twips at 15 to the pixel.
class LienzoPrevia : public QWidget {
    Q_OBJECT
public:
    explicit LienzoPrevia(const ModeloPrevia& modelo, QWidget* padre = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* e) override;

private:
    const ModeloPrevia& modelo_;
};

class frmPreview : public QDialog {
    Q_OBJECT
public:
    // Creates the window for a spool file of the report folder and runs its load (the replay).
    explicit frmPreview(const QString& archivo, QWidget* padre = nullptr);

    ModeloPrevia& modelo() { return modelo_; }
    // Toolbar buttons by index 2..5 ("Pag Anterior", "Pag Sgt", "Imprimir", "Salir").
    QAction* boton(int indice) const;
    QAction* guardarPdf() const { return accionPdf_; }
    QScrollBar* vsbPic(int i) const { return vsb_[i]; }
    QScrollBar* HScroll1() const { return hsb_; }
    LienzoPrevia* picFondo() const { return lienzo_; }

    // "Guardar PDF" with the file already chosen; false when it could not be written.
    bool guardarComo(const QString& ruta);

private:
    void pulsar(int indice);
    void refrescar();

    ModeloPrevia modelo_;
    QToolBar* tlbPrevia_ = nullptr;
    QAction* botones_[4] = {};
    QAction* accionPdf_ = nullptr;
    QScrollBar* vsb_[2] = {};
    QScrollBar* hsb_ = nullptr;
    LienzoPrevia* lienzo_ = nullptr;
    bool refrescando_ = false;
};

// Shows the preview of a spool file modally over `padre` (nothing when its load failed).
void abrirPrevia(const QString& archivo, QWidget* padre);
