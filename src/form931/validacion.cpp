// Validation passes of the declaration: the full pass behind "&Validar", which writes one line
// per fault into the message file and goes on to the end, and the silent pass of "&Grabar",
// whose answer becomes the declaration's state. The two share their tests but not their order,
// and in places not their wording: each pass is written out on its own, on purpose.
// (The first pass, on leaving the identification page, lives in validacion_pestana.cpp.)
#include "form931/frm931.h"
#include "form931/textos.h"

#include "basic/errores.h"
#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/periodo.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QDate>
#include <QFile>
#include <QSqlQuery>
#include <QVariant>

namespace {

const QString kFechaVacia = QStringLiteral("__/__/____");

// Texts told by more than one rule or by both passes.
namespace Texto {
using namespace TextosFormulario;
const QString NoProcedeSuspension = QStringLiteral("No procede la suspensión de pagos a cuenta");
const QString BalanceAbril = QStringLiteral("No puede presentar balance al 30 de Abril ");
const QString LimiteRmt = QStringLiteral(
    "Ingresos superan el límite establecido para el RMT, deberá presentar su declaración en el Régimen General ");
const QString Telefono = QStringLiteral("Ingrese su número de teléfono o un número de referencia");
const QString TelefonoCero =
    QStringLiteral("Identificación-Datos Generales : El teléfono no puede ser cero");
const QString PeriodoNoValido = QStringLiteral("El período no es valido");
const QString TipoPersona = QStringLiteral("Seleccione el tipo de persona");
const QString Ubigeo = QStringLiteral("Registre el Ubigeo");
const QString UbicadoAmazonia = QStringLiteral("Señale si esta ubicado en la amazonía");
const QString UbicadoAmazoniaSinTilde = QStringLiteral("Señale si esta ubicado en la amazonia");
const QString DomicilioAmazonia = QStringLiteral(
    "Indique si su domicilio fiscal se encuentra ubicado en la Amazonia y coincide con el lugar "
    "donde tiene su administración y contabilidad.");
const QString ZonaAmazonia = QStringLiteral("Señale la Zona a la que corresponde la ubicación de su domicilio");
const QString ActividadIndustrial = QStringLiteral("Señale si se dedica a la actividad industrial.");
const QString UbigeoFrontera = QStringLiteral("Señale el ubigeo al que corresponde la zona de frontera.");
const QString DomicilioFrontera = QStringLiteral(
    "Indique si su domicilio fiscal se encuentra ubicado en la Zona de frontera  y coincide con el "
    "lugar donde tiene su administración y contabilidad.");
const QString ConvenioEstabilidad = QStringLiteral("Especifique si tiene convenio de estabilidad.");
const QString Orden2305 = QStringLiteral("Registre correctamente el número de orden del formulario 2305");
const QString Activo = QStringLiteral("Ingrese información en el Activo");
const QString Pasivo = QStringLiteral("Ingrese información en el Pasivo");
const QString Patrimonio = QStringLiteral("Ingrese información en el Patrimonio");
const QString Ganancias = QStringLiteral(
    "Si existe la casilla 552 ó 553 debe existir información en el Estado de Ganancias y Pérdidas");
const QString TotalActivo = QStringLiteral("El Total Activo debe ser igual a Total Pasivo + Patrimonio");
const QString Casilla113 = QStringLiteral("Debe ingresar valor en la casilla 113");
const QString Casilla477 = QStringLiteral(
    "Estados Financieros-Estado de Ganancias y Pérdidas : Si ingresa información en las casilla 478 "
    "debe ingresar también la casilla 477.");
const QString ZonaContador = QStringLiteral(
    "Información Complementaria : Debe ingresar el código de la zona de colegiatura del contador");
const QString ColegiaturaContador = QStringLiteral(
    "Información Complementaria : Debe Ingresar el Nro. C.P.C. o el Nro. C.M.A. del contador");
const QString TipoDocRepresentante =
    QStringLiteral("Información Complementaria : Ingrese el tipo de documento del Representante Legal");
const QString NumDocRepresentante =
    QStringLiteral("Información Complementaria : Ingrese el número de documento del Representante Legal");
const QString DniRepresentante = QStringLiteral("Información Complementaria : Ingrese los ocho dígitos del DNI");
const QString ApellidosRepresentante =
    QStringLiteral("Información Complementaria : Ingrese los apellidos del Representante Legal");
const QString NombresRepresentante =
    QStringLiteral("Información Complementaria : Ingrese los nombres del Representante Legal");
const QString Perdidas = QStringLiteral(
    "Debe ingresar información de pérdida tributaria compensable de ejercicios anteriores");
}  // namespace Texto

// Statement of the loss grid; the key of the declaration follows it.
const QString kSqlPerdidas =
    QStringLiteral("SELECT Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe FROM ");

// Statement of the working header that a new declaration must not repeat.
const QString kSqlExisteCab = QStringLiteral(
    "SELECT 1 FROM CAB WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?");

// Boxes of the profit and loss statement that a result of the year (552, 553) asks for.
const int kCasillasGanancias[] = {461, 462, 464, 468, 469, 472, 473, 475, 476,
                                  477, 478, 480, 481, 483, 486, 490};

// The message file, opened for output (earlier content lost). UTF-8, lines ended by "\n":
// the viewer reads it the same way.
class ArchivoMens {
public:
    explicit ArchivoMens(const QString& nombre) : f_(nombre)
    {
        if (!f_.open(QIODevice::WriteOnly | QIODevice::Truncate))
            throw ErrorVB(75, QStringLiteral("Error de acceso a la ruta o el archivo"));
    }
    void escribir(const QString& linea)
    {
        f_.write(linea.toUtf8());
        f_.write("\n", 1);
    }
    void cerrar() { f_.close(); }

private:
    QFile f_;
};

bool vacia(const QString& s) { return Trim(s).isEmpty(); }

bool esFecha(const QString& texto)
{
    return QDate::fromString(texto, QStringLiteral("dd/MM/yyyy")).isValid();
}

// "dd/mm/yyyy" -> "yyyymmdd", by position.
QString aAnioMesDia(const QString& fecha)
{
    return Mid(fecha, 7, 4) + Mid(fecha, 4, 2) + Left(fecha, 2);
}

}  // namespace

