// The annex of casillas 473 and 477.
#include "dialogs/anexo477.h"

#include "basic/formato.h"
#include "basic/moneda.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "form931/frm931.h"

int FrmAnexo477::casillaParte(int i) const
{
    if (nCasilla == 477)
        return i == 0 ? 432 : 433;
    return i == 0 ? 650 : 651;
}

void FrmAnexo477::Form_Load()
{
    cerrado = aceptado = false;
    if (nCasilla == 477) {
        Caption = QStringLiteral("Enajenación de valores y bienes del activo fijo");
        lblCas[5] = QStringLiteral("Ingresos Afectos");
        lblCas[6] = QStringLiteral("Ingresos Exonerados");
    } else {
        Caption = QStringLiteral("Ingresos financieros gravados");
        lblCas[5] = QStringLiteral("Ingresos financieros gravados");
        lblCas[6] = QStringLiteral("Ingresos financieros por diferencia de tipo de cambio");
    }
    lblCas[0] = QString::number(casillaParte(0));
    lblCas[1] = QString::number(casillaParte(1));
    TxtTotal.Locked = true;
    for (Caja& c : TxtMonto)
        c.MaxLength = 15;
    // The total is worked out by the change event of the parts.
    for (int i = 0; i < 2; ++i)
        setMonto(i, frm ? frm->txt(casillaParte(i)) : QString());
    foco = QStringLiteral("TxtMonto(0)");
}

void FrmAnexo477::setMonto(int i, const QString& texto)
{
    if (TxtMonto[i].Text == texto)
        return;
    TxtMonto[i].Text = texto;
    TxtMonto_Change(i);
}

void FrmAnexo477::TxtMonto_Change(int)
{
    Moneda total;
    bool vacias = true;
    for (const Caja& c : TxtMonto) {
        if (c.Text.isEmpty())
            continue;
        vacias = false;
        total += CCur(Val(Format(c.Text, Mascara::SinPicture)));   // overflow throws
    }
    TxtTotal.Text = vacias ? QString() : Format(total.aDouble(), Mascara::Positivo);
}

void FrmAnexo477::TxtMonto_GotFocus(int Index)
{
    TxtMonto[Index].MaxLength = 12;
    setMonto(Index, Format(TxtMonto[Index].Text, Mascara::SinPicture));
    foco = QStringLiteral("TxtMonto(%1)").arg(Index);
}

void FrmAnexo477::TxtMonto_LostFocus(int Index)
{
    TxtMonto[Index].MaxLength = 15;
    setMonto(Index, Format(TxtMonto[Index].Text, Mascara::Positivo));
}

int FrmAnexo477::TxtMonto_KeyPress(int Index, int KeyAscii)
{
    if (KeyAscii == 13) {
        // Enter acts as Tab: the first part, the second, then the buttons.
        TxtMonto_LostFocus(Index);
        if (Index == 0)
            TxtMonto_GotFocus(1);
        else
            foco = QStringLiteral("CmdGrabar");
        return 0;
    }
    return gobjUtil().TeclaNumero(KeyAscii, false, false, false);
}

void FrmAnexo477::teclear(int Index, const QString& texto)
{
    for (QChar ch : texto) {
        const int k = TxtMonto_KeyPress(Index, ch == QLatin1Char('\b') ? 8 : ch.unicode());
        if (k == 0)
            continue;
        QString t = TxtMonto[Index].Text;
        if (k == 8) {
            t.chop(1);
        } else {
            if (TxtMonto[Index].MaxLength > 0 && t.size() >= TxtMonto[Index].MaxLength)
                continue;
            t += QChar(k);
        }
        setMonto(Index, t);
    }
}

void FrmAnexo477::CmdGrabar_Click()
{
    if (frm) {
        // The texts go over as they stand, separators included; the total's change event
        // recomputes the statement of results.
        frm->setTxt(casillaParte(0), TxtMonto[0].Text);
        frm->setTxt(casillaParte(1), TxtMonto[1].Text);
        frm->setTxt(casillaTotal(), TxtTotal.Text);
    }
    aceptado = true;
    cerrado = true;
}

void FrmAnexo477::cmdCancelar_Click()
{
    cerrado = true;
}
