#pragma once
// The picker of sent declarations on the screen: a thin view of FrmContAbrirEnv. Its list
// hides the correlative in the known modes, and the grid stays shut when the first list, of the
// current period, was empty.
#include "register/contabrirenv.h"
#include "register/vista/selectorvista.h"

QStringList textosFila(const FilaContAbrirEnv& f);

class FrmContAbrirEnvVista : public SelectorDe<FrmContAbrirEnv> {
    Q_OBJECT
public:
    explicit FrmContAbrirEnvVista(QWidget* padre = nullptr);

protected:
    void ajustarGrilla() override;
};
