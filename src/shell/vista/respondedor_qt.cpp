#include "shell/vista/respondedor_qt.h"

#include <QApplication>
#include <QCursor>
#include <QList>
#include <QMessageBox>
#include <QPushButton>

#include "shell/vista/ventanas.h"

namespace {

QMessageBox::Icon icono(int flags)
{
    switch (flags & 0x70) {
    case vbCritical: return QMessageBox::Critical;
    case vbQuestion: return QMessageBox::Question;
    case vbExclamation: return QMessageBox::Warning;
    case vbInformation: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

struct Boton {
    int resultado;
    QString texto;
    QMessageBox::ButtonRole papel;
};

QList<Boton> botones(int flags)
{
    const Boton ok{vbOK, QStringLiteral("Aceptar"), QMessageBox::AcceptRole};
    const Boton cancelar{vbCancel, QStringLiteral("Cancelar"), QMessageBox::RejectRole};
    const Boton si{vbYes, QStringLiteral("&Sí"), QMessageBox::YesRole};
    const Boton no{vbNo, QStringLiteral("&No"), QMessageBox::NoRole};
    switch (flags & 7) {
    case vbOKCancel: return {ok, cancelar};
    case vbYesNoCancel: return {si, no, cancelar};
    case vbYesNo: return {si, no};
    default: return {ok};
    }
}

}  // namespace

int RespondedorQt::MsgBox(const QString& texto, int flags, const QString& titulo)
{
    QWidget* padre = QApplication::activeModalWidget();
    if (!padre)
        padre = QApplication::activeWindow();
    if (!padre)
        padre = ventanaPrincipal();
    QMessageBox caja(icono(flags), titulo.isEmpty() ? QApplication::applicationName() : titulo, texto,
                     QMessageBox::NoButton, padre);
    const QList<Boton> lista = botones(flags);
    QList<QPushButton*> pulsables;
    for (const Boton& b : lista)
        pulsables << caja.addButton(b.texto, b.papel);
    const int defecto = (flags & vbDefaultButton3) ? 2 : (flags & vbDefaultButton2) ? 1 : 0;
    caja.setDefaultButton(pulsables.value(defecto < pulsables.size() ? defecto : 0));
    if (lista.size() == 1)
        caja.setEscapeButton(pulsables.first());
    else if (flags & 7 && lista.last().resultado == vbCancel)
        caja.setEscapeButton(pulsables.last());

    // The box is answered with the ordinary pointer, whatever the program was showing.
    QApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
    caja.exec();
    QApplication::restoreOverrideCursor();

    const int i = pulsables.indexOf(static_cast<QPushButton*>(caja.clickedButton()));
    if (i < 0)
        return lista.last().resultado == vbCancel ? vbCancel : lista.first().resultado;
    return lista[i].resultado;
}
