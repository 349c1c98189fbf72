// The computation chain: every box that the taxpayer does not type. Each procedure writes its
// boxes through setTxt, whose change event calls the next procedure, down to the tax in c113
// and the new coefficient in c610. The chain settles because writing a box the text it already
// holds raises no change event.
#include "form931/frm931.h"

#include "basic/formato.h"
#include "basic/moneda.h"
#include "basic/texto.h"
#include "shell/globales.h"
#include "store/param.h"

namespace {

// A result split in a profit box and a loss box: the loss box shows the size of the loss in
// parentheses, the other box "0".
void par(Frm931& f, int utilidad, int perdida, double x, const QString& mascaraUtilidad = Mascara::Positivo)
{
    if (x > 0) {
        f.setTxt(utilidad, Format(x, mascaraUtilidad));
        f.setTxt(perdida, QStringLiteral("0"));
    } else if (x < 0) {
        f.setTxt(utilidad, QStringLiteral("0"));
        f.setTxt(perdida, Format(Abs(x), Mascara::Perdida));
    } else {
        f.setTxt(utilidad, QStringLiteral("0"));
        f.setTxt(perdida, QStringLiteral("0"));
    }
}

bool todasVacias(const Frm931& f, std::initializer_list<int> casillas)
{
    for (int n : casillas)
        if (!f.txt(n).isEmpty())
            return false;
    return true;
}

bool rangoVacio(const Frm931& f, int desde, int hasta)
{
    for (int n = desde; n <= hasta; ++n)
        if (!f.txt(n).isEmpty())
            return false;
    return true;
}

// The text a currency value takes when assigned to a box: no trailing zeros, no separators.
QString textoMoneda(const Moneda& m)
{
    const qint64 v = m.diezmilesimas();
    const qint64 a = v < 0 ? -v : v;
    QString s = QString::number(a / 10000);
    qint64 dec = a % 10000;
    if (dec != 0) {
        QString d = QStringLiteral("%1").arg(dec, 4, 10, QLatin1Char('0'));
        while (d.endsWith(QLatin1Char('0')))
            d.chop(1);
        s += QLatin1Char('.') + d;
    }
    return v < 0 ? QLatin1Char('-') + s : s;
}

// The two brackets of the MYPE Tributario tax: 10 % up to 15 UIT, 29.5 % above.
double impuestoMype(double renta, double uit)
{
    const double tramo = 15 * uit;
    if (renta <= tramo)
        return renta * 0.10;
    return tramo * 0.10 + (renta - tramo) * 0.295;
}

}  // namespace

int Frm931::anio() const
{
    return static_cast<int>(Val(Left(G().gsPeriodo, 4)));
}

// ---------------------------------------------------------------------- profit and loss

void Frm931::Calcular463()
{
    const double x = A(461) - A(462);
    setTxt(463, x < 0 ? QStringLiteral("0") : Format(x, Mascara::Positivo));
}

void Frm931::Calcular466y467()
{
    par(*this, 466, 467, A(463) - A(464));
}

void Frm931::Calcular470y471()
{
    par(*this, 470, 471, A(466) - A(467) - A(468) - A(469));
}

void Frm931::Calcular484y485()
{
    par(*this, 484, 485,
        A(470) - A(471) - A(472) + A(473) + A(475) + A(476) + A(477) - A(478) - A(480) + A(481) - A(483));
}

void Frm931::Calcular487y489()
{
    par(*this, 487, 489, A(484) - A(485) - A(486));
    // The bridge to the determination: the texts go over as they stand, parentheses included.
    setTxt(100, txt(487));
    setTxt(101, txt(489));
}

void Frm931::Calcular492y493()
{
    par(*this, 492, 493, A(487) - A(489) - A(490));
}

// ---------------------------------------------------------------------- determination

void Frm931::Calcular106y107()
{
    if (todasVacias(*this, {100, 101, 103, 105})) {
        setTxt(106, QString());
        setTxt(107, QString());
        return;
    }
    par(*this, 106, 107, N(100) + N(103) - A(101) - A(105), Mascara::Totales);
}

void Frm931::Calcular110y111()
{
    if (todasVacias(*this, {106, 108, 150})) {
        setTxt(110, QString());
    } else {
        // The subtraction is written first, sign and all, and read back: the interim text
        // raises the change event of c110 before the "0" replaces a negative.
        setTxt(110, Format(N(106) - A(108) - A(150), Mascara::Positivo));
        if (Val(Format(txt(110), Mascara::SinPicture)) < 0)
            setTxt(110, QStringLiteral("0"));
    }
    if (todasVacias(*this, {106, 107, 108, 150})) {
        setTxt(111, QString());
    } else {
        const double y = N(106) - A(107) - A(108) - A(150);
        // c111 alone shows its figure with no separators and no parentheses.
        setTxt(111, y < 0 ? Format(Abs(y), Mascara::SinPicture) : QStringLiteral("0"));
    }
    Calcular113();
}

// ---------------------------------------------------------------------- balance

void Frm931::Calcular531()
{
    if (rangoVacio(*this, 500, 530)) {
        setTxt(531, QString());
        return;
    }
    double s = 0;
    for (int n = 500; n <= 530; ++n) {
        switch (n) {
        case 508: case 517: case 524: case 527: case 528:
            s -= A(n);   // the deductions subtract whatever sign was typed
            break;
        default:
            s += N(n);
            break;
        }
    }
    setTxt(531, Format(s, Mascara::Totales));
}

void Frm931::Calcular543()
{
    if (rangoVacio(*this, 532, 542)) {
        setTxt(543, QString());
        return;
    }
    double s = 0;
    for (int n = 532; n <= 542; ++n)
        s += N(n);
    setTxt(543, Format(s, Mascara::Positivo));
}

