// The family helper object: RUC rule, padding, date bounds, filters, the hash of the order check digits.
#include "family/cutilqvl.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct CasoRuc {
    const char* ruc;
    bool valido;
};

std::ostream& operator<<(std::ostream& os, const CasoRuc& c) { return os << '"' << c.ruc << '"'; }

class Ruc : public ::testing::TestWithParam<CasoRuc> {};

TEST_P(Ruc, ReglaDelDigitoDeControl)
{
    EXPECT_EQ(cUtilQVL().ValidaRuc(QString::fromUtf8(GetParam().ruc)), GetParam().valido);
}

INSTANTIATE_TEST_SUITE_P(Prefijos, Ruc, ::testing::Values(
    CasoRuc{"10123456799", true}, CasoRuc{"15123456782", true}, CasoRuc{"16123456789", true},
    CasoRuc{"17123456785", true}, CasoRuc{"20123456786", true},
    // Right check digit, prefix not in use.
    CasoRuc{"11123456787", false}, CasoRuc{"30123456781", false}, CasoRuc{"00000000000", false}));

INSTANTIATE_TEST_SUITE_P(DigitoDeControl, Ruc, ::testing::Values(
    // 11 - (sum mod 11) = 10 gives 0; = 11 gives 1.
    CasoRuc{"10123456870", true}, CasoRuc{"10123456871", false}, CasoRuc{"10123456878", false},
    CasoRuc{"20123456930", true}, CasoRuc{"20123456931", false},
    CasoRuc{"10123456781", true}, CasoRuc{"10123456780", false}, CasoRuc{"10123456789", false},
    CasoRuc{"20123456841", true}, CasoRuc{"20123456840", false},
    CasoRuc{"20123456787", false}, CasoRuc{"20123456785", false}));

INSTANTIATE_TEST_SUITE_P(Forma, Ruc, ::testing::Values(
    CasoRuc{"2012345678", false}, CasoRuc{"201234567860", false}, CasoRuc{"", false},
    CasoRuc{" 20123456786", false}, CasoRuc{"20123456786 ", false}, CasoRuc{"2012345678A", false},
    CasoRuc{"20-23456786", false}, CasoRuc{"2O123456786", false}));

TEST(Relleno, RellenaPorLaDerechaYAjustaColumnaPorLaIzquierda)
{
    const cUtilQVL u;
    struct { const char* texto; int n; const char* rellena; const char* ajusta; } casos[] = {
        {"abc", 6, "abc   ", "   abc"},
        {"abc", 3, "abc", "abc"},
        {"abcdef", 4, "abcd", "abcdef"},   // Rellena cuts, AjustaColumna leaves it whole
        {"", 2, "  ", "  "},
        {"1,234", 16, "1,234           ", "           1,234"},
        {"(1,234)", 0, "", "(1,234)"},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(u.Rellena(QString::fromUtf8(c.texto), c.n).toStdString(), c.rellena) << c.texto << ' ' << c.n;
        EXPECT_EQ(u.AjustaColumna(QString::fromUtf8(c.texto), c.n).toStdString(), c.ajusta) << c.texto << ' ' << c.n;
    }
}

TEST(Fechas, FechaEnRangoConLimitesIncluidos)
{
    const cUtilQVL u;
    struct { const char* fecha; const char* desde; const char* hasta; bool dentro; } casos[] = {
        {"22/03/2013", "01/01/1850", "01/01/2500", true},
        {"01/01/1850", "01/01/1850", "01/01/2500", true},
        {"01/01/2500", "01/01/1850", "01/01/2500", true},
        {"31/12/1849", "01/01/1850", "01/01/2500", false},
        {"02/01/2500", "01/01/1850", "01/01/2500", false},
        {"29/02/2012", "01/01/1850", "01/01/2500", true},
        {"29/02/2013", "01/01/1850", "01/01/2500", false},
        {"31/04/2013", "01/01/1850", "01/01/2500", false},
        {"__/__/____", "01/01/1850", "01/01/2500", false},
        {"", "01/01/1850", "01/01/2500", false},
        {"2013-03-22", "01/01/1850", "01/01/2500", false},
        {"22/03/13", "01/01/1850", "01/01/2500", false},
        {"1/3/2013", "01/01/1850", "01/01/2500", true},
        {"22/03/2013", "01/01/2014", "01/01/2013", false},
    };
    for (const auto& c : casos)
        EXPECT_EQ(u.FechaEnRango(QString::fromUtf8(c.fecha), QString::fromUtf8(c.desde), QString::fromUtf8(c.hasta)),
                  c.dentro) << c.fecha << " in " << c.desde << ".." << c.hasta;
}

TEST(Caracteres, EsNumeroYEsTexto)
{
    const cUtilQVL u;
    struct { const char* texto; bool numero; bool texto_; } casos[] = {
        {"20123456786", true, true}, {"0", true, true}, {"", false, false}, {"12 3", false, false},
        {"12.3", false, false}, {"-12", false, true}, {"AB12345", false, true}, {"ab-12", false, true},
        {"AÑ123", false, false}, {"A/1", false, false}, {"١٢", false, false},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(u.EsNumero(QString::fromUtf8(c.texto), false, false), c.numero) << c.texto;
        EXPECT_EQ(u.EsTexto(QString::fromUtf8(c.texto), false, false, false), c.texto_) << c.texto;
    }
}

TEST(Teclas, FiltrosDeNumerosYNombres)
{
    const cUtilQVL u;
    struct { int tecla; int numero; int texto; } casos[] = {
        {'0', '0', '0'}, {'9', '9', '9'}, {8, 8, 8}, {13, 0, 0}, {27, 0, 0}, {9, 0, 0},
        {'a', 0, 'A'}, {'Z', 0, 'Z'}, {' ', 0, ' '}, {'-', 0, '-'}, {'.', 0, '.'}, {'&', 0, '&'},
        {'\'', 0, '\''}, {',', 0, 0}, {'/', 0, 0}, {'"', 0, 0}, {0x00F1 /* ñ */, 0, 0x00D1},
        {0x00E9 /* é */, 0, 0x00C9}, {0x00DC /* Ü */, 0, 0x00DC}, {0, 0, 0},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(u.TeclaNumero(c.tecla, false, false, false), c.numero) << c.tecla;
        EXPECT_EQ(u.TeclaTexto(c.tecla), c.texto) << c.tecla;
    }
}

// Fixed across machines and builds: order check digits stored years ago must still pass.
TEST(Hash, FijoEntreMaquinas)
{
    const cUtilQVL u;
    EXPECT_EQ(u.CodigoHash(QStringLiteral("")), QStringLiteral("14695981039346656037"));
    EXPECT_EQ(u.CodigoHash(QStringLiteral("a")), QStringLiteral("12638187200555641996"));
    EXPECT_NE(u.CodigoHash(QStringLiteral("123456")), u.CodigoHash(QStringLiteral("1234567")));
}

TEST(Archivos, ExisteArchivo)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString nombre = dir.filePath(QStringLiteral("00000001.PRN"));
    QFile f(nombre);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    const cUtilQVL u;
    EXPECT_TRUE(u.ExisteArchivo(nombre));
    EXPECT_TRUE(u.ExisteArchivo(dir.path() + QStringLiteral("\\00000001.PRN")));
    EXPECT_FALSE(u.ExisteArchivo(dir.filePath(QStringLiteral("00000002.PRN"))));
    EXPECT_FALSE(u.ExisteArchivo(dir.path()));   // a folder is no file
    EXPECT_FALSE(u.ExisteArchivo(QString()));
}

}
