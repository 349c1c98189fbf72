// The private-profile layer: what the family's settings file reads as, and what a write leaves.
#include "shell/ini.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QByteArray leer(const QString& archivo)
{
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<no existe>");
}

void escribir(const QString& archivo, const QByteArray& datos)
{
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(datos);
}

struct CasoLectura {
    const char* nombre;
    QByteArray contenido;
    const char* seccion;
    const char* clave;
    const char* defecto;
    QString esperado;
};

void PrintTo(const CasoLectura& c, std::ostream* os) { *os << c.nombre; }

const QByteArray kTipico = "[Options]\r\nSysPath=/home/ana/qualvia/\r\nDBName = QL000.DB \r\n"
                           "SysUser=  ADMIN\t\r\n\r\n[Otra]\r\nSysUser=OTRO\r\n";

class LecturaIni : public ::testing::TestWithParam<CasoLectura> {};

TEST_P(LecturaIni, DaElValorEsperado)
{
    QTemporaryDir dir;
    const QString archivo = dir.filePath(QStringLiteral("QL000.INI"));
    const CasoLectura& c = GetParam();
    if (!c.contenido.isNull())
        escribir(archivo, c.contenido);
    EXPECT_EQ(GetPrivateProfileString(QString::fromUtf8(c.seccion), QString::fromUtf8(c.clave),
                                      QString::fromUtf8(c.defecto), archivo),
              c.esperado);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, LecturaIni,
    ::testing::Values(
        CasoLectura{"valor_simple", kTipico, "Options", "SysPath", "", QStringLiteral("/home/ana/qualvia/")},
        CasoLectura{"blancos_alrededor_fuera", kTipico, "Options", "DBName", "", QStringLiteral("QL000.DB")},
        CasoLectura{"tabulador_fuera", kTipico, "Options", "SysUser", "", QStringLiteral("ADMIN")},
        CasoLectura{"clave_sin_mayusculas", kTipico, "Options", "sysuser", "", QStringLiteral("ADMIN")},
        CasoLectura{"seccion_sin_mayusculas", kTipico, "OPTIONS", "SYSPATH", "", QStringLiteral("/home/ana/qualvia/")},
        CasoLectura{"misma_clave_otra_seccion", kTipico, "Otra", "SysUser", "", QStringLiteral("OTRO")},
        CasoLectura{"clave_ausente_da_defecto", kTipico, "Options", "SysMenu", "", QString()},
        CasoLectura{"defecto_sin_blancos_finales", kTipico, "Options", "SysMenu", "x  ", QStringLiteral("x")},
        CasoLectura{"seccion_ausente", kTipico, "Opciones", "SysPath", "", QString()},
        CasoLectura{"archivo_ausente", QByteArray(), "Options", "SysPath", "", QString()},
        CasoLectura{"archivo_vacio", QByteArray(""), "Options", "SysPath", "", QString()},
        CasoLectura{"archivo_danado", QByteArray("\x00\xff\xfe[Opt\x01\x02=\n\x80\x81", 13), "Options", "SysPath",
                    "", QString()},
        CasoLectura{"clave_antes_de_toda_seccion", "SysPath=/x/\n[Options]\n", "Options", "SysPath", "", QString()},
        CasoLectura{"primera_de_dos_iguales", "[Options]\nSysUser=A\nSysUser=B\n", "Options", "SysUser", "",
                    QStringLiteral("A")},
        CasoLectura{"comentario_no_cuenta", "[Options]\n;SysUser=A\n", "Options", "SysUser", "", QString()},
        CasoLectura{"comillas_fuera", "[Options]\nDBName=\" QL 000.DB \"\n", "Options", "DBName", "",
                    QStringLiteral(" QL 000.DB ")},
        CasoLectura{"valor_vacio", "[Options]\nSysUser=\n", "Options", "SysUser", "z", QString()},
        CasoLectura{"igual_dentro_del_valor", "[Options]\nDBPath=a=b\n", "Options", "DBPath", "",
                    QStringLiteral("a=b")},
        CasoLectura{"sin_fin_de_linea", "[Options]\nSysUser=ADMIN", "Options", "SysUser", "", QStringLiteral("ADMIN")},
        CasoLectura{"acentos_utf8", "[Options]\nSysUser=MUÑOZ\n", "Options", "SysUser", "", QStringLiteral("MUÑOZ")}),
    [](const auto& info) { return std::string(info.param.nombre); });

