// Saving, validating on request, leaving, and the order-number mode of the declaration form.
//
// A save writes the header, empties the declaration's DET rows and writes one row for each
// filled box and answer, all in one transaction: a failure on the way leaves the stored
// declaration as it was and shows the engine's text, the form keeps its work unsaved. A new
// declaration is checked not to exist yet inside that same transaction, under the write lock.
#include "form931/frm931.h"
#include "form931/textos.h"

#include "basic/errores.h"
#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/periodo.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QDate>
#include <QSqlQuery>
#include <QVariant>

#include <exception>

namespace {

const QString kFechaVacia = QStringLiteral("__/__/____");
const QString kCadenaTrabajo = QStringLiteral(" WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?");

namespace Texto {
using namespace TextosFormulario;
const QString PeriodoNoValido = QStringLiteral("El período no es válido");
const QString SistemaPago = QStringLiteral("Debe seleccionar el sistema de pago.");
const QString Contribuyente = QStringLiteral("Debe seleccionar un Contribuyente.");
const QString SinInconsistencias = QStringLiteral("La información de la declaración no presenta inconsistencias.");
const QString GuardarCambios = QStringLiteral("¿El formulario ha sido modificado, desea guardar los cambios?");
const QString OrdenCambiado = QStringLiteral(" El número de orden ha cambiado. ¿Desea guardar los cambios?");
const QString OrdenNoValido = QStringLiteral("     El número de orden no es válido");
const QString DigitoIncorrecto = QStringLiteral("     El digito Verificador es incorrecto");
const QString OrdenGrabado =
    QStringLiteral("El número de orden y el digito verificador fueron grabados satisfactoriamente.");
const QString OrdenIncorrecto = QStringLiteral("El número de orden es incorrecto");
const QString OrdenSinDeclaracion = QStringLiteral(
    "La declaración enviada ya no se encuentra registrada. El número de orden no fue grabado.");
const QString DigitoIncorrectoSalida = QStringLiteral("Digito verificador incorrecto");
const QString SistemaPagoPerdida = QStringLiteral("Debe seleccionar el sistema de pago");
const QString ConfirmaEliminar = QStringLiteral("¿Confirma que va a eliminar?");
}  // namespace Texto

// The hourglass for as long as the object lives (the main window shows it).
class PunteroEspera {
public:
    PunteroEspera() { poner(true); }
    ~PunteroEspera() { poner(false); }
    PunteroEspera(const PunteroEspera&) = delete;
    PunteroEspera& operator=(const PunteroEspera&) = delete;

private:
    static void poner(bool espera)
    {
        if (abridores().puntero)
            abridores().puntero(espera);
    }
};

// The text a trapped run-time error shows, as the form's handlers show it.
void mostrarError(const ErrorVB& e)
{
    MsgBox(e.descripcion + QChar(10) + Str(static_cast<qint64>(e.numero)), vbOKOnly, QStringLiteral("Error"));
}

void mostrarError(const std::exception& e)
{
    mostrarError(ErrorVB(440, QString::fromLocal8Bit(e.what())));
}

// "yyyymmdd" of a "dd/mm/yyyy" text.
QString aAnioMesDia(const QString& fecha)
{
    return Mid(fecha, 7, 4) + Mid(fecha, 4, 2) + Left(fecha, 2);
}

// Stored code of a Yes/No answer ("1", "0") or of a pair of buttons, "" when unanswered.
QString codigoRespuesta(const GrupoOpciones& grupo)
{
    if (grupo.valor(1))
        return QStringLiteral("1");
    if (grupo.valor(0))
        return QStringLiteral("0");
    return QString();
}

bool largoDeOrden(const QString& orden)
{
    const int largo = Len(orden);
    return largo >= 8 && largo <= 10;
}

// Casilla 056 by the button of optRenta.
const QStringList kCodigosRegimen{QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("2"),
                                  QStringLiteral("3"), QStringLiteral("6"), QStringLiteral("8")};

// Unload Me: the form's unload event, then the window goes.
void descargar(Frm931& f)
{
    if (f.cerrado)
        return;
    f.cerrado = true;
    f.Form_Unload();
    if (f.entorno)
        f.entorno->cerrarFormulario();
}

// The CAB row of the declaration: added with its key, or the existing one edited.
void grabarCabecera(const Frm931& f, const QString& sRuc, const QString& sPeriodo, int estado)
{
    const Globales& g = G();
    const QString fecPro = Format(Hoy(), Mascara::Fecha);
    const QString rectifica = codigoRespuesta(f.OptRectifica);
    QSqlQuery actual = ejecutar(QStringLiteral("SELECT rowid, * FROM CAB") + kCadenaTrabajo, {sRuc, sPeriodo, g.gsFormulario});
    if (actual.next()) {
        // Columns after rowid: TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, FEC_PRO, ESTADO,
        // RECTIFICA, BCOLIBRAD, CHEQUE, NROCHEQUE, EFECTIVO, cNumero.
        const qint64 fila = actual.value(0).toLongLong();
        QVariantList columnas;
        for (int i = 1; i < actual.record().count(); ++i)
            columnas << actual.value(i);
        actual.finish();
        columnas[5] = fecPro;
        columnas[6] = estado;
        columnas[7] = rectifica;
        ejecutar(QStringLiteral("UPDATE CAB SET FEC_PRO=?, ESTADO=?, RECTIFICA=?, cNumero=? WHERE rowid=?"),
                 {fecPro, estado, rectifica, CodigoFila(columnas, 5), fila});
        return;
    }
    actual.finish();
    const QVariantList columnas{6, sRuc, sPeriodo, g.gsFormulario, 0, fecPro, estado, rectifica,
                                QVariant(), QVariant(), QVariant(), QVariant(), QVariant()};
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, FEC_PRO, ESTADO, RECTIFICA, cNumero)"
                            " VALUES (6, ?, ?, ?, ?, ?, ?, ?)"),
             {sRuc, sPeriodo, g.gsFormulario, fecPro, estado, rectifica, CodigoFila(columnas, 5)});
}

