// From process start to an open database: Main's checks, the settings reader, the database
// opener and the family folder the launcher prepares.
#include "shell/arranque.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QUuid>
#include <gtest/gtest.h>

#include "basic/errores.h"
#include "basic/respondedor_guion.h"
#include "shell/familia.h"
#include "shell/globales.h"
#include "shell/ini.h"
#include "store/base.h"
#include "store/crear.h"
#include "store/motor_directo.h"

#include <optional>

namespace {

// A temporary folder that holds QL000.INI (QVL_WINDIR) and the family; globals reset, messages
// recorded, current folder and environment restored afterwards.
class Arranque : public ::testing::Test {
protected:
    void SetUp() override
    {
        G().reiniciar();
        ASSERT_TRUE(dir.isValid());
        windirAntes = qgetenv("QVL_WINDIR");
        qputenv("QVL_WINDIR", dir.path().toUtf8());
        carpetaAntes = QDir::currentPath();
        instalarRespondedor(&mensajes);
    }
    void TearDown() override
    {
        instalarRespondedor(nullptr);
        cerrarBase();
        QDir::setCurrent(carpetaAntes);
        if (windirAntes.isNull())
            qunsetenv("QVL_WINDIR");
        else
            qputenv("QVL_WINDIR", windirAntes);
        G().reiniciar();
    }
    QString raiz() const { return dir.path() + QLatin1Char('/'); }

