// `f931 calcular`: declarations of each regime and of both rule periods, typed by the command,
// and the inputs it must refuse.
#include "comun/base_prueba.h"
#include "shell/globales.h"

#include "rutas_prueba.h"
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct Corrida {
    int codigo = -1;
    QByteArray salida;
    QStringList errores;   // non-empty lines of standard error
    QJsonObject json;
};

// Runs the command on an input written to a file of the family folder.
Corrida calcular(const QString& entrada, const QStringList& opciones)
{
    static int contador = 0;
    const QString archivo = G().gsPathSys + QStringLiteral("entrada%1.json").arg(++contador);
    QFile f(archivo);
    f.open(QIODevice::WriteOnly);
    f.write(entrada.toUtf8());
    f.close();
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), G().gsPathTmp);
    p.setProcessEnvironment(env);
    QFile::setPermissions(G().gsPathTmp, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    p.start(QStringLiteral(F931_BIN_F931), QStringList{QStringLiteral("calcular")} + opciones + QStringList{archivo});
    p.waitForFinished(60000);
    Corrida c;
    c.codigo = p.exitCode();
    c.salida = p.readAllStandardOutput();
    for (const QString& l : QString::fromUtf8(p.readAllStandardError()).split(QLatin1Char('\n')))
        if (!l.trimmed().isEmpty())
            c.errores << l;
    c.json = QJsonDocument::fromJson(c.salida).object();
    return c;
}

QStringList opcionesDe(const QString& hoy)
{
    return {QStringLiteral("--base"), G().gsBaseDatos, QStringLiteral("--usuario"), DatosDemo::kContador,
            QStringLiteral("--hoy"), hoy};
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
    const Corrida r = calcular(entrada, opcionesDe(QString::fromLatin1(c.hoy)));
    ASSERT_EQ(r.codigo, 0) << r.errores.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(r.errores.isEmpty()) << r.errores.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(r.json.value(QStringLiteral("periodo")).toString(), QString::fromLatin1(c.periodo));
    EXPECT_EQ(r.json.value(QStringLiteral("tasa")).toString(), QString::fromLatin1(c.tasa));
    EXPECT_EQ(r.json.value(QStringLiteral("sistema")).toString(), QString::fromUtf8(c.sistema));
    EXPECT_EQ(r.json.value(QStringLiteral("presentacion")).toString(), QString::fromUtf8(c.presentacion));
    const QJsonObject casillas = r.json.value(QStringLiteral("casillas")).toObject();
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
        Caso{"Agrario", "2026-11-22", R"("056": "1", "200": "20260315", "605": "0", "606": "0", "607": "0", "608": "1")",
             "202608", "15", "", "", {{"113", "15,000"}, {"610", "0.1500"}}},
        Caso{"AmazoniaZona1", "2026-11-22",
             R"("056": "2", "809": "1", "860": "1", "811": "0", "812": "160101", "605": "0", "606": "0", "607": "0", "608": "1")",
             "202608", "10", "", "", {{"113", "10,000"}, {"610", "0.1000"}}},
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
             R"("056": "8", "813": "0", "605": "0", "606": "0", "607": "0", "608": "1", "251": "-1000", "252": "500")",
             "202608", "", "", "",
             {{"113", "13,413"}, {"610", "0.1341"}, {"250", "34,484"}, {"251", "(1,000)"}, {"252", "(500)"}, {"253", "32,984"}}}),
    [](const ::testing::TestParamInfo<Caso>& i) { return std::string(i.param.nombre); });

class EntradaMala : public ::testing::TestWithParam<std::tuple<const char*, const char*, const char*>> {
protected:
    FamiliaPrueba familia;
};

