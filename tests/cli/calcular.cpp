// `f931 calcular`: declarations of the regimes and rule periods the window's scenarios leave
// out (the agrarian and the Amazonian zone 1 tax of 2026 are read there), typed by the command.
#include "cli/proceso.h"

#include <QJsonArray>
#include <gtest/gtest.h>

namespace {

// Runs the command on an input written to a file of the family folder.
Corrida calcular(const QString& entrada, const char* hoy = "2026-11-22")
{
    return f931(QStringList{QStringLiteral("calcular")} + comunes(G().gsBaseDatos, DatosDemo::kContador, QString::fromLatin1(hoy))
                << escribirArchivo(entrada.toUtf8()));
}

// Sales of 100,000 and nothing else: every regime's tax reads straight off its rate.
const char* kVentas = R"("461": "100000")";

struct Caso {
    const char* nombre;
    const char* hoy;
    const char* casillas;        // the answers, the sales are added
    const char* periodo;
    const char* tasa;
    const char* sistema;
    const char* presentacion;
    QMap<QString, QString> esperadas;
};

class Regimenes : public ::testing::TestWithParam<Caso> {
protected:
    FamiliaPrueba familia;
};

TEST_P(Regimenes, LaDeclaracionTecleadaDaElImpuestoYElCoeficiente)
{
    const Caso& c = GetParam();
    const QString entrada = QStringLiteral(R"({"ruc": "%1", "casillas": {"028": "4445555", %2, %3}})")
                                .arg(DatosDemo::kRucAndina, QString::fromUtf8(c.casillas), QString::fromUtf8(kVentas));
    const Corrida r = calcular(entrada, c.hoy);
    ASSERT_EQ(r.codigo, 0) << r.error();
    EXPECT_TRUE(r.errores.isEmpty()) << r.error();
    EXPECT_EQ(r.json().value(QStringLiteral("periodo")).toString(), QString::fromLatin1(c.periodo));
    EXPECT_EQ(r.json().value(QStringLiteral("tasa")).toString(), QString::fromLatin1(c.tasa));
    EXPECT_EQ(r.json().value(QStringLiteral("sistema")).toString(), QString::fromUtf8(c.sistema));
    EXPECT_EQ(r.json().value(QStringLiteral("presentacion")).toString(), QString::fromUtf8(c.presentacion));
    const QJsonObject casillas = r.json().value(QStringLiteral("casillas")).toObject();
    EXPECT_EQ(casillas.size(), 109);
    for (auto it = c.esperadas.begin(); it != c.esperadas.end(); ++it)
        EXPECT_EQ(casillas.value(it.key()).toString(), it.value()) << "casilla " << it.key().toStdString();
}

const char* kPagoJulio = R"("605": "0", "606": "0", "607": "0", "608": "1")";

INSTANTIATE_TEST_SUITE_P(
    Calcular, Regimenes,
    ::testing::Values(
        Caso{"GeneralJuridica2026", "2026-11-22", R"("056": "4", "813": "0", "605": "0", "606": "0", "607": "0", "608": "1")",
             "202608", "29.5", "", "",
             {{"463", "100,000"}, {"110", "100,000"}, {"113", "29,500"}, {"610", "0.2950"}, {"531", ""}}},
        Caso{"GeneralNatural2026Abril", "2026-11-22", R"("056": "4", "813": "1", "605": "0", "606": "1", "607": "1", "608": "0")",
             "202605", "30", "", "", {{"113", "30,000"}, {"610", "0.3000"}}},
        Caso{"General2016", "2016-09-10", R"("056": "4", "813": "0", "605": "0", "606": "0", "607": "0", "608": "1")",
             "201608", "28", "", "", {{"113", "28,000"}, {"610", "0.2800"}}},
        // Before 2013 a profit in the previous year fixes the June balance and system A.
        Caso{"General2012SistemaA", "2012-11-22", R"("056": "4", "813": "0", "605": "0", "606": "0", "607": "0", "608": "1")",
             "201206", "30", "A", "Vencimiento del periodo 12", {{"113", "30,000"}, {"610", "0.3000"}}},
        Caso{"General2012SistemaB", "2012-11-22", R"("056": "4", "813": "0", "605": "0", "606": "0", "607": "1", "608": "0")",
             "201201", "30", "B", "Vencimiento del periodo 06", {{"113", "30,000"}, {"610", "30.00"}}},
        Caso{"AmazoniaZona2", "2026-11-22",
             R"("056": "2", "810": "1", "860": "1", "811": "1", "812": "250101", "605": "0", "606": "0", "607": "0", "608": "1")",
             "202608", "5", "", "", {{"113", "5,000"}, {"610", "0.0500"}}},
        Caso{"Frontera", "2026-11-22",
             R"("056": "3", "601": "1", "602": "1", "603": "240101", "605": "0", "606": "0", "607": "0", "608": "1")",
             "202608", "10", "", "", {{"113", "10,000"}, {"610", "0.1000"}}},
        Caso{"ConvenioConImpuestoTecleado", "2026-11-22",
             R"("056": "6", "804": "1", "224": "12345", "113": "12000", "605": "0", "606": "0", "607": "0", "608": "1")",
             "202608", "", "", "", {{"113", "12,000"}, {"610", "0.1200"}}},
        // MYPE: two brackets of 15 UIT (5,500 in 2026); the projection of the seven months.
        Caso{"Mype", "2026-11-22",
             R"("056": "8", "813": "0", "605": "0", "606": "0", "607": "0", "608": "1", "251": "1000", "252": "500")",
             "202608", "", "", "",
             {{"113", "13,413"}, {"610", "0.1341"}, {"250", "34,484"}, {"251", "(1,000)"}, {"252", "(500)"}, {"253", "32,984"}}}),
    [](const ::testing::TestParamInfo<Caso>& i) { return std::string(i.param.nombre); });

// The annex of 477 gives the total and the parts; the messages of the run are listed in order.
TEST(CalcularSalida, ElAnexoYLosMensajesSalenEnLaRespuesta)
{
    FamiliaPrueba familia;
    const Corrida r = calcular(
        QStringLiteral(R"({"ruc": "20100001234", "casillas": {"056": "4", "813": "0", "605": "0", "606": "0", "607": "0",
                       "608": "1", "461": "100000", "432": "7000", "433": "3000", "481": "50", "483": "20"}})"));
    ASSERT_EQ(r.codigo, 0) << r.error();
    const QJsonObject c = r.json().value(QStringLiteral("casillas")).toObject();
    EXPECT_EQ(c.value(QStringLiteral("477")).toString(), QStringLiteral("10,000"));
    EXPECT_EQ(c.value(QStringLiteral("432")).toString(), QStringLiteral("7,000"));
    EXPECT_EQ(c.value(QStringLiteral("433")).toString(), QStringLiteral("3,000"));
    // 481 and 483 exclude each other: the question is answered with its default button (OK),
    // which empties 481 and keeps 483.
    const QJsonArray mensajes = r.json().value(QStringLiteral("mensajes")).toArray();
    ASSERT_FALSE(mensajes.isEmpty());
    const QJsonObject m = mensajes.first().toObject();
    EXPECT_TRUE(m.value(QStringLiteral("texto")).toString().startsWith(QStringLiteral("Las casillas 483 y 481 son excluyentes")));
    EXPECT_EQ(m.value(QStringLiteral("boton")).toInt(), 1);
    EXPECT_EQ(c.value(QStringLiteral("481")).toString(), QString());
    EXPECT_EQ(c.value(QStringLiteral("483")).toString(), QStringLiteral("(20)"));
}

}  // namespace
