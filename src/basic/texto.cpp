#include "basic/texto.h"

#include "basic/decimal.h"
#include "basic/errores.h"

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

bool esDigito(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

bool esMarcaExponente(QChar c)
{
    const char l = c.toLatin1();
    return l == 'e' || l == 'E' || l == 'd' || l == 'D';
}

int digitoEnBase(QChar c, int base)
{
    int d = -1;
    if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
        d = c.unicode() - '0';
    else if (c.toUpper() >= QLatin1Char('A') && c.toUpper() <= QLatin1Char('F'))
        d = c.toUpper().unicode() - 'A' + 10;
    return d < base ? d : -1;
}

// Reads a hex or octal constant ("&H1F", "&O17", "&17") at s[pos]. Up to 16 bits it reads as a
// signed 16-bit number (&HFFFF is -1), up to 32 bits as a signed 32-bit number; more is an
// overflow. Returns false when s holds no such prefix there.
bool leerBase(const QString& s, int& pos, double& valor)
{
    if (pos + 1 >= s.size() || s[pos] != QLatin1Char('&'))
        return false;
    int base = 8;
    int i = pos + 1;
    const QChar letra = s[i].toUpper();
    if (letra == QLatin1Char('H')) {
        base = 16;
        ++i;
    } else if (letra == QLatin1Char('O')) {
        ++i;
    } else if (digitoEnBase(letra, 8) < 0) {
        return false;
    }
    quint64 acumulado = 0;
    bool desborde = false;
    int leidos = 0;
    for (; i < s.size(); ++i) {
        const int d = digitoEnBase(s[i], base);
        if (d < 0)
            break;
        acumulado = acumulado * quint64(base) + quint64(d);
        if (acumulado > 0xFFFFFFFFull)
            desborde = true;
        ++leidos;
    }
    if (desborde)
        throw errorDesbordamiento();
    pos = i;
    if (leidos == 0)
        valor = 0;
    else if (acumulado <= 0xFFFF)
        valor = double(qint16(quint16(acumulado)));
    else
        valor = double(qint32(quint32(acumulado)));
    return true;
}

double aDouble(const QByteArray& numero)
{
    const double v = std::strtod(numero.constData(), nullptr);
    if (!std::isfinite(v))
        throw errorDesbordamiento();
    return v;
}

}

double Val(const QString& texto)
{
    QString s;
    s.reserve(texto.size());
    for (QChar c : texto)
        if (c != QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\n'))
            s += c;

    int pos = 0;
    double base = 0;
    if (leerBase(s, pos, base))
        return base;

    QByteArray numero;
    if (pos < s.size() && (s[pos] == QLatin1Char('-') || s[pos] == QLatin1Char('+')))
        numero += char(s[pos++].toLatin1());
    bool hayDigitos = false;
    while (pos < s.size() && esDigito(s[pos])) {
        numero += char(s[pos++].toLatin1());
        hayDigitos = true;
    }
    if (pos < s.size() && s[pos] == QLatin1Char('.')) {
        numero += '.';
        ++pos;
        while (pos < s.size() && esDigito(s[pos])) {
            numero += char(s[pos++].toLatin1());
            hayDigitos = true;
        }
    }
    if (!hayDigitos)
        return 0;
    // An exponent counts only when at least one digit follows its letter (and sign).
    if (pos < s.size() && esMarcaExponente(s[pos])) {
        int i = pos + 1;
        QByteArray exponente("e");
        if (i < s.size() && (s[i] == QLatin1Char('-') || s[i] == QLatin1Char('+')))
            exponente += char(s[i++].toLatin1());
        if (i < s.size() && esDigito(s[i])) {
            while (i < s.size() && esDigito(s[i]))
                exponente += char(s[i++].toLatin1());
            numero += exponente;
        }
    }
    return aDouble(numero);
}

bool LeerNumerico(const QString& texto, double& valor)
{
    // Blanks around, and around what parentheses enclose, are allowed.
    auto esBlanco = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); };
    int ini = 0, fin = int(texto.size());
    while (ini < fin && esBlanco(texto[ini]))
        ++ini;
    while (fin > ini && esBlanco(texto[fin - 1]))
        --fin;
    if (ini == fin)
        return false;

    bool negativo = false;
    if (texto[ini] == QLatin1Char('(')) {
        if (texto[fin - 1] != QLatin1Char(')'))
            return false;
        negativo = true;
        ++ini;
        --fin;
        while (ini < fin && esBlanco(texto[ini]))
            ++ini;
        while (fin > ini && esBlanco(texto[fin - 1]))
            --fin;
    }
    const QString s = texto.mid(ini, fin - ini);
    if (s.isEmpty())
        return false;

    int pos = 0;
    double base = 0;
    if (leerBase(s, pos, base)) {
        if (pos != s.size() || s.size() < 3)
            return false;
        valor = negativo ? -base : base;
        return true;
    }

    QByteArray numero;
    if (s[pos] == QLatin1Char('-') || s[pos] == QLatin1Char('+')) {
        if (negativo)
            return false;   // "(-5)" is no number
        numero += char(s[pos++].toLatin1());
    }
    bool hayDigitos = false;
    // Thousands separators may stand between and after digits of the integer part.
    while (pos < s.size() && (esDigito(s[pos]) || (hayDigitos && s[pos] == QLatin1Char(',')))) {
        if (s[pos] != QLatin1Char(','))
            numero += char(s[pos].toLatin1());
        hayDigitos = true;
        ++pos;
    }
    if (pos < s.size() && s[pos] == QLatin1Char('.')) {
        numero += '.';
        ++pos;
        while (pos < s.size() && esDigito(s[pos])) {
            numero += char(s[pos++].toLatin1());
            hayDigitos = true;
        }
    }
    if (!hayDigitos)
        return false;
    if (pos < s.size() && esMarcaExponente(s[pos])) {
        ++pos;
        numero += 'e';
        if (pos < s.size() && (s[pos] == QLatin1Char('-') || s[pos] == QLatin1Char('+')))
            numero += char(s[pos++].toLatin1());
        if (pos >= s.size() || !esDigito(s[pos]))
            return false;
        while (pos < s.size() && esDigito(s[pos]))
            numero += char(s[pos++].toLatin1());
    }
    if (pos != s.size())
        return false;
    const double v = aDouble(numero);
    valor = negativo ? -v : v;
    return true;
}

