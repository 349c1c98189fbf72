// Median time of saving a full declaration and of opening it again, in a temporary family
// folder. Prints figures; the goals are under 20 ms for each.
#include "comun/base_prueba.h"
#include "form931/grabacion_comun.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

double mediana(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.size() % 2 ? v[v.size() / 2] : (v[v.size() / 2 - 1] + v[v.size() / 2]) / 2;
}

void informe(const char* que, const std::vector<double>& ms, double meta)
{
    std::printf("%-42s median %7.2f ms  min %7.2f  max %7.2f  (%zu runs, goal < %.0f ms)\n", que, mediana(ms),
                *std::min_element(ms.begin(), ms.end()), *std::max_element(ms.begin(), ms.end()), ms.size(), meta);
}

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("F931_HOY"))
        qputenv("F931_HOY", "2026-11-22");
    QGuiApplication app(argc, argv);
    const int vueltas = argc > 1 ? std::max(1, atoi(argv[1])) : 30;

    FamiliaPrueba familia;
    using namespace prueba931;
    const QString periodo = QStringLiteral("202608");
    {
        EntornoSinPantalla entorno;
        Frm931 frm(&entorno);
        reproducirEntrada(frm, entorno, declaracionDeRegimen());
        frm.CmdGrabar_Click();
        if (frm.mbModificado) {
            std::fprintf(stderr, "the declaration was not saved: %s\n",
                         qPrintable(familia.respondedor().textos().join(QLatin1Char('\n'))));
            return 1;
        }
    }
    std::printf("declaration of %lld rows in DET\n",
                static_cast<long long>(mapaDet(periodo).size()));

    std::vector<double> abrir, grabar;
    for (int i = 0; i < vueltas; ++i) {
        EntornoSinPantalla entorno;
        Frm931 frm(&entorno);
        QElapsedTimer t;
        t.start();
        abrirGuardada(frm, periodo);
        abrir.push_back(t.nsecsElapsed() / 1e6);

        frm.mbModificado = true;
        t.restart();
        frm.CmdGrabar_Click();
        grabar.push_back(t.nsecsElapsed() / 1e6);
        if (frm.mbModificado) {
            std::fprintf(stderr, "a save was refused\n");
            return 1;
        }
        familia.respondedor().mostrados.clear();
    }
    informe("open a stored declaration (Form_Load)", abrir, 20);
    informe("save a full declaration (CmdGrabar_Click)", grabar, 20);
    return 0;
}
