// The first page: the regime question, the regime's frames and questions, the payment block
// before and after 2013, the balance date with the period and the headings it fixes.
#include "formulario_nuevo.h"

#include "basic/texto.h"
#include "store/base.h"

#include <vector>

namespace {

const QString kPreguntaRegimen = QStringLiteral(
    "Va a cambiar de Régimen Tributario, se va a eliminar toda la información no necesaria en la declaración, ¿Desea Continuar?");

bool abierto(Frm931& f, const char* m)
{
    const Marco x = f.marcos.value(QLatin1String(m));
    return x.Enabled && x.Visible;
}

// ------------------------------------------------------------------ regime question

TEST_F(FormularioNuevo, PrimeraEleccionYMismaEleccionNoPreguntan)
{
    abrir();
    contribuyente();
    f().marcar(f().optRenta, 2);
    EXPECT_TRUE(abierto(f(), "Frame19"));
    f().marcar(f().OptUbicAmazonia, 1);
    f().marcar(f().optRenta, 2);
    EXPECT_TRUE(mensajes().isEmpty());
    EXPECT_EQ(f().miRegimen, 2);
    EXPECT_FALSE(f().marcos.value(QStringLiteral("Frame19")).Enabled) << "the answers keep their frames";
    EXPECT_FALSE(abierto(f(), "Frame_General"));
}

TEST_F(FormularioNuevo, ResponderNoLoDejaTodoComoEstaba)
{
    abrir();
    identificar(2, -1, 1);
    f().marcar(f().OptUbicAmazonia, 1);       // shuts the law's question
    escribir(461, QStringLiteral("1000"));
    const QString c113 = t(113);
    f().marcar(f().optRenta, 0);               // the default answer is No
    ASSERT_EQ(mensajes(), QStringList{kPreguntaRegimen});
    EXPECT_EQ(familia.respondedor().mostrados.first().flags, vbYesNo + vbQuestion + vbDefaultButton2);
    EXPECT_EQ(f().miRegimen, 2);
    EXPECT_TRUE(f().optRenta.valor(2));
    EXPECT_FALSE(f().optRenta.valor(0));
    EXPECT_FALSE(f().marcos.value(QStringLiteral("Frame19")).Enabled);
    EXPECT_TRUE(abierto(f(), "Frame20"));
    EXPECT_FALSE(abierto(f(), "Frame_General"));
    EXPECT_TRUE(f().OptUbicAmazonia.valor(1));
    EXPECT_EQ(t(113), c113);
}

// Each regime shows its own frames and no other.
struct CasoMarcos {
    int regimen;
    std::vector<const char*> abiertos;
};
class MarcosDelRegimen : public FormularioNuevo, public ::testing::WithParamInterface<CasoMarcos> {};

TEST_P(MarcosDelRegimen, SoloLosSuyos)
{
    abrir();
    contribuyente();
    responder({vbYes});
    f().marcar(f().optRenta, GetParam().regimen == 0 ? 1 : 0);
    f().marcar(f().optRenta, GetParam().regimen);
    for (const char* m : {"Frame_General", "Frame15", "Frame19", "Frame21", "Frame20", "Frame28", "Frame13", "Frame16", "Frame14"}) {
        bool esperado = false;
        for (const char* a : GetParam().abiertos)
            esperado = esperado || QLatin1String(a) == QLatin1String(m);
        EXPECT_EQ(abierto(f(), m), esperado) << m;
    }
    EXPECT_EQ(f().MkePeriodo.Enabled, GetParam().regimen == 1);
    EXPECT_EQ(f().marcos.value(QStringLiteral("frmMype")).Visible, GetParam().regimen == 5);
}

INSTANTIATE_TEST_SUITE_P(Regimenes, MarcosDelRegimen, ::testing::Values(
    CasoMarcos{0, {"Frame_General"}},
    CasoMarcos{1, {"Frame15"}},
    CasoMarcos{2, {"Frame19", "Frame21", "Frame20", "Frame28"}},
    CasoMarcos{3, {"Frame13", "Frame16"}},
    CasoMarcos{4, {"Frame14"}},
    CasoMarcos{5, {"Frame_General"}}));

TEST_F(FormularioNuevo, UbigeoDeLaZona)
{
    abrir();
    identificar(2, -1, 1);
    f().marcar(f().OptUbicAmazonia, 1);
    f().marcar(f().OptDomFiscal, 1);
    f().marcar(f().OptZona, 1);
    EXPECT_TRUE(f().CmdZona1.Enabled);
    entorno.ubigeo = QStringLiteral("160101");
    f().CmdZona1_Click();
    EXPECT_EQ(entorno.captionUbigeo, QStringLiteral("Ubigeo Zona 2"));
    EXPECT_EQ(G().gsZonaAbrir, QStringLiteral("2"));
    EXPECT_EQ(f().TxtUbigeo.Text, QStringLiteral("160101"));
    EXPECT_EQ(G().gsTasa, QStringLiteral("5"));
    f().marcar(f().OptDomFiscal, 0);
    EXPECT_EQ(f().TxtUbigeo.Text, QString());
    EXPECT_FALSE(f().OptZona.contestado());
}

// ------------------------------------------------------------------ payment block

struct CasoPago {
    const char* nombre;
    const char* anio;
    int inicio, precedente, anterior;      // -1 unanswered
    const char* sistema;
    bool balanceAbierto;
    int indice;
    const char* presentacion;
    const char* periodo;
};
void PrintTo(const CasoPago& c, std::ostream* os) { *os << c.nombre; }

class BloquePago : public FormularioNuevo, public ::testing::WithParamInterface<CasoPago> {};

TEST_P(BloquePago, SistemaYFechaDeBalance)
{
    const CasoPago& c = GetParam();
    abrir(QString::fromLatin1(c.anio));
    contribuyente();
    f().marcar(f().optRenta, 0);
    f().marcar(f().OptPersona, 0);
    f().marcar(f().OptInicio, c.inicio);
    if (c.precedente >= 0)
        f().marcar(f().OptPrecedente, c.precedente);
    if (c.anterior >= 0)
        f().marcar(f().OptAnterior, c.anterior);
    EXPECT_EQ(f().LblSistema.Caption, QString::fromLatin1(c.sistema));
    EXPECT_EQ(G().gsSistema, QString::fromLatin1(c.sistema));
    EXPECT_EQ(f().CboBalance.Enabled, c.balanceAbierto);
    EXPECT_EQ(f().CboBalance.BackColor, c.balanceAbierto ? kBlanco : kGris);
    EXPECT_EQ(f().CboBalance.ListIndex, c.indice);
    EXPECT_EQ(f().LblPresentacion.Caption, QString::fromLatin1(c.presentacion));
    EXPECT_EQ(G().gsPeriodo, QString::fromLatin1(c.periodo));
    EXPECT_EQ(f().OptAnterior.b[0].Enabled, c.inicio == 0);
}

INSTANTIATE_TEST_SUITE_P(Casos, BloquePago, ::testing::Values(
    CasoPago{"antes_inicio_si", "2012", 1, -1, -1, "B", true, -1, "", "2012"},
    CasoPago{"antes_utilidad_utilidad", "2012", 0, 0, 0, "A", false, 1, "Vencimiento del periodo 12", "201206"},
    CasoPago{"antes_perdida_utilidad", "2012", 0, 1, 0, "A", false, 1, "Vencimiento del periodo 12", "201206"},
    CasoPago{"antes_utilidad_perdida", "2012", 0, 0, 1, "B", true, -1, "", "2012"},
    CasoPago{"antes_una_sola_respuesta", "2012", 0, 0, -1, "", true, -1, "", "2012"},
    CasoPago{"antes_inicio_no_sin_respuestas", "2012", 0, -1, -1, " ", false, -1, "", "2012"},
    CasoPago{"desde_inicio_si", "2026", 1, -1, -1, "B", true, -1, "", "2026"},
    CasoPago{"desde_utilidad_utilidad", "2026", 0, 0, 0, "", true, -1, "", "2026"},
    CasoPago{"desde_perdida_perdida", "2026", 0, 1, 1, "", true, -1, "", "2026"}),
    [](const auto& i) { return std::string(i.param.nombre); });

// The balance date fixes the period, the headings and the suspension's frame.
struct CasoFecha {
    const char* anio;
    int indice;
    const char* periodo;
    const char* ejercicio;
    const char* fecha;
    int blancos1, blancos2, blancos3, blancos4, blancosGanancias;
    bool suspension;
};
class FechaBalance : public FormularioNuevo, public ::testing::WithParamInterface<CasoFecha> {};

TEST_P(FechaBalance, PeriodoYTitulos)
{
    const CasoFecha& c = GetParam();
    abrir(QString::fromLatin1(c.anio));
    identificar(0, 0, c.indice);
    EXPECT_EQ(G().gsPeriodo, QString::fromLatin1(c.periodo));
    EXPECT_EQ(f().TxtEjercicio.Text, QString::fromLatin1(c.ejercicio));
    const QString fecha = QString::fromLatin1(c.fecha);
    EXPECT_EQ(f().msTitBalance1, QStringLiteral("I. Balance General") + Space(c.blancos1) + QStringLiteral("Valor") + Space(c.blancos2) + fecha);
    EXPECT_EQ(f().msTitBalance2, QStringLiteral("I. Balance General") + Space(c.blancos3) + QStringLiteral("Valor") + Space(c.blancos4) + fecha);
    EXPECT_EQ(f().msTitGanancias, QStringLiteral("II. Estado de Ganancias y Pérdidas") + Space(c.blancosGanancias) + fecha);
    EXPECT_EQ(f().marcos.value(QStringLiteral("FrameSusPC")).Visible, c.suspension);
    // The tabs take the headings when the user goes to them.
    f().elegirPestana(f().SSTab1, 1);
    EXPECT_EQ(f().SSTab1.Tab, 1);
    EXPECT_EQ(f().lblTab2[168].Caption, f().msTitBalance1);
    EXPECT_EQ(f().lblTab2[90].Caption, f().msTitBalance2);
    EXPECT_EQ(f().lblTab2[100].Caption, f().msTitGanancias);
}

INSTANTIATE_TEST_SUITE_P(Fechas, FechaBalance, ::testing::Values(
    CasoFecha{"2026", 0, "202605", "05/2026", " al 30 de Abril ", 53, 89, 43, 77, 24, false},
    CasoFecha{"2026", 1, "202608", "08/2026", " al 31 de Julio ", 53, 90, 44, 78, 23, true},
    CasoFecha{"2012", 0, "201201", "01/2012", "al 31 de Enero", 53, 89, 43, 77, 24, false},
    CasoFecha{"2012", 1, "201206", "06/2012", "al 30 de Junio", 53, 90, 44, 78, 23, false}));

// A MYPE taxpayer with net income up to 300 UIT, exactly 300 included, has no April balance.
struct CasoAbril {
    const char* ingresos;
    bool rechazado;
};
class AbrilMype : public FormularioNuevo, public ::testing::WithParamInterface<CasoAbril> {};

TEST_P(AbrilMype, TrescientasUit)
{
    abrir();   // UIT 5500: 300 UIT are 1,650,000
    identificar(5, 0, -1);
    escribir(461, QString::fromLatin1(GetParam().ingresos));
    f().elegir(f().CboBalance, 0);
    if (GetParam().rechazado) {
        EXPECT_EQ(mensajes(), QStringList{QStringLiteral("No puede presentar balance al 30 de Abril ")});
        EXPECT_EQ(familia.respondedor().mostrados.first().flags & 0xF0, vbCritical);
        EXPECT_EQ(f().CboBalance.ListIndex, -1);
        EXPECT_EQ(G().gsPeriodo, QStringLiteral("2026"));
    } else {
        EXPECT_TRUE(mensajes().isEmpty());
        EXPECT_EQ(f().CboBalance.ListIndex, 0);
        EXPECT_EQ(G().gsPeriodo, QStringLiteral("202605"));
    }
}

INSTANTIATE_TEST_SUITE_P(Casos, AbrilMype, ::testing::Values(
    CasoAbril{"1000", true}, CasoAbril{"1650000", true}, CasoAbril{"1650001", false}));

// ------------------------------------------------------------------ taxpayer

TEST_F(FormularioNuevo, ContribuyenteConDeclaracionExistente)
{
    abrir();
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO) VALUES (6, ?, ?, ?)"),
             {DatosDemo::kRucAndina, G().gsPeriodo, G().gsFormulario});
    contribuyente();
    ASSERT_EQ(mensajes().size(), 1);
    EXPECT_TRUE(mensajes().first().startsWith(QStringLiteral("La declaración que desea registrar ya existe ")));
    EXPECT_TRUE(mensajes().first().endsWith(QStringLiteral("Elija la opción modificar declaración o elija otro contribuyente.")));
    EXPECT_EQ(f().foco, QStringLiteral("CmbRuc"));
    contribuyente(DatosDemo::kRucPacifico);
    EXPECT_EQ(f().foco, QStringLiteral("TxtTelefono"));
    EXPECT_EQ(Trim(f().TxtRazon.Text), DatosDemo::kNombrePacifico);
}

