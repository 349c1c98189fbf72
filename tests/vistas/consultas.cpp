// The lookup windows on the offscreen platform: caption and columns of each, the factor grid
// disabled when its catalogue is empty, the opener's modal window, the fixed table of rates.
#include "comun/base_prueba.h"

#include "dialogs/consultas.h"
#include "dialogs/vista/frmconsultas.h"
#include "shell/globales.h"
#include "shell/vista/ventanas.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QtTest/QtTest>

namespace {

QString captionYColumnas(QWidget* w)
{
    auto* t = w->findChild<QTableView*>(QStringLiteral("grdBancos"));
    return w->windowTitle() + QLatin1Char(':') + t->model()->headerData(0, Qt::Horizontal).toString()
           + QLatin1Char('/') + t->model()->headerData(1, Qt::Horizontal).toString();
}

}  // namespace

class PruebaConsultas : public QObject {
    Q_OBJECT

private slots:
    void factoresVaciosInhabilitanLaGrilla()
    {
        FamiliaPrueba familia;
        FrmConsFac modelo;
        modelo.Form_Load();
        VistaFrmConsFac v(modelo);
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(captionYColumnas(&v), QStringLiteral("Factores de Actualización:Mes/Factor"));
        QVERIFY(!v.grdBancos->isEnabled());
        QVERIFY(familia.respondedor().mostrados.isEmpty());
    }

    // Through the menu's opener: a modal window, no hourglass left while it is shown, "&Salir" closes.
    void elAbridorMuestraLaConsultaDelModo()
    {
        FamiliaPrueba familia;
        G().giOpcion = 3;
        QString vista;
        QTimer::singleShot(0, [&vista] {
            QWidget* w = QApplication::activeModalWidget();
            if (!w)
                return;
            vista = captionYColumnas(w) + (QApplication::overrideCursor() ? QStringLiteral(" (reloj)") : QString())
                    + (w->findChild<QTableView*>()->isEnabled() ? QString() : QStringLiteral(" (inhabilitada)"));
            w->findChild<QPushButton*>(QStringLiteral("CmdSalir"))->click();
        });
        abrirFrmConsultas();
        QCOMPARE(vista, QStringLiteral("UIT:Periodo/Valor"));
    }

    void tasasVigentes()
    {
        VistaFrmConsTasas v;
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(v.windowTitle(), QStringLiteral("Tasas Vigentes"));
        QCOMPARE(v.lblTasas.size(), 12);
        QCOMPARE(v.lblTasas[2]->text(), QStringLiteral("   Acogido a la ley de Promoción Agraria(F4888)"));
        QTest::mouseClick(v.Command1, Qt::LeftButton);
        QVERIFY(!v.isVisible());
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }
};

QTEST_MAIN(PruebaConsultas)
#include "consultas.moc"
