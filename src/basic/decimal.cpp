#include "basic/decimal.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace decimal {

namespace {

// Drops zeros at both ends of the digit string, keeping the value.
void normalizar(Numero& n)
{
    int inicio = 0;
    while (inicio < n.digitos.size() && n.digitos[inicio] == QLatin1Char('0'))
        ++inicio;
    n.digitos.remove(0, inicio);
    n.punto -= inicio;
    while (!n.digitos.isEmpty() && n.digitos.back() == QLatin1Char('0'))
        n.digitos.chop(1);
    if (n.digitos.isEmpty())
        n.punto = 0;
}

}

Numero desdeDouble(double v)
{
    Numero n;
    if (v == 0 || !std::isfinite(v))
        return n;
    n.negativo = v < 0;
    // A whole number of up to 15 digits is its own 15 significant digits: the amounts of a
    // declaration, read without going through the text of the exponent form.
    const double magnitud = std::fabs(v);
    if (magnitud < 1e15 && magnitud == std::floor(magnitud)) {
        n.digitos = QString::number(static_cast<qint64>(magnitud));
        n.punto = int(n.digitos.size());
        normalizar(n);
        return n;
    }
    char texto[64];
    std::snprintf(texto, sizeof texto, "%.14e", magnitud);   // d.dddddddddddddde+XX
    QString mantisa;
    const char* p = texto;
    for (; *p && *p != 'e'; ++p)
        if (*p >= '0' && *p <= '9')
            mantisa += QLatin1Char(*p);
    const int exponente = *p == 'e' ? std::atoi(p + 1) : 0;
    n.digitos = mantisa;
    n.punto = exponente + 1;
    normalizar(n);
    return n;
}

Numero desdeEntero(qint64 v)
{
    Numero n;
    if (v == 0)
        return n;
    n.negativo = v < 0;
    // The magnitude of the smallest value does not fit in qint64: go through unsigned.
    const quint64 magnitud = v < 0 ? quint64(0) - quint64(v) : quint64(v);
    n.digitos = QString::number(magnitud);
    n.punto = int(n.digitos.size());
    normalizar(n);
    return n;
}

Numero redondear(const Numero& n, int decimales, Redondeo modo)
{
    Numero r = n;
    const int conservar = n.punto + decimales;   // digits kept
    if (conservar >= n.digitos.size())
        return r;
    if (conservar < 0) {
        // The first dropped digit is an implied zero: the value rounds to zero.
        r.digitos.clear();
        r.punto = 0;
        return r;
    }
    const QChar primero = n.digitos[conservar];
    bool subir = false;
    if (primero > QLatin1Char('5')) {
        subir = true;
    } else if (primero == QLatin1Char('5')) {
        bool restoCero = true;
        for (int i = conservar + 1; i < n.digitos.size(); ++i)
            if (n.digitos[i] != QLatin1Char('0'))
                restoCero = false;
        if (!restoCero || modo == Redondeo::MitadLejosDeCero) {
            subir = true;
        } else {
            // An exact half: to the even digit (the digit before the point of cut; none is 0).
            const int ultimo = conservar > 0 ? n.digitos[conservar - 1].digitValue() : 0;
            subir = (ultimo % 2) == 1;
        }
    }
    r.digitos.truncate(conservar);
    if (subir) {
        int i = int(r.digitos.size()) - 1;
        while (i >= 0 && r.digitos[i] == QLatin1Char('9')) {
            r.digitos[i] = QLatin1Char('0');
            --i;
        }
        if (i >= 0) {
            r.digitos[i] = QChar(r.digitos[i].unicode() + 1);
        } else {
            r.digitos.prepend(QLatin1Char('1'));
            ++r.punto;
        }
    }
    normalizar(r);
    if (r.esCero())
        r.negativo = n.negativo;   // the sign of what was rounded away is kept for the caller
    return r;
}

QString parteEntera(const Numero& n)
{
    if (n.esCero() || n.punto <= 0)
        return QString();
    QString s = n.digitos.left(n.punto);
    if (n.punto > s.size())
        s += QString(n.punto - s.size(), QLatin1Char('0'));
    return s;
}

QString parteDecimal(const Numero& n, int decimales)
{
    QString s;
    s.reserve(decimales);
    for (int i = 0; i < decimales; ++i) {
        const int k = n.punto + i;   // index in digitos of the i-th decimal
        s += (k >= 0 && k < n.digitos.size()) ? n.digitos[k] : QLatin1Char('0');
    }
    return s;
}

}
