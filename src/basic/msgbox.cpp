#include "basic/msgbox.h"

namespace {
Respondedor* g_respondedor = nullptr;
}

int botonPorDefecto(int flags)
{
    const int botones = flags & 7;
    const int defecto = (flags & vbDefaultButton3) ? 3 : (flags & vbDefaultButton2) ? 2 : 1;
    switch (botones) {
    case vbOKCancel: return defecto == 2 ? vbCancel : vbOK;
    case vbYesNoCancel: return defecto == 3 ? vbCancel : defecto == 2 ? vbNo : vbYes;
    case vbYesNo: return defecto == 2 ? vbNo : vbYes;
    default: return vbOK;
    }
}

void instalarRespondedor(Respondedor* r) { g_respondedor = r; }
Respondedor* respondedor() { return g_respondedor; }

int MsgBox(const QString& texto, int flags, const QString& titulo)
{
    if (g_respondedor)
        return g_respondedor->MsgBox(texto, flags, titulo);
    return botonPorDefecto(flags);
}
