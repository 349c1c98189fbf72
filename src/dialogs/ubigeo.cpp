// The geographic-code picker.
#include "dialogs/ubigeo.h"

#include "basic/msgbox.h"
#include "basic/texto.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QSqlQuery>

namespace {

// Rows of a catalogue whose key begins with the prefix, by key.
QVector<LugarUbigeo> lugares(const QString& numero, const QString& prefijo, int ancho)
{
    QVector<LugarUbigeo> v;
    QSqlQuery q = ejecutar(QStringLiteral("SELECT Argumento, Funcion FROM PARAM WHERE Numero=? AND Argumento LIKE ?"
                                          " ORDER BY Argumento"),
                           {numero, prefijo + QLatin1Char('%')});
    while (q.next())
        v.append(LugarUbigeo{Trim(q.value(0).toString()), Trim(Mid(q.value(1).toString(), 1, ancho))});
    return v;
}

int buscar(const QVector<LugarUbigeo>& v, const QString& codigo)
{
    for (int i = 0; i < v.size(); ++i)
        if (v[i].codigo == codigo)
            return i;
    return -1;
}

}  // namespace

QString FrmUbigeo::CodigoUbigeo() const
{
    return distrito >= 0 && distrito < distritos.size() ? distritos[distrito].codigo : QString();
}

void FrmUbigeo::Form_Load()
{
    const QString zona = G().gsZonaAbrir;
    if (zona == QLatin1String("1")) {
        Filtro3 = Filtro2 = QStringLiteral("1000000000");
        Filtro1 = Filtro0 = QStringLiteral("A");
    } else if (zona == QLatin1String("2")) {
        Filtro3 = Filtro2 = QStringLiteral("0100000000");
        Filtro1 = Filtro0 = QStringLiteral("A");
    } else if (zona == QLatin1String("3")) {
        Filtro2 = QStringLiteral("1000000000");
        Filtro0 = QStringLiteral("A");
    }
    departamentos = lugares(QStringLiteral("030"), QString(), 25);
    provincias.clear();
    distritos.clear();
    departamento = provincia = distrito = -1;
    if (!G().gsUbigeoSel.isEmpty())
        setCodigoUbigeo(G().gsUbigeoSel);
}

void FrmUbigeo::setCodigoUbigeo(const QString& codigo)
{
    elegirDepartamento(buscar(departamentos, Left(codigo, 2)));
    elegirProvincia(buscar(provincias, Left(codigo, 4)));
    elegirDistrito(buscar(distritos, codigo));
}

void FrmUbigeo::elegirDepartamento(int i)
{
    departamento = (i >= 0 && i < departamentos.size()) ? i : -1;
    provincias = departamento >= 0 ? lugares(QStringLiteral("031"), departamentos[departamento].codigo, 30)
                                   : QVector<LugarUbigeo>();
    distritos.clear();
    provincia = distrito = -1;
}

void FrmUbigeo::elegirProvincia(int i)
{
    provincia = (i >= 0 && i < provincias.size()) ? i : -1;
    distritos = provincia >= 0 ? lugares(QStringLiteral("001"), provincias[provincia].codigo, 30)
                               : QVector<LugarUbigeo>();
    distrito = -1;
}

void FrmUbigeo::elegirDistrito(int i)
{
    distrito = (i >= 0 && i < distritos.size()) ? i : -1;
}

void FrmUbigeo::cmdAccion_Click(int Index)
{
    Globales& g = G();
    if (Index == 0) {
        g.gsZonaSel = Right(Trim(Caption), 1);
        g.gsUbigeoSel = CodigoUbigeo();
        g.gsUbigeoCopia = CodigoUbigeo();
        if (!g.gsUbigeoSel.isEmpty()) {
            cerrado = true;
            return;
        }
        MsgBox(MensajeError(39), vbCritical, Caption);
        return;
    }
    g.gsZonaSel.clear();
    cerrado = true;
}
