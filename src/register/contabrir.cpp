// The picker of working declarations.
#include "register/contabrir.h"
#include "register/posicion.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QSqlQuery>
#include <QVariant>

#include <exception>

namespace {

const QString kSqlLista = QStringLiteral(
    "SELECT A.DOC_ID_D, B.NOMBRE, A.PERIODO, A.FORMULARIO, A.ESTADO FROM CAB AS A, CONT AS B"
    " WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6 AND A.FORMULARIO=?");

const QString kCrLf = QStringLiteral("\r\n");

void mostrarError(int numero, const QString& descripcion)
{
    MsgBox(descripcion + QChar(10) + Str(static_cast<qint64>(numero)), vbOKOnly, QStringLiteral("Error"));
}

}  // namespace

FrmContAbrir::FrmContAbrir(qint16 opcion)
    : nOpcion(opcion)
{
    abreDeclaracion = [](qint16 modo, const QStringList& datos) {
        if (abridores().declaracion)
            abridores().declaracion(modo, datos);
    };
    barraEstado = [](const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario) {
        ::pBarraEstado(ruc, nombre, periodo, formulario);
    };
    puntero = [](bool espera) {
        if (abridores().puntero)
            abridores().puntero(espera);
    };
    cerrar = [] {};
}

const QStringList& FrmContAbrir::columnas()
{
    static const QStringList c{QStringLiteral("RUC"), QStringLiteral("Razón Social"), QStringLiteral("Periodo"),
                               QStringLiteral("Formulario")};
    return c;
}

void FrmContAbrir::Form_Load()
{
    puntero(true);
    switch (nOpcion) {
    case 1:
        Caption = QStringLiteral("Modificar Declaraciones");
        CmdOpciones[0] = QStringLiteral("&Modificar");
        Label1 = QStringLiteral("Seleccione la Declaración que desea modificar :");
        break;
    case 3:
        Caption = QStringLiteral("Eliminar Declaraciones");
        CmdOpciones[0] = QStringLiteral("&Eliminar");
        Label1 = QStringLiteral("Seleccione la Declaración que desea eliminar :");
        break;
    default:
        break;
    }
    puntero(false);
}

void FrmContAbrir::Form_Activate()
{
    pCargadatos();
}

// The list as the user may see it: every working declaration of this form, in both states,
// of the user's own taxpayers unless the user sees all.
void FrmContAbrir::consultar()
{
    const Globales& g = G();
    QString sql = kSqlLista;
    QVariantList valores{g.gsFormulario};
    if (TipoUsuario() != QLatin1String("0")) {
        sql += QStringLiteral(" AND B.USUARIO=?");
        valores << g.gsUsuario;
    }
    sql += QStringLiteral(" ORDER BY A.DOC_ID_D ASC");
    QSqlQuery q = ejecutar(sql, valores);
    QVector<FilaContAbrir> nuevas;
    while (q.next())
        nuevas.append({q.value(0).toString(), q.value(1).toString(), q.value(2).toString(), q.value(3).toString(),
                       q.value(4).toInt()});
    filas = nuevas;
}

void FrmContAbrir::recargar()
{
    const QVector<FilaContAbrir> antes = filas;
    const int filaAntes = fila;
    consultar();
    fila = filaTrasRecarga(antes, filaAntes, filas, [](const FilaContAbrir& a, const FilaContAbrir& b) {
        return a.ruc == b.ruc && a.periodo == b.periodo && a.formulario == b.formulario;
    });
    anunciar();
}

void FrmContAbrir::anunciar()
{
    if (!visible)
        return;
    if (fila < 0)
        barraEstado(QString(), QString(), QString(), G().gsFormulario);
    else
        barraEstado(Trim(columna(0)), Trim(columna(1)), columna(2), G().gsFormulario);
}

void FrmContAbrir::pCargadatos()
{
    try {
        recargar();
    } catch (const ErrorVB& e) {
        mostrarError(e.numero, e.descripcion);
    }
}

QString FrmContAbrir::columna(int indice) const
{
    if (fila < 0 || fila >= filas.size())
        return QString();
    const FilaContAbrir& f = filas.at(fila);
    switch (indice) {
    case 0: return f.ruc;
    case 1: return f.nombre;
    case 2: return f.periodo;
    case 3: return f.formulario;
    default: return QString();
    }
}

void FrmContAbrir::CmdOpciones_Click(int Index)
{
    Globales& g = G();
    puntero(true);
    try {
        g.gsPeriodo = Trim(columna(2));
        if (Index == 0 && nOpcion == 1) {
            if (filas.isEmpty()) {
                puntero(false);
                return;
            }
            g.gsPeriodoSel = Trim(columna(2));
            puntero(true);
            const QStringList datos{Trim(columna(0)), Trim(columna(1))};
            nPosicion = fila;
            abreDeclaracion(1, datos);
            puntero(false);
            pCargadatos();
        } else if (Index == 0 && nOpcion == 3) {
            if (filas.isEmpty()) {
                puntero(false);
                return;
            }
            const QString texto = QStringLiteral("¿Confirma que va a eliminar la declaración de") + kCrLf + kCrLf
                + Trim(columna(1)) + QStringLiteral("?");
            if (MsgBox(texto, vbYesNo + vbQuestion + vbDefaultButton2, Caption) != vbYes) {
                puntero(false);
                return;
            }
            eliminarDeclaracion(Trim(columna(0)), g.gsPeriodo);
            recargar();
        } else if (Index == 1) {
            barraEstado(QString(), QString(), QString(), g.gsFormulario);
            filas.clear();
            fila = -1;
            descargado = true;
            cerrar();
        }
    } catch (const ErrorVB& e) {
        mostrarError(e.numero, e.descripcion);
    } catch (const std::exception& e) {
        mostrarError(440, QString::fromLocal8Bit(e.what()));
    }
    puntero(false);
}

void FrmContAbrir::grdContrib_DblClick()
{
    CmdOpciones_Click(0);
}

void FrmContAbrir::grdContrib_RowColChange(int nuevaFila)
{
    if (nuevaFila >= -1 && nuevaFila < filas.size())
        fila = filas.isEmpty() ? -1 : nuevaFila;
    if (fila >= 0)
        anunciar();
}
