// This window is not built yet: the command says so and does nothing else.
#include "shell/vista/ventanas.h"
#include "shell/vista/no_disponible.h"

void abrirFrmContAbrir(qint16)
{
    opcionNoDisponible();
}
