// The full validation (one line of Mens.txt per fault, in rule order) and the silent one of
// the save (a boolean), run on declarations whose state is set directly on the model.
#include "comun/base_prueba.h"

#include "basic/texto.h"
#include "form931/frm931.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QFile>
#include <functional>
#include <gtest/gtest.h>

namespace {

using Preparar = std::function<void(Frm931&)>;

// Texts as the user reads them.
const QString kTelefono = QStringLiteral("Ingrese su número de teléfono o un número de referencia");
const QString kTelefonoCero = QStringLiteral("Identificación-Datos Generales : El teléfono no puede ser cero");
const QString kPeriodo = QStringLiteral("El período no es valido");
const QString kRegimen = QStringLiteral("Debe señalar el regimen de renta");
const QString kPersona = QStringLiteral("Seleccione el tipo de persona");
const QString kAnio4888 = QStringLiteral("El año de la fecha del formulario 4888 debe corresponder al año de la presentación");
const QString kFutura4888 = QStringLiteral("La fecha de presentación del formulario 4888 no puede ser mayor a la fecha del sistema");
const QString kUbigeo = QStringLiteral("Registre el Ubigeo");
const QString kUbicado = QStringLiteral("Señale si esta ubicado en la amazonía");
const QString kUbicadoSinTilde = QStringLiteral("Señale si esta ubicado en la amazonia");
const QString kDomAmazonia = QStringLiteral("Indique si su domicilio fiscal se encuentra ubicado en la Amazonia y coincide con el lugar donde tiene su administración y contabilidad.");
const QString kZonaAmazonia = QStringLiteral("Señale la Zona a la que corresponde la ubicación de su domicilio");
const QString kIndustrial = QStringLiteral("Señale si se dedica a la actividad industrial.");
const QString kUbigeoFrontera = QStringLiteral("Señale el ubigeo al que corresponde la zona de frontera.");
const QString kDomFrontera = QStringLiteral("Indique si su domicilio fiscal se encuentra ubicado en la Zona de frontera  y coincide con el lugar donde tiene su administración y contabilidad.");
const QString kConvenio = QStringLiteral("Especifique si tiene convenio de estabilidad.");
const QString k2305 = QStringLiteral("Registre correctamente el número de orden del formulario 2305");
const QString kInicio = QStringLiteral("Señale el inicio de actividades en el ejercicio");
const QString kAnterior = QStringLiteral("Indique si obtuvo utilidad o pérdida en el Ejercicio anterior");
const QString kPrecedente = QStringLiteral("Indique si obtuvo utilidad o pérdida en el Ejercicio precedente al anterior");
const QString kMes = QStringLiteral("Seleccione el mes al que debe corresponder la presentación del balance");
const QString kResObligatoria = QStringLiteral("El ingreso de los datos de la Resolución y Fecha de Notificación son campos obligatorios");
const QString kResIncompleta = QStringLiteral("Número de Resolución incompleto");
const QString kResCeros = QStringLiteral("Debe ingresar un Número de Resolución");
const QString kNotifRango = QStringLiteral("La fecha de notificación no puede ser anterior al 22/03/2013 ni mayor a la fecha del sistema");
const QString kNotifNoValida = QStringLiteral("La fecha de notificación no es válida");
const QString kActivo = QStringLiteral("Ingrese información en el Activo");
const QString kPasivo = QStringLiteral("Ingrese información en el Pasivo");
const QString kPatrimonio = QStringLiteral("Ingrese información en el Patrimonio");
const QString kGanancias = QStringLiteral("Si existe la casilla 552 ó 553 debe existir información en el Estado de Ganancias y Pérdidas");
const QString kTotal = QStringLiteral("El Total Activo debe ser igual a Total Pasivo + Patrimonio");
const QString k113 = QStringLiteral("Debe ingresar valor en la casilla 113");
const QString k477 = QStringLiteral("Estados Financieros-Estado de Ganancias y Pérdidas : Si ingresa información en las casilla 478 debe ingresar también la casilla 477.");
const QString kZonaCont = QStringLiteral("Información Complementaria : Debe ingresar el código de la zona de colegiatura del contador");
const QString kColegiatura = QStringLiteral("Información Complementaria : Debe Ingresar el Nro. C.P.C. o el Nro. C.M.A. del contador");
const QString kTipoDocRL = QStringLiteral("Información Complementaria : Ingrese el tipo de documento del Representante Legal");
const QString kNumDocRL = QStringLiteral("Información Complementaria : Ingrese el número de documento del Representante Legal");
const QString kDni = QStringLiteral("Información Complementaria : Ingrese los ocho dígitos del DNI");
const QString kApellidosRL = QStringLiteral("Información Complementaria : Ingrese los apellidos del Representante Legal");
const QString kNombresRL = QStringLiteral("Información Complementaria : Ingrese los nombres del Representante Legal");
const QString kPerdidas = QStringLiteral("Debe ingresar información de pérdida tributaria compensable de ejercicios anteriores");
const QString kNoProcede = QStringLiteral("No procede la suspensión de pagos a cuenta");
const QString kAbril = QStringLiteral("No puede presentar balance al 30 de Abril ");
const QString kLimite = QStringLiteral("Ingresos superan el límite establecido para el RMT, deberá presentar su declaración en el Régimen General ");
const QString kRucNoValido = QStringLiteral("El RUC no es Válido.");
const QString kRucIgual = QStringLiteral("El RUC no puede ser igual al RUC del Contribuyente.");
QString solo(int b, int c) { return QStringLiteral("Solo debe Ingresar valor en una de las dos casillas (%1 o %2)").arg(b).arg(c); }

void poner(GrupoOpciones& g, int i)
{
    g.apagar();
    if (i >= 0)
        g.b[i].Value = true;
}
void caja(Frm931& f, int n, const char* t) { f.caja(n).Text = QString::fromUtf8(t); }

// A consistent new declaration of the general regime, natural person, balance at 30 April.
void declaracionBuena(Frm931& f)
{
    G().gsPeriodo = QStringLiteral("202605");
    f.miModo = 0;
    f.CmbRuc.items = {DatosDemo::kRucAndina + QStringLiteral("    ") + DatosDemo::kNombreAndina};
    f.CmbRuc.ListIndex = 0;
    f.TxtTelefono.Text = QStringLiteral("4445555");
    poner(f.optRenta, 0);
    poner(f.OptPersona, 1);
    poner(f.OptInicio, 1);
    f.CboBalance.items = {QStringLiteral("30 DE ABRIL"), QStringLiteral("31 DE JULIO")};
    f.CboBalance.ListIndex = 0;
    f.msFechaBalance = QStringLiteral(" al 30 de Abril ");
    f.msUit = QStringLiteral("4000");
    f.cboTipDocRepLegal.items = {Space(75), QStringLiteral("01 DNI"), QStringLiteral("06 RUC")};
    for (const auto& [n, t] : {std::pair{500, "1,000"}, {531, "1,000"}, {532, "400"}, {543, "400"},
                               {544, "600"}, {554, "600"}, {555, "1,000"}, {113, "0"}})
        caja(f, n, t);
    f.SSTab4.TabEnabled[1] = false;
}

void julio(Frm931& f)
{
    f.CboBalance.ListIndex = 1;
    G().gsPeriodo = QStringLiteral("202608");
}
void mype(Frm931& f, const char* ingresos)
{
    poner(f.optRenta, 5);
    caja(f, 461, ingresos);
}
void suspension(Frm931& f, const char* res, const char* fecha)
{
    julio(f);
    poner(f.OptSuspPC, 1);
    f.txtNumRes.Text = QString::fromUtf8(res);
    f.mkefecnot.Text = QString::fromUtf8(fecha);
}
void representante(Frm931& f, int tipo, const char* doc)
{
    poner(f.OptPersona, 0);
    f.cboTipDocRepLegal.ListIndex = tipo;
    caja(f, 226, doc);
    f.txtApellidoRL.Text = QStringLiteral("PEREZ");
    f.txtNombreRL.Text = QStringLiteral("JUAN");
}

QStringList leerMens()
{
    QFile f(G().gsArchMens);
    if (!f.open(QIODevice::ReadOnly))
        return {QStringLiteral("<sin archivo>")};
    const QString t = QString::fromUtf8(f.readAll());
    if (t.isEmpty())
        return {};
    EXPECT_TRUE(t.endsWith(QLatin1Char('\n'))) << "cada línea termina en salto";
    return t.chopped(1).split(QLatin1Char('\n'));
}

class Validacion : public PruebaConBase {
protected:
    Frm931 f;
    void SetUp() override { declaracionBuena(f); }
    QStringList formulario()
    {
        f.ValidaFormulario();
        return leerMens();
    }
    bool completo()
    {
        bool ok = false;
        f.ValidaCompleto(ok);
        return ok;
    }
    const QList<MensajeMostrado>& cuadros() { return familia.respondedor().mostrados; }
};

// ------------------------------------------------------------------ both passes, case by case

struct Caso {
    const char* nombre;
    Preparar preparar;
    QStringList lineas;     // Mens.txt of the full pass
    bool completo;          // answer of the silent pass
};
void PrintTo(const Caso& c, std::ostream* os) { *os << c.nombre; }

class CasosValidacion : public Validacion, public ::testing::WithParamInterface<Caso> {};

TEST_P(CasosValidacion, LineasDelArchivoYRespuestaSilenciosa)
{
    GetParam().preparar(f);
    Frm931 copia;
    declaracionBuena(copia);
    GetParam().preparar(copia);
    EXPECT_EQ(formulario(), GetParam().lineas);
    EXPECT_EQ(G().giError, GetParam().lineas.isEmpty() ? 0 : 1);
    bool ok = false;
    copia.ValidaCompleto(ok);   // on a fresh copy: the full pass may have moved the period
    EXPECT_EQ(ok, GetParam().completo);
    EXPECT_TRUE(cuadros().isEmpty());
}

auto tel(const char* t) { return [=](Frm931& f) { f.TxtTelefono.Text = QString::fromUtf8(t); }; }
auto periodo(const char* p, int i) { return [=](Frm931& f) { G().gsPeriodo = QString::fromLatin1(p); f.CboBalance.ListIndex = i; }; }
auto agrario(const char* fecha) { return [=](Frm931& f) { poner(f.optRenta, 1); f.MkePeriodo.Text = QString::fromLatin1(fecha); }; }
auto amazonia(bool frame21, int ubic, int ley, int dom, int zona, const char* ubigeo)
{
    return [=](Frm931& f) {
        poner(f.optRenta, 2);
        f.marco(QStringLiteral("Frame21")).Enabled = frame21;
        poner(f.OptUbicAmazonia, ubic); poner(f.OptLeyAmazonia, ley); poner(f.OptDomFiscal, dom); poner(f.OptZona, zona);
        f.TxtUbigeo.Text = QString::fromLatin1(ubigeo);
    };
}
auto frontera(int act, int front, const char* ubigeo)
{
    return [=](Frm931& f) { poner(f.optRenta, 3); poner(f.OptActividad, act); poner(f.OptFrontera, front); f.TxtUbigeo2.Text = QString::fromLatin1(ubigeo); };
}
auto convenio(int tipo, const char* orden, const char* c113 = "0")
{
    return [=](Frm931& f) { poner(f.optRenta, 4); poner(f.OptConvEstab, tipo); f.TxtNumOrdenF2305.Text = QString::fromLatin1(orden); caja(f, 113, c113); };
}
auto cajas(std::initializer_list<std::pair<int, const char*>> l)
{
    const QVector<std::pair<int, const char*>> v(l);
    return [=](Frm931& f) { for (const auto& [n, t] : v) caja(f, n, t); };
}
auto susp(const char* r, const char* d) { return [=](Frm931& f) { suspension(f, r, d); }; }

INSTANTIATE_TEST_SUITE_P(Tabla, CasosValidacion, ::testing::Values(
    Caso{"Buena", [](Frm931&) {}, {}, true},
    Caso{"Telefono5", tel("12345"), {kTelefono}, false},
    Caso{"Telefono8SinNueve", tel("81234567"), {}, true},
    Caso{"Telefono6ConNueve", tel("912345"), {}, true},
    Caso{"TelefonoOchoCeros", tel("00000000"), {kTelefonoCero}, false},
    Caso{"TelefonoCortoYCero", tel("000"), {kTelefono, kTelefonoCero}, false},
    Caso{"SinRegimen", [](Frm931& f) { poner(f.optRenta, -1); }, {kRegimen}, false},
    Caso{"GeneralSinPersona", [](Frm931& f) { poner(f.OptPersona, -1); }, {kPersona}, false},
    Caso{"MypeSinPersona", [](Frm931& f) { mype(f, ""); julio(f); poner(f.OptPersona, -1); }, {kPersona}, false},
    Caso{"AgrarioSinPersona", [](Frm931& f) { agrario("15/03/2026")(f); poner(f.OptPersona, -1); }, {}, true},
    Caso{"Periodo201306", periodo("201306", 0), {kPeriodo}, false},
    Caso{"Periodo201301", periodo("201301", 1), {kPeriodo}, false},
    Caso{"AgrarioSinFecha", agrario("__/__/____"), {kAnio4888}, false},
    Caso{"AgrarioFechaFutura", agrario("01/01/2027"), {kFutura4888}, true},
    Caso{"AgrarioAnioAnterior", agrario("15/03/2025"), {kAnio4888}, true},
    Caso{"AgrarioNoEsFecha", agrario("31/02/2026"), {kAnio4888}, true},
    Caso{"AgrarioBuena", agrario("15/03/2026"), {}, true},
    Caso{"AmazoniaSinRespuestas", amazonia(true, -1, -1, -1, -1, ""), {kUbicado}, false},
    Caso{"AmazoniaUbicNoLeySinRespuesta", amazonia(true, 0, -1, -1, -1, ""), {kUbicadoSinTilde}, false},
    Caso{"AmazoniaAmbosNo", amazonia(true, 0, 0, -1, -1, ""), {}, true},
    Caso{"AmazoniaUbicSiSinDomicilio", amazonia(true, 1, -1, -1, -1, ""), {kDomAmazonia}, false},
    Caso{"AmazoniaLeySiSinZona", amazonia(false, -1, 1, 1, -1, ""), {kZonaAmazonia}, false},
    Caso{"AmazoniaZonaSinUbigeo", amazonia(false, -1, 1, 1, 0, " "), {kUbigeo}, false},
    Caso{"AmazoniaUbigeoAntesQueUbicacion", amazonia(true, -1, 1, 1, 1, ""), {kUbigeo, kUbicado}, false},
    Caso{"AmazoniaCompleta", amazonia(false, -1, 1, 1, 0, "250101"), {}, true},
    Caso{"FronteraSinActividad", frontera(-1, -1, ""), {kIndustrial}, true},
    Caso{"FronteraSinUbigeo", frontera(1, 1, ""), {kUbigeoFrontera}, false},
    Caso{"FronteraSinDomicilio", frontera(1, -1, ""), {kDomFrontera}, true},
    Caso{"FronteraNoIndustrial", frontera(0, -1, ""), {}, true},
    Caso{"ConvenioVacio", convenio(-1, ""), {kConvenio, k2305}, false},
    Caso{"ConvenioOrdenCorta", convenio(2, "1234567"), {k2305}, false},
    Caso{"ConvenioBueno", convenio(2, "12345678"), {}, true},
    Caso{"ConvenioSin113", convenio(2, "12345678", " "), {k113}, false},
    Caso{"GeneralSin113", cajas({{113, ""}}), {}, false},
    Caso{"SinInicio", [](Frm931& f) { poner(f.OptInicio, -1); }, {kInicio}, true},
    Caso{"InicioNoSinResultados", [](Frm931& f) { poner(f.OptInicio, 0); }, {kAnterior, kPrecedente}, true},
    Caso{"InicioNoConResultados", [](Frm931& f) { poner(f.OptInicio, 0); poner(f.OptAnterior, 0); poner(f.OptPrecedente, 1); }, {}, true},
    Caso{"SinMesBalance", periodo("202605", -1), {kMes}, true},
    Caso{"MypeSinMesBalance", [](Frm931& f) { mype(f, ""); f.CboBalance.ListIndex = -1; }, {kMes}, true},
    Caso{"SuspensionVacia", susp("", "__/__/____"), {kResObligatoria, kResIncompleta, kNotifNoValida}, true},
    Caso{"SuspensionCeros", susp("0000000000000", "22/03/2013"), {kResCeros}, true},
    Caso{"SuspensionCorta", susp("123456789012", "22/03/2013"), {kResIncompleta}, true},
    Caso{"Notificacion21Marzo2013", susp("1234567890123", "21/03/2013"), {kNotifRango}, true},
    Caso{"Notificacion22Marzo2013", susp("1234567890123", "22/03/2013"), {}, true},
    Caso{"NotificacionHoy", susp("1234567890123", "22/11/2026"), {}, true},
    Caso{"NotificacionManana", susp("1234567890123", "23/11/2026"), {kNotifRango}, true},
    Caso{"NotificacionImposible", susp("1234567890123", "30/02/2020"), {kNotifNoValida}, true},
    Caso{"SinSuspension", [](Frm931& f) { suspension(f, "", "__/__/____"); poner(f.OptSuspPC, 0); }, {}, true},
    Caso{"ActivoVacio", cajas({{500, ""}, {531, ""}, {555, ""}}), {kActivo}, false},
    Caso{"ActivoEnBlancoNoEsVacio", cajas({{500, " "}}), {}, true},
    Caso{"PasivoYPatrimonioVacios", cajas({{532, ""}, {544, " "}}), {kPasivo}, false},
    Caso{"PasivoVacio", cajas({{532, "  "}}), {kPasivo}, false},
    Caso{"PatrimonioVacio", cajas({{544, " "}}), {kPatrimonio}, false},
    Caso{"TotalesIgualesConOtroTexto", cajas({{555, "1000"}}), {}, true},
    Caso{"TotalesDistintos", cajas({{555, "999"}}), {kTotal}, false},
    Caso{"UtilidadSinGanancias", cajas({{552, "100"}}), {kGanancias}, false},
    Caso{"UtilidadConGanancias", cajas({{552, "100"}, {461, "500"}}), {}, true},
    Caso{"Resultados550y551", cajas({{550, "10"}, {551, "(10)"}}), {solo(550, 551), solo(551, 550)}, true},
    Caso{"Resultados552y553", cajas({{552, "10"}, {553, "(10)"}, {461, "5"}}), {solo(552, 553), solo(553, 552)}, true},
    Caso{"Casilla478Sin477", cajas({{478, "10"}}), {k477}, false},
    Caso{"Casilla478Con477EnBlanco", cajas({{478, "10"}, {477, " "}}), {}, true},
    Caso{"Zona26Sola", cajas({{209, "26"}}), {}, true},
    Caso{"Zona00Sola", cajas({{209, "00"}}), {}, true},
    Caso{"Zona05Sola", cajas({{209, "05"}}), {kColegiatura}, false},
    Caso{"RucContadorSolo", cajas({{208, "20500004569"}}), {kZonaCont, kColegiatura}, false},
    Caso{"ColegiaturasSinZona", cajas({{211, "123"}, {212, "456"}}), {kZonaCont}, false},
    Caso{"UnaColegiatura", cajas({{211, "123"}}), {}, true},
    Caso{"JuridicaSinRepresentante", [](Frm931& f) { poner(f.OptPersona, 0); }, {kTipoDocRL, kNumDocRL, kApellidosRL, kNombresRL}, false},
    Caso{"JuridicaDniCorto", [](Frm931& f) { representante(f, 1, "1234567"); }, {kDni}, false},
    Caso{"JuridicaCompleta", [](Frm931& f) { representante(f, 1, "12345678"); }, {}, true},
    Caso{"NaturalSinRepresentante", [](Frm931& f) { f.cboTipDocRepLegal.ListIndex = 1; }, {}, true},
    Caso{"PaginaPerdidasSinFilas", [](Frm931& f) { f.SSTab4.TabEnabled[1] = true; }, {kPerdidas}, true},
    Caso{"Casilla108SinFilas", cajas({{108, "5,000"}}), {}, false},
    Caso{"Casilla108Cero", cajas({{108, "0"}}), {}, true},
    // Many faults at once: rule order across the whole pass.
    Caso{"TodoMal", [](Frm931& f) {
             mype(f, ""); poner(f.OptPersona, -1); caja(f, 253, "100"); tel("000")(f); poner(f.OptInicio, -1);
             cajas({{500, ""}, {531, ""}, {550, "1"}, {551, "1"}, {478, "5"}, {209, "05"}})(f);
         },
         {kNoProcede, kAbril, kTelefono, kTelefonoCero, kPersona, kInicio, kActivo, kTotal, solo(550, 551),
          solo(551, 550), k477, kColegiatura}, false}),
    [](const auto& i) { return std::string(i.param.nombre); });

// ------------------------------------------------------------------ MYPE limits

struct CasoMype {
    const char* ingresos;
    const char* c253;
    int balance;
    QStringList lineas;
    QString cuadroCompleto;   // message box of the silent pass; empty: none, and True
};
void PrintTo(const CasoMype& c, std::ostream* os) { *os << c.ingresos << " / " << c.c253 << " / " << c.balance; }

class LimitesMype : public Validacion, public ::testing::WithParamInterface<CasoMype> {};

TEST_P(LimitesMype, TopesDe300Y1700UitConUit4000)
{
    const CasoMype& c = GetParam();
    auto preparar = [&](Frm931& x) {
        mype(x, c.ingresos);
        caja(x, 253, c.c253);
        x.CboBalance.ListIndex = c.balance;
        if (c.balance == 1)
            G().gsPeriodo = QStringLiteral("202608");
    };
    preparar(f);
    EXPECT_EQ(formulario(), c.lineas);
    Frm931 otra;
    declaracionBuena(otra);
    preparar(otra);
    familia.respondedor().mostrados.clear();
    bool ok = false;
    otra.ValidaCompleto(ok);
    EXPECT_EQ(ok, c.cuadroCompleto.isEmpty());
    EXPECT_EQ(familia.respondedor().textos(), c.cuadroCompleto.isEmpty() ? QStringList() : QStringList{c.cuadroCompleto});
}

INSTANTIATE_TEST_SUITE_P(Tabla, LimitesMype, ::testing::Values(
    CasoMype{"1,200,000", "", 0, {kAbril}, kAbril},             // exactly 300 UIT
    CasoMype{"1,200,001", "", 0, {}, {}},
    CasoMype{"6,800,000", "", 1, {}, {}},                        // exactly 1700 UIT
    CasoMype{"6,800,001", "", 1, {kLimite}, kLimite},
    CasoMype{"1,000", "100", 1, {kNoProcede}, kNoProcede},
    // Suspension last in the silent pass, first in the full one.
    CasoMype{"1,000", "100", 0, {kNoProcede, kAbril}, kAbril},
    // Above 300 UIT the projection is emptied before the silent pass asks for it.
    CasoMype{"6,800,001", "100", 1, {kNoProcede, kLimite}, kLimite}));

TEST_F(Validacion, OrdenDelPasoSilenciosoAlrededorDeMype)
{
    // The telephone is asked before the MYPE tests: nothing shown.
    mype(f, "1,000");
    f.TxtTelefono.Text = QStringLiteral("123");
    EXPECT_FALSE(completo());
    EXPECT_TRUE(cuadros().isEmpty());
    // The period is asked after them: the message shows.
    f.TxtTelefono.Text = QStringLiteral("4445555");
    G().gsPeriodo = QStringLiteral("201306");
    EXPECT_FALSE(completo());
    EXPECT_EQ(familia.respondedor().textos(), QStringList{kAbril});
}

// ------------------------------------------------------------------ period, tabs, file, stops

TEST_F(Validacion, PeriodoSigueAlMesDelBalance)
{
    const struct { const char* antes; int indice; const char* despues; } casos[] = {
        {"202612", 0, "202605"}, {"202612", 1, "202608"}, {"201306", 0, "201306"}, {"201301", 1, "201301"},
        {"201212", 0, "201201"}, {"201212", 1, "201206"}, {"202605", -1, "202605"}, {"201205", -1, "201205"}};
    for (const auto& c : casos) {
        periodo(c.antes, c.indice)(f);
        f.ValidaFormulario();
        EXPECT_EQ(G().gsPeriodo, QString::fromLatin1(c.despues)) << c.antes << " " << c.indice;
    }
}

// Each pass starts the file afresh (its UTF-8 is read back by every case above).
TEST_F(Validacion, ArchivoReescrito)
{
    QFile viejo(G().gsArchMens);
    ASSERT_TRUE(viejo.open(QIODevice::WriteOnly));
    viejo.write("contenido de otra corrida\n");
    viejo.close();
    EXPECT_EQ(formulario(), QStringList());
}

TEST_F(Validacion, LasFaltasDelPagoLlevanALaPaginaDelPago)
{
    f.SSTab1.Tab = 1;
    f.SSTab2.Tab = 0;
    EXPECT_EQ(formulario(), QStringList());
    EXPECT_EQ(f.SSTab1.Tab, 1);   // no fault, no move
    const Preparar faltas[] = {
        [](Frm931& x) { poner(x.OptInicio, -1); },
        [](Frm931& x) { poner(x.OptInicio, 0); poner(x.OptPrecedente, 0); },
        [](Frm931& x) { poner(x.OptInicio, 0); poner(x.OptAnterior, 0); },
        [](Frm931& x) { x.CboBalance.ListIndex = -1; },
        susp("123", "22/03/2013"),
        susp("0000000000000", "22/03/2013"),
        susp("1234567890123", "21/03/2013"),
        susp("1234567890123", "__/__/____"),
    };
    for (const Preparar& falta : faltas) {
        Frm931 x;
        declaracionBuena(x);
        falta(x);
        x.SSTab1.Tab = 1;
        x.SSTab2.Tab = 0;
        x.ValidaFormulario();
        EXPECT_FALSE(leerMens().isEmpty());
        EXPECT_EQ(x.SSTab1.Tab, 0);
        EXPECT_EQ(x.SSTab2.Tab, 2);
    }

    f.SSTab1.Tab = 0;
    f.SSTab4.TabEnabled[1] = true;
    formulario();
    EXPECT_EQ(f.SSTab1.Tab, 3);
    EXPECT_EQ(f.SSTab4.Tab, 1);
}

TEST_F(Validacion, PerdidasDeLaDeclaracionCuentan)
{
    ejecutar(QStringLiteral("INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe)"
                            " VALUES (6, ?, '202605', '0931', '2024', '5000')"),
             {DatosDemo::kRucAndina});
    f.SSTab4.TabEnabled[1] = true;
    caja(f, 108, "5,000");
    EXPECT_EQ(formulario(), QStringList());
    EXPECT_EQ(f.grdPerdidaTributaria, (QVector<QPair<QString, QString>>{{QStringLiteral("2024"), QStringLiteral("5000")}}));
    EXPECT_TRUE(completo());
    // A sent copy reads the history rows of its correlative only.
    G().gbEnviada = true;
    G().gsCorrel = QStringLiteral("2");
    EXPECT_FALSE(completo());
    ejecutar(QStringLiteral("INSERT INTO HF0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, CORREL, Anho, Importe)"
                            " VALUES (6, ?, '202605', '0931', '2', '2024', '5000')"),
             {DatosDemo::kRucAndina});
    EXPECT_TRUE(completo());
}

TEST_F(Validacion, DeclaracionQueYaExiste)
{
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO) VALUES (6, ?, '202605', '0931')"),
             {DatosDemo::kRucAndina});
    f.SSTab1.Tab = 2;
    const QString ya = QStringLiteral("La declaración que desea registrar ya existe  al 30 de Abril . "
                                      "Elija la opción modificar declaración o elija otro contribuyente.");
    EXPECT_EQ(formulario(), QStringList{ya});
    EXPECT_EQ(f.SSTab1.Tab, 0);
    EXPECT_EQ(f.foco, QStringLiteral("CmbRuc"));
    // Only a new declaration whose payment block is still open is asked.
    f.OptInicio.b[0].Enabled = false;
    EXPECT_EQ(formulario(), QStringList());
    f.OptInicio.b[0].Enabled = true;
    f.miModo = 1;
    EXPECT_EQ(formulario(), QStringList());
}

