#include "basic/moneda.h"

#include "basic/decimal.h"
#include "basic/errores.h"

#include <cmath>
#include <limits>

// The double is first taken to 15 significant digits, the precision the runtime trusts in a
// double, and the tie is decided on those digits. So a quotient that should be an exact half
// at the fourth decimal but lands a hair off in binary still counts as a half and goes to the
// even digit: 0.00015 -> 0.0002, 0.00025 -> 0.0002, 0.00005 -> 0.0000. Deciding on the raw
// binary value would make such results depend on the last bit of a division.
Moneda Moneda::desdeDouble(double v)
{
    if (!std::isfinite(v))
        throw errorDesbordamiento();
    const decimal::Numero r = decimal::redondear(decimal::desdeDouble(v), 4, decimal::Redondeo::MitadAlPar);
    if (r.esCero())
        return Moneda();
    // Ten-thousandths as an integer: all digits, then zeros up to the fourth decimal.
    const int ceros = r.punto + 4 - int(r.digitos.size());
    if (int(r.digitos.size()) + ceros > 19)
        throw errorDesbordamiento();
    unsigned __int128 magnitud = 0;
    for (QChar c : r.digitos)
        magnitud = magnitud * 10 + unsigned(c.unicode() - '0');
    for (int i = 0; i < ceros; ++i)
        magnitud *= 10;
    const unsigned __int128 limite = r.negativo ? (unsigned __int128)std::numeric_limits<qint64>::max() + 1
                                                : (unsigned __int128)std::numeric_limits<qint64>::max();
    if (magnitud > limite)
        throw errorDesbordamiento();
    Moneda m;
    m.m_ = r.negativo ? qint64(0 - (quint64)magnitud) : qint64(magnitud);
    return m;
}

double Moneda::aDouble() const { return double(m_) / 10000.0; }

Moneda Moneda::operator+(const Moneda& o) const
{
    Moneda r;
    if (__builtin_add_overflow(m_, o.m_, &r.m_))
        throw errorDesbordamiento();
    return r;
}

Moneda Moneda::operator-(const Moneda& o) const
{
    Moneda r;
    if (__builtin_sub_overflow(m_, o.m_, &r.m_))
        throw errorDesbordamiento();
    return r;
}

Moneda Moneda::operator-() const
{
    if (m_ == std::numeric_limits<qint64>::min())
        throw errorDesbordamiento();
    return desdeDiezmilesimas(-m_);
}

Moneda Moneda::operator*(const Moneda& o) const { return desdeDouble(aDouble() * o.aDouble()); }

double Moneda::operator/(const Moneda& o) const
{
    if (o.m_ == 0)
        throw errorDivisionCero();
    return double(m_) / double(o.m_);
}
