// The loss window on the screen: typing a new row with Enter moving on, and the change mode.
#include "comun/base_prueba.h"

#include "dialogs/vista/frmperdida.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest/QtTest>

class PruebaFrmPerdida : public QObject {
    Q_OBJECT

private slots:
    void filaNuevaTecleada()
    {
        FamiliaPrueba familia;
        G().gsRucPerdida = QStringLiteral("20100001234");
        G().gsPeriodo = QStringLiteral("202605");
        G().gsModoPerdida = QStringLiteral("0");
        frmPerdidaEjercAnt v;
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(v.windowTitle(), QStringLiteral("Pérdida tributaria compensable de Ejercicios anteriores"));
        QCOMPARE(v.Frame1->title(), QStringLiteral("Año e Importe"));
        QCOMPARE(v.cmdAccion[0]->text(), QStringLiteral("&Aceptar"));
        QCOMPARE(v.cmdAccion[1]->text(), QStringLiteral("&Salir"));
        QCOMPARE(v.MkeAnho->displayText(), QStringLiteral("____"));
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(v.MkeAnho));

        QTest::keyClicks(v.MkeAnho, QStringLiteral("2015"));
        QTest::keyClick(v.MkeAnho, Qt::Key_Return);
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(v.txtImporte));
        QTest::keyClicks(v.txtImporte, QStringLiteral("12a34"));
        QCOMPARE(v.txtImporte->text(), QStringLiteral("1234"));
        QTest::keyClick(v.txtImporte, Qt::Key_Return);
        QCOMPARE(v.txtImporte->text(), QStringLiteral("1,234"));
        QCOMPARE(v.txtImporte->maxLength(), 15);
        v.cmdAccion[0]->click();
        QCOMPARE(v.result(), int(QDialog::Accepted));
        QCOMPARE(escalar(QStringLiteral("SELECT Anho || '=' || Importe FROM F0931_PTCEA")).toString(),
                 QStringLiteral("2015=1234"));
        QVERIFY(familia.respondedor().textos().isEmpty());
    }

    void cambioMuestraLaFilaSinDejarTocarElAnho()
    {
        FamiliaPrueba familia;
        G().gsModoPerdida = QStringLiteral("1");
        G().gsAnhoPerdida = QStringLiteral("2010");
        G().gsImportePerdida = QStringLiteral("500");
        frmPerdidaEjercAnt v;
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QVERIFY(!v.MkeAnho->isEnabled());
        QCOMPARE(v.MkeAnho->text(), QStringLiteral("2010"));
        QCOMPARE(v.txtImporte->text(), QStringLiteral("500"));
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(v.txtImporte));
    }
};

QTEST_MAIN(PruebaFrmPerdida)
#include "frmperdida.moc"
