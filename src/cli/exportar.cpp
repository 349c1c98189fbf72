// f931 exportar --ruc RUC --periodo AAAAMM [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO]
// Prints a stored working declaration in the input format of `calcular`, `validar` and
// `importar`: what a user types, as a user types it. Amounts are bare digits (the parentheses
// of a subtractive box are the form's display, the sign is the box's), answers are their
// stored codes, the agrarian date (200) "yyyymmdd", the notification date (613) as stored,
// and 473 and 477 are given by their parts (650 and 651, 432 and 433). What the form derives
// (the computed boxes, 002, 007, 801, 609, 662, 721) is left out. Importing the output into a
// database without the declaration, with a date of the same year, writes the same rows;
// the loss rows of earlier years are not part of the format.
#include "basic/errores.h"
#include "basic/texto.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "form931/casillas.h"
#include "form931/guion.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QSqlQuery>

#include <cstdio>

namespace {

// Bare digits of a stored amount ("-1234" -> "1234").
QString digitos(const QString& valor)
{
    return QString::number(static_cast<qint64>(Abs(Val(valor))));
}

QJsonObject exportar(const QString& ruc, const QString& periodo)
{
    const Globales& g = G();
    QString sql = QStringLiteral(
        "SELECT A.DOC_ID_D FROM CAB AS A, CONT AS B WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6"
        " AND A.DOC_ID_D=? AND A.PERIODO=? AND A.FORMULARIO=?");
    QVariantList valores{ruc, periodo, g.gsFormulario};
    if (TipoUsuario() != QLatin1String("0")) {
        sql += QStringLiteral(" AND B.USUARIO=?");
        valores << g.gsUsuario;
    }
    if (!escalar(sql, valores).isValid())
        throw ErrorEntrada(QStringLiteral("no hay una declaración del RUC %1 y el periodo %2 a la vista del usuario %3")
                               .arg(ruc, periodo, Trim(g.gsUsuario)));

    QMap<int, QString> guardado;
    QSqlQuery filas = ejecutar(QStringLiteral("SELECT CASILLA, I_VALOR FROM DET"
                                              " WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?"),
                               {ruc, periodo, g.gsFormulario});
    while (filas.next())
        guardado.insert(static_cast<int>(Val(filas.value(0).toString())), Trim(filas.value(1).toString()));

    QJsonObject casillas;
    auto poner = [&](int n, const QString& valor) { casillas.insert(codigoCasilla(n), valor); };
    const bool convenio = guardado.value(56) == QLatin1String("6");
    for (auto it = guardado.cbegin(); it != guardado.cend(); ++it) {
        const int n = it.key();
        const QString& v = it.value();
        if (v.isEmpty())
            continue;
        const DefCasilla* d = defCasilla(n);
        switch (d ? d->exportacion : Exportacion::No) {
        case Exportacion::No:
            break;
        case Exportacion::Tal:
            poner(n, v);
            break;
        case Exportacion::Indice:
            if (Val(v) >= 0)
                poner(n, v);
            break;
        case Exportacion::Digitos:
            poner(n, digitos(v));
            break;
        case Exportacion::Partes: {
            // Given by its parts; a total stored without them stands for its first part.
            const QVector<int> partes = partesDelAnexo(n);
            if (!guardado.contains(partes.value(0)) && !guardado.contains(partes.value(1)))
                poner(partes.value(0), digitos(v));
            break;
        }
        case Exportacion::SiConvenio:
            if (convenio)
                poner(n, digitos(v));
            break;
        }
    }
    QJsonObject salida;
    salida.insert(QStringLiteral("ruc"), ruc);
    salida.insert(QStringLiteral("casillas"), casillas);
    return salida;
}

int comandoExportar(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        LineaComando linea(QStringLiteral("exportar"), QString(), 0, 0,
                           QStringLiteral("Imprime una declaración guardada en el formato de entrada de calcular,\n"
                                          "validar e importar."),
                           true);
        linea.opcion(QStringLiteral("ruc"), QStringLiteral("RUC"), QStringLiteral("el RUC del contribuyente"));
        linea.opcion(QStringLiteral("periodo"), QStringLiteral("AAAAMM"), QStringLiteral("el periodo de la declaración"));
        if (!linea.leer(argumentos))
            return 0;
        const QString ruc = linea.valor(QStringLiteral("ruc")).trimmed();
        const QString periodo = linea.valor(QStringLiteral("periodo")).trimmed();
        if (ruc.isEmpty() || periodo.isEmpty())
            throw ErrorEntrada(QStringLiteral("faltan --ruc y --periodo; uso: f931 exportar --ruc RUC --periodo AAAAMM [opciones]"));
        bool ok = false;
        periodo.toInt(&ok);
        if (periodo.size() != 6 || !ok)
            throw ErrorEntrada(QStringLiteral("periodo no válido: %1 (AAAAMM)").arg(periodo));
        prepararEntorno(linea.comunes());
        const QByteArray texto = QJsonDocument(exportar(ruc, periodo)).toJson(QJsonDocument::Indented);
        std::fwrite(texto.constData(), 1, static_cast<size_t>(texto.size()), stdout);
        std::fflush(stdout);
        cerrarBase();
        return 0;
    });
}

RegistroComando registro("exportar", &comandoExportar, "imprime una declaración guardada en el formato de entrada");

}  // namespace
