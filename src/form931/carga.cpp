// Opening the declaration form: its lists, the state of each mode, and the identification of
// a stored declaration put back into the option groups.
#include "form931/frm931.h"

#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"
#include "store/param.h"

namespace {

// The stored answer to "Declaración rectificatoria": from the sent copy's header when the
// declaration is only shown, else from the working header.
QString rectificaGuardada(const QStringList& claveEnviada, const QString& ruc, const QString& periodo,
                          const QString& formulario)
{
    const QString clave = QStringLiteral(" WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?");
    if (G().gbEnviada && claveEnviada.size() == 3)
        return Trim(escalar(QStringLiteral("SELECT RECTIFICA FROM HCAB") + clave + QStringLiteral(" AND CORREL=?"),
                            {claveEnviada.at(0), claveEnviada.at(1), formulario, claveEnviada.at(2)})
                        .toString());
    return Trim(escalar(QStringLiteral("SELECT RECTIFICA FROM CAB") + clave, {ruc, periodo, formulario}).toString());
}

}  // namespace

void Frm931::Form_Load()
{
    Globales& g = G();
    if (g.gbEnviada)
        claveEnviada = QStringList{g.gsRuc, g.gsPeriodo, g.gsCorrel};
    TxtEjercicio.BackColor = kGris;
    mbPrimeraVez = true;
    g.gbCargando = true;
    g.gsSistema = QStringLiteral("0");
    miRegimen = 9;

    msUit = getUIT();
    SSTab1.Tab = 0;
    mbCargandoCasillas = true;
    mnTab = 0;

    mvCasillas = ordenCasillas();
    CboBalance.items.clear();
    CboBalance.ListIndex = -1;
    if (anio() >= 2013) {
        CboBalance.items << QStringLiteral("30 DE ABRIL") << QStringLiteral("31 DE JULIO");
        marco(QStringLiteral("Frame3")).Visible = false;
        SSTab2.captions[2] = QStringLiteral(" Modalidad de pago a cuenta");
        // From 2013 the exchange-difference part of c473 leaves the coefficient's income.
        caja(473).BackColor = kAsistente;
    } else {
        CboBalance.items << QStringLiteral("31 DE ENERO") << QStringLiteral("30 DE JUNIO");
    }

    CmbZona.items = pCargaZona();
    CmbZona.ListIndex = -1;
    cboTipDocRepLegal.items = pLlenaTipoDoc(82, true);
    cboTipDocRepLegal.ListIndex = -1;

    SSTab4.TabEnabled[1] = false;
    pCargaIdent();

    VScroll1.SmallChange = VScroll1.LargeChange = VScroll1.Max = 15;
    mbCargandoCasillas = false;
    mbIndicesOk = true;

    if (g.gbEnviada) {
        Cargacab();
        DesTodo();
        txtOrden.Visible = true;
        txtverifica.Visible = true;
        lblNorden.Visible = true;
        lblGuion.Visible = true;
        if (!g.gsNorden.isEmpty())
            txtverifica.Text = DigitoVerificador(g.gsControl, g.gsNorden);
    }

    if (miModo != 0) {
        // The payment block of a stored declaration is shown, never changed.
        CboBalance.BackColor = kGris;
        LblSistema.ForeColor = kGris;
        LblPresentacion.ForeColor = kGris;
        OptInicio.habilitar(false);
        OptAnterior.habilitar(false);
        OptPrecedente.habilitar(false);
        CboBalance.Enabled = false;
        marco(QStringLiteral("FrameSusPC")).Enabled = false;
        txtNumRes.BackColor = kGris;
        mkefecnot.BackColor = kGris;
    }

    mbModificado = false;
    TxtAyuda.Caption = QStringLiteral("El registro de esta información es de caracter obligatorio");
    TxtAyuda1.Caption = QStringLiteral("en los conceptos que le correspondan.");
    TxtAyuda.ForeColor = TxtAyuda1.ForeColor = kNegro;
    caja(610).Locked = true;
    g.gbCargando = false;
}

