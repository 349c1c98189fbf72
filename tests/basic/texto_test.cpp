// Val, Str, IsNumeric, the text words and the integer conversions.
#include "basic/errores.h"
#include "basic/texto.h"

#include <gtest/gtest.h>

#include <functional>

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

TEST(Val, LeeElNumeroMasLargoDelPrincipio)
{
    struct { const char* texto; double valor; } casos[] = {
        {"123", 123}, {"1 2 3", 123}, {"\t4\n2", 42}, {"  -3.5xyz", -3.5}, {"+7", 7},
        {"1e3", 1000}, {"1E-2", 0.01}, {"1d2", 100}, {"1e", 1}, {"1e+", 1}, {"2e3x", 2000},
        {".5", 0.5}, {"12.34.5", 12.34}, {"1,234", 1}, {"(5)", 0}, {"", 0}, {"abc", 0},
        {"-", 0}, {".", 0}, {"&H1F", 31}, {"&h1f", 31}, {"&HFFFF", -1}, {"&H10000", 65536},
        {"&HFFFFFFFF", -1}, {"&O17", 15}, {"&17", 15}, {"&HZ", 0}, {"S/. 5", 0},
        {"00042", 42}, {"4 2 . 5", 42.5},
    };
    for (const auto& c : casos)
        EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(c.texto)), c.valor) << '"' << c.texto << '"';
}

TEST(Val, NumerosFueraDeRangoDesbordan)
{
    EXPECT_EQ(errorDe([] { Val(QStringLiteral("1e400")); }), kErrDesbordamiento);
    EXPECT_EQ(errorDe([] { Val(QStringLiteral("&H100000000")); }), kErrDesbordamiento);
}

TEST(Str, BlancoDelanteSalvoNegativos)
{
    struct { double valor; const char* texto; } casos[] = {
        {5, " 5"}, {-5, "-5"}, {0, " 0"}, {0.5, " .5"}, {-0.5, "-.5"}, {1.5, " 1.5"},
        {1.0 / 3, " .333333333333333"}, {2.0 / 3, " .666666666666667"},
        {123456789012345.0, " 123456789012345"}, {1e15, " 1E+15"}, {1e16, " 1E+16"},
        {-1.5e20, "-1.5E+20"}, {0.0001, " .0001"}, {0.00001, " 1E-05"},
        {245000 * 0.295, " 72275"}, {0.1 + 0.2, " .3"}, {100, " 100"},
    };
    for (const auto& c : casos)
        EXPECT_EQ(Str(c.valor).toStdString(), c.texto) << c.valor;
    EXPECT_EQ(Str(3051), QStringLiteral(" 3051"));
    EXPECT_EQ(Str(qint64(-32769)), QStringLiteral("-32769"));
    EXPECT_EQ(Str(0), QStringLiteral(" 0"));
}

TEST(IsNumeric, AceptaSeparadoresParentesisYExponente)
{
    struct { const char* texto; bool numerico; double valor; } casos[] = {
        {"1,234", true, 1234}, {" 12 ", true, 12}, {"-5", true, -5}, {"(1,234)", true, -1234},
        {"( 7 )", true, -7}, {"1e3", true, 1000}, {"+.5", true, 0.5}, {"5.", true, 5},
        {"1,234,567.25", true, 1234567.25}, {"&H1F", true, 31}, {"0", true, 0},
        {"", false, 0}, {"   ", false, 0}, {"abc", false, 0}, {"1e", false, 0}, {".", false, 0},
        {"(5", false, 0}, {"5)", false, 0}, {"(-5)", false, 0}, {"1 2", false, 0}, {",5", false, 0},
        {"12a", false, 0}, {"--5", false, 0},
    };
    for (const auto& c : casos) {
        const QString texto = QString::fromUtf8(c.texto);
        EXPECT_EQ(IsNumeric(texto), c.numerico) << '"' << c.texto << '"';
        if (c.numerico)
            EXPECT_DOUBLE_EQ(CDbl(texto), c.valor) << '"' << c.texto << '"';
        else
            EXPECT_EQ(errorDe([&] { CDbl(texto); }), kErrTipos) << '"' << c.texto << '"';
    }
}

