// A declaration given as data, replayed on the form in the order a user types it.
#include "form931/guion.h"

#include "basic/reloj.h"
#include "basic/respondedor_guion.h"
#include "basic/texto.h"
#include "dialogs/anexo477.h"
#include "dialogs/ubigeo.h"
#include "form931/casillas.h"
#include "shell/globales.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

namespace {

// The code of an item without a box of the given kind (SinCaja: the input may carry it;
// Derivada: a stored declaration carries it, the form derives it itself and it is not typed).
bool esCodigoDeTipo(const QString& codigo, TipoCasilla tipo)
{
    if (codigo.size() != 3)
        return false;
    for (const QChar c : codigo)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    const DefCasilla* d = defCasilla(codigo.toInt());
    return d && d->tipo == tipo;
}

// A value refused by its box, with the reason.
[[noreturn]] void rehusarValor(const QString& codigo, const QString& valor, const QString& motivo)
{
    throw ErrorEntrada(QStringLiteral("la casilla %1 no admite el valor %2 (%3)").arg(codigo, citarEntrada(valor), motivo));
}

// The key a filter gave for a character: it must be the character itself. A control
// character never is (Backspace and Enter edit or move, they are not part of a value).
void exigirTecla(const QString& codigo, const QString& valor, QChar c, int tecla)
{
    if (c.unicode() < 32 || tecla == 0)
        rehusarValor(codigo, valor, QStringLiteral("carácter no admitido: %1").arg(citarEntrada(QString(c))));
    if (tecla != c.unicode())
        rehusarValor(codigo, valor, QStringLiteral("%1 se teclea como %2").arg(citarEntrada(QString(c)), citarEntrada(QString(QChar(tecla)))));
}

void exigirLargo(const QString& codigo, const QString& valor, int largoActual, int maximo)
{
    if (maximo > 0 && largoActual >= maximo)
        rehusarValor(codigo, valor, QStringLiteral("más de %1 caracteres").arg(maximo));
}

// One character of an answer's codes.
int indiceRespuesta(const QString& codigo, const QString& v, int cuantos)
{
    if (v.size() == 1 && v[0] >= QLatin1Char('0') && v[0].unicode() < '0' + cuantos)
        return v[0].unicode() - '0';
    rehusarValor(codigo, v, QStringLiteral("admite de 0 a %1").arg(cuantos - 1));
}

class Reproduccion {
public:
    Reproduccion(Frm931& frm, EntornoSinPantalla& entorno, const EntradaDeclaracion& e)
        : frm(frm), entorno(entorno), e(e) {}

    void ejecutar()
    {
        abrirNueva();
        elegirContribuyente();
        if (tiene("028"))
            teclearControl(QStringLiteral("TxtTelefono"), valor("028"), "028");
        if (tiene("056"))
            marcarRegimen(valor("056"));
        respuestasRegimen();
        bloquePago();
        importes();
        informacionComplementaria();
    }

private:
    bool tiene(const char* codigo) const { return e.casillas.contains(QString::fromLatin1(codigo)); }
    QString valor(const char* codigo) const { return e.casillas.value(QString::fromLatin1(codigo)); }

    void abrirNueva()
    {
        Globales& g = G();
        g.gsPeriodo = QString::number(Hoy().year());
        g.gsPeriodoSel.clear();
        g.giOpcion = 0;
        g.gbEnviada = false;
        frm.miModo = 0;
        frm.Form_Load();
        frm.Form_Activate();
    }

    void elegirContribuyente()
    {
        const QString ruc = e.ruc.trimmed();
        for (int i = 0; i < frm.CmbRuc.items.size(); ++i) {
            if (Trim(Left(frm.CmbRuc.items[i], 11)) == ruc) {
                frm.darFoco(QStringLiteral("CmbRuc"));
                frm.elegir(frm.CmbRuc, i);
                return;
            }
        }
        throw ErrorEntrada(QStringLiteral("el contribuyente %1 no está en la lista del usuario %2")
                               .arg(ruc, Trim(G().gsUsuario)));
    }

