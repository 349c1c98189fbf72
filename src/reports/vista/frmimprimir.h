#pragma once
// The print selection: the list of working (or sent) declarations, the options, and the
// buttons "&Preliminar", "&Imprimir" and "&Salir". It mirrors ModeloImprimir; pAbreImprimir
// (shell/vista/ventanas.h) opens it modally over the main window.
#include "reports/imprimir.h"

#include <QDialog>

class QCheckBox;
class QGroupBox;
class QPushButton;
class QRadioButton;
class QTableWidget;

class frmImprimir : public QDialog {
    Q_OBJECT
public:
    explicit frmImprimir(QWidget* padre = nullptr);
    ~frmImprimir() override;

    ModeloImprimir& modelo() { return modelo_; }
    QTableWidget* grdContrib = nullptr;
    QGroupBox* Frame2 = nullptr;
    QPushButton* CmdImprimir[3] = {};
    QRadioButton* OptImp[3] = {};
    QCheckBox* ChkAnexos[ModeloImprimir::kAnexos] = {};

    // Shows the options and the annex boxes as the model holds them.
    void refrescar();

protected:
    void changeEvent(QEvent* e) override;
    void done(int resultado) override;
    bool eventFilter(QObject* objeto, QEvent* e) override;

private:
    void llenarGrilla();
    void pulsar(int indice);
    ModeloImprimir modelo_;
    bool descargado_ = false;
};
