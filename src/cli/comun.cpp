// Command line, preparation and failure handling shared by the commands.
#include "cli/comun.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/reloj.h"
#include "basic/respondedor_guion.h"
#include "basic/texto.h"
#include "cli/entrada.h"
#include "form931/guion.h"
#include "shell/arranque.h"
#include "shell/globales.h"
#include "shell/ini.h"
#include "store/base.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <cstdio>

const char* const kCodigosSalida =
    "Códigos de salida: 0 hecho, 1 rechazada por las reglas del formulario, 2 entrada mala, "
    "3 base de datos no disponible.";

namespace {

// One line for standard error, whatever the text holds.
QString unaLinea(QString texto)
{
    return texto.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
}

}  // namespace

// ---------------------------------------------------------------------------- command line

LineaComando::LineaComando(const QString& comando, const QString& argumentos, int minimo, int maximo,
                           const QString& descripcion, bool deDeclaracion)
    : comando_(comando), argumentos_(argumentos), descripcion_(descripcion), minimo_(minimo), maximo_(maximo),
      deDeclaracion_(deDeclaracion)
{
    if (deDeclaracion) {
        opcion(QStringLiteral("base"), QStringLiteral("ARCHIVO.db"),
               QStringLiteral("la base de datos (por omisión, la que nombra QL000.INI)"));
        opcion(QStringLiteral("hoy"), QStringLiteral("AAAA-MM-DD"),
               QStringLiteral("la fecha de hoy para las reglas (por omisión, F931_HOY o el reloj)"));
        opcion(QStringLiteral("usuario"), QStringLiteral("USUARIO"),
               QStringLiteral("el usuario (por omisión, SysUser de QL000.INI)"));
    }
}

void LineaComando::opcion(const QString& nombre, const QString& valor, const QString& descripcion)
{
    opciones_ << QCommandLineOption(nombre, descripcion, valor);
}

QString LineaComando::uso() const
{
    return QStringLiteral("uso: f931 %1 [opciones]%2").arg(comando_, argumentos_.isEmpty() ? QString() : QLatin1Char(' ') + argumentos_);
}

QString LineaComando::ayuda() const
{
    QStringList filas;
    QList<QPair<QString, QString>> columnas;
    for (const QCommandLineOption& o : opciones_)
        columnas << qMakePair(QStringLiteral("--%1 %2").arg(o.names().first(), o.valueName()), o.description());
    columnas << qMakePair(QStringLiteral("-h, --help"), QStringLiteral("muestra esta ayuda"));
    qsizetype ancho = 0;
    for (const auto& c : columnas)
        ancho = qMax(ancho, c.first.size());
    QString texto = uso() + QStringLiteral("\n\n") + descripcion_ + QStringLiteral("\n\nOpciones:\n");
    for (const auto& c : columnas)
        texto += QStringLiteral("  ") + c.first.leftJustified(ancho + 2) + c.second + QLatin1Char('\n');
    texto += QLatin1Char('\n') + QString::fromUtf8(kCodigosSalida) + QLatin1Char('\n');
    return texto;
}