// The message file must be complete when a RUC check stops the pass.
class RespondedorQueLee : public RespondedorGuion {
public:
    int MsgBox(const QString& texto, int flags, const QString& titulo) override
    {
        archivoAlMostrar << leerMens();
        return RespondedorGuion::MsgBox(texto, flags, titulo);
    }
    QList<QStringList> archivoAlMostrar;
};

TEST_F(Validacion, RucsAlFinalParanConUnCuadro)
{
    const struct { Preparar preparar; QString texto; int casilla; } casos[] = {
        {cajas({{208, "20500004560"}, {226, "20100001234"}}), kRucNoValido, 208},   // first stop only
        {cajas({{208, "20100001234"}}), kRucIgual, 208},
        {[](Frm931& x) { x.cboTipDocRepLegal.ListIndex = 2; caja(x, 226, "20500004560"); }, kRucNoValido, 226},
        {cajas({{226, "20100001234"}}), kRucIgual, 226},
    };
    for (const auto& c : casos) {
        Frm931 x;
        declaracionBuena(x);
        cajas({{209, "05"}, {211, "1"}, {478, "10"}})(x);
        c.preparar(x);
        RespondedorQueLee r;
        instalarRespondedor(&r);
        x.ValidaFormulario();
        instalarRespondedor(&familia.respondedor());
        ASSERT_EQ(r.mostrados.size(), 1);
        EXPECT_EQ(r.mostrados[0].texto, c.texto);
        EXPECT_EQ(r.mostrados[0].titulo, x.Caption);
        EXPECT_EQ(r.archivoAlMostrar[0], QStringList{k477});
        EXPECT_TRUE(x.marco(QStringLiteral("frame1(5)")).Visible);
        EXPECT_EQ(x.SSTab1.Tab, 3);
        EXPECT_EQ(x.SSTab4.Tab, 0);
        EXPECT_EQ(x.foco, Frm931::nombreCasilla(c.casilla));
    }
    // With no taxpayer, an empty 208 is not "the taxpayer's RUC".
    f.CmbRuc.ListIndex = -1;
    caja(f, 226, "12345678");
    f.ValidaFormulario();
    EXPECT_TRUE(cuadros().isEmpty());
}

