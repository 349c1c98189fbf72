// General functions over the test database: spool counters, a message, user type, document
// rules, the taxpayer list, dates, and the deletion of whole declarations.
#include "comun/base_prueba.h"

#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"
#include "store/param.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

namespace {

class Funciones : public PruebaConBase {};

// ---- spool register -------------------------------------------------------------------------

TEST_F(Funciones, SpoolCuentaPorReporteYArchivoGlobal)
{
    // A fresh database starts both counters at 1; the sequence counts per report, the file
    // number across all of them.
    const char* pasos[][3] = {{"RCP001", "00000001.PRN", "000001"},
                              {"RCP002", "00000002.PRN", "000001"},
                              {"RCP001", "00000003.PRN", "000002"}};
    for (const auto& p : pasos) {
        EXPECT_EQ(pRegistraSpool(QString::fromLatin1(p[0]), 6, DatosDemo::kRucAndina), QString::fromLatin1(p[1]));
        QSqlQuery q = ejecutar(QStringLiteral("SELECT CodRep || '|' || Secuencia || '|' || Usuario || '|' || Tip_doc_d"
                                              " || '|' || doc_id_d, Fecha FROM SPOOL WHERE Archivo=?"),
                               {QString::fromLatin1(p[1])});
        ASSERT_TRUE(q.next()) << p[1];
        EXPECT_EQ(q.value(0).toString(), QStringLiteral("%1|%2|ADMIN|6|%3").arg(p[0], p[2], DatosDemo::kRucAndina));
        EXPECT_FALSE(q.value(1).isNull());
    }
}

TEST_F(Funciones, SpoolSigueAlMayorExistente)
{
    ejecutar(QStringLiteral("INSERT INTO SPOOL (CodRep, Secuencia, Archivo) VALUES (?, ?, ?)"),
             {"RCP001", "000041", "00000099.PRN"});
    EXPECT_EQ(pRegistraSpool(QStringLiteral("RCP001"), 6, DatosDemo::kRucAndina), QStringLiteral("00000100.PRN"));
    EXPECT_EQ(escalar(QStringLiteral("SELECT max(Secuencia) FROM SPOOL")).toString(), QStringLiteral("000042"));
}

// 152 needs no row of the message table.
TEST_F(Funciones, MensajeDeGrabadaConInconsistenciasSinFila)
{
    ejecutar(QStringLiteral("DELETE FROM ERROR"));
    EXPECT_EQ(MensajeError(152), QStringLiteral("La información de la declaración fue grabada con inconsistencias. "
                                                "En estas condiciones no podra ser enviada a TAVEN."));
}

// ---- document rules -------------------------------------------------------------------------

struct CasoDocumento {
    const char* tipo;
    const char* numero;
    bool valido;
    const char* longitud130;   // when set, position 130 of the RUC row is changed first
};

void PrintTo(const CasoDocumento& c, std::ostream* os) { *os << c.tipo << "/" << c.numero; }

class ValidaDocumentoCasos : public PruebaConBase, public ::testing::WithParamInterface<CasoDocumento> {};

TEST_P(ValidaDocumentoCasos, Responde)
{
    const CasoDocumento& c = GetParam();
    if (c.longitud130)
        ejecutar(QStringLiteral("UPDATE PARAM SET Funcion=substr(Funcion,1,129) || ? WHERE Numero='044' AND Argumento='6'"),
                 {QString::fromLatin1(c.longitud130)});
    EXPECT_EQ(ValidaDocumento(QString::fromLatin1(c.tipo), QString::fromLatin1(c.numero)), c.valido);
}

INSTANTIATE_TEST_SUITE_P(
    Tabla, ValidaDocumentoCasos,
    ::testing::Values(
        CasoDocumento{"06", "20100001234", true, nullptr},
        CasoDocumento{"6", "20100001234", true, nullptr},
        CasoDocumento{"06", "2010000123", false, nullptr},     // exact length 11
        CasoDocumento{"06", "2010000123", true, "0"},          // length 11 as a maximum: 10 passes
        CasoDocumento{"06", "201000012345", false, "0"},       // but 12 doesn't
        CasoDocumento{"06", "2010000123A", false, nullptr},    // digits only
        CasoDocumento{"01", "12345678", true, nullptr},
        CasoDocumento{"01", "1234567", false, nullptr},
        CasoDocumento{"04", "ABC123", true, nullptr},          // alphanumeric, up to 12
        CasoDocumento{"04", "ABC1234567890", false, nullptr},
        CasoDocumento{"", "12345678", false, nullptr},
        CasoDocumento{"01", "   ", false, nullptr},
        CasoDocumento{"99", "12345678", false, nullptr}));     // no row in the catalogue

// ---- taxpayer list --------------------------------------------------------------------------

TEST_F(Funciones, ContribuyentesDelAdministradorTodos)
{
    EXPECT_TRUE(sentenciaContribuyentes(QStringLiteral("0931")).valores.isEmpty());
    const QString sep(7, QLatin1Char(' '));
    EXPECT_EQ(pCargaContrib(), (QStringList{DatosDemo::kRucPersona + sep + DatosDemo::kNombrePersona,
                                            DatosDemo::kRucAndina + sep + DatosDemo::kNombreAndina,
                                            DatosDemo::kRucAmazonia + sep + DatosDemo::kNombreAmazonia,
                                            DatosDemo::kRucPacifico + sep + DatosDemo::kNombrePacifico,
                                            DatosDemo::kRucNorte + sep + DatosDemo::kNombreNorte}));
}

TEST_F(Funciones, ContribuyentesDeOtroUsuarioSoloLosSuyos)
{
    familia.comoUsuario(DatosDemo::kContador);
    const Sentencia s = sentenciaContribuyentes(QStringLiteral("0931"));
    EXPECT_EQ(s.valores, QVariantList{DatosDemo::kContador});
    const QStringList items = pCargaContrib();
    ASSERT_EQ(items.size(), 3);   // the DNI row of the same user stays out
    EXPECT_TRUE(items.at(0).startsWith(DatosDemo::kRucPersona));
    EXPECT_TRUE(items.at(1).startsWith(DatosDemo::kRucAndina));
    EXPECT_TRUE(items.at(2).startsWith(DatosDemo::kRucPacifico));

    // A user without a row in CLAVES is of type "1": only its own taxpayers, here none.
    familia.comoUsuario(QStringLiteral("NADIE"));
    EXPECT_EQ(TipoUsuario(), QStringLiteral("1"));
    EXPECT_TRUE(pCargaContrib().isEmpty());
}

TEST_F(Funciones, LongitudExactaDelRucFiltraLaLista)
{
    ejecutar(QStringLiteral("INSERT INTO CONT (TIP_DOC_D, DOC_ID_D, NOMBRE, USUARIO) VALUES (6, ?, ?, ?)"),
             {"2010000123", "RUC CORTO", DatosDemo::kAdmin});
    EXPECT_EQ(pCargaContrib().size(), 5);
    // Without the catalogue row, the constant row holds: length 11 but not exact.
    ejecutar(QStringLiteral("DELETE FROM PARAM WHERE Numero='044' AND Argumento='6'"));
    EXPECT_EQ(pCargaContrib().size(), 6);
}

// ---- dates (today is 22/11/2026) -------------------------------------------------------------

TEST(Fechas, FechaNoFutura)
{
    const struct {
        const char* fecha;
        bool esperado;
    } casos[] = {{"22/11/2026", true}, {"23/11/2026", false}, {"01/12/2026", false}, {"31/10/2026", true},
                 {"01/01/2027", false}, {"30/12/2025", true}};
    for (const auto& c : casos)
        EXPECT_EQ(FechaNoFutura(QString::fromLatin1(c.fecha)), c.esperado) << c.fecha;
}

// ---- deletion of a sent declaration (of a working one: the picker's tests) ----------------

int filas(const char* tabla, const QString& ruc)
{
    return escalar(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tabla) + QStringLiteral(" WHERE DOC_ID_D=?"),
                   {ruc})
        .toInt();
}

