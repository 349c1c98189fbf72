// f931 respaldar DESTINO [--base ARCHIVO.db]
// Writes a copy of the database as the new file DESTINO: one consistent moment of it, taken
// while other programs may be working on it, written so that DESTINO is the whole copy or
// nothing. An existing DESTINO is never replaced. Exit 0 done, 2 bad input (DESTINO exists, its
// folder is missing or can't be written), 3 database out of reach.
#include "basic/errores.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "form931/guion.h"
#include "shell/globales.h"
#include "store/archivo_nuevo.h"
#include "store/base.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace {

int comandoRespaldar(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        LineaComando linea(QStringLiteral("respaldar"), QStringLiteral("DESTINO"), 1, 1,
                           QStringLiteral("Escribe en el archivo nuevo DESTINO una copia consistente de la base de datos,\n"
                                          "aunque otros programas la estén usando. No sobrescribe un archivo existente."),
                           true);
        if (!linea.leer(argumentos))
            return 0;
        OpcionesCli o = linea.comunes();
        o.sinUsuario = true;
        const QString destino = QFileInfo(linea.posicionales().first()).absoluteFilePath();
        const QString nombre = QDir::toNativeSeparators(destino);
        // Refused before the database is even opened.
        if (QFileInfo(destino).exists() || QFileInfo(destino).isSymLink())
            throw ErrorEntrada(QStringLiteral("El archivo %1 ya existe; la copia no lo sobrescribe. Indique otro nombre.")
                                   .arg(nombre));
        prepararEntorno(o);
        const QString base = QFileInfo(G().gsBaseDatos).absoluteFilePath();
        if (base == destino)
            throw ErrorEntrada(QStringLiteral("La copia no puede escribirse sobre la misma base de datos %1.").arg(nombre));
        const QByteArray imagen = imagenConsistente(gdbBase());
        cerrarBase();
        try {
            publicarArchivo(imagen, destino);
        } catch (const ErrorVB& e) {
            if (e.numero == 58)
                throw ErrorEntrada(QStringLiteral("El archivo %1 ya existe; la copia no lo sobrescribe. Indique otro nombre.")
                                       .arg(nombre));
            throw ErrorEntrada(e.descripcion + QStringLiteral(" No se escribió la copia."));
        }
        QTextStream(stdout) << "Copia de la base de datos escrita: " << nombre << Qt::endl;
        return 0;
    });
}

RegistroComando registro("respaldar", &comandoRespaldar, "escribe una copia consistente de la base de datos");

}  // namespace
