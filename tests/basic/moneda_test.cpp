// The four-decimal currency: halves to even on conversion, exact sums, overflow as error 6.
#include "basic/errores.h"
#include "basic/moneda.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace {

int errorDe(const std::function<void()>& f)
{
    try {
        f();
    } catch (const ErrorVB& e) {
        return e.numero;
    }
    return 0;
}

TEST(Moneda, ConversionRedondeaLaMitadAlPar)
{
    struct { double valor; qint64 diezmilesimas; } casos[] = {
        {1.0 / 3, 3333}, {2.0 / 3, 6667}, {0.00005, 0}, {0.00015, 2}, {0.00025, 2}, {0.00035, 4},
        {-0.00015, -2}, {-0.00025, -2}, {0.000051, 1}, {0.00004999, 0}, {1.23456, 12346},
        {1.23455, 12346}, {1.23445, 12344}, {0.3, 3000}, {0.1 + 0.2, 3000}, {-7, -70000},
        {0, 0}, {922337203685477.0, 9223372036854770000},
    };
    for (const auto& c : casos)
        EXPECT_EQ(CCur(c.valor).diezmilesimas(), c.diezmilesimas) << c.valor;
}

TEST(Moneda, SumasExactasYProductosPorDouble)
{
    EXPECT_EQ(CCur(0.1) + CCur(0.2), CCur(0.3));
    Moneda total;
    for (int i = 0; i < 10; ++i)
        total += CCur(0.0001);
    EXPECT_EQ(total.diezmilesimas(), 10);
    EXPECT_EQ((CCur(5) - CCur(7.5)).diezmilesimas(), -25000);
    EXPECT_EQ((-CCur(1.25)).diezmilesimas(), -12500);
    // 1.5 x 0.0001 = 0.00015: a half, to the even digit.
    EXPECT_EQ((CCur(1.5) * CCur(0.0001)).diezmilesimas(), 2);
    EXPECT_DOUBLE_EQ(CCur(1) / CCur(3), 1.0 / 3);
    EXPECT_DOUBLE_EQ(CCur(12.3456).aDouble(), 12.3456);
    EXPECT_LT(CCur(-1), CCur(0.0001));
}

TEST(Moneda, DesbordamientoYDivisionPorCero)
{
    const Moneda maximo = Moneda::desdeDiezmilesimas(std::numeric_limits<qint64>::max());
    const Moneda minimo = Moneda::desdeDiezmilesimas(std::numeric_limits<qint64>::min());
    const Moneda unidad = Moneda::desdeDiezmilesimas(1);
    const std::function<void()> desbordan[] = {
        [] { CCur(1e15); },
        [] { CCur(-1e15); },
        [] { CCur(std::nan("")); },
        [] { CCur(HUGE_VAL); },
        [=] { (void)(maximo + unidad); },
        [=] { (void)(minimo - unidad); },
        [=] { (void)(-minimo); },
        [=] { (void)(maximo * CCur(2)); },
    };
    for (const auto& f : desbordan)
        EXPECT_EQ(errorDe(f), kErrDesbordamiento);
    EXPECT_EQ(errorDe([] { (void)(CCur(1) / Moneda()); }), kErrDivisionCero);
    EXPECT_EQ((maximo - unidad + unidad), maximo);
}

}
