// The annex of casillas 473 and 477: texts by casilla, the currency total of the two parts,
// the pictures of its boxes, and what accepting and cancelling leave in the declaration.
#include "comun/base_prueba.h"

#include "dialogs/anexo477.h"
#include "form931/frm931.h"
#include "shell/globales.h"

#include <gtest/gtest.h>

namespace {

struct CasoAnexo {
    const char* nombre;
    int casilla;
    const char* parte0;
    const char* parte1;
    const char* total;
};
void PrintTo(const CasoAnexo& c, std::ostream* os) { *os << c.nombre; }

class Anexo : public PruebaConBase, public ::testing::WithParamInterface<CasoAnexo> {
protected:
    Frm931 frm;
    void SetUp() override { G().gsPeriodo = QStringLiteral("202605"); }
};

TEST_P(Anexo, TotalYCasillasDeLaDeclaracion)
{
    const CasoAnexo& c = GetParam();
    const int p0 = c.casilla == 477 ? 432 : 650, p1 = c.casilla == 477 ? 433 : 651;
    frm.setTxt(p0, QStringLiteral("9"));
    frm.setTxt(c.casilla, QStringLiteral("9"));
    FrmAnexo477 a(frm);
    a.nCasilla = static_cast<qint16>(c.casilla);
    a.Form_Load();
    EXPECT_EQ(a.TxtMonto[0].Text, QStringLiteral("9"));
    EXPECT_EQ(a.TxtTotal.Text, QStringLiteral("9"));
    a.setMonto(0, QString::fromLatin1(c.parte0));
    a.setMonto(1, QString::fromLatin1(c.parte1));
    EXPECT_EQ(a.TxtTotal.Text, QString::fromLatin1(c.total));
    a.CmdGrabar_Click();
    EXPECT_TRUE(a.cerrado);
    // The texts go over as they stand.
    EXPECT_EQ(frm.txt(p0), QString::fromLatin1(c.parte0));
    EXPECT_EQ(frm.txt(p1), QString::fromLatin1(c.parte1));
    EXPECT_EQ(frm.txt(c.casilla), QString::fromLatin1(c.total));
}

INSTANTIATE_TEST_SUITE_P(Casos, Anexo, ::testing::Values(
    CasoAnexo{"dos_partes", 477, "1,500", "250", "1,750"},
    CasoAnexo{"una_parte", 473, "", "1234567", "1,234,567"},
    CasoAnexo{"ceros", 477, "0", "", "0"},
    CasoAnexo{"ambas_vacias_vacian_la_casilla", 473, "", "", ""},
    CasoAnexo{"texto_que_no_es_numero", 477, "12abc", "8", "20"}),
    [](const auto& i) { return std::string(i.param.nombre); });

TEST_F(Anexo, TextosPorCasilla)
{
    FrmAnexo477 a(frm);
    a.nCasilla = 477;
    a.Form_Load();
    EXPECT_EQ(a.Caption, QStringLiteral("Enajenación de valores y bienes del activo fijo"));
    EXPECT_EQ(a.lblCas.value(0), QStringLiteral("432"));
    EXPECT_EQ(a.lblCas.value(1), QStringLiteral("433"));
    EXPECT_EQ(a.lblCas.value(5), QStringLiteral("Ingresos Afectos"));
    EXPECT_EQ(a.lblCas.value(6), QStringLiteral("Ingresos Exonerados"));
    a.nCasilla = 473;
    a.Form_Load();
    EXPECT_EQ(a.Caption, QStringLiteral("Ingresos financieros gravados"));
    EXPECT_EQ(a.lblCas.value(0), QStringLiteral("650"));
    EXPECT_EQ(a.lblCas.value(6), QStringLiteral("Ingresos financieros por diferencia de tipo de cambio"));
}

// A letter never reaches a part (lengths, pictures and Enter: the annex's scenario).
TEST_F(Anexo, LasPartesSoloTomanCifras)
{
    FrmAnexo477 a(frm);
    a.Form_Load();
    a.TxtMonto_GotFocus(0);
    a.teclear(0, QStringLiteral("12a34"));
    EXPECT_EQ(a.TxtMonto[0].Text, QStringLiteral("1234"));
}

TEST_F(Anexo, CancelarNoTocaLaDeclaracion)
{
    frm.setTxt(477, QStringLiteral("100"));
    FrmAnexo477 a(frm);
    a.Form_Load();
    a.setMonto(0, QStringLiteral("5"));
    a.cmdCancelar_Click();
    EXPECT_TRUE(a.cerrado);
    EXPECT_FALSE(a.aceptado);
    EXPECT_EQ(frm.txt(477), QStringLiteral("100"));
    EXPECT_EQ(frm.txt(432), QString());
}

}  // namespace
