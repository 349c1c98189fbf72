// Who declares, under which regime and for which balance: the option groups of the first
// page, the frames each answer opens or shuts, the payment block, the balance date with the
// period it fixes, and the headings of the balance tabs.
#include "form931/frm931.h"

#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/periodo.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "shell/globales.h"
#include "store/base.h"

namespace {

void abrir(Marco& m, bool si)
{
    m.Enabled = si;
    m.Visible = si;
}

void seleccionar(GrupoOpciones& g, int indice)
{
    for (int i = 0; i < g.b.size(); ++i)
        g.b[i].Value = (i == indice);
}

// Off and enabled or disabled at once: "both off and disabled".
void apagarYHabilitar(GrupoOpciones& g, bool habilitado)
{
    g.apagar();
    g.habilitar(habilitado);
}

}  // namespace

// ---------------------------------------------------------------------- selection helpers

void Frm931::marcar(GrupoOpciones& g, int indice)
{
    if (indice < 0 || indice >= g.b.size())
        return;
    seleccionar(g, indice);
    if (&g == &optRenta) optRenta_Click(indice);
    else if (&g == &OptPersona) OptPersona_Click(indice);
    else if (&g == &OptUbicAmazonia) OptUbicAmazonia_Click(indice);
    else if (&g == &OptLeyAmazonia) OptLeyAmazonia_Click(indice);
    else if (&g == &OptDomFiscal) OptDomFiscal_Click(indice);
    else if (&g == &OptZona) OptZona_Click(indice);
    else if (&g == &OptActividad) OptActividad_Click(indice);
    else if (&g == &OptFrontera) OptFrontera_Click(indice);
    else if (&g == &OptConvEstab) OptConvEstab_Click(indice);
    else if (&g == &OptInicio) OptInicio_Click(indice);
    else if (&g == &OptAnterior) OptAnterior_Click(indice);
    else if (&g == &OptPrecedente) OptPrecedente_Click(indice);
    else if (&g == &OptSuspPC) OptSuspPC_Click(indice);
    else if (&g == &OptRectifica) OptRectifica_Click(indice);
}

void Frm931::elegir(Lista& combo, int indice)
{
    combo.ListIndex = (indice >= 0 && indice < combo.items.size()) ? indice : -1;
    if (&combo == &CmbRuc) CmbRuc_Click();
    else if (&combo == &CboBalance) CboBalance_Click();
    else if (&combo == &CmbZona) CmbZona_Click();
    else if (&combo == &cboTipDocRepLegal) cboTipDocRepLegal_Click();
}

void Frm931::ponerIndiceBalance(int indice)
{
    if (CboBalance.ListIndex == indice)
        return;
    CboBalance.ListIndex = indice;
    CboBalance_Click();
}

void Frm931::setLblSistema(const QString& caption)
{
    if (LblSistema.Caption == caption)
        return;
    LblSistema.Caption = caption;
    LblSistema_Change();
}

void Frm931::LblSistema_Change()
{
    G().gsSistema = LblSistema.Caption;
    Calcular_coeficiente();
}

// ---------------------------------------------------------------------- regime

void Frm931::mostrarMarcosRegimen(int Index, bool abrirMarcos)
{
    if (Index == 5) {
        marco(QStringLiteral("frmMype")).Visible = true;
    } else {
        marco(QStringLiteral("frmMype")).Visible = false;
        for (int n : casillasConMarca(kSoloMype))
            setTxt(n, QString());
    }
    if (!abrirMarcos)
        return;
    abrir(marco(QStringLiteral("Frame_General")), false);
    abrir(marco(QStringLiteral("Frame_General")), Index == 0 || Index == 5);

    const bool agrario = Index == 1;
    abrir(marco(QStringLiteral("Frame15")), agrario);
    lblTab1_0.Enabled = lblTab1_0.Visible = agrario;
    MkePeriodo.Enabled = MkePeriodo.Visible = agrario;
    if (agrario) {
        Label1[9].Enabled = true;
        MkePeriodo.BackColor = kBlanco;
    }
    for (const char* m : {"Frame19", "Frame21", "Frame20", "Frame28"})
        abrir(marco(QLatin1String(m)), Index == 2);
    for (const char* m : {"Frame13", "Frame16"})
        abrir(marco(QLatin1String(m)), Index == 3);
    abrir(marco(QStringLiteral("Frame14")), Index == 4);
}

