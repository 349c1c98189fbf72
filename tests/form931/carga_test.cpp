// Opening the form: the lists and states that the year and the mode give it, and a stored
// identification put back into the option groups.
#include "formulario_nuevo.h"

#include "basic/texto.h"

namespace {

struct CasoApertura {
    const char* anio;
    QStringList balances;
    const char* paginaPago;
    bool marcoSistema;
    quint32 color473;
    const char* uit;
};
void PrintTo(const CasoApertura& c, std::ostream* os) { *os << c.anio; }

class Apertura : public FormularioNuevo, public ::testing::WithParamInterface<CasoApertura> {};

TEST_P(Apertura, ListasYEstadoPorAnio)
{
    const CasoApertura& c = GetParam();
    abrir(QString::fromLatin1(c.anio));
    EXPECT_EQ(f().CboBalance.items, c.balances);
    EXPECT_EQ(f().CboBalance.ListIndex, -1);
    EXPECT_EQ(f().SSTab2.captions[2], QString::fromUtf8(c.paginaPago));
    EXPECT_EQ(f().marcos.value(QStringLiteral("Frame3")).Visible, c.marcoSistema);
    EXPECT_EQ(f().caja(473).BackColor, c.color473);
    EXPECT_EQ(f().caja(477).BackColor, kAsistente);
    EXPECT_EQ(f().msUit, QString::fromLatin1(c.uit));
}

INSTANTIATE_TEST_SUITE_P(Anios, Apertura, ::testing::Values(
    CasoApertura{"2026", {QStringLiteral("30 DE ABRIL"), QStringLiteral("31 DE JULIO")}, " Modalidad de pago a cuenta", false, kAsistente, "5500"},
    CasoApertura{"2013", {QStringLiteral("30 DE ABRIL"), QStringLiteral("31 DE JULIO")}, " Modalidad de pago a cuenta", false, kAsistente, "3700"},
    CasoApertura{"2012", {QStringLiteral("31 DE ENERO"), QStringLiteral("30 DE JUNIO")}, "Sistema de pago", true, kBlanco, "3650"}));

TEST_F(FormularioNuevo, DeclaracionNuevaAbiertaYLista)
{
    abrir();
    EXPECT_FALSE(G().gbCargando);
    EXPECT_FALSE(f().mbCargandoCasillas);
    EXPECT_FALSE(f().mbModificado);
    EXPECT_TRUE(f().mbIndicesOk);
    EXPECT_EQ(f().mvCasillas.size(), 109);
    EXPECT_EQ(G().gsSistema, QStringLiteral("0"));
    EXPECT_EQ(f().miRegimen, 9);
    EXPECT_EQ(f().foco, QStringLiteral("CmbRuc"));
    EXPECT_EQ(f().CmbRuc.items.size(), 5) << "ADMIN sees every taxpayer of type 6";
    EXPECT_FALSE(f().TxtNumRuc.Visible);
    EXPECT_EQ(f().CmbZona.items.first(), Space(115) + QStringLiteral("00"));
    EXPECT_EQ(f().cboTipDocRepLegal.items.first(), Space(75));
    EXPECT_FALSE(f().SSTab4.TabEnabled[1]);
    EXPECT_TRUE(f().caja(610).Locked);
    EXPECT_FALSE(f().caja(113).Locked);
    EXPECT_FALSE(f().MkePeriodo.Enabled);
    EXPECT_TRUE(mensajes().isEmpty());
}

// The accountant's zone comes from the list; the representative's document type too, with
// the length of its number.
TEST_F(FormularioNuevo, ListasDeInformacionComplementaria)
{
    abrir();
    identificar(0, 0);
    f().elegir(f().CmbZona, 15);
    EXPECT_EQ(t(209), Right(f().CmbZona.items[15], 2));
    int dni = -1;
    for (int i = 0; i < f().cboTipDocRepLegal.items.size(); ++i)
        if (f().cboTipDocRepLegal.items[i].startsWith(QLatin1String("01")))
            dni = i;
    ASSERT_GE(dni, 0);
    escribir(226, QStringLiteral("X"));
    f().elegir(f().cboTipDocRepLegal, dni);
    EXPECT_EQ(t(225), QStringLiteral("01"));
    EXPECT_EQ(t(226), QString());
    EXPECT_EQ(f().caja(226).MaxLength, 8);
}

// A stored Amazonía declaration in zone 1: the answers come back with the frames they open;
// the stored tax is put back and then recomputed, since the regime has a rate.
TEST_F(FormularioNuevo, ModificarDevuelveLaIdentificacion)
{
    G().gsPeriodo = QStringLiteral("202605");
    G().gsPeriodoSel = QStringLiteral("202605");
    frm = std::make_unique<Frm931>(&entorno);
    f().miModo = 1;
    f().msRuc = DatosDemo::kRucAmazonia;
    f().msRazon = DatosDemo::kNombreAmazonia;
    f().msCas056 = QStringLiteral("2");
    f().msCas809 = QStringLiteral("1");
    f().msCas860 = QStringLiteral("1");
    f().msCas811 = QStringLiteral("0");
    f().msCas113 = QStringLiteral("1234");
    f().Form_Load();
    f().Form_Activate();
    EXPECT_FALSE(f().CmbRuc.Visible);
    EXPECT_TRUE(f().TxtNumRuc.Visible);
    EXPECT_EQ(f().TxtNumRuc.Text, DatosDemo::kRucAmazonia);
    EXPECT_EQ(f().rucDeclarante(), DatosDemo::kRucAmazonia);
    EXPECT_TRUE(f().optRenta.valor(2));
    EXPECT_EQ(f().miRegimen, 2);
    EXPECT_TRUE(f().marcos.value(QStringLiteral("Frame20")).Visible);
    EXPECT_FALSE(f().marcos.value(QStringLiteral("Frame19")).Enabled);
    EXPECT_TRUE(f().OptUbicAmazonia.valor(1));
    EXPECT_TRUE(f().OptDomFiscal.valor(1));
    EXPECT_TRUE(f().OptZona.valor(0));
    EXPECT_TRUE(f().CmdZona1.Enabled);
    EXPECT_EQ(t(113), QStringLiteral("0"));
    EXPECT_FALSE(f().OptInicio.b[0].Enabled);
    EXPECT_FALSE(f().CboBalance.Enabled);
    EXPECT_FALSE(f().mbModificado);
    EXPECT_FALSE(f().mbPrimeraVez);
    EXPECT_EQ(f().foco, QStringLiteral("TxtTelefono"));
    // Option handlers work again once the form stands.
    f().marcar(f().OptZona, 1);
    EXPECT_EQ(G().gsTasa, QStringLiteral("5"));
}

// Under a stability agreement the stored tax wins over the recomputed one.
TEST_F(FormularioNuevo, ModificarConvenioConservaElImpuesto)
{
    G().gsPeriodo = QStringLiteral("202605");
    G().gsPeriodoSel = QStringLiteral("202605");
    frm = std::make_unique<Frm931>(&entorno);
    f().miModo = 1;
    f().msRuc = DatosDemo::kRucAndina;
    f().msRazon = DatosDemo::kNombreAndina;
    f().msCas056 = QStringLiteral("6");
    f().msCas804 = QStringLiteral("3");
    f().msCas113 = QStringLiteral("1234");
    f().Form_Load();
    EXPECT_TRUE(f().optRenta.valor(4));
    EXPECT_TRUE(f().OptConvEstab.valor(3));
    EXPECT_TRUE(f().TxtNumOrdenF2305.Enabled);
    EXPECT_EQ(t(113), QStringLiteral("1234"));
    EXPECT_FALSE(f().caja(113).Locked);
}

}  // namespace