    // Typing into a plain control: each key through its key rule, the text through its change.
    void teclearControl(const QString& control, const QString& texto, const char* casilla)
    {
        const QString codigo = QString::fromLatin1(casilla);
        frm.darFoco(control);
        Caja* caja = frm.cajaControl(control);
        if (!caja)
            throw ErrorEntrada(QStringLiteral("el control %1 no existe").arg(control));
        if (!caja->Enabled || caja->Locked)
            throw ErrorEntrada(QStringLiteral("la casilla %1 está cerrada").arg(codigo));
        for (const QChar c : texto) {
            exigirTecla(codigo, texto, c, c.unicode() < 32 ? 0 : frm.teclaControl(control, c.unicode()));
            Caja* actual = frm.cajaControl(control);
            exigirLargo(codigo, texto, actual->Text.size(), actual->MaxLength);
            frm.escribirControl(control, actual->Text + c);
        }
    }

    // Typing digits into a date box with the picture "__/__/____": each digit takes the next
    // blank. The date comes as "yyyymmdd" or "dd/mm/yyyy".
    void teclearFecha(const QString& control, const QString& fecha, const QString& codigo)
    {
        auto digitosEn = [&](std::initializer_list<int> posiciones) {
            QString d;
            for (int i : posiciones) {
                if (fecha[i] < QLatin1Char('0') || fecha[i] > QLatin1Char('9'))
                    return QString();
                d += fecha[i];
            }
            return d;
        };
        QString digitos;
        if (fecha.size() == 8)
            digitos = digitosEn({6, 7, 4, 5, 0, 1, 2, 3});
        else if (fecha.size() == 10 && fecha[2] == QLatin1Char('/') && fecha[5] == QLatin1Char('/'))
            digitos = digitosEn({0, 1, 3, 4, 6, 7, 8, 9});
        if (digitos.size() != 8)
            rehusarValor(codigo, fecha, QStringLiteral("fecha como aaaammdd o dd/mm/aaaa"));
        frm.darFoco(control);
        Caja* caja = frm.cajaControl(control);
        if (!caja->Enabled || caja->Locked)
            throw ErrorEntrada(QStringLiteral("la casilla %1 está cerrada").arg(codigo));
        QString texto = QStringLiteral("__/__/____");
        frm.escribirControl(control, texto);
        for (const QChar c : digitos) {
            exigirTecla(codigo, fecha, c, frm.teclaControl(control, c.unicode()));
            const int pos = texto.indexOf(QLatin1Char('_'));
            texto[pos] = c;
            frm.escribirControl(control, texto);
        }
    }

    // An answer "0"/"1" given as the option of a group.
    void marcarSiNo(GrupoOpciones& grupo, const char* codigo)
    {
        if (!tiene(codigo))
            return;
        const QString v = valor(codigo);
        if (v.isEmpty())
            return;
        marcarOpcion(grupo, indiceRespuesta(QString::fromLatin1(codigo), v, 2), codigo);
    }

    void marcarOpcion(GrupoOpciones& grupo, int indice, const char* codigo)
    {
        if (indice >= grupo.b.size() || !grupo.b[indice].Enabled || !grupo.b[indice].Visible)
            throw ErrorEntrada(QStringLiteral("la respuesta de la casilla %1 está cerrada").arg(QString::fromLatin1(codigo)));
        frm.marcar(grupo, indice);
    }

    void marcarRegimen(const QString& codigo)
    {
        static const QStringList codigos = {QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("2"),
                                            QStringLiteral("3"), QStringLiteral("6"), QStringLiteral("8")};
        const int i = codigos.indexOf(codigo);
        if (i < 0)
            rehusarValor(QStringLiteral("056"), codigo, QStringLiteral("régimen 4, 1, 2, 3, 6 u 8"));
        marcarOpcion(frm.optRenta, i, "056");
    }

