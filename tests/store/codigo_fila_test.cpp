// Row check code: the two sums, the texts by value type, the 16-bit product and the schema
// positions the code depends on.
#include "comun/base_prueba.h"

#include "basic/errores.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QDate>
#include <QSqlRecord>
#include <gtest/gtest.h>

namespace {

struct CasoCodigo {
    const char* nombre;
    QVariantList valores;   // every column, the last one standing for cNumero
    int claves;
    const char* esperado;
};

void PrintTo(const CasoCodigo& c, std::ostream* os) { *os << c.nombre; }

class CodigoFilaCasos : public ::testing::TestWithParam<CasoCodigo> {};

TEST_P(CodigoFilaCasos, DaElCodigoEsperado)
{
    const CasoCodigo& c = GetParam();
    EXPECT_EQ(CodigoFila(c.valores, c.claves).toStdString(), c.esperado);
}

const QVariant kNulo;

// A = sum of the key values; B = sum of char code x position over the other columns.
INSTANTIATE_TEST_SUITE_P(
    Tabla, CodigoFilaCasos,
    ::testing::Values(
        // A = 6 + 20100001234 + 202605 + 931 + 0 + 100 = 20100204876; B = "1500" 491 + "01" 146.
        CasoCodigo{"fila_det_conocida",
                   {6, "20100001234", "202605", "0931", 0, "100", "1500", "01", kNulo}, 6, "876637"},
        // A number column adds the codes of its digits, not its value.
        CasoCodigo{"numero_suma_codigos_de_cifras",
                   {6, "20100001234", "202605", "0931", 0, "100", 1500, "01", kNulo}, 6, "876637"},
        // Str(0.5) is " .5": ".5" gives 46 + 53 x 2.
        CasoCodigo{"double_fraccion_como_str", {"1", 0.5, kNulo}, 1, "001152"},
        // "1e3" reads 1000 (not 1, not 0); "12e1" reads 120.
        CasoCodigo{"exponente_en_clave", {"1e3", "5", kNulo}, 2, "005000"},
        CasoCodigo{"exponente_distinto_de_cero", {"12e1", "5", kNulo}, 2, "125000"},
        CasoCodigo{"clave_no_numerica_cuenta_cero", {"ABC", "5", kNulo}, 2, "005000"},
        CasoCodigo{"claves_decimales_redondean", {1.5, "2", kNulo}, 2, "004000"},
        // A negative sum gives its last three digits; one of sixteen digits keeps fifteen
        // significant ones, as the picture of twenty zeros writes it.
        CasoCodigo{"suma_negativa", {"-1234", "5", kNulo}, 1, "234053"},
        CasoCodigo{"suma_de_dieciseis_cifras", {"1000000000001234", "5", kNulo}, 1, "230053"},
        CasoCodigo{"fecha_como_aaaammdd", {"1", QDate(2026, 11, 22), kNulo}, 1, "001801"},
        CasoCodigo{"nulo_es_vacio", {"1", kNulo, kNulo}, 1, "001000"},
        CasoCodigo{"texto_recortado", {"1", "  AB  ", kNulo}, 1, "001197"},
        CasoCodigo{"euro_con_su_codigo_ansi", {"1", QStringLiteral("\u20AC"), kNulo}, 1, "001128"},
        // 163 characters of code 200: the largest product is 32600, still 16-bit.
        CasoCodigo{"producto_al_limite", {"1", QString(163, QChar(200)), kNulo}, 1, "001200"},
        // cNumero last: its own value never counts...
        CasoCodigo{"cnumero_ultimo", {6, "X", "AB", "123456"}, 2, "006197"},
        // ...but with another column after it, cNumero counts and that column doesn't.
        CasoCodigo{"columna_tras_cnumero", {6, "X", "AB", "000000", "Z"}, 2, "006205"}),
    [](const ::testing::TestParamInfo<CasoCodigo>& i) { return std::string(i.param.nombre); });

TEST(CodigoFila, DesbordaConDoscientosCaracteresDeCodigo200)
{
    const QVariantList fila = {"1", QString(200, QChar(200)), kNulo};
    try {
        CodigoFila(fila, 1);
        FAIL() << "debió desbordar";
    } catch (const ErrorVB& e) {
        EXPECT_EQ(e.numero, kErrDesbordamiento);
    }
}

class CodigoFilaTabla : public PruebaConBase {};

// A DATE column comes back from the engine as the text "2026-11-21": the code of the stored
// row counts it as the date it is, and a sealed row carries that code.
TEST_F(CodigoFilaTabla, LaFechaGuardadaCuentaComoFecha)
{
    ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, FEC_ENV, NORDEN)"
                            " VALUES (6, ?, '202608', '0931', '1', '2026-11-21', '123456789')"),
             {DatosDemo::kRucAndina});
    const qint64 fila = escalar(QStringLiteral("SELECT rowid FROM HCAB")).toLongLong();
    sellarFila(QStringLiteral("HCAB"), fila, 6);
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM HCAB"));
    ASSERT_TRUE(q.next());
    QVariantList valores;
    for (int i = 0; i < q.record().count(); ++i)
        valores << (q.record().fieldName(i) == QLatin1String("FEC_ENV") ? QVariant(QDate(2026, 11, 21)) : q.value(i));
    EXPECT_EQ(q.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(valores, 6));
    EXPECT_EQ(CodigoFila(q.record(), 6), CodigoFila(valores, 6));
    EXPECT_EQ(codigoFilaGuardada(QStringLiteral("HCAB"), fila, 6), CodigoFila(valores, 6));
}

// The code walks columns by position: cNumero must close these tables.
TEST_F(CodigoFilaTabla, CNumeroEsLaUltimaColumna)
{
    for (const char* tabla : {"CAB", "DET", "HCAB", "HDET", "F0931_PTCEA", "HF0931_PTCEA"}) {
        const QSqlRecord r = gdbBase().record(QString::fromLatin1(tabla));
        ASSERT_GT(r.count(), 0) << tabla;
        EXPECT_EQ(r.fieldName(r.count() - 1).toLower(), QStringLiteral("cnumero")) << tabla;
    }
    // Key columns as the codes count them: 5 in CAB and F0931_PTCEA, 6 in HCAB and DET.
    EXPECT_EQ(gdbBase().record(QStringLiteral("CAB")).fieldName(4).toUpper(), QStringLiteral("SEMANA"));
    EXPECT_EQ(gdbBase().record(QStringLiteral("F0931_PTCEA")).fieldName(4).toUpper(), QStringLiteral("ANHO"));
    EXPECT_EQ(gdbBase().record(QStringLiteral("HCAB")).fieldName(5).toUpper(), QStringLiteral("CORREL"));
    EXPECT_EQ(gdbBase().record(QStringLiteral("DET")).fieldName(5).toUpper(), QStringLiteral("CASILLA"));
    // The taxpayer list reads CONT by ordinal.
    const QSqlRecord cont = gdbBase().record(QStringLiteral("CONT"));
    EXPECT_EQ(cont.fieldName(1).toUpper(), QStringLiteral("DOC_ID_D"));
    EXPECT_EQ(cont.fieldName(3).toUpper(), QStringLiteral("NOMBRE"));
}

}  // namespace
