#pragma once
// The screen's pointer as one setting, not a stack: the hourglass while `espera`, the default
// pointer otherwise, however many times either was asked for.
void fijarPunteroEspera(bool espera);
