// A declaration given as data, replayed on the form in the order a user types it.
#include "form931/guion.h"

#include "basic/reloj.h"
#include "basic/respondedor_guion.h"
#include "basic/texto.h"
#include "dialogs/anexo477.h"
#include "form931/casillas.h"
#include "shell/globales.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QSet>

#include <cmath>

namespace {

// Items of the declaration that have no box, as the input may carry them.
const QStringList& codigosSinCaja()
{
    static const QStringList lista = {
        QStringLiteral("028"), QStringLiteral("056"), QStringLiteral("813"), QStringLiteral("200"),
        QStringLiteral("809"), QStringLiteral("810"), QStringLiteral("860"), QStringLiteral("811"),
        QStringLiteral("812"), QStringLiteral("601"), QStringLiteral("602"), QStringLiteral("603"),
        QStringLiteral("804"), QStringLiteral("224"), QStringLiteral("605"), QStringLiteral("606"),
        QStringLiteral("607"), QStringLiteral("608"), QStringLiteral("611"), QStringLiteral("612"),
        QStringLiteral("613"), QStringLiteral("815"), QStringLiteral("816"), QStringLiteral("817"),
        QStringLiteral("818")};
    return lista;
}

// Items that a stored declaration carries but that the form derives itself: accepted so that a
// declaration read back from the store replays, and not typed.
const QStringList& codigosDerivados()
{
    static const QStringList lista = {QStringLiteral("002"), QStringLiteral("007"), QStringLiteral("801"),
                                      QStringLiteral("609"), QStringLiteral("662"), QStringLiteral("721")};
    return lista;
}

bool codigoConocido(const QString& codigo)
{
    if (codigosSinCaja().contains(codigo) || codigosDerivados().contains(codigo))
        return true;
    bool ok = false;
    const int n = codigo.toInt(&ok);
    return ok && codigo.size() == 3 && existeCasilla(n);
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
            teclearControl(QStringLiteral("TxtTelefono"), valor("028"));
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
    void teclearControl(const QString& control, const QString& texto)
    {
        frm.darFoco(control);
        Caja* caja = frm.cajaControl(control);
        if (!caja)
            throw ErrorEntrada(QStringLiteral("el control %1 no existe").arg(control));
        if (!caja->Enabled || caja->Locked)
            throw ErrorEntrada(QStringLiteral("el control %1 está cerrado").arg(control));
        for (const QChar c : texto) {
            const int k = frm.teclaControl(control, c.unicode());
            if (k == 0)
                continue;
            Caja* actual = frm.cajaControl(control);
            QString nuevo = actual->Text;
            if (caja->MaxLength > 0 && nuevo.size() >= caja->MaxLength && k != 8)
                continue;
            if (k == 8)
                nuevo.chop(1);
            else
                nuevo += QChar(k);
            frm.escribirControl(control, nuevo);
        }
    }

    // Typing digits into a date box with the picture "__/__/____": each digit takes the next
    // blank. The date comes as "yyyymmdd" or "dd/mm/yyyy".
    void teclearFecha(const QString& control, const QString& fecha, const QString& codigo)
    {
        QString digitos;
        if (fecha.size() == 8 && !fecha.contains(QLatin1Char('/')))
            digitos = fecha.mid(6, 2) + fecha.mid(4, 2) + fecha.left(4);
        else
            for (const QChar c : fecha)
                if (c.isDigit())
                    digitos += c;
        if (digitos.size() != 8)
            throw ErrorEntrada(QStringLiteral("la casilla %1 no es una fecha: %2").arg(codigo, fecha));
        frm.darFoco(control);
        Caja* caja = frm.cajaControl(control);
        if (!caja->Enabled || caja->Locked)
            throw ErrorEntrada(QStringLiteral("la casilla %1 está cerrada").arg(codigo));
        QString texto = QStringLiteral("__/__/____");
        frm.escribirControl(control, texto);
        for (const QChar c : digitos) {
            const int k = frm.teclaControl(control, c.unicode());
            if (k == 0)
                continue;
            const int pos = texto.indexOf(QLatin1Char('_'));
            if (pos < 0)
                break;
            texto[pos] = QChar(k);
            frm.escribirControl(control, texto);
        }
    }

    // An answer "0"/"1" given as the option of a group.
    void marcarSiNo(GrupoOpciones& grupo, const char* codigo)
    {
        if (!tiene(codigo))
            return;
        const QString v = valor(codigo).trimmed();
        if (v.isEmpty())
            return;
        if (v != QLatin1String("0") && v != QLatin1String("1"))
            throw ErrorEntrada(QStringLiteral("la casilla %1 admite 0 o 1, no %2").arg(QString::fromLatin1(codigo), v));
        marcarOpcion(grupo, v.toInt(), codigo);
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
        const int i = codigos.indexOf(codigo.trimmed());
        if (i < 0)
            throw ErrorEntrada(QStringLiteral("régimen desconocido en la casilla 056: %1").arg(codigo));
        marcarOpcion(frm.optRenta, i, "056");
    }

    void ubigeo(const char* codigo, bool segundo)
    {
        if (!tiene(codigo))
            return;
        entorno.ubigeo = valor(codigo).trimmed();
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
        if (tiene("200") && !valor("200").trimmed().isEmpty()) {
            teclearFecha(QStringLiteral("MkePeriodo"), valor("200").trimmed(), QStringLiteral("200"));
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
        if (tiene("804")) {
            const QString v = valor("804").trimmed();
            bool ok = false;
            const int i = v.toInt(&ok);
            if (!ok || i < 0 || i > 4)
                throw ErrorEntrada(QStringLiteral("la casilla 804 admite 0 a 4, no %1").arg(v));
            if (i > 0)
                marcarOpcion(frm.OptConvEstab, i, "804");
        }
        if (tiene("224"))
            teclearControl(QStringLiteral("TxtNumOrdenF2305"), valor("224"));
    }

    void bloquePago()
    {
        marcarSiNo(frm.OptInicio, "605");
        marcarSiNo(frm.OptPrecedente, "606");
        marcarSiNo(frm.OptAnterior, "607");
        if (tiene("608") && !valor("608").trimmed().isEmpty()) {
            const QString v = valor("608").trimmed();
            bool ok = false;
            const int i = v.toInt(&ok);
            if (!ok || i < 0 || i >= frm.CboBalance.items.size())
                throw ErrorEntrada(QStringLiteral("la casilla 608 admite 0 o 1, no %1").arg(v));
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
            teclearControl(QStringLiteral("txtNumRes"), valor("612"));
        if (tiene("613") && !valor("613").trimmed().isEmpty())
            teclearFecha(QStringLiteral("mkefecnot"), valor("613").trimmed(), QStringLiteral("613"));
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
        // The user selects what the box holds and types over it.
        if (!frm.txt(n).isEmpty())
            frm.setTxt(n, QString());
        frm.teclear(n, texto);
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
        static const QSet<int> partes = {432, 433, 650, 651};
        static const QSet<int> textos = {208, 209, 211, 212, 225, 226};
        for (int n : frm.mvCasillas) {
            if (partes.contains(n) || textos.contains(n))
                continue;
            if (n == 473) {
                asistente(473, 650, 651);
                continue;
            }
            if (n == 477) {
                asistente(477, 432, 433);
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
            if (alFinal ? item.endsWith(codigo) : item.startsWith(codigo)) {
                frm.darFoco(control);
                frm.elegir(lista, i);
                return;
            }
        }
        throw ErrorEntrada(QStringLiteral("la casilla %1 no está en la lista: %2").arg(QString::fromLatin1(casilla), codigo));
    }

    void informacionComplementaria()
    {
        if (tiene("815"))
            teclearControl(QStringLiteral("TxtNombreA"), valor("815"));
        if (tiene("816"))
            teclearControl(QStringLiteral("TxtNombreN"), valor("816"));
        if (tiene("209") && !valor("209").trimmed().isEmpty())
            elegirLinea(frm.CmbZona, QStringLiteral("CmbZona"), valor("209").trimmed(), true, "209");
        for (int n : {208, 211, 212}) {
            const QString codigo = codigoCasilla(n);
            if (e.casillas.contains(codigo))
                teclearCasilla(n, e.casillas.value(codigo));
        }
        if (tiene("817"))
            teclearControl(QStringLiteral("txtApellidoRL"), valor("817"));
        if (tiene("818"))
            teclearControl(QStringLiteral("txtNombreRL"), valor("818"));
        if (tiene("225") && !valor("225").trimmed().isEmpty())
            elegirLinea(frm.cboTipDocRepLegal, QStringLiteral("cboTipDocRepLegal"), valor("225").trimmed(), false, "225");
        if (tiene("226"))
            teclearCasilla(226, valor("226"));
    }

    Frm931& frm;
    EntornoSinPantalla& entorno;
    const EntradaDeclaracion& e;
};

}  // namespace

EntradaDeclaracion leerEntrada(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        throw ErrorEntrada(QStringLiteral("JSON mal formado en la posición %1: %2").arg(error.offset).arg(error.errorString()));
    if (!doc.isObject())
        throw ErrorEntrada(QStringLiteral("la entrada debe ser un objeto JSON"));
    const QJsonObject raiz = doc.object();
    for (auto it = raiz.begin(); it != raiz.end(); ++it)
        if (it.key() != QLatin1String("ruc") && it.key() != QLatin1String("casillas"))
            throw ErrorEntrada(QStringLiteral("clave desconocida en la entrada: %1").arg(it.key()));
    EntradaDeclaracion e;
    if (!raiz.value(QStringLiteral("ruc")).isString() || raiz.value(QStringLiteral("ruc")).toString().trimmed().isEmpty())
        throw ErrorEntrada(QStringLiteral("falta el RUC del contribuyente (\"ruc\")"));
    e.ruc = raiz.value(QStringLiteral("ruc")).toString().trimmed();
    const QJsonValue casillas = raiz.value(QStringLiteral("casillas"));
    if (!casillas.isUndefined() && !casillas.isObject())
        throw ErrorEntrada(QStringLiteral("\"casillas\" debe ser un objeto"));
    const QJsonObject obj = casillas.toObject();
    for (auto it = obj.begin(); it != obj.end(); ++it) {
        const QString codigo = it.key();
        if (!codigoConocido(codigo))
            throw ErrorEntrada(QStringLiteral("casilla desconocida: %1").arg(codigo));
        QString texto;
        if (it.value().isString()) {
            texto = it.value().toString();
        } else if (it.value().isDouble()) {
            const double d = it.value().toDouble();
            if (!(std::fabs(d) < 9.2233720368547758e18))   // beyond a 64-bit integer, NaN too
                throw ErrorEntrada(QStringLiteral("la casilla %1 lleva un número fuera de rango: %2").arg(codigo).arg(d));
            if (d != static_cast<double>(static_cast<qint64>(d)))
                throw ErrorEntrada(QStringLiteral("la casilla %1 lleva decimales: %2").arg(codigo).arg(d));
            texto = QString::number(static_cast<qint64>(d));
        } else {
            throw ErrorEntrada(QStringLiteral("el valor de la casilla %1 debe ser texto o número").arg(codigo));
        }
        if (codigo == QLatin1String("002") && Trim(texto) != e.ruc)
            throw ErrorEntrada(QStringLiteral("la casilla 002 (%1) no es el RUC de la entrada (%2)").arg(Trim(texto), e.ruc));
        if (codigosDerivados().contains(codigo))
            continue;
        e.casillas.insert(codigo, texto);
    }
    return e;
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
        anexo.teclear(i, textos[i]);
        anexo.TxtMonto_LostFocus(i);
    }
    anexo.CmdGrabar_Click();
}

void EntornoSinPantalla::abrirUbigeo(const QString& caption)
{
    // The picker accepts the code given; an empty code is the user's cancel.
    if (ubigeo.isEmpty()) {
        G().gsZonaSel.clear();
        return;
    }
    G().gsZonaSel = Trim(caption).right(1);
    G().gsUbigeoSel = ubigeo;
    G().gsUbigeoCopia = ubigeo;
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
