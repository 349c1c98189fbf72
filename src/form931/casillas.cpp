// The box array at work: what a change of a box starts, how a box shows its figure while it
// is edited and after, keys, the exclusive pairs, the help lines and the tab pages.
#include "form931/frm931.h"

#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QSqlQuery>

namespace {

const QString kHintImportes = QStringLiteral("Anotar los importes en nuevos soles sin considerar céntimos.");
const QString kHintImportesSinTilde = QStringLiteral("Anotar los importes en nuevos soles sin considerar centimos.");
const QString kHintObligatorio1 = QStringLiteral("El registro de esta información es de caracter obligatorio");
const QString kHintObligatorio2 = QStringLiteral("en los conceptos que le correspondan.");

}  // namespace

QStringList Frm931::atributosTipoDoc(const QString& linea)
{
    // They stand beyond the 67th character, separated by blanks.
    return Mid(linea, 68).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// Length of the legal representative's document for the type chosen; 0 when none is chosen.
static int longitudDocumento(const Lista& combo)
{
    const QStringList a = Frm931::atributosTipoDoc(combo.Text());
    return a.isEmpty() ? 0 : static_cast<int>(Val(a[0]));
}

// ---------------------------------------------------------------------- change of a box

void Frm931::TxtValor_Change(int Index)
{
    double d = 0;
    switch (Index) {
    case 100: case 101: case 103: case 105:
        Calcular106y107();
        break;
    case 106: case 107:
        Calcular110y111();
        break;
    case 108: {
        Calcular110y111();
        // The losses page opens only while 108 holds an amount.
        const QString& t = txt(108);
        const bool hay = Val(Format(t, Mascara::SinPicture)) != 0 && !Trim(t).isEmpty();
        SSTab4.TabEnabled[1] = hay;
        SSTab4.TabVisible[1] = hay;
        for (Boton& b : cmdPerdida)
            b.Enabled = hay;
        // A hidden page is not the page shown: the tab control falls back on the general data.
        if (!hay && SSTab4.Tab == 1) {
            SSTab4.Tab = 0;
            SSTab4_Click(1);
        }
        break;
    }
    case 150:
        Calcular110y111();
        break;
    case 110:
        if (optRenta.valor(5))
            Calcular250();
        break;
    case 113:
        Calcular113();
        break;
    case 208:
        if (!mbCargandoCasillas && Len(txt(208)) == 11) {
            if (!gobjUtil().ValidaRuc(txt(208))) {
                MsgBox(QStringLiteral("El RUC no es Válido."), vbCritical, Caption);
                SSTab1.Tab = 3;
                darFocoCasilla(208);
            }
            if (Trim(txt(208)) == rucDeclarante()) {
                MsgBox(QStringLiteral("El RUC no puede ser igual al RUC del Contribuyente."), vbCritical, Caption);
                SSTab1.Tab = 3;
                darFocoCasilla(208);
            }
        }
        break;
    case 211:
        pTemCasillas(211, 212);
        break;
    case 212:
        pTemCasillas(212, 211);
        break;
    case 226:
        if (!mbCargandoCasillas && Left(cboTipDocRepLegal.Text(), 2) == QLatin1String("06") && Len(txt(226)) == 11
            && !gobjUtil().ValidaRuc(txt(226))) {
            // Lower-case "v" here, unlike the accountant's RUC.
            MsgBox(QStringLiteral("El RUC no es válido."), vbCritical, Caption);
            SSTab1.Tab = 3;
            SSTab4.Tab = 0;
            darFocoCasilla(226);
        }
        break;
    case 250: case 251: case 252:
        Calcular253();
        break;
    case 433:
        IngresoNetos(d);
        break;
    case 461: case 462:
        Calcular463();
        break;
    case 463: case 464:
        Calcular466y467();
        IngresoNetos(d);
        break;
    case 466: case 467: case 468: case 469:
        Calcular470y471();
        break;
    case 470: case 471: case 472: case 473: case 475: case 476: case 477: case 478: case 480: case 481: case 483:
        if (Index == 481)
            pTemCasillas(481, 483);
        else if (Index == 483)
            pTemCasillas(483, 481);
        if (Index == 481)
            G().gsCas481 = txt(481);
        else if (Index == 483)
            G().gsCas483 = txt(483);
        Calcular484y485();
        if (Index == 473 || Index == 475 || Index == 477)
            IngresoNetos(d);
        break;
    case 484: case 485: case 486:
        Calcular487y489();
        break;
    case 487: case 489: case 490:
        Calcular492y493();
        break;
    case 532: case 533: case 534: case 535: case 536: case 537: case 538: case 539: case 540: case 541: case 542:
        Calcular543();
        Calcular554();
        Calcular555();
        break;
    case 544: case 545: case 546: case 547: case 548: case 549:
        Calcular554();
        Calcular555();
        break;
    case 550: case 551: case 552: case 553: {
        static const QMap<int, int> pareja{{550, 551}, {551, 550}, {552, 553}, {553, 552}};
        pTemCasillas(Index, pareja.value(Index));
        Calcular554();
        Calcular555();
        break;
    }
    case 610:
        if (anio() < 2013)
            setTxt(610, Format(txt(610), LblSistema.Caption == QLatin1String("A") ? Mascara::Coeficiente : Mascara::Porcentaje));
        break;
    default:
        if (Index >= 500 && Index <= 530)
            Calcular531();
        break;
    }
    // 488 names no box on this form; the number stays in the test.
    switch (Index) {
    case 113: case 461: case 462: case 473: case 475: case 477: case 488:
        Calcular_coeficiente();
        break;
    default:
        break;
    }
    if (!mbCargandoCasillas)
        mbModificado = true;
}

// ---------------------------------------------------------------------- exclusive pairs

void Frm931::pTemCasillas(int casilla, int otra)
{
    bool ambas;
    if ((casilla == 211 && otra == 212) || (casilla == 212 && otra == 211)) {
        // The registration numbers are compared as text: a "0" counts.
        ambas = !txt(casilla).isEmpty() && !txt(otra).isEmpty();
    } else {
        ambas = Abs(Val(Format(txt(casilla), Mascara::SinPicture))) > 0
                && Abs(Val(Format(txt(otra), Mascara::SinPicture))) > 0;
    }
    if (!ambas)
        return;
    G().giCasillaExcl = 0;
    const QString a = QString::number(casilla), b = QString::number(otra);
    const QString texto = QStringLiteral("Las casillas ") + a + QStringLiteral(" y ") + b
                          + QStringLiteral(" son excluyentes, si desea registrar información en la casilla ") + a
                          + QStringLiteral(" debe eliminar la información registrada en la ") + b + QStringLiteral(".");
    if (MsgBox(texto, vbOKCancel, Caption) == vbOK) {
        setTxt(otra, QString());
        G().giCasillaExcl = static_cast<qint16>(otra);
        darFocoCasilla(casilla);
    } else {
        setTxt(casilla, QString());
        darFocoCasilla(otra);
    }
}

// ---------------------------------------------------------------------- focus pictures

void Frm931::TxtValor_GotFocus(int Index)
{
    Caja& c = caja(Index);
    if (c.Locked)
        return;
    // While it has the focus the box shows bare digits; the length is set first.
    if (esParentesis(Index) || Index == 150) {
        c.MaxLength = 12;
        if (!Trim(c.Text).isEmpty())
            setTxt(Index, QString::number(Abs(Val(Format(c.Text, QStringLiteral("############")))), 'f', 0));
        return;
    }
    switch (Index) {
    case 103:
        c.MaxLength = 15;
        setTxt(Index, Format(c.Text, Mascara::SinPicture));
        break;
    case 113:
        c.MaxLength = optRenta.valor(4) ? 12 : 17;
        setTxt(Index, Format(c.Text, Mascara::SinPicture));
        break;
    case 208:
        c.MaxLength = 11;
        setTxt(Index, Format(c.Text, QStringLiteral("########")));
        break;
    case 211: case 212: case 225:
        c.MaxLength = 12;
        break;
    case 226: {
        const int l = longitudDocumento(cboTipDocRepLegal);
        c.MaxLength = l == 0 ? 8 : l;
        break;
    }
    default:
        c.MaxLength = 12;
        setTxt(Index, Format(c.Text, Mascara::SinPicture));
        break;
    }
}

void Frm931::TxtValor_LostFocus(int Index)
{
    Caja& c = caja(Index);
    if (c.Locked)
        return;
    if (!c.Enabled) {
        c.MaxLength = 18;
        if (!G().gbEnviada)
            setTxt(Index, Format(c.Text, QStringLiteral("##,###,###,##0;(##,###,###,##0)")));
    } else if (esParentesis(Index)) {
        // The loss box holds its figure in parentheses; empty and "0" stay as they are.
        c.MaxLength = 17;
        const QString t = Trim(c.Text);
        if (!t.isEmpty() && t != QLatin1String("0"))
            setTxt(Index, Format(Val(c.Text), Mascara::Perdida));
    } else {
        switch (Index) {
        case 103:
            c.MaxLength = 15;
            setTxt(Index, Format(Val(c.Text), Mascara::Positivo));
            break;
        case 208:
            c.MaxLength = 11;
            setTxt(Index, Format(c.Text, QStringLiteral("########")));
            break;
        case 211: case 212: case 225:
            break;
        case 226: {
            const int l = longitudDocumento(cboTipDocRepLegal);
            c.MaxLength = l == 0 ? 8 : l;
            break;
        }
        default:
            c.MaxLength = 15;
            setTxt(Index, Format(c.Text, Mascara::Positivo));
            break;
        }
    }
    // The assistant boxes hand the focus on, however it leaves them.
    if (Index == 477)
        darFocoCasilla(478);
    else if (Index == 473)
        darFocoCasilla(475);
}

// ---------------------------------------------------------------------- keys

void Frm931::navegarEnter(int Index, bool primera)
{
    switch (Index) {
    case 515:
        ponerVScroll(15);
        darFocoCasilla(516);
        break;
    case 530:
        ponerVScroll(1);
        darFocoCasilla(500);
        break;
    case 542:
        darFocoCasilla(544);
        break;
    case 553:
        darFocoCasilla(532);
        break;
    case 473: case 477:
        break;
    case 226:
        if (primera)
            pTecla(QStringLiteral("TAB"));
        break;
    case 103: case 105:
        // The box takes the focus again first, so that its pictures run, then Tab.
        if (!primera)
            darFocoCasilla(Index);
        pTecla(QStringLiteral("TAB"));
        break;
    default:
        pTecla(QStringLiteral("TAB"));
        break;
    }
}

void Frm931::abrirAnexo(int Index)
{
    if (entorno)
        entorno->abrirAnexo477(*this, Index);
    Calcular_coeficiente();
}

int Frm931::TxtValor_KeyPress(int Index, int KeyAscii)
{
    if (gobjUtil().TeclaNumero(KeyAscii, false, false, false) == 0) {
        if (KeyAscii == 13)
            navegarEnter(Index, true);
        if (Index != 226 && !esAsistida(Index))
            KeyAscii = 0;
    }
    // Only keys kept above reach here still as Enter (226, 473, 477); the second navigation
    // leaves 226 out of its Tab, and 113, 117 and 128 altogether.
    if (KeyAscii == 13 && Index != 113 && Index != 117 && Index != 128)
        navegarEnter(Index, false);

    if (Index == 211 || Index == 212 || Index == 225) {
        KeyAscii = QChar(KeyAscii).toUpper().unicode();
        const QChar k(KeyAscii);
        const bool pasa = (k >= QLatin1Char('A') && k <= QLatin1Char('Z')) || (k >= QLatin1Char('a') && k <= QLatin1Char('z'))
                          || (k >= QLatin1Char('0') && k <= QLatin1Char('9')) || k == QLatin1Char('-')
                          || k == QLatin1Char('.') || k == QLatin1Char('/') || KeyAscii == 8 || KeyAscii == 32;
        if (!pasa)
            KeyAscii = 0;
    } else if (Index == 226) {
        KeyAscii = QChar(KeyAscii).toUpper().unicode();
        const QChar k(KeyAscii);
        const bool digito = k >= QLatin1Char('0') && k <= QLatin1Char('9');
        const bool letra = k >= QLatin1Char('A') && k <= QLatin1Char('Z');
        const QStringList a = atributosTipoDoc(cboTipDocRepLegal.Text());
        const bool alfanumerico = a.size() < 2 || Val(a[1]) == 0;
        if (!(digito || KeyAscii == 8 || (alfanumerico && letra)))
            KeyAscii = 0;
    } else if (esAsistida(Index)) {
        // The amount of these boxes is made in their annex: the key never reaches the box.
        const QChar k(KeyAscii);
        if ((k >= QLatin1Char('0') && k <= QLatin1Char('9')) || KeyAscii == 13)
            abrirAnexo(Index);
        KeyAscii = 0;
    }
    mbModificado = true;
    return KeyAscii;
}

int Frm931::TxtValor_KeyDownTecla(int Index, int KeyCode, int Shift)
{
    // Shift+Insert and the context-menu key empty the desktop's clipboard in the window, so
    // nothing can be pasted; the model holds no clipboard, the view does that part.
    if ((KeyCode == 45 && (Shift & 1)) || KeyCode == 93)
        return KeyCode;
    if (esAsistida(Index) && KeyCode == 46)
        return 0;
    return KeyCode;
}

void Frm931::TxtValor_KeyDown(int Index, int KeyCode, int Shift)
{
    TxtValor_KeyDownTecla(Index, KeyCode, Shift);
}

void Frm931::TxtValor_DblClick(int Index)
{
    if (esAsistida(Index))
        abrirAnexo(Index);
}

void Frm931::TxtValor_MouseDown(int, int)
{
    // The right button empties the clipboard: the view's part, like Shift+Insert.
}

void Frm931::teclear(int Index, const QString& texto)
{
    if (foco != nombreCasilla(Index))
        darFocoCasilla(Index);
    if (foco != nombreCasilla(Index))
        return;   // a box that can't take the focus takes no keys
    for (QChar ch : texto) {
        // Each key goes to the box that has the focus at that moment: Enter moves it on.
        const int n = casillaDeNombre(foco);
        if (n == 0)
            break;
        const int tecla = (ch == QLatin1Char('\n')) ? 13 : (ch == QLatin1Char('\b')) ? 8 : ch.unicode();
        const int k = TxtValor_KeyPress(n, tecla);
        if (k == 0 || k == 13)
            continue;
        Caja& c = caja(n);
        if (c.Locked)
            continue;
        QString t = c.Text;
        if (k == 8) {
            t.chop(1);
        } else {
            if (c.MaxLength > 0 && t.size() >= c.MaxLength)
                continue;
            t += QChar(k);
        }
        setTxt(n, t);
    }
}

// ---------------------------------------------------------------------- help lines

bool Frm931::ayudaCasilla(int n, QString& linea1, QString& linea2)
{
    static const QString neg = QStringLiteral("(Si es negativo ‘0’)");
    static const QString pos = QStringLiteral("(Si es positivo ‘0’)");
    static const QMap<int, QPair<QString, QString>> tabla{
        {100, {QStringLiteral("c100 = c487"), QString()}},
        {101, {QStringLiteral("c101 = c489"), QString()}},
        {106, {QStringLiteral("c106 = c100 - c101 + c103 - c105"), neg}},
        {107, {QStringLiteral("c107 = c100 - c101 + c103 - c105"), pos}},
        {110, {QStringLiteral("c110 = ( c106 o  cas107 ) - c108 - c150"), neg}},
        {111, {QStringLiteral("c111 = c106 - c107 - c108 - c150"), pos}},
        {113, {QStringLiteral("c113 = c110 x TASA%"), QString()}},
        // 119, 430, 442, 456 and 458 have no box here; the family's common text keeps them.
        {119, {QStringLiteral("c119 = c501 - c117"), pos}},
        {430, {QStringLiteral("c430=c400+c401+c402+c404+c405+c406+c407+c408+c410+c411+c413+"),
               QStringLiteral("c414+c415+c416+c418+c419+c421+c422+c423+c424+c425+c427-c428+c429")}},
        {442, {QStringLiteral("c442 = c431 + c432 + c433 + c435 + c436 + c437 + c438 + c439 + c440 + c441"), QString()}},
        {456, {QStringLiteral("c456 = c444 + c445 + c446 + c447 + c449 + c450 + c452 - c453 + c454 - c455"), QString()}},
        {458, {QStringLiteral("c458 = c442 + c456"), QString()}},
        {463, {QStringLiteral("c463 = c461 - c462"), QString()}},
        {466, {QStringLiteral("c466 = c463 - c464"), neg}},
        {467, {QStringLiteral("c467 = c463 - c464"), pos}},
        {470, {QStringLiteral("c470 = c466 - c467 - c468 - c469"), neg}},
        {471, {QStringLiteral("c471 = c466 - c467 - c468 - c469"), pos}},
        {484, {QStringLiteral("c484 = c470-c471-c472+c473+c475+c476+c477-c478-c480+c481-c483"), neg}},
        {485, {QStringLiteral("c485 = c470-c471-c472+c473+c475+c476+c477-c478-c480+c481-c483"), pos}},
        {487, {QStringLiteral("c487 = c484 - c485 - c486"), neg}},
        {489, {QStringLiteral("c489 = c484 - c485 - c486"), pos}},
        {492, {QStringLiteral("c492 = c487 - c489 - c490"), neg}},
        {493, {QStringLiteral("c493 = c487 - c489 - c490"), pos}},
        {531, {QStringLiteral("c531 = 500+501+502+503+504+505+506+507-508+509+510+511+512+513+514"),
               QStringLiteral(" +515+516-517+518+519+520+521+522+523-524+525+526-527-528+529+530")}},
        {543, {QStringLiteral("c543 = c532+c533+c534+c535+c536+c537+c538+c539+c540+c541+c542"), QString()}},
        {554, {QStringLiteral("c554 = c544 + c545 + c546 + c547 + c548 + c549 + c550 - c551 + c552 - c553"), QString()}},
        {555, {QStringLiteral("c555 = c543 + c554"), QString()}},
        {610, {QStringLiteral(" "), QString()}},
    };
    auto it = tabla.constFind(n);
    if (it == tabla.constEnd())
        return false;
    linea1 = it->first;
    linea2 = it->second;
    return true;
}

void Frm931::TxtValor_MouseMove(int Index)
{
    QString l1, l2;
    if (esCalculada(Index) && ayudaCasilla(Index, l1, l2)) {
        TxtAyuda.Caption = l1;
        TxtAyuda1.Caption = l2;
        TxtAyuda.ForeColor = TxtAyuda1.ForeColor = kAzulAyuda;
        return;
    }
    TxtAyuda.ForeColor = TxtAyuda1.ForeColor = kNegro;
    if (SSTab1.Tab == 3) {
        TxtAyuda.Caption = kHintObligatorio1;
        TxtAyuda1.Caption = kHintObligatorio2;
    } else {
        TxtAyuda.Caption = kHintImportes;
        TxtAyuda1.Caption = QString();
    }
}

// The frames' and the page change's hint, in its accentless wording.
static void hintDePagina(Frm931& f)
{
    f.TxtAyuda.ForeColor = f.TxtAyuda1.ForeColor = kNegro;
    if (f.SSTab1.Tab == 1 || f.SSTab1.Tab == 2) {
        f.TxtAyuda.Caption = kHintImportesSinTilde;
        f.TxtAyuda1.Caption = QString();
    } else {
        f.TxtAyuda.Caption = kHintObligatorio1;
        f.TxtAyuda1.Caption = kHintObligatorio2;
    }
}

void Frm931::Frame1_MouseMove()
{
    hintDePagina(*this);
}

void Frm931::Frame17_MouseMove()
{
    hintDePagina(*this);
}

// ---------------------------------------------------------------------- the scroller

void Frm931::ponerVScroll(int valor)
{
    if (VScroll1.Value == valor)
        return;
    VScroll1.Value = valor;
    VScroll1_Change();
}

void Frm931::VScroll1_Change()
{
    const bool primera = VScroll1.Value == 1;
    marco(QStringLiteral("Frame26")).Visible = primera;
    marco(QStringLiteral("Frame34")).Visible = !primera;
    if (!primera) {
        Frame34Left = 2280;
        Frame34Top = 140;
    }
}

void Frm931::VScroll1_Scroll()
{
    const bool primera = VScroll1.Value == 1;
    marco(QStringLiteral("Frame26")).Visible = primera;
    marco(QStringLiteral("Frame34")).Visible = !primera;
    if (!primera) {
        Frame34Left = 2280;
        Frame34Top = 120;   // 20 twips above where the change event puts it
    }
}

// ---------------------------------------------------------------------- tab pages

void Frm931::pMuestraMarcos(bool f1, bool f2, bool f5)
{
    marco(QStringLiteral("frame1(1)")).Visible = f1;
    marco(QStringLiteral("frame1(2)")).Visible = f2;
    marco(QStringLiteral("frame1(5)")).Visible = f5;
}

void Frm931::elegirPestana(Pestanas& control, int pagina)
{
    if (control.Tab == pagina || pagina < 0 || pagina >= control.captions.size())
        return;
    if (!control.TabEnabled.value(pagina, true) || !control.TabVisible.value(pagina, true))
        return;
    const int anterior = control.Tab;
    control.Tab = pagina;
    if (&control == &SSTab1) {
        SSTab1_Click(anterior);
        SSTab1_MouseUp();
    } else if (&control == &SSTab2) {
        SSTab2_Click(anterior);
    } else if (&control == &SSTab3) {
        SSTab3_Click(anterior);
    } else if (&control == &SSTab4) {
        SSTab4_Click(anterior);
    }
}

void Frm931::SSTab1_Click(int PreviousTab)
{
    (void)PreviousTab;
    cmdPerdida[0].Default = false;
    bool ok = true;
    const int pagina = SSTab1.Tab;
    if (pagina != 0 || !mbPrimeraVez)
        ValidaContForm1(ok);
    if (!ok) {
        // The change stops: the identification shows, on the page of the control at fault.
        SSTab1.Tab = 0;
        const UbicacionControl u = ubicacion(foco);
        if (u.paginaSSTab1 == 0 && u.subTab == QLatin1String("SSTab2"))
            SSTab2.Tab = u.paginaSub;
        return;
    }
    mbPrimeraVez = false;
    if (pagina == 0) {
        pMuestraMarcos(true, true, true);
        mnTab = 0;
        SSTab1.HelpContextID = 1018;
        return;
    }
    lblTab2[41].Caption = msTitBalance1;
    lblTab2[168].Caption = msTitBalance1;
    lblTab2[98].Caption = msTitBalance2;
    lblTab2[90].Caption = msTitBalance2;
    lblTab2[100].Caption = msTitGanancias;
    switch (pagina) {
    case 1:
        mnTab = 1;
        for (const char* m : {"frame1(1)", "frame1(6)", "frame1(7)"})
            marco(QLatin1String(m)).Visible = true;
        break;
    case 2:
        marco(QStringLiteral("frame1(2)")).Visible = true;
        mnTab = 2;
        if (caja(103).Enabled)
            darFocoCasilla(103);
        break;
    case 3:
        mnTab = 3;
        marco(QStringLiteral("frame1(5)")).Visible = true;
        if (TxtNombreA.Enabled)
            darFoco(QStringLiteral("TxtNombreA"));
        break;
    default:
        break;
    }
}

void Frm931::SSTab1_MouseUp()
{
    hintDePagina(*this);
    if (SSTab1.Tab == 1) {
        SSTab1.HelpContextID = 1019;
    } else if (SSTab1.Tab == 2) {
        if (optRenta.valor(5)) {
            double d = 0;
            IngresoNetos(d);
        } else {
            marco(QStringLiteral("frmMype")).Visible = false;
        }
    }
}

void Frm931::SSTab2_Click(int PreviousTab)
{
    if (PreviousTab != 0 || SSTab2.Tab == 0)
        return;
    auto volver = [this](bool ambos) {
        if (ambos)
            SSTab1.Tab = 0;
        SSTab2.Tab = 0;
    };
    if (miModo == 0 && Trim(Left(CmbRuc.Text(), 11)).isEmpty()) {
        MsgBox(QStringLiteral("Debe seleccionar un Contribuyente."), vbCritical, Caption);
        volver(true);
        darFoco(QStringLiteral("CmbRuc"));
        return;
    }
    const int l = Len(TxtTelefono.Text);
    if (l > 0 && l < 6) {
        MsgBox(QStringLiteral("Ingrese su número de teléfono o un número de referencia."), vbCritical, Caption);
        volver(true);
        darFoco(QStringLiteral("TxtTelefono"));
        return;
    }
    if (!optRenta.contestado()) {
        MsgBox(QStringLiteral("Debe señalar el regimen de renta"), vbCritical, Caption);
        volver(true);
        return;
    }
}

void Frm931::SSTab3_Click(int PreviousTab)
{
    (void)PreviousTab;
    mnTab = SSTab3.Tab;
    if (SSTab3.Tab == 2 && caja(461).Enabled)
        darFocoCasilla(461);
}

void Frm931::SSTab4_Click(int PreviousTab)
{
    (void)PreviousTab;
    if (SSTab4.Tab == 0) {
        mnTab = 0;
        marco(QStringLiteral("frame1(5)")).Enabled = true;
        return;
    }
    if (SSTab4.Tab != 1)
        return;
    mnTab = 1;
    grdPerdidaTributaria.clear();
    QString sql;
    QVariantList valores{rucDeclarante(), G().gsPeriodo, G().gsFormulario};
    if (G().gbEnviada) {
        sql = QStringLiteral("SELECT Anho, Importe FROM HF0931_PTCEA WHERE DOC_ID_D=? AND TIP_DOC_D=6"
                             " AND PERIODO=? AND FORMULARIO=? AND CORREL=? ORDER BY ANHO");
        valores << G().gsCorrel;
    } else {
        sql = QStringLiteral("SELECT Anho, Importe FROM F0931_PTCEA WHERE DOC_ID_D=? AND TIP_DOC_D=6"
                             " AND PERIODO=? AND FORMULARIO=? ORDER BY ANHO");
    }
    QSqlQuery q = ejecutar(sql, valores);
    while (q.next())
        grdPerdidaTributaria.append({q.value(0).toString(), q.value(1).toString()});
    cmdPerdida[0].Default = true;
}
