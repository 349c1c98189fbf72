#pragma once
// A user at the declaration window: goes to the page that holds a control, clicks it, types over
// a box, picks a line of a list. Only for widget tests.
#include "form931/controles.h"
#include "form931/frm931.h"
#include "form931/vista/frm931vista.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

namespace usuario {

inline QTabWidget* pestanas(Frm931Vista* vista, const QString& nombre)
{
    return vista->findChild<QTabWidget*>(nombre);
}

// Shows the control's pages, as the user clicks their tabs (and the asset side's stop).
inline void irA(Frm931Vista* vista, const QString& control)
{
    const Frm931::UbicacionControl u = Frm931::ubicacion(control);
    if (u.paginaSSTab1 >= 0)
        pestanas(vista, QStringLiteral("SSTab1"))->setCurrentIndex(u.paginaSSTab1);
    if (!u.subTab.isEmpty())
        pestanas(vista, u.subTab)->setCurrentIndex(u.paginaSub);
    const int n = Frm931::casillaDeNombre(control);
    auto* barra = vista->findChild<QScrollBar*>(QStringLiteral("VScroll1"));
    if (n >= 500 && n <= 515 && barra->value() != 1)
        barra->setValue(1);
    if (n >= 516 && n <= 531 && barra->value() == 1)
        barra->setValue(15);
}

inline void clic(Frm931Vista* vista, const QString& control)
{
    irA(vista, control);
    QWidget* w = vista->control(control);
    QVERIFY2(w && w->isVisible() && w->isEnabled(), qPrintable(control));
    QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(8, w->height() / 2));
}

// Clicks into a box (a lost-focus rule may send the focus elsewhere: the user clicks again)
// and types over what it holds.
inline void teclear(Frm931Vista* vista, const QString& control, const QString& texto)
{
    irA(vista, control);
    auto* le = qobject_cast<QLineEdit*>(vista->control(control));
    QVERIFY2(le && le->isVisible() && le->isEnabled(), qPrintable(control));
    for (int i = 0; i < 2 && QApplication::focusWidget() != le; ++i)
        QTest::mouseClick(le, Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), le);
    le->selectAll();
    QTest::keyClicks(le, texto);
}

inline void elegirLinea(Frm931Vista* vista, const QString& control, int indice)
{
    irA(vista, control);
    auto* c = qobject_cast<QComboBox*>(vista->control(control));
    QVERIFY(c && c->isEnabled());
    c->setFocus(Qt::MouseFocusReason);
    c->setCurrentIndex(indice);
    emit c->activated(indice);
}

}  // namespace usuario