// Each refusal: exit 2, one line on standard error that names the problem, nothing on output.
TEST_P(EntradaMala, SaleConDosYUnaLinea)
{
    const auto& [nombre, entrada, fragmento] = GetParam();
    (void)nombre;
    const Corrida r = calcular(QString::fromUtf8(entrada), opcionesDe(QStringLiteral("2026-11-22")));
    EXPECT_EQ(r.codigo, 2);
    ASSERT_EQ(r.errores.size(), 1) << r.errores.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(r.errores.first().contains(QString::fromUtf8(fragmento))) << r.errores.first().toStdString();
    EXPECT_TRUE(r.salida.trimmed().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Calcular, EntradaMala,
    ::testing::Values(
        std::make_tuple("JsonMalFormado", R"({"ruc": "20100001234", "casillas": {"461": )", "JSON mal formado"),
        std::make_tuple("CodigoDesconocido", R"({"ruc": "20100001234", "casillas": {"999": "1"}})", "casilla desconocida: 999"),
        std::make_tuple("ContribuyenteDeOtroUsuario", R"({"ruc": "20600007891", "casillas": {}})", "20600007891"),
        std::make_tuple("CasillaCalculada", R"({"ruc": "20100001234", "casillas": {"056": "4", "463": "5"}})",
                        "casilla 463 está bloqueada"),
        std::make_tuple("AsistenteSinPartes", R"({"ruc": "20100001234", "casillas": {"056": "4", "477": "5"}})",
                        "477"),
        std::make_tuple("RegimenDesconocido", R"({"ruc": "20100001234", "casillas": {"056": "7"}})", "056"),
        std::make_tuple("NumeroFueraDeRango", R"({"ruc": "20100001234", "casillas": {"461": 1e300}})",
                        "la casilla 461 lleva un número fuera de rango")),
    [](const auto& i) { return std::string(std::get<0>(i.param)); });

TEST(CalcularOpciones, UnaFechaMalEscritaSeRechaza)
{
    FamiliaPrueba familia;
    const Corrida r = calcular(QStringLiteral(R"({"ruc": "20100001234"})"),
                               {QStringLiteral("--base"), G().gsBaseDatos, QStringLiteral("--hoy"), QStringLiteral("2026-02-30")});
    EXPECT_EQ(r.codigo, 2);
    ASSERT_EQ(r.errores.size(), 1);
    EXPECT_TRUE(r.errores.first().contains(QStringLiteral("--hoy")));
}

// The annex of 477 gives the total and the parts; the messages of the run are listed in order.
TEST(CalcularSalida, ElAnexoYLosMensajesSalenEnLaRespuesta)
{
    FamiliaPrueba familia;
    const Corrida r = calcular(
        QStringLiteral(R"({"ruc": "20100001234", "casillas": {"056": "4", "813": "0", "605": "0", "606": "0", "607": "0",
                       "608": "1", "461": "100000", "432": "7000", "433": "3000", "481": "50", "483": "-20"}})"),
        opcionesDe(QStringLiteral("2026-11-22")));
    ASSERT_EQ(r.codigo, 0) << r.errores.join(QLatin1Char('\n')).toStdString();
    const QJsonObject c = r.json.value(QStringLiteral("casillas")).toObject();
    EXPECT_EQ(c.value(QStringLiteral("477")).toString(), QStringLiteral("10,000"));
    EXPECT_EQ(c.value(QStringLiteral("432")).toString(), QStringLiteral("7,000"));
    EXPECT_EQ(c.value(QStringLiteral("433")).toString(), QStringLiteral("3,000"));
    // 481 and 483 exclude each other: the question is answered with its default button (OK),
    // which empties 481 and keeps 483.
    const QJsonArray mensajes = r.json.value(QStringLiteral("mensajes")).toArray();
    ASSERT_FALSE(mensajes.isEmpty());
    const QJsonObject m = mensajes.first().toObject();
    EXPECT_TRUE(m.value(QStringLiteral("texto")).toString().startsWith(QStringLiteral("Las casillas 483 y 481 son excluyentes")));
    EXPECT_EQ(m.value(QStringLiteral("boton")).toInt(), 1);
    EXPECT_EQ(c.value(QStringLiteral("481")).toString(), QString());
    EXPECT_EQ(c.value(QStringLiteral("483")).toString(), QStringLiteral("(20)"));
}

}  // namespace
