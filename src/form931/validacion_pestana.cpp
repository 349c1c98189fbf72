// The check on leaving the identification: one message box for the first fault, with the
// focus on the control that has to be answered.
#include "form931/frm931.h"

#include "basic/msgbox.h"
#include "basic/texto.h"
#include "store/funciones.h"

#include <QDate>

void Frm931::ValidaContForm1(bool& bOk)
{
    bOk = false;
    auto falla = [this](const QString& texto, const QString& control) {
        MsgBox(texto, vbCritical + vbOKOnly, Caption);
        if (!control.isEmpty())
            darFoco(control);
    };
    const QString tel = TxtTelefono.Text;
    const int largo = Len(tel);

    if (miModo == 0 && Trim(Left(CmbRuc.Text(), 11)).isEmpty())
        return falla(QStringLiteral("Debe seleccionar un Contribuyente."), QStringLiteral("CmbRuc"));
    if (largo >= 1 && largo <= 5)
        return falla(QStringLiteral("Ingrese su número de teléfono o un número de referencia."), QStringLiteral("TxtTelefono"));
    if (largo == 8 && Left(tel, 1) != QLatin1String("9"))
        return falla(QStringLiteral("El número ingresado debe ser de 7 digitos, o un celular de 8 o 7 digitos."),
                     QStringLiteral("TxtTelefono"));
    if (Left(tel, 1) == QLatin1String("9") && largo < 7)
        return falla(QStringLiteral("El celular ingresado debe ser de 8 o 7 digitos."), QStringLiteral("TxtTelefono"));
    if (!optRenta.contestado())
        return falla(QStringLiteral("Debe señalar el regimen de renta"),
                     TxtTelefono.Enabled ? QStringLiteral("TxtTelefono") : QString());
    if (optRenta.valor(0) && !OptPersona.contestado())
        return falla(QStringLiteral("Seleccione el tipo de persona"), QStringLiteral("OptPersona"));
    if (optRenta.valor(1)) {
        const QString fecha = MkePeriodo.Text;
        if (!FechaNoFutura(fecha))
            return falla(QStringLiteral("Registre la fecha correctamente."), QStringLiteral("MkePeriodo"));
        if (!ValidaPeriodo(fecha) || !QDate::fromString(fecha, QStringLiteral("dd/MM/yyyy")).isValid()
            || fecha == QLatin1String("__/__/____"))
            return falla(QStringLiteral("El año de la fecha del formulario 4888 debe corresponder al año de la presentación"),
                         QStringLiteral("MkePeriodo"));
    }
    if (optRenta.valor(2)) {
        if (marcos.value(QStringLiteral("Frame19")).Enabled && !OptLeyAmazonia.contestado())
            return falla(QStringLiteral("Señale si tiene acogimiento a la ley de amazonía."), QStringLiteral("OptLeyAmazonia"));
        if (marcos.value(QStringLiteral("Frame21")).Enabled && !OptUbicAmazonia.contestado())
            return falla(QStringLiteral("Señale si esta ubicado en la amazonía."), QStringLiteral("OptUbicAmazonia"));
        const bool ambosNo = OptLeyAmazonia.valor(0) && OptUbicAmazonia.valor(0);
        if (!ambosNo && (OptLeyAmazonia.valor(1) || OptUbicAmazonia.valor(1))) {
            if (OptDomFiscal.valor(1)) {
                if (!OptZona.contestado())
                    return falla(QStringLiteral("Señale la zona a la que corresponde su domicilio."), QStringLiteral("OptZona"));
                if (Trim(TxtUbigeo.Text).isEmpty())
                    return falla(QStringLiteral("Señale el ubigeo al que corresponde su zona."), QStringLiteral("CmdZona1"));
            } else if (!OptDomFiscal.contestado()) {
                return falla(QStringLiteral("Indique si su domicilio fiscal se encuentra ubicado en la Amazonia y coincide con el lugar donde tiene su administración y contabilidad."),
                             QStringLiteral("OptDomFiscal"));
            }
        }
    }
    if (optRenta.valor(3)) {
        if (!OptActividad.contestado())
            return falla(QStringLiteral("Señale si se dedica a la actividad industrial."), QStringLiteral("OptActividad"));
        if (OptActividad.valor(1) && OptFrontera.valor(1) && Trim(TxtUbigeo2.Text).isEmpty())
            return falla(QStringLiteral("Señale el ubigeo al que corresponde la zona de frontera."), QStringLiteral("CmdZona2"));
        if (OptActividad.valor(1) && !OptFrontera.contestado())
            return falla(QStringLiteral("Indique si su domicilio fiscal se encuentra ubicado en la Zona de frontera  y coincide con el lugar donde tiene su administración y contabilidad."),
                         QStringLiteral("OptFrontera"));
    }
    if (optRenta.valor(4)) {
        if (OptConvEstab.seleccionado() < 1) {
            TxtNumOrdenF2305.Enabled = true;
            TxtNumOrdenF2305.BackColor = kBlanco;
            return falla(QStringLiteral("Señale el tipo de convenio de estabilidad"), QStringLiteral("TxtNumOrdenF2305"));
        }
        if (Trim(TxtNumOrdenF2305.Text).isEmpty())
            return falla(QStringLiteral("Registre correctamente el número de orden del formulario 2305"),
                         QStringLiteral("TxtNumOrdenF2305"));
    }
    if (!OptInicio.contestado())
        return falla(QStringLiteral("Señale el inicio de actividades en el ejercicio"), QStringLiteral("OptInicio"));
    if (OptInicio.valor(0)) {
        if (!OptPrecedente.contestado())
            return falla(QStringLiteral("Indique si obtuvo utilidad o pérdida en el Ejercicio precedente al anterior"),
                         QStringLiteral("OptPrecedente"));
        if (!OptAnterior.contestado())
            return falla(QStringLiteral("Indique si obtuvo utilidad o pérdida en el Ejercicio anterior"),
                         QStringLiteral("OptAnterior"));
    }
    // The MYPE Tributario regime is exempt here, and only here.
    if (!optRenta.valor(5) && CboBalance.ListIndex == -1)
        return falla(QStringLiteral("Seleccione el mes al que debe corresponder la presentación del balance"),
                     QStringLiteral("CboBalance"));
    bOk = true;
}
