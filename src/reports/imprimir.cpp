#include "reports/imprimir.h"

#include "basic/errores.h"
#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/periodo.h"
#include "basic/texto.h"
#include "reports/informe.h"
#include "reports/previa.h"
#include "reports/spool.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QDate>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

namespace {

AbridorImpxPag& abridorImpxPag()
{
    static AbridorImpxPag f;
    return f;
}

QString texto(const QVariant& v) { return v.isNull() ? QString() : v.toString(); }

// The sending date as the grid shows it, "dd/mm/yyyy", whatever form the engine gives back.
QString fechaEnvio(const QVariant& v)
{
    const QString t = texto(v).trimmed();
    QDate fecha = QDate::fromString(t.left(10), Qt::ISODate);
    if (!fecha.isValid())
        fecha = QDate::fromString(t.left(10), QStringLiteral("dd/MM/yyyy"));
    return fecha.isValid() ? Format(fecha, Mascara::Fecha) : t;
}

// The handlers that trap errors show the text, a line feed and the number.
void muestraError(const ErrorVB& e)
{
    MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
}

} // namespace

void instalarAbridorImpxPag(AbridorImpxPag abridor) { abridorImpxPag() = std::move(abridor); }

const QStringList& ModeloImprimir::titulosColumnas()
{
    static const QStringList titulos{
        QStringLiteral("doc_id_d"),  QStringLiteral("Razón Social"), QStringLiteral("Periodo"),
        QStringLiteral("Ejercicio"), QStringLiteral("Formulario"),   QStringLiteral("N.Orden"),
        QStringLiteral("Fecha Envio"), QStringLiteral("Control"),    QStringLiteral("Correlativo"),
        QStringLiteral("Estado"),    QStringLiteral("Rectifica"),    QStringLiteral("Semana")};
    return titulos;
}

QString ModeloImprimir::sentenciaLista(bool enviadas, bool filtrarUsuario)
{
    QString sql;
    if (enviadas)
        sql = QStringLiteral(
            "SELECT A.DOC_ID_D, B.NOMBRE, A.PERIODO, substr(A.PERIODO,1,4) || substr(A.PERIODO,5,2) AS PERIODOf, "
            "A.FORMULARIO, A.ESTADO, A.FEC_ENV, A.CORREL, A.NORDEN, A.CONTROL, A.RECTIFICA, A.SEMANA "
            "FROM HCAB AS A, CONT AS B");
    else
        sql = QStringLiteral(
            "SELECT A.DOC_ID_D, B.NOMBRE, A.PERIODO, substr(A.PERIODO,1,4) || substr(A.PERIODO,5,2) AS PERIODOf, "
            "A.FORMULARIO, A.ESTADO, A.RECTIFICA, A.SEMANA FROM CAB AS A, CONT AS B");
    sql += QStringLiteral(" WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6 AND A.FORMULARIO=?");
    if (filtrarUsuario)
        sql += QStringLiteral(" AND B.USUARIO=?");
    if (enviadas)
        sql += QStringLiteral(" AND A.ESTADO=1 ORDER BY A.DOC_ID_D ASC");
    else
        sql += QStringLiteral(" ORDER BY A.DOC_ID_D ASC, A.PERIODO DESC");
    return sql;
}

void ModeloImprimir::Form_Load()
{
    Globales& g = G();
    barraAnterior_ = barraEstado();
    g.gsArchMens = g.gsPathSys + QStringLiteral("Mens.txt");
    const bool enviadas = g.gbImpEnviada;
    g.gbRptEnviada = enviadas ? -1 : 0;
    Caption = enviadas ? QStringLiteral("Imprimir Formularios enviados") : QStringLiteral("Imprimir ");
    Frame2 = enviadas ? QStringLiteral("Declaraciones Enviadas") : QStringLiteral("Declaraciones registradas");

    for (int i = 0; i < kColumnas; ++i) {
        columnaVisible[i] = true;
        anchoColumna[i] = 0;
    }
    if (enviadas) {
        anchoGrilla = 7515;
        anchoColumna[ColNombre] = 3300;
        columnaVisible[ColPeriodo] = columnaVisible[ColEstado] = false;
    } else {
        for (int c : {ColPeriodo, ColNorden, ColFecEnv, ColControl, ColCorrel, ColEstado})
            columnaVisible[c] = false;
        anchoColumna[ColNombre] = 4000;
        anchoColumna[ColPeriodof] = 1000;
    }

    const bool filtrar = TipoUsuario() != QLatin1String("0");
    QVariantList valores{g.gsFormulario};
    if (filtrar)
        valores << g.gsUsuario;
    filas.clear();
    QSqlQuery q = ejecutar(sentenciaLista(enviadas, filtrar), valores);
    while (q.next()) {
        const QSqlRecord r = q.record();
        auto campo = [&](const char* nombre) { return r.indexOf(QLatin1String(nombre)) < 0 ? QString() : texto(r.value(QLatin1String(nombre))); };
        QStringList fila;
        fila << campo("DOC_ID_D") << campo("NOMBRE") << campo("PERIODO") << campo("PERIODOf") << campo("FORMULARIO")
             << campo("NORDEN")
             << (r.indexOf(QLatin1String("FEC_ENV")) < 0 ? QString() : fechaEnvio(r.value(QLatin1String("FEC_ENV"))))
             << campo("CONTROL") << campo("CORREL") << campo("ESTADO") << campo("RECTIFICA") << campo("SEMANA");
        filas.append(fila);
    }
    grdContribHabilitada = !filas.isEmpty();
    filaActual = filas.isEmpty() ? -1 : 0;
    if (filaActual >= 0)
        grdContrib_RowColChange(0);
}

