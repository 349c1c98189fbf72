// f931 informe --ruc RUC --periodo AAAAMM [--correl C] [--spool ARCHIVO.PRN] [--pdf ARCHIVO.pdf]
//              [--desde N --hasta M] [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO]
// Builds the report of a stored declaration (with --correl, of the sent one) into a new spool
// file of the report folder, registered like any report, and prints its path. --spool copies
// the file; --pdf draws it as the preview shows it, with the page range of --desde/--hasta
// checked as the range dialog checks it.
#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/respondedor_guion.h"
#include "basic/texto.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "form931/guion.h"
#include "reports/imprimir.h"
#include "reports/informe.h"
#include "reports/reproduccion.h"
#include "reports/spool.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSqlQuery>
#include <QTextStream>

namespace {

const QString kUso = QStringLiteral(
    "uso: f931 informe --ruc RUC --periodo AAAAMM [--correl C] [--spool ARCHIVO.PRN] [--pdf ARCHIVO.pdf] "
    "[--desde N --hasta M] [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO]");

// Loads the header of the declaration into the report globals, as the print selection does
// with the row picked. False when there is no such declaration.
bool elegirDeclaracion(const QString& ruc, const QString& periodo, const QString& correl)
{
    Globales& g = G();
    const bool enviada = !correl.isEmpty();
    QSqlQuery q;
    if (enviada)
        q = ejecutar(QStringLiteral("SELECT B.NOMBRE, A.NORDEN, A.CONTROL FROM HCAB AS A, CONT AS B"
                                    " WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6"
                                    " AND A.DOC_ID_D=? AND A.PERIODO=? AND A.FORMULARIO=? AND A.CORREL=?"),
                     {ruc, periodo, g.gsFormulario, correl});
    else
        q = ejecutar(QStringLiteral("SELECT B.NOMBRE FROM CAB AS A, CONT AS B"
                                    " WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6"
                                    " AND A.DOC_ID_D=? AND A.PERIODO=? AND A.FORMULARIO=?"),
                     {ruc, periodo, g.gsFormulario});
    if (!q.next())
        return false;
    g.gbImpEnviada = g.gbEnviada = enviada;
    g.gbRptEnviada = enviada ? -1 : 0;
    g.gsRucRpt = ruc;
    g.gsPeriodoRpt = periodo;
    g.gsNombreRpt = q.value(0).toString();
    g.gsCorrelRpt = correl;
    g.gsOrdenRpt = enviada ? q.value(1).toString() : QString();
    g.gsControlRpt = enviada ? q.value(2).toString() : QString();
    return true;
}

int comandoInforme(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        // This command's own options; the rest are the shared ones.
        QMap<QString, QString> propias;
        const QStringList nombres{"--ruc", "--periodo", "--correl", "--spool", "--pdf", "--desde", "--hasta"};
        QStringList comunes;
        for (int i = 0; i < argumentos.size(); ++i) {
            const QString& a = argumentos[i];
            const int igual = a.indexOf(QLatin1Char('='));
            const QString nombre = igual > 0 ? a.left(igual) : a;
            if (!nombres.contains(nombre)) {
                comunes << a;
                continue;
            }
            if (igual > 0) {
                propias[nombre] = a.mid(igual + 1);
            } else {
                if (i + 1 >= argumentos.size())
                    throw ErrorEntrada(QStringLiteral("falta el valor de %1; %2").arg(a, kUso));
                propias[nombre] = argumentos[++i];
            }
        }
        const OpcionesCli o = leerOpciones(comunes, 0, kUso);
        const QString ruc = propias.value(QStringLiteral("--ruc")).trimmed();
        const QString periodo = propias.value(QStringLiteral("--periodo")).trimmed();
        const QString correl = propias.value(QStringLiteral("--correl")).trimmed();
        if (ruc.isEmpty() || periodo.isEmpty())
            throw ErrorEntrada(kUso);
        bool ok = false;
        periodo.toInt(&ok);
        if (periodo.size() != 6 || !ok)
            throw ErrorEntrada(QStringLiteral("periodo no válido: %1 (AAAAMM)").arg(periodo));
        const bool conRango = propias.contains(QStringLiteral("--desde")) || propias.contains(QStringLiteral("--hasta"));
        if (conRango && !propias.contains(QStringLiteral("--pdf")))
            throw ErrorEntrada(QStringLiteral("--desde y --hasta eligen las páginas del PDF: falta --pdf"));
        // The range is checked as the range dialog checks it, before anything is written: the
        // report always has its five pages.
        RangoHojas rango;
        if (conRango) {
            const QString desde = propias.value(QStringLiteral("--desde"));
            const QString hasta = propias.value(QStringLiteral("--hasta"));
            const QString error = ModeloImpxPag::validaRango(desde, hasta, QString::number(kHojasDeclaracion));
            if (!error.isEmpty())
                throw ErrorEntrada(error);
            if (Val(desde) > 32767 || Val(hasta) > 32767)
                throw ErrorEntrada(QStringLiteral("página fuera de rango: %1 a %2").arg(desde, hasta));
            rango = RangoHojas{true, CInt(Val(desde)), CInt(Val(hasta))};
        }

        prepararEntorno(o);
        RespondedorGuion mensajes;
        instalarRespondedor(&mensajes);
        struct AlSalir {
            ~AlSalir()
            {
                instalarRespondedor(nullptr);
                cerrarBase();
            }
        } alSalir;

        if (!elegirDeclaracion(ruc, periodo, correl)) {
            if (correl.isEmpty())
                throw ErrorEntrada(QStringLiteral("no existe la declaración %1 del periodo %2").arg(ruc, periodo));
            throw ErrorEntrada(QStringLiteral("no existe la declaración enviada %1 del periodo %2 con correlativo %3")
                                   .arg(ruc, periodo, correl));
        }
        Globales& g = G();
        pConsulta();
        g.gnTipoRpt = 2;
        g.gsDestinoRpt = QStringLiteral("ARCHIVO");
        const QString nombre = pRegistraSpool(kCodigoReporte, 6, g.gsRucRpt);
        g.gsRutaRpt = rutaSpool(nombre);
        if (!pImprimeReporte(QString())) {
            QTextStream(stderr) << mensajes.textos().join(QLatin1Char(' ')) << Qt::endl;
            return 1;
        }

        if (propias.contains(QStringLiteral("--spool"))) {
            const QString destino = propias.value(QStringLiteral("--spool"));
            QFile::remove(destino);
            if (!QFile::copy(g.gsRutaRpt, destino))
                throw ErrorEntrada(QStringLiteral("no se puede escribir %1").arg(destino));
        }
        if (propias.contains(QStringLiteral("--pdf"))) {
            const DocumentoSpool doc = reproduceSpool(leeLineasSpool(g.gsRutaRpt), false, rango);
            if (doc.error != 0)
                throw ErrorVB(doc.error, doc.descripcionError);
            const QString pdf = propias.value(QStringLiteral("--pdf"));
            if (!guardaPdf(pdf, doc))
                throw ErrorEntrada(QStringLiteral("no se puede escribir %1").arg(pdf));
        }
        QTextStream(stdout) << g.gsRutaRpt << Qt::endl;
        return 0;
    });
}

RegistroComando registro("informe", &comandoInforme);

} // namespace