// The casillas that have no box, in their order.
void grabarSinCaja(Frm931& f, const QString& sRuc, const QString& sPeriodo)
{
    const Globales& g = G();
    const int y = static_cast<int>(Val(Left(g.gsPeriodo, 4)));
    auto grabar = [&](const char* casilla, const QString& valor) {
        f.pGrabaCasilla(QString::fromLatin1(casilla), valor, sRuc, sPeriodo);
    };
    grabar("002", sRuc);
    grabar("007", sPeriodo);
    // The name box of a new declaration carries the blanks of the taxpayer list before the
    // name: the 15 characters are the name's own, as a stored declaration shows it.
    grabar("801", Trim(Left(Trim(f.TxtRazon.Text), 15)));
    grabar("028", Trim(f.TxtTelefono.Text));
    if (f.optRenta.valor(0) || f.optRenta.valor(5))
        grabar("813", codigoRespuesta(f.OptPersona));
    if (f.optRenta.valor(1))
        grabar("200", aAnioMesDia(f.MkePeriodo.Text));
    if (f.optRenta.valor(2)) {
        grabar("809", codigoRespuesta(f.OptUbicAmazonia));
        grabar("810", codigoRespuesta(f.OptLeyAmazonia));
        grabar("860", codigoRespuesta(f.OptDomFiscal));
        grabar("811", codigoRespuesta(f.OptZona));
        grabar("812", f.TxtUbigeo.Text);
    }
    if (f.optRenta.valor(3)) {
        grabar("601", codigoRespuesta(f.OptActividad));
        grabar("602", codigoRespuesta(f.OptFrontera));
        grabar("603", f.TxtUbigeo2.Text);
    }
    if (f.optRenta.valor(4)) {
        QString convenio = QStringLiteral("0");
        for (int i = 1; i <= 4; ++i)
            if (f.OptConvEstab.valor(i))
                convenio = QString::number(i);
        grabar("804", convenio);
        grabar("224", f.TxtNumOrdenF2305.Text);
    }
    if (const int r = f.optRenta.seleccionado(); r >= 0 && r < kCodigosRegimen.size())
        grabar("056", kCodigosRegimen.at(r));
    grabar("605", codigoRespuesta(f.OptInicio));
    grabar("606", codigoRespuesta(f.OptPrecedente));
    grabar("607", codigoRespuesta(f.OptAnterior));
    grabar("608", QString::number(f.CboBalance.ListIndex));
    grabar("609", y < 2013 ? Trim(f.LblSistema.Caption) : QStringLiteral("0"));
    if (y >= 2013) {
        if (f.OptSuspPC.valor(1)) {
            grabar("611", QStringLiteral("1"));
            grabar("612", f.txtNumRes.Text);
            grabar("613", f.mkefecnot.Text);
        } else {
            grabar("611", QStringLiteral("0"));
        }
    }
    grabar("662", QString::number(g.giTotPerdida));
    grabar("721", QStringLiteral("1.6"));
    grabar("815", Left(f.TxtNombreA.Text, 15));
    grabar("816", Left(f.TxtNombreN.Text, 15));
    grabar("817", Left(f.txtApellidoRL.Text, 15));
    grabar("818", Left(f.txtNombreRL.Text, 15));
}

