#pragma once
// The lookup windows of the "&Consultas" menu: thin dialogs over the models of
// dialogs/consultas.h. Each is modal and centred on the main window.
#include "dialogs/consultas.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QStandardItemModel;
class QTableView;

// A modal lookup centred on its parent's window (on the screen when it has none).
class DialogoConsulta : public QDialog {
    Q_OBJECT
public:
    using QDialog::QDialog;

protected:
    void showEvent(QShowEvent* e) override;
};

// A read-only two-column grid and "Salir": what the factor and catalogue lookups share. The
// grid takes the focus whenever the window is activated, unless it is disabled.
class DialogoGrilla : public DialogoConsulta {
    Q_OBJECT
public:
    DialogoGrilla(const QString& caption, const QStringList& columnas, const QVector<FilaConsulta>& filas,
                  bool habilitada, QWidget* padre);

    QTableView* grdBancos;
    QPushButton* CmdSalir;

protected:
    bool event(QEvent* e) override;

private:
    QStandardItemModel* datos_;
};

// The factors; with an empty catalogue a label says so in place of the grid.
class VistaFrmConsFac : public DialogoGrilla {
    Q_OBJECT
public:
    // The model must have been loaded (FrmConsFac::Form_Load).
    explicit VistaFrmConsFac(const FrmConsFac& modelo, QWidget* padre = nullptr);

    QLabel* lblVacio;
};

class VistaFrmConsultas : public DialogoGrilla {
    Q_OBJECT
public:
    // The model must have been loaded (FrmConsultas::Form_Load).
    explicit VistaFrmConsultas(const FrmConsultas& modelo, QWidget* padre = nullptr);
};

class VistaFrmConsTasas : public DialogoConsulta {
    Q_OBJECT
public:
    explicit VistaFrmConsTasas(QWidget* padre = nullptr);

    QVector<QLabel*> lblTasas;   // type and rate of each row, in reading order
    QPushButton* Command1;

    void done(int resultado) override;
};

// Opens the table of rates modally over the main window. No menu entry leads here.
void abrirFrmConsTasas();
