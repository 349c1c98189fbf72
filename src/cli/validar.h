#pragma once
// The validation passes on a declaration typed into the form, as `validar` and `importar`
// report them.
#include <QJsonArray>
#include <QString>

class Frm931;

// The full pass (ValidaFormulario) into a message file of its own; the lines it wrote, in order.
QJsonArray inconsistenciasDe(Frm931& frm);
// The silent pass (ValidaCompleto): the state a save would give, 0 or 9.
int estadoDe(Frm931& frm);