TEST_F(Validacion, Casilla225TomaElTipoDelRepresentante)
{
    caja(f, 225, "06");
    f.cboTipDocRepLegal.ListIndex = 1;
    f.ValidaFormulario();
    EXPECT_EQ(f.txt(225), QStringLiteral("01"));
    f.cboTipDocRepLegal.ListIndex = -1;
    EXPECT_TRUE(completo());
    EXPECT_EQ(f.txt(225), QString());
}

// ------------------------------------------------------------------ the two helpers

TEST_F(Validacion, ValidaPeriodoDesdeElPrimeroDeEsteAnio)
{
    const struct { const char* fecha; bool ok; } casos[] = {
        {"__/__/____", false}, {"1_/03/2026", false}, {"00/00/0000", false}, {"31/12/2025", false},
        {"01/01/2026", true},  {"15/03/2026", true},  {"15/03/2030", true},  {"15/13/2026", false},
        {"15/00/2026", false}};
    for (const auto& c : casos)
        EXPECT_EQ(f.ValidaPeriodo(QString::fromLatin1(c.fecha)), c.ok) << c.fecha;
}

// The pass only ever asks with its message.
TEST_F(Validacion, ParExcluyente)
{
    const struct { const char *a, *b, *c; const char* mensaje; } casos[] = {
        {"", "", "", ""}, {" ", "", "", ""}, {"5", "5", "", ""}, {"5", "", "7", ""},
        {"5", "", " ", "Ingrese valor en las casillas 500 y (501 o 502)"},
        {"5", "6", "7", "Solo debe Ingresar valor en una de las dos casillas (501 o 502)"},
    };
    for (const auto& c : casos) {
        cajas({{500, c.a}, {501, c.b}, {502, c.c}})(f);
        G().giError = 0;
        G().gsMensaje = QStringLiteral("antes");
        bool ok = *c.mensaje != 0;   // the opposite of the answer expected
        f.ValidaParExcluyente(500, 501, true, 502, ok);
        EXPECT_EQ(ok, !*c.mensaje) << c.a << "|" << c.b << "|" << c.c;
        EXPECT_EQ(G().giError, *c.mensaje ? 1 : 0);
        EXPECT_EQ(G().gsMensaje, *c.mensaje ? QString::fromUtf8(c.mensaje) : QStringLiteral("antes"));
    }
}

}  // namespace
