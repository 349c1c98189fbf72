#include "dialogs/perdida.h"

#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QSqlQuery>

namespace {

const QString kAnhoInvalido = QStringLiteral("El año no es válido.");
const QString kFaltaImporte = QStringLiteral("Ingrese el Importe de la pérdida consignada en la DDJJ Anual");
const QString kAnhoRepetido = QStringLiteral("Ya se registro importe para el año ");

// Whether the declaration in hand already has a row for the year.
bool existeFila(const QString& anho)
{
    const Globales& g = G();
    QSqlQuery q = ejecutar(QStringLiteral("SELECT Anho FROM F0931_PTCEA WHERE DOC_ID_D=? AND TIP_DOC_D=6"
                                          " AND PERIODO=? AND FORMULARIO=? AND ANHO=?"),
                           {g.gsRucPerdida, g.gsPeriodo, g.gsFormulario, anho});
    return q.next();
}

}  // namespace

bool FrmPerdidaEjercAnt::anhoValido(const QString& anho)
{
    const double a = Val(anho);
    return a >= 1950 && a <= Hoy().year() - 1;
}

void FrmPerdidaEjercAnt::Form_Load()
{
    MkeAnho.Enabled = G().gsModoPerdida != QLatin1String("1");
}

void FrmPerdidaEjercAnt::Form_Activate()
{
    const Globales& g = G();
    if (g.gsModoPerdida == QLatin1String("1")) {
        MkeAnho.Text = g.gsAnhoPerdida;
        txtImporte.Text = g.gsImportePerdida;
        foco = QStringLiteral("txtImporte");
    } else {
        foco = QStringLiteral("MkeAnho");
    }
}

bool FrmPerdidaEjercAnt::validarAnho()
{
    if (anhoValido(MkeAnho.Text))
        return true;
    MsgBox(kAnhoInvalido, vbCritical, Caption);
    foco = QStringLiteral("MkeAnho");
    return false;
}

void FrmPerdidaEjercAnt::MkeAnho_LostFocus()
{
    if (!MkeAnho.Text.contains(QLatin1Char('_')))
        validarAnho();
}

void FrmPerdidaEjercAnt::txtImporte_GotFocus()
{
    txtImporte.MaxLength = 12;
    txtImporte.Text = Format(txtImporte.Text, kSinSeparadores);
}

void FrmPerdidaEjercAnt::txtImporte_LostFocus()
{
    txtImporte.Text = Format(txtImporte.Text, kConSeparadores);
    txtImporte.MaxLength = 15;
}

void FrmPerdidaEjercAnt::cmdAccion_Click(int Index)
{
    if (Index == 1) {
        cerrado = true;
        return;
    }
    if (Index != 0 || !validarAnho())
        return;
    if (Trim(txtImporte.Text).isEmpty()) {
        MsgBox(kFaltaImporte, vbCritical, Caption);
        foco = QStringLiteral("txtImporte");
        return;
    }
    const Globales& g = G();
    const QString importe = Format(Trim(txtImporte.Text), kSinSeparadores);
    if (g.gsModoPerdida == QLatin1String("1")) {
        if (existeFila(g.gsAnhoPerdida)) {
            const QString codigo = CodigoFila(QVariantList{6, g.gsRucPerdida, g.gsPeriodo, g.gsFormulario,
                                                           g.gsAnhoPerdida, importe, QVariant()}, 5);
            ejecutar(QStringLiteral("UPDATE F0931_PTCEA SET Importe=?, cNumero=? WHERE DOC_ID_D=? AND TIP_DOC_D=6"
                                    " AND PERIODO=? AND FORMULARIO=? AND ANHO=?"),
                     {importe, codigo, g.gsRucPerdida, g.gsPeriodo, g.gsFormulario, g.gsAnhoPerdida});
        }
        cerrado = true;
    } else if (g.gsModoPerdida == QLatin1String("0")) {
        const QString anho = MkeAnho.Text;
        if (existeFila(anho)) {
            MsgBox(kAnhoRepetido + anho, vbCritical, Caption);
            return;
        }
        const QVariantList fila{6, g.gsRucPerdida, g.gsPeriodo, g.gsFormulario, anho, importe};
        ejecutar(QStringLiteral("INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe, cNumero)"
                                " VALUES (?, ?, ?, ?, ?, ?, ?)"),
                 fila + QVariantList{CodigoFila(fila + QVariantList{QVariant()}, 5)});
        cerrado = true;
    }
}
