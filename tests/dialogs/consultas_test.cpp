// The catalogue lookups: captions, columns and rows of each mode, the factor period shown month
// first, banks without the filler row, UIT newest first and read as a number.
#include "comun/base_prueba.h"

#include "dialogs/consultas.h"
#include "shell/globales.h"
#include "store/base.h"

#include <gtest/gtest.h>

namespace {

void insertarParam(const QString& numero, const QString& argumento, const QString& funcion)
{
    ejecutar(QStringLiteral("INSERT INTO PARAM (Numero, Argumento, Funcion) VALUES (?, ?, ?)"),
             {numero, argumento, funcion});
}

int posicion(const QVector<FilaConsulta>& filas, const QString& descrip)
{
    for (int i = 0; i < filas.size(); ++i)
        if (filas[i].descrip == descrip)
            return i;
    return -1;
}

struct CasoModo {
    qint16 opcion;
    const char* caption;
    const char* col1;
    const char* col2;
    int cuantas;
    const char* primerCodigo;
    const char* primeraDescrip;
};

class Modos : public PruebaConBase, public ::testing::WithParamInterface<CasoModo> {};

TEST_P(Modos, CaptionColumnasYFilas)
{
    const CasoModo& c = GetParam();
    G().giOpcion = c.opcion;
    G().gsSql = QStringLiteral("previo");
    FrmConsultas f;
    f.Form_Load();
    EXPECT_EQ(f.Caption, QString::fromUtf8(c.caption));
    EXPECT_EQ(f.columnas, (QStringList{QString::fromUtf8(c.col1), QString::fromUtf8(c.col2)}));
    ASSERT_EQ(f.filas.size(), c.cuantas);
    EXPECT_EQ(f.grdBancosEnabled, c.cuantas > 0);
    if (c.cuantas > 0) {
        EXPECT_EQ(f.filas.first(), (FilaConsulta{QString::fromUtf8(c.primerCodigo), QString::fromUtf8(c.primeraDescrip)}));
    } else {
        EXPECT_EQ(G().gsSql, QStringLiteral("previo"));
    }
}

INSTANTIATE_TEST_SUITE_P(PorOpcion, Modos, ::testing::Values(
    CasoModo{1, "Bancos", "Código", "Descripción", 16, "01", "BANCO 01"},
    CasoModo{2, "Paises", "Código", "Descripción", 249, "0004", "Afganistán"},
    CasoModo{3, "UIT", "Periodo", "Valor", 27, "2026", "5500"},
    CasoModo{0, "Consultas", "Código", "Descripción", 0, "", ""},
    CasoModo{4, "Consultas", "Código", "Descripción", 0, "", ""}));

using Consultas = PruebaConBase;

TEST_F(Consultas, BancosSinLaFilaDeRelleno)
{
    insertarParam(QStringLiteral("004"), QStringLiteral("00 "), QStringLiteral("RELLENO"));
    insertarParam(QStringLiteral("004"), QStringLiteral("17"), QStringLiteral("BANCO CON UN NOMBRE MUY LARGO QUE PASA DE LOS 36"));
    G().giOpcion = 1;
    FrmConsultas f;
    f.Form_Load();
    ASSERT_EQ(f.filas.size(), 17);
    EXPECT_EQ(f.filas.last(), (FilaConsulta{QStringLiteral("17"), QStringLiteral("BANCO CON UN NOMBRE MUY LARGO QUE PA")}));
}

TEST_F(Consultas, PaisesPorNombreSinMirarTildesNiMayusculas)
{
    G().giOpcion = 2;
    FrmConsultas f;
    f.Form_Load();
    EXPECT_LT(posicion(f.filas, QStringLiteral("Bélgica")), posicion(f.filas, QStringLiteral("Belice")));
    EXPECT_LT(posicion(f.filas, QStringLiteral("República árabe de Siria")),
              posicion(f.filas, QStringLiteral("República Centroafricana")));
    EXPECT_EQ(f.filas.last().descrip, QStringLiteral("Zimbabue"));
}

TEST_F(Consultas, UitMasRecientePrimeroYComoNumero)
{
    insertarParam(QStringLiteral("404"), QStringLiteral("2027"), QStringLiteral("000005600"));
    insertarParam(QStringLiteral("404"), QStringLiteral("1999"), QStringLiteral(" 003650.50xx"));
    G().giOpcion = 3;
    FrmConsultas f;
    f.Form_Load();
    ASSERT_EQ(f.filas.size(), 29);
    EXPECT_EQ(f.filas.first(), (FilaConsulta{QStringLiteral("2027"), QStringLiteral("5600")}));
    EXPECT_EQ(f.filas[1], (FilaConsulta{QStringLiteral("2026"), QStringLiteral("5500")}));
    EXPECT_EQ(f.filas.last(), (FilaConsulta{QStringLiteral("1999"), QStringLiteral("3650.5")}));
}

TEST_F(Consultas, FactoresMesPrimeroEnElOrdenDeLaTabla)
{
    FrmConsFac vacio;
    vacio.Form_Load();
    EXPECT_TRUE(vacio.filas.isEmpty());
    EXPECT_FALSE(vacio.grdBancosEnabled);
    EXPECT_TRUE(familia.respondedor().mostrados.isEmpty());

    insertarParam(QStringLiteral("975"), QStringLiteral("201305"), QStringLiteral("1.0234"));
    insertarParam(QStringLiteral("975"), QStringLiteral("200912"), QStringLiteral("12.5"));
    insertarParam(QStringLiteral("975"), QStringLiteral("201001"), QStringLiteral("1.0005"));
    FrmConsFac f;
    f.Form_Load();
    EXPECT_TRUE(f.grdBancosEnabled);
    EXPECT_EQ(f.filas, (QVector<FilaConsulta>{{QStringLiteral("05/2013"), QStringLiteral("1.023")},
                                              {QStringLiteral("12/2009"), QStringLiteral("12.500")},
                                              {QStringLiteral("01/2010"), QStringLiteral("1.001")}}));
}

}  // namespace
