// f931 calcular [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json
// Types the declaration into a new form as a user would and prints what the form shows.
#include "basic/respondedor_guion.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "form931/guion.h"

#include <QJsonObject>

namespace {

const char* const kResumen = "teclea la declaración en un formulario nuevo e imprime lo que muestra";

int comandoCalcular(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        LineaComando linea(QStringLiteral("calcular"), QStringLiteral("ENTRADA.json"), 1, 1,
                           QStringLiteral("Abre una declaración nueva, teclea ENTRADA.json como un usuario e imprime\n"
                                          "periodo, tasa, sistema, presentacion, uit, casillas y mensajes."),
                           true);
        if (!linea.leer(argumentos))
            return 0;
        return ejecutarDeclaracion(linea, [](Frm931& frm, RespondedorGuion& respondedor, QJsonObject& salida, QString&) {
            salida = salidaCalcular(frm, respondedor);
            return 0;
        });
    });
}

RegistroComando registro("calcular", &comandoCalcular, kResumen);

}  // namespace
