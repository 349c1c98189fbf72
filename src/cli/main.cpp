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

namespace {
// The commands print their result and one line naming a problem; Qt's own diagnostics
// (such as a missing runtime folder) must not add lines to standard error.
void silenciar(QtMsgType tipo, const QMessageLogContext&, const QString& mensaje)
{
    if (tipo == QtFatalMsg)
        fprintf(stderr, "%s\n", qPrintable(mensaje));
}
}

int main(int argc, char** argv)
{
    qInstallMessageHandler(silenciar);
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