void Frm931::optRenta_Click(int Index)
{
    if (G().gbCargando)
        return;
    if (miRegimen != 9 && miRegimen != Index) {
        const int r = MsgBox(QStringLiteral("Va a cambiar de Régimen Tributario, se va a eliminar toda la información no necesaria en la declaración, ¿Desea Continuar?"),
                             vbYesNo + vbQuestion + vbDefaultButton2, Caption);
        if (r == vbNo) {
            // The previous regime is selected again, and everything it showed stays as it was.
            seleccionar(optRenta, miRegimen);
            return;
        }
    }
    // The same regime again keeps its frames as its answers left them.
    mostrarMarcosRegimen(Index, miRegimen != Index);
    miRegimen = static_cast<quint8>(Index);
    if (Index == 1 || Index == 3)
        mbModificado = true;
    Calcular113();
    if (Index == 5)
        Calcular250();
}

void Frm931::OptPersona_Click(int)
{
    if (G().gbCargando)
        return;
    Calcular113();
}

void Frm931::OptRectifica_Click(int)
{
    if (G().gbCargando)
        return;
    mbModificado = true;
}

// ---------------------------------------------------------------------- Amazonía

void Frm931::OptUbicAmazonia_Click(int Index)
{
    if (G().gbCargando)
        return;
    if (Index == 1) {
        apagarYHabilitar(OptLeyAmazonia, false);
        Label1[12].Enabled = false;
        marco(QStringLiteral("Frame19")).Enabled = false;
        marco(QStringLiteral("Frame20")).Enabled = true;
        marco(QStringLiteral("Frame28")).Enabled = true;
        Label1[13].Enabled = true;
        apagarYHabilitar(OptDomFiscal, true);
        apagarYHabilitar(OptZona, false);
        CmdZona1.Enabled = false;
        if (!mbCargandoCasillas)
            escribirControl(QStringLiteral("TxtUbigeo"), QString());
        Label1[14].Enabled = true;
    } else {
        if (!OptLeyAmazonia.contestado()) {
            apagarYHabilitar(OptLeyAmazonia, true);
            Label1[12].Enabled = true;
            marco(QStringLiteral("Frame19")).Enabled = true;
        }
        Label1[13].Enabled = false;
        apagarYHabilitar(OptDomFiscal, false);
        apagarYHabilitar(OptZona, false);
        CmdZona1.Enabled = false;
        G().gsUbigeoSel.clear();
        escribirControl(QStringLiteral("TxtUbigeo"), QString());
        Label1[14].Enabled = false;
        mbModificado = true;
    }
    Calcular113();
}

void Frm931::OptLeyAmazonia_Click(int Index)
{
    if (G().gbCargando)
        return;
    if (Index == 1) {
        marco(QStringLiteral("Frame21")).Enabled = false;
        Label1[17].Enabled = false;
        apagarYHabilitar(OptUbicAmazonia, false);
        marco(QStringLiteral("Frame20")).Enabled = true;
        marco(QStringLiteral("Frame28")).Enabled = true;
        Label1[13].Enabled = true;
        apagarYHabilitar(OptDomFiscal, true);
    } else {
        marco(QStringLiteral("Frame21")).Enabled = true;
        Label1[17].Enabled = true;
        OptUbicAmazonia.habilitar(true);
        G().gsUbigeoSel.clear();
        escribirControl(QStringLiteral("TxtUbigeo"), QString());
        marco(QStringLiteral("Frame20")).Enabled = false;
        marco(QStringLiteral("Frame28")).Enabled = false;
        Label1[13].Enabled = false;
        apagarYHabilitar(OptDomFiscal, false);
        apagarYHabilitar(OptZona, false);
        CmdZona1.Enabled = false;
        Label1[14].Enabled = false;
        mbModificado = true;
    }
    Calcular113();
}

