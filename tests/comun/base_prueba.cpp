#include "base_prueba.h"

#include "basic/msgbox.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QDir>
#include <stdexcept>

FamiliaPrueba::FamiliaPrueba(bool conDemo)
{
    G().reiniciar();
    if (!dir_.isValid())
        throw std::runtime_error("no se pudo crear la carpeta temporal de la familia");
    QDir raiz(dir_.path());
    for (const char* sub : {"TMP", "RPT", "BMP", "0931"})
        raiz.mkpath(QString::fromLatin1(sub));

    Globales& g = G();
    g.gsPathSys = raiz.absolutePath() + QLatin1Char('/');
    g.gsPathTemporal = g.gsPathSys + QStringLiteral("TMP/");
    g.gsPathTmp = g.gsPathSys + QStringLiteral("TMP");
    g.gsPathRpt = g.gsPathSys + QStringLiteral("RPT");
    g.gsPathBmp = g.gsPathSys + QStringLiteral("BMP/");
    g.gsBaseDatos = g.gsPathSys + QStringLiteral("QL000.db");
    g.gsUsuario = DatosDemo::kAdmin;
    g.gsFormulario = QStringLiteral("0931");
    g.gsArchMens = g.gsPathSys + QStringLiteral("Mens.txt");

    crearBaseDatos(g.gsBaseDatos, conDemo);
    abrirBase(g.gsBaseDatos);
    instalarRespondedor(&respondedor_);
}

FamiliaPrueba::~FamiliaPrueba()
{
    if (::respondedor() == &respondedor_)
        instalarRespondedor(nullptr);
    cerrarBase();
    G().reiniciar();
}

QString FamiliaPrueba::carpeta() const { return G().gsPathSys; }
QString FamiliaPrueba::baseDatos() const { return G().gsBaseDatos; }
void FamiliaPrueba::comoUsuario(const QString& usuario) { G().gsUsuario = usuario; }
