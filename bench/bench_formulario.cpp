// Figures of the declaration form: one keystroke in c461 with the whole chain to c610 (model
// alone, and through the window with its mirroring), and the opening of the form (model load,
// window construction). Prints medians; run by hand.
#include "basic/reloj.h"
#include "comun/base_prueba.h"
#include "form931/frm931.h"
#include "form931/vista/frm931vista.h"
#include "shell/globales.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextStream>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

double mediana(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

void nueva()
{
    G().gsPeriodo = QString::number(Hoy().year());
    G().gsPeriodoSel.clear();
    G().giOpcion = 0;
    G().gbEnviada = false;
}

// A General-regime declaration with the payment block answered, so that the chain reaches the
// tax and the coefficient.
void preparar(Frm931& frm)
{
    nueva();
    frm.Form_Load();
    frm.Form_Activate();
    frm.elegir(frm.CmbRuc, 0);
    frm.marcar(frm.optRenta, 0);
    frm.marcar(frm.OptPersona, 0);
    frm.marcar(frm.OptInicio, 0);
    frm.marcar(frm.OptPrecedente, 0);
    frm.marcar(frm.OptAnterior, 0);
    frm.elegir(frm.CboBalance, 1);
    for (int n : {464, 468, 469, 472})
        frm.setTxt(n, QStringLiteral("12345"));
    frm.darFocoCasilla(461);
}

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("F931_HOY"))
        qputenv("F931_HOY", "2026-11-22");
    QApplication app(argc, argv);
    QTextStream out(stdout);
    FamiliaPrueba familia;
    familia.comoUsuario(DatosDemo::kContador);

    // Opening: model load, then window construction.
    std::vector<double> carga, vista, apertura;
    for (int i = 0; i < 15; ++i) {
        EntornoQt entorno;
        QElapsedTimer t;
        t.start();
        Frm931 frm(&entorno);
        nueva();
        frm.Form_Load();
        const double a = t.nsecsElapsed() / 1e6;
        auto v = std::make_unique<Frm931Vista>(frm);
        const double b = t.nsecsElapsed() / 1e6;
        carga.push_back(a);
        vista.push_back(b - a);
        apertura.push_back(b);
    }

    // Keystroke in c461, model alone: key rule, new text, change event and the chain.
    std::vector<double> teclaModelo;
    {
        EntornoQt entorno;
        Frm931 frm(&entorno);
        preparar(frm);
        const int n = 461;
        for (int i = 0; i < 3000; ++i) {
            QElapsedTimer t;
            t.start();
            // Alternately a digit typed and a Backspace: the text changes on every key.
            const int tecla = (i % 2 == 0) ? '7' : 8;
            const int k = frm.TxtValor_KeyPress(n, tecla);
            QString texto = frm.txt(n);
            if (k == 8)
                texto.chop(1);
            else if (k)
                texto += QChar(k);
            frm.setTxt(n, texto);
            teclaModelo.push_back(t.nsecsElapsed() / 1e6);
        }
    }

    // Keystroke in c461 through the window: the key event, the model, and the mirroring.
    std::vector<double> teclaVista;
    {
        EntornoQt entorno;
        Frm931 frm(&entorno);
        preparar(frm);
        Frm931Vista v(frm);
        entorno.vista = &v;
        v.show();
        v.refrescar();
        QLineEdit* caja = v.caja(461);
        for (int i = 0; i < 2000; ++i) {
            const bool digito = i % 2 == 0;
            QKeyEvent e(QEvent::KeyPress, digito ? Qt::Key_7 : Qt::Key_Backspace, Qt::NoModifier,
                        digito ? QStringLiteral("7") : QStringLiteral("\b"));
            QElapsedTimer t;
            t.start();
            QCoreApplication::sendEvent(caja, &e);
            teclaVista.push_back(t.nsecsElapsed() / 1e6);
        }
        out << "c610 after the keystrokes: " << frm.txt(610) << " (window: " << caja->text() << " in c461)\n";
    }

    out << Qt::fixed;
    out.setRealNumberPrecision(4);
    out << "keystroke in c461 to c610, model:        median " << mediana(teclaModelo) << " ms (goal < 0.2 ms)\n";
    out << "keystroke in c461 to c610, with window:  median " << mediana(teclaVista) << " ms\n";
    out.setRealNumberPrecision(2);
    out << "open form, model Form_Load:              median " << mediana(carga) << " ms\n";
    out << "open form, window construction:          median " << mediana(vista) << " ms\n";
    out << "open form, total:                        median " << mediana(apertura) << " ms (goal < 150 ms)\n";
    return 0;
}
