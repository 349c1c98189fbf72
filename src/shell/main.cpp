// modulo0931: the declaration module. It runs only while the family's launcher is open, once
// per user session, and lives in its main window until the user leaves it.
//
// F931_MEDIR_ARRANQUE=1 is for measuring the start only: the launcher is taken as present,
// message boxes answer themselves, and the program prints the milliseconds from the start of
// main() to the first idle moment of the event loop ("arranque_ms=N") and ends.
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>

#include <cstdio>

#include "basic/msgbox.h"
#include "reports/reproduccion.h"
#include "reports/vista/impresion.h"
#include "shell/arranque.h"
#include "shell/vista/mdifrm.h"
#include "shell/vista/respondedor_qt.h"
#include "shell/vista/traduccion_qt.h"

int main(int argc, char** argv)
{
    QElapsedTimer reloj;
    reloj.start();
    QApplication app(argc, argv);
    const QString programa = QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
    QCoreApplication::setApplicationName(programa);
    cargarTraduccionQt(app);
    // Printing goes through the system's print dialog (or to a PDF file when there is no printer).
    instalarDestinoImpresion(imprimeEnEscritorio);

    const bool medir = qEnvironmentVariableIntValue("F931_MEDIR_ARRANQUE") == 1;
    RespondedorQt enPantalla;
    if (!medir)
        instalarRespondedor(&enPantalla);

    InstanciaUnica instancia(programa);
    const BuscarVentana buscar = medir ? BuscarVentana([](const QString&) { return true; }) : buscadorDelSistema();
    if (!comprobarInicio(buscar, [&instancia] { return instancia.hayInstanciaPrevia(); }))
        return 0;

    MDIFrm ventana;
    if (!ventana.Form_Load())
        return medir ? 1 : 0;

    if (medir) {
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &app,
                         [&reloj, hecho = false]() mutable {
                             if (hecho)
                                 return;
                             hecho = true;
                             std::printf("arranque_ms=%.1f\n", reloj.nsecsElapsed() / 1e6);
                             std::fflush(stdout);
                             QCoreApplication::exit(0);
                         });
    }
    const int codigo = app.exec();
    instalarRespondedor(nullptr);
    return codigo;
}
