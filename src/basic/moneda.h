#pragma once
// Fixed-point currency of four decimals. Sums are exact at that scale; the conversion of a
// double rounds to four decimals with halves to the even digit. Overflow (beyond
// +/-922,337,203,685,477.5807) throws ErrorVB 6, never wraps.
#include <QtGlobal>

class Moneda {
public:
    Moneda() = default;
    static Moneda desdeDouble(double v);          // CCur
    static Moneda desdeDiezmilesimas(qint64 v) { Moneda m; m.m_ = v; return m; }
    double aDouble() const;
    qint64 diezmilesimas() const { return m_; }
    Moneda operator+(const Moneda& o) const;
    Moneda operator-(const Moneda& o) const;
    Moneda operator-() const;
    Moneda& operator+=(const Moneda& o) { *this = *this + o; return *this; }
    Moneda& operator-=(const Moneda& o) { *this = *this - o; return *this; }
    // Currency times/divided by currency: computed in double and converted back (CCur).
    Moneda operator*(const Moneda& o) const;
    double operator/(const Moneda& o) const;
    auto operator<=>(const Moneda& o) const = default;
    bool operator==(const Moneda& o) const = default;
private:
    qint64 m_ = 0;
};

inline Moneda CCur(double v) { return Moneda::desdeDouble(v); }
