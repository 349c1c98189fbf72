// Start-up time of modulo0931: from the moment the process is started to the first idle moment
// of its event loop with the main window shown and the database open. Runs the real program
// on the offscreen platform against a fresh family folder with the demo database, 20 times
// after one warm-up run, and prints median and maximum.
//
//   bench_arranque [RUTA_DE_modulo0931] [VECES]
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "basic/errores.h"
#include "shell/familia.h"

namespace {

struct Medida {
    double total = -1;     // process start to idle, measured here
    double interno = -1;   // main() to idle, as the program reports it
};

Medida medirUna(const QString& programa, const QProcessEnvironment& entorno)
{
    QProcess p;
    p.setProcessEnvironment(entorno);
    p.setProcessChannelMode(QProcess::SeparateChannels);
    QElapsedTimer reloj;
    reloj.start();
    p.start(programa, {});
    Medida m;
    QByteArray salida;
    while (p.waitForReadyRead(10000)) {
        salida += p.readAllStandardOutput();
        const int i = salida.indexOf("arranque_ms=");
        if (i >= 0 && salida.indexOf('\n', i) > 0) {
            m.total = reloj.nsecsElapsed() / 1e6;
            m.interno = salida.mid(i + 12, salida.indexOf('\n', i) - i - 12).toDouble();
            break;
        }
    }
    if (!p.waitForFinished(10000))
        p.kill();
    if (m.total < 0)
        std::fprintf(stderr, "sin medida; salida: %s %s\n", salida.constData(), p.readAllStandardError().constData());
    return m;
}

void imprimir(const char* nombre, std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    const double mediana = n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
    std::printf("%-34s mediana %7.1f ms   máximo %7.1f ms   mínimo %7.1f ms\n", nombre, mediana, v.back(), v.front());
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    QString programa = args.value(1);
    if (programa.isEmpty()) {
        for (const QString& c : {QStringLiteral("/../modulo0931"), QStringLiteral("/modulo0931")}) {
            if (QFileInfo(app.applicationDirPath() + c).isExecutable()) {
                programa = QFileInfo(app.applicationDirPath() + c).canonicalFilePath();
                break;
            }
        }
    }
    const int veces = args.value(2, QStringLiteral("20")).toInt();
    if (programa.isEmpty() || veces <= 0) {
        std::fprintf(stderr, "uso: bench_arranque [RUTA_DE_modulo0931] [VECES]\n");
        return 2;
    }

    QTemporaryDir dir;
    qputenv("QVL_WINDIR", dir.path().toUtf8());
    try {
        prepararFamilia(dir.filePath(QStringLiteral("familia")));
    } catch (const ErrorVB& e) {
        std::fprintf(stderr, "no se pudo preparar la familia: %s\n", qPrintable(e.descripcion));
        return 1;
    }

    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(QStringLiteral("QVL_WINDIR"), dir.path());
    entorno.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    entorno.insert(QStringLiteral("F931_MEDIR_ARRANQUE"), QStringLiteral("1"));
    // The lock of the single-instance test goes to a folder of its own, so an open module of
    // the user does not stop the measurement.
    entorno.insert(QStringLiteral("TMPDIR"), dir.path());

    medirUna(programa, entorno);   // warm-up: page cache, font cache
    std::vector<double> totales, internos;
    for (int i = 0; i < veces; ++i) {
        const Medida m = medirUna(programa, entorno);
        if (m.total < 0)
            return 1;
        totales.push_back(m.total);
        internos.push_back(m.interno);
    }
    std::printf("arranque de %s, %d veces (offscreen, base de demostración)\n", qPrintable(programa), veces);
    imprimir("inicio del proceso -> ventana lista", totales);
    imprimir("main() -> ventana lista", internos);
    return 0;
}
