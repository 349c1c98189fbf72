// The computation chain, driven by typing: what each figure leaves in the computed boxes.
#include "formulario_nuevo.h"

#include <utility>
#include <vector>

namespace {

struct CasoCadena {
    const char* nombre;
    std::vector<std::pair<int, const char*>> tecleado;    // typed box by box, then left
    std::vector<std::pair<int, const char*>> esperado;
};
void PrintTo(const CasoCadena& c, std::ostream* os) { *os << c.nombre; }

class Cadena : public FormularioNuevo, public ::testing::WithParamInterface<CasoCadena> {};

TEST_P(Cadena, CasillasCalculadas)
{
    abrir();
    identificar(0, 0);
    for (const auto& [n, texto] : GetParam().tecleado)
        escribir(n, QString::fromUtf8(texto));
    for (const auto& [n, texto] : GetParam().esperado)
        EXPECT_EQ(t(n), QString::fromUtf8(texto)) << "casilla " << n;
}

const CasoCadena kCasos[] = {
    {"patrimonio_sin_guarda",
     {{544, "5\b"}},
     {{544, ""}, {554, "0"}, {555, "0"}, {531, ""}, {543, ""}}},
    {"ventas_netas_no_negativas",
     {{461, "100"}, {462, "150"}},
     {{462, "(150)"}, {463, "0"}, {466, "0"}, {467, "0"}}},
    {"perdida_bruta_entre_parentesis",
     {{464, "50"}},
     {{463, ""}, {466, "0"}, {467, "(50)"}, {470, "0"}, {471, "(50)"}, {485, "(50)"}, {489, "(50)"}, {101, "(50)"}}},
    {"cero_y_cero_pasan_al_100_y_101",
     {{461, "100"}, {464, "100"}},
     {{487, "0"}, {489, "0"}, {100, "0"}, {101, "0"}, {106, "0"}, {107, "0"}, {110, "0"}, {111, "0"}}},
    {"perdida_tributaria_sin_separadores",
     {{464, "70"}, {108, "30"}},
     {{106, "0"}, {107, "(70)"}, {108, "(30)"}, {110, "0"}, {111, "100"}}},
    {"perdida_de_siete_cifras",
     {{464, "1234567"}},
     {{107, "(1,234,567)"}, {111, "1234567"}}},
    {"signo_de_las_deducciones_del_activo",
     {{508, "5"}, {500, "5"}},
     {{508, "(5)"}, {531, "0"}}},
    {"activo_neto",
     {{500, "1000"}, {515, "250"}, {524, "300"}, {530, "50"}},
     {{500, "1,000"}, {524, "(300)"}, {531, "1,000"}}},
    {"pasivo_y_patrimonio",
     {{532, "400"}, {542, "100"}, {544, "600"}, {551, "700"}},
     {{543, "500"}, {554, "(100)"}, {555, "400"}}},
    {"cadena_completa_hasta_el_coeficiente",
     {{461, "1000000"}, {464, "400000"}, {468, "100000"}},
     {{463, "1,000,000"}, {466, "600,000"}, {470, "500,000"}, {484, "500,000"}, {487, "500,000"},
      {492, "500,000"}, {100, "500,000"}, {106, "500,000"}, {110, "500,000"}, {111, "0"},
      {113, "147,500"}, {610, "0.1475"}}},
    {"adiciones_y_deducciones",
     {{461, "1000"}, {103, "500"}, {105, "200"}, {150, "100"}},
     {{106, "1,300"}, {107, "0"}, {110, "1,200"}, {105, "(200)"}, {150, "100"}}},
    {"resultado_del_ejercicio_tras_el_impuesto",
     {{461, "1000"}, {486, "100"}, {490, "1200"}},
     {{487, "900"}, {489, "0"}, {492, "0"}, {493, "(300)"}}},
    {"ingresos_sumados_y_gastos_restados",
     {{461, "1000"}, {472, "200"}, {475, "50"}, {476, "25"}, {478, "10"}, {480, "15"}},
     {{484, "850"}, {485, "0"}}},
};

INSTANTIATE_TEST_SUITE_P(Casos, Cadena, ::testing::ValuesIn(kCasos),
                         [](const auto& i) { return std::string(i.param.nombre); });

// A negative written into an adding box of the balance (an import does it) subtracts: N, not A.
TEST_F(FormularioNuevo, NegativoEnUnaCasillaQueSuma)
{
    abrir();
    identificar(0, 0);
    f().setTxt(500, QStringLiteral("-5"));
    f().setTxt(501, QStringLiteral("10"));
    EXPECT_EQ(t(531), QStringLiteral("5"));
}

// The guards compare with the empty text: c110 empties only when 106, 108 and 150 are all
// empty, c111 also needs 107 empty.
TEST_F(FormularioNuevo, GuardasDe110y111)
{
    abrir();
    identificar(0, 0);
    escribir(103, QStringLiteral("100"));
    EXPECT_EQ(t(110), QStringLiteral("100"));
    escribir(103, QStringLiteral("\b\b\b"));
    // Leaving 103 writes its number back: an emptied 103 reads "0" and the chain keeps figures.
    EXPECT_EQ(t(103), QStringLiteral("0"));
    EXPECT_EQ(t(106), QStringLiteral("0"));
    EXPECT_EQ(t(110), QStringLiteral("0"));
}

}  // namespace
