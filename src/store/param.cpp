#include "store/param.h"

#include "basic/formato.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

namespace {

// Funcion of the row (numero, argumento) of PARAM, or a null text when there is none.
QString funcionDe(const QString& numero, const QString& argumento)
{
    QSqlQuery q = ejecutar(QStringLiteral("SELECT Funcion FROM PARAM WHERE Numero=? AND Argumento=?"),
                           {numero, argumento});
    if (!q.next())
        return QString();
    return q.value(0).toString();
}

QString descripcion(const QString& numero, const QString& argumento, int ancho)
{
    return Trim(Mid(funcionDe(numero, argumento), 1, ancho));
}

}  // namespace

QString DescDepartamento(const QString& codigo)
{
    return descripcion(QStringLiteral("030"), Left(codigo, 2), 25);
}

QString DescProvincia(const QString& codigo)
{
    return descripcion(QStringLiteral("031"), Left(codigo, 4), 30);
}

QString DescDistrito(const QString& codigo)
{
    return descripcion(QStringLiteral("001"), codigo, 30);
}

QStringList pLlenaTipoDoc(int posicion, bool enBlanco)
{
    QStringList items;
    if (enBlanco)
        items << Space(75);
    QSqlQuery q = ejecutar(
        QStringLiteral("SELECT trim(Par1.Argumento) AS Codigo, substr(Par1.Funcion,32,11) AS TipoDoc,"
                       " substr(Par1.Funcion,46,2) AS LenDoc, substr(Par1.Funcion,128,1) AS TipoDato,"
                       " substr(Par1.Funcion,130,1) AS TipoLongitud"
                       " FROM PARAM AS Par1"
                       " WHERE Par1.Numero='044' AND substr(Par1.Funcion,?,1)='1'"
                       " ORDER BY substr(Par1.Funcion,56,2), Par1.rowid"),
        {posicion});
    cUtilQVL& util = gobjUtil();
    while (q.next()) {
        items << Format(q.value(0).toString(), QStringLiteral("00")) + QStringLiteral("  -  ")
                     + util.Rellena(q.value(1).toString(), 60) + QLatin1Char(' ')
                     + Trim(q.value(2).toString()) + QLatin1Char(' ')
                     + Trim(q.value(3).toString()) + QLatin1Char(' ')
                     + Trim(q.value(4).toString());
    }
    return items;
}

QStringList pCargaZona()
{
    QStringList items;
    items << Space(15) + Space(100) + QStringLiteral("00");
    QSqlQuery q = ejecutar(QStringLiteral("SELECT argumento, funcion FROM PARAM WHERE numero='030' ORDER BY rowid"));
    while (q.next())
        items << Left(q.value(1).toString(), 15) + Space(100) + q.value(0).toString();
    return items;
}

QStringList pCargaContrib()
{
    QStringList items;
    const Sentencia s = sentenciaContribuyentes(G().gsFormulario);
    if (s.sql.isEmpty())
        return items;
    QSqlQuery q = ejecutar(s.sql, s.valores);
    while (q.next())
        items << Trim(Left(q.value(1).toString(), 11)) + Space(7) + q.value(3).toString();
    return items;
}

QString getUITTexto(const QString& periodo)
{
    QSqlQuery q = ejecutar(QStringLiteral("SELECT substr(ARGUMENTO,1,4) AS PER, trim(FUNCION) AS UIT"
                                          " FROM PARAM WHERE numero='404' AND substr(ARGUMENTO,1,4) <= ?"
                                          " ORDER BY substr(ARGUMENTO,1,4)"),
                           {periodo});
    QString valor;
    bool hay = false;
    while (q.next()) {
        valor = q.value(1).toString();
        hay = true;
    }
    if (!hay)
        return QString();
    // The value goes through the string-to-number conversion and back to text.
    return Trim(Str(Val(valor)));
}