TEST(LecturaIni, UnBufferDe255DevuelveA_LoSumo254Caracteres)
{
    QTemporaryDir dir;
    const QString archivo = dir.filePath(QStringLiteral("QL000.INI"));
    const QString largo = QString(300, QLatin1Char('a')) ;
    escribir(archivo, "[Options]\nSysPath=" + largo.toUtf8() + "\nCorto=" + QByteArray(254, 'b') + "\n");
    EXPECT_EQ(GetPrivateProfileString(QStringLiteral("Options"), QStringLiteral("SysPath"), QString(), archivo),
              QString(254, QLatin1Char('a')));
    EXPECT_EQ(GetPrivateProfileString(QStringLiteral("Options"), QStringLiteral("Corto"), QString(), archivo).size(),
              254);
}

struct CasoEscritura {
    const char* nombre;
    QByteArray antes;   // null: no file
    const char* seccion;
    const char* clave;
    const char* valor;
    QByteArray despues;
};

void PrintTo(const CasoEscritura& c, std::ostream* os) { *os << c.nombre; }

class EscrituraIni : public ::testing::TestWithParam<CasoEscritura> {};

TEST_P(EscrituraIni, CambiaSoloLaLineaDeLaClave)
{
    QTemporaryDir dir;
    const QString archivo = dir.filePath(QStringLiteral("QL000.INI"));
    const CasoEscritura& c = GetParam();
    if (!c.antes.isNull())
        escribir(archivo, c.antes);
    EXPECT_TRUE(WritePrivateProfileString(QString::fromUtf8(c.seccion), QString::fromUtf8(c.clave),
                                          QString::fromUtf8(c.valor), archivo));
    EXPECT_EQ(leer(archivo), c.despues);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, EscrituraIni,
    ::testing::Values(
        CasoEscritura{"archivo_nuevo", QByteArray(), "Options", "SystemDB", "/f/QL000.MDW",
                      "[Options]\nSystemDB=/f/QL000.MDW\n"},
        CasoEscritura{"reemplaza_sin_mirar_mayusculas",
                      "; familia\n[options]\nSysPath=/a/\nsystemdb = viejo\nSysUser=ADMIN\n", "Options", "SystemDB",
                      "/a/QL000.MDW", "; familia\n[options]\nSysPath=/a/\nSystemDB=/a/QL000.MDW\nSysUser=ADMIN\n"},
        CasoEscritura{"agrega_al_final_de_su_seccion",
                      "[Options]\nSysPath=/a/\n\n[Otra]\nX=1\n", "Options", "SystemDB", "/a/QL000.MDW",
                      "[Options]\nSysPath=/a/\nSystemDB=/a/QL000.MDW\n\n[Otra]\nX=1\n"},
        CasoEscritura{"agrega_la_seccion", "[Otra]\nX=1\n", "Options", "SysUser", "ADMIN",
                      "[Otra]\nX=1\n\n[Options]\nSysUser=ADMIN\n"},
        CasoEscritura{"respeta_crlf", "[Options]\r\nSysPath=/a/\r\nSysUser=X\r\n", "Options", "SysUser", "ADMIN",
                      "[Options]\r\nSysPath=/a/\r\nSysUser=ADMIN\r\n"},
        CasoEscritura{"otra_seccion_no_se_toca", "[Otra]\nSysUser=X\n[Options]\nSysUser=Y\n", "Options", "SysUser",
                      "Z", "[Otra]\nSysUser=X\n[Options]\nSysUser=Z\n"}),
    [](const auto& info) { return std::string(info.param.nombre); });

TEST(EscrituraIni, CarpetaInexistenteFallaSinCrearNada)
{
    QTemporaryDir dir;
    const QString archivo = dir.filePath(QStringLiteral("no/hay/QL000.INI"));
    EXPECT_FALSE(WritePrivateProfileString(QStringLiteral("Options"), QStringLiteral("A"), QStringLiteral("1"), archivo));
    EXPECT_FALSE(QDir(dir.filePath(QStringLiteral("no"))).exists());
}

TEST(UbicacionIni, QvlWindirMandaYSiNoLaCarpetaDeConfiguracion)
{
    const QByteArray antes = qgetenv("QVL_WINDIR");
    qputenv("QVL_WINDIR", "/srv/familia/");
    EXPECT_EQ(archivoIni(), QStringLiteral("/srv/familia/QL000.INI"));
    qunsetenv("QVL_WINDIR");
    EXPECT_EQ(archivoIni(), QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                                QStringLiteral("/qualvia/QL000.INI"));
    if (!antes.isNull())
        qputenv("QVL_WINDIR", antes);
}

}  // namespace
