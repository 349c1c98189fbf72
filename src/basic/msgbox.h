#pragma once
// The classic message box, behind one small interface. The Qt view installs a responder that
// shows QMessageBox; tests and the CLI install a scripted responder that records every text.
#include <QString>

// Flags: icons 16 stop, 32 question, 48 warning, 64 information; buttons 0 OK, 1 OK/Cancel,
// 3 Yes/No/Cancel, 4 Yes/No; 256 second button default, 512 third button default.
// Results: OK 1, Cancel 2, Yes 6, No 7.
enum : int {
    vbOKOnly = 0, vbOKCancel = 1, vbYesNoCancel = 3, vbYesNo = 4,
    vbCritical = 16, vbQuestion = 32, vbExclamation = 48, vbInformation = 64,
    vbDefaultButton2 = 256, vbDefaultButton3 = 512,
    vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7,
};

class Respondedor {
public:
    virtual ~Respondedor() = default;
    virtual int MsgBox(const QString& texto, int flags, const QString& titulo) = 0;
};

// The button a box answers with when nobody chooses: its default button.
int botonPorDefecto(int flags);

void instalarRespondedor(Respondedor* r);   // nullptr: default buttons, nothing recorded
Respondedor* respondedor();
int MsgBox(const QString& texto, int flags = 0, const QString& titulo = QString());
