// Single casilla values to and from DET: the picture each one is stored with, the values that
// make no row, and where a stored value lands on the form.
#include "grabacion_comun.h"

#include "store/funciones.h"

#include <gtest/gtest.h>

using namespace prueba931;

namespace {

const QString kPeriodo = QStringLiteral("202608");

class Almacen : public PruebaConBase {};

// casilla, value, period, payment system, stored i_valor (nullptr: no row).
using CasoGrabar = std::tuple<const char*, const char*, const char*, const char*, const char*>;
class GrabarCasilla : public Almacen, public ::testing::WithParamInterface<CasoGrabar> {};

TEST_P(GrabarCasilla, GuardaConLaMascaraDeSuCasilla)
{
    const auto [casilla, valor, periodo, sistema, guardado] = GetParam();
    G().gsSistema = QString::fromLatin1(sistema);
    Frm931().pGrabaCasilla(QString::fromLatin1(casilla), QString::fromUtf8(valor), DatosDemo::kRucAndina, QString::fromLatin1(periodo));
    const QMap<QString, QString> det = mapaDet(QString::fromLatin1(periodo));
    EXPECT_EQ(det.size(), guardado ? 1 : 0);
    if (guardado)
        EXPECT_EQ(det.value(QString::fromLatin1(casilla)).toStdString(), guardado);
}

INSTANTIATE_TEST_SUITE_P(
    Mascaras, GrabarCasilla,
    ::testing::Values(
        // Amounts lose their separators; a subtractive amount goes negative; a "0" is a row.
        CasoGrabar{"107", "(70)", "202608", "", "-70"}, CasoGrabar{"500", "1,234,567", "202608", "", "1234567"},
        CasoGrabar{"467", "0", "202608", "", "0"},
        // A text that is no number passes the picture; codes (taxpayer, telephone, district) keep
        // their leading zeros.
        CasoGrabar{"801", "COMERCIAL AN", "202608", "", "COMERCIAL AN"}, CasoGrabar{"028", "044556677", "202608", "", "044556677"},
        CasoGrabar{"603", "060101", "202608", "", "060101"}, CasoGrabar{"002", "20100001234", "202608", "", "20100001234"},
        // The casillas stored as they stand.
        CasoGrabar{"209", "05", "202608", "", "05"}, CasoGrabar{"226", "00123456", "202608", "", "00123456"},
        CasoGrabar{"224", "00012345", "202608", "", "00012345"}, CasoGrabar{"612", "0012345678901", "202608", "", "0012345678901"},
        CasoGrabar{"613", "15/05/2024", "202608", "", "15/05/2024"},
        // The coefficient: by the payment system before 2013, four decimals from 2013 on.
        CasoGrabar{"610", "0.3333", "201206", "A", "0.3333"}, CasoGrabar{"610", "33.335", "201206", "B", "33.34"},
        CasoGrabar{"610", "0.3333", "201206", "", "0"}, CasoGrabar{"610", "0.1122", "201308", "B", "0.1122"},
        CasoGrabar{"610", "1,234.5", "202608", "", "1234.5000"},
        // Values that make no row.
        CasoGrabar{"500", "", "202608", "", nullptr}, CasoGrabar{"500", " ", "202608", "", nullptr},
        CasoGrabar{"028", "\t", "202608", "", nullptr}, CasoGrabar{"028", "\r", "202608", "", nullptr},
        CasoGrabar{"200", "________", "202608", "", nullptr}));

TEST_F(Almacen, UnaFilaSeCambiaPeroNoSeBorraNiSeDuplica)
{
    Frm931 frm;
    for (const char* valor : {"1,000", "2,500", "", " "})
        frm.pGrabaCasilla(QStringLiteral("500"), QString::fromLatin1(valor), DatosDemo::kRucAndina, kPeriodo);
    for (const char* casilla : {"180", "002"})
        frm.pGrabaCasilla(QString::fromLatin1(casilla), QStringLiteral("7"), DatosDemo::kRucAndina, kPeriodo);
    EXPECT_EQ(mapaDet(kPeriodo), (QMap<QString, QString>{{QStringLiteral("500"), QStringLiteral("2500")},
                                                         {QStringLiteral("180"), QStringLiteral("7")},
                                                         {QStringLiteral("002"), QStringLiteral("7")}}));
    // idcasilla is "01" but for 180, which keeps what its row holds; every check code is that
    // of the row as it stands.
    ejecutar(QStringLiteral("UPDATE DET SET idcasilla='07' WHERE CASILLA='180'"));
    frm.pGrabaCasilla(QStringLiteral("180"), QStringLiteral("8"), DatosDemo::kRucAndina, kPeriodo);
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM DET ORDER BY CASILLA"));
    QStringList ids;
    while (q.next()) {
        ids << q.record().value(QStringLiteral("idcasilla")).toString();
        EXPECT_EQ(q.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(q.record(), 6));
    }
    EXPECT_EQ(ids, (QStringList{QStringLiteral("01"), QStringLiteral("07"), QStringLiteral("01")}));
}

// casilla, stored value, control of pantalla(), what it shows.
using CasoPoner = std::tuple<const char*, const char*, const char*, const char*>;
class PonerCasilla : public Almacen, public ::testing::WithParamInterface<CasoPoner> {};

TEST_P(PonerCasilla, CadaValorVaASuLugarConSuMascara)
{
    const auto [casilla, valor, control, muestra] = GetParam();
    G().gsPeriodo = QStringLiteral("2026");
    EntornoSinPantalla entorno;
    Frm931 frm(&entorno);
    frm.Form_Load();
    G().gbCargando = true;   // as while a declaration is read: the option handlers stand still
    frm.pPonerCasilla(QString::fromLatin1(casilla), QString::fromUtf8(valor));
    EXPECT_EQ(pantalla(frm).value(QString::fromLatin1(control)).toStdString(), muestra);
}

INSTANTIATE_TEST_SUITE_P(
    Mascaras, PonerCasilla,
    ::testing::Values(
        // Subtractive amounts between parentheses ("0" stays); 150 is in that list, 462 isn't.
        CasoPoner{"107", "-70", "TxtValor(107)", "(70)"}, CasoPoner{"508", "1234", "TxtValor(508)", "(1,234)"},
        CasoPoner{"551", "0", "TxtValor(551)", "0"}, CasoPoner{"150", "2000", "TxtValor(150)", "2,000"},
        CasoPoner{"462", "-15000", "TxtValor(462)", "-15,000"},
        // Totals with the sign between parentheses; every other box the plain picture.
        CasoPoner{"555", "-1234", "TxtValor(555)", "(1,234)"}, CasoPoner{"500", "1234567", "TxtValor(500)", "1,234,567"},
        CasoPoner{"610", "0.1122", "TxtValor(610)", "0"},
        // Texts as they stand; the accountant's RUC as bare digits.
        CasoPoner{"209", "05", "TxtValor(209)", "05"}, CasoPoner{"208", "20500004569", "TxtValor(208)", "20500004569"},
        // Items without a box.
        CasoPoner{"028", "4445566", "TxtTelefono", "4445566"}, CasoPoner{"200", "20260310", "MkePeriodo", "10/03/2026"},
        CasoPoner{"607", "1", "OptAnterior", "1"}, CasoPoner{"608", "1", "CboBalance", "31 DE JULIO"},
        CasoPoner{"608", "-1", "CboBalance", ""}, CasoPoner{"613", "15/05/2024", "mkefecnot", "15/05/2024"},
        CasoPoner{"603", "240101", "TxtUbigeo2", "240101"}, CasoPoner{"818", "ANA", "txtNombreRL", "ANA"},
        // Ignored, and a number of the family's annual form with no box here.
        CasoPoner{"801", "OTRO", "TxtRazon", ""}, CasoPoner{"117", "-5", "TxtValor(117)", ""}));

}  // namespace