void Frm931::Form_Activate()
{
    if (!mbModificado && entorno)
        entorno->pBarraEstado(rucDeclarante(), Trim(TxtRazon.Text), G().gsPeriodo, G().gsFormulario);
    if (miModo != 0) {
        if (TxtTelefono.Enabled)
            darFoco(QStringLiteral("TxtTelefono"));
        mbPrimeraVez = false;
    } else if (CmbRuc.Enabled) {
        darFoco(QStringLiteral("CmbRuc"));
    }
    if (!CboBalance.Text().startsWith(QLatin1String("31 DE JULIO")))
        marco(QStringLiteral("FrameSusPC")).Visible = false;
    if (!mbIndicesOk)
        MsgBox(QStringLiteral("Ud. no ha actualizado el parámetro de números indice correspondiente al mes de diciembre. ")
                   + QStringLiteral("Las instrucciones para actualizar el parametro de números indice deben haber sido ")
                   + QStringLiteral("publicadas en diarios de circulación nacional o consulte nuestra pagina web: ")
                   + QStringLiteral("www.taven.gob"),
               vbExclamation, Caption);
}

void Frm931::TxtRazon_Change()
{
    bool vacio = false;
    pCargaCasillas(vacio);
    if (!vacio)
        return;
    // A new declaration keeps on screen the accountant's and the representative's numbers of
    // the taxpayer chosen before.
    for (int n : mvCasillas) {
        if (n == 226 || n == 211 || n == 212 || n == 208)
            continue;
        setTxt(n, QString());
    }
}

