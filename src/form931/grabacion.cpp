// Saving, leaving and the order-number mode of the declaration form. In progress.
#include "form931/frm931.h"

void Frm931::Form_Unload() {}
void Frm931::Cargacab() {}
void Frm931::DesTodo() {}
void Frm931::CmdGrabar_Click() {}
void Frm931::CmdValidar_Click() {}
void Frm931::cmdCancelar_Click() {}
void Frm931::cmdPerdida_Click(int) {}