namespace {

// Shared readings of the form, for both passes.
struct Lectura {
    const Frm931& f;

    bool vacioExacto(int n) const { return f.txt(n).isEmpty(); }
    bool vacioRecortado(int n) const { return vacia(f.txt(n)); }

    // True when every existing box from `desde` to `hasta` is empty (exactly, or after
    // trimming).
    bool rangoVacio(int desde, int hasta, bool recortado) const
    {
        for (int n = desde; n <= hasta; ++n) {
            if (!existeCasilla(n))
                continue;
            if (recortado ? !vacioRecortado(n) : !vacioExacto(n))
                return false;
        }
        return true;
    }

    bool convenioElegido() const
    {
        for (int i = 1; i <= 4; ++i)
            if (f.OptConvEstab.valor(i))
                return true;
        return false;
    }

    bool orden2305Mal() const
    {
        return vacia(f.TxtNumOrdenF2305.Text) || Len(f.TxtNumOrdenF2305.Text) != 8;
    }

    bool periodoInvalido(int anio) const
    {
        const QString mes = mesDelPeriodo(G().gsPeriodo);
        return anio >= 2013 && (mes == QLatin1String("01") || mes == QLatin1String("06"));
    }

    bool gananciasVacias() const
    {
        for (int n : kCasillasGanancias)
            if (!vacioRecortado(n))
                return false;
        return true;
    }

    bool resultadoSinGanancias() const
    {
        return (!vacioRecortado(552) || !vacioRecortado(553)) && gananciasVacias();
    }