void Frm931::Calcular554()
{
    const double s = N(544) + N(545) + N(546) + N(547) + N(548) + N(549) + N(550) - A(551) + N(552) - A(553);
    setTxt(554, Format(s, Mascara::Totales));
}

void Frm931::Calcular555()
{
    setTxt(555, Format(N(543) + N(554), Mascara::Totales));
}

// ---------------------------------------------------------------------- tax and coefficient

QString Frm931::getUIT()
{
    return getUITTexto(G().gsPeriodo);
}

void Frm931::Calcular113()
{
    if (!G().gsPeriodoSel.isEmpty())
        G().gsPeriodo = G().gsPeriodoSel;
    const int y = anio();
    const double n110 = N(110);
    double t = 0;
    bool aplicada = false;
    auto tasa = [&](const char* texto, double factor) {
        G().gsTasa = QLatin1String(texto);
        t = n110 * factor;
        aplicada = true;
    };
    if (optRenta.valor(0)) {
        const int persona = OptPersona.seleccionado();
        if (persona >= 0) {
            const bool juridica = persona == 0;
            if (y >= 2017)
                juridica ? tasa("29.5", 0.295) : tasa("30", 0.30);
            else if (y >= 2015)
                tasa("28", 0.28);
            else if (y >= 2004)
                tasa("30", 0.30);
            else
                juridica ? tasa("27", 0.27) : tasa("30", 0.30);
        }
    } else if (optRenta.valor(1)) {
        tasa("15", 0.15);
    } else if (optRenta.valor(2)) {
        if (OptLeyAmazonia.valor(0) && OptUbicAmazonia.valor(0)) {
            tasa("30", 0.30);
        } else if (OptUbicAmazonia.valor(1) || OptLeyAmazonia.valor(1)) {
            if (OptDomFiscal.valor(1) && OptZona.valor(0))
                tasa("10", 0.10);
            else if (OptDomFiscal.valor(1) && OptZona.valor(1))
                tasa("5", 0.05);
            else if (OptDomFiscal.valor(0))
                tasa("30", 0.30);
        }
    } else if (optRenta.valor(3)) {
        if (OptActividad.valor(0))
            tasa("30", 0.30);
        else if (OptFrontera.valor(1))
            tasa("10", 0.10);
        else
            tasa("30", 0.30);
    } else if (optRenta.valor(5)) {
        t = impuestoMype(n110, Val(msUit));
    }
    Caja& c113 = caja(113);
    if (aplicada || optRenta.valor(5)) {
        c113.Enabled = true;
        c113.Locked = true;
        c113.BackColor = kGris;
    }
    if (optRenta.valor(4) || !optRenta.contestado()) {
        // Under a stability agreement the taxpayer types the tax.
        c113.Enabled = true;
        c113.Locked = false;
        c113.BackColor = kBlanco;
    }
    if (!optRenta.valor(4))
        setTxt(113, N(111) < 0 ? QStringLiteral("0") : Format(t, Mascara::Positivo));
}

void Frm931::Calcular_coeficiente()
{
    const QString& sistema = LblSistema.Caption;
    Moneda d;
    if (anio() < 2013) {
        d = CCur(A(461) - A(462)) + CCur(A(473)) + CCur(A(475)) + CCur(A(477) - A(433));
        if (d > Moneda()) {
            const Moneda q = CCur(CCur(A(113)) / d);
            if (sistema == QLatin1String("A"))
                setTxt(610, Format(q.aDouble(), Mascara::Coeficiente));
            else if (sistema == QLatin1String("B"))
                setTxt(610, Format((q * CCur(100)).aDouble(), Mascara::Porcentaje));
            else
                setTxt(610, QString());
        } else {
            setTxt(610, sistema == QLatin1String("A") ? QStringLiteral("0.0000") : QStringLiteral("0.00"));
        }
        return;
    }
    // From 2013 the exchange-difference part of the financial income leaves the income, and
    // the positive inflation adjustment enters it.
    d = CCur(A(461) - A(462)) + CCur(A(473)) - CCur(A(651)) + CCur(A(475)) + CCur(A(477) - A(433)) + CCur(A(481));
    if (d > Moneda()) {
        const Moneda q = CCur(CCur(A(113)) / d);
        setTxt(610, textoMoneda(q));
        setTxt(610, Format(txt(610), Mascara::Coeficiente));
    } else {
        setTxt(610, QStringLiteral("0.0000"));
    }
}

void Frm931::IngresoNetos(double& dIngresos)
{
    dIngresos = 0;
    if (!optRenta.valor(5))
        return;
    const double i = (A(461) - A(462)) + A(473) + A(475) + (A(477) - A(433));
    dIngresos = i;
    // The projection is offered only up to 300 UIT of net income.
    if (300 * Val(msUit) < i) {
        marco(QStringLiteral("frmMype")).Visible = false;
        for (int n : casillasConMarca(kSoloMype))
            setTxt(n, QString());
    } else {
        marco(QStringLiteral("frmMype")).Visible = true;
    }
}

void Frm931::Calcular250()
{
    // The income of the seven months of the balance, over a whole year.
    const double p = N(110) * 12 / 7;
    setTxt(250, Format(impuestoMype(p, Val(msUit)), Mascara::Totales));
}

double Frm931::Vale(int iCasilla) const
{
    const QString& t = txt(iCasilla);
    if (Trim(t).isEmpty())
        return 0;
    const double v = Val(Format(t, QStringLiteral("##############0")));
    return (iCasilla == 251 || iCasilla == 252) ? Abs(v) : v;
}

void Frm931::Calcular253()
{
    const Moneda pendiente = CCur(Vale(250) - Vale(251) - Vale(252));
    setTxt(253, Format(pendiente.aDouble(), Mascara::Totales));
}
