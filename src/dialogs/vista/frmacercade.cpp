#include "dialogs/vista/frmacercade.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QTextEdit>
#include <QVBoxLayout>

#include "shell/vista/puntero.h"
#include "shell/vista/ventanas.h"

namespace {

QLineEdit* textoFijo(const QString& nombre, const QString& texto, QWidget* padre)
{
    auto* t = new QLineEdit(texto, padre);
    t->setObjectName(nombre);
    t->setReadOnly(true);
    t->setFrame(false);
    t->setFocusPolicy(Qt::NoFocus);
    t->setStyleSheet(QStringLiteral("background: transparent;"));
    return t;
}

}  // namespace

frmAcercade::frmAcercade(QWidget* padre) : QDialog(padre)
{
    setObjectName(QStringLiteral("frmAcercade"));
    setWindowTitle(QStringLiteral("Acerca de QVL"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);

    SSPanel1 = new QFrame(this);
    SSPanel1->setObjectName(QStringLiteral("SSPanel1"));
    SSPanel1->setFrameStyle(QFrame::Panel | QFrame::Raised);
    SSPanel1->setLineWidth(2);

    Image1 = new QLabel(SSPanel1);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(style()->standardIcon(QStyle::SP_FileDialogInfoView).pixmap(48, 48));
    Image1->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

    Text1 = textoFijo(QStringLiteral("Text1"), QStringLiteral("Formulario 0931"), SSPanel1);
    QFont grande = Text1->font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() * 1.3);
    Text1->setFont(grande);

    txtVersion = textoFijo(QStringLiteral("txtVersion"), QString(), SSPanel1);

    Text2 = new QTextEdit(SSPanel1);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setReadOnly(true);
    Text2->setFrameStyle(QFrame::NoFrame);
    Text2->setFocusPolicy(Qt::NoFocus);
    Text2->setStyleSheet(QStringLiteral("background: transparent;"));
    Text2->setPlainText(QStringLiteral(
        "Modificación de coeficiente o porcentaje de los pagos a cuenta del Impuesto a la Renta.\n\n"
        "Permite preparar la solicitud a partir del balance acumulado, verificar sus datos, "
        "guardarla en la base del Programa Qualvia e imprimirla."));
    Text2->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Text2->setFixedHeight(112);

    Text4 = textoFijo(QStringLiteral("Text4"), QStringLiteral("Módulo del Programa Qualvia"), SSPanel1);

    auto* panel = new QGridLayout(SSPanel1);
    panel->addWidget(Image1, 0, 0, 4, 1);
    panel->addWidget(Text1, 0, 1);
    panel->addWidget(txtVersion, 1, 1);
    panel->addWidget(Text2, 2, 1);
    panel->addWidget(Text4, 3, 1);
    panel->setColumnStretch(1, 1);

    cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    cmdAceptar->setObjectName(QStringLiteral("cmdAceptar"));
    cmdAceptar->setDefault(true);
    connect(cmdAceptar, &QPushButton::clicked, this, &QDialog::accept);

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdAceptar);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(SSPanel1);
    todo->addLayout(botones);
    setFixedSize(460, 280);

    Form_Load();
}

void frmAcercade::Form_Load()
{
    txtVersion->setText(QStringLiteral("Versión 1.6"));
    fijarPunteroEspera(false);
}

void frmAcercade::showEvent(QShowEvent* e)
{
    // Centred on the main window (on the screen when there is none).
    if (QWidget* p = parentWidget() ? parentWidget()->window() : nullptr) {
        const QRect r = p->frameGeometry();
        move(r.center() - QPoint(width() / 2, height() / 2));
    }
    QDialog::showEvent(e);
}

void abrirFrmAcercade()
{
    static QPointer<frmAcercade> instancia;
    delete instancia;
    instancia = new frmAcercade(ventanaPrincipal());
    instancia->exec();
    delete instancia;
}