    // The accountant group opens with a region code other than "00" and "26", a RUC, or
    // both registration numbers.
    bool grupoContadorAbierto() const
    {
        const QString zona = Trim(f.txt(209));
        return (!zona.isEmpty() && zona != QLatin1String("00") && zona != QLatin1String("26"))
            || !vacioRecortado(208) || (!vacioRecortado(211) && !vacioRecortado(212));
    }
};

// Rows of the loss table for the declaration; `historia` reads the sent copy of gsCorrel.
QVector<QPair<QString, QString>> leerPerdidas(const QString& ruc, bool historia)
{
    QString sql = kSqlPerdidas + (historia ? QStringLiteral("HF0931_PTCEA") : QStringLiteral("F0931_PTCEA"))
        + QStringLiteral(" WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?");
    QVariantList valores{ruc, G().gsPeriodo, G().gsFormulario};
    if (historia) {
        sql += QStringLiteral(" AND CORREL=?");
        valores << G().gsCorrel;
    }
    sql += QStringLiteral(" ORDER BY ANHO");
    QSqlQuery q = ejecutar(sql, valores);
    QVector<QPair<QString, QString>> filas;
    while (q.next())
        filas.append({q.value(4).toString(), q.value(5).toString()});
    return filas;
}

}  // namespace

void Frm931::ValidaParExcluyente(int iCasilla, int iCasilla1, bool bMensaje, int iCasilla2, bool& bOk)
{
    bOk = true;
    if (vacia(txt(iCasilla)))
        return;
    const bool b = !vacia(txt(iCasilla1));
    const bool c = !vacia(txt(iCasilla2));
    QString texto;
    if (!b && !c)
        texto = QStringLiteral("Ingrese valor en las casillas %1 y (%2 o %3)").arg(iCasilla).arg(iCasilla1).arg(iCasilla2);
    else if (b && c)
        texto = QStringLiteral("Solo debe Ingresar valor en una de las dos casillas (%1 o %2)").arg(iCasilla1).arg(iCasilla2);
    else
        return;
    G().giError = 1;
    if (bMensaje)
        G().gsMensaje = texto;
    bOk = false;
}

bool Frm931::ValidaPeriodo(const QString& sFecha) const
{
    if (sFecha.contains(QLatin1Char('_')))
        return false;
    const QString amd = aAnioMesDia(sFecha);
    if (!(Val(amd) > 0))
        return false;
    if (amd < Format(Hoy(), QStringLiteral("yyyy")) + QStringLiteral("0101"))
        return false;
    const double mes = Val(Mid(sFecha, 4, 2));
    return mes >= 1 && mes <= 12;
}

