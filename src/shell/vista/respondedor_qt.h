#pragma once
// The message box on the screen: QMessageBox with the icon, buttons and default button that the
// flags ask for, parented to the active window.
#include "basic/msgbox.h"

class RespondedorQt : public Respondedor {
public:
    int MsgBox(const QString& texto, int flags, const QString& titulo) override;
};
