// integrador_qvl: stand-in for the family's launcher. On first start it makes the family folder
// (TMP/, RPT/, BMP/, 0931/), the shared database with its catalogue and demo data, and
// QL000.INI; then it keeps its window "Programa Qualvia" open and starts the module.
//
//   integrador_qvl [--carpeta DIR] [--abrir-modulo]
//
// QL000.INI lives where QVL_WINDIR says; when it is unset the launcher sets it to the family
// folder, for itself and the modules it starts.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QMessageBox>

#include "basic/errores.h"
#include "lanzador/integrador.h"
#include "shell/familia.h"
#include "shell/ini.h"
#include "shell/vista/ayuda.h"
#include "shell/vista/traduccion_qt.h"

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("integrador_qvl"));
    cargarTraduccionQt(app);

    QCommandLineParser opciones;
    opciones.setApplicationDescription(QStringLiteral("Integrador del Programa Qualvia (para desarrollo)."));
    opciones.addHelpOption();
    const QCommandLineOption carpeta(QStringLiteral("carpeta"),
                                     QStringLiteral("Carpeta de la familia (por defecto ~/qualvia/)."),
                                     QStringLiteral("DIR"), carpetaFamiliaPorDefecto());
    const QCommandLineOption abrir(QStringLiteral("abrir-modulo"),
                                   QStringLiteral("Inicia el módulo 0931 al abrirse la ventana."));
    opciones.addOption(carpeta);
    opciones.addOption(abrir);
    opciones.process(app);

    const QString dir = opciones.value(carpeta);
    if (qEnvironmentVariableIsEmpty("QVL_WINDIR"))
        qputenv("QVL_WINDIR", QDir(dir).absolutePath().toUtf8());

    Familia familia;
    try {
        familia = prepararFamilia(dir, archivoAyudaIncluido());
    } catch (const ErrorVB& e) {
        QMessageBox::critical(nullptr, QStringLiteral("Programa Qualvia"),
                              QStringLiteral("No se pudo preparar la carpeta de la familia:\n") + e.descripcion);
        return 1;
    }

    VentanaIntegrador ventana(familia.carpeta, familia.archivoBase);
    ventana.show();
    if (opciones.isSet(abrir))
        ventana.abrirModuloAlMostrarse();
    return app.exec();
}