void Frm931::ValidaFormulario()
{
    Globales& g = G();
    g.giError = 0;
    const Lectura l{*this};
    ArchivoMens mens(g.gsArchMens);
    auto falla = [&](const QString& texto) {
        g.gsMensaje = texto;
        mens.escribir(texto);
        g.giError = 1;
    };
    // The payment block stands on page 2 of the identification page.
    auto aPaginaPago = [&] {
        SSTab1.Tab = 0;
        SSTab2.Tab = 2;
    };

    // MYPE Tributario: suspension and the income limits.
    if (optRenta.valor(5)) {
        if (Vale(253) > 0)
            falla(Texto::NoProcedeSuspension);
        double ingresos = 0;
        IngresoNetos(ingresos);
        const double uit = Val(msUit);
        if (CboBalance.ListIndex == 0 && !(300 * uit < ingresos))
            falla(Texto::BalanceAbril);
        if (1700 * uit < ingresos)
            falla(Texto::LimiteRmt);
    }

    // The period follows the balance date, silently.
    const int y = anio();
    const QString anioPeriodo = Left(g.gsPeriodo, 4);
    // From 2013 a period of the first half (01, 06) keeps its month.
    const QString mes = mesDelPeriodo(g.gsPeriodo);
    const bool fija = y >= 2013 && (mes == QLatin1String("01") || mes == QLatin1String("06"));
    if (!fija && (CboBalance.ListIndex == 0 || CboBalance.ListIndex == 1))
        g.gsPeriodo = anioPeriodo + mesDeBalance(CboBalance.ListIndex, y >= 2013);

    // A new declaration must not repeat a stored one.
    if (miModo == 0 && OptInicio.b.value(0).Enabled) {
        const QString ruc = Trim(Left(CmbRuc.Text(), 11));
        if (escalar(kSqlExisteCab, {ruc, g.gsPeriodo, g.gsFormulario}).isValid()) {
            SSTab1.Tab = 0;
            falla(QStringLiteral("La declaración que desea registrar ya existe ") + msFechaBalance + QStringLiteral(". ")
                  + QStringLiteral("Elija la opción modificar declaración o elija otro contribuyente."));
            darFoco(QStringLiteral("CmbRuc"));
        }
    }

    // Telephone.
    const int largoTelefono = Len(TxtTelefono.Text);
    if (largoTelefono >= 1 && largoTelefono <= 5)
        falla(Texto::Telefono);
    if (!vacia(TxtTelefono.Text) && Val(TxtTelefono.Text) == 0)
        falla(Texto::TelefonoCero);

    // Period, regime, type of person.
    if (l.periodoInvalido(y))
        falla(Texto::PeriodoNoValido);
    if (!optRenta.contestado())
        falla(Texto::Regimen);
    if (!OptPersona.contestado() && (optRenta.valor(5) || optRenta.valor(0)))
        falla(Texto::TipoPersona);

    // Date of the agrarian form: an empty date and a wrong year say the same.
    const bool agrario = optRenta.valor(1);
    const QString fechaAgraria = MkePeriodo.Text;
    if (agrario && fechaAgraria == kFechaVacia)
        falla(Texto::AnioAgrario);
    if (agrario && !FechaNoFutura(fechaAgraria))
        falla(Texto::FechaAgrarioFutura);
    if (agrario && fechaAgraria != kFechaVacia && (!ValidaPeriodo(fechaAgraria) || !esFecha(fechaAgraria)))
        falla(Texto::AnioAgrario);

    // Amazonía.
    if (optRenta.valor(2)) {
        if (OptZona.contestado() && vacia(TxtUbigeo.Text))
            falla(Texto::Ubigeo);
        if (marcos.value(QStringLiteral("Frame21")).Enabled && !OptUbicAmazonia.contestado())
            falla(Texto::UbicadoAmazonia);
        if (!OptLeyAmazonia.contestado() && OptUbicAmazonia.valor(0))
            falla(Texto::UbicadoAmazoniaSinTilde);
        if (OptUbicAmazonia.valor(1) || OptLeyAmazonia.valor(1)) {
            if (!OptDomFiscal.contestado())
                falla(Texto::DomicilioAmazonia);
            if (OptDomFiscal.valor(1) && !OptZona.contestado())
                falla(Texto::ZonaAmazonia);
        }
    }

    // Zona de frontera.
    if (optRenta.valor(3)) {
        if (!OptActividad.contestado())
            falla(Texto::ActividadIndustrial);
        if (OptActividad.valor(1) && OptFrontera.valor(1) && vacia(TxtUbigeo2.Text))
            falla(Texto::UbigeoFrontera);
        if (OptActividad.valor(1) && !OptFrontera.valor(1) && !OptFrontera.valor(0))
            falla(Texto::DomicilioFrontera);
    }

    // Convenio de estabilidad.
    if (optRenta.valor(4)) {
        if (!l.convenioElegido())
            falla(Texto::ConvenioEstabilidad);
        if (l.orden2305Mal())
            falla(Texto::Orden2305);
    }

    // Payment block: each fault also turns the tabs to its page.
    if (!OptInicio.contestado()) {
        aPaginaPago();
        falla(Texto::Inicio);
    }
    if (OptInicio.valor(0)) {
        if (!OptAnterior.contestado()) {
            aPaginaPago();
            falla(Texto::Anterior);
        }
        if (!OptPrecedente.contestado()) {
            aPaginaPago();
            falla(Texto::Precedente);
        }
    }
    if (CboBalance.ListIndex == -1) {
        aPaginaPago();
        falla(Texto::MesBalance);
    }
    if (Left(CboBalance.Text(), 11) == QLatin1String("31 DE JULIO") && OptSuspPC.valor(1)) {
        const QString resolucion = txtNumRes.Text;
        const QString notificacion = mkefecnot.Text;
        if (notificacion == kFechaVacia || resolucion.isEmpty()) {
            aPaginaPago();
            falla(Texto::ResolucionObligatoria);
        }
        if (Len(resolucion) < 13) {
            aPaginaPago();
            falla(Texto::ResolucionIncompleta);
        } else if (resolucion == QLatin1String("0000000000000")) {
            aPaginaPago();
            falla(Texto::ResolucionCeros);
        }
        if (gobjUtil().FechaEnRango(notificacion, QStringLiteral("01/01/1850"), QStringLiteral("01/01/2500"))) {
            if (aAnioMesDia(notificacion) < QLatin1String("20130322") || !FechaNoFutura(notificacion)) {
                aPaginaPago();
                falla(Texto::NotificacionFueraDeRango);
            }
        } else {
            aPaginaPago();
            falla(Texto::NotificacionNoValida);
        }
    }

    // Balance sheet groups; an empty pasivo says nothing of the patrimonio.
    if (l.rangoVacio(500, 530, false))
        falla(Texto::Activo);
    if (l.rangoVacio(532, 542, true))
        falla(Texto::Pasivo);
    else if (l.rangoVacio(544, 553, true))
        falla(Texto::Patrimonio);

    // A result of the year needs its statement; the totals must balance.
    if (l.resultadoSinGanancias())
        falla(Texto::Ganancias);
    if (N(531) != N(555))
        falla(Texto::TotalActivo);

    // The exclusive pairs, each pair both ways round.
    static const int pares[4][3] = {{550, 550, 551}, {551, 551, 550}, {552, 552, 553}, {553, 553, 552}};
    for (const auto& p : pares) {
        bool bOk = true;
        ValidaParExcluyente(p[0], p[1], true, p[2], bOk);
        if (!bOk)
            falla(g.gsMensaje);
    }

    // The tax of a stability agreement is typed; 478 goes with 477.
    if (optRenta.valor(4) && l.vacioRecortado(113))
        falla(Texto::Casilla113);
    if (!l.vacioExacto(478) && l.vacioExacto(477))
        falla(Texto::Casilla477);

    // Accountant.
    if (l.grupoContadorAbierto()) {
        if (l.vacioRecortado(209))
            falla(Texto::ZonaContador);
        if (l.vacioRecortado(211) && l.vacioRecortado(212))
            falla(Texto::ColegiaturaContador);
    }

    // Legal representative of a company.
    setTxt(225, Left(cboTipDocRepLegal.Text(), 2));
    if (OptPersona.valor(0)) {
        if (l.vacioRecortado(225))
            falla(Texto::TipoDocRepresentante);
        if (l.vacioRecortado(226))
            falla(Texto::NumDocRepresentante);
        if (Trim(txt(225)) == QLatin1String("01") && Len(Trim(txt(226))) != 8)
            falla(Texto::DniRepresentante);
        if (vacia(txtApellidoRL.Text))
            falla(Texto::ApellidosRepresentante);
        if (vacia(txtNombreRL.Text))
            falla(Texto::NombresRepresentante);
    }

    // Losses of earlier years, when their page is open.
    if (SSTab4.TabEnabled.value(1)) {
        grdPerdidaTributaria = leerPerdidas(rucDeclarante(), false);
        if (grdPerdidaTributaria.isEmpty()) {
            SSTab1.Tab = 3;
            SSTab4.Tab = 1;
            falla(Texto::Perdidas);
        }
    }

    // The file is complete; the RUC checks stop the pass with a message box.
    mens.cerrar();
    auto pararEn = [&](int casilla, const QString& texto) {
        MsgBox(texto, vbCritical, Caption);
        marco(QStringLiteral("frame1(5)")).Visible = true;
        SSTab1.Tab = 3;
        SSTab4.Tab = 0;
        darFocoCasilla(casilla);
    };
    const QString rucContribuyente = rucDeclarante();
    const QString ruc208 = Trim(txt(208));
    if (!ruc208.isEmpty() && (!ValidaDocumento(QStringLiteral("06"), ruc208) || !gobjUtil().ValidaRuc(ruc208))) {
        pararEn(208, Texto::RucNoValido);
        return;
    }
    if (!rucContribuyente.isEmpty() && ruc208 == rucContribuyente) {
        pararEn(208, Texto::RucIgual);
        return;
    }
    const QString doc226 = Trim(txt(226));
    if (Trim(txt(225)) == QLatin1String("06") && !doc226.isEmpty()
        && (!ValidaDocumento(QStringLiteral("06"), doc226) || !gobjUtil().ValidaRuc(doc226))) {
        pararEn(226, Texto::RucNoValido);
        return;
    }
    if (doc226 == rucContribuyente) {
        pararEn(226, Texto::RucIgual);
        return;
    }
}

