#include "shell/arranque.h"

#include <QChar>
#include <QDateTime>
#include <QDir>
#include <QLockFile>

#include <cstdlib>

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "family/cwindows.h"
#include "shell/globales.h"
#include "shell/ini.h"
#include "store/base.h"

void pLeerIni()
{
    Globales& g = G();
    g.gsPathSys = leerOpcion(QStringLiteral("SysPath"));
    // A folder that does not exist leaves the current one; the failure shows later, when the
    // database does not open.
    if (!g.gsPathSys.isEmpty())
        QDir::setCurrent(g.gsPathSys);
    g.gsPathTemporal = g.gsPathSys + QStringLiteral("TMP/");
    g.gsVersionSys = leerOpcion(QStringLiteral("SysVersion"));
    const QString carpetaBase = leerOpcion(QStringLiteral("DBPath"));
    g.gsBaseDatos = carpetaBase + leerOpcion(QStringLiteral("DBName"));
    std::srand(static_cast<unsigned>(QDateTime::currentMSecsSinceEpoch()));
    g.gsMenuSys = g.gsPathSys + leerOpcion(QStringLiteral("SysMenu"));
    g.gsPathRpt = g.gsPathSys + QStringLiteral("RPT");
    g.gsPathTmp = g.gsPathSys + QStringLiteral("TMP");
    g.gsPathBmp = g.gsPathSys + QStringLiteral("BMP/");
    g.gsUsuario = QStringLiteral(" ");
    g.gsUsuario = leerOpcion(QStringLiteral("SysUser"));
}

void mostrarErrorConexion(const ErrorVB& e)
{
    const QString titulo = QStringLiteral("Error de Conección");
    if (e.numero == kErrBaseBloqueada)
        MsgBox(Str(e.numero) + QStringLiteral("- Base esta bloqueda"), vbOKOnly, titulo);
    else
        MsgBox(e.descripcion + QChar(10) + Str(e.numero), vbOKOnly, titulo);
}

bool fAbrirBase()
{
    try {
        escribirOpcion(QStringLiteral("SystemDB"), G().gsPathSys + QStringLiteral("QL000.MDW"));
        // The file database has no workgroup accounts: the connection needs no user name
        // nor password.
        abrirBase(G().gsBaseDatos);
        return true;
    } catch (const ErrorVB& e) {
        mostrarErrorConexion(e);
        return false;
    }
}

QString& archivoAyuda()
{
    static QString archivo;
    return archivo;
}

InstanciaUnica::InstanciaUnica(const QString& programa)
    : archivo_(QDir::tempPath() + QLatin1Char('/') + programa + QStringLiteral(".lock")),
      cerrojo_(std::make_unique<QLockFile>(archivo_))
{
    // A lock is stale only when its process is gone, never by age.
    cerrojo_->setStaleLockTime(0);
}

InstanciaUnica::~InstanciaUnica() = default;

bool InstanciaUnica::hayInstanciaPrevia()
{
    if (!tomado_)
        tomado_ = cerrojo_->tryLock(0);
    return !tomado_;
}

BuscarVentana buscadorDelSistema()
{
    return [](const QString& titulo) {
        cWindows ventanas;
        return ventanas.CorreApp(titulo);
    };
}

bool comprobarInicio(const BuscarVentana& correApp, const std::function<bool()>& hayInstanciaPrevia)
{
    gobjUtil();
    if (!correApp(kTituloIntegrador)) {
        MsgBox(QStringLiteral("Debe ejecutar este módulo desde el Integrador del QVL"), vbCritical + vbOKOnly,
               QStringLiteral("Error al ejecutar el módulo"));
        return false;
    }
    if (hayInstanciaPrevia()) {
        MsgBox(QStringLiteral("La Aplicación ya se encuentra en ejecución"), vbInformation + vbOKOnly,
               QStringLiteral("Declaración Pago Anual Impuesto a la Renta"));
        return false;
    }
    return true;
}
