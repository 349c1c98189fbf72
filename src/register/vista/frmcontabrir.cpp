#include "register/vista/frmcontabrir.h"

#include <QPointer>

#include "shell/vista/ventanas.h"

QStringList textosFila(const FilaContAbrir& f)
{
    return {f.ruc, f.nombre, f.periodo, f.formulario};
}

FrmContAbrirVista::FrmContAbrirVista(qint16 nOpcion, QWidget* padre)
    : SelectorDe(QStringLiteral("FrmContAbrir"), FrmContAbrir::columnas(), {100, 260, 70}, 7755, 4530, padre, nOpcion)
{
    iniciar();
}

void abrirFrmContAbrir(qint16 nOpcion)
{
    static QPointer<FrmContAbrirVista> instancia;
    delete instancia;
    instancia = new FrmContAbrirVista(nOpcion, ventanaPrincipal());
    instancia->exec();
    delete instancia;
}
