// f931 importar [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json... | -
// Types each declaration into a new form as `calcular` does and presses "&Grabar". For one
// ENTRADA.json it prints the output of `validar` plus "det": the rows written, as
// [casilla, i_valor] pairs in the order written; exit 0 when the declaration was saved (state
// 0 or 9), 1 when the save refused it (its message is in "mensajes" and on standard error) or
// the store failed, 2 for bad input, 3 when the database is unavailable.
// Several files, or "-" for JSON Lines on standard input (one declaration a line), make a
// batch: one process, one save (one transaction) per declaration, one JSON object a line on
// standard output for each, with "entrada" (the file, or "-:N" for line N), "codigo" (0, 1 or
// 2 as above) and "error" (the problem line, when there is one); each problem also on
// standard error after its entrada, and a summary line at the end. The exit code is 2 when
// any input was bad, else 1 when any was refused, else 0; the others are saved all the same.
#include "basic/errores.h"
#include "basic/periodo.h"
#include "basic/respondedor_guion.h"
#include "basic/texto.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "cli/entrada.h"
#include "cli/validar.h"
#include "family/cutilqvl.h"
#include "form931/guion.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSqlQuery>
#include <QTextStream>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace {

// The period the rows of the save were keyed by: the year of the declaration and the month of
// its balance date.
QString periodoGrabado(const Frm931& frm)
{
    const QString anio = Left(G().gsPeriodo, 4);
    return anio + mesDeBalance(frm.CboBalance.ListIndex, Val(anio) >= 2013);
}

const QString kClave = QStringLiteral(" WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?");

// Saves the typed declaration and reports it.
int grabar(Frm931& frm, RespondedorGuion& respondedor, QJsonObject& salida, QString& problema)
{
    frm.mbModificado = true;
    frm.CmdGrabar_Click();
    const bool grabada = !frm.mbModificado;

    // The extra passes run for the report, not for the user: their boxes are not shown.
    RespondedorGuion callado;
    const QString ruc = Trim(Left(frm.CmbRuc.Text(), 11));
    const QString periodo = periodoGrabado(frm);
    instalarRespondedor(&callado);
    const QJsonArray lineas = inconsistenciasDe(frm);
    int estado = 9;
    QJsonArray det;
    if (grabada) {
        estado = escalar(QStringLiteral("SELECT ESTADO FROM CAB") + kClave, {ruc, periodo, G().gsFormulario}).toInt();
        QSqlQuery filas = ejecutar(QStringLiteral("SELECT CASILLA, I_VALOR FROM DET") + kClave + QStringLiteral(" ORDER BY rowid"),
                                   {ruc, periodo, G().gsFormulario});
        while (filas.next())
            det.append(QJsonArray{filas.value(0).toString(), filas.value(1).toString()});
    } else {
        estado = estadoDe(frm);
    }
    instalarRespondedor(&respondedor);

    salida = salidaCalcular(frm, respondedor);
    salida.insert(QStringLiteral("inconsistencias"), lineas);
    salida.insert(QStringLiteral("estado"), estado);
    salida.insert(QStringLiteral("det"), det);
    if (!grabada && !respondedor.mostrados.isEmpty())
        problema = respondedor.mostrados.last().texto;
    return grabada ? 0 : 1;
}

// Standard input as JSON Lines, read as it comes: a line at a time, none longer than the bound.
class LineasEntrada {
public:
    // False at the end. A line over the bound ends the reading: `demasiado` tells it.
    bool siguiente(QByteArray& linea)
    {
        for (;;) {
            const qsizetype fin = pendiente_.indexOf('\n');
            if (fin >= 0) {
                linea = pendiente_.left(fin);
                pendiente_.remove(0, fin + 1);
                ++numero;
                demasiado = linea.size() > kTopeEntrada;
                return !demasiado;
            }
            if (pendiente_.size() > kTopeEntrada) {
                ++numero;
                demasiado = true;
                return false;
            }
            if (terminado_) {
                if (pendiente_.isEmpty())
                    return false;
                linea = pendiente_;
                pendiente_.clear();
                ++numero;
                return true;
            }
            char bloque[65536];
            const ssize_t leidos = ::read(STDIN_FILENO, bloque, sizeof bloque);
            if (leidos < 0 && errno == EINTR)
                continue;
            if (leidos <= 0)
                terminado_ = true;
            else
                pendiente_.append(bloque, leidos);
        }
    }
    int numero = 0;
    bool demasiado = false;

private:
    QByteArray pendiente_;
    bool terminado_ = false;
};

class Lote {
public:
    explicit Lote(bool conProgreso) : progreso_(conProgreso) {}

    // One declaration of the batch: its JSON line, its problem, the count.
    void importar(const QString& etiqueta, const std::function<QByteArray()>& leer)
    {
        QJsonObject salida;
        QString problema;
        int codigo = 0;
        olvidarNoDisponible();
        try {
            const EntradaDeclaracion entrada = leerEntrada(leer());
            codigo = declarar(entrada, &grabar, salida, problema);
            // A refusal that came from a database out of reach is no refusal of the rules.
            if (codigo != 0 && !baseNoDisponible().isEmpty()) {
                codigo = 3;
                problema = baseNoDisponible();
            }
        } catch (const ErrorEntrada& e) {
            codigo = 2;
            problema = e.texto;
            salida = QJsonObject();
        } catch (const ErrorVB& e) {
            codigo = e.numero == kErrBaseBloqueada ? 3 : 1;
            problema = codigo == 3 ? e.descripcion : QStringLiteral("error%1: %2").arg(Str(e.numero), e.descripcion);
        } catch (const std::exception& e) {
            codigo = 1;
            problema = QString::fromLocal8Bit(e.what());
        }
        // Nothing of one declaration reaches the next: the globals are as the batch began.
        G() = limpio_;
        anotar(etiqueta, codigo, problema, salida);
    }

