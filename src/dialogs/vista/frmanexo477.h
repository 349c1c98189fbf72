#pragma once
// The annex window of casillas 473 and 477: mirrors FrmAnexo477 and forwards its events.
#include "dialogs/anexo477.h"

#include <QDialog>

class Frm931;
class QLabel;
class QLineEdit;
class QPushButton;

class frmAnexo477 : public QDialog {
    Q_OBJECT
public:
    // Loads the annex of `nCasilla` (473 or 477) from the declaration's boxes.
    frmAnexo477(Frm931& frm, int nCasilla, QWidget* padre = nullptr);

    FrmAnexo477& modelo() { return m_; }
    QLineEdit* TxtMonto[2];
    QLineEdit* TxtTotal;
    QPushButton* CmdGrabar;
    QPushButton* cmdCancelar;
    void refrescar();

public slots:
    void reject() override;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void tras();
    void pegar(int i, const QString& texto);
    FrmAnexo477 m_;
    QLabel* lblCas_[4];   // 0, 1: casilla numbers; 2, 3: labels 5 and 6
    QLabel* label1_;
    int refrescando_ = 0;
};
