// Times of the declaration report: loading a declaration, building its spool file, reading it
// back into pages, and drawing the five pages into a PDF. Prints the median of each.
// Goals: building under 5 ms, PDF of five pages under 200 ms.
#include "comun/base_prueba.h"

#include "reports/informe.h"
#include "reports/reproduccion.h"
#include "reports/spool.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

double mediana(int veces, const std::function<void()>& f)
{
    std::vector<double> ms;
    f();   // warm-up: caches, fonts, prepared statements
    for (int i = 0; i < veces; ++i) {
        QElapsedTimer t;
        t.start();
        f();
        ms.push_back(t.nsecsElapsed() / 1e6);
    }
    std::sort(ms.begin(), ms.end());
    return ms[ms.size() / 2];
}

void declaracion(const QString& ruc, const QString& periodo)
{
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, ESTADO) VALUES (6,?,?,'0931',0)"),
             {ruc, periodo});
    // Every casilla the report shows, with a value.
    QList<int> casillas;
    for (int c = 500; c <= 555; ++c)
        casillas << c;
    for (int c = 461; c <= 493; ++c)
        casillas << c;
    casillas << 100 << 101 << 103 << 105 << 106 << 107 << 108 << 150 << 110 << 111 << 113 << 250 << 251 << 252 << 253
             << 432 << 433 << 650 << 651 << 208 << 209 << 211 << 212 << 225 << 226;
    Transaccion t;
    for (int c : casillas)
        ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR) VALUES (6,?,?,'0931',?,?)"),
                 {ruc, periodo, QStringLiteral("%1").arg(c, 3, 10, QLatin1Char('0')), QString::number(c * 1234567LL % 99999999 - 4000000)});
    const QStringList otras{"056=2", "810=1", "809=0", "860=1", "811=0", "812=160101", "605=0", "606=1", "607=0", "608=1",
                            "609=A", "610=0.0420", "028=4215566", "815=PEREZ", "816=JUAN", "817=ROJAS", "818=ANA"};
    for (const QString& o : otras)
        ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR) VALUES (6,?,?,'0931',?,?)"),
                 {ruc, periodo, o.section(QLatin1Char('='), 0, 0), o.section(QLatin1Char('='), 1)});
    for (int i = 0; i < 10; ++i)
        ejecutar(QStringLiteral("INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe) VALUES (6,?,?,'0931',?,?)"),
                 {ruc, periodo, QString::number(2000 + i), QString::number(100000 * (i + 1))});
    t.commit();
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    FamiliaPrueba familia;
    Globales& g = G();
    declaracion(DatosDemo::kRucAndina, QStringLiteral("201206"));
    g.gsRucRpt = DatosDemo::kRucAndina;
    g.gsPeriodoRpt = QStringLiteral("201206");
    g.gsNombreRpt = DatosDemo::kNombreAndina;
    g.gnTipoRpt = 2;
    g.gsDestinoRpt = QStringLiteral("ARCHIVO");

    const double consulta = mediana(50, [] { pConsulta(); });
    // Each request writes a new file, as the print selection does (a file rewritten in place
    // costs the file system a flush on close).
    int n = 0;
    const double construir = mediana(100, [&] {
        G().gsRutaRpt = rutaSpool(QStringLiteral("%1.PRN").arg(++n, 8, 10, QLatin1Char('0')));
        pImprimeReporte(QString());
    });
    const QStringList lineas = leeLineasSpool(g.gsRutaRpt);
    const double leer = mediana(100, [&] { reproduceSpool(leeLineasSpool(G().gsRutaRpt), false, {}); });
    const DocumentoSpool doc = reproduceSpool(lineas, false, {});
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("bench.pdf"));
    const double dibujar = mediana(20, [&] { guardaPdf(pdf, doc); });

    std::printf("spool file: %lld lines, %d pages\n", static_cast<long long>(lineas.size()), int(doc.nTotHojas));
    std::printf("load declaration (pConsulta)      median %8.3f ms\n", consulta);
    std::printf("build spool file (pImprimeReporte) median %8.3f ms   goal < 5 ms\n", construir);
    std::printf("read spool into pages             median %8.3f ms\n", leer);
    std::printf("draw five pages to PDF            median %8.3f ms   goal < 200 ms\n", dibujar);
    return 0;
}
