#pragma once
// Commands of `f931`. Each command lives in its own file and registers itself:
//   static RegistroComando registro("calcular", &comandoCalcular, "one line for the help");
// A command receives the arguments after its name and returns the exit code; it writes its
// result to standard output and one line naming the problem to standard error.
#include <QStringList>

using FuncionComando = int (*)(const QStringList& argumentos);

struct RegistroComando {
    RegistroComando(const char* nombre, FuncionComando funcion, const char* resumen);
};