void ModeloImprimir::Form_Activate()
{
    if (filaActual >= 0)
        avisarBarra();
}

void ModeloImprimir::Form_Unload()
{
    const EstadoBarra& b = barraAnterior_;
    pBarraEstado(b.PanelRuc, b.PanelNombre, b.PanelPeriodo, b.PanelFormulario);
}

void ModeloImprimir::OptImp_Click(int indice)
{
    OptImp = indice;
    ChkAnexosHabilitados = indice != 0;
    if (indice == 0)
        ChkAnexos[0] = ChkAnexos[1] = ChkAnexos[2] = false;
}

void ModeloImprimir::grdContrib_RowColChange(int fila)
{
    if (fila < 0 || fila >= filas.size())
        return;
    filaActual = fila;
    const QStringList& f = filas[fila];
    rucFila_ = Trim(f[ColDocId]);
    periodoFila_ = f[ColPeriodo];
    nombreFila_ = f[ColNombre];
    semanaFila_ = f[ColSemana];
    avisarBarra();
}

void ModeloImprimir::avisarBarra() const
{
    if (filaActual < 0 || filaActual >= filas.size())
        return;
    const QStringList& f = filas[filaActual];
    pBarraEstado(f[ColDocId], f[ColNombre], f[ColPeriodof], G().gsFormulario);
}

bool ModeloImprimir::prepararReporte()
{
    if (filaActual < 0 || filaActual >= filas.size())
        return false;
    Globales& g = G();
    const QStringList& f = filas[filaActual];
    g.gsRucRpt = Trim(f[ColDocId]);
    g.gsPeriodoRpt = Left(f[ColPeriodof], 4) + mesDelPeriodo(f[ColPeriodof]);
    g.gsNombreRpt = f[ColNombre];
    g.gsCorrelRpt = f[ColCorrel];
    g.gsOrdenRpt = f[ColNorden];
    g.gsControlRpt = f[ColControl];
    semanaFila_ = f[ColSemana];
    try {
        pConsulta();
        g.gnTipoRpt = 2;
        g.gsDestinoRpt = QStringLiteral("ARCHIVO");
        ultimoArchivo = pRegistraSpool(kCodigoReporte, 6, g.gsRucRpt);
        g.gsRutaRpt = rutaSpool(ultimoArchivo);
    } catch (const ErrorVB& e) {
        muestraError(e);
        return false;
    }
    pImprimeReporte(QString());
    return true;
}

void ModeloImprimir::CmdImprimir_Click(int indice)
{
    if (indice == 2) {
        descargar = true;
        return;
    }
    if (indice == 1) {
        if (prepararReporte())
            pAbrePrevia(ultimoArchivo, QStringLiteral("xx"));
        return;
    }
    if (indice != 0)
        return;
    const int posicion = filaActual;
    if (!prepararReporte())
        return;
    qint16 paginas = 0;
    try {
        paginas = NumRegistros(ultimoArchivo);   // a damaged count is shown, not passed on
    } catch (const ErrorVB& e) {
        muestraError(e);
        return;
    }
    G().gbPorHojas = -1;
    if (abridorImpxPag())
        abridorImpxPag()(QStringLiteral("Impresión de ") + QString::number(paginas) + QStringLiteral(" páginas"), paginas,
                         ultimoArchivo);
    if (posicion >= 0 && !filas.isEmpty())
        filaActual = qMin(posicion, int(filas.size()) - 1);
}

// ---------------------------------------------------------------------------------------------

const QStringList& textoImpxPag()
{
    static const QStringList lineas{
        QStringLiteral("El   reporte   generado   contiene                  página(s)."),
        QString(),
        QStringLiteral("Si  su  consulta  contiene  más  de  10  páginas  puede"),
        QStringLiteral("ocasionar la caída del programa debido a la saturación"),
        QStringLiteral("de la memoria de la computadora."),
        QString(),
        QStringLiteral("Se  recomienda  imprimir  en  rangos  no  mayores a 10"),
        QStringLiteral("páginas."),
    };
    return lineas;
}

QString ModeloImpxPag::validaRango(const QString& desde, const QString& hasta, const QString& total)
{
    if (Trim(desde).isEmpty())
        return QStringLiteral("Ingrese página de inicio");
    if (Val(desde) <= 0)
        return QStringLiteral("Página inicial debe ser a partir de 1");
    if (Val(desde) > Val(total))
        return QStringLiteral("Página inicial no debe ser mayor a total de páginas del reporte");
    if (Trim(hasta).isEmpty())
        return QStringLiteral("Ingrese página de Fin");
    if (Val(hasta) < Val(desde))
        return QStringLiteral("Página de Inicio debe ser mayor a página de Fin");
    return QString();
}

int ModeloImpxPag::filtraTecla(int tecla)
{
    if ((tecla >= '0' && tecla <= '9') || tecla == 8 || tecla == '.' || tecla == ' ' || tecla == 13)
        return tecla;
    return 0;
}

void ModeloImpxPag::cmdAccion_Click(int indice)
{
    if (indice == 1) {
        descargar = true;
        return;
    }
    if (indice != 0)
        return;
    const QString mensaje = validaRango(txtPagDesde, txtPagHasta, txtTotPaginas);
    if (!mensaje.isEmpty()) {
        MsgBox(mensaje, vbCritical, Caption);
        return;
    }
    try {
        G().gnHojaDesde = CInt(Val(txtPagDesde));
        G().gnHojaHasta = CInt(Val(txtPagHasta));
    } catch (const ErrorVB& e) {
        muestraError(e);
        return;
    }
    pAbrePrevia(Tag, QStringLiteral("Vprevia"));
}