    void ubigeo(const char* codigo, bool segundo)
    {
        if (!tiene(codigo))
            return;
        entorno.ubigeo = valor(codigo);
        entorno.casillaUbigeo = QString::fromLatin1(codigo);
        Boton& b = segundo ? frm.CmdZona2 : frm.CmdZona1;
        if (!b.Enabled || !b.Visible)
            throw ErrorEntrada(QStringLiteral("el ubigeo de la casilla %1 está cerrado").arg(QString::fromLatin1(codigo)));
        if (segundo)
            frm.CmdZona2_Click();
        else
            frm.CmdZona1_Click();
    }

    void respuestasRegimen()
    {
        marcarSiNo(frm.OptPersona, "813");
        if (tiene("200") && !valor("200").isEmpty()) {
            teclearFecha(QStringLiteral("MkePeriodo"), valor("200"), QStringLiteral("200"));
            frm.darFoco(QStringLiteral("TxtTelefono"));
        }
        marcarSiNo(frm.OptUbicAmazonia, "809");
        marcarSiNo(frm.OptLeyAmazonia, "810");
        marcarSiNo(frm.OptDomFiscal, "860");
        marcarSiNo(frm.OptZona, "811");
        ubigeo("812", false);
        marcarSiNo(frm.OptActividad, "601");
        marcarSiNo(frm.OptFrontera, "602");
        ubigeo("603", true);
        if (tiene("804") && !valor("804").isEmpty()) {
            const int i = indiceRespuesta(QStringLiteral("804"), valor("804"), 5);
            if (i > 0)
                marcarOpcion(frm.OptConvEstab, i, "804");
        }
        if (tiene("224"))
            teclearControl(QStringLiteral("TxtNumOrdenF2305"), valor("224"), "224");
    }

    void bloquePago()
    {
        marcarSiNo(frm.OptInicio, "605");
        marcarSiNo(frm.OptPrecedente, "606");
        marcarSiNo(frm.OptAnterior, "607");
        if (tiene("608") && !valor("608").isEmpty()) {
            const int i = indiceRespuesta(QStringLiteral("608"), valor("608"), static_cast<int>(frm.CboBalance.items.size()));
            // Before 2013 a profit in the previous year fixes the date itself and shuts the list.
            if (!frm.CboBalance.Enabled && frm.CboBalance.ListIndex == i)
                return bloqueSuspension();
            if (!frm.CboBalance.Enabled)
                throw ErrorEntrada(QStringLiteral("la fecha de balance (casilla 608) está cerrada"));
            frm.darFoco(QStringLiteral("CboBalance"));
            frm.elegir(frm.CboBalance, i);
        }
        bloqueSuspension();
    }

    void bloqueSuspension()
    {
        marcarSiNo(frm.OptSuspPC, "611");
        if (tiene("612"))
            teclearControl(QStringLiteral("txtNumRes"), valor("612"), "612");
        if (tiene("613") && !valor("613").isEmpty())
            teclearFecha(QStringLiteral("mkefecnot"), valor("613"), QStringLiteral("613"));
    }

    // A box given the focus, typed and left.
    void teclearCasilla(int n, const QString& texto)
    {
        const Caja& c = frm.caja(n);
        if (c.Locked || !c.Enabled || !c.Visible)
            throw ErrorEntrada(QStringLiteral("la casilla %1 está bloqueada").arg(codigoCasilla(n)));
        // The asset side shows one of its two stops: the user scrolls to the box first.
        if (n >= 500 && n <= 515 && frm.VScroll1.Value != frm.VScroll1.Min)
            frm.ponerVScroll(frm.VScroll1.Min);
        if (n >= 516 && n <= 531 && frm.VScroll1.Value == frm.VScroll1.Min)
            frm.ponerVScroll(frm.VScroll1.Max);
        frm.darFocoCasilla(n);
        if (frm.foco != Frm931::nombreCasilla(n))
            throw ErrorEntrada(QStringLiteral("la casilla %1 no puede recibir el foco").arg(codigoCasilla(n)));
        // The user selects what the box holds and types over it, key by key.
        if (!frm.txt(n).isEmpty())
            frm.setTxt(n, QString());
        const QString codigo = codigoCasilla(n);
        for (const QChar c : texto) {
            exigirTecla(codigo, texto, c, c.unicode() < 32 ? 0 : frm.TxtValor_KeyPress(n, c.unicode()));
            exigirLargo(codigo, texto, frm.txt(n).size(), frm.caja(n).MaxLength);
            frm.setTxt(n, frm.txt(n) + c);
        }
        frm.darFoco(QStringLiteral("CmdValidar"));
    }

