// f931 verificar [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO]
// Recomputes the check code (cNumero) of every stored row of the tables that carry one and
// prints, as JSON, "revisadas" (rows read), "distintas" (how many disagree) and "filas": each
// row whose stored code differs, with "tabla", "clave" (its key columns), "guardado" and
// "esperado". Exit 0 when every code agrees, 1 when any differs, 3 when the database is out of
// reach, 2 for bad input.
#include "cli/comandos.h"
#include "cli/comun.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/verificacion.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace {

int comandoVerificar(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        LineaComando linea(QStringLiteral("verificar"), QString(), 0, 0,
                           QStringLiteral("Recalcula el código de control de cada fila guardada e imprime las que no\n"
                                          "coinciden. Sale con 0 si todas coinciden, con 1 si alguna difiere."),
                           true);
        if (!linea.leer(argumentos))
            return 0;
        OpcionesCli o = linea.comunes();
        o.sinUsuario = true;
        prepararEntorno(o);
        const Verificacion v = verificarCodigos();
        cerrarBase();

        QJsonArray filas;
        for (const CodigoDistinto& d : v.distintas)
            filas.append(QJsonObject{{QStringLiteral("tabla"), d.tabla},
                                     {QStringLiteral("clave"), QJsonObject::fromVariantMap(d.clave)},
                                     {QStringLiteral("guardado"), d.guardado},
                                     {QStringLiteral("esperado"), d.esperado}});
        const QJsonObject salida{{QStringLiteral("revisadas"), v.revisadas},
                                 {QStringLiteral("distintas"), static_cast<int>(v.distintas.size())},
                                 {QStringLiteral("filas"), filas}};
        const QByteArray texto = QJsonDocument(salida).toJson(QJsonDocument::Indented);
        std::fwrite(texto.constData(), 1, static_cast<size_t>(texto.size()), stdout);
        std::fflush(stdout);
        return v.distintas.isEmpty() ? 0 : 1;
    });
}

RegistroComando registro("verificar", &comandoVerificar, "comprueba el código de control de cada fila guardada");

}  // namespace
