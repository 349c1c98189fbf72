// f931: the declaration module driven without a screen.
#include "cli/comandos.h"

#include <QGuiApplication>
#include <QMap>
#include <QString>
#include <QTextStream>

#include <cstdio>

namespace {
QMap<QString, FuncionComando>& comandos()
{
    static QMap<QString, FuncionComando> mapa;
    return mapa;
}
}

RegistroComando::RegistroComando(const char* nombre, FuncionComando funcion)
{
    comandos().insert(QString::fromUtf8(nombre), funcion);
}

int main(int argc, char** argv)
{
    // Reports are drawn with fonts, which need a GUI application; no screen is ever used.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    QTextStream err(stderr);
    if (args.isEmpty() || !comandos().contains(args.first())) {
        err << "uso: f931 COMANDO [opciones]; comandos: " << comandos().keys().join(QStringLiteral(", ")) << Qt::endl;
        return 2;
    }
    const QString nombre = args.takeFirst();
    return comandos().value(nombre)(args);
}
