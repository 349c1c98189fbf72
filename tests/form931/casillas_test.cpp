// The boxes while they are edited: pictures on entering and leaving, the exclusive pairs, the
// Enter key's way through the statements, the assistant boxes, help lines, the tab order.
#include "formulario_nuevo.h"

#include <vector>

namespace {

// ------------------------------------------------------------------ pictures

struct CasoFoco {
    int casilla;
    const char* antes;       // as loading leaves it
    const char* conFoco;
    int largoConFoco;
    const char* despues;
    int largoDespues;
};
void PrintTo(const CasoFoco& c, std::ostream* os) { *os << c.casilla << " '" << c.antes << "'"; }

class Pictures : public FormularioNuevo, public ::testing::WithParamInterface<CasoFoco> {};

TEST_P(Pictures, AlEntrarYAlSalir)
{
    const CasoFoco& c = GetParam();
    abrir();
    identificar(0, 0);
    f().setTxt(c.casilla, QString::fromLatin1(c.antes));
    f().darFocoCasilla(c.casilla);
    EXPECT_EQ(t(c.casilla), QString::fromLatin1(c.conFoco));
    EXPECT_EQ(f().caja(c.casilla).MaxLength, c.largoConFoco);
    f().darFoco(QStringLiteral("CmdGrabar"));
    EXPECT_EQ(t(c.casilla), QString::fromLatin1(c.despues));
    EXPECT_EQ(f().caja(c.casilla).MaxLength, c.largoDespues);
}

INSTANTIATE_TEST_SUITE_P(Casillas, Pictures, ::testing::Values(
    CasoFoco{461, "1,234,567", "1234567", 12, "1,234,567", 15},
    CasoFoco{461, "", "", 12, "", 15},
    CasoFoco{461, "0", "0", 12, "0", 15},
    CasoFoco{462, "(1,234)", "1234", 12, "(1,234)", 17},
    CasoFoco{462, "", "", 12, "", 17},
    CasoFoco{462, "0", "0", 12, "0", 17},
    CasoFoco{108, "(30)", "30", 12, "(30)", 17},
    CasoFoco{150, "1,500", "1500", 12, "1,500", 15},
    CasoFoco{103, "2,000", "2000", 15, "2,000", 15},
    CasoFoco{103, "", "", 15, "0", 15},
    CasoFoco{208, "20500004569", "20500004569", 11, "20500004569", 11},
    CasoFoco{211, "0012", "0012", 12, "0012", 12}));

// The assistant boxes hand the focus on however they are left.
TEST_F(FormularioNuevo, LasCasillasAsistidasPasanElFoco)
{
    abrir();
    identificar(0, 0);
    f().darFocoCasilla(473);
    f().darFocoCasilla(461);
    EXPECT_EQ(f().foco, QStringLiteral("TxtValor(475)"));
    f().darFocoCasilla(477);
    f().darFoco(QStringLiteral("CmdValidar"));
    EXPECT_EQ(f().foco, QStringLiteral("TxtValor(478)"));
}

// A digit in 473 or 477 never reaches the box: it opens the annex, whose total comes back.
TEST_F(FormularioNuevo, UnDigitoEn477AbreElAnexo)
{
    abrir();
    identificar(0, 0);
    entorno.partesAnexo[477] = {QStringLiteral("1000"), QStringLiteral("250")};
    f().darFocoCasilla(477);
    f().teclear(477, QStringLiteral("9"));
    EXPECT_EQ(entorno.anexosAbiertos, 1);
    EXPECT_EQ(t(477), QStringLiteral("1,250"));
    EXPECT_EQ(t(432), QStringLiteral("1,000"));
    EXPECT_EQ(t(433), QStringLiteral("250"));
    EXPECT_EQ(t(484), QStringLiteral("1,250"));
    EXPECT_EQ(f().TxtValor_KeyDownTecla(477, 46, 0), 0);   // Delete is dropped there
    f().TxtValor_DblClick(461);
    EXPECT_EQ(entorno.anexosAbiertos, 1);
}

// ------------------------------------------------------------------ exclusive pairs

struct CasoPar {
    const char* nombre;
    int primera;
    const char* textoPrimera;
    int segunda;              // typed after the first
    const char* textoSegunda;
    int respuesta;            // 0: no question expected
    const char* quedaPrimera;
    const char* quedaSegunda;
};
void PrintTo(const CasoPar& c, std::ostream* os) { *os << c.nombre; }

class Pares : public FormularioNuevo, public ::testing::WithParamInterface<CasoPar> {};

TEST_P(Pares, PreguntaYEfecto)
{
    const CasoPar& c = GetParam();
    abrir();
    identificar(0, 0);
    escribir(c.primera, QString::fromLatin1(c.textoPrimera));
    if (c.respuesta)
        responder({c.respuesta});
    escribir(c.segunda, QString::fromLatin1(c.textoSegunda));
    if (c.respuesta) {
        ASSERT_EQ(mensajes().size(), 1);
        const auto& m = familia.respondedor().mostrados.first();
        EXPECT_EQ(m.texto, QStringLiteral("Las casillas %1 y %2 son excluyentes, si desea registrar información en la casilla %1 "
                                          "debe eliminar la información registrada en la %2.").arg(c.segunda).arg(c.primera));
        EXPECT_EQ(m.flags & 7, vbOKCancel);
        EXPECT_EQ(m.titulo, f().Caption);
    } else {
        EXPECT_TRUE(mensajes().isEmpty());
    }
    EXPECT_EQ(t(c.primera), QString::fromLatin1(c.quedaPrimera));
    EXPECT_EQ(t(c.segunda), QString::fromLatin1(c.quedaSegunda));
}

INSTANTIATE_TEST_SUITE_P(Casos, Pares, ::testing::Values(
    CasoPar{"rei_aceptar_vacia_la_otra", 483, "50", 481, "7", vbOK, "", "7"},
    CasoPar{"rei_cancelar_vacia_la_nueva", 483, "50", 481, "7", vbCancel, "(50)", ""},
    CasoPar{"resultados_acumulados", 550, "10", 551, "4", vbOK, "", "(4)"},
    CasoPar{"utilidad_y_perdida", 553, "10", 552, "4", vbCancel, "(10)", ""},
    CasoPar{"un_cero_no_es_importe", 551, "5", 550, "0", 0, "(5)", "0"},
    CasoPar{"colegiaturas_como_texto", 212, "0", 211, "0", vbOK, "", "0"}),
    [](const auto& i) { return std::string(i.param.nombre); });

// ------------------------------------------------------------------ Enter

// Where Enter goes at the end of a block (the walk through the assets is the scenario's).
struct CasoEnter {
    int desde;
    const char* hacia;
};
void PrintTo(const CasoEnter& c, std::ostream* os) { *os << c.desde; }

class Enter : public FormularioNuevo, public ::testing::WithParamInterface<CasoEnter> {};

TEST_P(Enter, LlevaALaSiguiente)
{
    const CasoEnter& c = GetParam();
    abrir();
    identificar(0, 0);
    f().SSTab1.Tab = 1;
    f().SSTab3.Tab = c.desde >= 532 ? 1 : 2;
    f().darFocoCasilla(c.desde);
    f().teclear(c.desde, QStringLiteral("\r"));
    EXPECT_EQ(f().foco, QString::fromLatin1(c.hacia));
}

INSTANTIATE_TEST_SUITE_P(Casillas, Enter, ::testing::Values(
    CasoEnter{542, "TxtValor(544)"}, CasoEnter{553, "TxtValor(532)"}, CasoEnter{490, "CmdValidar"}));

// Tab walks the page in view, skipping what is shut, hidden or on another page.
TEST_F(FormularioNuevo, OrdenDeTabulacionSigueLaPagina)
{
    abrir();
    contribuyente();
    EXPECT_EQ(f().foco, QStringLiteral("TxtTelefono"));
    QStringList recorrido;
    for (int i = 0; i < 4; ++i) {
        f().pTecla(QStringLiteral("TAB"));
        recorrido << f().foco;
    }
    EXPECT_EQ(recorrido, (QStringList{QStringLiteral("optRenta"), QStringLiteral("OptRectifica"),
                                      QStringLiteral("CmdValidar"), QStringLiteral("CmdGrabar")}));
    f().marcar(f().optRenta, 2);
    f().SSTab2.Tab = 1;
    f().darFoco(QStringLiteral("OptUbicAmazonia"));
    f().marcar(f().OptUbicAmazonia, 1);      // shuts the law's question
    f().pTecla(QStringLiteral("TAB"));
    EXPECT_EQ(f().foco, QStringLiteral("OptDomFiscal"));
    f().pTecla(QStringLiteral("TAB"));        // zone and picker stay shut until answered
    EXPECT_EQ(f().foco, QStringLiteral("CmdValidar"));
}

// ------------------------------------------------------------------ help lines and pages

TEST_F(FormularioNuevo, LineasDeAyuda)
{
    abrir();
    f().SSTab1.Tab = 1;
    f().TxtValor_MouseMove(531);
    EXPECT_EQ(f().TxtAyuda1.Caption, QStringLiteral(" +515+516-517+518+519+520+521+522+523-524+525+526-527-528+529+530"));
    EXPECT_EQ(f().TxtAyuda.ForeColor, kAzulAyuda);
    f().TxtValor_MouseMove(467);
    EXPECT_EQ(f().TxtAyuda1.Caption, QStringLiteral("(Si es positivo ‘0’)"));
    f().TxtValor_MouseMove(461);
    EXPECT_EQ(f().TxtAyuda.Caption, QStringLiteral("Anotar los importes en nuevos soles sin considerar céntimos."));
    EXPECT_EQ(f().TxtAyuda.ForeColor, kNegro);
    f().Frame1_MouseMove();
    EXPECT_EQ(f().TxtAyuda.Caption, QStringLiteral("Anotar los importes en nuevos soles sin considerar centimos."));
    f().SSTab1.Tab = 3;
    f().TxtValor_MouseMove(208);
    EXPECT_EQ(f().TxtAyuda1.Caption, QStringLiteral("en los conceptos que le correspondan."));
}

TEST_F(FormularioNuevo, PaginaDePerdidasSigueAl108)
{
    abrir();
    identificar(0, 0);
    EXPECT_FALSE(f().SSTab4.TabEnabled[1]);
    escribir(108, QStringLiteral("30"));
    EXPECT_TRUE(f().SSTab4.TabEnabled[1]);
    EXPECT_TRUE(f().cmdPerdida[2].Enabled);
    escribir(108, QStringLiteral("\b\b0"));
    EXPECT_EQ(t(108), QStringLiteral("0"));
    EXPECT_FALSE(f().SSTab4.TabEnabled[1]);
    EXPECT_FALSE(f().cmdPerdida[0].Enabled);
}

// ------------------------------------------------------------------ RUC of the accountant and representative

struct CasoRuc {
    const char* nombre;
    int casilla;
    const char* tipoDoc;      // beginning of the representative's document line
    const char* ruc;
    QStringList mensajes;
};
void PrintTo(const CasoRuc& c, std::ostream* os) { *os << c.nombre; }

class Ruc : public FormularioNuevo, public ::testing::WithParamInterface<CasoRuc> {};

TEST_P(Ruc, MensajesAlCompletarOnceDigitos)
{
    const CasoRuc& c = GetParam();
    abrir();
    identificar(0, 0);
    f().SSTab1.Tab = 3;
    for (int i = 0; i < f().cboTipDocRepLegal.items.size(); ++i)
        if (*c.tipoDoc && f().cboTipDocRepLegal.items[i].startsWith(QLatin1String(c.tipoDoc)))
            f().elegir(f().cboTipDocRepLegal, i);
    f().darFocoCasilla(c.casilla);
    f().teclear(c.casilla, QString::fromLatin1(c.ruc));
    EXPECT_EQ(mensajes(), c.mensajes);
    EXPECT_EQ(t(c.casilla), QString::fromLatin1(c.ruc)) << "the text stays";
    EXPECT_EQ(f().foco, Frm931::nombreCasilla(c.casilla));
    EXPECT_EQ(f().SSTab1.Tab, 3);
}

const QString kRucMal = QStringLiteral("El RUC no es Válido.");
const QString kRucIgual = QStringLiteral("El RUC no puede ser igual al RUC del Contribuyente.");

INSTANTIATE_TEST_SUITE_P(Casos, Ruc, ::testing::Values(
    CasoRuc{"contador_valido", 208, "", "20500004569", {}},
    CasoRuc{"contador_invalido", 208, "", "20500004560", {kRucMal}},
    CasoRuc{"contador_igual_al_declarante", 208, "", "20100001234", {kRucIgual}},
    CasoRuc{"representante_invalido_minuscula", 226, "06", "20500004560", {QStringLiteral("El RUC no es válido.")}},
    CasoRuc{"representante_con_dni_no_se_prueba", 226, "01", "12345678", {}}),
    [](const auto& i) { return std::string(i.param.nombre); });

}  // namespace
