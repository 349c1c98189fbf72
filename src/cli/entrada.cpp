// The input of the declaration commands, read whole before anything is typed.
#include "cli/entrada.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QVariant>

namespace {

bool onceDigitos(const QString& ruc)
{
    if (ruc.size() != 11)
        return false;
    for (const QChar c : ruc)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return true;
}

// A casilla's value as the text to type. A JSON number is taken only when the parser holds it
// as an integer (no fraction, no exponent, within 64 bits): its digits are exactly the number
// written. Anything else would be a conversion, and a conversion alters what was given.
QString textoDe(const QString& codigo, const QJsonValue& v)
{
    if (v.isString())
        return v.toString();
    if (v.isDouble()) {
        const QVariant numero = v.toVariant();
        if (numero.typeId() == QMetaType::LongLong)
            return QString::number(numero.toLongLong());
        throw ErrorEntrada(QStringLiteral("la casilla %1 lleva un número que no es entero: %2")
                               .arg(codigo, QString::number(v.toDouble(), 'g', 17)));
    }
    throw ErrorEntrada(QStringLiteral("el valor de la casilla %1 debe ser texto o un número entero").arg(codigo));
}

}  // namespace

EntradaDeclaracion leerEntrada(const QByteArray& json)
{
    if (json.size() > kTopeEntrada)
        throw ErrorEntrada(QStringLiteral("la entrada pasa de %1 bytes").arg(kTopeEntrada));
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        throw ErrorEntrada(QStringLiteral("JSON mal formado en la posición %1: %2").arg(error.offset).arg(error.errorString()));
    if (!doc.isObject())
        throw ErrorEntrada(QStringLiteral("la entrada debe ser un objeto JSON"));
    const QJsonObject raiz = doc.object();
    for (auto it = raiz.begin(); it != raiz.end(); ++it)
        if (it.key() != QLatin1String("ruc") && it.key() != QLatin1String("casillas"))
            throw ErrorEntrada(QStringLiteral("clave desconocida en la entrada: %1").arg(citarEntrada(it.key())));

    EntradaDeclaracion e;
    const QJsonValue ruc = raiz.value(QStringLiteral("ruc"));
    if (ruc.isUndefined())
        throw ErrorEntrada(QStringLiteral("falta el RUC del contribuyente (\"ruc\")"));
    if (!ruc.isString())
        throw ErrorEntrada(QStringLiteral("el RUC (\"ruc\") debe ser texto"));
    if (!onceDigitos(ruc.toString()))
        throw ErrorEntrada(QStringLiteral("el RUC (\"ruc\") debe tener 11 dígitos: %1").arg(citarEntrada(ruc.toString())));
    e.ruc = ruc.toString();

    const QJsonValue casillas = raiz.value(QStringLiteral("casillas"));
    if (!casillas.isUndefined() && !casillas.isObject())
        throw ErrorEntrada(QStringLiteral("\"casillas\" debe ser un objeto"));
    const QJsonObject obj = casillas.toObject();
    for (auto it = obj.begin(); it != obj.end(); ++it) {
        const QString codigo = it.key();
        bool derivado = false;
        if (!codigoDeEntrada(codigo, &derivado))
            throw ErrorEntrada(QStringLiteral("casilla desconocida: %1").arg(citarEntrada(codigo)));
        const QString texto = textoDe(codigo, it.value());
        if (codigo == QLatin1String("002") && texto != e.ruc)
            throw ErrorEntrada(QStringLiteral("la casilla 002 (%1) no es el RUC de la entrada (%2)").arg(citarEntrada(texto), e.ruc));
        if (!derivado)
            e.casillas.insert(codigo, texto);
    }
    return e;
}
