#pragma once
// The page-range dialog of the preview: the page count of the report, the advice about long
// reports, "&Desde :" and "&Hasta :", and "&Preliminar" / "&Cancelar". It mirrors
// ModeloImpxPag and stays open behind the preview, so another range can be asked for.
#include "reports/imprimir.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

class frmImpxPag : public QDialog {
    Q_OBJECT
public:
    frmImpxPag(const QString& titulo, qint16 paginas, const QString& archivo, QWidget* padre = nullptr);

    ModeloImpxPag& modelo() { return modelo_; }
    QLineEdit* txtTotPaginas = nullptr;
    QLineEdit* txtPagDesde = nullptr;
    QLineEdit* txtPagHasta = nullptr;
    QPushButton* cmdAccion[2] = {};
    QLabel* lblTexto = nullptr;

protected:
    bool eventFilter(QObject* objeto, QEvent* e) override;
    void showEvent(QShowEvent* e) override;

private:
    void accion(int indice);
    void colocarTotal();
    ModeloImpxPag modelo_;
};
