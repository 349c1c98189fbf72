// Declarations per second of a batch import: a few hundred generated declarations (distinct
// RUC and period: two balance dates for each of N/2 taxpayers added to a fresh database) fed as
// JSON Lines to one `f931 importar -` process. For comparison, the same kind of declaration
// imported with one process each, as a script without the batch would do it. Prints figures;
// the goal is 200 declarations per second for the batch.
//
//   bench_lote [DECLARACIONES] [RUTA_DE_f931] [COPIA_DEL_LOTE.jsonl]
#include "form931/grabacion_comun.h"
#include "rutas_prueba.h"
#include "store/base.h"
#include "store/crear.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <cstdio>

namespace {

const char* const kHoy = "2026-11-22";

// An eleven-digit RUC with its check digit: weights 5 4 3 2 7 6 5 4 3 2 over the first ten.
QString ruc(int n)
{
    const QString base = QStringLiteral("20%1").arg(70000000 + n, 8, 10, QLatin1Char('0'));
    static const int pesos[] = {5, 4, 3, 2, 7, 6, 5, 4, 3, 2};
    int suma = 0;
    for (int i = 0; i < 10; ++i)
        suma += base[i].digitValue() * pesos[i];
    int d = 11 - suma % 11;
    d = d == 10 ? 0 : d == 11 ? 1 : d;
    return base + QString::number(d);
}

// A fresh database with the taxpayers of the batch, all of ADMIN.
QString prepararBase(const QString& carpeta, int contribuyentes)
{
    const QString archivo = carpeta + QStringLiteral("/QL000.DB");
    crearBaseDatos(archivo, true);
    abrirBase(archivo);
    {
        Transaccion t;
        for (int i = 0; i < contribuyentes; ++i)
            ejecutar(QStringLiteral("INSERT INTO CONT (TIP_DOC_D, DOC_ID_D, TIPO_CONT, NOMBRE, USUARIO, Tipo_Ingreso)"
                                    " VALUES (6, ?, 'J', ?, ?, 1)"),
                     {ruc(i), QStringLiteral("EMPRESA DE PRUEBA %1 S.A.C.").arg(i), DatosDemo::kAdmin});
        t.commit();
    }
    cerrarBase();
    return archivo;
}

// Declaration i: the full declaration of the general regime, its figures moved by i, for
// taxpayer i / 2 with the balance at 30 April (even i) or 31 July (odd i).
QByteArray declaracion(int i)
{
    EntradaDeclaracion e = prueba931::declaracionDeRegimen();
    QJsonObject casillas;
    for (auto it = e.casillas.cbegin(); it != e.casillas.cend(); ++it)
        casillas.insert(it.key(), it.value());
    casillas.insert(QStringLiteral("608"), i % 2 ? QStringLiteral("1") : QStringLiteral("0"));
    casillas.insert(QStringLiteral("461"), QString::number(900000 + 37 * i));
    casillas.insert(QStringLiteral("500"), QString::number(1000 + i));
    const QJsonObject o{{QStringLiteral("ruc"), ruc(i / 2)}, {QStringLiteral("casillas"), casillas}};
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

double cpuHijos()
{
    rusage r{};
    getrusage(RUSAGE_CHILDREN, &r);
    return r.ru_utime.tv_sec + r.ru_stime.tv_sec + (r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1e6;
}

QStringList opciones(const QString& base)
{
    return {QStringLiteral("importar"), QStringLiteral("--base"), base, QStringLiteral("--usuario"), DatosDemo::kAdmin,
            QStringLiteral("--hoy"), QString::fromLatin1(kHoy)};
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int total = argc > 1 ? std::max(2, atoi(argv[1])) / 2 * 2 : 300;
    const QString f931 = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QStringLiteral(F931_BIN_F931);
    QTemporaryDir carpeta;
    QByteArray lote;
    for (int i = 0; i < total; ++i)
        lote += declaracion(i) + '\n';
    if (argc > 3) {
        QFile copia(QString::fromLocal8Bit(argv[3]));
        if (copia.open(QIODevice::WriteOnly))
            copia.write(lote);
    }

    // The batch: one process, standard input as JSON Lines.
    const QString base = prepararBase(carpeta.path(), total / 2);
    QProcess p;
    QElapsedTimer reloj;
    const double cpuAntes = cpuHijos();
    reloj.start();
    p.start(f931, opciones(base) << QStringLiteral("-"));
    p.write(lote);
    p.closeWriteChannel();
    p.waitForFinished(-1);
    const double segundos = reloj.nsecsElapsed() / 1e9;
    const double cpu = cpuHijos() - cpuAntes;
    const int lineas = static_cast<int>(p.readAllStandardOutput().count('\n'));
    const QByteArray errores = p.readAllStandardError().trimmed();
    if (p.exitCode() != 0 || lineas != total) {
        std::fprintf(stderr, "the batch did not save every declaration (exit %d, %d lines): %s\n", p.exitCode(), lineas,
                     errores.right(400).constData());
        return 1;
    }
    std::printf("batch of %d declarations, one process:   %7.1f declarations/s  (%.2f s; %.2f ms of CPU each; goal >= 200/s)\n",
                total, total / segundos, segundos, cpu * 1000 / total);

    // One process per declaration, for a tenth of them, into another fresh database.
    QTemporaryDir otra;
    const QString base2 = prepararBase(otra.path(), total / 2);
    const int sueltas = std::max(2, total / 10);
    const double cpuAntes2 = cpuHijos();
    reloj.restart();
    for (int i = 0; i < sueltas; ++i) {
        const QString archivo = otra.filePath(QStringLiteral("d.json"));
        QFile f(archivo);
        f.open(QIODevice::WriteOnly | QIODevice::Truncate);
        f.write(declaracion(i));
        f.close();
        QProcess una;
        una.start(f931, opciones(base2) << archivo);
        una.waitForFinished(-1);
        if (una.exitCode() != 0) {
            std::fprintf(stderr, "declaration %d was not saved: %s\n", i, una.readAllStandardError().constData());
            return 1;
        }
    }
    const double segundos2 = reloj.nsecsElapsed() / 1e9;
    std::printf("%d declarations, one process each:       %7.1f declarations/s  (%.2f s; %.2f ms of CPU each)\n", sueltas,
                sueltas / segundos2, segundos2, (cpuHijos() - cpuAntes2) * 1000 / sueltas);
    return 0;
}
