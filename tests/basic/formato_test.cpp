// Format with the pictures of the declaration, its reports and its keys.
#include "basic/formato.h"

#include "basic/errores.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>

namespace {

struct CasoTexto {
    const char* texto;
    const char* picture;
    const char* esperado;
};

std::ostream& operator<<(std::ostream& os, const CasoTexto& c)
{
    return os << '"' << c.texto << "\" with \"" << c.picture << '"';
}

class FormatTexto : public ::testing::TestWithParam<CasoTexto> {};

TEST_P(FormatTexto, AplicaLaPicture)
{
    const CasoTexto& c = GetParam();
    EXPECT_EQ(Format(QString::fromUtf8(c.texto), QString::fromUtf8(c.picture)).toStdString(), c.esperado);
}

const char* const kVeinteCeros = "00000000000000000000";
const char* const kQuinceCeros = "000000000000000";

INSTANTIATE_TEST_SUITE_P(Importes, FormatTexto, ::testing::Values(
    CasoTexto{"1234", "###,###,###,##0", "1,234"},
    CasoTexto{"1234567890123", "###,###,###,##0", "1,234,567,890,123"},
    CasoTexto{"999", "###,###,###,##0", "999"},
    CasoTexto{"0", "###,###,###,##0", "0"},
    CasoTexto{"-5", "###,###,###,##0", "-5"},
    CasoTexto{"-1234567", "###,###,###,##0", "-1,234,567"},
    CasoTexto{"1234", "(###,###,###,##0)", "(1,234)"},
    CasoTexto{"0", "(###,###,###,##0)", "(0)"},
    CasoTexto{"-5", "(###,###,###,##0)", "-(5)"},
    CasoTexto{"-1234", "###,###,###,##0;(###,###,###,##0)", "(1,234)"},
    CasoTexto{"1234", "###,###,###,##0;(###,###,###,##0)", "1,234"},
    CasoTexto{"-1234", "##,###,###,##0;(##,###,###,##0)", "(1,234)"},
    CasoTexto{"(1,234)", "###########0", "-1234"},
    CasoTexto{"1,234", "###########0", "1234"},
    CasoTexto{" 12 ", "###########0", "12"},
    CasoTexto{"1234567", "##############0", "1234567"},
    CasoTexto{"12", "############", "12"},
    CasoTexto{"0", "############", ""},
    CasoTexto{"0", "########", ""},
    CasoTexto{"20130322", "########", "20130322"}));

INSTANTIATE_TEST_SUITE_P(NoNumericos, FormatTexto, ::testing::Values(
    CasoTexto{"", "###,###,###,##0", ""},
    CasoTexto{"abc", "###,###,###,##0", "abc"},
    CasoTexto{"12a", "###########0", "12a"},
    CasoTexto{"  ", "###########0", "  "},
    CasoTexto{"(12", "###########0", "(12"},
    CasoTexto{"1.2.3", "00", "1.2.3"}));

// Halves go away from zero, after the value is taken to 15 significant digits.
INSTANTIATE_TEST_SUITE_P(Redondeo, FormatTexto, ::testing::Values(
    CasoTexto{"2.5", "###########0", "3"},
    CasoTexto{"-2.5", "###########0", "-3"},
    CasoTexto{"0.5", "###,###,###,##0", "1"},
    CasoTexto{"-0.5", "###,###,###,##0;(###,###,###,##0)", "(1)"},
    CasoTexto{"2.4999", "###########0", "2"},
    CasoTexto{"0.33335", "###,###,###,##0.0000", "0.3334"},
    CasoTexto{"0.33334999", "###,###,###,##0.0000", "0.3333"},
    CasoTexto{"1.005", "###########0.00", "1.01"},
    CasoTexto{"999.995", "###,###,###,##0.00", "1,000.00"},
    CasoTexto{"999999.5", "###,###,###,##0", "1,000,000"},
    CasoTexto{"-0.4", "0", "-0"},
    CasoTexto{"-0.4", "###,###,###,##0;(###,###,###,##0)", "(0)"}));

INSTANTIATE_TEST_SUITE_P(Decimales, FormatTexto, ::testing::Values(
    CasoTexto{"1234.5", "###,###,###,##0.00", "1,234.50"},
    CasoTexto{"0.125", "###,###,###,##0.0000", "0.1250"},
    CasoTexto{"1234567", "###########0.0000", "1234567.0000"},
    CasoTexto{"12.3", "###########0.00", "12.30"},
    CasoTexto{"-1234.5678", "###,###,##0.0000;(###,###,##0.0000)", "(1,234.5678)"},
    CasoTexto{"-0.12345", "###,###,##0.00;(###,###,##0.00)", "(0.12)"},
    CasoTexto{"1.5", "###,###,##0.###0;(###,###,##0.###0)", "1.5000"},
    CasoTexto{"-0.00005", "###,###,##0.###0;(###,###,##0.###0)", "(0.0001)"},
    CasoTexto{"1.5", "##.000", "1.500"},
    CasoTexto{"0.5", "##.000", ".500"},
    CasoTexto{"0", "##.000", ".000"},
    CasoTexto{"5", "#.##", "5."},
    CasoTexto{"5.1", "#.##", "5.1"}));

INSTANTIATE_TEST_SUITE_P(Ceros, FormatTexto, ::testing::Values(
    CasoTexto{"5", "0#", "05"},
    CasoTexto{"12", "0#", "12"},
    CasoTexto{"123", "0#", "123"},
    CasoTexto{"7", "00", "07"},
    CasoTexto{"0", "00", "00"},
    CasoTexto{"7", "0000", "0007"},
    CasoTexto{"123", "000000", "000123"},
    CasoTexto{"1234567", "000000", "1234567"},
    CasoTexto{"42", "00000000", "00000042"},
    CasoTexto{"1234", kVeinteCeros, "00000000000000001234"},
    CasoTexto{"-1234", kVeinteCeros, "-00000000000000001234"},
    CasoTexto{"98765", kQuinceCeros, "000000000098765"},
    CasoTexto{"122013", "0#/####", "12/2013"},
    CasoTexto{"201305", "0#/####", "20/1305"},
    CasoTexto{"52013", "0#/####", "05/2013"},
    CasoTexto{"1232013", "0#/####", "123/2013"}));

INSTANTIATE_TEST_SUITE_P(Fechas, FormatTexto, ::testing::Values(
    CasoTexto{"22/03/2013", "yyyymmdd", "20130322"},
    CasoTexto{"2/3/2013", "dd/mm/yyyy", "02/03/2013"},
    CasoTexto{"2013-03-22", "dd/mm/yyyy", "22/03/2013"},
    CasoTexto{"2013-03-22 07:05:09", "hh:mm:ss", "07:05:09"},
    CasoTexto{"31/02/2013", "dd/mm/yyyy", "31/02/2013"},
    CasoTexto{"__/__/____", "dd/mm/yyyy", "__/__/____"},
    CasoTexto{"", "dd/mm/yyyy", ""}));

TEST(FormatNumero, ProductoQueQuedaBajoLaMitadRedondeaComoLaMitad)
{
    const double producto = 72274.99999999999;   // what 245000 x 0.295 gives in the runtime
    ASSERT_LT(producto, 72275.0);
    EXPECT_EQ(Format(producto, QStringLiteral("###,###,###,##0")), QStringLiteral("72,275"));
    EXPECT_EQ(Format(-producto, QStringLiteral("###,###,###,##0;(###,###,###,##0)")), QStringLiteral("(72,275)"));
    EXPECT_EQ(Format(producto, QStringLiteral("###########0")), QStringLiteral("72275"));
    const double centavos = 1.15 * 100;   // 114.99999999999999
    ASSERT_LT(centavos, 115.0);
    EXPECT_EQ(Format(centavos + 0.5, QStringLiteral("###########0")), QStringLiteral("116"));
    EXPECT_EQ(Format(2.675, QStringLiteral("###########0.00")), QStringLiteral("2.68"));   // 2.67499999... in binary
    EXPECT_EQ(Format(245000 * 0.295, QStringLiteral("###,###,###,##0")), QStringLiteral("72,275"));
}

TEST(FormatNumero, DoublesEnterosYSumasBinarias)
{
    EXPECT_EQ(Format(0.1 + 0.2, QStringLiteral("###,###,###,##0.0000")), QStringLiteral("0.3000"));
    EXPECT_EQ(Format(0.0, QStringLiteral("########")), QString());
    EXPECT_EQ(Format(1234567, QStringLiteral("###,###,###,##0")), QStringLiteral("1,234,567"));
    EXPECT_EQ(Format(qint64(-9), QStringLiteral("(###,###,###,##0)")), QStringLiteral("-(9)"));
    // Integers are exact, beyond what a double holds.
    EXPECT_EQ(Format(std::numeric_limits<qint64>::min(), QStringLiteral("###########0")),
              QStringLiteral("-9223372036854775808"));
    EXPECT_EQ(Format(qint64(123456789012345678), QStringLiteral("###,###,###,##0")),
              QStringLiteral("123,456,789,012,345,678"));
}

// What Format gives at the edges: the text, or the number of the error it throws (0: none).
struct Borde {
    double valor;
    const char* picture;
    std::string esperado;
    int error;
};

void compruebaBordes(const std::initializer_list<Borde>& casos)
{
    for (const Borde& c : casos) {
        QString obtenido;
        int error = 0;
        try {
            obtenido = Format(c.valor, QString::fromUtf8(c.picture));
        } catch (const ErrorVB& e) {
            error = e.numero;
        }
        EXPECT_EQ(error, c.error) << c.valor << " with " << c.picture;
        EXPECT_EQ(obtenido.toStdString(), c.esperado) << c.valor << " with " << c.picture;
    }
}

TEST(FormatNumero, NumerosEnormesSeEscribenYLosNoFinitosDesbordan)
{
    const double inf = std::numeric_limits<double>::infinity();
    compruebaBordes({
        {9.2e18, "###########0", "9200000000000000000", 0},
        {9.3e18, "###,###,###,##0", "9,300,000,000,000,000,000", 0},
        {-1e19, "###,###,###,##0;(###,###,###,##0)", "(10,000,000,000,000,000,000)", 0},
        {1.7976931348623157e308, "0.00", "17976931348623200" + std::string(292, '0') + ".00", 0},
        {5e-324, "###,###,###,##0.0000", "0.0000", 0},
        {inf, "###,###,###,##0", "", kErrDesbordamiento},
        {-inf, "###,###,###,##0;(###,###,###,##0)", "", kErrDesbordamiento},
        {std::nan(""), "###########0", "", kErrDesbordamiento},
    });
    EXPECT_THROW(Format(QStringLiteral("1e400"), QStringLiteral("###,###,###,##0")), ErrorVB);
}

TEST(FormatFecha, NumerosFueraDeLasFechasDesbordan)
{
    compruebaBordes({
        {41355.0, "dd/mm/yyyy", "22/03/2013", 0},
        {2958465.0, "dd/mm/yyyy", "31/12/9999", 0},
        {-657434.0, "dd/mm/yyyy", "01/01/0100", 0},
        {2958466.0, "dd/mm/yyyy", "", kErrDesbordamiento},
        {-657435.0, "yyyymmdd", "", kErrDesbordamiento},
        {9.2e18, "dd/mm/yyyy", "", kErrDesbordamiento},
        {-9.3e18, "yyyy", "", kErrDesbordamiento},
        {1e300, "hh:mm:ss", "", kErrDesbordamiento},
        {std::numeric_limits<double>::infinity(), "dd/mm/yyyy", "", kErrDesbordamiento},
        {std::nan(""), "dd/mm/yyyy", "", kErrDesbordamiento},
    });
    EXPECT_THROW(Format(std::numeric_limits<qint64>::max(), QStringLiteral("dd/mm/yyyy")), ErrorVB);
    // A text that reads as such a number is no date and stays as it is.
    EXPECT_EQ(Format(QStringLiteral("1e19"), QStringLiteral("dd/mm/yyyy")), QStringLiteral("1e19"));
    EXPECT_EQ(Format(QStringLiteral("41355"), QStringLiteral("dd/mm/yyyy")), QStringLiteral("22/03/2013"));
}

TEST(FormatFecha, PicturesDeFechaYHora)
{
    const QDate fecha(2013, 3, 22);
    const QDateTime momento(fecha, QTime(7, 5, 9));
    struct { const char* picture; const char* esperado; } casos[] = {
        {"dd/mm/yyyy", "22/03/2013"},
        {"yyyymmdd", "20130322"},
        {"yyyy", "2013"},
        {"hh:mm:ss", "07:05:09"},
        {"dd/mm/yyyy hh:mm:ss", "22/03/2013 07:05:09"},
    };
    for (const auto& c : casos)
        EXPECT_EQ(Format(momento, QString::fromUtf8(c.picture)).toStdString(), c.esperado) << c.picture;
    EXPECT_EQ(Format(fecha, QStringLiteral("dd/mm/yyyy")), QStringLiteral("22/03/2013"));
    EXPECT_EQ(Format(QDate(2009, 12, 1), QStringLiteral("yyyymmdd")), QStringLiteral("20091201"));
    EXPECT_EQ(Format(QDate(), QStringLiteral("dd/mm/yyyy")), QString());
}

}