// After the first save of a new declaration: the payment block shut as in modify mode (the
// suspension frame excepted), the taxpayer fixed in place of the list.
void cerrarComoGrabada(Frm931& f, const QString& sRuc)
{
    f.CboBalance.BackColor = kGris;
    f.OptInicio.habilitar(false);
    f.OptAnterior.habilitar(false);
    f.OptPrecedente.habilitar(false);
    f.CboBalance.Enabled = false;
    f.txtNumRes.BackColor = kGris;
    f.mkefecnot.BackColor = kGris;
    f.TxtNumRuc.Text = sRuc;
    f.TxtNumRuc.Visible = true;
    f.CmbRuc.Enabled = false;
    f.CmbRuc.Visible = false;
    f.TxtRazon.Enabled = false;
    f.TxtTelefono.Enabled = true;
    f.msRuc = sRuc;
    if (f.entorno)
        f.entorno->pBarraEstado(sRuc, Trim(f.TxtRazon.Text), G().gsPeriodo, G().gsFormulario);
}

// The save of a sent declaration: its order number and nothing else.
void grabarOrden(Frm931& f)
{
    const Globales& g = G();
    const QString orden = f.txtOrden.Text;
    if (!largoDeOrden(orden)) {
        MsgBox(Texto::OrdenNoValido, vbCritical, f.Caption);
        return;
    }
    if (!gobjUtil().ValidaOrden(g.gsControl, Trim(orden), Trim(f.txtverifica.Text))) {
        MsgBox(Texto::DigitoIncorrecto, vbCritical, f.Caption);
        return;
    }
    // The copy opened, whatever period a rule of the form has put in the globals since.
    const QStringList clave = f.claveEnviada.size() == 3 ? f.claveEnviada
                                                          : QStringList{g.gsRuc, g.gsPeriodo, g.gsCorrel};
    {
        Transaccion transaccion;
        const QVariant fila = escalar(QStringLiteral("SELECT rowid FROM HCAB") + kCadenaTrabajo + QStringLiteral(" AND CORREL=?"),
                                      {clave.at(0), clave.at(1), g.gsFormulario, clave.at(2)});
        if (!fila.isValid()) {
            // Gone meanwhile (another program of the family deleted it): nothing is stored.
            MsgBox(Texto::OrdenSinDeclaracion, vbCritical, f.Caption);
            return;
        }
        ejecutar(QStringLiteral("UPDATE HCAB SET NORDEN=? WHERE rowid=?"), {orden, fila});
        sellarFila(QStringLiteral("HCAB"), fila.toLongLong(), 6);
        transaccion.commit();
    }
    f.mbModificado = false;
    MsgBox(Texto::OrdenGrabado, vbExclamation, f.Caption);
    descargar(f);
}

}  // namespace

// ---------------------------------------------------------------------------------- saving

