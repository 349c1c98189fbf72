// The loss window in the change mode: the year shut, the row shown, the focus on the amount.
// Typing a new row by keyboard is in tests/escenarios.
#include "comun/base_prueba.h"

#include "dialogs/vista/frmperdida.h"
#include "shell/globales.h"

#include <QLineEdit>
#include <QtTest/QtTest>

class PruebaFrmPerdida : public QObject {
    Q_OBJECT

private slots:
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