void Frm931::OptDomFiscal_Click(int Index)
{
    if (G().gbCargando)
        return;
    if (Index == 1) {
        Label1[13].Enabled = true;
        Label1[14].Enabled = true;
        apagarYHabilitar(OptZona, true);
        CmdZona1.Enabled = false;
    } else {
        escribirControl(QStringLiteral("TxtUbigeo"), QString());
        apagarYHabilitar(OptZona, false);
        CmdZona1.Enabled = false;
        Label1[14].Enabled = false;
    }
    mbModificado = true;
    Calcular113();
}

void Frm931::OptZona_Click(int Index)
{
    if (G().gbCargando)
        return;
    // A zone other than the stored one cannot keep the stored geographic code.
    if (msCas811 != (Index == 1 ? QLatin1String("1") : QLatin1String("0")))
        G().gsUbigeoSel.clear();
    escribirControl(QStringLiteral("TxtUbigeo"), G().gsUbigeoSel);
    CmdZona1.Enabled = true;
    Calcular113();
}

void Frm931::CmdZona1_Click()
{
    const QString zona = OptZona.valor(0) ? QStringLiteral("1") : OptZona.valor(1) ? QStringLiteral("2") : QString();
    G().gsZonaAbrir = zona;
    if (entorno)
        entorno->abrirUbigeo(QStringLiteral("Ubigeo Zona ") + zona);
    escribirControl(QStringLiteral("TxtUbigeo"), G().gsUbigeoSel);
}

void Frm931::CmdZona2_Click()
{
    G().gsZonaAbrir = QStringLiteral("3");
    G().gsUbigeoSel = TxtUbigeo2.Text;
    if (entorno)
        entorno->abrirUbigeo(QStringLiteral("Ubigeo Zona 3"));
    escribirControl(QStringLiteral("TxtUbigeo2"), G().gsUbigeoSel);
}

void Frm931::TxtUbigeo_Change()
{
    G().gsUbigeoSel = Trim(TxtUbigeo.Text);
}

void Frm931::TxtUbigeo2_Change()
{
    // Reads the first box: the frontier's code goes through gsUbigeoSel as the picker left it.
    G().gsUbigeoSel = Trim(TxtUbigeo.Text);
}

// ---------------------------------------------------------------------- frontier

void Frm931::OptActividad_Click(int Index)
{
    if (G().gbCargando)
        return;
    if (Index == 1) {
        marco(QStringLiteral("Frame16")).Enabled = true;
        Label1[20].Enabled = true;
        Label1[21].Enabled = true;
        OptFrontera.habilitar(true);
        CmdZona2.Enabled = true;
        if (!mbCargandoCasillas)
            escribirControl(QStringLiteral("TxtUbigeo"), QString());
    } else {
        if (!mbCargandoCasillas)
            escribirControl(QStringLiteral("TxtUbigeo"), QString());
        marco(QStringLiteral("Frame16")).Enabled = false;
        Label1[20].Enabled = false;
        Label1[21].Enabled = false;
        apagarYHabilitar(OptFrontera, false);
        CmdZona2.Enabled = false;
        escribirControl(QStringLiteral("TxtUbigeo2"), QString());
    }
    Calcular113();
}

void Frm931::OptFrontera_Click(int Index)
{
    if (G().gbCargando)
        return;
    G().gsZonaAbrir.clear();
    if (Index == 1) {
        CmdZona2.Enabled = true;
    } else {
        if (!mbCargandoCasillas) {
            escribirControl(QStringLiteral("TxtUbigeo2"), QString());
            escribirControl(QStringLiteral("TxtUbigeo"), QString());
        }
        CmdZona2.Enabled = false;
    }
    Calcular113();
}

void Frm931::OptConvEstab_Click(int Index)
{
    if (G().gbCargando)
        return;
    if (Index >= 1 && Index <= 4) {
        TxtNumOrdenF2305.Enabled = true;
        TxtNumOrdenF2305.BackColor = kBlanco;
        Label1[5].Enabled = true;
        mbModificado = true;
        Calcular113();
    }
}

// ---------------------------------------------------------------------- other identification

