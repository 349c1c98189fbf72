#include "family/cutilqvl.h"

#include "shell/globales.h"

#include <QDate>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

bool esDigitoAscii(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }
bool esLetraAscii(QChar c)
{
    return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || (c >= QLatin1Char('a') && c <= QLatin1Char('z'));
}

// "dd/mm/yyyy" (day and month of one or two digits); invalid when no such day exists.
QDate leerFecha(const QString& texto)
{
    static const QRegularExpression forma(QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{4})$"));
    const QRegularExpressionMatch m = forma.match(texto);
    if (!m.hasMatch())
        return QDate();
    return QDate(m.captured(3).toInt(), m.captured(2).toInt(), m.captured(1).toInt());
}

constexpr int kRetroceso = 8;

}

bool cUtilQVL::ExisteArchivo(const QString& archivo) const
{
    if (archivo.isEmpty())
        return false;
    if (QFileInfo(archivo).isFile())
        return true;
    // Paths built with the family's backslashes name the same file with slashes here.
    QString barras = archivo;
    barras.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return barras != archivo && QFileInfo(barras).isFile();
}

bool cUtilQVL::ValidaRuc(const QString& ruc) const
{
    if (ruc.size() != 11)
        return false;
    for (QChar c : ruc)
        if (!esDigitoAscii(c))
            return false;
    static const QStringList prefijos = {QStringLiteral("10"), QStringLiteral("15"), QStringLiteral("16"),
                                         QStringLiteral("17"), QStringLiteral("20")};
    if (!prefijos.contains(ruc.left(2)))
        return false;
    static const int pesos[10] = {5, 4, 3, 2, 7, 6, 5, 4, 3, 2};
    int suma = 0;
    for (int i = 0; i < 10; ++i)
        suma += ruc[i].digitValue() * pesos[i];
    int digito = 11 - suma % 11;
    if (digito == 10)
        digito = 0;
    else if (digito == 11)
        digito = 1;
    return ruc[10].digitValue() == digito;
}

// FNV-1a of 64 bits over the UTF-8 bytes, written in decimal with zeros on the left to 20
// digits: the same text always gives the same code, on any machine.
QString cUtilQVL::CodigoHash(const QString& texto) const
{
    quint64 h = 14695981039346656037ull;
    for (const char b : texto.toUtf8()) {
        h ^= quint64(quint8(b));
        h *= 1099511628211ull;
    }
    return QStringLiteral("%1").arg(h, 20, 10, QLatin1Char('0'));
}

QString cUtilQVL::Rellena(const QString& texto, int longitud) const
{
    if (longitud <= 0)
        return QString();
    return texto.leftJustified(longitud, QLatin1Char(' '), true);
}

QString cUtilQVL::AjustaColumna(const QString& texto, int ancho) const
{
    return texto.rightJustified(ancho, QLatin1Char(' '), false);
}

bool cUtilQVL::FechaEnRango(const QString& fecha, const QString& desde, const QString& hasta) const
{
    const QDate f = leerFecha(fecha), d = leerFecha(desde), h = leerFecha(hasta);
    if (!f.isValid() || !d.isValid() || !h.isValid())
        return false;
    return d <= f && f <= h;
}

bool cUtilQVL::EsNumero(const QString& texto, bool op1, bool op2) const
{
    bool punto = false, digito = false;
    for (int i = 0; i < texto.size(); ++i) {
        const QChar c = texto[i];
        if (esDigitoAscii(c)) {
            digito = true;
        } else if (op1 && c == QLatin1Char('.') && !punto) {
            punto = true;
        } else if (op2 && c == QLatin1Char('-') && i == 0) {
        } else {
            return false;
        }
    }
    return digito;
}

int cUtilQVL::TeclaNumero(int tecla, bool op1, bool op2, bool op3) const
{
    if ((tecla >= '0' && tecla <= '9') || tecla == kRetroceso)
        return tecla;
    if ((op1 && tecla == '.') || (op2 && tecla == '-') || (op3 && tecla == ' '))
        return tecla;
    return 0;
}

bool cUtilQVL::EsTexto(const QString& texto, bool op1, bool op2, bool op3) const
{
    if (texto.isEmpty())
        return false;
    for (QChar c : texto) {
        if (esDigitoAscii(c) || esLetraAscii(c) || c == QLatin1Char('-'))
            continue;
        if ((op1 && c == QLatin1Char(' ')) || (op2 && c == QLatin1Char('.')) || (op3 && c == QLatin1Char('/')))
            continue;
        return false;
    }
    return true;
}

QString cUtilQVL::digitoVerificador(const QString& control, const QString& orden) const
{
    const QString d1 = CodigoHash(control).mid(8, 1);
    const QString d2 = CodigoHash(control + orden + d1).right(1);
    return d1 + d2;
}

bool cUtilQVL::ValidaOrden(const QString& control, const QString& orden, const QString& verifica) const
{
    return digitoVerificador(control, orden) == verifica;
}

int cUtilQVL::TeclaTexto(int tecla) const
{
    if (tecla == kRetroceso)
        return tecla;
    if (tecla <= 0 || tecla > 0xFFFF)
        return 0;
    const QChar c{char16_t(tecla)};
    if (c.isLetter())
        return c.toUpper().unicode();
    if (esDigitoAscii(c) || c == QLatin1Char(' ') || c == QLatin1Char('-') || c == QLatin1Char('.')
        || c == QLatin1Char('&') || c == QLatin1Char('\''))
        return tecla;
    return 0;
}

cUtilQVL& gobjUtil()
{
    // Released (deleted) and cleared by the program's exit command; made again on next use.
    if (!G().gobjUtil)
        G().gobjUtil = new cUtilQVL;
    return *G().gobjUtil;
}
