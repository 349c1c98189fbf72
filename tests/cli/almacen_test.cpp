// The shared database seen from f931: two saves of one new declaration at the same moment, a
// database out of reach (locked, missing, not the family's), a new database killed while it is
// written, the check codes of the stored rows and a copy taken while others work.
#include "form931/grabacion_comun.h"
#include "store/crear.h"
#include "store/funciones.h"
#include "store/motor_directo.h"

#include "cli/proceso.h"
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QRandomGenerator>
#include <QThread>

#include <chrono>
#include <csignal>
#include <iostream>
#include <memory>
#include <thread>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <gtest/gtest.h>

using namespace prueba931;

namespace {

const QString kRuc = DatosDemo::kRucAndina;
const QString kPeriodo = QStringLiteral("202605");   // declaracionConsistente(): balance at 30 April
const QString kYaExiste = QStringLiteral("La declaración que desea registrar ya existe 20100001234. "
                                         "Elija la opción modificar declaración o elija otro contribuyente.");

QByteArray huella(const QString& archivo)
{
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArrayLiteral("<no se lee>");
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256).toHex();
}

QStringList contenido(const QString& carpeta)
{
    return QDir(carpeta).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

class Almacen : public PruebaConBase {
protected:
    // Written once: a process may be reading it while the next one starts.
    QString entrada()
    {
        const QString archivo = familia.carpeta() + QStringLiteral("entrada.json");
        if (QFileInfo::exists(archivo))
            return archivo;
        return escribirArchivo(json(declaracionConsistente()));
    }

    QStringList importar(const QString& base) { return QStringList{QStringLiteral("importar")} + comunes(base) << entrada(); }

    // Every command that opens the database, on `base`.
    QList<QStringList> todos(const QString& base, const QString& copia)
    {
        const QStringList clave = {QStringLiteral("--ruc"), kRuc, QStringLiteral("--periodo"), kPeriodo};
        const QString e = entrada();
        return {QStringList{QStringLiteral("calcular")} + comunes(base) << e,
                QStringList{QStringLiteral("validar")} + comunes(base) << e,
                QStringList{QStringLiteral("importar")} + comunes(base) << e,
                QStringList{QStringLiteral("exportar")} + comunes(base) + clave,
                QStringList{QStringLiteral("informe")} + comunes(base) + clave,
                QStringList{QStringLiteral("verificar"), QStringLiteral("--base"), base},
                QStringList{QStringLiteral("respaldar"), copia, QStringLiteral("--base"), base}};
    }
};

// ---------------------------------------------------------------------------- two saves at once

// Two `importar` of the same new declaration started together, round after round: one stores
// it, the other is refused with the form's message and exit 1, and what stands is one whole
// declaration, as a single run stores it.
TEST_F(Almacen, DosImportarALaVezUnoGrabaYElOtroSeRehusa)
{
    ASSERT_EQ(f931(importar(familia.baseDatos())).codigo, 0);
    const QStringList cabecera = volcado(QStringLiteral("CAB"), kPeriodo);
    const QStringList filas = volcado(QStringLiteral("DET"), kPeriodo);
    ASSERT_EQ(cabecera.size(), 1);
    eliminarDeclaracion(kRuc, kPeriodo);

    QElapsedTimer reloj;
    reloj.start();
    int vueltas = 0;
    for (; vueltas < 25 && reloj.elapsed() < 90000; ++vueltas) {
        auto a = lanzar(importar(familia.baseDatos()));
        auto b = lanzar(importar(familia.baseDatos()));
        const Corrida ra = terminar(*a), rb = terminar(*b);
        const Corrida& rehusada = ra.codigo == 1 ? ra : rb;
        EXPECT_EQ(QList<int>({qMin(ra.codigo, rb.codigo), qMax(ra.codigo, rb.codigo)}), QList<int>({0, 1}))
            << "vuelta " << vueltas << ": " << ra.error() << " / " << rb.error();
        EXPECT_EQ(rehusada.errores, QStringList{kYaExiste}) << "vuelta " << vueltas;
        const QJsonArray mensajes = rehusada.json().value(QStringLiteral("mensajes")).toArray();
        EXPECT_EQ(mensajes.isEmpty() ? QString() : mensajes.last().toObject().value(QStringLiteral("texto")).toString(), kYaExiste);
        EXPECT_EQ(volcado(QStringLiteral("CAB"), kPeriodo), cabecera) << "vuelta " << vueltas;
        EXPECT_EQ(volcado(QStringLiteral("DET"), kPeriodo), filas) << "vuelta " << vueltas;
        eliminarDeclaracion(kRuc, kPeriodo);
        if (HasFailure())
            break;
    }
    std::cout << "[ carrera ] " << vueltas << " vueltas en " << reloj.elapsed() << " ms" << std::endl;
}

// ---------------------------------------------------------------------------- out of reach

enum class Archivo { Vacio, Texto, SqliteAjena, SqliteAjenaWal, SoloAlgunasTablas, Carpeta, Ausente };

struct CasoArchivo {
    const char* nombre;
    Archivo tipo;
};

class ArchivoQueNoEsLaBase : public Almacen, public ::testing::WithParamInterface<CasoArchivo> {
protected:
    // The bad database in a folder of its own, so that anything written beside it shows.
    QString preparar()
    {
        const QString carpeta = familia.carpeta() + QStringLiteral("mala/");
        QDir().mkpath(carpeta);
        const QString base = carpeta + QStringLiteral("QL000.db");
        auto escribir = [&](const QByteArray& bytes) {
            QFile f(base);
            f.open(QIODevice::WriteOnly);
            f.write(bytes);
        };
        switch (GetParam().tipo) {
        case Archivo::Vacio: escribir(QByteArray()); break;
        case Archivo::Texto: escribir(QByteArray("RUC;NOMBRE\n20100001234;COMERCIAL ANDINA\n").repeated(200)); break;
        case Archivo::SqliteAjena:
        case Archivo::SqliteAjenaWal:
        case Archivo::SoloAlgunasTablas: {
            escribir(QByteArray());
            MotorDirecto m(base);
            const char* sql = GetParam().tipo == Archivo::SqliteAjena
                ? "CREATE TABLE CLIENTES (ID INTEGER, NOMBRE TEXT); INSERT INTO CLIENTES VALUES (1, 'X');"
                : GetParam().tipo == Archivo::SqliteAjenaWal
                ? "PRAGMA journal_mode=WAL; CREATE TABLE FACTURAS (ID INTEGER); INSERT INTO FACTURAS VALUES (7);"
                : "CREATE TABLE CAB (TIP_DOC_D INTEGER, DOC_ID_D TEXT); CREATE TABLE DET (CASILLA TEXT);";
            EXPECT_TRUE(m.ejecutar(sql)) << m.error();
            break;
        }
        case Archivo::Carpeta: QDir().mkpath(base); break;
        case Archivo::Ausente: break;
        }
        return base;
    }
};

// Every command refuses it with exit 3 and one Spanish line that names it, and leaves the file
// byte for byte as it was, with nothing written beside it.
TEST_P(ArchivoQueNoEsLaBase, CadaComandoSaleConTresSinTocarlo)
{
    const QString base = preparar();
    const QString carpeta = QFileInfo(base).absolutePath();
    const QByteArray antes = huella(base);
    const QStringList listado = contenido(carpeta);
    // Every command, and a batch on standard input.
    const QList<QStringList> comandos = todos(base, carpeta + QStringLiteral("/copia.db")) << (importar(base).mid(0, 7) << QStringLiteral("-"));
    for (const QStringList& args : comandos) {
        const Corrida r = f931(args, json(declaracionConsistente()));
        EXPECT_EQ(r.codigo, 3) << args.first().toStdString() << ": " << r.error();
        EXPECT_EQ(r.errores.size(), 1) << args.first().toStdString() << ": " << r.error();
        EXPECT_TRUE(r.errores.value(0).contains(QDir::toNativeSeparators(base))) << args.first().toStdString() << ": " << r.error();
        EXPECT_FALSE(r.errores.value(0).contains(QStringLiteral("database"))) << r.error();
        EXPECT_EQ(huella(base), antes) << args.first().toStdString();
        EXPECT_EQ(contenido(carpeta), listado) << args.first().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Casos, ArchivoQueNoEsLaBase,
                         ::testing::Values(CasoArchivo{"vacio", Archivo::Vacio}, CasoArchivo{"texto", Archivo::Texto},
                                           CasoArchivo{"sqlite_de_otro_programa", Archivo::SqliteAjena},
                                           CasoArchivo{"sqlite_de_otro_programa_en_wal", Archivo::SqliteAjenaWal},
                                           CasoArchivo{"solo_algunas_tablas", Archivo::SoloAlgunasTablas},
                                           CasoArchivo{"carpeta", Archivo::Carpeta}, CasoArchivo{"ausente", Archivo::Ausente}),
                         [](const auto& info) { return std::string(info.param.nombre); });

// Another program keeps the database to itself past the wait: every command, started together,
// says so in Spanish and exits 3.
TEST_F(Almacen, BaseBloqueadaPorOtroProgramaSaleConTres)
{
    cerrarBase();   // the test's own connection would keep the other program from its lock
    MotorDirecto otro(familia.baseDatos());
    ASSERT_TRUE(otro.ejecutar("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE;"
                              " INSERT INTO CLAVES (Usuario, Tipo) VALUES ('OTRO', '1');"))
        << otro.error();
    const QList<QStringList> comandos = todos(familia.baseDatos(), familia.carpeta() + QStringLiteral("copia.db"));
    std::vector<std::unique_ptr<QProcess>> procesos;
    for (const QStringList& args : comandos)
        procesos.push_back(lanzar(args));
    for (size_t i = 0; i < procesos.size(); ++i) {
        const Corrida r = terminar(*procesos[i]);
        const std::string comando = comandos[static_cast<int>(i)].first().toStdString();
        EXPECT_EQ(r.codigo, 3) << comando << ": " << r.error();
        EXPECT_TRUE(r.errores.value(0).startsWith(QStringLiteral("La base de datos %1 está bloqueada por otro programa")
                                           .arg(QDir::toNativeSeparators(familia.baseDatos()))))
            << comando << ": " << r.error();
    }
    EXPECT_FALSE(QFileInfo::exists(familia.carpeta() + QStringLiteral("copia.db")));
}

// A save that finds the write lock taken waits for it; past the wait it gives up with exit 3
// and stores nothing, while reading goes on.
TEST_F(Almacen, ImportarEsperaElBloqueoYLuegoSaleConTres)
{
    {
        MotorDirecto otro(familia.baseDatos());
        ASSERT_TRUE(otro.ejecutar("BEGIN IMMEDIATE; INSERT INTO CLAVES (Usuario, Tipo) VALUES ('OTRO', '1');"));
        const Corrida r = f931(importar(familia.baseDatos()));
        EXPECT_EQ(r.codigo, 3) << r.error();
        EXPECT_TRUE(r.errores.value(0).contains(QStringLiteral("está bloqueada por otro programa"))) << r.error();
        const Corrida lectura = f931(QStringList{QStringLiteral("calcular")} + comunes(familia.baseDatos()) << entrada());
        EXPECT_EQ(lectura.codigo, 0) << lectura.error();
    }
    EXPECT_EQ(contar(QStringLiteral("CAB")), 0);
    EXPECT_EQ(contar(QStringLiteral("DET")), 0);

    // Released within the wait: the save goes through.
    std::thread otro([base = familia.baseDatos()] {
        MotorDirecto m(base);
        m.ejecutar("BEGIN IMMEDIATE;");
        std::this_thread::sleep_for(std::chrono::milliseconds(1000));
        m.ejecutar("COMMIT;");
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const Corrida r = f931(importar(familia.baseDatos()));
    otro.join();
    EXPECT_EQ(r.codigo, 0) << r.error();
    EXPECT_EQ(contar(QStringLiteral("CAB")), 1);
}

// A file the process may not write. For a user who writes any file (root) the file is made
// immutable for the while.
class SoloLectura {
public:
    explicit SoloLectura(const QString& archivo) : archivo_(QFile::encodeName(archivo))
    {
        QFile::setPermissions(archivo, QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther);
        if (::access(archivo_.constData(), W_OK) != 0)
            return;
        fd_ = ::open(archivo_.constData(), O_RDONLY | O_CLOEXEC);
        int banderas = 0;
        if (fd_ < 0 || ::ioctl(fd_, FS_IOC_GETFLAGS, &banderas) != 0)
            return;
        banderas |= FS_IMMUTABLE_FL;
        inmutable_ = ::ioctl(fd_, FS_IOC_SETFLAGS, &banderas) == 0;
    }
    ~SoloLectura()
    {
        if (inmutable_) {
            int banderas = 0;
            ::ioctl(fd_, FS_IOC_GETFLAGS, &banderas);
            banderas &= ~FS_IMMUTABLE_FL;
            ::ioctl(fd_, FS_IOC_SETFLAGS, &banderas);
        }
        if (fd_ >= 0)
            ::close(fd_);
    }
    bool vale() const { return ::access(archivo_.constData(), W_OK) != 0; }

private:
    QByteArray archivo_;
    int fd_ = -1;
    bool inmutable_ = false;
};

// A database the process may not write is refused before anything is done.
TEST_F(Almacen, BaseDeSoloLecturaSaleConTres)
{
    const QString base = familia.baseDatos();
    cerrarBase();
    SoloLectura solo(base);
    if (!solo.vale())
        GTEST_SKIP() << "no way here to keep the tests' user from writing the file";
    const QByteArray antes = huella(base);
    for (const QStringList& args : {importar(base), QStringList{QStringLiteral("verificar"), QStringLiteral("--base"), base}}) {
        const Corrida r = f931(args);
        EXPECT_EQ(r.codigo, 3) << r.error();
        EXPECT_EQ(r.errores, QStringList{QStringLiteral("La base de datos %1 es de solo lectura. Pida permiso de escritura sobre "
                                                    "el archivo y su carpeta, o trabaje con una copia que pueda modificar.")
                                         .arg(QDir::toNativeSeparators(base))});
    }
    EXPECT_EQ(huella(base), antes);
}

// ---------------------------------------------------------------------------- crear-base

// `crear-base` killed at random moments, by SIGKILL and by SIGTERM: the folder holds the
// finished database or nothing, never a part or a temporary, and the next run is not hindered.
TEST_F(Almacen, CrearBaseMatadaNoDejaNadaAMedias)
{
    const QString carpeta = familia.carpeta() + QStringLiteral("nueva");
    QDir().mkpath(carpeta);
    const QString base = carpeta + QStringLiteral("/QL000.db");
    QElapsedTimer reloj;
    reloj.start();
    ASSERT_EQ(f931({QStringLiteral("crear-base"), base}).codigo, 0);
    const qint64 duracion = qMax<qint64>(reloj.elapsed(), 20);
    ASSERT_TRUE(QFile::remove(base));

    int enteras = 0, nada = 0;
    for (int vez = 0; vez < 30; ++vez) {
        auto p = lanzar({QStringLiteral("crear-base"), base});
        QThread::msleep(static_cast<unsigned long>(QRandomGenerator::global()->bounded(duracion / 4, duracion * 11 / 10 + 1)));
        // A run that already ended has no pid (0), and kill(0) would signal this whole group.
        if (const auto pid = static_cast<pid_t>(p->processId()); pid > 0)
            ::kill(pid, vez % 2 ? SIGTERM : SIGKILL);
        p->waitForFinished(30000);
        const QStringList queda = contenido(carpeta);
        if (queda.isEmpty()) {
            ++nada;
            continue;
        }
        ASSERT_EQ(queda, QStringList{QStringLiteral("QL000.db")}) << "vez " << vez;
        MotorDirecto m(base);
        EXPECT_TRUE(m.ejecutar("SELECT count(*) FROM SPOOL; PRAGMA quick_check;")) << m.error();
        ++enteras;
        ASSERT_TRUE(QFile::remove(base));
    }
    ASSERT_EQ(f931({QStringLiteral("crear-base"), base}).codigo, 0);
    EXPECT_EQ(contenido(carpeta), QStringList{QStringLiteral("QL000.db")});
    // An existing file is never replaced.
    const QByteArray antes = huella(base);
    const Corrida otra = f931({QStringLiteral("crear-base"), base});
    EXPECT_EQ(otra.codigo, 2);
    EXPECT_TRUE(otra.errores.value(0).contains(QStringLiteral("ya existe; no se sobrescribe"))) << otra.error();
    EXPECT_EQ(huella(base), antes);
    std::cout << "[ crear-base ] " << nada << " sin archivo, " << enteras << " enteras (una corrida: " << duracion << " ms)"
              << std::endl;
}

// ---------------------------------------------------------------------------- verificar, respaldar

// A stored declaration verifies; a row changed by hand with an SQL tool is found, with its key,
// its stored code and the one its values give.
TEST_F(Almacen, VerificarEncuentraLaFilaCambiadaAMano)
{
    ASSERT_EQ(f931(importar(familia.baseDatos())).codigo, 0);
    const QStringList verificar = {QStringLiteral("verificar"), QStringLiteral("--base"), familia.baseDatos()};
    Corrida r = f931(verificar);
    ASSERT_EQ(r.codigo, 0) << r.error() << r.salida.toStdString();
    EXPECT_EQ(r.json().value(QStringLiteral("revisadas")).toInt(), contar(QStringLiteral("CAB")) + contar(QStringLiteral("DET")));
    EXPECT_EQ(r.json().value(QStringLiteral("distintas")).toInt(-1), 0);

    const QString guardado = escalar(QStringLiteral("SELECT cNumero FROM DET WHERE CASILLA='532'")).toString();
    {
        MotorDirecto herramienta(familia.baseDatos());
        ASSERT_TRUE(herramienta.ejecutar("UPDATE DET SET I_VALOR='4000' WHERE CASILLA='532';")) << herramienta.error();
    }
    QSqlQuery fila = ejecutar(QStringLiteral("SELECT * FROM DET WHERE CASILLA='532'"));
    ASSERT_TRUE(fila.next());
    const QString esperado = CodigoFila(fila.record(), 6);
    ASSERT_NE(esperado, guardado);

    r = f931(verificar);
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.json().value(QStringLiteral("distintas")).toInt(), 1);
    const QJsonArray filas = r.json().value(QStringLiteral("filas")).toArray();
    ASSERT_EQ(filas.size(), 1) << r.salida.toStdString();
    const QJsonObject d = filas.first().toObject();
    EXPECT_EQ(d.value(QStringLiteral("tabla")).toString(), QStringLiteral("DET"));
    EXPECT_EQ(d.value(QStringLiteral("guardado")).toString(), guardado);
    EXPECT_EQ(d.value(QStringLiteral("esperado")).toString(), esperado);
    // The key of the row: the store's test, table by table.
    EXPECT_EQ(d.value(QStringLiteral("clave")).toObject().value(QStringLiteral("CASILLA")).toString(), QStringLiteral("532"));
}

// The copy is taken while another program holds an open write transaction: it has what was
// committed and not the rest, and it verifies. An existing file is not replaced.
TEST_F(Almacen, RespaldarCopiaLoConfirmadoMientrasOtrosEscriben)
{
    ASSERT_EQ(f931(importar(familia.baseDatos())).codigo, 0);
    const QString carpeta = familia.carpeta() + QStringLiteral("copias");
    QDir().mkpath(carpeta);
    const QString copia = carpeta + QStringLiteral("/respaldo.db");
    {
        MotorDirecto otro(familia.baseDatos());
        ASSERT_TRUE(otro.ejecutar("BEGIN IMMEDIATE; DELETE FROM DET; INSERT INTO CLAVES (Usuario, Tipo) VALUES ('OTRO', '1');"));
        const Corrida r = f931({QStringLiteral("respaldar"), copia, QStringLiteral("--base"), familia.baseDatos()});
        ASSERT_EQ(r.codigo, 0) << r.error();
    }
    EXPECT_EQ(contenido(carpeta), QStringList{QStringLiteral("respaldo.db")});
    const int filas = contar(QStringLiteral("DET"));
    ASSERT_GT(filas, 5);
    const Corrida v = f931({QStringLiteral("verificar"), QStringLiteral("--base"), copia});
    EXPECT_EQ(v.codigo, 0) << v.error() << v.salida.toStdString();
    EXPECT_EQ(v.json().value(QStringLiteral("revisadas")).toInt(), filas + 1);
    const Corrida e = f931(QStringList{QStringLiteral("exportar")} + comunes(copia)
                           + QStringList{QStringLiteral("--ruc"), kRuc, QStringLiteral("--periodo"), kPeriodo});
    EXPECT_EQ(e.codigo, 0) << e.error();

    const QByteArray antes = huella(copia);
    const Corrida otra = f931({QStringLiteral("respaldar"), copia, QStringLiteral("--base"), familia.baseDatos()});
    EXPECT_EQ(otra.codigo, 2);
    EXPECT_EQ(otra.errores, QStringList{QStringLiteral("El archivo %1 ya existe; la copia no lo sobrescribe. Indique otro nombre.")
                                        .arg(QDir::toNativeSeparators(copia))});
    EXPECT_EQ(huella(copia), antes);
}

}  // namespace
