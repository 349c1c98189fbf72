#include "shell/familia.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QUuid>

#include "basic/errores.h"
#include "shell/ini.h"
#include "store/crear.h"

QString carpetaFamiliaPorDefecto()
{
    return QDir::homePath() + QStringLiteral("/qualvia/");
}

Familia prepararFamilia(const QString& carpeta, const QString& ayuda)
{
    Familia f;
    f.carpeta = QDir::cleanPath(QDir(carpeta).absolutePath()) + QLatin1Char('/');
    f.archivoBase = f.carpeta + kNombreBase;

    QDir raiz;
    for (const QString& sub : {QString(), QStringLiteral("TMP"), QStringLiteral("RPT"), QStringLiteral("BMP"),
                               QStringLiteral("0931")}) {
        if (!raiz.mkpath(f.carpeta + sub))
            throw ErrorVB(75, QStringLiteral("No se puede crear la carpeta '%1'.").arg(f.carpeta + sub));
    }
    if (!QFileInfo::exists(f.archivoBase)) {
        crearBaseDatos(f.archivoBase, true);
        f.baseCreada = true;
    }
    const QString hlp = f.carpeta + QStringLiteral("0931/Ql931.hlp");
    if (!ayuda.isEmpty() && QFileInfo::exists(ayuda)) {
        QFile::remove(hlp);
        QFile::copy(ayuda, hlp);
    }

    QDir().mkpath(carpetaIni());
    escribirOpcion(QStringLiteral("SysPath"), f.carpeta);
    escribirOpcion(QStringLiteral("SysVersion"), QStringLiteral("1.0"));
    escribirOpcion(QStringLiteral("DBPath"), f.carpeta);
    escribirOpcion(QStringLiteral("DBName"), kNombreBase);
    escribirOpcion(QStringLiteral("SysMenu"), QStringLiteral("integrador_qvl"));
    if (leerOpcion(QStringLiteral("SysUser")).isEmpty())
        escribirOpcion(QStringLiteral("SysUser"), Demo::kUsuarioAdmin);
    return f;
}

QList<QPair<QString, QString>> usuariosDeBase(const QString& archivoBase)
{
    QList<QPair<QString, QString>> usuarios;
    const QString conexion = QStringLiteral("usuarios_") + QUuid::createUuid().toString(QUuid::Id128);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), conexion);
        db.setDatabaseName(archivoBase);
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (QFileInfo::exists(archivoBase) && db.open()) {
            QSqlQuery q(db);
            if (q.exec(QStringLiteral("SELECT Usuario, Tipo FROM CLAVES ORDER BY Usuario"))) {
                while (q.next())
                    usuarios.append({q.value(0).toString(), q.value(1).toString()});
            }
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(conexion);
    return usuarios;
}
