// The shipped catalogue and the readers of its fixed positions.
#include "comun/base_prueba.h"

#include "basic/texto.h"
#include "store/base.h"
#include "store/param.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

namespace {

class Catalogo : public PruebaConBase {};

struct Cuenta {
    const char* numero;
    int filas;
};

TEST_F(Catalogo, CuentaLasFilasDeCadaCatalogo)
{
    for (const Cuenta& c : {Cuenta{"001", 1891}, Cuenta{"030", 25}, Cuenta{"031", 196}, Cuenta{"044", 6},
                            Cuenta{"004", 17}, Cuenta{"140", 140}, Cuenta{"404", 27}, Cuenta{"976", 249},
                            Cuenta{"975", 0}}) {
        EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM PARAM WHERE Numero=?"), {c.numero}).toInt(), c.filas)
            << c.numero;
    }
    EXPECT_EQ(escalar(QStringLiteral("SELECT min(Argumento) || '-' || max(Argumento) FROM PARAM WHERE Numero='404'"))
                  .toString(),
              QStringLiteral("2000-2026"));
}

// The descriptions of geographic codes are read in the golden report files.

TEST_F(Catalogo, UitDelUltimoAnhoNoPosteriorAlPeriodo)
{
    const struct {
        const char* periodo;
        const char* uit;
    } casos[] = {{"202605", "5500"}, {"2026", "5500"}, {"202512", "5350"}, {"201301", "3700"},
                 {"200001", "2900"}, {"199912", ""}, {"203001", "5500"}};
    for (const auto& c : casos)
        EXPECT_EQ(getUITTexto(QString::fromLatin1(c.periodo)), QString::fromLatin1(c.uit)) << c.periodo;
}

TEST_F(Catalogo, ZonasConElCodigoAlFinal)
{
    const QStringList items = pCargaZona();
    ASSERT_EQ(items.size(), 26);
    EXPECT_EQ(items.first(), QString(115, QLatin1Char(' ')) + QStringLiteral("00"));
    EXPECT_EQ(items.at(1), QStringLiteral("Amazonas") + QString(100, QLatin1Char(' ')) + QStringLiteral("01"));
    // Names are cut to 15.
    ejecutar(QStringLiteral("UPDATE PARAM SET Funcion=? WHERE Numero='030' AND Argumento='17'"),
             {QStringLiteral("ZONA DE PRUEBA MUY LARGA")});
    EXPECT_TRUE(pCargaZona().contains(QStringLiteral("ZONA DE PRUEBA ") + QString(100, QLatin1Char(' ')) + QStringLiteral("17")));
}

// Items of the legal representative's document types: position 82.
TEST_F(Catalogo, TiposDeDocumentoDelRepresentanteLegal)
{
    const QString blanco(75, QLatin1Char(' '));
    const auto item = [](const char* cod, const char* corto, const char* atributos) {
        return QString::fromLatin1(cod) + QStringLiteral("  -  ") + QString::fromLatin1(corto).leftJustified(60)
               + QLatin1Char(' ') + QString::fromLatin1(atributos);
    };
    EXPECT_EQ(pLlenaTipoDoc(82, true),
              (QStringList{blanco, item("06", "RUC", "11 0 1"), item("01", "DNI", "08 0 1")}));
    EXPECT_EQ(pLlenaTipoDoc(82, false), (QStringList{item("06", "RUC", "11 0 1"), item("01", "DNI", "08 0 1")}));
}

// Changes `n` characters of the document type's row from position `pos` (1-based).
void cambiarTipo(const char* tipo, int pos, const QString& texto)
{
    ejecutar(QStringLiteral("UPDATE PARAM SET Funcion=substr(Funcion,1,%1) || ? || substr(Funcion,%2)"
                            " WHERE Numero='044' AND Argumento=?")
                 .arg(pos - 1)
                 .arg(pos + texto.size()),
             {texto, QString::fromLatin1(tipo)});
}

TEST_F(Catalogo, TipoConCeroEnLaPosicionNoAparece)
{
    cambiarTipo("1", 82, QStringLiteral("0"));   // the DNI off at 82, the passport on
    cambiarTipo("7", 82, QStringLiteral("1"));
    const QStringList items = pLlenaTipoDoc(82, false);
    ASSERT_EQ(items.size(), 2);
    EXPECT_TRUE(items.at(0).startsWith(QStringLiteral("06  -  RUC")));
    EXPECT_TRUE(items.at(1).startsWith(QStringLiteral("07  -  PASAPORTE")));
    EXPECT_TRUE(items.at(1).endsWith(QStringLiteral(" 12 1 0")));
}

TEST_F(Catalogo, OrdenDePosiciones56y57ComoTexto)
{
    // As text "10" comes before "9 ": the RUC goes first although 10 > 9.
    cambiarTipo("1", 56, QStringLiteral("9 "));
    cambiarTipo("6", 56, QStringLiteral("10"));
    const QStringList items = pLlenaTipoDoc(82, false);
    ASSERT_EQ(items.size(), 2);
    EXPECT_TRUE(items.at(0).startsWith(QStringLiteral("06")));
    EXPECT_TRUE(items.at(1).startsWith(QStringLiteral("01")));
}

}  // namespace
