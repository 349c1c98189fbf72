// f931 crear-base ARCHIVO: a new shared database with the schema, the catalogue and the demo
// users and taxpayers. Never overwrites a file.
#include "basic/errores.h"
#include "cli/comandos.h"
#include "store/crear.h"

#include <QTextStream>

namespace {

int comandoCrearBase(const QStringList& argumentos)
{
    QTextStream err(stderr);
    if (argumentos.size() != 1) {
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
