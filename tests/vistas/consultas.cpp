// The lookup windows on the offscreen platform: caption and columns of each, the grid disabled
// when the catalogue is empty, "Salir" closing, and the fixed table of rates.
#include "comun/base_prueba.h"

#include "dialogs/consultas.h"
#include "dialogs/vista/frmconsultas.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QtTest/QtTest>

namespace {

QStringList cabeceras(QTableView* t)
{
    QStringList c;
    for (int i = 0; i < t->model()->columnCount(); ++i)
        c << t->model()->headerData(i, Qt::Horizontal).toString();
    return c;
}

}  // namespace

class PruebaConsultas : public QObject {
    Q_OBJECT

private slots:
    void consultasPorModo_data()
    {
        QTest::addColumn<int>("opcion");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QStringList>("columnas");
        QTest::newRow("bancos") << 1 << "Bancos" << QStringList{"Código", "Descripción"};
        QTest::newRow("paises") << 2 << "Paises" << QStringList{"Código", "Descripción"};
        QTest::newRow("uit") << 3 << "UIT" << QStringList{"Periodo", "Valor"};
    }

    void consultasPorModo()
    {
        QFETCH(int, opcion);
        QFETCH(QString, caption);
        QFETCH(QStringList, columnas);
        FamiliaPrueba familia;
        G().giOpcion = qint16(opcion);
        FrmConsultas modelo;
        modelo.Form_Load();
        VistaFrmConsultas v(modelo);
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(v.windowTitle(), caption);
        QCOMPARE(cabeceras(v.grdBancos), columnas);
        QCOMPARE(v.grdBancos->model()->rowCount(), modelo.filas.size());
        QVERIFY(v.grdBancos->isEnabled());
        QCOMPARE(v.grdBancos->model()->index(0, 0).data().toString(), modelo.filas.first().codigo);
        QCOMPARE(v.CmdSalir->text(), QStringLiteral("&Salir"));
        QTest::mouseClick(v.CmdSalir, Qt::LeftButton);
        QVERIFY(!v.isVisible());
    }

    void factoresVaciosInhabilitanLaGrilla()
    {
        FamiliaPrueba familia;
        FrmConsFac modelo;
        modelo.Form_Load();
        VistaFrmConsFac v(modelo);
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(v.windowTitle(), QStringLiteral("Factores de Actualización"));
        QCOMPARE(cabeceras(v.grdBancos), (QStringList{"Mes", "Factor"}));
        QCOMPARE(v.grdBancos->model()->rowCount(), 0);
        QVERIFY(!v.grdBancos->isEnabled());
        QVERIFY(familia.respondedor().mostrados.isEmpty());
    }

    void factoresConFilasTomanElFoco()
    {
        FamiliaPrueba familia;
        ejecutar(QStringLiteral("INSERT INTO PARAM (Numero, Argumento, Funcion) VALUES (?, ?, ?)"),
                 {QStringLiteral("975"), QStringLiteral("201305"), QStringLiteral("1.0234")});
        FrmConsFac modelo;
        modelo.Form_Load();
        VistaFrmConsFac v(modelo);
        v.show();
        v.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&v));
        QVERIFY(v.grdBancos->isEnabled());
        QTRY_VERIFY(v.grdBancos->hasFocus());
        QCOMPARE(v.grdBancos->model()->index(0, 0).data().toString(), QStringLiteral("05/2013"));
        QCOMPARE(v.grdBancos->model()->index(0, 1).data().toString(), QStringLiteral("1.023"));
    }

    void tasasVigentes()
    {
        VistaFrmConsTasas v;
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(v.windowTitle(), QStringLiteral("Tasas Vigentes"));
        QCOMPARE(v.lblTasas.size(), 12);
        QCOMPARE(v.lblTasas[2]->text(), QStringLiteral("   Acogido a la ley de Promoción Agraria(F4888)"));
        QCOMPARE(v.lblTasas[11]->text(), QStringLiteral("variable"));
        QCOMPARE(v.Command1->text(), QStringLiteral("&Salir"));
        QTest::mouseClick(v.Command1, Qt::LeftButton);
        QVERIFY(!v.isVisible());
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }
};

QTEST_MAIN(PruebaConsultas)
#include "consultas.moc"