void Frm931::CmdGrabar_Click()
{
    Globales& g = G();
    PunteroEspera espera;
    const qint16 estadoAntes = g.giEstadoGrabado;
    try {
        // The page that shows the control at fault, before its message.
        auto aPagina = [this](int pagina1, int pagina2 = -1) {
            SSTab1.Tab = pagina1;
            if (pagina2 >= 0)
                SSTab2.Tab = pagina2;
        };
        auto rehusa = [this](const QString& texto) { MsgBox(texto, vbCritical, Caption); };

        // Periods of the first half that can't be stored under the rules of 2013.
        if (g.gsPeriodo == QLatin1String("201301") || g.gsPeriodo == QLatin1String("201306")) {
            rehusa(Texto::PeriodoNoValido);
            return;
        }
        // The period of the rows: the year of gsPeriodo and the month of the balance date.
        const QString anioPeriodo = Left(g.gsPeriodo, 4);
        const int y = static_cast<int>(Val(anioPeriodo));
        const QString sPeriodo = anioPeriodo + mesDeBalance(CboBalance.ListIndex, y >= 2013);

        // Regime and payment block.
        if (!optRenta.contestado()) {
            aPagina(0, 0);
            rehusa(Texto::Regimen);
            return;
        }
        if (!OptInicio.contestado()) {
            aPagina(0, 2);
            rehusa(Texto::Inicio);
            return;
        }
        if (OptInicio.valor(0)) {
            if (!OptAnterior.contestado()) {
                aPagina(0, 2);
                rehusa(Texto::Anterior);
                return;
            }
            if (!OptPrecedente.contestado()) {
                aPagina(0, 2);
                rehusa(Texto::Precedente);
                return;
            }
        }
        if (CboBalance.ListIndex == -1) {
            aPagina(0, 2);
            rehusa(Texto::MesBalance);
            return;
        }
        // The suspension of payments asks for its resolution.
        if (Left(CboBalance.Text(), 11) == QLatin1String("31 DE JULIO") && OptSuspPC.valor(1)) {
            const QString resolucion = txtNumRes.Text;
            const QString notificacion = mkefecnot.Text;
            QString falta;
            if (Trim(resolucion).isEmpty() || notificacion == kFechaVacia)
                falta = Texto::ResolucionObligatoria;
            else if (Len(resolucion) < 13)
                falta = Texto::ResolucionIncompleta;
            else if (resolucion == QLatin1String("0000000000000"))
                falta = Texto::ResolucionCeros;
            else if (!gobjUtil().FechaEnRango(notificacion, QStringLiteral("01/01/1850"), QStringLiteral("01/01/2500")))
                falta = Texto::NotificacionNoValida;
            else if (const QString amd = aAnioMesDia(notificacion);
                     amd < QLatin1String("20130322") || amd > Format(Hoy(), QStringLiteral("yyyymmdd")))
                falta = Texto::NotificacionFueraDeRango;
            if (!falta.isEmpty()) {
                aPagina(0, 2);
                rehusa(falta);
                return;
            }
        }
        // Before 2013 the payment system must be known.
        if (y < 2013 && LblSistema.Caption.isEmpty()) {
            aPagina(0);
            rehusa(Texto::SistemaPago);
            return;
        }
        // The taxpayer; a new declaration must not repeat a stored one. This early look spares
        // the user the later checks; the one that counts runs again under the write lock.
        const QString sRuc = miModo == 1 ? msRuc : Trim(Left(CmbRuc.Text(), 11));
        const bool primeraVez = miModo == 0 && OptInicio.b.value(0).Enabled;
        auto yaExiste = [&] {
            return escalar(QStringLiteral("SELECT 1 FROM CAB") + kCadenaTrabajo, {sRuc, sPeriodo, g.gsFormulario}).isValid();
        };
        auto rehusaExistente = [&] {
            aPagina(0);
            rehusa(QStringLiteral("La declaración que desea registrar ya existe ") + sRuc + QStringLiteral(". ")
                   + QStringLiteral("Elija la opción modificar declaración o elija otro contribuyente."));
            darFoco(QStringLiteral("CmbRuc"));
        };
        if (primeraVez && yaExiste()) {
            rehusaExistente();
            return;
        }
        // A sent declaration only takes its order number.
        if (g.gbEnviada && g.giOpcion == 2) {
            grabarOrden(*this);
            return;
        }
        // A new declaration needs its taxpayer.
        if (miModo == 0 && sRuc.isEmpty()) {
            aPagina(0, 0);
            rehusa(Texto::Contribuyente);
            darFoco(QStringLiteral("CmbRuc"));
            return;
        }
        // The date of the agrarian form.
        if (optRenta.valor(1) && !MkePeriodo.Text.contains(QLatin1Char('_'))) {
            const QString fecha = MkePeriodo.Text;
            const QDate dia = QDate::fromString(fecha, QStringLiteral("dd/MM/yyyy"));
            QString falta;
            if (!ValidaPeriodo(fecha) || !dia.isValid())
                falta = Texto::AnioAgrario;
            else if (dia > Hoy())
                falta = Texto::FechaAgrarioFutura;
            if (!falta.isEmpty()) {
                aPagina(0);
                rehusa(falta);
                darFoco(QStringLiteral("MkePeriodo"));
                return;
            }
        }
        // The RUC of the accountant, and the legal representative's when it is a RUC.
        auto rucAjeno = [&](int casilla) {
            const QString ruc = Trim(txt(casilla));
            QString falta;
            if (ruc.isEmpty())
                return true;
            if (!ValidaDocumento(QStringLiteral("06"), ruc) || !gobjUtil().ValidaRuc(ruc))
                falta = Texto::RucNoValido;
            else if (ruc == sRuc)
                falta = Texto::RucIgual;
            if (falta.isEmpty())
                return true;
            marco(QStringLiteral("frame1(5)")).Visible = true;
            SSTab1.Tab = 3;
            SSTab4.Tab = 0;
            rehusa(falta);
            darFocoCasilla(casilla);
            return false;
        };
        if (!rucAjeno(208))
            return;
        if (txt(225) == QLatin1String("06") && !rucAjeno(226))
            return;

        // Losses of earlier years in hand, and the state the declaration is saved in.
        // Both are read before the transaction: the silent pass may show a message.
        const QVariant perdidas = escalar(QStringLiteral("SELECT count(*) AS nTotTemp FROM F0931_PTCEA") + kCadenaTrabajo,
                                          {sRuc, g.gsPeriodo, g.gsFormulario});
        g.giTotPerdida = perdidas.isNull() ? 0 : CInt(perdidas.toDouble());
        bool bConsistente = true;
        ValidaCompleto(bConsistente);
        g.giEstadoGrabado = bConsistente ? 1 : 3;

        struct Existente {};
        try {
            Transaccion transaccion;
            // The write lock is held from here to the commit: when another program or window
            // stored the same new declaration since the look above, this save is the second one
            // and is refused, with nothing of it kept.
            if (primeraVez && yaExiste())
                throw Existente{};
            // The header.
            grabarCabecera(*this, sRuc, sPeriodo, bConsistente ? 0 : 9);
            // The rows are replaced as a whole.
            ejecutar(QStringLiteral("DELETE FROM DET") + kCadenaTrabajo, {sRuc, sPeriodo, g.gsFormulario});
            // The boxes, in their order.
            if (!optRenta.valor(5))
                for (int n : casillasConMarca(kSoloMype))
                    setTxt(n, QString());
            for (int n : mvCasillas)
                pGrabaCasilla(codigoCasilla(n), Trim(txt(n)), sRuc, sPeriodo);
            // The answers and texts without a box.
            if (!optRenta.valor(2)) {
                OptLeyAmazonia.apagar();
                OptUbicAmazonia.apagar();
                OptDomFiscal.apagar();
                OptZona.apagar();
            }
            grabarSinCaja(*this, sRuc, sPeriodo);
            // No loss claimed: no loss rows.
            const QString perdida = Trim(txt(108));
            if (perdida.isEmpty() || perdida == QLatin1String("0"))
                ejecutar(QStringLiteral("DELETE FROM F0931_PTCEA") + kCadenaTrabajo, {sRuc, sPeriodo, g.gsFormulario});
            transaccion.commit();
        } catch (const Existente&) {
            // Rolled back; the message comes once the lock is released.
            g.giEstadoGrabado = estadoAntes;
            rehusaExistente();
            return;
        }

        // A new declaration, once saved, goes on as a stored one.
        if (miModo == 0)
            cerrarComoGrabada(*this, sRuc);

        // The closing message, by the state saved.
        mbModificado = false;
        if (g.giEstadoGrabado == 3)
            MsgBox(MensajeError(152), vbExclamation, Caption);
        else
            MsgBox(MensajeError(151), vbInformation, Caption);
        g.giEstadoGrabado = 1;
    } catch (const ErrorVB& e) {
        g.giEstadoGrabado = estadoAntes;
        mostrarError(e);
    } catch (const std::exception& e) {
        g.giEstadoGrabado = estadoAntes;
        mostrarError(e);
    }
}

