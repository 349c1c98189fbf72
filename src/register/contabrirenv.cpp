// The picker of sent declarations.
#include "register/contabrirenv.h"
#include "register/posicion.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QDate>
#include <QSqlQuery>
#include <QVariant>

#include <exception>

namespace {

const QString kSqlLista = QStringLiteral(
    "SELECT A.DOC_ID_D, B.NOMBRE, A.PERIODO, A.FORMULARIO, A.NORDEN, A.FEC_ENV, A.CONTROL, A.CORREL"
    " FROM HCAB AS A, CONT AS B WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6");

void mostrarError(int numero, const QString& descripcion)
{
    MsgBox(descripcion + QChar(10) + Str(static_cast<qint64>(numero)), vbOKOnly, QStringLiteral("Error"));
}

// FEC_ENV as the grid shows it; a text that is no date is shown as it is.
QString fechaEnvio(const QVariant& v)
{
    const QString t = v.toString().trimmed();
    QDate fecha = QDate::fromString(t.left(10), Qt::ISODate);
    if (!fecha.isValid())
        fecha = QDate::fromString(t.left(10), QStringLiteral("dd/MM/yyyy"));
    return fecha.isValid() ? fecha.toString(QStringLiteral("dd/MM/yyyy")) : t;
}

}  // namespace

QString FilaContAbrirEnv::columna(int indice) const
{
    switch (indice) {
    case 0: return ruc;
    case 1: return nombre;
    case 2: return periodo;
    case 3: return formulario;
    case 4: return norden;
    case 5: return fecEnv;
    case 6: return control;
    case 7: return correl;
    default: return QString();
    }
}

FrmContAbrirEnv::FrmContAbrirEnv()
{
    abreDeclaracion = [](qint16 modo, const QStringList& datos) {
        if (abridores().declaracion)
            abridores().declaracion(modo, datos);
    };
    paneles = [](const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario) {
        ::ponerPaneles(ruc, nombre, periodo, formulario);
    };
    puntero = [](bool espera) {
        if (abridores().puntero)
            abridores().puntero(espera);
    };
    cerrar = [] {};
}

const QStringList& FrmContAbrirEnv::columnas()
{
    static const QStringList c{QStringLiteral("RUC"),      QStringLiteral("Razón Social"), QStringLiteral("Periodo"),
                               QStringLiteral("Formulario"), QStringLiteral("N. Orden"),   QStringLiteral("Fecha Env."),
                               QStringLiteral("Control"),  QStringLiteral("Correl")};
    return c;
}

void FrmContAbrirEnv::Form_Load()
{
    puntero(true);
    switch (G().giOpcion) {
    case 1:
    case 2:
        Caption = QStringLiteral("Registrar número de orden");
        CmdOpciones[0] = QStringLiteral("&Registrar");
        Label1 = QStringLiteral(
            "Seleccione la Declaración en la que desea registrar el número de orden asignado por TAVEN :");
        correlOculta = true;
        break;
    case 3:
        Caption = QStringLiteral("Eliminar Declaraciones Enviadas");
        CmdOpciones[0] = QStringLiteral("&Eliminar");
        Label1 = QStringLiteral("Seleccione la Declaración que desea eliminar :");
        correlOculta = true;
        break;
    default:
        break;
    }
    try {
        recargar(true);
        habilitada = !filas.isEmpty();
    } catch (const ErrorVB& e) {
        mostrarError(e.numero, e.descripcion);
    }
    puntero(false);
}