    void anotar(const QString& etiqueta, int codigo, const QString& problema, QJsonObject salida = QJsonObject())
    {
        salida.insert(QStringLiteral("entrada"), etiqueta);
        salida.insert(QStringLiteral("codigo"), codigo);
        if (!problema.isEmpty())
            salida.insert(QStringLiteral("error"), problema);
        QByteArray texto = QJsonDocument(salida).toJson(QJsonDocument::Compact);
        texto += '\n';
        std::fwrite(texto.constData(), 1, static_cast<size_t>(texto.size()), stdout);
        std::fflush(stdout);
        (codigo == 0 ? grabadas_ : codigo == 1 ? rechazadas_ : codigo == 3 ? sinBase_ : malas_) += 1;
        if (!problema.isEmpty())
            linea(QStringLiteral("%1: %2").arg(etiqueta, QString(problema).replace(QLatin1Char('\n'), QLatin1Char(' '))), true);
        if (progreso_)
            linea(resumen(), false);
    }

    // The globals of a prepared environment, for the declarations to start from.
    void fijarLimpio() { limpio_ = G(); }

    int terminar()
    {
        linea(resumen(), true);
        return sinBase_ > 0 ? 3 : malas_ > 0 ? 2 : rechazadas_ > 0 ? 1 : 0;
    }

private:
    QString resumen() const
    {
        QString texto = QStringLiteral("importar: %1 declaraciones: %2 grabadas, %3 rechazadas, %4 con entrada mala")
                            .arg(grabadas_ + rechazadas_ + malas_ + sinBase_)
                            .arg(grabadas_)
                            .arg(rechazadas_)
                            .arg(malas_);
        if (sinBase_ > 0)
            texto += QStringLiteral(", %1 sin base de datos").arg(sinBase_);
        return texto;
    }

    // A line on standard error; on a terminal the progress line is rewritten in place.
    void linea(const QString& texto, bool final)
    {
        QByteArray b;
        if (progreso_)
            b = "\r\033[K";
        b += texto.toUtf8();
        if (final)
            b += '\n';
        std::fwrite(b.constData(), 1, static_cast<size_t>(b.size()), stderr);
        std::fflush(stderr);
    }

    bool progreso_;
    Globales limpio_;
    int grabadas_ = 0, rechazadas_ = 0, malas_ = 0, sinBase_ = 0;
};

int importarLote(const LineaComando& linea)
{
    QStringList fuentes;
    for (const QString& f : linea.posicionales())
        fuentes << (f == QLatin1String("-") ? f : QFileInfo(f).absoluteFilePath());
    prepararEntorno(linea.comunes());
    empezarLote();
    gobjUtil();
    Lote lote(isatty(STDERR_FILENO) == 1);
    lote.fijarLimpio();
    const QStringList dadas = linea.posicionales();
    for (int i = 0; i < fuentes.size(); ++i) {
        if (fuentes[i] != QLatin1String("-")) {
            lote.importar(dadas[i], [&] { return leerArchivo(fuentes[i]); });
            continue;
        }
        LineasEntrada entrada;
        QByteArray texto;
        while (entrada.siguiente(texto)) {
            if (texto.trimmed().isEmpty())
                continue;
            lote.importar(QStringLiteral("-:%1").arg(entrada.numero), [&] { return texto; });
        }
        if (entrada.demasiado)
            lote.anotar(QStringLiteral("-:%1").arg(entrada.numero), 2,
                        QStringLiteral("la línea pasa de %1 bytes: el resto de la entrada no se lee").arg(kTopeEntrada));
    }
    terminarLote();
    cerrarBase();
    return lote.terminar();
}

int comandoImportar(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        LineaComando linea(QStringLiteral("importar"), QStringLiteral("ENTRADA.json... | -"), 1, -1,
                           QStringLiteral(
                               "Teclea cada declaración como calcular y pulsa \"&Grabar\". Con un solo ENTRADA.json\n"
                               "imprime la salida de validar más det, las filas escritas. Varios archivos, o - para\n"
                               "JSON Lines por la entrada estándar (una declaración por línea), forman un lote:\n"
                               "cada declaración en su propia transacción, un objeto JSON por línea con entrada,\n"
                               "codigo y error, y una línea de resumen en la salida de errores. El lote sale con 2\n"
                               "si alguna entrada era mala, si no con 1 si alguna fue rechazada (las demás quedan\n"
                               "grabadas), con 3 si la base de datos no está disponible."),
                           true);
        if (!linea.leer(argumentos))
            return 0;
        const QStringList fuentes = linea.posicionales();
        if (fuentes.size() == 1 && fuentes.first() != QLatin1String("-"))
            return ejecutarDeclaracion(linea, &grabar);
        return importarLote(linea);
    });
}

RegistroComando registro("importar", &comandoImportar, "teclea y graba declaraciones, una o un lote");

}  // namespace
