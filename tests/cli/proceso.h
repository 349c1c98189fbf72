#pragma once
// `f931` run as a script runs it: its arguments, standard input and environment in, its exit
// code, standard output and the lines of standard error out; one run, or runs left going (two
// at once, or one to kill). And what the runs share: the common options, an input written as
// JSON to a file of the family folder.
#include "comun/base_prueba.h"
#include "form931/guion.h"
#include "rutas_prueba.h"
#include "shell/globales.h"

#include <QByteArray>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

#include <memory>

struct Corrida {
    int codigo = -1;        // -1: the process did not end by itself
    QByteArray salida;
    QStringList errores;
    QJsonObject json() const { return QJsonDocument::fromJson(salida).object(); }
    std::string error() const { return errores.join(QLatin1Char('\n')).toStdString(); }
};

inline std::unique_ptr<QProcess> lanzar(const QStringList& argumentos, const QByteArray& entrada = {},
                                        const QProcessEnvironment& entorno = QProcessEnvironment::systemEnvironment())
{
    auto p = std::make_unique<QProcess>();
    p->setProcessEnvironment(entorno);
    p->start(QStringLiteral(F931_BIN_F931), argumentos);
    p->waitForStarted();
    p->write(entrada);
    p->closeWriteChannel();
    return p;
}

inline Corrida terminar(QProcess& p)
{
    p.waitForFinished(120000);
    Corrida c;
    c.codigo = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    c.salida = p.readAllStandardOutput();
    c.errores = QString::fromUtf8(p.readAllStandardError()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return c;
}

inline Corrida f931(const QStringList& argumentos, const QByteArray& entrada = {},
                    const QProcessEnvironment& entorno = QProcessEnvironment::systemEnvironment())
{
    return terminar(*lanzar(argumentos, entrada, entorno));
}

// The database, today and the user, as every command that reads a declaration takes them.
inline QStringList comunes(const QString& base, const QString& usuario = DatosDemo::kAdmin,
                           const QString& hoy = QStringLiteral("2026-11-22"))
{
    return {QStringLiteral("--base"), base, QStringLiteral("--hoy"), hoy, QStringLiteral("--usuario"), usuario};
}

inline QByteArray json(const EntradaDeclaracion& e)
{
    QJsonObject casillas;
    for (auto it = e.casillas.cbegin(); it != e.casillas.cend(); ++it)
        casillas.insert(it.key(), it.value());
    return QJsonDocument(QJsonObject{{QStringLiteral("ruc"), e.ruc}, {QStringLiteral("casillas"), casillas}})
        .toJson(QJsonDocument::Compact);
}

// Writes a file of the family folder; gives its path.
inline QString escribirArchivo(const QByteArray& texto, const QString& nombre = QStringLiteral("entrada.json"))
{
    const QString archivo = G().gsPathSys + nombre;
    QFile f(archivo);
    f.open(QIODevice::WriteOnly | QIODevice::Truncate);
    f.write(texto);
    return archivo;
}