// A taxpayer with no declaration empties the boxes, but the accountant's and the
// representative's numbers stay on screen.
TEST_F(FormularioNuevo, OtroContribuyenteConservaLosDatosDelContador)
{
    abrir();
    identificar(0, 0);
    escribir(461, QStringLiteral("1000"));
    escribir(211, QStringLiteral("123"));
    escribir(208, QStringLiteral("20500004569"));
    contribuyente(DatosDemo::kRucPacifico);
    EXPECT_EQ(t(461), QString());
    EXPECT_EQ(t(463), QString());
    EXPECT_EQ(t(211), QStringLiteral("123"));
    EXPECT_EQ(t(208), QStringLiteral("20500004569"));
}

// In January the July balance belongs to the year before; April's does not.
TEST_F(FormularioNuevo, BalanceDeJulioEnEnero)
{
    abrir(QStringLiteral("2027"));
    fijarHoy(QDate(2027, 1, 15));
    identificar(0, 0, 1);
    EXPECT_EQ(G().gsPeriodo, QStringLiteral("202608"));
    EXPECT_EQ(f().TxtEjercicio.Text, QStringLiteral("08/2026"));
    f().elegir(f().CboBalance, 0);
    EXPECT_EQ(G().gsPeriodo, QStringLiteral("202705"));
}