    QTemporaryDir dir;
    RespondedorGuion mensajes;
    QByteArray windirAntes;
    QString carpetaAntes;
};

TEST_F(Arranque, LeerIniDerivaCadaCarpetaDeSysPath)
{
    const QString r = raiz();
    escribirOpcion(QStringLiteral("SysPath"), QStringLiteral("  ") + r + QStringLiteral("  "));
    escribirOpcion(QStringLiteral("SysVersion"), QStringLiteral("3.1"));
    escribirOpcion(QStringLiteral("DBPath"), QStringLiteral("/datos/"));
    escribirOpcion(QStringLiteral("DBName"), QStringLiteral("QL000.DB"));
    escribirOpcion(QStringLiteral("SysMenu"), QStringLiteral("integrador_qvl"));
    escribirOpcion(QStringLiteral("SysUser"), QStringLiteral("CONTADOR"));

    pLeerIni();

    const Globales& g = G();
    EXPECT_EQ(g.gsPathSys, r);
    EXPECT_EQ(g.gsPathTemporal, r + QStringLiteral("TMP/"));
    EXPECT_EQ(g.gsPathTmp, r + QStringLiteral("TMP"));
    EXPECT_EQ(g.gsPathRpt, r + QStringLiteral("RPT"));
    EXPECT_EQ(g.gsPathBmp, r + QStringLiteral("BMP/"));
    EXPECT_EQ(g.gsVersionSys, QStringLiteral("3.1"));
    EXPECT_EQ(g.gsMenuSys, r + QStringLiteral("integrador_qvl"));
    EXPECT_EQ(g.gsBaseDatos, QStringLiteral("/datos/QL000.DB"));
    EXPECT_EQ(g.gsUsuario, QStringLiteral("CONTADOR"));
    EXPECT_EQ(QDir::currentPath() + QLatin1Char('/'), QFileInfo(r).canonicalFilePath() + QLatin1Char('/'));
}

TEST_F(Arranque, SysPathSinBarraFinalDaCarpetasErradasSinRepararlas)
{
    escribirOpcion(QStringLiteral("SysPath"), QStringLiteral("/home/ana/qualvia"));
    escribirOpcion(QStringLiteral("DBPath"), QStringLiteral("/home/ana/qualvia"));
    escribirOpcion(QStringLiteral("DBName"), QStringLiteral("QL000.DB"));
    pLeerIni();
    EXPECT_EQ(G().gsPathTemporal, QStringLiteral("/home/ana/qualviaTMP/"));
    EXPECT_EQ(G().gsPathRpt, QStringLiteral("/home/ana/qualviaRPT"));
    EXPECT_EQ(G().gsPathBmp, QStringLiteral("/home/ana/qualviaBMP/"));
    EXPECT_EQ(G().gsBaseDatos, QStringLiteral("/home/ana/qualviaQL000.DB"));
}

TEST_F(Arranque, SinArchivoDeConfiguracionTodoQuedaVacio)
{
    pLeerIni();
    EXPECT_EQ(G().gsPathSys, QString());
    EXPECT_EQ(G().gsPathRpt, QStringLiteral("RPT"));
    EXPECT_EQ(G().gsBaseDatos, QString());
    EXPECT_EQ(G().gsUsuario, QString());   // the one blank is replaced by the empty read
    EXPECT_EQ(QDir::currentPath(), carpetaAntes);
    EXPECT_TRUE(mensajes.mostrados.isEmpty());
}

TEST_F(Arranque, AbreLaBaseYDejaSystemDbEnLaConfiguracion)
{
    prepararFamilia(dir.path());
    pLeerIni();
    ASSERT_TRUE(fAbrirBase());
    EXPECT_FALSE(G().gdbBase.isEmpty());
    EXPECT_TRUE(gdbBase().isOpen());
    EXPECT_EQ(leerOpcion(QStringLiteral("SystemDB")), raiz() + QStringLiteral("QL000.MDW"));
    EXPECT_TRUE(mensajes.mostrados.isEmpty());
    EXPECT_EQ(G().gsUsuario, Demo::kUsuarioAdmin);
}

enum class Dano { Falta, Basura, Vacia, DeOtroPrograma, Bloqueada };

struct CasoFallo {
    const char* nombre;
    Dano dano;
};

class FalloDeConexion : public Arranque, public ::testing::WithParamInterface<CasoFallo> {};

TEST_P(FalloDeConexion, DiceBaseBloqueadaSinIconoYNoAbre)
{
    prepararFamilia(dir.path());
    pLeerIni();
    const QString base = G().gsBaseDatos;
    const auto escribir = [&base](const QByteArray& bytes) {
        QFile f(base);
        return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
    };
    std::optional<MotorDirecto> otro;   // another program of the family at the file
    switch (GetParam().dano) {
    case Dano::Falta: ASSERT_TRUE(QFile::remove(base)); break;
    case Dano::Basura: ASSERT_TRUE(escribir(QByteArray(8192, '\x5a'))); break;
    case Dano::Vacia: ASSERT_TRUE(escribir({})); break;
    case Dano::DeOtroPrograma:
        ASSERT_TRUE(escribir({}));
        ASSERT_TRUE(MotorDirecto(base).ejecutar("CREATE TABLE CLIENTES (ID INTEGER)"));
        break;
    case Dano::Bloqueada:
        otro.emplace(base);
        ASSERT_TRUE(otro->ejecutar("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE;")) << otro->error();
        break;
    }

    QFile archivo(base);
    const QByteArray antes = archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
    archivo.close();

    EXPECT_FALSE(fAbrirBase());

    ASSERT_EQ(mensajes.mostrados.size(), 1);
    EXPECT_EQ(mensajes.mostrados[0].texto, QStringLiteral(" 3051- Base esta bloqueda"));
    EXPECT_EQ(mensajes.mostrados[0].titulo, QStringLiteral("Error de Conección"));
    EXPECT_EQ(mensajes.mostrados[0].flags, 0);
    EXPECT_TRUE(G().gdbBase.isEmpty());
    // The workgroup key is written before the open is tried.
    EXPECT_EQ(leerOpcion(QStringLiteral("SystemDB")), raiz() + QStringLiteral("QL000.MDW"));

    // A file that is not the family's database is left as it was.
    if (archivo.open(QIODevice::ReadOnly))
        EXPECT_EQ(archivo.readAll(), antes);
}

INSTANTIATE_TEST_SUITE_P(Casos, FalloDeConexion,
                         ::testing::Values(CasoFallo{"archivo_ausente", Dano::Falta},
                                           CasoFallo{"archivo_que_no_es_base", Dano::Basura},
                                           CasoFallo{"archivo_vacio", Dano::Vacia},
                                           CasoFallo{"base_de_otro_programa", Dano::DeOtroPrograma},
                                           CasoFallo{"bloqueada_por_otro_proceso", Dano::Bloqueada}),
                         [](const auto& info) { return std::string(info.param.nombre); });

TEST_F(Arranque, OtroErrorMuestraTextoSaltoDeLineaYNumero)
{
    mostrarErrorConexion(ErrorVB(3044, QStringLiteral("Ruta no válida")));
    mostrarErrorConexion(ErrorVB(kErrBaseBloqueada, QStringLiteral("database is locked")));
    ASSERT_EQ(mensajes.mostrados.size(), 2);
    EXPECT_EQ(mensajes.mostrados[0].texto, QStringLiteral("Ruta no válida\n 3044"));
    EXPECT_EQ(mensajes.mostrados[0].titulo, QStringLiteral("Error de Conección"));
    EXPECT_EQ(mensajes.mostrados[0].flags, 0);
    EXPECT_EQ(mensajes.mostrados[1].texto, QStringLiteral(" 3051- Base esta bloqueda"));
}

// Main's checks: the launcher test always comes first.
struct CasoInicio {
    const char* nombre;
    bool integrador;
    bool otraInstancia;
    bool sigue;
    const char* mensaje;   // "" none
    const char* titulo;
    int flags;
    bool preguntaInstancia;
};

class OrdenDeInicio : public Arranque, public ::testing::WithParamInterface<CasoInicio> {};

TEST_P(OrdenDeInicio, ComprobacionesEnSuOrden)
{
    const CasoInicio& c = GetParam();
    QStringList titulos;
    bool preguntada = false;
    const bool sigue = comprobarInicio(
        [&](const QString& t) {
            titulos << t;
            return c.integrador;
        },
        [&] {
            preguntada = true;
            return c.otraInstancia;
        });
    EXPECT_EQ(sigue, c.sigue);
    EXPECT_EQ(titulos, QStringList{QStringLiteral("Programa Qualvia")});
    EXPECT_EQ(preguntada, c.preguntaInstancia);
    EXPECT_NE(G().gobjUtil, nullptr);
    if (*c.mensaje) {
        ASSERT_EQ(mensajes.mostrados.size(), 1);
        EXPECT_EQ(mensajes.mostrados[0].texto, QString::fromUtf8(c.mensaje));
        EXPECT_EQ(mensajes.mostrados[0].titulo, QString::fromUtf8(c.titulo));
        EXPECT_EQ(mensajes.mostrados[0].flags, c.flags);
    } else {
        EXPECT_TRUE(mensajes.mostrados.isEmpty());
    }
    // Nothing of the settings has been read.
    EXPECT_TRUE(G().gsPathSys.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Casos, OrdenDeInicio,
    ::testing::Values(
        CasoInicio{"sin_integrador_y_otra_instancia", false, true, false,
                   "Debe ejecutar este módulo desde el Integrador del QVL", "Error al ejecutar el módulo", 16, false},
        CasoInicio{"sin_integrador", false, false, false, "Debe ejecutar este módulo desde el Integrador del QVL",
                   "Error al ejecutar el módulo", 16, false},
        CasoInicio{"otra_instancia", true, true, false, "La Aplicación ya se encuentra en ejecución",
                   "Declaración Pago Anual Impuesto a la Renta", 64, true},
        CasoInicio{"todo_en_orden", true, false, true, "", "", 0, true}),
    [](const auto& info) { return std::string(info.param.nombre); });

TEST(InstanciaUnica, LaSegundaSeRechazaHastaQueLaPrimeraTermina)
{
    const QString programa = QStringLiteral("prueba_") + QUuid::createUuid().toString(QUuid::Id128);
    {
        InstanciaUnica primera(programa);
        EXPECT_FALSE(primera.hayInstanciaPrevia());
        EXPECT_FALSE(primera.hayInstanciaPrevia());   // asking again does not see itself
        InstanciaUnica segunda(programa);
        EXPECT_TRUE(segunda.hayInstanciaPrevia());
        EXPECT_EQ(QFileInfo(segunda.archivo()).fileName(), programa + QStringLiteral(".lock"));
    }
    InstanciaUnica tercera(programa);
    EXPECT_FALSE(tercera.hayInstanciaPrevia());
}

TEST(InstanciaUnica, ElCerrojoDeUnProcesoMuertoNoCuenta)
{
    const QString programa = QStringLiteral("prueba_") + QUuid::createUuid().toString(QUuid::Id128);
    InstanciaUnica nueva(programa);
    {
        QFile viejo(nueva.archivo());
        ASSERT_TRUE(viejo.open(QIODevice::WriteOnly));
        // pid, program, host: a process number far above any the system hands out.
        viejo.write("2147483000\nmodulo0931\n\n");
    }
    EXPECT_FALSE(nueva.hayInstanciaPrevia());
}

TEST_F(Arranque, LaFamiliaNuevaTieneCarpetasConfiguracionYBase)
{
    const QString ayuda = dir.filePath(QStringLiteral("ayuda.html"));
    {
        QFile f(ayuda);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("<p>ayuda</p>");
    }
    const QString carpeta = dir.filePath(QStringLiteral("familia"));
    const Familia f = prepararFamilia(carpeta, ayuda);
    EXPECT_TRUE(f.baseCreada);
    EXPECT_EQ(f.carpeta, carpeta + QLatin1Char('/'));
    for (const char* sub : {"TMP", "RPT", "BMP", "0931"})
        EXPECT_TRUE(QDir(f.carpeta + QString::fromLatin1(sub)).exists()) << sub;
    EXPECT_TRUE(QFileInfo::exists(f.carpeta + QStringLiteral("0931/Ql931.hlp")));
    EXPECT_EQ(leerOpcion(QStringLiteral("SysPath")), f.carpeta);
    EXPECT_EQ(leerOpcion(QStringLiteral("DBPath")) + leerOpcion(QStringLiteral("DBName")), f.archivoBase);
    EXPECT_EQ(leerOpcion(QStringLiteral("SysUser")), Demo::kUsuarioAdmin);
    const auto usuarios = usuariosDeBase(f.archivoBase);
    EXPECT_TRUE(usuarios.contains(qMakePair(Demo::kUsuarioAdmin, QStringLiteral("0"))));

    // A second start keeps the database and the user that was picked.
    escribirOpcion(QStringLiteral("SysUser"), Demo::kUsuarioContador);
    const Familia otra = prepararFamilia(carpeta, ayuda);
    EXPECT_FALSE(otra.baseCreada);
    EXPECT_EQ(leerOpcion(QStringLiteral("SysUser")), Demo::kUsuarioContador);
}

}  // namespace