bool LineaComando::leer(const QStringList& argumentos)
{
    const QCommandLineOption ayudaOpcion(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    parser_.addOption(ayudaOpcion);
    for (const QCommandLineOption& o : opciones_)
        parser_.addOption(o);
    if (!parser_.parse(QStringList{QStringLiteral("f931")} + argumentos)) {
        const QStringList desconocidas = parser_.unknownOptionNames();
        if (!desconocidas.isEmpty()) {
            const QString& n = desconocidas.first();
            throw ErrorEntrada(QStringLiteral("opción desconocida: %1%2 (f931 %3 --help da la ayuda)")
                                   .arg(n.size() == 1 ? QStringLiteral("-") : QStringLiteral("--"), n, comando_));
        }
        // The other failures: an option that takes a value given last without it, and a
        // value given to an option that takes none.
        for (const QCommandLineOption& o : opciones_)
            if (!argumentos.isEmpty() && argumentos.last() == QStringLiteral("--") + o.names().first())
                throw ErrorEntrada(QStringLiteral("falta el valor de --%1").arg(o.names().first()));
        throw ErrorEntrada(QStringLiteral("la opción --help no lleva valor"));
    }
    if (parser_.isSet(ayudaOpcion)) {
        QTextStream(stdout) << ayuda();
        return false;
    }
    const QStringList resto = parser_.positionalArguments();
    if (resto.size() < minimo_)
        throw ErrorEntrada(QStringLiteral("falta %1; %2").arg(argumentos_, uso()));
    if (maximo_ >= 0 && resto.size() > maximo_)
        throw ErrorEntrada(QStringLiteral("sobra el argumento %1; %2").arg(citarEntrada(resto[maximo_]), uso()));

    if (deDeclaracion_) {
        if (parser_.isSet(QStringLiteral("base"))) {
            const QString base = parser_.value(QStringLiteral("base"));
            if (base.isEmpty())
                throw ErrorEntrada(QStringLiteral("--base necesita un archivo"));
            comunes_.base = QFileInfo(base).absoluteFilePath();
        }
        comunes_.usuario = parser_.value(QStringLiteral("usuario")).trimmed();
        if (parser_.isSet(QStringLiteral("hoy"))) {
            const QString hoy = parser_.value(QStringLiteral("hoy"));
            comunes_.hoy = QDate::fromString(hoy, QStringLiteral("yyyy-MM-dd"));
            if (!comunes_.hoy.isValid())
                throw ErrorEntrada(QStringLiteral("fecha no válida en --hoy: %1 (AAAA-MM-DD)").arg(citarEntrada(hoy)));
        }
    }
    return true;
}

// ---------------------------------------------------------------------------- environment

void prepararEntorno(const OpcionesCli& o)
{
    if (o.hoy.isValid())
        fijarHoy(o.hoy);
    Globales& g = G();
    if (o.base.isEmpty() || o.usuario.isEmpty()) {
        // The settings file moves the current folder to the family's: put it back, so that the
        // paths given on the command line keep meaning what they meant.
        const QString carpeta = QDir::currentPath();
        const Globales antes = g;
        pLeerIni();
        QDir::setCurrent(carpeta);
        if (!o.base.isEmpty()) {
            const QString usuario = g.gsUsuario;
            g = antes;
            g.gsUsuario = usuario;
        }
    }
    if (!o.base.isEmpty()) {
        const QFileInfo info(o.base);
        const QString carpeta = info.absolutePath() + QLatin1Char('/');
        g.gsPathSys = carpeta;
        g.gsPathTemporal = carpeta + QStringLiteral("TMP/");
        g.gsPathTmp = carpeta + QStringLiteral("TMP");
        g.gsPathRpt = carpeta + QStringLiteral("RPT");
        g.gsPathBmp = carpeta + QStringLiteral("BMP/");
        g.gsBaseDatos = o.base;
        g.gsArchMens = carpeta + QStringLiteral("Mens.txt");
    }
    if (!o.usuario.isEmpty())
        g.gsUsuario = o.usuario;
    if (g.gsBaseDatos.isEmpty())
        throw BaseNoDisponible(
            QStringLiteral("base de datos no disponible: use --base o configure DBPath y DBName en %1").arg(archivoIni()));
    // A database that is missing, locked, read-only or not the family's: its own text, exit 3.
    try {
        abrirBase(g.gsBaseDatos);
    } catch (const ErrorVB& e) {
        if (e.numero == kErrBaseBloqueada)
            throw BaseNoDisponible(unaLinea(e.descripcion));
        throw;
    }
    if (!o.sinUsuario && Trim(g.gsUsuario).isEmpty())
        throw ErrorEntrada(QStringLiteral("no hay usuario: use --usuario o configure SysUser en %1").arg(archivoIni()));
    // Only beside a database that opened.
    if (!o.base.isEmpty()) {
        QDir(g.gsPathSys).mkpath(QStringLiteral("RPT"));
        QDir(g.gsPathSys).mkpath(QStringLiteral("TMP"));
    }
}

QByteArray leerArchivo(const QString& archivo)
{
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorEntrada(QStringLiteral("no se puede leer %1: %2").arg(archivo, f.errorString()));
    // Never more than the bound and one byte: a device that never ends is read no further.
    const QByteArray datos = f.read(kTopeEntrada + 1);
    if (datos.size() > kTopeEntrada)
        throw ErrorEntrada(QStringLiteral("%1 pasa de %2 bytes").arg(archivo).arg(kTopeEntrada));
    return datos;
}

int ejecutarComando(const std::function<int()>& cuerpo)
{
    QTextStream err(stderr);
    try {
        return cuerpo();
    } catch (const ErrorEntrada& e) {
        err << unaLinea(e.texto) << Qt::endl;
        return 2;
    } catch (const BaseNoDisponible& e) {
        err << unaLinea(e.texto) << Qt::endl;
        return 3;
    } catch (const ErrorVB& e) {
        if (e.numero == kErrBaseBloqueada) {
            err << unaLinea(e.descripcion) << Qt::endl;
            return 3;
        }
        err << QStringLiteral("error%1: %2").arg(Str(e.numero), unaLinea(e.descripcion)) << Qt::endl;
        return 1;
    } catch (const std::exception& e) {
        err << unaLinea(QString::fromLocal8Bit(e.what())) << Qt::endl;
        return 1;
    }
}

// ---------------------------------------------------------------------------- declarations

int declarar(const EntradaDeclaracion& entrada, const CuerpoDeclaracion& cuerpo, QJsonObject& salida, QString& problema)
{
    RespondedorGuion respondedor;
    instalarRespondedor(&respondedor);
    struct AlSalir {
        ~AlSalir() { instalarRespondedor(nullptr); }
    } alSalir;
    EntornoSinPantalla entorno;
    Frm931 frm(&entorno);
    reproducirEntrada(frm, entorno, entrada);
    return cuerpo(frm, respondedor, salida, problema);
}

int ejecutarDeclaracion(const LineaComando& linea, const CuerpoDeclaracion& cuerpo)
{
    return ejecutarComando([&] {
        const QByteArray json = leerArchivo(QFileInfo(linea.posicionales().first()).absoluteFilePath());
        const EntradaDeclaracion entrada = leerEntrada(json);
        prepararEntorno(linea.comunes());
        QJsonObject salida;
        QString problema;
        const int codigo = declarar(entrada, cuerpo, salida, problema);
        // A refusal that came from a database out of reach is no refusal of the rules.
        if (codigo != 0 && !baseNoDisponible().isEmpty())
            throw BaseNoDisponible(unaLinea(baseNoDisponible()));
        const QByteArray texto = QJsonDocument(salida).toJson(QJsonDocument::Indented);
        std::fwrite(texto.constData(), 1, static_cast<size_t>(texto.size()), stdout);
        std::fflush(stdout);
        if (!problema.isEmpty())
            QTextStream(stderr) << unaLinea(problema) << Qt::endl;
        cerrarBase();
        return codigo;
    });
}
