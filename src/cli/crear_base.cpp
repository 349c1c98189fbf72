// f931 crear-base ARCHIVO: a new shared database with the schema, the catalogue and the demo
// users and taxpayers. Never overwrites a file (exit 2). ARCHIVO appears only when whole: a run
// killed at any point leaves the finished database or nothing.
#include "basic/errores.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "form931/guion.h"
#include "store/crear.h"

#include <QTextStream>

namespace {

int comandoCrearBase(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        LineaComando linea(QStringLiteral("crear-base"), QStringLiteral("ARCHIVO"), 1, 1,
                           QStringLiteral("Crea una base de datos compartida nueva con el esquema y el catálogo.\n"
                                          "Nunca escribe sobre un archivo que ya existe."),
                           false);
        if (!linea.leer(argumentos))
            return 0;
        const QString archivo = linea.posicionales().first();
        // "-" is no file name here: standard input can't be a database.
        if (archivo.isEmpty() || archivo == QLatin1String("-"))
            throw ErrorEntrada(QStringLiteral("falta ARCHIVO; %1").arg(linea.uso()));
        try {
            crearBaseDatos(archivo, true);
        } catch (const ErrorVB& e) {
            throw ErrorEntrada(e.descripcion);
        }
        QTextStream(stdout) << "Base de datos creada: " << archivo << Qt::endl;
        return 0;
    });
}

RegistroComando registro("crear-base", &comandoCrearBase, "crea una base de datos compartida nueva");

}  // namespace