void Frm931::cboTipDocRepLegal_Click()
{
    setTxt(225, Left(cboTipDocRepLegal.Text(), 2));
    const QStringList a = atributosTipoDoc(cboTipDocRepLegal.Text());
    caja(226).MaxLength = a.isEmpty() ? 0 : static_cast<int>(Val(a[0]));
    setTxt(226, QString());
}

void Frm931::CmbZona_Click()
{
    setTxt(209, Right(CmbZona.Text(), 2));
    mbModificado = true;
}

void Frm931::CmbRuc_Click()
{
    setTxtRazon(Mid(CmbRuc.Text(), 16));
    if (miModo == 0) {
        const QString ruc = Trim(Left(CmbRuc.Text(), 11));
        QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM CAB WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?"),
                               {ruc, G().gsPeriodo, G().gsFormulario});
        if (q.next()) {
            // The toolbar's state belongs to the main window, which resets it on its own.
            SSTab1.Tab = 0;
            MsgBox(QStringLiteral("La declaración que desea registrar ya existe ") + ruc + QStringLiteral(". ")
                       + QStringLiteral("Elija la opción modificar declaración o elija otro contribuyente."),
                   vbCritical, Caption);
            darFoco(QStringLiteral("CmbRuc"));
            return;
        }
    }
    darFoco(QStringLiteral("TxtTelefono"));
    if (entorno)
        entorno->pBarraEstado(Trim(Left(CmbRuc.Text(), 11)), Trim(TxtRazon.Text), G().gsPeriodo, G().gsFormulario);
    mbModificado = true;
}

void Frm931::TxtTelefono_Change()
{
    mbModificado = true;
}

int Frm931::TxtTelefono_KeyPress(int KeyAscii)
{
    if (KeyAscii == 13) {
        pTecla(QStringLiteral("TAB"));
        return 0;
    }
    mbModificado = true;
    return gobjUtil().TeclaNumero(KeyAscii, false, false, false);
}

void Frm931::setTxtRazon(const QString& texto)
{
    if (TxtRazon.Text == texto)
        return;
    TxtRazon.Text = texto;
    TxtRazon_Change();
}

void Frm931::MkePeriodo_Change()
{
    mbModificado = true;
}

void Frm931::MkePeriodo_Validate()
{
    const QString t = MkePeriodo.Text;
    if (!t.contains(QLatin1Char('_'))) {
        const QDate fecha = QDate::fromString(t, QStringLiteral("dd/MM/yyyy"));
        if (!fecha.isValid() || fecha > Hoy()) {
            SSTab1.Tab = 0;
            MsgBox(QStringLiteral("La fecha de presentación del formulario 4888 no puede ser mayor a la fecha del sistema."),
                   vbCritical, Caption);
        }
        // A date of another year keeps the focus in the box.
        if (!ValidaPeriodo(t)) {
            SSTab1.Tab = 0;
            MsgBox(QStringLiteral("El año de la fecha del formulario 4888 debe corresponder al año de la presentación"),
                   vbCritical, Caption);
            darFoco(QStringLiteral("MkePeriodo"));
        }
    }
    mbModificado = true;
    Calcular113();
}

// ---------------------------------------------------------------------- payment block

void Frm931::reponerSuspension()
{
    marcar(OptSuspPC, 0);
}

void Frm931::OptSuspPC_Click(int Index)
{
    if (G().gbCargando)
        return;
    if (Index == 0) {
        txtNumRes.Text.clear();
        txtNumRes.BackColor = kGris;
        txtNumRes.Enabled = false;
        mkefecnot.Text = QStringLiteral("__/__/____");
        mkefecnot.BackColor = kGris;
        mkefecnot.Enabled = false;
    } else {
        txtNumRes.Enabled = true;
        txtNumRes.BackColor = kBlanco;
        mkefecnot.Enabled = true;
        mkefecnot.BackColor = kBlanco;
    }
}

