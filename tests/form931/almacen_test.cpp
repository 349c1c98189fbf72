// Single casilla values to and from DET: the picture each one is stored with, the values that
// make no row, and where a stored value lands on the form.
#include "grabacion_comun.h"

#include "basic/reloj.h"
#include "store/funciones.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <gtest/gtest.h>

using namespace prueba931;

namespace {

const QString kRuc = DatosDemo::kRucAndina;

class Almacen : public PruebaConBase {};

QVariant idcasilla(const QString& casilla, const QString& periodo)
{
    return escalar(QStringLiteral("SELECT idcasilla FROM DET WHERE DOC_ID_D=? AND PERIODO=? AND CASILLA=?"),
                   {kRuc, periodo, casilla});
}

// ---------------------------------------------------------------------------- writing

struct CasoGrabar {
    const char* casilla;
    const char* valor;
    const char* periodo;
    const char* sistema;    // G().gsSistema
    const char* guardado;   // nullptr: no row
};

void PrintTo(const CasoGrabar& c, std::ostream* os)
{
    *os << c.casilla << " '" << c.valor << "' " << c.periodo << " " << c.sistema;
}

class GrabarCasilla : public PruebaConBase, public ::testing::WithParamInterface<CasoGrabar> {};

TEST_P(GrabarCasilla, GuardaConLaMascaraDeSuCasilla)
{
    const CasoGrabar& c = GetParam();
    G().gsSistema = QString::fromUtf8(c.sistema);
    Frm931 frm;
    frm.pGrabaCasilla(QString::fromLatin1(c.casilla), QString::fromUtf8(c.valor), kRuc, QString::fromLatin1(c.periodo));
    const QMap<QString, QString> det = mapaDet(kRuc, QString::fromLatin1(c.periodo));
    if (!c.guardado) {
        EXPECT_TRUE(det.isEmpty()) << det.value(QString::fromLatin1(c.casilla)).toStdString();
        return;
    }
    ASSERT_EQ(det.size(), 1);
    EXPECT_EQ(det.value(QString::fromLatin1(c.casilla)).toStdString(), c.guardado);
}

INSTANTIATE_TEST_SUITE_P(
    Mascaras, GrabarCasilla,
    ::testing::Values(
        // Amounts lose their separators; a subtractive amount is stored negative.
        CasoGrabar{"107", "(70)", "202608", "", "-70"},
        CasoGrabar{"105", "(1,234)", "202608", "", "-1234"},
        CasoGrabar{"500", "1,234,567", "202608", "", "1234567"},
        CasoGrabar{"555", "(1,234)", "202608", "", "-1234"},
        CasoGrabar{"467", "0", "202608", "", "0"},
        // Texts that are no number pass the picture unchanged; digits lose leading zeros.
        CasoGrabar{"801", "COMERCIAL ANDIN", "202608", "", "COMERCIAL ANDIN"},
        CasoGrabar{"028", "044556677", "202608", "", "44556677"},
        // The casillas stored as they stand keep their zeros and their separators.
        CasoGrabar{"209", "05", "202608", "", "05"},
        CasoGrabar{"225", "01", "202608", "", "01"},
        CasoGrabar{"226", "00123456", "202608", "", "00123456"},
        CasoGrabar{"211", "0012-A", "202608", "", "0012-A"},
        CasoGrabar{"224", "00012345", "202608", "", "00012345"},
        CasoGrabar{"200", "20260310", "202608", "", "20260310"},
        CasoGrabar{"721", "1.6", "202608", "", "1.6"},
        CasoGrabar{"611", "1", "202608", "", "1"},
        CasoGrabar{"612", "0012345678901", "202608", "", "0012345678901"},
        CasoGrabar{"613", "15/05/2024", "202608", "", "15/05/2024"},
        // The coefficient: by the payment system before 2013, always four decimals after.
        CasoGrabar{"610", "0.3333", "201206", "A", "0.3333"},
        CasoGrabar{"610", "33.33", "201206", "B", "33.33"},
        CasoGrabar{"610", "33.335", "201206", "B", "33.34"},
        CasoGrabar{"610", "0.3333", "201206", "", "0"},
        CasoGrabar{"610", "0.3333", "201206", "0", "0"},
        CasoGrabar{"610", "0.1122", "201308", "B", "0.1122"},
        CasoGrabar{"610", "1,234.5", "202608", "", "1234.5000"},
        // Values that make no row.
        CasoGrabar{"500", "", "202608", "", nullptr},
        CasoGrabar{"500", " ", "202608", "", nullptr},
        CasoGrabar{"500", "   ", "202608", "", nullptr},
        CasoGrabar{"028", "\t", "202608", "", nullptr},
        CasoGrabar{"028", "\n", "202608", "", nullptr},
        CasoGrabar{"028", "\r", "202608", "", nullptr},
        CasoGrabar{"200", "________", "202608", "", nullptr},
        // A tab inside a text is a value.
        CasoGrabar{"815", "A\tB", "202608", "", "A\tB"}));

TEST_F(Almacen, ElValorVacioDejaLaFilaQueYaHabia)
{
    Frm931 frm;
    frm.pGrabaCasilla(QStringLiteral("500"), QStringLiteral("1,000"), kRuc, QStringLiteral("202608"));
    frm.pGrabaCasilla(QStringLiteral("500"), QString(), kRuc, QStringLiteral("202608"));
    frm.pGrabaCasilla(QStringLiteral("500"), QStringLiteral(" "), kRuc, QStringLiteral("202608"));
    EXPECT_EQ(filasDet(kRuc, QStringLiteral("202608")), (Filas{{QStringLiteral("500"), QStringLiteral("1000")}}));
}

TEST_F(Almacen, UnaSegundaEscrituraCambiaLaFilaSinDuplicarla)
{
    Frm931 frm;
    frm.pGrabaCasilla(QStringLiteral("500"), QStringLiteral("1,000"), kRuc, QStringLiteral("202608"));
    frm.pGrabaCasilla(QStringLiteral("500"), QStringLiteral("2,500"), kRuc, QStringLiteral("202608"));
    EXPECT_EQ(filasDet(kRuc, QStringLiteral("202608")), (Filas{{QStringLiteral("500"), QStringLiteral("2500")}}));
}

TEST_F(Almacen, IdcasillaEsUnoSalvoEnLaCasilla180)
{
    Frm931 frm;
    for (const char* casilla : {"180", "500", "002"})
        frm.pGrabaCasilla(QString::fromLatin1(casilla), QStringLiteral("7"), kRuc, QStringLiteral("202608"));
    EXPECT_EQ(idcasilla(QStringLiteral("180"), QStringLiteral("202608")).toString(), QStringLiteral("00"));
    EXPECT_EQ(idcasilla(QStringLiteral("500"), QStringLiteral("202608")).toString(), QStringLiteral("01"));
    EXPECT_EQ(idcasilla(QStringLiteral("002"), QStringLiteral("202608")).toString(), QStringLiteral("01"));

    // An edited row of 180 keeps whatever it held.
    ejecutar(QStringLiteral("UPDATE DET SET idcasilla='07' WHERE CASILLA='180'"));
    frm.pGrabaCasilla(QStringLiteral("180"), QStringLiteral("8"), kRuc, QStringLiteral("202608"));
    EXPECT_EQ(idcasilla(QStringLiteral("180"), QStringLiteral("202608")).toString(), QStringLiteral("07"));
}

// The check code written is the code of the row as it stands in the table.
TEST_F(Almacen, ElCodigoDeFilaEsElDeLaFilaGuardada)
{
    Frm931 frm;
    frm.pGrabaCasilla(QStringLiteral("500"), QStringLiteral("1,000"), kRuc, QStringLiteral("202608"));
    frm.pGrabaCasilla(QStringLiteral("801"), QStringLiteral("COMERCIAL ANDIN"), kRuc, QStringLiteral("202608"));
    frm.pGrabaCasilla(QStringLiteral("500"), QStringLiteral("3,000"), kRuc, QStringLiteral("202608"));
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM DET"));
    int filas = 0;
    while (q.next()) {
        ++filas;
        const QSqlRecord r = q.record();
        EXPECT_EQ(r.value(QStringLiteral("cNumero")).toString(), CodigoFila(r, 6));
        EXPECT_EQ(r.value(QStringLiteral("cNumero")).toString().size(), 6);
    }
    EXPECT_EQ(filas, 2);
}

// ---------------------------------------------------------------------------- placing

struct CasoPoner {
    const char* casilla;
    const char* valor;
    const char* control;    // a box "TxtValor(n)" or another control of pantalla()
    const char* muestra;
};

void PrintTo(const CasoPoner& c, std::ostream* os)
{
    *os << c.casilla << " '" << c.valor << "' -> " << c.control;
}

class PonerCasilla : public PruebaConBase, public ::testing::WithParamInterface<CasoPoner> {};

TEST_P(PonerCasilla, CadaValorVaASuLugarConSuMascara)
{
    const CasoPoner& c = GetParam();
    G().gsPeriodo = QStringLiteral("2026");
    EntornoSinPantalla entorno;
    Frm931 frm(&entorno);
    frm.Form_Load();
    // As while a declaration is read: the option handlers stand still.
    G().gbCargando = true;
    frm.pPonerCasilla(QString::fromLatin1(c.casilla), QString::fromUtf8(c.valor));
    G().gbCargando = false;
    EXPECT_EQ(pantalla(frm).value(QString::fromLatin1(c.control)).toStdString(), c.muestra);
}

INSTANTIATE_TEST_SUITE_P(
    Mascaras, PonerCasilla,
    ::testing::Values(
        // Subtractive amounts come back between parentheses; "0" stays "0"; 150 is in the list.
        CasoPoner{"107", "-70", "TxtValor(107)", "(70)"},
        CasoPoner{"105", "-1234", "TxtValor(105)", "(1,234)"},
        CasoPoner{"508", "1234", "TxtValor(508)", "(1,234)"},
        CasoPoner{"551", "0", "TxtValor(551)", "0"},
        CasoPoner{"150", "2000", "TxtValor(150)", "(2,000)"},
        // 462 and 464 are not in that list: they come back as plain amounts, with the sign.
        CasoPoner{"462", "-15000", "TxtValor(462)", "-15,000"},
        CasoPoner{"464", "-400000", "TxtValor(464)", "-400,000"},
        // Totals show the sign between parentheses; other boxes the plain picture.
        CasoPoner{"555", "-1234", "TxtValor(555)", "(1,234)"},
        CasoPoner{"543", "1234567", "TxtValor(543)", "1,234,567"},
        CasoPoner{"500", "1234567", "TxtValor(500)", "1,234,567"},
        CasoPoner{"432", "20000", "TxtValor(432)", "20,000"},
        CasoPoner{"610", "0.1122", "TxtValor(610)", "0"},
        // Texts as they stand; the accountant's RUC as bare digits.
        CasoPoner{"209", "05", "TxtValor(209)", "05"},
        CasoPoner{"211", "0012-A", "TxtValor(211)", "0012-A"},
        CasoPoner{"226", "00123456", "TxtValor(226)", "00123456"},
        CasoPoner{"208", "20500004569", "TxtValor(208)", "20500004569"},
        // Items without a box.
        CasoPoner{"028", "4445566", "TxtTelefono", "4445566"},
        CasoPoner{"224", "12345678", "TxtNumOrdenF2305", "12345678"},
        CasoPoner{"200", "20260310", "MkePeriodo", "10/03/2026"},
        CasoPoner{"605", "1", "OptInicio", "1"},
        CasoPoner{"606", "0", "OptPrecedente", "0"},
        CasoPoner{"607", "1", "OptAnterior", "1"},
        CasoPoner{"608", "1", "CboBalance", "31 DE JULIO"},
        CasoPoner{"608", "-1", "CboBalance", ""},
        CasoPoner{"611", "1", "OptSuspPC", "1"},
        CasoPoner{"612", "0012345678901", "txtNumRes", "0012345678901"},
        CasoPoner{"613", "15/05/2024", "mkefecnot", "15/05/2024"},
        CasoPoner{"812", "160101", "TxtUbigeo", "160101"},
        CasoPoner{"603", "240101", "TxtUbigeo2", "240101"},
        CasoPoner{"815", "PEREZ GOMEZ", "TxtNombreA", "PEREZ GOMEZ"},
        CasoPoner{"816", "JUAN", "TxtNombreN", "JUAN"},
        CasoPoner{"817", "RAMOS", "txtApellidoRL", "RAMOS"},
        CasoPoner{"818", "ANA", "txtNombreRL", "ANA"},
        // Ignored items leave the form as it was.
        CasoPoner{"801", "OTRO NOMBRE", "TxtRazon", ""},
        CasoPoner{"609", "A", "LblSistema", ""}));

TEST_F(Almacen, LosValoresDeIdentificacionEsperanEnSusMiembros)
{
    G().gsPeriodo = QStringLiteral("2026");
    EntornoSinPantalla entorno;
    Frm931 frm(&entorno);
    frm.Form_Load();
    G().gbCargando = true;
    const QList<QPair<const char*, QString Frm931::*>> miembros = {
        {"601", &Frm931::msCas601}, {"602", &Frm931::msCas602}, {"802", &Frm931::msCas802},
        {"804", &Frm931::msCas804}, {"809", &Frm931::msCas809}, {"810", &Frm931::msCas810},
        {"811", &Frm931::msCas811}, {"813", &Frm931::msCas813}, {"860", &Frm931::msCas860},
        {"005", &Frm931::msCas805}, {"056", &Frm931::msCas056}};
    int i = 0;
    for (const auto& [casilla, miembro] : miembros) {
        const QString valor = QString::number(++i);
        frm.pPonerCasilla(QString::fromLatin1(casilla), valor);
        EXPECT_EQ((frm.*miembro).toStdString(), valor.toStdString()) << casilla;
    }
    frm.pPonerCasilla(QStringLiteral("871"), QStringLiteral("x"));
    EXPECT_EQ(frm.msCas805, QStringLiteral("x"));
    frm.pPonerCasilla(QStringLiteral("662"), QStringLiteral("3"));
    EXPECT_EQ(G().giTotPerdida, 3);
    // The stored tax is kept raw: the box's own computation overwrites what was put in it,
    // and the identification puts the stored one back.
    frm.pPonerCasilla(QStringLiteral("113"), QStringLiteral("77777"));
    EXPECT_EQ(frm.msCas113, QStringLiteral("77777"));
    G().gbCargando = false;
}

// A number of the family's annual form that has no box here has no place to go.
TEST_F(Almacen, UnaCasillaSinCajaNoRompeLaCarga)
{
    G().gsPeriodo = QStringLiteral("2026");
    EntornoSinPantalla entorno;
    Frm931 frm(&entorno);
    frm.Form_Load();
    const auto antes = pantalla(frm);
    for (const char* casilla : {"117", "430", "301", "999"})
        EXPECT_NO_THROW(frm.pPonerCasilla(QString::fromLatin1(casilla), QStringLiteral("-5")));
    EXPECT_EQ(diferencias(antes, pantalla(frm)).join(QLatin1Char('\n')).toStdString(), "");
}

}  // namespace
