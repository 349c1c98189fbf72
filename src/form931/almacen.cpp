// Single casilla values between the form and the rows of DET: one value written
// (pGrabaCasilla), every row of the declaration in hand read (pCargaCasillas), and one value
// put in its place on the form with the picture that casilla needs (pPonerCasilla).
#include "form931/frm931.h"

#include "basic/formato.h"
#include "basic/texto.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QSqlQuery>
#include <QVariant>

namespace {

// The pictures a stored value travels through.
const QString kSinSeparadores = QStringLiteral("###########0");
const QString kCoeficiente = QStringLiteral("###########0.0000");
const QString kPorcentaje = QStringLiteral("###########0.00");
const QString kRucContador = QStringLiteral("########");
const QString kMascaraVacia = QStringLiteral("________");   // an empty masked date, as "yyyymmdd"

const QString kSqlCatalogo = QStringLiteral("SELECT funcion FROM PARAM WHERE numero='140' AND argumento=?");
const QString kSqlFilaDet = QStringLiteral(
    "SELECT rowid, SEMANA, idcasilla FROM DET"
    " WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=? AND CASILLA=?");
const QString kSqlNuevaDet = QStringLiteral(
    "INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR, idcasilla, cNumero)"
    " VALUES (6, ?, ?, ?, ?, ?, ?, ?)");
const QString kSqlNuevaDet180 = QStringLiteral(
    "INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR, cNumero)"
    " VALUES (6, ?, ?, ?, ?, ?, ?)");
const QString kSqlCambiaDet = QStringLiteral("UPDATE DET SET I_VALOR=?, idcasilla=?, cNumero=? WHERE rowid=?");
const QString kSqlLeeDet = QStringLiteral(
    "SELECT CASILLA, I_VALOR FROM DET WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?");
const QString kSqlLeeHdet = QStringLiteral(
    "SELECT CASILLA, I_VALOR FROM HDET"
    " WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=? AND CORREL=?");

// Default of DET.idcasilla, which casilla 180 keeps.
const QString kIdCasillaPorDefecto = QStringLiteral("00");

// Values that never make a row: nothing, a lone tab, line feed or carriage return, and the
// picture of an empty date.
bool valorVacio(const QString& valor)
{
    const QString t = Trim(valor);
    return t.isEmpty() || t == QLatin1String("\t") || t == QLatin1String("\n") || t == QLatin1String("\r")
        || t == kMascaraVacia;
}

// Casillas stored as they stand, without the amount picture. Besides the family's list, the
// items that hold codes, whose leading zeros the picture would drop: the taxpayer (002), the
// period (007), the telephone (028, "014451234") and the frontier district (603, "060101"),
// as the Amazonian district (812) always was.
bool seGuardaComoTexto(int casilla)
{
    const DefCasilla* d = defCasilla(casilla);
    return d && d->grabacion == Grabacion::Texto;
}

// The value of i_valor for a casilla of a declaration of the given period.
QString valorGuardado(int casilla, const QString& valor, const QString& periodo)
{
    if (seGuardaComoTexto(casilla))
        return valor;
    if (const DefCasilla* d = defCasilla(casilla); d && d->grabacion == Grabacion::Coeficiente) {
        if (Val(Left(periodo, 4)) >= 2013)
            return Format(valor, kCoeficiente);
        const QString& sistema = G().gsSistema;
        if (sistema == QLatin1String("A"))
            return Format(valor, kCoeficiente);
        if (sistema == QLatin1String("B"))
            return Format(valor, kPorcentaje);
        return QStringLiteral("0");
    }
    return Format(valor, kSinSeparadores);
}

// Subtractive amounts as the stored rows bring them back: between parentheses. The list is the
// loading rule's own (462 and 464 are not in it and come back signed); the numbers of the
// family's annual form that have no box here are kept with it. The investment in the Amazon
// (150) is typed as a plain figure and stored positive: shown between parentheses it would be
// stored negative by the next save, so it comes back as it was typed.
bool vuelveEntreParentesis(int casilla)
{
    return esParentesis(casilla) && !tieneMarca(casilla, kConSigno);
}

bool vuelveComoTotal(int casilla)
{
    const DefCasilla* d = defCasilla(casilla);
    return d && d->presentacion == Presentacion::Totales;
}

// The index an option answer or a list index is stored as ("0", "1", ...); -1 when it names
// no button or item of the control.
int indiceGuardado(const QString& valor, qsizetype cuantos)
{
    const double v = Val(valor);
    return v >= 0 && v < static_cast<double>(cuantos) ? static_cast<int>(v) : -1;
}

}  // namespace