void Frm931::OptInicio_Click(int Index)
{
    if (G().gbCargando)
        return;
    if (Index == 1) {
        apagarYHabilitar(OptAnterior, false);
        apagarYHabilitar(OptPrecedente, false);
        CboBalance.Enabled = true;
        CboBalance.BackColor = kBlanco;
        if (!mbCargandoCasillas)
            darFoco(QStringLiteral("CboBalance"));
        setLblSistema(QStringLiteral("B"));
    } else {
        for (const char* m : {"Frame_ejercicio", "Frame_precedente", "Frame_anterior"})
            marco(QLatin1String(m)).Enabled = true;
        OptAnterior.habilitar(true);
        OptPrecedente.habilitar(true);
        if (!mbCargandoCasillas) {
            // Focusing an option button selects it; the answer is left for the user to give.
            darFoco(QStringLiteral("OptPrecedente(0)"));
            OptPrecedente.b[0].Value = false;
        }
        setLblSistema(QStringLiteral(" "));
    }
    ponerIndiceBalance(-1);
}

void Frm931::OptAnterior_Click(int)
{
    if (G().gbCargando)
        return;
    Balance();
    if (anio() >= 2013) {
        if (!mbCargandoCasillas)
            Presentacion2013();
    } else {
        Presentacion();
    }
}

void Frm931::OptPrecedente_Click(int)
{
    if (G().gbCargando)
        return;
    Balance();
}

void Frm931::Balance()
{
    const int ant = OptAnterior.seleccionado();
    const int pre = OptPrecedente.seleccionado();
    const bool ambas = ant >= 0 && pre >= 0;
    if (anio() >= 2013) {
        CboBalance.Enabled = true;
        CboBalance.BackColor = kBlanco;
        if (ambas) {
            ponerIndiceBalance(-1);
        } else {
            setLblSistema(QString());
            LblPresentacion.Caption.clear();
        }
        return;
    }
    if (ambas && ant == 0) {
        // A profit in the year before: coefficient system, balance at 30 June.
        ponerIndiceBalance(1);
        CboBalance.Enabled = false;
        CboBalance.BackColor = kGris;
        setLblSistema(QStringLiteral("A"));
    } else if (ambas && ant == 1) {
        CboBalance.Enabled = true;
        CboBalance.BackColor = kBlanco;
        ponerIndiceBalance(-1);
        setLblSistema(QStringLiteral("B"));
    } else {
        CboBalance.Enabled = true;
        CboBalance.BackColor = kBlanco;
        setLblSistema(QString());
    }
    LblPresentacion.Caption.clear();
    Presentacion();
    setTxt(610, Format(txt(610), LblSistema.Caption == QLatin1String("A") ? Mascara::Coeficiente : Mascara::Porcentaje));
}

void Frm931::CboBalance_Click()
{
    if (G().gbCargando)
        return;
    if (anio() < 2013) {
        Presentacion();
        return;
    }
    if (optRenta.valor(5) && CboBalance.ListIndex == 0) {
        bool hay = false;
        for (int n : {461, 462, 473, 475, 477, 433})
            hay = hay || !Trim(txt(n)).isEmpty();
        if (hay) {
            double ingresos = 0;
            IngresoNetos(ingresos);
            if (300 * Val(msUit) >= ingresos) {
                MsgBox(QStringLiteral("No puede presentar balance al 30 de Abril "), vbCritical, Caption);
                CboBalance.ListIndex = -1;
            }
        }
    }
    const int i = CboBalance.ListIndex;
    const QString anioHoy = QString::number(Hoy().year());
    if ((OptPrecedente.contestado() && OptAnterior.contestado()) || OptInicio.valor(1)) {
        if (i == 0) {
            ponerTitulos(0);
            G().gsPeriodo = anioHoy + QStringLiteral("05");
            reponerSuspension();
            marco(QStringLiteral("FrameSusPC")).Visible = false;
        } else if (i == 1) {
            ponerTitulos(1);
            G().gsPeriodo = anioHoy + QStringLiteral("08");
            marco(QStringLiteral("FrameSusPC")).Visible = true;
        } else {
            reponerSuspension();
            marco(QStringLiteral("FrameSusPC")).Visible = false;
        }
    } else if (Left(CboBalance.Text(), 11) == QLatin1String("31 DE JULIO")) {
        marco(QStringLiteral("FrameSusPC")).Visible = true;
    } else {
        reponerSuspension();
        marco(QStringLiteral("FrameSusPC")).Visible = false;
    }
    if (!mbCargandoCasillas)
        Presentacion2013();
}

