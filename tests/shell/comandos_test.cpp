// The main window's commands: the globals each leaves for the form it opens, what it opens,
// and the status bar rules. The toolbar's buttons are the same commands (the button walk
// presses each); the status bar on screen is the scenarios'.
#include "shell/comandos.h"

#include <QStringList>
#include <gtest/gtest.h>

#include "family/cutilqvl.h"
#include "shell/globales.h"
#include "store/base.h"
#include "comun/base_prueba.h"

namespace {

// Every opener records its call and the globals the form would read at that moment.
struct Registro {
    QStringList traza;
    void abre(const QString& que)
    {
        const Globales& g = G();
        traza << QStringLiteral("%1 op=%2 env=%3 imp=%4 per=%5 sel=%6")
                     .arg(que)
                     .arg(g.giOpcion)
                     .arg(g.gbEnviada)
                     .arg(g.gbImpEnviada)
                     .arg(g.gsPeriodo, g.gsPeriodoSel);
    }
    Abridores abridores()
    {
        Abridores a;
        a.declaracion = [this](qint16 modo, const QStringList& datos) {
            abre(QStringLiteral("declaracion(%1,[%2])").arg(modo).arg(datos.join(QLatin1Char(','))));
        };
        a.contAbrir = [this](qint16 n) { abre(QStringLiteral("contAbrir(%1)").arg(n)); };
        a.imprimir = [this](qint16 n) { abre(QStringLiteral("imprimir(%1)").arg(n)); };
        a.contAbrirEnv = [this] { abre(QStringLiteral("contAbrirEnv")); };
        a.consFac = [this] { abre(QStringLiteral("consFac")); };
        a.consultas = [this] { abre(QStringLiteral("consultas")); };
        a.acercade = [this] { abre(QStringLiteral("acercade")); };
        a.ayuda = [this] { abre(QStringLiteral("ayuda")); };
        a.cerrarVentana = [this] { traza << QStringLiteral("cerrar"); };
        a.puntero = [this](bool espera) { traza << (espera ? QStringLiteral("reloj") : QStringLiteral("normal")); };
        return a;
    }
};

struct CasoComando {
    const char* nombre;
    void (*orden)();
    QStringList traza;   // the globals the form reads as it opens (before: op=7 env=<b> imp=<b> per=202405 sel=202404)
    bool limpiaNombre;
};

void PrintTo(const CasoComando& c, std::ostream* os) { *os << c.nombre; }

class Comando : public ::testing::TestWithParam<std::tuple<CasoComando, bool>> {
protected:
    void SetUp() override
    {
        G().reiniciar();
        barraEstado() = EstadoBarra{1, QStringLiteral("20100001234"), QStringLiteral("COMERCIAL ANDINA DEMO"),
                                    QStringLiteral("2024/05"), QStringLiteral("0931")};
        instalarAbridores(registro.abridores());
    }
    void TearDown() override
    {
        instalarAbridores({});
        barraEstado() = EstadoBarra();
        G().reiniciar();
    }
    Registro registro;
};

// F931_HOY is 2026-11-22 in every test run.
QStringList T(std::initializer_list<const char*> l)
{
    QStringList r;
    for (const char* s : l)
        r << QString::fromUtf8(s);
    return r;
}

TEST_P(Comando, DejaSusGlobalesYAbreSuVentana)
{
    const auto& [c, inicial] = GetParam();
    Globales& g = G();
    g.giOpcion = 7;
    g.gbEnviada = inicial;
    g.gbImpEnviada = inicial;
    g.gsPeriodo = QStringLiteral("202405");
    g.gsPeriodoSel = QStringLiteral("202404");

    c.orden();

    QStringList esperada = c.traza;
    const QString b = QString::number(inicial);
    for (QString& l : esperada)
        l.replace(QStringLiteral("env=?"), QStringLiteral("env=") + b).replace(QStringLiteral("imp=?"), QStringLiteral("imp=") + b);
    EXPECT_EQ(registro.traza, esperada);
    EXPECT_EQ(barraEstado().PanelNombre.isEmpty(), c.limpiaNombre);
    EXPECT_EQ(barraEstado().PanelRuc, QStringLiteral("20100001234"));
}

INSTANTIATE_TEST_SUITE_P(
    Casos, Comando,
    ::testing::Combine(
        ::testing::Values(
            CasoComando{"mnuNueva", &mnuNueva_Click,
                        T({"reloj", "declaracion(0,[]) op=0 env=0 imp=? per=2026 sel=", "normal"}), true},
            CasoComando{"mnuModificar", &mnuModificar_Click,
                        T({"contAbrir(1) op=1 env=0 imp=0 per=202405 sel=202404", "normal"}), true},
            CasoComando{"mnuEliminar", &mnuEliminar_Click,
                        T({"contAbrir(3) op=7 env=0 imp=? per=202405 sel=202404", "normal"}), true},
            CasoComando{"mnuImprimir", &mnuImprimir_Click, T({"imprimir(1) op=7 env=0 imp=0 per=202405 sel=202404"}), true},
            CasoComando{"mnuRegistrar", &mnuRegistrar_Click,
                        T({"reloj", "contAbrirEnv op=2 env=1 imp=1 per=202405 sel=202404", "normal"}), false},
            CasoComando{"mnuEliminar1", &mnuEliminar1_Click,
                        T({"reloj", "contAbrirEnv op=3 env=1 imp=1 per=202405 sel=202404", "normal"}), true},
            CasoComando{"mnuImprimir1", &mnuImprimir1_Click,
                        T({"imprimir(-1) op=7 env=1 imp=1 per=202405 sel=202404"}), true},
            CasoComando{"mnuFactores", &mnuFactores_Click, T({"consFac op=7 env=? imp=? per=202405 sel=202404"}), true},
            CasoComando{"mnuDocIdent", &mnuDocIdent_Click, T({"consultas op=1 env=? imp=? per=202405 sel=202404"}), true},
            CasoComando{"mnupais", &mnupais_Click, T({"consultas op=2 env=? imp=? per=202405 sel=202404"}), true},
            CasoComando{"mnuUIT", &mnuUIT_Click, T({"consultas op=3 env=? imp=? per=202405 sel=202404"}), true},
            CasoComando{"mnuContenido", &mnuContenido_Click, T({"ayuda op=7 env=? imp=? per=202405 sel=202404"}), true},
            CasoComando{"mnuAcercade", &mnuAcercade_Click,
                        T({"reloj", "acercade op=7 env=? imp=? per=202405 sel=202404", "normal"}), false}),
        ::testing::Bool()),
    [](const auto& info) {
        return std::string(std::get<0>(info.param).nombre) + (std::get<1>(info.param) ? "_desde_verdadero" : "_desde_falso");
    });

TEST(ComandoModificar, ElPeriodoQueEligeElSelectorQuedaAlCerrarse)
{
    G().reiniciar();
    Abridores a;
    a.contAbrir = [](qint16) {
        G().gsPeriodo = QStringLiteral("202406");
        G().gsPeriodoSel = QStringLiteral("202406");
    };
    instalarAbridores(a);
    mnuModificar_Click();
    EXPECT_EQ(G().gsPeriodo, QStringLiteral("202406"));
    EXPECT_EQ(G().gsPeriodoSel, QStringLiteral("202406"));
    instalarAbridores({});
}

struct CasoPeriodo {
    const char* periodo;
    const char* enBarra;
};

class PeriodoEnBarra : public ::testing::TestWithParam<CasoPeriodo> {};

TEST_P(PeriodoEnBarra, CincoOMenosEnBlancoSinoAnhoBarraMes)
{
    EXPECT_EQ(periodoEnBarra(QString::fromUtf8(GetParam().periodo)), QString::fromUtf8(GetParam().enBarra));
}

INSTANTIATE_TEST_SUITE_P(Casos, PeriodoEnBarra,
                         ::testing::Values(CasoPeriodo{"", ""}, CasoPeriodo{"2026", ""}, CasoPeriodo{"20261", ""},
                                           CasoPeriodo{"  2026  ", ""}, CasoPeriodo{"202406", "2024/06"},
                                           CasoPeriodo{"20240612", "2024/12"}, CasoPeriodo{" 202406", " 202/06"}));

// Ten buttons of width 20 side by side: button i spans [20(i-1), 20(i-1)+20].
class RatonSobreBarra : public ::testing::TestWithParam<std::pair<int, bool>> {};

TEST_P(RatonSobreBarra, SoloLosBotonesUnoACuatroSeisYOchoGuardanElNombre)
{
    QList<BotonBarra> botones;
    for (int i = 0; i < 10; ++i)
        botones << BotonBarra{i * 20, 20};
    EXPECT_EQ(barraLimpiaNombre(GetParam().first, botones), GetParam().second) << GetParam().first;
}

INSTANTIATE_TEST_SUITE_P(Casos, RatonSobreBarra,
                         ::testing::Values(std::pair{5, false}, std::pair{30, false}, std::pair{79, false},
                                           std::pair{90, true},    // Salir
                                           std::pair{110, false},  // separator 6
                                           std::pair{130, true},   // Num. Orden
                                           std::pair{150, false},  // separator 8
                                           std::pair{170, true},   // separator 9
                                           std::pair{190, true},   // Ayuda
                                           std::pair{400, true}));

TEST(Salir, CierraLaConexionSueltaElAyudanteYCierraLaVentana)
{
    FamiliaPrueba familia;
    gobjUtil();
    QStringList traza;
    Abridores a;
    a.cerrarVentana = [&] {
        traza << QStringLiteral("cerrar base=%1 util=%2").arg(G().gdbBase.isEmpty()).arg(G().gobjUtil == nullptr);
    };
    instalarAbridores(a);
    mnuSalir_Click();
    EXPECT_EQ(traza, QStringList{QStringLiteral("cerrar base=1 util=1")});
    EXPECT_FALSE(gdbBase().isOpen());
    instalarAbridores({});
}

}  // namespace
