#pragma once
// The picker of working declarations on the screen: a thin view of FrmContAbrir.
#include "register/contabrir.h"
#include "register/vista/selectorvista.h"

QStringList textosFila(const FilaContAbrir& f);

class FrmContAbrirVista : public SelectorDe<FrmContAbrir> {
    Q_OBJECT
public:
    explicit FrmContAbrirVista(qint16 nOpcion, QWidget* padre = nullptr);
};
