#pragma once
// Tells the user that a command's window is not part of this version.
void opcionNoDisponible();
