// The launcher presence test and the other window operations, on a list of windows made by hand.
#include "family/cwindows.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

class EnumeradorFijo : public EnumeradorVentanas {
public:
    explicit EnumeradorFijo(QList<VentanaSistema> lista) : lista_(std::move(lista)) {}
    QList<VentanaSistema> ventanas() override { return lista_; }
    bool cerrar(const VentanaSistema& v) override
    {
        cerradas << v.id;
        return true;
    }
    QList<quintptr> cerradas;
private:
    QList<VentanaSistema> lista_;
};

const QString kIntegrador = QStringLiteral("Programa Qualvia");

struct CasoVentana {
    const char* nombre;
    QList<VentanaSistema> ventanas;
    bool corre;
};

std::ostream& operator<<(std::ostream& os, const CasoVentana& c) { return os << c.nombre; }

class CorreApp : public ::testing::TestWithParam<CasoVentana> {};

TEST_P(CorreApp, SoloCuentaElTituloExactoDeUnaVentanaVisible)
{
    cWindows w(std::make_shared<EnumeradorFijo>(GetParam().ventanas));
    EXPECT_EQ(w.CorreApp(kIntegrador), GetParam().corre);
}

VentanaSistema ventana(const char* titulo, bool visible, const char* clase = "", quintptr id = 0)
{
    return {QString::fromUtf8(titulo), visible, QString::fromUtf8(clase), id};
}

INSTANTIATE_TEST_SUITE_P(Lanzador, CorreApp, ::testing::Values(
    CasoVentana{"visible", {ventana("Programa Qualvia", true)}, true},
    CasoVentana{"among_others", {ventana("Otra", true), ventana("Programa Qualvia", true)}, true},
    CasoVentana{"hidden", {ventana("Programa Qualvia", false)}, false},
    CasoVentana{"hidden_then_visible", {ventana("Programa Qualvia", false), ventana("Programa Qualvia", true)}, true},
    CasoVentana{"prefix", {ventana("Programa Qualvia - Formularios", true)}, false},
    CasoVentana{"shorter", {ventana("Programa Qualvi", true)}, false},
    CasoVentana{"case_differs", {ventana("PROGRAMA QUALVIA", true)}, false},
    CasoVentana{"trailing_blank", {ventana("Programa Qualvia ", true)}, false},
    CasoVentana{"no_windows", {}, false},
    CasoVentana{"untitled", {ventana("", true)}, false}),
    [](const auto& info) { return std::string(info.param.nombre); });

TEST(CorreApp, SinPantallaNoHayLanzador)
{
    const QByteArray antes = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    EXPECT_FALSE(cWindows().CorreApp(kIntegrador));
    if (!antes.isNull())
        qputenv("DISPLAY", antes);
}

TEST(CorreApp, ElRastroGuardaLosTitulosVisiblesHastaEncontrarlo)
{
    cWindows w(std::make_shared<EnumeradorFijo>(QList<VentanaSistema>{
        ventana("Escritorio", true), ventana("Oculta", false), ventana("", true), ventana("Programa Qualvia", true),
        ventana("Después", true)}));
    ASSERT_TRUE(w.CorreApp(kIntegrador));
    EXPECT_EQ(w.vistas(), QStringList({QStringLiteral("Escritorio"), QStringLiteral("Programa Qualvia")}));
}

TEST(CloseApp, CierraPorTituloYClaseSalvoProgman)
{
    auto e = std::make_shared<EnumeradorFijo>(QList<VentanaSistema>{
        ventana("Progman", true, "Progman", 1), ventana("Informe", true, "QWidget", 2),
        ventana("Informe", false, "Editor", 3), ventana("Informe largo", true, "Editor", 4)});
    cWindows w(e);
    w.CloseApp(QStringLiteral("Progman"), QStringLiteral("Progman"));
    EXPECT_TRUE(e->cerradas.isEmpty());
    w.CloseApp(QStringLiteral("Informe"), QStringLiteral("Editor"));   // hidden windows are found too
    w.CloseApp(QStringLiteral("Informe"), QString());                  // any class: the first one
    w.CloseApp(QStringLiteral("Nada"), QStringLiteral("Editor"));
    EXPECT_EQ(e->cerradas, QList<quintptr>({3, 2}));
}

TEST(ClassName, ClaseDeLaVentanaHasta256Caracteres)
{
    const QByteArray larga(300, 'c');
    cWindows w(std::make_shared<EnumeradorFijo>(QList<VentanaSistema>{
        ventana("Uno", true, "VentanaPrincipal"), ventana("Larga", false, larga.constData())}));
    EXPECT_EQ(w.ClassName(QStringLiteral("Uno")), QStringLiteral("VentanaPrincipal"));
    EXPECT_EQ(w.ClassName(QStringLiteral("Larga")).size(), 256);
    EXPECT_EQ(w.ClassName(QStringLiteral("uno")), QString());
}

}
