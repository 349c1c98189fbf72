#include "shell/globales.h"

Globales& G()
{
    static Globales globales;
    return globales;
}