void Frm931::pCargaIdent()
{
    Globales& g = G();
    if (miModo == 1) {
        if (entorno)
            entorno->pBarraEstado(msRuc, msRazon, g.gsPeriodo, g.gsFormulario);
        CmbRuc.Enabled = false;
        CmbRuc.Visible = false;
        TxtNumRuc.Visible = true;
        TxtNumRuc.Enabled = false;
        TxtNumRuc.BackColor = kGris;
        TxtRazon.Enabled = false;
        TxtRazon.BackColor = kGris;
        TxtTelefono.Enabled = true;
        // Read before the stored values arrive: their rules may move the period in hand.
        const QString rectifica = rectificaGuardada(claveEnviada, Trim(msRuc), g.gsPeriodo, g.gsFormulario);
        TxtNumRuc.Text = msRuc;
        // The stored values arrive through the change event of the name.
        setTxtRazon(msRazon);

        for (int i = 0; i < CmbZona.items.size(); ++i)
            if (Right(CmbZona.items[i], 2) == txt(209)) {
                CmbZona.ListIndex = i;
                break;
            }
        for (int i = 0; i < cboTipDocRepLegal.items.size(); ++i)
            if (Left(cboTipDocRepLegal.items[i], 2) == txt(225)) {
                cboTipDocRepLegal.ListIndex = i;
                const QStringList a = atributosTipoDoc(cboTipDocRepLegal.items[i]);
                if (!a.isEmpty())
                    caja(226).MaxLength = static_cast<int>(Val(a[0]));
                break;
            }

        static const QStringList codigos{QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("2"),
                                         QStringLiteral("3"), QStringLiteral("6"), QStringLiteral("8")};
        const int regimen = codigos.indexOf(msCas056);
        if (regimen >= 0) {
            marcar(optRenta, regimen);
            // The option handlers stand still while loading: the regime's frames are put in
            // place here, as the user's choice would have left them.
            mostrarMarcosRegimen(regimen);
            miRegimen = static_cast<quint8>(regimen);
        }

        // Amazonía: the two questions exclude each other.
        if (msCas809 == QLatin1String("0")) {
            marcar(OptUbicAmazonia, 0);
            if (msCas810 == QLatin1String("0"))
                marcar(OptLeyAmazonia, 0);
            Label1[13].Enabled = false;
            OptDomFiscal.habilitar(false);
            OptZona.habilitar(false);
            CmdZona1.Enabled = false;
            escribirControl(QStringLiteral("TxtUbigeo"), QString());
        } else if (msCas809 == QLatin1String("1")) {
            marcar(OptUbicAmazonia, 1);
            OptLeyAmazonia.habilitar(false);
            Label1[12].Enabled = false;
            marco(QStringLiteral("Frame19")).Enabled = false;
        } else if (msCas810 == QLatin1String("0")) {
            marcar(OptLeyAmazonia, 0);
            Label1[13].Enabled = false;
            OptDomFiscal.habilitar(false);
            OptZona.habilitar(false);
            CmdZona1.Enabled = false;
            escribirControl(QStringLiteral("TxtUbigeo"), QString());
        } else if (msCas810 == QLatin1String("1")) {
            marcar(OptLeyAmazonia, 1);
            marco(QStringLiteral("Frame21")).Enabled = false;
            Label1[17].Enabled = false;
            OptUbicAmazonia.habilitar(false);
        }
        if (msCas809 == QLatin1String("1") || msCas810 == QLatin1String("1")) {
            OptDomFiscal.habilitar(true);
            Label1[13].Enabled = true;
        }

        if (msCas056 == QLatin1String("4") || msCas056 == QLatin1String("8")) {
            if (msCas813 == QLatin1String("0"))
                marcar(OptPersona, 0);
            else if (msCas813 == QLatin1String("1"))
                marcar(OptPersona, 1);
        }

        if (msCas860 == QLatin1String("0")) {
            marcar(OptDomFiscal, 0);
            OptZona.habilitar(false);
            CmdZona1.Enabled = false;
        } else if (msCas860 == QLatin1String("1")) {
            marcar(OptDomFiscal, 1);
            Label1[14].Enabled = true;
        }
        if (msCas811 == QLatin1String("0") || msCas811 == QLatin1String("1")) {
            const int z = msCas811 == QLatin1String("1") ? 1 : 0;
            marcar(OptZona, z);
            OptZona.b[z].Enabled = true;
            CmdZona1.Enabled = true;
        }

        if (msCas601 == QLatin1String("0")) {
            marcar(OptActividad, 0);
            OptFrontera.habilitar(false);
            CmdZona2.Enabled = false;
        } else if (msCas601 == QLatin1String("1")) {
            marcar(OptActividad, 1);
            OptFrontera.habilitar(true);
            marco(QStringLiteral("Frame16")).Enabled = true;
            Label1[20].Enabled = Label1[21].Enabled = true;
        }
        if (msCas602 == QLatin1String("0")) {
            marcar(OptFrontera, 0);
            CmdZona2.Enabled = false;
        } else if (msCas602 == QLatin1String("1")) {
            marcar(OptFrontera, 1);
            CmdZona2.Enabled = true;
        }

        const int convenio = static_cast<int>(Val(msCas804));
        if (convenio >= 1 && convenio <= 4)
            marcar(OptConvEstab, convenio);
        if (optRenta.valor(4) && OptConvEstab.seleccionado() >= 1) {
            TxtNumOrdenF2305.Enabled = true;
            TxtNumOrdenF2305.BackColor = kBlanco;
            Label1[5].Enabled = true;
        }
        if (CboBalance.ListIndex >= 0)
            ponerTitulos(CboBalance.ListIndex);

        // The answer goes back as it was stored ("" leaves both options off), so that saving
        // again unchanged writes the same header.
        if (rectifica == QLatin1String("0") || rectifica == QLatin1String("1"))
            marcar(OptRectifica, rectifica == QLatin1String("1") ? 1 : 0);

        Calcular113();
        // The stored tax wins over the recomputed one (it is typed under a stability agreement).
        setTxt(113, msCas113);
        return;
    }

    // A new declaration.
    CmbRuc.items = pCargaContrib();
    CmbRuc.ListIndex = -1;
    if (entorno)
        entorno->pBarraEstado(QString(), QString(), g.gsPeriodo, g.gsFormulario);
    TxtNumRuc.Visible = false;
    CmbRuc.Visible = true;
    CmbRuc.Enabled = true;
    TxtRazon.BackColor = kGris;
    TxtTelefono.Enabled = true;
    Label1[9].Enabled = false;
    MkePeriodo.BackColor = kGris;
    MkePeriodo.Enabled = false;
}
