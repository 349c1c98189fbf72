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

const QString kUso = QStringLiteral("faltan --ruc y --periodo; uso: f931 informe --ruc RUC --periodo AAAAMM [opciones]");

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
        LineaComando linea(QStringLiteral("informe"), QString(), 0, 0,
                           QStringLiteral("Construye el reporte de una declaración guardada (con --correl, de la\n"
                                          "enviada) en un archivo de spool nuevo de RPT/ e imprime su ruta."),
                           true);
        linea.opcion(QStringLiteral("ruc"), QStringLiteral("RUC"), QStringLiteral("el RUC del contribuyente"));
        linea.opcion(QStringLiteral("periodo"), QStringLiteral("AAAAMM"), QStringLiteral("el periodo de la declaración"));
        linea.opcion(QStringLiteral("correl"), QStringLiteral("C"), QStringLiteral("el correlativo de una declaración enviada"));
        linea.opcion(QStringLiteral("spool"), QStringLiteral("ARCHIVO.PRN"), QStringLiteral("copia el archivo de spool"));
        linea.opcion(QStringLiteral("pdf"), QStringLiteral("ARCHIVO.pdf"), QStringLiteral("lo dibuja en PDF como la vista previa"));
        linea.opcion(QStringLiteral("desde"), QStringLiteral("N"), QStringLiteral("primera página del PDF"));
        linea.opcion(QStringLiteral("hasta"), QStringLiteral("M"), QStringLiteral("última página del PDF"));
        if (!linea.leer(argumentos))
            return 0;
        QMap<QString, QString> propias;
        for (const char* n : {"correl", "spool", "pdf", "desde", "hasta"})
            if (linea.tiene(QString::fromLatin1(n)))
                propias[QStringLiteral("--") + QString::fromLatin1(n)] = linea.valor(QString::fromLatin1(n));
        // The files named are where the user stood, whatever the settings file does.
        for (const char* n : {"--spool", "--pdf"})
            if (propias.contains(QString::fromLatin1(n)))
                propias[QString::fromLatin1(n)] = QFileInfo(propias[QString::fromLatin1(n)]).absoluteFilePath();
        const QString ruc = linea.valor(QStringLiteral("ruc")).trimmed();
        const QString periodo = linea.valor(QStringLiteral("periodo")).trimmed();
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

        prepararEntorno(linea.comunes());
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

RegistroComando registro("informe", &comandoInforme, "construye el reporte de una declaración guardada, y su PDF");

} // namespace
