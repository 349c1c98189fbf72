// f931 crear-base ARCHIVO: a new shared database with the schema, the catalogue and the demo
// users and taxpayers. Never overwrites a file (exit 2). ARCHIVO appears only when whole: a run
// killed at any point leaves the finished database or nothing.
#include "basic/errores.h"
#include "cli/comandos.h"
#include "store/crear.h"

#include <QTextStream>

namespace {

int comandoCrearBase(const QStringList& argumentos)
{
    QTextStream err(stderr);
    // An option is never taken for a file name ("--help" must not become a database).
    if (argumentos.size() != 1 || argumentos.first().startsWith(QLatin1Char('-'))) {
        err << "uso: f931 crear-base ARCHIVO" << Qt::endl;
        return 2;
    }
    try {
        crearBaseDatos(argumentos.first(), true);
    } catch (const ErrorVB& e) {
        err << e.descripcion << Qt::endl;
        return 2;
    }
    QTextStream(stdout) << "Base de datos creada: " << argumentos.first() << Qt::endl;
    return 0;
}

RegistroComando registro("crear-base", &comandoCrearBase);

}  // namespace
