// Options, preparation and failure handling shared by the declaration commands.
#include "cli/comun.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/reloj.h"
#include "basic/respondedor_guion.h"
#include "basic/texto.h"
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

OpcionesCli leerOpciones(const QStringList& argumentos, int posicionales, const QString& uso)
{
    OpcionesCli o;
    for (int i = 0; i < argumentos.size(); ++i) {
        const QString& a = argumentos[i];
        if (a.startsWith(QLatin1String("--"))) {
            QString nombre = a, valor;
            const int igual = a.indexOf(QLatin1Char('='));
            if (igual > 0) {
                nombre = a.left(igual);
                valor = a.mid(igual + 1);
            } else {
                if (i + 1 >= argumentos.size())
                    throw ErrorEntrada(QStringLiteral("falta el valor de %1; %2").arg(a, uso));
                valor = argumentos[++i];
            }
            if (nombre == QLatin1String("--base")) {
                if (valor.isEmpty())
                    throw ErrorEntrada(QStringLiteral("--base necesita un archivo"));
                o.base = QFileInfo(valor).absoluteFilePath();
            } else if (nombre == QLatin1String("--usuario")) {
                o.usuario = valor.trimmed();
            } else if (nombre == QLatin1String("--hoy")) {
                o.hoy = QDate::fromString(valor, QStringLiteral("yyyy-MM-dd"));
                if (!o.hoy.isValid())
                    throw ErrorEntrada(QStringLiteral("fecha no válida en --hoy: %1 (AAAA-MM-DD)").arg(valor));
            } else {
                throw ErrorEntrada(QStringLiteral("opción desconocida: %1; %2").arg(nombre, uso));
            }
        } else {
            o.posicionales << a;
        }
    }
    if (o.posicionales.size() != posicionales)
        throw ErrorEntrada(uso);
    return o;
}

void prepararEntorno(const OpcionesCli& o)
{
    if (o.hoy.isValid())
        fijarHoy(o.hoy);
    Globales& g = G();
    if (o.base.isEmpty() || o.usuario.isEmpty()) {
        // The settings file changes the current folder: every path given was made absolute.
        const Globales antes = g;
        pLeerIni();
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
        throw ErrorEntrada(QStringLiteral("no hay base de datos: use --base o configure DBPath y DBName en %1").arg(archivoIni()));
    // A database that is missing, locked, read-only or not the family's: ErrorVB 3051 (exit 3).
    abrirBase(g.gsBaseDatos);
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
    return f.readAll();
}

int ejecutarComando(const std::function<int()>& cuerpo)
{
    QTextStream err(stderr);
    try {
        return cuerpo();
    } catch (const ErrorEntrada& e) {
        err << QString(e.texto).replace(QLatin1Char('\n'), QLatin1Char(' ')) << Qt::endl;
        return 2;
    } catch (const ErrorVB& e) {
        if (e.numero == kErrBaseBloqueada) {
            err << QString(e.descripcion).replace(QLatin1Char('\n'), QLatin1Char(' ')) << Qt::endl;
            return 3;
        }
        err << QStringLiteral("error%1: %2").arg(Str(e.numero), QString(e.descripcion).replace(QLatin1Char('\n'), QLatin1Char(' ')))
            << Qt::endl;
        return 1;
    }
}

int ejecutarDeclaracion(const QStringList& argumentos, const QString& uso,
                        const std::function<int(Frm931&, RespondedorGuion&, QJsonObject&)>& cuerpo)
{
    return ejecutarComando([&] {
        const OpcionesCli o = leerOpciones(argumentos, 1, uso);
        const QByteArray json = leerArchivo(QFileInfo(o.posicionales.first()).absoluteFilePath());
        const EntradaDeclaracion entrada = leerEntrada(json);
        prepararEntorno(o);

        RespondedorGuion respondedor;
        instalarRespondedor(&respondedor);
        EntornoSinPantalla entorno;
        int codigo = 0;
        try {
            Frm931 frm(&entorno);
            reproducirEntrada(frm, entorno, entrada);
            QJsonObject salida;
            codigo = cuerpo(frm, respondedor, salida);
            // A refusal that came from a database out of reach is no refusal of the rules.
            if (codigo != 0 && !baseNoDisponible().isEmpty())
                throw ErrorVB(kErrBaseBloqueada, baseNoDisponible());
            const QByteArray texto = QJsonDocument(salida).toJson(QJsonDocument::Indented);
            std::fwrite(texto.constData(), 1, static_cast<size_t>(texto.size()), stdout);
            std::fflush(stdout);
        } catch (...) {
            instalarRespondedor(nullptr);
            throw;
        }
        instalarRespondedor(nullptr);
        cerrarBase();
        return codigo;
    });
}