TEST_F(Funciones, EliminarDeclaracionEnviadaPorCorrelativo)
{
    for (const char* correl : {"01", "02"}) {
        const QVariantList k = {DatosDemo::kRucAndina, QString::fromLatin1(correl)};
        ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, ESTADO)"
                                " VALUES (6, ?, '202605', '0931', ?, 1)"), k);
        ejecutar(QStringLiteral("INSERT INTO HACTA (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL)"
                                " VALUES (6, ?, '202605', '0931', ?)"), k);
        ejecutar(QStringLiteral("INSERT INTO HF0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, CORREL, Anho)"
                                " VALUES (6, ?, '202605', '0931', ?, '2025')"), k);
        // The box rows go with any type but 0.
        for (int tipo : {6, 1, 0})
            ejecutar(QStringLiteral("INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, CASILLA)"
                                    " VALUES (?, ?, '202605', '0931', ?, ?)"),
                     {tipo, DatosDemo::kRucAndina, QString::fromLatin1(correl), QString::number(100 + tipo)});
    }
    G().gsFormulario = QStringLiteral("0931");
    eliminarDeclaracionEnviada(DatosDemo::kRucAndina, QStringLiteral("202605"), QStringLiteral("01"));
    EXPECT_EQ(filas("HCAB", DatosDemo::kRucAndina), 1);
    EXPECT_EQ(filas("HACTA", DatosDemo::kRucAndina), 1);
    EXPECT_EQ(filas("HF0931_PTCEA", DatosDemo::kRucAndina), 1);
    EXPECT_EQ(filas("HDET", DatosDemo::kRucAndina), 4);   // 3 of correl 02, the type-0 row of 01
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM HDET WHERE CORREL='01' AND TIP_DOC_D=0")).toInt(), 1);
}

}  // namespace
