// The geographic-code picker: filters by the zone asked for, the catalogue lists, acceptance
// and cancel with the values they hand back.
#include "comun/base_prueba.h"

#include "basic/msgbox.h"
#include "dialogs/ubigeo.h"
#include "shell/globales.h"

#include <gtest/gtest.h>

namespace {

struct CasoFiltros {
    const char* zona;
    const char* f3;
    const char* f2;
    const char* f1;
    const char* f0;
};

class Filtros : public PruebaConBase, public ::testing::WithParamInterface<CasoFiltros> {};

TEST_P(Filtros, PorLaZonaPedida)
{
    G().gsZonaAbrir = QString::fromLatin1(GetParam().zona);
    FrmUbigeo u(QStringLiteral("Ubigeo Zona ") + G().gsZonaAbrir);
    u.Filtro0 = u.Filtro1 = u.Filtro2 = u.Filtro3 = QStringLiteral("previo");
    u.Form_Load();
    EXPECT_EQ(u.Filtro3, QString::fromLatin1(GetParam().f3));
    EXPECT_EQ(u.Filtro2, QString::fromLatin1(GetParam().f2));
    EXPECT_EQ(u.Filtro1, QString::fromLatin1(GetParam().f1));
    EXPECT_EQ(u.Filtro0, QString::fromLatin1(GetParam().f0));
}

INSTANTIATE_TEST_SUITE_P(Zonas, Filtros, ::testing::Values(
    CasoFiltros{"1", "1000000000", "1000000000", "A", "A"},
    CasoFiltros{"2", "0100000000", "0100000000", "A", "A"},
    CasoFiltros{"3", "previo", "1000000000", "previo", "A"},
    CasoFiltros{"", "previo", "previo", "previo", "previo"}));

class Ubigeo : public PruebaConBase {
protected:
    const QList<MensajeMostrado>& cuadros() { return familia.respondedor().mostrados; }
};

TEST_F(Ubigeo, ListasDelCatalogo)
{
    FrmUbigeo u(QStringLiteral("Ubigeo Zona 1"));
    u.Form_Load();
    ASSERT_FALSE(u.departamentos.isEmpty());
    EXPECT_EQ(u.departamentos.first().codigo, QStringLiteral("01"));
    EXPECT_EQ(u.departamentos.first().nombre, QStringLiteral("Amazonas"));
    u.elegirDepartamento(0);
    ASSERT_FALSE(u.provincias.isEmpty());
    for (const auto& p : u.provincias)
        EXPECT_TRUE(p.codigo.startsWith(QLatin1String("01")) && p.codigo.size() == 4) << p.codigo.toStdString();
    u.elegirProvincia(0);
    ASSERT_FALSE(u.distritos.isEmpty());
    for (const auto& d : u.distritos)
        EXPECT_TRUE(d.codigo.startsWith(QLatin1String("0101")) && d.codigo.size() == 6) << d.codigo.toStdString();
    EXPECT_EQ(u.CodigoUbigeo(), QString());
    u.elegirDistrito(0);
    EXPECT_EQ(u.CodigoUbigeo(), QStringLiteral("010101"));
    u.elegirDepartamento(1);
    EXPECT_EQ(u.CodigoUbigeo(), QString()) << "another department drops the district";
}

TEST_F(Ubigeo, AbreEnElCodigoQueTraeYLoDevuelve)
{
    G().gsZonaAbrir = QStringLiteral("3");
    G().gsUbigeoSel = QStringLiteral("010102");
    FrmUbigeo u(QStringLiteral("Ubigeo Zona 3"));
    u.Form_Load();
    EXPECT_EQ(u.CodigoUbigeo(), QStringLiteral("010102"));
    FrmUbigeo cancelado(QStringLiteral("Ubigeo Zona 3"));
    cancelado.Form_Load();
    cancelado.elegirDepartamento(2);
    cancelado.cmdAccion_Click(1);   // cancel: the code stays, the zone goes
    EXPECT_TRUE(cancelado.cerrado);
    EXPECT_EQ(G().gsUbigeoSel, QStringLiteral("010102"));
    EXPECT_EQ(G().gsZonaSel, QString());
    u.cmdAccion_Click(0);
    EXPECT_TRUE(u.cerrado);
    EXPECT_EQ(G().gsZonaSel, QStringLiteral("3"));
    EXPECT_EQ(G().gsUbigeoCopia, QStringLiteral("010102"));
    EXPECT_TRUE(cuadros().isEmpty());
}

TEST_F(Ubigeo, AceptarSinDistritoAvisaYSigueAbierto)
{
    FrmUbigeo u(QStringLiteral("Ubigeo Zona 1"));
    u.Form_Load();
    u.elegirDepartamento(0);
    u.cmdAccion_Click(0);
    EXPECT_FALSE(u.cerrado);
    ASSERT_EQ(cuadros().size(), 1);
    EXPECT_EQ(cuadros().first().texto, QStringLiteral("Debe seleccionar el Ubigeo."));
    EXPECT_EQ(cuadros().first().flags, vbCritical);
    EXPECT_EQ(cuadros().first().titulo, QStringLiteral("Ubigeo Zona 1"));
}

}  // namespace
