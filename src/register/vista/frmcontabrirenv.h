#pragma once
// The picker of sent declarations on the screen: a thin view of FrmContAbrirEnv. It mirrors
// the captions and the list, and forwards the buttons, the double click, the row changes and
// every activation (which reloads the list of every period).
#include "register/contabrirenv.h"

#include <QDialog>
#include <QVector>

#include <functional>

class QGroupBox;
class QLabel;
class QPushButton;
class QTableWidget;

class FrmContAbrirEnvVista : public QDialog {
    Q_OBJECT
public:
    explicit FrmContAbrirEnvVista(QWidget* padre = nullptr);

    FrmContAbrirEnv& modelo() { return m_; }
    QTableWidget* grdContrib = nullptr;
    QGroupBox* Frame1 = nullptr;
    QLabel* Label1 = nullptr;
    QPushButton* CmdOpciones[2] = {nullptr, nullptr};

    // Mirrors the model: captions, rows, the current row.
    void refrescar();

protected:
    bool event(QEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void hideEvent(QHideEvent* e) override;

private:
    void ejecutar(const std::function<void()>& evento);
    FrmContAbrirEnv m_;
    QVector<FilaContAbrirEnv> mostradas_;
    int refrescando_ = 0;
};
