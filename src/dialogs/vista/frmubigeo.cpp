// The geographic-code picker window.
#include "dialogs/vista/frmubigeo.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "family/vista/ubigeoqvl.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

frmUbigeo::frmUbigeo(const QString& caption, QWidget* padre)
    : QDialog(padre), m_(caption)
{
    setObjectName(QStringLiteral("frmUbigeo"));
    setModal(true);
    setWindowTitle(caption);
    try {
        m_.Form_Load();
    } catch (const ErrorVB& e) {
        MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
    }

    auto* v = new QVBoxLayout(this);
    UbigeoQVL1 = new UbigeoQVL;
    UbigeoQVL1->setObjectName(QStringLiteral("UbigeoQVL1"));
    UbigeoQVL1->setProperty("Filtro0", m_.Filtro0);
    UbigeoQVL1->setProperty("Filtro1", m_.Filtro1);
    UbigeoQVL1->setProperty("Filtro2", m_.Filtro2);
    UbigeoQVL1->setProperty("Filtro3", m_.Filtro3);
    UbigeoQVL1->setCodigoUbigeo(m_.CodigoUbigeo());
    v->addWidget(UbigeoQVL1);

    auto* botones = new QDialogButtonBox;
    for (int i = 0; i < 2; ++i) {
        cmdAccion[i] = botones->addButton(FrmUbigeo::captionAccion(i),
                                          i == 0 ? QDialogButtonBox::AcceptRole : QDialogButtonBox::RejectRole);
        cmdAccion[i]->setObjectName(QStringLiteral("cmdAccion(%1)").arg(i));
        cmdAccion[i]->setAutoDefault(false);
        connect(cmdAccion[i], &QPushButton::clicked, this, [this, i] { accion(i); });
    }
    cmdAccion[0]->setDefault(true);
    v->addWidget(botones);
}

void frmUbigeo::accion(int indice)
{
    try {
        if (indice == 0)
            m_.setCodigoUbigeo(UbigeoQVL1->CodigoUbigeo());
        m_.cmdAccion_Click(indice);
    } catch (const ErrorVB& e) {
        MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
    }
    if (m_.cerrado)
        done(indice == 0 ? QDialog::Accepted : QDialog::Rejected);
}

void frmUbigeo::reject()
{
    accion(1);
}