    // 473 and 477 through the annex, from their parts.
    void asistente(int n, int parte0, int parte1)
    {
        const QString c0 = codigoCasilla(parte0), c1 = codigoCasilla(parte1);
        const bool conPartes = e.casillas.contains(c0) || e.casillas.contains(c1);
        if (!conPartes) {
            if (e.casillas.contains(codigoCasilla(n)))
                throw ErrorEntrada(QStringLiteral("la casilla %1 se declara por sus partes %2 y %3")
                                       .arg(codigoCasilla(n), c0, c1));
            return;
        }
        const Caja& c = frm.caja(n);
        if (c.Locked || !c.Enabled || !c.Visible)
            throw ErrorEntrada(QStringLiteral("la casilla %1 está bloqueada").arg(codigoCasilla(n)));
        entorno.partesAnexo.insert(n, {e.casillas.value(c0), e.casillas.value(c1)});
        frm.darFocoCasilla(n);
        frm.TxtValor_DblClick(n);
        frm.darFoco(QStringLiteral("CmdValidar"));
    }

    void importes()
    {
        for (int n : frm.mvCasillas) {
            // The annex parts go with their box, the texts with the complementary data.
            const DefCasilla* d = defCasilla(n);
            if (qstrcmp(d->marco, "portadores") == 0 || d->clase != ClaseDato::Importe)
                continue;
            if (esAsistida(n)) {
                const QVector<int> partes = partesDelAnexo(n);
                asistente(n, partes.value(0), partes.value(1));
                continue;
            }
            const QString codigo = codigoCasilla(n);
            if (!e.casillas.contains(codigo))
                continue;
            teclearCasilla(n, e.casillas.value(codigo));
        }
    }

    void elegirLinea(Lista& lista, const QString& control, const QString& codigo, bool alFinal, const char* casilla)
    {
        for (int i = 0; i < lista.items.size(); ++i) {
            const QString& item = lista.items[i];
            if (Trim(item).isEmpty())
                continue;
            // The list's click takes the code from the item's last or first two characters.
            if ((alFinal ? Right(item, 2) : Left(item, 2)) == codigo) {
                frm.darFoco(control);
                frm.elegir(lista, i);
                return;
            }
        }
        rehusarValor(QString::fromLatin1(casilla), codigo, QStringLiteral("no está en la lista"));
    }

    void informacionComplementaria()
    {
        if (tiene("815"))
            teclearControl(QStringLiteral("TxtNombreA"), valor("815"), "815");
        if (tiene("816"))
            teclearControl(QStringLiteral("TxtNombreN"), valor("816"), "816");
        if (tiene("209") && !valor("209").isEmpty())
            elegirLinea(frm.CmbZona, QStringLiteral("CmbZona"), valor("209"), true, "209");
        for (const DefCasilla* d : casillasDelMarco("Frame6")) {
            const int n = d->numero;
            const QString codigo = codigoCasilla(n);
            if (*d->control)
                continue;   // taken from its list above
            if (e.casillas.contains(codigo))
                teclearCasilla(n, e.casillas.value(codigo));
        }
        if (tiene("817"))
            teclearControl(QStringLiteral("txtApellidoRL"), valor("817"), "817");
        if (tiene("818"))
            teclearControl(QStringLiteral("txtNombreRL"), valor("818"), "818");
        if (tiene("225") && !valor("225").isEmpty())
            elegirLinea(frm.cboTipDocRepLegal, QStringLiteral("cboTipDocRepLegal"), valor("225"), false, "225");
        if (tiene("226"))
            teclearCasilla(226, valor("226"));
    }

