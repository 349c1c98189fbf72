#pragma once
// The about box: name and version of the module, centred on the main window.
#include <QDialog>

class QLineEdit;
class QLabel;
class QFrame;
class QPushButton;
class QTextEdit;

class frmAcercade : public QDialog {
    Q_OBJECT
public:
    explicit frmAcercade(QWidget* padre = nullptr);

    QLineEdit* txtVersion;
    QLineEdit* Text1;
    QTextEdit* Text2;
    QLineEdit* Text4;
    QLabel* Image1;
    QFrame* SSPanel1;
    QPushButton* cmdAceptar;

protected:
    void showEvent(QShowEvent* e) override;

private:
    void Form_Load();
};