// The sent declarations of this form the user may see, of the current period only when asked.
void FrmContAbrirEnv::consultar(bool conPeriodo)
{
    const Globales& g = G();
    QString sql = kSqlLista;
    QVariantList valores;
    if (conPeriodo) {
        sql += QStringLiteral(" AND A.PERIODO=?");
        valores << g.gsPeriodo;
    }
    sql += QStringLiteral(" AND A.FORMULARIO=?");
    valores << g.gsFormulario;
    if (TipoUsuario() != QLatin1String("0")) {
        sql += QStringLiteral(" AND B.USUARIO=?");
        valores << g.gsUsuario;
    }
    sql += QStringLiteral(" ORDER BY A.DOC_ID_D ASC");
    QSqlQuery q = ejecutar(sql, valores);
    QVector<FilaContAbrirEnv> nuevas;
    while (q.next())
        nuevas.append({q.value(0).toString(), q.value(1).toString(), q.value(2).toString(), q.value(3).toString(),
                       q.value(4).toString(), fechaEnvio(q.value(5)), q.value(6).toString(), q.value(7).toString()});
    filas = nuevas;
}

void FrmContAbrirEnv::recargar(bool conPeriodo)
{
    const QVector<FilaContAbrirEnv> antes = filas;
    const int filaAntes = fila;
    consultar(conPeriodo);
    fila = filaTrasRecarga(antes, filaAntes, filas, [](const FilaContAbrirEnv& a, const FilaContAbrirEnv& b) {
        return a.ruc == b.ruc && a.periodo == b.periodo && a.formulario == b.formulario && a.correl == b.correl;
    });
    anunciar();
}

void FrmContAbrirEnv::anunciar()
{
    if (!visible)
        return;
    const Globales& g = G();
    if (fila < 0)
        paneles(QString(), QString(), g.gsPeriodo, g.gsFormulario);
    else
        paneles(Trim(columna(0)), Trim(columna(1)), Trim(columna(2)), g.gsFormulario);
}

void FrmContAbrirEnv::Form_Activate()
{
    try {
        recargar(false);
    } catch (const ErrorVB& e) {
        mostrarError(e.numero, e.descripcion);
    }
}

QString FrmContAbrirEnv::columna(int indice) const
{
    if (fila < 0 || fila >= filas.size())
        return QString();
    return filas.at(fila).columna(indice);
}

void FrmContAbrirEnv::CmdOpciones_Click(int Index)
{
    Globales& g = G();
    puntero(true);
    try {
        g.gsPeriodo = Trim(columna(2));
        if (Index == 0 && (g.giOpcion == 1 || g.giOpcion == 2)) {
            if (filas.isEmpty()) {
                puntero(false);
                return;
            }
            if (g.giOpcion == 2) {
                // The period picked is the declaration's, as the working picker leaves it: the
                // form's rules put the remembered period back in gsPeriodo.
                g.gsPeriodoSel = g.gsPeriodo;
                g.gsNorden = columna(4);
                g.gsRuc = columna(0);
                g.gsCorrel = columna(7);
                g.gsControl = columna(6);
            }
            const QStringList datos{Trim(columna(0)), Trim(columna(1))};
            nPosicion = fila;
            abreDeclaracion(1, datos);
            puntero(false);
            Form_Activate();
        } else if (Index == 0 && g.giOpcion == 3) {
            if (filas.isEmpty()) {
                puntero(false);
                return;
            }
            if (MsgBox(QStringLiteral("¿Confirma que va a eliminar la declaración seleccionada?"),
                       vbYesNo + vbQuestion + vbDefaultButton2, Caption) != vbYes) {
                puntero(false);
                return;
            }
            g.gsCorrel = columna(7);
            eliminarDeclaracionEnviada(columna(0), g.gsPeriodo, g.gsCorrel);
            recargar(false);
        } else if (Index == 1) {
            paneles(QString(), QString(), g.gsPeriodo, g.gsFormulario);
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

void FrmContAbrirEnv::grdContrib_DblClick()
{
    CmdOpciones_Click(0);
}

void FrmContAbrirEnv::grdContrib_RowColChange(int nuevaFila)
{
    if (nuevaFila >= -1 && nuevaFila < filas.size())
        fila = filas.isEmpty() ? -1 : nuevaFila;
    if (fila >= 0)
        anunciar();
}