struct CasoFecha4888 {
    const char* fecha;
    const char* mensaje;
    bool retieneFoco;
};
class Fecha4888 : public FormularioNuevo, public ::testing::WithParamInterface<CasoFecha4888> {};

TEST_P(Fecha4888, AlDejarLaCaja)
{
    abrir();
    identificar(1, -1, 1);
    f().SSTab1.Tab = 2;
    f().darFoco(QStringLiteral("MkePeriodo"));
    f().escribirControl(QStringLiteral("MkePeriodo"), QString::fromLatin1(GetParam().fecha));
    f().mbModificado = false;
    f().darFoco(QStringLiteral("TxtTelefono"));
    if (*GetParam().mensaje) {
        EXPECT_EQ(mensajes(), QStringList{QString::fromUtf8(GetParam().mensaje)});
        EXPECT_EQ(f().SSTab1.Tab, 0);
    } else {
        EXPECT_TRUE(mensajes().isEmpty());
    }
    EXPECT_EQ(f().foco, GetParam().retieneFoco ? QStringLiteral("MkePeriodo") : QStringLiteral("TxtTelefono"));
    EXPECT_TRUE(f().mbModificado);
    EXPECT_EQ(G().gsTasa, QStringLiteral("15"));
}

INSTANTIATE_TEST_SUITE_P(Fechas, Fecha4888, ::testing::Values(
    CasoFecha4888{"10/03/2026", "", false},
    CasoFecha4888{"__/03/2026", "", false},
    CasoFecha4888{"10/03/2025", "El año de la fecha del formulario 4888 debe corresponder al año de la presentación", true},
    CasoFecha4888{"01/12/2026", "La fecha de presentación del formulario 4888 no puede ser mayor a la fecha del sistema.", false}));

}  // namespace