void Frm931::pGrabaCasilla(const QString& sCasilla, const QString& vValor, const QString& sRuc,
                           const QString& sPeriodo)
{
    const Globales& g = G();
    // The catalogue of the form's casillas is read for every value; its attribute (positions
    // 10-11 of funcion) is not used, and a casilla without a row is written all the same.
    {
        QSqlQuery catalogo = ejecutar(kSqlCatalogo, {g.gsFormulario + sCasilla});
        const QString atributo = catalogo.next() ? Mid(catalogo.value(0).toString(), 10, 2) : QString();
        (void)atributo;
    }

    if (valorVacio(vValor))
        return;

    const int casilla = static_cast<int>(Val(sCasilla));
    const QString ruc = Trim(sRuc);
    const QString periodo = Trim(sPeriodo);
    const QString valor = valorGuardado(casilla, vValor, sPeriodo);

    QSqlQuery existente = ejecutar(kSqlFilaDet, {ruc, periodo, g.gsFormulario, sCasilla});
    if (existente.next()) {
        const qint64 fila = existente.value(0).toLongLong();
        const QVariant semana = existente.value(1);
        const QString idcasilla = casilla == 180 ? existente.value(2).toString() : QStringLiteral("01");
        existente.finish();
        const QVariantList columnas{6, ruc, periodo, g.gsFormulario, semana, sCasilla, valor, idcasilla, QVariant()};
        ejecutar(kSqlCambiaDet, {valor, idcasilla, CodigoFila(columnas, 6), fila});
        return;
    }
    existente.finish();
    if (casilla == 180) {
        const QVariantList columnas{6, ruc, periodo, g.gsFormulario, 0, sCasilla, valor, kIdCasillaPorDefecto, QVariant()};
        ejecutar(kSqlNuevaDet180, {ruc, periodo, g.gsFormulario, sCasilla, valor, CodigoFila(columnas, 6)});
        return;
    }
    const QString idcasilla = QStringLiteral("01");
    const QVariantList columnas{6, ruc, periodo, g.gsFormulario, 0, sCasilla, valor, idcasilla, QVariant()};
    ejecutar(kSqlNuevaDet, {ruc, periodo, g.gsFormulario, sCasilla, valor, idcasilla, CodigoFila(columnas, 6)});
}

void Frm931::pCargaCasillas(bool& bVacio)
{
    const Globales& g = G();
    QSqlQuery filas;
    if (g.gbEnviada) {
        filas = ejecutar(kSqlLeeHdet, {g.gsRuc, g.gsPeriodo, g.gsFormulario, g.gsCorrel});
    } else {
        // The taxpayer in hand: the one opened (or saved once), else the one picked in the list.
        const QString ruc = msRuc.isEmpty() ? Trim(Left(CmbRuc.Text(), 11)) : Trim(msRuc);
        filas = ejecutar(kSqlLeeDet, {ruc, g.gsPeriodo, g.gsFormulario});
    }
    // Read every row first: putting a value runs the form's rules, which may query the store.
    QVector<QPair<QString, QString>> valores;
    while (filas.next())
        valores.append({Trim(filas.value(0).toString()), Trim(filas.value(1).toString())});
    filas.finish();
    bVacio = valores.isEmpty();
    for (const auto& [casilla, valor] : valores)
        pPonerCasilla(casilla, valor);
}

