#include "shell/vista/no_disponible.h"

#include "basic/msgbox.h"

void opcionNoDisponible()
{
    MsgBox(QStringLiteral("Esta opción no está disponible en esta versión del módulo."), vbInformation,
           QStringLiteral("0931 Modificación de coeficiente o porcentaje - v 1.6"));
}
