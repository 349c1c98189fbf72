// The pickers of declarations on the screen. A declaration typed, saved and opened again from
// the picker is in tests/escenarios.
#include "comun/base_prueba.h"
#include "register/vista/frmcontabrir.h"
#include "register/vista/frmcontabrirenv.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "shell/vista/ventanas.h"
#include "store/base.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include <memory>

namespace {

void declaracion(const QString& ruc, const QString& periodo)
{
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, ESTADO, cNumero)"
                            " VALUES (6, ?, ?, '0931', 0, '123456')"),
             {ruc, periodo});
    ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR, cNumero)"
                            " VALUES (6, ?, ?, '0931', '500', '1', '123456')"),
             {ruc, periodo});
}

QStringList filaDeGrilla(QTableWidget* g, int fila)
{
    QStringList l;
    for (int c = 0; c < g->columnCount(); ++c)
        l << (g->item(fila, c) ? g->item(fila, c)->text() : QString());
    return l;
}

}  // namespace

class PruebaFrmContAbrir : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;
    RespondedorGuion& respondedor() { return familia->respondedor(); }

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        instalarAbridores({});
    }

    void cleanup()
    {
        instalarAbridores({});
        familia.reset();
    }

    // The sent picker on the screen: the correlative column hidden, and of two sent copies of
    // one period, the deletion takes only the picked one.
    void losEnviadosSeBorranPorCorrelativo()
    {
        for (const char* correl : {"01", "02"}) {
            ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, NORDEN, CONTROL)"
                                    " VALUES (6, ?, '202608', '0931', ?, '12345678', '999')"),
                     {DatosDemo::kRucAndina, QString::fromLatin1(correl)});
        }
        G().giOpcion = 3;
        G().gsPeriodo = QStringLiteral("202608");
        FrmContAbrirEnvVista v;
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(v.windowTitle(), QStringLiteral("Eliminar Declaraciones Enviadas"));
        QCOMPARE(v.CmdOpciones[0]->text(), QStringLiteral("&Eliminar"));
        QVERIFY(v.grdContrib->isColumnHidden(7));
        QCOMPARE(v.grdContrib->rowCount(), 2);
        v.grdContrib->setCurrentCell(1, 0);
        const QString elegido = v.grdContrib->item(1, 7)->text();
        respondedor().respuestas << vbYes;
        QTest::mouseClick(v.CmdOpciones[0], Qt::LeftButton);
        QCOMPARE(respondedor().textos().last(), QStringLiteral("¿Confirma que va a eliminar la declaración seleccionada?"));
        QCOMPARE(v.grdContrib->rowCount(), 1);
        QVERIFY(v.grdContrib->item(0, 7)->text() != elegido);
    }

    // The grid mirrors the list; the cursor moves the status bar; a double click acts; a
    // deletion asks and takes the row away.
    void laGrillaSigueAlModeloYActua()
    {
        declaracion(DatosDemo::kRucPacifico, QStringLiteral("202608"));
        declaracion(DatosDemo::kRucAndina, QStringLiteral("202605"));
        FrmContAbrirVista v(3);
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QCOMPARE(v.windowTitle(), QStringLiteral("Eliminar Declaraciones"));
        QCOMPARE(v.Label1->text(), QStringLiteral("Seleccione la Declaración que desea eliminar :"));
        QCOMPARE(v.CmdOpciones[0]->text(), QStringLiteral("&Eliminar"));
        QCOMPARE(v.grdContrib->horizontalHeaderItem(1)->text(), QStringLiteral("Razón Social"));
        QCOMPARE(filaDeGrilla(v.grdContrib, 0), (QStringList{DatosDemo::kRucAndina, DatosDemo::kNombreAndina,
                                                             QStringLiteral("202605"), QStringLiteral("0931")}));
        v.grdContrib->setCurrentCell(1, 1);
        QCOMPARE(barraEstado().PanelRuc, DatosDemo::kRucPacifico);
        QCOMPARE(barraEstado().PanelPeriodo, QStringLiteral("2026/08"));

        respondedor().respuestas << vbNo << vbYes;
        const QRect celda = v.grdContrib->visualItemRect(v.grdContrib->item(1, 0));
        QTest::mouseClick(v.grdContrib->viewport(), Qt::LeftButton, {}, celda.center());
        QTest::mouseDClick(v.grdContrib->viewport(), Qt::LeftButton, {}, celda.center());
        QCOMPARE(respondedor().mostrados.size(), 1);
        QCOMPARE(v.grdContrib->rowCount(), 2);
        QTest::mouseClick(v.CmdOpciones[0], Qt::LeftButton);
        QCOMPARE(v.grdContrib->rowCount(), 1);
        QCOMPARE(filaDeGrilla(v.grdContrib, 0).first(), DatosDemo::kRucAndina);
        QTest::mouseClick(v.CmdOpciones[1], Qt::LeftButton);
        QVERIFY(!v.isVisible());
        QCOMPARE(barraEstado().PanelRuc, QString());
    }
};

QTEST_MAIN(PruebaFrmContAbrir)
#include "frmcontabrir.moc"