TEST(IsNumeric, UnNumeroQueNoCabeEnUnDoubleNoEsNumericoYDesborda)
{
    EXPECT_FALSE(IsNumeric(QStringLiteral("1e400")));
    EXPECT_EQ(errorDe([] { CDbl(QStringLiteral("1e400")); }), kErrDesbordamiento);
}

TEST(Texto, RecortesYTrozos)
{
    EXPECT_EQ(Trim(QStringLiteral("  a b  ")), QStringLiteral("a b"));
    EXPECT_EQ(Trim(QStringLiteral("\ta\t ")), QStringLiteral("\ta\t"));   // only blanks go
    EXPECT_EQ(LTrim(QStringLiteral("  a ")), QStringLiteral("a "));
    EXPECT_EQ(RTrim(QStringLiteral("  a ")), QStringLiteral("  a"));
    EXPECT_EQ(Left(QStringLiteral("abc"), 2), QStringLiteral("ab"));
    EXPECT_EQ(Left(QStringLiteral("abc"), 5), QStringLiteral("abc"));
    EXPECT_EQ(Left(QStringLiteral("abc"), 0), QString());
    EXPECT_EQ(Right(QStringLiteral("abc"), 2), QStringLiteral("bc"));
    EXPECT_EQ(Right(QStringLiteral("abc"), 9), QStringLiteral("abc"));
    EXPECT_EQ(Mid(QStringLiteral("abcdef"), 3, 2), QStringLiteral("cd"));
    EXPECT_EQ(Mid(QStringLiteral("abcdef"), 1, 1), QStringLiteral("a"));
    EXPECT_EQ(Mid(QStringLiteral("abcdef"), 5), QStringLiteral("ef"));
    EXPECT_EQ(Mid(QStringLiteral("abc"), 2, 10), QStringLiteral("bc"));
    EXPECT_EQ(Mid(QStringLiteral("abc"), 4), QString());
    EXPECT_EQ(Mid(QStringLiteral("abc"), 9, 2), QString());
    EXPECT_EQ(Space(3), QStringLiteral("   "));
    EXPECT_EQ(UCase(QStringLiteral("año ñu")), QStringLiteral("AÑO ÑU"));
    EXPECT_EQ(Len(QStringLiteral("ñandú")), 5);
    EXPECT_EQ(Abs(-2.5), 2.5);
}

TEST(Texto, ArgumentosInvalidosSonError5)
{
    const std::function<void()> malos[] = {
        [] { Left(QStringLiteral("abc"), -1); },
        [] { Right(QStringLiteral("abc"), -1); },
        [] { Mid(QStringLiteral("abc"), 0); },
        [] { Mid(QStringLiteral("abc"), 0, 1); },
        [] { Mid(QStringLiteral("abc"), 1, -1); },
        [] { Space(-1); },
    };
    for (const auto& f : malos)
        EXPECT_EQ(errorDe(f), kErrArgumento);
}

TEST(Conversiones, CIntYCLngRedondeanAlParYDesbordan)
{
    struct { double valor; int esperado; } casos[] = {
        {2.5, 2}, {3.5, 4}, {-2.5, -2}, {-3.5, -4}, {2.4999, 2}, {2.5001, 3}, {0.5, 0}, {1.5, 2},
        {32767.4, 32767}, {-32768.5, -32768}, {-32768, -32768},
    };
    for (const auto& c : casos)
        EXPECT_EQ(CInt(c.valor), c.esperado) << c.valor;
    for (double fuera : {32767.5, 32768.0, -32769.0, -32768.6, 1e300})
        EXPECT_EQ(errorDe([=] { CInt(fuera); }), kErrDesbordamiento) << fuera;
    EXPECT_EQ(CLng(2147483646.5), 2147483646);
    EXPECT_EQ(CLng(-2147483648.0), std::numeric_limits<qint32>::min());
    EXPECT_EQ(errorDe([] { CLng(2147483647.5); }), kErrDesbordamiento);
}

}
