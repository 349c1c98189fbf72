// The check codes of the stored rows, recomputed: a row changed by hand with an SQL tool is
// found in every table that carries a code, with its own key.
#include "comun/base_prueba.h"
#include "store/base.h"
#include "store/funciones.h"
#include "store/motor_directo.h"
#include "store/verificacion.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <gtest/gtest.h>

namespace {

struct CasoTabla {
    const char* tabla;
    const char* insercion;   // two rows of one declaration, without their codes
    const char* cambio;      // what the SQL tool changes in the second row
    int claves;              // key columns the code takes
    const char* clave;       // the changed row's key, "COLUMNA=valor" by "|"
};

class CodigosDeTabla : public PruebaConBase, public ::testing::WithParamInterface<CasoTabla> {};

TEST_P(CodigosDeTabla, LaFilaCambiadaAManoSeEncuentraConSuClave)
{
    const CasoTabla& c = GetParam();
    const QString tabla = QString::fromLatin1(c.tabla);
    {
        MotorDirecto herramienta(familia.baseDatos());
        ASSERT_TRUE(herramienta.ejecutar(c.insercion)) << herramienta.error();
    }
    // The codes as the module writes them.
    QSqlQuery filas = ejecutar(QStringLiteral("SELECT rowid, * FROM %1").arg(tabla));
    while (filas.next()) {
        QSqlRecord fila = filas.record();
        const qint64 rowid = fila.value(0).toLongLong();
        fila.remove(0);
        ejecutar(QStringLiteral("UPDATE %1 SET cNumero=? WHERE rowid=?").arg(tabla), {CodigoFila(fila, c.claves), rowid});
    }
    Verificacion v = verificarCodigos();
    EXPECT_EQ(v.revisadas, 2);
    EXPECT_TRUE(v.distintas.isEmpty());

    {
        MotorDirecto herramienta(familia.baseDatos());
        ASSERT_TRUE(herramienta.ejecutar(c.cambio)) << herramienta.error();
    }
    v = verificarCodigos();
    ASSERT_EQ(v.distintas.size(), 1);
    const CodigoDistinto& d = v.distintas.first();
    EXPECT_EQ(d.tabla, tabla);
    QStringList clave;
    for (auto it = d.clave.cbegin(); it != d.clave.cend(); ++it)
        clave << it.key().toUpper() + QLatin1Char('=') + it.value().toString();
    clave.sort();
    QStringList esperada = QString::fromLatin1(c.clave).split(QLatin1Char('|'));
    esperada.sort();
    EXPECT_EQ(clave, esperada);
    EXPECT_EQ(d.guardado.size(), 6);
    EXPECT_EQ(d.esperado.size(), 6);
    EXPECT_NE(d.guardado, d.esperado);
}

#define DECL "6, '20100001234', '202605', '0931'"
#define HDECL "6, '20100001234', '202605', '0931', 0, '01'"

INSTANTIATE_TEST_SUITE_P(
    Tablas, CodigosDeTabla,
    ::testing::Values(
        CasoTabla{"CAB",
                  "INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, FEC_PRO, ESTADO) VALUES (" DECL ", '22/11/2026', 0);"
                  "INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, FEC_PRO, ESTADO) VALUES (6, '20500004569', '202605', '0931', '22/11/2026', 9);",
                  "UPDATE CAB SET ESTADO=0 WHERE DOC_ID_D='20500004569';", 5,
                  "DOC_ID_D=20500004569|FORMULARIO=0931|PERIODO=202605|SEMANA=0|TIP_DOC_D=6"},
        CasoTabla{"DET",
                  "INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR) VALUES (" DECL ", '500', '1000');"
                  "INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR) VALUES (" DECL ", '532', '400');",
                  "UPDATE DET SET I_VALOR='4000' WHERE CASILLA='532';", 6,
                  "CASILLA=532|DOC_ID_D=20100001234|FORMULARIO=0931|PERIODO=202605|SEMANA=0|TIP_DOC_D=6"},
        CasoTabla{"F0931_PTCEA",
                  "INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe) VALUES (" DECL ", '2024', '500');"
                  "INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe) VALUES (" DECL ", '2025', '700');",
                  "UPDATE F0931_PTCEA SET Anho='2023' WHERE Anho='2025';", 5,
                  "ANHO=2023|DOC_ID_D=20100001234|FORMULARIO=0931|PERIODO=202605|TIP_DOC_D=6"},
        CasoTabla{"HCAB",
                  "INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, CORREL, ESTADO, NORDEN) VALUES (" HDECL ", 1, '');"
                  "INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, CORREL, ESTADO, NORDEN) VALUES (6, '20100001234', '202605', '0931', 0, '02', 1, '');",
                  "UPDATE HCAB SET NORDEN='12345678' WHERE CORREL='02';", 6,
                  "CORREL=02|DOC_ID_D=20100001234|FORMULARIO=0931|PERIODO=202605|SEMANA=0|TIP_DOC_D=6"},
        CasoTabla{"HDET",
                  "INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, CORREL, CASILLA, I_VALOR) VALUES (" HDECL ", '500', '1000');"
                  "INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, CORREL, CASILLA, I_VALOR) VALUES (" HDECL ", '610', '0.0150');",
                  "UPDATE HDET SET I_VALOR='0.0100' WHERE CASILLA='610';", 7,
                  "CASILLA=610|CORREL=01|DOC_ID_D=20100001234|FORMULARIO=0931|PERIODO=202605|SEMANA=0|TIP_DOC_D=6"},
        CasoTabla{"HF0931_PTCEA",
                  "INSERT INTO HF0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, CORREL, Anho, Importe) VALUES (" DECL ", '01', '2024', '500');"
                  "INSERT INTO HF0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, CORREL, Anho, Importe) VALUES (" DECL ", '01', '2025', '700');",
                  "UPDATE HF0931_PTCEA SET Importe='70' WHERE Anho='2025';", 6,
                  "ANHO=2025|CORREL=01|DOC_ID_D=20100001234|FORMULARIO=0931|PERIODO=202605|TIP_DOC_D=6"}),
    [](const auto& info) { return std::string(info.param.tabla); });

}  // namespace
