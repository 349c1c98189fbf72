// f931: the declaration module driven without a screen.
#include "cli/comandos.h"
#include "cli/comun.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QMap>
#include <QString>
#include <QTextStream>

#include <cstdio>

namespace {

const char* const kVersion = "1.0";

struct Comando {
    FuncionComando funcion;
    QString resumen;
};

QMap<QString, Comando>& comandos()
{
    static QMap<QString, Comando> mapa;
    return mapa;
}

}  // namespace

RegistroComando::RegistroComando(const char* nombre, FuncionComando funcion, const char* resumen)
{
    comandos().insert(QString::fromUtf8(nombre), Comando{funcion, QString::fromUtf8(resumen)});
}

namespace {

// The commands print their result and one line naming a problem; Qt's own diagnostics
// (such as a missing runtime folder) must not add lines to standard error.
void silenciar(QtMsgType tipo, const QMessageLogContext&, const QString& mensaje)
{
    if (tipo == QtFatalMsg)
        fprintf(stderr, "%s\n", qPrintable(mensaje));
}

QString uso()
{
    return QStringLiteral("uso: f931 COMANDO [opciones]; comandos: %1; f931 --help da la ayuda")
        .arg(comandos().keys().join(QStringLiteral(", ")));
}

QString ayuda()
{
    QString texto = QStringLiteral(
        "uso: f931 COMANDO [opciones] [argumentos]\n"
        "     f931 COMANDO --help\n\n"
        "La declaración 0931 sin pantalla: los comandos teclean, validan, graban, exportan e\n"
        "imprimen declaraciones con las reglas del formulario.\n\nComandos:\n");
    for (auto it = comandos().cbegin(); it != comandos().cend(); ++it)
        texto += QStringLiteral("  %1%2\n").arg(it.key().leftJustified(12), it.value().resumen);
    texto += QStringLiteral("\nOpciones:\n"
                            "  -h, --help     muestra esta ayuda\n"
                            "  --version      muestra la versión\n\n");
    texto += QString::fromUtf8(kCodigosSalida) + QLatin1Char('\n');
    return texto;
}

}  // namespace

int main(int argc, char** argv)
{
    qInstallMessageHandler(silenciar);
    // Reports are drawn with fonts, which need a GUI application; no screen is ever used.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QTextStream err(stderr);

    // The options before the command are f931's own; everything from the command on is the
    // command's.
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    const QCommandLineOption ayudaOpcion(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption versionOpcion(QStringLiteral("version"));
    parser.addOption(ayudaOpcion);
    parser.addOption(versionOpcion);
    if (!parser.parse(app.arguments())) {
        const QStringList desconocidas = parser.unknownOptionNames();
        const QString n = desconocidas.isEmpty() ? QString() : desconocidas.first();
        if (n.isEmpty())   // a value given to --help or --version
            err << "las opciones --help y --version no llevan valor" << Qt::endl;
        else
            err << "opción desconocida: " << (n.size() == 1 ? "-" : "--") << n << " (f931 --help da la ayuda)" << Qt::endl;
        return 2;
    }
    if (parser.isSet(ayudaOpcion)) {
        QTextStream(stdout) << ayuda();
        return 0;
    }
    if (parser.isSet(versionOpcion)) {
        QTextStream(stdout) << "f931 " << kVersion << Qt::endl;
        return 0;
    }
    QStringList args = parser.positionalArguments();
    if (args.isEmpty()) {
        err << uso() << Qt::endl;
        return 2;
    }
    const QString nombre = args.takeFirst();
    if (!comandos().contains(nombre)) {
        err << "comando desconocido: " << nombre << "; " << uso() << Qt::endl;
        return 2;
    }
    return comandos().value(nombre).funcion(args);
}