// ---------------------------------------------------------------------------------- order number

void Frm931::Cargacab()
{
    const Globales& g = G();
    if (claveEnviada.size() != 3)
        claveEnviada = QStringList{g.gsRuc, g.gsPeriodo, g.gsCorrel};
    QSqlQuery cab = ejecutar(QStringLiteral("SELECT NORDEN FROM HCAB") + kCadenaTrabajo + QStringLiteral(" AND CORREL=?"),
                             {claveEnviada.at(0), claveEnviada.at(1), g.gsFormulario, claveEnviada.at(2)});
    if (cab.next() && !cab.value(0).isNull())
        txtOrden.Text = cab.value(0).toString();
}

void Frm931::DesTodo()
{
    for (Caja* caja : {&TxtNumRuc, &TxtRazon, &TxtTelefono, &TxtNombreA, &TxtNombreN, &txtApellidoRL, &txtNombreRL})
        caja->BackColor = kGris;
    CboBalance.BackColor = kGris;
    cboTipDocRepLegal.BackColor = kGris;
    CmbZona.BackColor = kGris;
    CmdValidar.Visible = false;
    CmdGrabar.Caption = QStringLiteral("&Registrar Nro. Orden");
    CmdGrabar.Width = 2000;
    CmdGrabar.Left = 6100;
    for (const char* nombre : {"Frame26", "Frame34", "Frame35", "Frame36", "Frame_General", "Frame15", "Frame19",
                               "Frame21", "Frame20", "Frame13", "Frame16", "Frame14", "Frame9", "Frame17",
                               "Frame6", "Frame7"})
        marco(QString::fromLatin1(nombre)).Enabled = false;
    for (int n : mvCasillas) {
        Caja& c = caja(n);
        c.Enabled = false;
        c.BackColor = kGris;
    }
    for (Boton& b : cmdPerdida)
        b.Enabled = false;
}

