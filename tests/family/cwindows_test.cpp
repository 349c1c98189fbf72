// The launcher presence test, on a list of windows made by hand.
#include "family/cwindows.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

class EnumeradorFijo : public EnumeradorVentanas {
public:
    explicit EnumeradorFijo(QList<VentanaSistema> lista) : lista_(std::move(lista)) {}
    QList<VentanaSistema> ventanas() override { return lista_; }
    bool cerrar(const VentanaSistema&) override { return true; }
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

}
