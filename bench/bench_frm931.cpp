// Speed of the declaration form's model: opening a new declaration (Form_Load with its lists
// from the demo database) and one keystroke in c461 that runs the whole chain down to c610.
// Prints median, 99th percentile and maximum of each (the maximum catches the scheduler too).
//
//   bench_frm931 [VECES]
#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "comun/base_prueba.h"
#include "form931/frm931.h"
#include "shell/globales.h"

namespace {

class EntornoMudo : public EntornoFrm931 {
public:
    void abrirAnexo477(Frm931&, int) override {}
    void abrirUbigeo(const QString&) override {}
};

void resumen(const char* que, std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    std::printf("%-40s mediana %9.4f ms   p99 %9.4f ms   máximo %9.4f ms   (%zu veces)\n", que, v[v.size() / 2],
                v[v.size() * 99 / 100], v.back(), v.size());
}

std::unique_ptr<Frm931> abrir(EntornoMudo& entorno)
{
    G().gsPeriodo = QStringLiteral("2026");
    G().gsPeriodoSel.clear();
    G().giOpcion = 0;
    auto f = std::make_unique<Frm931>(&entorno);
    f->Form_Load();
    f->Form_Activate();
    return f;
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int veces = argc > 1 ? std::max(1, atoi(argv[1])) : 200;
    FamiliaPrueba familia;
    EntornoMudo entorno;

    std::vector<double> apertura;
    for (int i = 0; i < std::min(veces, 50); ++i) {
        QElapsedTimer r;
        r.start();
        auto f = abrir(entorno);
        apertura.push_back(r.nsecsElapsed() / 1e6);
    }
    resumen("apertura de una declaración nueva", apertura);

    // A general-regime declaration with a full statement of results; each keystroke in c461
    // changes the sales and so every box down to c610.
    auto f = abrir(entorno);
    f->elegir(f->CmbRuc, 0);
    f->escribirControl(QStringLiteral("TxtTelefono"), QStringLiteral("4445555"));
    f->marcar(f->optRenta, 0);
    f->marcar(f->OptPersona, 0);
    f->marcar(f->OptInicio, 1);
    f->elegir(f->CboBalance, 1);
    for (const auto& [n, v] : {std::pair{464, "400000"}, {468, "100000"}, {472, "5000"}, {475, "3000"}, {103, "1000"}}) {
        f->darFocoCasilla(n);
        f->teclear(n, QString::fromLatin1(v));
    }
    f->darFocoCasilla(461);
    std::vector<double> tecla;
    for (int i = 0; i < veces; ++i) {
        // Alternating digit and backspace keeps the figure at 1000000 or 10000007.
        if (f->txt(461).isEmpty())
            f->teclear(461, QStringLiteral("1000000"));
        QElapsedTimer r;
        r.start();
        f->teclear(461, i % 2 ? QStringLiteral("\b") : QStringLiteral("7"));
        tecla.push_back(r.nsecsElapsed() / 1e6);
    }
    resumen("una tecla en c461 hasta c610", tecla);
    std::printf("c461 %s  c113 %s  c610 %s\n", qPrintable(f->txt(461)), qPrintable(f->txt(113)), qPrintable(f->txt(610)));
    return 0;
}
