// f931 calcular [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json
// Types the declaration into a new form as a user would and prints what the form shows.
#include "basic/respondedor_guion.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "form931/guion.h"

#include <QJsonObject>

namespace {

const QString kUso = QStringLiteral(
    "uso: f931 calcular [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json");

int comandoCalcular(const QStringList& argumentos)
{
    return ejecutarDeclaracion(argumentos, kUso, [](Frm931& frm, RespondedorGuion& respondedor, QJsonObject& salida) {
        salida = salidaCalcular(frm, respondedor);
        return 0;
    });
}

RegistroComando registro("calcular", &comandoCalcular);

}  // namespace
