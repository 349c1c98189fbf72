// The factor lookup on the offscreen platform: the factors on their grid or, with an empty
// catalogue, the label that says so.
#include "comun/base_prueba.h"

#include "dialogs/consultas.h"
#include "dialogs/vista/frmconsultas.h"
#include "shell/vista/ventanas.h"
#include "store/base.h"

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
    void factoresVaciosLoDiceUnaEtiqueta()
    {
        FamiliaPrueba familia;
        FrmConsFac modelo;
        modelo.Form_Load();
        VistaFrmConsFac v(modelo);
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(captionYColumnas(&v), QStringLiteral("Factores de Actualización:Mes/Factor"));
        QVERIFY(!v.grdBancos->isVisible());
        QVERIFY(v.lblVacio->isVisible());
        QCOMPARE(v.lblVacio->text(), QStringLiteral("No hay factores de actualización cargados en la base de datos."));
        QVERIFY(familia.respondedor().mostrados.isEmpty());
    }

    // Rows of catalogue "975" as the menu's opener shows them: month/year and the factor.
    void factoresCargadosSeVenEnLaGrilla()
    {
        FamiliaPrueba familia;
        for (const auto& [periodo, factor] : {std::pair{"202401", "1.0234"}, std::pair{"202312", "12.5"}})
            ejecutar(QStringLiteral("INSERT INTO PARAM (Numero, Argumento, Funcion) VALUES ('975', ?, ?)"),
                     {QString::fromLatin1(periodo), QString::fromLatin1(factor)});
        QStringList vista;
        QTimer::singleShot(0, [&vista] {
            QWidget* w = QApplication::activeModalWidget();
            if (!w)
                return;
            auto* grilla = w->findChild<QTableView*>(QStringLiteral("grdBancos"));
            for (int f = 0; f < grilla->model()->rowCount(); ++f)
                vista << grilla->model()->index(f, 0).data().toString() + QLatin1Char(' ')
                             + grilla->model()->index(f, 1).data().toString();
            if (!grilla->isVisible() || !grilla->isEnabled() || w->findChild<QLabel*>(QStringLiteral("lblVacio"))->isVisible())
                vista << QStringLiteral("(grilla oculta)");
            QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("CmdSalir")), Qt::LeftButton);
        });
        abrirFrmConsFac();
        QCOMPARE(vista, (QStringList{QStringLiteral("01/2024 1.023"), QStringLiteral("12/2023 12.500")}));
    }
};

QTEST_MAIN(PruebaConsultas)
#include "consultas.moc"