    Frm931& frm;
    EntornoSinPantalla& entorno;
    const EntradaDeclaracion& e;
};

}  // namespace

bool codigoDeEntrada(const QString& codigo, bool* derivado)
{
    const bool esDerivado = esCodigoDeTipo(codigo, TipoCasilla::Derivada);
    if (derivado)
        *derivado = esDerivado;
    if (esDerivado || esCodigoDeTipo(codigo, TipoCasilla::SinCaja))
        return true;
    if (codigo.size() != 3)
        return false;
    for (const QChar c : codigo)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return existeCasilla(codigo.toInt());
}

QString citarEntrada(const QString& valor)
{
    constexpr int kLargo = 40;
    QString s = QStringLiteral("\"");
    for (const QChar c : valor.left(kLargo)) {
        if (c.unicode() < 32 || c.unicode() == 127)
            s += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            s += c;
    }
    s += QLatin1Char('"');
    if (valor.size() > kLargo)
        s += QStringLiteral("…");
    return s;
}

void EntornoSinPantalla::abrirAnexo477(Frm931& frm, int nCasilla)
{
    FrmAnexo477 anexo(frm);
    anexo.nCasilla = static_cast<qint16>(nCasilla);
    anexo.Form_Load();
    const auto partes = partesAnexo.value(nCasilla);
    const QString textos[2] = {partes.first, partes.second};
    for (int i = 0; i < 2; ++i) {
        anexo.TxtMonto_GotFocus(i);
        anexo.setMonto(i, QString());   // the old figure selected and typed over
        const QString codigo = codigoCasilla(anexo.casillaParte(i));
        for (const QChar c : textos[i]) {
            exigirTecla(codigo, textos[i], c, c.unicode() < 32 ? 0 : anexo.TxtMonto_KeyPress(i, c.unicode()));
            exigirLargo(codigo, textos[i], anexo.TxtMonto[i].Text.size(), anexo.TxtMonto[i].MaxLength);
            anexo.setMonto(i, anexo.TxtMonto[i].Text + c);
        }
        anexo.TxtMonto_LostFocus(i);
    }
    anexo.CmdGrabar_Click();
}

void EntornoSinPantalla::abrirUbigeo(const QString& caption)
{
    // An empty code is the user's cancel; any other must be a district the picker offers.
    if (ubigeo.isEmpty()) {
        G().gsZonaSel.clear();
        return;
    }
    FrmUbigeo picker(caption);
    G().gsUbigeoSel = ubigeo;
    picker.Form_Load();
    if (picker.CodigoUbigeo() != ubigeo)
        rehusarValor(casillaUbigeo, ubigeo, QStringLiteral("no es un distrito del catálogo"));
    picker.cmdAccion_Click(0);
}

void reproducirEntrada(Frm931& frm, EntornoSinPantalla& entorno, const EntradaDeclaracion& entrada)
{
    Reproduccion(frm, entorno, entrada).ejecutar();
}

QJsonObject salidaCalcular(const Frm931& frm, const RespondedorGuion& respondedor)
{
    QJsonObject casillas;
    for (int n : frm.mvCasillas)
        casillas.insert(codigoCasilla(n), frm.txt(n));
    QJsonArray mensajes;
    for (const MensajeMostrado& m : respondedor.mostrados) {
        QJsonObject o;
        o.insert(QStringLiteral("texto"), m.texto);
        o.insert(QStringLiteral("titulo"), m.titulo);
        o.insert(QStringLiteral("boton"), m.boton);
        mensajes.append(o);
    }
    QJsonObject salida;
    salida.insert(QStringLiteral("periodo"), G().gsPeriodo);
    salida.insert(QStringLiteral("tasa"), G().gsTasa);
    salida.insert(QStringLiteral("sistema"), frm.LblSistema.Caption);
    salida.insert(QStringLiteral("presentacion"), frm.LblPresentacion.Caption);
    salida.insert(QStringLiteral("uit"), frm.msUit);
    salida.insert(QStringLiteral("casillas"), casillas);
    salida.insert(QStringLiteral("mensajes"), mensajes);
    return salida;
}