void Frm931::ValidaCompleto(bool& bOk)
{
    const Lectura l{*this};
    bOk = false;

    // Telephone and type of person.
    const int largoTelefono = Len(TxtTelefono.Text);
    if (largoTelefono >= 1 && largoTelefono <= 5)
        return;
    if (!vacia(TxtTelefono.Text) && Val(TxtTelefono.Text) == 0)
        return;
    if (!OptPersona.contestado() && (optRenta.valor(5) || optRenta.valor(0)))
        return;

    // MYPE Tributario: the three tests tell the user, suspension last.
    if (optRenta.valor(5)) {
        double ingresos = 0;
        IngresoNetos(ingresos);
        const double uit = Val(msUit);
        if (CboBalance.ListIndex == 0 && !(300 * uit < ingresos)) {
            MsgBox(Texto::BalanceAbril, vbCritical, Caption);
            return;
        }
        if (1700 * uit < ingresos) {
            MsgBox(Texto::LimiteRmt, vbCritical, Caption);
            return;
        }
        if (Vale(253) > 0) {
            MsgBox(Texto::NoProcedeSuspension, vbCritical, Caption);
            return;
        }
    }

    // Period, regime, an empty agrarian date.
    if (l.periodoInvalido(anio()))
        return;
    if (!optRenta.contestado())
        return;
    if (optRenta.valor(1) && MkePeriodo.Text == kFechaVacia)
        return;

    // Convenio de estabilidad.
    if (optRenta.valor(4) && (!l.convenioElegido() || l.orden2305Mal()))
        return;

    // Amazonía.
    if (optRenta.valor(2)) {
        if (OptZona.contestado() && vacia(TxtUbigeo.Text))
            return;
        if (marcos.value(QStringLiteral("Frame21")).Enabled && !OptUbicAmazonia.contestado())
            return;
        if (!OptLeyAmazonia.contestado() && OptUbicAmazonia.valor(0))
            return;
        if (OptUbicAmazonia.valor(1) || OptLeyAmazonia.valor(1)) {
            if (!OptDomFiscal.contestado())
                return;
            if (OptDomFiscal.valor(1) && !OptZona.contestado())
                return;
        }
    }

    // Zona de frontera: only the missing geographic code.
    if (optRenta.valor(3) && vacia(TxtUbigeo2.Text) && OptActividad.valor(1) && OptFrontera.valor(1))
        return;

    // Balance sheet groups, each on its own.
    if (l.rangoVacio(500, 530, false) || l.rangoVacio(532, 542, true) || l.rangoVacio(544, 553, true))
        return;

    // Totals, and a tax for every regime.
    if (N(531) != N(555))
        return;
    if (l.vacioRecortado(113))
        return;

    // Results without statement, 478 without 477, accountant, legal representative.
    if (l.resultadoSinGanancias())
        return;
    if (!l.vacioExacto(478) && l.vacioExacto(477))
        return;
    if (l.grupoContadorAbierto() && (l.vacioRecortado(209) || (l.vacioRecortado(211) && l.vacioRecortado(212))))
        return;
    setTxt(225, Left(cboTipDocRepLegal.Text(), 2));
    if (OptPersona.valor(0)) {
        if (l.vacioRecortado(225) || l.vacioRecortado(226))
            return;
        if (Trim(txt(225)) == QLatin1String("01") && Len(Trim(txt(226))) != 8)
            return;
        if (vacia(txtApellidoRL.Text) || vacia(txtNombreRL.Text))
            return;
    }

    // A loss carried forward needs its rows.
    const QString c108 = txt(108);
    if (!c108.isEmpty() && c108 != QLatin1String("0")) {
        if (leerPerdidas(rucDeclarante(), G().gbEnviada).isEmpty())
            return;
    }

    bOk = true;
}
