// f931 importar [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json
// Types the declaration into a new form as `calcular` does and presses "&Grabar". Prints the
// output of `validar` plus "det": the rows written, as [casilla, i_valor] pairs in the order
// written. Exit 0 when the declaration was saved (state 0 or 9), 1 when the save refused it
// (its message is in "mensajes") or the store failed, 2 for bad input.
#include "basic/respondedor_guion.h"
#include "basic/texto.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "cli/validar.h"
#include "form931/guion.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSqlQuery>
#include <QTextStream>

#include <cstdio>

namespace {

const QString kUso = QStringLiteral(
    "uso: f931 importar [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json");

// The period the rows of the save were keyed by: the year of the declaration and the month of
// its balance date.
QString periodoGrabado(const Frm931& frm)
{
    const QString anio = Left(G().gsPeriodo, 4);
    const bool antes2013 = Val(anio) < 2013;
    switch (frm.CboBalance.ListIndex) {
    case 0: return anio + (antes2013 ? QStringLiteral("01") : QStringLiteral("05"));
    case 1: return anio + (antes2013 ? QStringLiteral("06") : QStringLiteral("08"));
    default: return anio;
    }
}

const QString kClave = QStringLiteral(" WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?");

int comandoImportar(const QStringList& argumentos)
{
    return ejecutarDeclaracion(argumentos, kUso, [](Frm931& frm, RespondedorGuion& respondedor, QJsonObject& salida) {
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
            QTextStream(stderr) << QString(respondedor.mostrados.last().texto).replace(QLatin1Char('\n'), QLatin1Char(' '))
                                << Qt::endl;
        return grabada ? 0 : 1;
    });
}

RegistroComando registro("importar", &comandoImportar);

}  // namespace
