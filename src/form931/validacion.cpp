// Validation passes of the declaration (full and silent). In progress.
#include "form931/frm931.h"

void Frm931::ValidaFormulario() {}
void Frm931::ValidaCompleto(bool& bOk) { bOk = true; }
void Frm931::ValidaParExcluyente(int, int, bool, int, bool& bOk) { bOk = true; }
bool Frm931::ValidaPeriodo(const QString&) const { return true; }
