// The tax of c113 by regime, year and type of person; the new coefficient of c610; the MYPE
// projection of c250 to c253.
#include "formulario_nuevo.h"

#include "basic/texto.h"

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace {

using Acciones = std::function<void(Frm931&)>;

// ------------------------------------------------------------------ tax and rate

struct CasoImpuesto {
    const char* nombre;
    const char* anio;
    int regimen;
    int persona;              // -1: none chosen
    Acciones respuestas;      // the regime's own questions
    const char* renta;        // typed in c461; it reaches c110 unchanged
    const char* tasa;         // gsTasa afterwards ("previa" stands for the value it had)
    const char* c113;
    bool calculada;           // c113 locked
};
void PrintTo(const CasoImpuesto& c, std::ostream* os) { *os << c.nombre; }

class Impuesto : public FormularioNuevo, public ::testing::WithParamInterface<CasoImpuesto> {};

TEST_P(Impuesto, TasaYCasilla113)
{
    const CasoImpuesto& c = GetParam();
    abrir(QString::fromLatin1(c.anio));
    G().gsTasa = QStringLiteral("previa");
    identificar(c.regimen, c.persona, -1);
    if (c.respuestas)
        c.respuestas(f());
    escribir(461, QString::fromLatin1(c.renta));
    ASSERT_EQ(f().N(110), Val(QString::fromLatin1(c.renta)));
    EXPECT_EQ(G().gsTasa, QString::fromLatin1(c.tasa));
    EXPECT_EQ(t(113), QString::fromLatin1(c.c113));
    // A path that applies no rate leaves the box as it was: open, in its design colour.
    EXPECT_EQ(f().caja(113).Locked, c.calculada);
    EXPECT_EQ(f().caja(113).BackColor, kGris);
}

Acciones amazonia(int ubicada, int ley, int domicilio, int zona)
{
    return [=](Frm931& f) {
        if (ubicada >= 0) f.marcar(f.OptUbicAmazonia, ubicada);
        if (ley >= 0) f.marcar(f.OptLeyAmazonia, ley);
        if (domicilio >= 0) f.marcar(f.OptDomFiscal, domicilio);
        if (zona >= 0) f.marcar(f.OptZona, zona);
    };
}
Acciones frontera(int actividad, int domicilio)
{
    return [=](Frm931& f) {
        f.marcar(f.OptActividad, actividad);
        if (domicilio >= 0) f.marcar(f.OptFrontera, domicilio);
    };
}

const CasoImpuesto kImpuestos[] = {
    {"general_2026_juridica", "2026", 0, 0, {}, "1000", "29.5", "295", true},
    {"general_2026_juridica_medio_redondea_arriba", "2026", 0, 0, {}, "100", "29.5", "30", true},
    {"general_2017_natural", "2017", 0, 1, {}, "1000", "30", "300", true},
    {"general_2016", "2016", 0, 0, {}, "1000", "28", "280", true},
    {"general_2015_natural", "2015", 0, 1, {}, "1000", "28", "280", true},
    {"general_2014", "2014", 0, 0, {}, "1000", "30", "300", true},
    {"general_2004", "2004", 0, 0, {}, "1000", "30", "300", true},
    {"general_2003_juridica", "2003", 0, 0, {}, "1000", "27", "270", true},
    {"general_2003_natural", "2003", 0, 1, {}, "1000", "30", "300", true},
    {"general_sin_tipo_de_persona", "2026", 0, -1, {}, "1000", "previa", "0", false},
    {"agrario", "2026", 1, -1, {}, "1000", "15", "150", true},
    {"amazonia_ni_ley_ni_ubicada", "2026", 2, -1, amazonia(0, 0, -1, -1), "1000", "30", "300", true},
    {"amazonia_ubicada_zona_1", "2026", 2, -1, amazonia(1, -1, 1, 0), "1000", "10", "100", true},
    {"amazonia_ley_zona_2", "2026", 2, -1, amazonia(-1, 1, 1, 1), "1000", "5", "50", true},
    {"amazonia_domicilio_fuera", "2026", 2, -1, amazonia(1, -1, 0, -1), "1000", "30", "300", true},
    {"amazonia_sin_domicilio", "2026", 2, -1, amazonia(1, -1, -1, -1), "1000", "previa", "0", false},
    {"frontera_sin_industria", "2026", 3, -1, frontera(0, -1), "1000", "30", "300", true},
    {"frontera_industria_en_zona", "2026", 3, -1, frontera(1, 1), "1000", "10", "100", true},
    {"frontera_industria_fuera", "2026", 3, -1, frontera(1, 0), "1000", "30", "300", true},
    {"mype_en_el_limite_del_tramo", "2017", 5, 0, {}, "60750", "previa", "6,075", true},
    {"mype_sobre_el_tramo", "2017", 5, 1, {}, "70750", "previa", "9,025", true},
};

INSTANTIATE_TEST_SUITE_P(Regimenes, Impuesto, ::testing::ValuesIn(kImpuestos),
                         [](const auto& i) { return std::string(i.param.nombre); });

// Under a stability agreement the tax is typed, and the typed figure stays.
TEST_F(FormularioNuevo, ConvenioDejaEscribirElImpuesto)
{
    abrir();
    G().gsTasa = QStringLiteral("previa");
    identificar(4, -1, 1);
    escribir(461, QStringLiteral("1000"));
    EXPECT_FALSE(f().caja(113).Locked);
    escribir(113, QStringLiteral("77"));
    escribir(464, QStringLiteral("10"));
    EXPECT_EQ(t(113), QStringLiteral("77"));
    EXPECT_EQ(G().gsTasa, QStringLiteral("previa"));
}

// ------------------------------------------------------------------ coefficient

enum class Pago { Inicio, UtilidadUtilidad, PerdidaUtilidad, SoloPrecedente };

struct CasoCoeficiente {
    const char* nombre;
    const char* anio;
    Pago pago;
    std::vector<std::pair<int, const char*>> tecleado;   // typed in order, c113 last
    std::map<int, std::pair<const char*, const char*>> anexo;
    const char* c610;
};
void PrintTo(const CasoCoeficiente& c, std::ostream* os) { *os << c.nombre; }

class Coeficiente : public FormularioNuevo, public ::testing::WithParamInterface<CasoCoeficiente> {};

TEST_P(Coeficiente, Casilla610)
{
    const CasoCoeficiente& c = GetParam();
    abrir(QString::fromLatin1(c.anio));
    identificar(4, -1, -1);
    f().marcar(f().OptConvEstab, 1);
    if (c.pago != Pago::Inicio) {
        f().marcar(f().OptInicio, 0);
        f().marcar(f().OptPrecedente, 0);
        if (c.pago != Pago::SoloPrecedente)
            f().marcar(f().OptAnterior, c.pago == Pago::UtilidadUtilidad ? 0 : 1);
    }
    for (const auto& [n, partes] : c.anexo)
        entorno.partesAnexo[n] = {QString::fromLatin1(partes.first), QString::fromLatin1(partes.second)};
    for (const auto& [n, texto] : c.tecleado)
        escribir(n, QString::fromLatin1(texto));
    EXPECT_EQ(t(610), QString::fromLatin1(c.c610));
}

const CasoCoeficiente kCoeficientes[] = {
    {"sistema_A_un_tercio", "2012", Pago::UtilidadUtilidad, {{461, "3"}, {113, "1"}}, {}, "0.3333"},
    {"sistema_B_porcentaje", "2012", Pago::PerdidaUtilidad, {{461, "3"}, {113, "1"}}, {}, "33.33"},
    {"inicio_de_actividades_es_B", "2012", Pago::Inicio, {{461, "3"}, {113, "2"}}, {}, "66.67"},
    {"sin_sistema_queda_vacio", "2012", Pago::SoloPrecedente, {{461, "3"}, {113, "1"}}, {}, ""},
    {"sin_ingresos_2012_B", "2012", Pago::PerdidaUtilidad, {{113, "5"}}, {}, "0.00"},
    {"sin_ingresos_2012_A", "2012", Pago::UtilidadUtilidad, {{113, "5"}}, {}, "0.0000"},
    {"sin_ingresos_2014", "2014", Pago::PerdidaUtilidad, {{113, "5"}}, {}, "0.0000"},
    {"desde_2013_sin_sistema", "2026", Pago::SoloPrecedente, {{461, "3"}, {113, "1"}}, {}, "0.3333"},
    {"empate_al_par_hacia_abajo", "2026", Pago::Inicio, {{461, "20000"}, {113, "5"}}, {}, "0.0002"},
    {"empate_al_par_hacia_arriba", "2026", Pago::Inicio, {{461, "20000"}, {113, "3"}}, {}, "0.0002"},
    {"empate_en_cero", "2026", Pago::Inicio, {{461, "20000"}, {113, "1"}}, {}, "0.0000"},
    {"descuentos_restan", "2026", Pago::Inicio, {{461, "1500"}, {462, "500"}, {113, "100"}}, {}, "0.1000"},
    {"rei_cuenta_desde_2013", "2026", Pago::Inicio, {{461, "1000"}, {481, "1000"}, {113, "100"}}, {}, "0.0500"},
    {"rei_no_cuenta_antes", "2012", Pago::UtilidadUtilidad, {{461, "1000"}, {481, "1000"}, {113, "100"}}, {}, "0.1000"},
    {"financieros_2013_sin_diferencia_de_cambio", "2026", Pago::Inicio, {{473, "1"}, {113, "100"}},
     {{473, {"1000", "400"}}}, "0.1000"},
    {"financieros_2012_enteros", "2012", Pago::UtilidadUtilidad, {{473, "1"}, {113, "100"}},
     {{473, {"1000", "400"}}}, "0.0714"},
    {"enajenacion_sin_exonerados", "2026", Pago::Inicio, {{477, "1"}, {113, "60"}},
     {{477, {"600", "400"}}}, "0.1000"},
    {"otros_ingresos_gravados", "2012", Pago::UtilidadUtilidad, {{475, "400"}, {113, "100"}}, {}, "0.2500"},
};

INSTANTIATE_TEST_SUITE_P(Casos, Coeficiente, ::testing::ValuesIn(kCoeficientes),
                         [](const auto& i) { return std::string(i.param.nombre); });

// c481 enters the income but is not one of the boxes that recompute c610.
TEST_F(FormularioNuevo, El481SoloNoRecalculaElCoeficiente)
{
    abrir();
    identificar(4, -1, 1);
    f().marcar(f().OptConvEstab, 1);
    escribir(461, QStringLiteral("1000"));
    escribir(113, QStringLiteral("100"));
    ASSERT_EQ(t(610), QStringLiteral("0.1000"));
    escribir(481, QStringLiteral("1000"));
    EXPECT_EQ(t(484), QStringLiteral("2,000"));
    EXPECT_EQ(t(610), QStringLiteral("0.1000"));
}

// ------------------------------------------------------------------ MYPE projection

TEST_F(FormularioNuevo, ProyeccionMype)
{
    abrir(QStringLiteral("2017"));
    identificar(5, 0, -1);
    escribir(461, QStringLiteral("70000"));
    EXPECT_TRUE(f().marcos.value(QStringLiteral("frmMype")).Visible);
    // 70000 x 12 / 7 = 120000: 6075 on the first 15 UIT, 29.5 % on the rest.
    EXPECT_EQ(t(250), QStringLiteral("23,554"));
    EXPECT_EQ(t(253), QStringLiteral("23,554"));
    escribir(251, QStringLiteral("20000"));
    EXPECT_EQ(t(251), QStringLiteral("(20,000)"));
    EXPECT_EQ(t(253), QStringLiteral("3,554"));
    escribir(252, QStringLiteral("5000"));
    EXPECT_EQ(t(253), QStringLiteral("(1,446)"));
}

// Over 300 UIT of net income the projection is not offered; leaving the regime empties it.
TEST_F(FormularioNuevo, ProyeccionSeVaciaSobre300UitYAlDejarMype)
{
    abrir(QStringLiteral("2017"));
    identificar(5, 0, -1);
    escribir(461, QStringLiteral("1215000"));
    EXPECT_TRUE(f().marcos.value(QStringLiteral("frmMype")).Visible);
    escribir(461, QStringLiteral("1"));   // 12150001
    EXPECT_FALSE(f().marcos.value(QStringLiteral("frmMype")).Visible);
    EXPECT_EQ(t(250), QString());
    escribir(461, QStringLiteral("\b\b\b\b\b"));
    escribir(251, QStringLiteral("100"));
    ASSERT_FALSE(t(250).isEmpty());
    responder({vbYes});
    f().marcar(f().optRenta, 0);
    for (int n = 250; n <= 253; ++n)
        EXPECT_EQ(t(n), QString()) << n;
}

}  // namespace