bool IsNumeric(const QString& texto)
{
    double v = 0;
    try {
        return LeerNumerico(texto, v);
    } catch (const ErrorVB&) {
        return false;   // too large for a double: not a number the runtime can hold
    }
}

double CDbl(const QString& texto)
{
    double v = 0;
    if (!LeerNumerico(texto, v))
        throw errorTipos();
    return v;
}

QString Str(double valor)
{
    if (std::isnan(valor))
        return QStringLiteral(" NaN");
    if (std::isinf(valor))
        return valor < 0 ? QStringLiteral("-1.#INF") : QStringLiteral(" 1.#INF");
    const decimal::Numero n = decimal::desdeDouble(valor);
    if (n.esCero())
        return QStringLiteral(" 0");
    QString cuerpo;
    const int exponente = n.punto - 1;
    if (exponente >= 15 || exponente < -4) {
        // Scientific form: one digit, the rest after the point, "E", sign, two digits at least.
        cuerpo = n.digitos.left(1);
        if (n.digitos.size() > 1)
            cuerpo += QLatin1Char('.') + n.digitos.mid(1);
        cuerpo += QStringLiteral("E") + QLatin1Char(exponente < 0 ? '-' : '+')
                  + QStringLiteral("%1").arg(std::abs(exponente), 2, 10, QLatin1Char('0'));
    } else {
        // The runtime drops the zero before the point: " .5".
        cuerpo = decimal::parteEntera(n);
        const int decimales = int(n.digitos.size()) - n.punto;
        if (decimales > 0)
            cuerpo += QLatin1Char('.') + decimal::parteDecimal(n, decimales);
    }
    return (n.negativo ? QStringLiteral("-") : QStringLiteral(" ")) + cuerpo;
}

QString Str(qint64 valor)
{
    if (valor < 0)
        return QString::number(valor);
    return QLatin1Char(' ') + QString::number(valor);
}

QString Trim(const QString& texto) { return RTrim(LTrim(texto)); }

QString LTrim(const QString& texto)
{
    int i = 0;
    while (i < texto.size() && texto[i] == QLatin1Char(' '))
        ++i;
    return texto.mid(i);
}

QString RTrim(const QString& texto)
{
    int n = int(texto.size());
    while (n > 0 && texto[n - 1] == QLatin1Char(' '))
        --n;
    return texto.left(n);
}

QString Left(const QString& texto, int n)
{
    if (n < 0)
        throw errorArgumento();
    return texto.left(n);
}

QString Right(const QString& texto, int n)
{
    if (n < 0)
        throw errorArgumento();
    return texto.right(n);
}

QString Mid(const QString& texto, int inicio)
{
    if (inicio < 1)
        throw errorArgumento();
    if (inicio > texto.size())
        return QString();
    return texto.mid(inicio - 1);
}

QString Mid(const QString& texto, int inicio, int n)
{
    if (inicio < 1 || n < 0)
        throw errorArgumento();
    if (inicio > texto.size())
        return QString();
    return texto.mid(inicio - 1, n);
}

QString Space(int n)
{
    if (n < 0)
        throw errorArgumento();
    return QString(n, QLatin1Char(' '));
}

QString UCase(const QString& texto) { return texto.toUpper(); }
double Abs(double v) { return std::fabs(v); }
int Len(const QString& texto) { return int(texto.size()); }

namespace {

// Rounds to an integer with halves to the even number, then checks the range.
qint64 redondearAlPar(double v, qint64 minimo, qint64 maximo)
{
    if (!std::isfinite(v))
        throw errorDesbordamiento();
    const double r = std::nearbyint(v);   // default rounding mode: to nearest, ties to even
    if (r < double(minimo) || r > double(maximo))
        throw errorDesbordamiento();
    return qint64(r);
}

}

qint16 CInt(double v) { return qint16(redondearAlPar(v, -32768, 32767)); }
qint32 CLng(double v) { return qint32(redondearAlPar(v, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max())); }
