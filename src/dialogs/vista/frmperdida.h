#pragma once
// The window of one carried-forward tax loss: the year and the amount over FrmPerdidaEjercAnt.
#include "dialogs/perdida.h"

#include <QDialog>

class QGroupBox;
class QLineEdit;
class QPushButton;

class frmPerdidaEjercAnt : public QDialog {
    Q_OBJECT
public:
    // Loads and activates the model as G().gsModoPerdida asks.
    explicit frmPerdidaEjercAnt(QWidget* padre = nullptr);

    FrmPerdidaEjercAnt& modelo() { return m_; }
    QGroupBox* Frame1;
    QLineEdit* MkeAnho;
    QLineEdit* txtImporte;
    QPushButton* cmdAccion[2];

    bool eventFilter(QObject* objeto, QEvent* evento) override;

public slots:
    void reject() override;

private:
    void accion(int indice);
    void pegar(const QString& texto);
    void refrescar();                // mirrors the model, focus included
    FrmPerdidaEjercAnt m_;
    int refrescando_ = 0;
};

// Shows the window modally over `padre`.
void abrirFrmPerdida(QWidget* padre);
