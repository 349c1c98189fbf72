#pragma once
// `f931` run as a script runs it: its arguments, standard input and environment in, its exit
// code, standard output and the lines of standard error out.
#include "rutas_prueba.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

struct Corrida {
    int codigo = -1;        // -1: the process did not end by itself
    QByteArray salida;
    QStringList errores;
    QJsonObject json() const { return QJsonDocument::fromJson(salida).object(); }
};

inline Corrida f931(const QStringList& argumentos, const QByteArray& entrada = {},
                    const QProcessEnvironment& entorno = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(entorno);
    p.start(QStringLiteral(F931_BIN_F931), argumentos);
    p.waitForStarted();
    p.write(entrada);
    p.closeWriteChannel();
    p.waitForFinished(120000);
    Corrida c;
    c.codigo = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    c.salida = p.readAllStandardOutput();
    c.errores = QString::fromUtf8(p.readAllStandardError()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return c;
}
