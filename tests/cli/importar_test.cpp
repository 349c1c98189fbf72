// The `validar`, `importar` and `exportar` commands, run as a user runs them, and a save
// killed again and again in the middle.
#include "form931/grabacion_comun.h"

#include "store/crear.h"
#include "store/funciones.h"

#include "cli/proceso.h"
#include <QElapsedTimer>
#include <QJsonArray>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QThread>

#include <iostream>
#include <gtest/gtest.h>

using namespace prueba931;

namespace {

const QString kRuc = DatosDemo::kRucAndina;
const QString kPeriodo = QStringLiteral("202608");

QString escribirEntrada(const EntradaDeclaracion& e, const QString& nombre = QStringLiteral("entrada.json"))
{
    return escribirArchivo(json(e), nombre);
}

class Comandos : public PruebaConBase {
protected:
    Corrida f931(const QString& comando, const QStringList& argumentos) { return ::f931(QStringList{comando} + argumentos); }

    Corrida importar(const QString& entrada, const QString& base)
    {
        return f931(QStringLiteral("importar"), comunes(base) << entrada);
    }

    static QStringList textos(const QJsonObject& salida)
    {
        QStringList l;
        for (const QJsonValue& m : salida.value(QStringLiteral("mensajes")).toArray())
            l << m.toObject().value(QStringLiteral("texto")).toString();
        return l;
    }
};

// ---------------------------------------------------------------------------- validar, importar

TEST_F(Comandos, ValidarInformaEImportarGrabaLoQueValidarDijo)
{
    EntradaDeclaracion mala = declaracionConsistente();
    mala.casillas[QStringLiteral("532")] = QStringLiteral("401");
    const QString entrada = escribirEntrada(mala);
    Corrida r = f931(QStringLiteral("validar"), comunes(familia.baseDatos()) << entrada);
    ASSERT_EQ(r.codigo, 0) << r.error();
    EXPECT_EQ(r.json().value(QStringLiteral("estado")).toInt(-1), 9);
    EXPECT_EQ(r.json().value(QStringLiteral("inconsistencias")).toArray(),
              QJsonArray{QStringLiteral("El Total Activo debe ser igual a Total Pasivo + Patrimonio")});
    EXPECT_EQ(r.json().value(QStringLiteral("casillas")).toObject().value(QStringLiteral("531")).toString(), QStringLiteral("1,000"));
    EXPECT_EQ(contar(QStringLiteral("CAB")), 0);

    const Corrida grabada = importar(entrada, familia.baseDatos());
    ASSERT_EQ(grabada.codigo, 0) << grabada.error();
    EXPECT_EQ(grabada.json().value(QStringLiteral("inconsistencias")), r.json().value(QStringLiteral("inconsistencias")));
    EXPECT_EQ(grabada.json().value(QStringLiteral("estado")).toInt(-1), escalar(QStringLiteral("SELECT ESTADO FROM CAB")).toInt());
    EXPECT_TRUE(textos(grabada.json()).last().startsWith(QStringLiteral("La información de la declaración fue grabada con")));
    QJsonArray det;
    QSqlQuery q = ejecutar(QStringLiteral("SELECT CASILLA, I_VALOR FROM DET ORDER BY rowid"));
    while (q.next())
        det.append(QJsonArray{q.value(0).toString(), q.value(1).toString()});
    EXPECT_EQ(grabada.json().value(QStringLiteral("det")).toArray(), det);

    // The same new declaration again is refused (it exists), and so is one without a regime.
    r = importar(entrada, familia.baseDatos());
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(textos(r.json()).last().startsWith(QStringLiteral("La declaración que desea registrar ya existe ")));
    EXPECT_EQ(r.json().value(QStringLiteral("det")).toArray(), QJsonArray());
    mala.casillas.remove(QStringLiteral("056"));
    mala.ruc = DatosDemo::kRucPacifico;
    r = importar(escribirEntrada(mala), familia.baseDatos());
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(textos(r.json()).last(), QStringLiteral("Debe señalar el regimen de renta"));
    EXPECT_EQ(contar(QStringLiteral("CAB")), 1);
}

// ---------------------------------------------------------------------------- exportar

class IdaYVueltaCli : public Comandos, public ::testing::WithParamInterface<const char*> {};

// A stored declaration exported and imported into a database without it gives the same rows.
TEST_P(IdaYVueltaCli, ExportarEImportarDaLasMismasFilas)
{
    ASSERT_EQ(importar(escribirEntrada(declaracionDeRegimen(QString::fromLatin1(GetParam()))), familia.baseDatos()).codigo, 0);
    const QMap<QString, QString> original = mapaDet(kPeriodo);

    Corrida exportada = f931(QStringLiteral("exportar"), comunes(familia.baseDatos())
                                                               << QStringLiteral("--ruc") << kRuc
                                                               << QStringLiteral("--periodo") << kPeriodo);
    ASSERT_EQ(exportada.codigo, 0) << exportada.error();
    EXPECT_EQ(exportada.json().value(QStringLiteral("ruc")).toString(), kRuc);
    const QJsonObject casillas = exportada.json().value(QStringLiteral("casillas")).toObject();
    EXPECT_FALSE(casillas.contains(QStringLiteral("531")));   // computed: the form works it out
    EXPECT_FALSE(casillas.contains(QStringLiteral("473")));   // given by its parts
    EXPECT_EQ(casillas.value(QStringLiteral("462")).toString(), QStringLiteral("15000"));   // typed without sign

    const QString otra = familia.carpeta() + QStringLiteral("otra.db");
    crearBaseDatos(otra, true);
    const QString archivo = escribirArchivo(exportada.salida, QStringLiteral("exportada.json"));
    const Corrida r = importar(archivo, otra);
    ASSERT_EQ(r.codigo, 0) << r.error();
    QMap<QString, QString> reimportada;
    for (const QJsonValue& par : r.json().value(QStringLiteral("det")).toArray())
        reimportada.insert(par.toArray().at(0).toString(), par.toArray().at(1).toString());
    EXPECT_EQ(diferencias(original, reimportada), "");
}

INSTANTIATE_TEST_SUITE_P(Regimenes, IdaYVueltaCli, ::testing::Values("4", "1", "2", "3", "6", "8"));

// No declaration, a bad period, a taxpayer the user doesn't see: bad input.
TEST_F(Comandos, ExportarSoloLoQueExisteYElUsuarioVe)
{
    EntradaDeclaracion e = declaracionConsistente();
    e.ruc = DatosDemo::kRucNorte;   // ADMIN's
    ASSERT_EQ(importar(escribirEntrada(e), familia.baseDatos()).codigo, 0);
    QStringList args = {QStringLiteral("--base"), familia.baseDatos(), QStringLiteral("--usuario"), DatosDemo::kContador,
                        QStringLiteral("--ruc"), DatosDemo::kRucNorte, QStringLiteral("--periodo"), QStringLiteral("202605")};
    EXPECT_EQ(f931(QStringLiteral("exportar"), args).codigo, 2);
    args[3] = DatosDemo::kAdmin;
    EXPECT_EQ(f931(QStringLiteral("exportar"), args).codigo, 0);
    args[7] = QStringLiteral("202608");
    EXPECT_EQ(f931(QStringLiteral("exportar"), args).codigo, 2);
    args[7] = QStringLiteral("2026-5");
    EXPECT_EQ(f931(QStringLiteral("exportar"), args).codigo, 2);
    EXPECT_EQ(f931(QStringLiteral("exportar"), args.mid(0, 6)).codigo, 2);
}

// ---------------------------------------------------------------------------- killed saves

// `importar` of a big declaration is killed at random moments, again and again. After each
// kill the declaration is either not stored at all or stored whole, never in part. A trigger
// that reads a ballast table on every row stretches the save, so that many kills land in it.
TEST_F(Comandos, UnaGrabacionMatadaNoQuedaAMedias)
{
    ejecutar(QStringLiteral("CREATE TABLE lastre (x INTEGER)"));
    {
        Transaccion t;
        for (int i = 0; i < 20000; ++i)
            ejecutar(QStringLiteral("INSERT INTO lastre VALUES (?)"), {i});
        t.commit();
    }
    ejecutar(QStringLiteral("CREATE TRIGGER lento AFTER INSERT ON DET BEGIN"
                            " SELECT count(*) FROM lastre WHERE x % 13 = length(NEW.I_VALOR); END"));
    const QString entrada = escribirEntrada(declaracionDeRegimen());

    // The whole declaration, as an undisturbed run stores it.
    QElapsedTimer reloj;
    reloj.start();
    ASSERT_EQ(importar(entrada, familia.baseDatos()).codigo, 0);
    const qint64 duracion = reloj.elapsed();
    const QStringList cabecera = volcado(QStringLiteral("CAB"), kPeriodo);
    const QStringList completa = volcado(QStringLiteral("DET"), kPeriodo);
    ASSERT_GT(completa.size(), 100);
    eliminarDeclaracion(kRuc, kPeriodo);

    int ausentes = 0, enteras = 0;
    for (int vez = 0; vez < 20; ++vez) {
        const auto p = lanzar(QStringList{QStringLiteral("importar")} << comunes(familia.baseDatos()) << entrada);
        // The save comes last in a run: the moments lean towards the end of it.
        QThread::msleep(static_cast<unsigned long>(QRandomGenerator::global()->bounded(duracion / 3, duracion * 11 / 10 + 1)));
        p->kill();
        p->waitForFinished(30000);

        const QStringList cab = volcado(QStringLiteral("CAB"), kPeriodo);
        const QStringList det = volcado(QStringLiteral("DET"), kPeriodo);
        if (cab.isEmpty()) {
            EXPECT_TRUE(det.isEmpty()) << "vez " << vez << ": " << det.size() << " filas sin cabecera";
            ++ausentes;
        } else {
            EXPECT_EQ(cab, cabecera) << "vez " << vez;
            EXPECT_EQ(det, completa) << "vez " << vez;
            ++enteras;
            eliminarDeclaracion(kRuc, kPeriodo);
        }
    }
    EXPECT_EQ(escalar(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
    std::cout << "[ killed ] " << ausentes << " sin declaración, " << enteras << " enteras (una corrida: " << duracion
              << " ms)" << std::endl;
}

}  // namespace
