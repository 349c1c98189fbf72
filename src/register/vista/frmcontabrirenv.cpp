#include "register/vista/frmcontabrirenv.h"

#include <QPointer>
#include <QTableWidget>

#include "shell/vista/ventanas.h"

QStringList textosFila(const FilaContAbrirEnv& f)
{
    QStringList t;
    for (int c = 0; c < 8; ++c)
        t << f.columna(c);
    return t;
}

FrmContAbrirEnvVista::FrmContAbrirEnvVista(QWidget* padre)
    : SelectorDe(QStringLiteral("FrmContAbrirEnv"), FrmContAbrirEnv::columnas(), {95, 230, 60, 70, 90, 80, 70, 50}, 9195,
                 4530, padre)
{
    iniciar();
}

void FrmContAbrirEnvVista::ajustarGrilla()
{
    grdContrib->setColumnHidden(7, m_.correlOculta);
    grdContrib->setEnabled(m_.habilitada);
}

void abrirFrmContAbrirEnv()
{
    static QPointer<FrmContAbrirEnvVista> instancia;
    delete instancia;
    instancia = new FrmContAbrirEnvVista(ventanaPrincipal());
    instancia->exec();
    delete instancia;
}
