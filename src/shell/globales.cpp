#include "shell/globales.h"

#include "family/cutilqvl.h"

Globales& G()
{
    static Globales globales;
    return globales;
}

void Globales::reiniciar()
{
    delete gobjUtil;
    *this = Globales();
}