// ---------------------------------------------------------------------------------- validating

void Frm931::CmdValidar_Click()
{
    Globales& g = G();
    try {
        g.gsMensaje.clear();
        if (miModo == 0 && msRuc.isEmpty() && Trim(Left(CmbRuc.Text(), 11)).isEmpty()) {
            SSTab1.Tab = 0;
            MsgBox(Texto::Contribuyente, vbCritical, Caption);
            return;
        }
        if (g.gsArchMens.isEmpty())
            g.gsArchMens = g.gsPathSys + QStringLiteral("Mens.txt");
        ValidaFormulario();
        if (g.giError == 1) {
            if (entorno)
                entorno->abrirConsist();
        } else {
            MsgBox(Texto::SinInconsistencias, vbExclamation, Caption);
            g.giEstadoGrabado = 2;
        }
    } catch (const ErrorVB& e) {
        mostrarError(e);
    }
}

// ---------------------------------------------------------------------------------- leaving

void Frm931::cmdCancelar_Click()
{
    Globales& g = G();
    g.giEstadoGrabado = 3;
    auto vaciarGlobales = [&g] {
        g.gsUbigeoSel.clear();
        g.gsUbigeoCopia.clear();
        g.gsZonaSel.clear();
    };
    try {
        bool seguir = true;
        if (g.gbEnviada && mbModificado) {
            if (MsgBox(Texto::OrdenCambiado, vbYesNo + vbQuestion, Caption) == vbYes) {
                seguir = false;
                const QString orden = txtOrden.Text;
                if (!largoDeOrden(orden)) {
                    MsgBox(Texto::OrdenIncorrecto, vbCritical, Caption);
                    return;
                }
                if (!gobjUtil().ValidaOrden(g.gsControl, Trim(orden), Trim(txtverifica.Text))) {
                    MsgBox(Texto::DigitoIncorrectoSalida, vbCritical, Caption);
                    return;
                }
                CmdGrabar_Click();
            }
        } else if (mbModificado) {
            const int respuesta = MsgBox(Texto::GuardarCambios, vbYesNoCancel + vbQuestion, Caption);
            if (respuesta == vbCancel)
                return;
            if (respuesta == vbYes) {
                seguir = false;
                CmdGrabar_Click();
                // A save that a check refused (or that the database refused) keeps the form
                // open with everything the user typed: leaving would lose it.
                if (mbModificado)
                    return;
            }
        }
        if (seguir) {
            // A header left with cNumero "0" by an interrupted save of another program of the
            // family is a broken declaration: it goes with its rows.
            const QVariantList clave{Trim(Left(CmbRuc.Text(), 11)), g.gsPeriodo, g.gsFormulario};
            QSqlQuery cab = ejecutar(QStringLiteral("SELECT cNumero FROM CAB") + kCadenaTrabajo, clave);
            const bool roto = cab.next() && cab.value(0).toString() == QLatin1String("0");
            cab.finish();
            if (roto) {
                Transaccion transaccion;
                for (const char* tabla : {"CAB", "DET", "ACTA"})
                    ejecutar(QStringLiteral("DELETE FROM ") + QLatin1String(tabla) + kCadenaTrabajo, clave);
                transaccion.commit();
            }
            if (entorno)
                entorno->pBarraEstado(QString(), QString(), QString(), g.gsFormulario);
        }
    } catch (const ErrorVB& e) {
        mostrarError(e);
    }
    vaciarGlobales();
    descargar(*this);
}

