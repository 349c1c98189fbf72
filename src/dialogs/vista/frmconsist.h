#pragma once
// The window "Inconsistencias detectadas": mirrors FrmConsist and forwards its two buttons.
#include <QDialog>

class FrmConsist;
class QLabel;
class QPlainTextEdit;
class QPushButton;

class VistaFrmConsist : public QDialog {
    Q_OBJECT
public:
    // The model must have been loaded (FrmConsist::Form_Load); the window unloads it when it
    // closes, by "&Aceptar" or by its window box.
    explicit VistaFrmConsist(FrmConsist& modelo, QWidget* padre = nullptr);

    QLabel* Label1;
    QPlainTextEdit* TxtPreliminar;
    QPushButton* CmdGrabar;
    QPushButton* cmdImprimir;

    void done(int resultado) override;

private:
    FrmConsist& modelo_;
    bool descargado_ = false;
};

// Loads the model from the message file and shows the window modally over `padre`.
void abrirFrmConsist(QWidget* padre);
