// The catalogue lookups of the "&Consultas" menu.
#include "dialogs/consultas.h"

#include "basic/formato.h"
#include "basic/texto.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QSqlQuery>

#include <algorithm>

namespace {

QVector<FilaConsulta> leerFilas(const QString& sql, const QVariantList& valores)
{
    QVector<FilaConsulta> filas;
    QSqlQuery q = ejecutar(sql, valores);
    while (q.next())
        filas.append(FilaConsulta{q.value(0).toString(), q.value(1).toString()});
    return filas;
}

// Names sort as the catalogue's users read them: blind to case and to accents ("Bélgica"
// before "Belice", "República árabe" before "República Centroafricana").
QString claveOrden(const QString& texto)
{
    QString clave;
    for (const QChar c : texto.normalized(QString::NormalizationForm_D))
        if (c.category() != QChar::Mark_NonSpacing)
            clave.append(c);
    return clave.toCaseFolded();
}

}  // namespace

void FrmConsFac::Form_Load()
{
    // The catalogue keeps the period as "yyyymm"; the grid shows it month first. Rows come in
    // the order they were stored.
    G().gsSql = QStringLiteral("SELECT substr(Argumento,-2) || substr(Argumento,1,4) AS PERI, Funcion AS FACTOR"
                               " FROM PARAM WHERE Numero=? ORDER BY rowid");
    filas = leerFilas(G().gsSql, {QStringLiteral("975")});
    for (FilaConsulta& f : filas) {
        f.codigo = Format(f.codigo, QStringLiteral("0#/####"));
        f.descrip = Format(f.descrip, QStringLiteral("##.000"));
    }
    grdBancosEnabled = !filas.isEmpty();
    // The factors are published every year; until someone loads them the list is empty.
    lblVacio = filas.isEmpty() ? QStringLiteral("No hay factores de actualización cargados en la base de datos.")
                               : QString();
}

void FrmConsultas::Form_Load()
{
    filas.clear();
    switch (G().giOpcion) {
    case 1:
        Caption = QStringLiteral("Bancos");
        G().gsSql = QStringLiteral("SELECT substr(Argumento,1,2) AS codigo, substr(Funcion,1,36) AS descrip"
                                   " FROM PARAM WHERE Numero=? AND trim(Argumento)<>? ORDER BY rowid");
        filas = leerFilas(G().gsSql, {QStringLiteral("004"), QStringLiteral("00")});
        break;
    case 2:
        Caption = QStringLiteral("Paises");
        G().gsSql = QStringLiteral("SELECT substr(Argumento,1,4) AS codigo, substr(Funcion,1,36) AS descrip"
                                   " FROM PARAM WHERE Numero=? ORDER BY rowid");
        filas = leerFilas(G().gsSql, {QStringLiteral("976")});
        std::stable_sort(filas.begin(), filas.end(), [](const FilaConsulta& a, const FilaConsulta& b) {
            return claveOrden(a.descrip) < claveOrden(b.descrip);
        });
        break;
    case 3:
        Caption = QStringLiteral("UIT");
        columnas = {QStringLiteral("Periodo"), QStringLiteral("Valor")};
        G().gsSql = QStringLiteral("SELECT substr(Argumento,1,8) AS codigo, substr(Funcion,1,12) AS descrip"
                                   " FROM PARAM WHERE Numero=? ORDER BY 1 DESC");
        filas = leerFilas(G().gsSql, {QStringLiteral("404")});
        // The value is shown as the number it reads, so leading zeros and blanks go.
        for (FilaConsulta& f : filas)
            f.descrip = QString::number(Val(f.descrip), 'g', 15);
        break;
    default:
        break;
    }
    grdBancosEnabled = !filas.isEmpty();
}

const QVector<FilaConsulta>& FrmConsTasas::tasas()
{
    static const QVector<FilaConsulta> t = {
        {QStringLiteral("   General"), QStringLiteral("30 %")},
        {QStringLiteral("   Acogido a la ley de Promoción Agraria(F4888)"), QStringLiteral("15 %")},
        {QStringLiteral("   Régimen de amazonía - zona 1"), QStringLiteral("10 %")},
        {QStringLiteral("   Régimen de amazonía - zona 2"), QStringLiteral("5 %")},
        {QStringLiteral("   Exonerados"), QStringLiteral("0 %")},
        {QStringLiteral("   Con Convenio de Estabilidad"), QStringLiteral("variable")},
    };
    return t;
}