void Frm931::Form_Unload()
{
    if (miModo == 1 && entorno)
        entorno->mostrarContAbrir();
}

// ---------------------------------------------------------------------------------- loss rows

void Frm931::cmdPerdida_Click(int Index)
{
    Globales& g = G();
    try {
        // The rows are keyed by the full period: the month follows the balance date.
        const QString anio = Left(g.gsPeriodo, 4);
        const bool antes2013 = Val(anio) < 2013;
        if (CboBalance.ListIndex == 0)
            g.gsPeriodo = anio + (antes2013 ? QStringLiteral("01") : QStringLiteral("05"));
        else if (CboBalance.ListIndex == 1)
            g.gsPeriodo = anio + (antes2013 ? QStringLiteral("06") : QStringLiteral("08"));
        if (g.gsPeriodo.isEmpty()) {
            MsgBox(Texto::SistemaPagoPerdida, vbCritical, Caption);
            return;
        }
        // The declaration's RUC: the one in hand when modifying, else the taxpayer box's.
        QString ruc = miModo != 0 && !Trim(msRuc).isEmpty() ? Trim(msRuc) : Trim(Left(CmbRuc.Text(), 11));
        if (ruc.isEmpty())
            ruc = rucDeclarante();
        const bool sinFilas = grdPerdidaTributaria.isEmpty();
        const QPair<QString, QString> fila =
            sinFilas ? QPair<QString, QString>() : grdPerdidaTributaria.value(qBound(0, filaPerdida, int(grdPerdidaTributaria.size()) - 1));
        if (Index == 0) {
            g.gsRucPerdida = ruc;
            g.gsModoPerdida = QStringLiteral("0");
            if (entorno)
                entorno->abrirPerdida();
        } else if (Index == 1) {
            if (sinFilas)
                return;
            g.gsRucPerdida = ruc;
            g.gsModoPerdida = QStringLiteral("1");
            g.gsAnhoPerdida = fila.first;
            g.gsImportePerdida = fila.second;
            if (entorno)
                entorno->abrirPerdida();
        } else if (Index == 2) {
            if (sinFilas)
                return;
            if (MsgBox(Texto::ConfirmaEliminar, vbYesNo + vbQuestion + vbDefaultButton2, Caption) == vbYes)
                ejecutar(QStringLiteral("DELETE FROM F0931_PTCEA") + kCadenaTrabajo + QStringLiteral(" AND ANHO=?"),
                         {ruc, g.gsPeriodo, g.gsFormulario, fila.first});
        }
        SSTab4_Click(SSTab4.Tab);
    } catch (const ErrorVB& e) {
        mostrarError(e);
    }
}