// ---------------------------------------------------------------------- headings and period

void Frm931::ponerTitulos(int indice)
{
    // The runs of blanks place the words over the columns of the balance tabs.
    const bool desde2013 = anio() >= 2013;
    QString fecha;
    int b1, b2, b3, b4, g;
    if (indice == 0) {
        fecha = desde2013 ? QStringLiteral(" al 30 de Abril ") : QStringLiteral("al 31 de Enero");
        b1 = 53; b2 = 89; b3 = 43; b4 = 77; g = 24;
        msFechaBalance = desde2013 ? QStringLiteral(" al 30 de Abril ") : QStringLiteral(" al 31 de Enero ");
    } else {
        fecha = desde2013 ? QStringLiteral(" al 31 de Julio ") : QStringLiteral("al 30 de Junio");
        b1 = 53; b2 = 90; b3 = 44; b4 = 78; g = 23;
        msFechaBalance = desde2013 ? QStringLiteral(" al 31 de Julio ") : QStringLiteral(" al 30 de Junio ");
    }
    const QString balance = QStringLiteral("I. Balance General");
    const QString valor = QStringLiteral("Valor");
    msTitBalance1 = balance + Space(b1) + valor + Space(b2) + fecha;
    msTitBalance2 = balance + Space(b3) + valor + Space(b4) + fecha;
    msTitGanancias = QStringLiteral("II. Estado de Ganancias y Pérdidas") + Space(g) + fecha;
}

// The common ending of the two due-date procedures: the period shown, the status bar, the tax.
static void cerrarPresentacion(Frm931& f)
{
    const QString& p = G().gsPeriodo;
    f.TxtEjercicio.Text = Len(p) > 4 ? mesDelPeriodo(p) + QStringLiteral("/") + Left(p, 4) : QString();
    if (f.entorno)
        f.entorno->pBarraEstado(Trim(Left(f.CmbRuc.Text(), 11)), Trim(f.TxtRazon.Text), G().gsPeriodo, G().gsFormulario);
    f.Calcular113();
}

void Frm931::Presentacion()
{
    LblPresentacion.Caption.clear();
    if (!(OptInicio.valor(1) || (OptAnterior.contestado() && OptPrecedente.contestado())))
        return;
    const QDate hoy = Hoy();
    switch (CboBalance.ListIndex) {
    case 0:
        LblPresentacion.Caption = QStringLiteral("Vencimiento del periodo 06");
        ponerTitulos(0);
        G().gsPeriodo = QString::number(hoy.year()) + mesDeBalance(0, false);
        break;
    case 1:
        LblPresentacion.Caption = QStringLiteral("Vencimiento del periodo 12");
        ponerTitulos(1);
        if (OptInicio.b[0].Enabled)
            G().gsPeriodo = QString::number(hoy.month() == 1 ? hoy.year() - 1 : hoy.year()) + mesDeBalance(1, false);
        break;
    default:
        LblPresentacion.Caption.clear();
        TxtEjercicio.Text.clear();
        break;
    }
    cerrarPresentacion(*this);
}

void Frm931::Presentacion2013()
{
    LblPresentacion.Caption.clear();
    if (!((OptPrecedente.contestado() && OptAnterior.contestado()) || OptInicio.valor(1)))
        return;
    const QDate hoy = Hoy();
    switch (CboBalance.ListIndex) {
    case 0:
        ponerTitulos(0);
        G().gsPeriodo = QString::number(hoy.year()) + mesDeBalance(0, true);
        break;
    case 1:
        ponerTitulos(1);
        if (OptInicio.b[0].Enabled)
            G().gsPeriodo = QString::number(hoy.month() == 1 ? hoy.year() - 1 : hoy.year()) + mesDeBalance(1, true);
        break;
    default:
        LblPresentacion.Caption.clear();
        TxtEjercicio.Text.clear();
        break;
    }
    cerrarPresentacion(*this);
}
