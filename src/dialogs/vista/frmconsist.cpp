#include "dialogs/vista/frmconsist.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "dialogs/consist.h"
#include "shell/globales.h"
#include "shell/vista/puntero.h"

#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

VistaFrmConsist::VistaFrmConsist(FrmConsist& modelo, QWidget* padre) : QDialog(padre), modelo_(modelo)
{
    setObjectName(QStringLiteral("FrmConsist"));
    setWindowTitle(modelo_.Caption);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);

    Label1 = new QLabel(modelo_.Label1, this);
    Label1->setObjectName(QStringLiteral("Label1"));

    TxtPreliminar = new QPlainTextEdit(this);
    TxtPreliminar->setObjectName(QStringLiteral("TxtPreliminar"));
    TxtPreliminar->setReadOnly(true);
    TxtPreliminar->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont fija(QStringLiteral("Courier New"));
    fija.setStyleHint(QFont::TypeWriter);
    TxtPreliminar->setFont(fija);
    TxtPreliminar->setPlainText(modelo_.TxtPreliminar);

    CmdGrabar = new QPushButton(modelo_.CmdGrabarCaption, this);
    CmdGrabar->setObjectName(QStringLiteral("CmdGrabar"));
    CmdGrabar->setDefault(true);
    cmdImprimir = new QPushButton(modelo_.cmdImprimirCaption, this);
    cmdImprimir->setObjectName(QStringLiteral("cmdImprimir"));

    connect(CmdGrabar, &QPushButton::clicked, this, [this] {
        modelo_.CmdGrabar_Click();
        descargado_ = true;
        if (modelo_.cerrado)
            accept();
    });
    connect(cmdImprimir, &QPushButton::clicked, this, [this] {
        fijarPunteroEspera(true);
        modelo_.cmdImprimir_Click();
        fijarPunteroEspera(false);
    });

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(CmdGrabar);
    botones->addWidget(cmdImprimir);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Label1);
    todo->addWidget(TxtPreliminar, 1);
    todo->addLayout(botones);
    resize(640, 420);
}

void VistaFrmConsist::done(int resultado)
{
    if (!descargado_) {
        descargado_ = true;
        modelo_.Form_Unload();
    }
    QDialog::done(resultado);
}

void abrirFrmConsist(QWidget* padre)
{
    FrmConsist modelo;
    try {
        modelo.Form_Load();
    } catch (const ErrorVB& e) {
        modelo.Form_Unload();
        MsgBox(e.descripcion + QStringLiteral("\n") + Str(e.numero), vbCritical, QStringLiteral("Error"));
        return;
    }
    VistaFrmConsist vista(modelo, padre);
    vista.exec();
}