void Frm931::pPonerCasilla(const QString& sCasilla, const QString& vValor)
{
    const int n = static_cast<int>(Val(sCasilla));
    // A value for a box this form doesn't have (a number of the family's annual form) has no
    // place to go.
    auto enCaja = [&](const QString& texto) {
        if (existeCasilla(n))
            setTxt(n, texto);
    };
    auto ponerTexto = [](Caja& caja, const QString& texto, auto alCambiar) {
        if (caja.Text == texto)
            return;
        caja.Text = texto;
        alCambiar();
    };

    switch (n) {
    case 209: case 211: case 212: case 225: case 226:
        enCaja(vValor);
        break;
    case 208:
        enCaja(Format(Abs(Val(vValor)), kRucContador));
        break;
    case 7:
        TxtEjercicio.Text = vValor;
        break;
    case 28:
        ponerTexto(TxtTelefono, vValor, [this] { TxtTelefono_Change(); });
        break;
    case 224:
        TxtNumOrdenF2305.Text = vValor;
        break;
    case 200:
        ponerTexto(MkePeriodo, Mid(vValor, 7, 2) + QLatin1Char('/') + Mid(vValor, 5, 2) + QLatin1Char('/') + Left(vValor, 4),
                   [this] { MkePeriodo_Change(); });
        break;
    case 605:
        if (const int i = indiceGuardado(vValor, OptInicio.b.size()); i >= 0)
            marcar(OptInicio, i);
        break;
    case 606:
        if (const int i = indiceGuardado(vValor, OptPrecedente.b.size()); i >= 0)
            marcar(OptPrecedente, i);
        break;
    case 607:
        if (const int i = indiceGuardado(vValor, OptAnterior.b.size()); i >= 0)
            marcar(OptAnterior, i);
        break;
    case 608:
        if (const int i = indiceGuardado(vValor, CboBalance.items.size()); i >= 0)
            elegir(CboBalance, i);
        break;
    case 611:
        if (const int i = indiceGuardado(vValor, OptSuspPC.b.size()); i >= 0)
            marcar(OptSuspPC, i);
        break;
    case 612:
        txtNumRes.Text = vValor;
        break;
    case 613:
        mkefecnot.Text = vValor;
        break;
    case 601: msCas601 = vValor; break;
    case 602: msCas602 = vValor; break;
    case 802: msCas802 = vValor; break;
    case 804: msCas804 = vValor; break;
    case 809: msCas809 = vValor; break;
    case 810: msCas810 = vValor; break;
    case 811: msCas811 = vValor; break;
    case 813: msCas813 = vValor; break;
    case 860: msCas860 = vValor; break;
    case 5: case 805: case 871:
        msCas805 = vValor;
        break;
    case 56:
        msCas056 = vValor;
        break;
    case 603:
        G().gsUbigeoSel = vValor;
        ponerTexto(TxtUbigeo2, vValor, [this] { TxtUbigeo2_Change(); });
        break;
    case 812:
        G().gsUbigeoSel = vValor;
        ponerTexto(TxtUbigeo, vValor, [this] { TxtUbigeo_Change(); });
        break;
    case 815: TxtNombreA.Text = vValor; break;
    case 816: TxtNombreN.Text = vValor; break;
    case 817: txtApellidoRL.Text = vValor; break;
    case 818: txtNombreRL.Text = vValor; break;
    case 662:
        G().giTotPerdida = CInt(Val(vValor));
        break;
    case 609:
        // The payment system the declaration was saved with: before 2013 the option handlers,
        // quiet while loading, would have set it from the answers ("A" or "B"); from 2013 on
        // it is stored as "0" and the form keeps its own.
        if (vValor != QLatin1String("0"))
            setLblSistema(vValor);
        break;
    case 2: case 12: case 15: case 721: case 801:
        break;
    default:
        if (vuelveEntreParentesis(n)) {
            if (vValor.isEmpty())
                break;
            if (vValor == QLatin1String("0"))
                enCaja(QStringLiteral("0"));
            else
                enCaja(Format(Abs(Val(vValor)), Mascara::Perdida));
        } else if (vuelveComoTotal(n)) {
            enCaja(Format(vValor, Mascara::Totales));
        } else {
            // 432, 433, the other boxes from 300 to 464, and every other box.
            enCaja(Format(vValor, Mascara::Positivo));
        }
        break;
    }

    if (n == 113)
        msCas113 = vValor;
}
