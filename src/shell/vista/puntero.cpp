#include "shell/vista/puntero.h"

#include <QApplication>
#include <QCursor>

void fijarPunteroEspera(bool espera)
{
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    if (espera)
        QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}
