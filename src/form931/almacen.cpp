// Single casilla values to and from DET. In progress.
#include "form931/frm931.h"

void Frm931::pGrabaCasilla(const QString&, const QString&, const QString&, const QString&) {}
void Frm931::pCargaCasillas(bool& bVacio) { bVacio = true; }
void Frm931::pPonerCasilla(const QString&, const QString&) {}
