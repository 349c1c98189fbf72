#pragma once
// Numbers as decimal digit strings, so that rounding at a given decimal is exact: a double is
// first taken to 15 significant digits (what the runtime keeps of it), and from then on the
// digits are worked on as text.
#include <QString>
#include <QtGlobal>

namespace decimal {

// Value = 0.digitos x 10^punto, that is `punto` digits stand before the decimal point
// (punto may be negative or larger than the number of digits). Zero has no digits.
struct Numero {
    bool negativo = false;
    QString digitos;
    int punto = 0;
    bool esCero() const { return digitos.isEmpty(); }
};

enum class Redondeo { MitadLejosDeCero, MitadAlPar };

// A finite double, to 15 significant digits.
Numero desdeDouble(double v);
// An integer, exactly.
Numero desdeEntero(qint64 v);
// Rounds to `decimales` digits after the point.
Numero redondear(const Numero& n, int decimales, Redondeo modo);
// Digits before the point ("" for values below 1) and exactly `decimales` digits after it.
QString parteEntera(const Numero& n);
QString parteDecimal(const Numero& n, int decimales);

}
