// The picker of working declarations on the screen, and a declaration that goes through the
// windows: typed, saved, closed, and opened again from the picker as it was.
#include "basic/reloj.h"
#include "comun/base_prueba.h"
#include "comun/usuario_vista.h"
#include "form931/frm931.h"
#include "form931/vista/frm931vista.h"
#include "register/vista/frmcontabrir.h"
#include "register/vista/frmcontabrirenv.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "shell/vista/ventanas.h"
#include "store/base.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

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

// What a window of the declaration shows, by the names of its controls.
QMap<QString, QString> loQueMuestra(QWidget* ventana)
{
    QMap<QString, QString> m;
    for (QLineEdit* le : ventana->findChildren<QLineEdit*>())
        if (!le->objectName().isEmpty() && !le->objectName().startsWith(QLatin1String("qt_")))
            m.insert(le->objectName(), le->displayText());
    for (QRadioButton* r : ventana->findChildren<QRadioButton*>())
        if (!r->objectName().isEmpty())
            m.insert(r->objectName(), r->isChecked() ? QStringLiteral("x") : QString());
    for (QComboBox* c : ventana->findChildren<QComboBox*>())
        if (!c->objectName().isEmpty())
            m.insert(c->objectName(), c->currentText());
    for (QLabel* l : ventana->findChildren<QLabel*>())
        if (l->objectName().startsWith(QLatin1String("lblTab2")) || l->objectName() == QLatin1String("LblSistema"))
            m.insert(l->objectName(), l->text());
    return m;
}

}  // namespace

class PruebaFrmContAbrir : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;
    RespondedorGuion& respondedor() { return familia->respondedor(); }

    // ------------------------------------------------------------ the declaration window
    Frm931Vista* vista = nullptr;
    Frm931* frm = nullptr;

    QTabWidget* pestanas(const QString& nombre) { return usuario::pestanas(vista, nombre); }

    void irA(const QString& control) { usuario::irA(vista, control); }
    void clic(const QString& control) { usuario::clic(vista, control); }
    void teclear(const QString& control, const QString& texto) { usuario::teclear(vista, control, texto); }
    void elegirLinea(const QString& control, int indice) { usuario::elegirLinea(vista, control, indice); }
    static int lineaQueEmpieza(const Lista& l, const QString& inicio) { return usuario::lineaQueEmpieza(l, inicio); }

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

    // A declaration typed in the window, saved and closed, then opened through "&Modificar",
    // shows every box, answer and caption as before (but for the few boxes whose stored value
    // the form shows in a display of its own, which read the same amount).
    void laDeclaracionGuardadaSeReabreComoEstaba()
    {
        familia->comoUsuario(DatosDemo::kContador);
        G().gsPeriodo = QString::number(Hoy().year());
        G().gsPeriodoSel.clear();
        QMap<QString, QString> antes;
        {
            EntornoQt entorno;
            Frm931 modelo(&entorno);
            modelo.Form_Load();
            Frm931Vista ventana(modelo);
            entorno.vista = &ventana;
            vista = &ventana;
            frm = &modelo;
            ventana.show();
            QVERIFY(QTest::qWaitForWindowActive(&ventana));

            elegirLinea(QStringLiteral("CmbRuc"), lineaQueEmpieza(modelo.CmbRuc, DatosDemo::kRucAndina));
            teclear(QStringLiteral("TxtTelefono"), QStringLiteral("4445555"));
            clic(QStringLiteral("optRenta(0)"));
            clic(QStringLiteral("OptPersona(1)"));
            clic(QStringLiteral("OptInicio(0)"));
            clic(QStringLiteral("OptPrecedente(1)"));
            clic(QStringLiteral("OptAnterior(0)"));
            elegirLinea(QStringLiteral("CboBalance"), 1);
            const QList<QPair<int, QString>> importes = {{500, QStringLiteral("25000")}, {508, QStringLiteral("1200")},
                                                         {523, QStringLiteral("8000")}, {532, QStringLiteral("4000")},
                                                         {544, QStringLiteral("20000")}, {552, QStringLiteral("7800")},
                                                         {461, QStringLiteral("480000")}, {464, QStringLiteral("210000")},
                                                         {469, QStringLiteral("45000")}, {481, QStringLiteral("700")},
                                                         {103, QStringLiteral("4000")}, {105, QStringLiteral("1000")}};
            for (const auto& [n, texto] : importes)
                teclear(Frm931::nombreCasilla(n), texto);
            teclear(QStringLiteral("TxtNombreA"), QStringLiteral("PEREZ"));
            teclear(QStringLiteral("TxtValor(211)"), QStringLiteral("12345"));
            teclear(QStringLiteral("TxtValor(103)"), QString());   // the last box is left

            clic(QStringLiteral("CmdGrabar"));
            QVERIFY2(!modelo.mbModificado, qPrintable(respondedor().textos().join(QLatin1Char('\n'))));
            QVERIFY(respondedor().textos().last().startsWith(QStringLiteral("La información de la declaración fue grabada")));
            antes = loQueMuestra(&ventana);
            clic(QStringLiteral("cmdCancelar"));
            QVERIFY(!ventana.isVisible());
            vista = nullptr;
            frm = nullptr;
        }

        // The main window's opener of the declaration form.
        Abridores a;
        a.declaracion = [](qint16 modo, const QStringList& datos) { pAbreDeclaracion(modo, datos); };
        instalarAbridores(a);
        FrmContAbrirVista picker(1);
        picker.show();
        QVERIFY(QTest::qWaitForWindowExposed(&picker));
        QCOMPARE(picker.grdContrib->rowCount(), 1);

        QMap<QString, QString> despues;
        bool visto = false;
        QTimer::singleShot(0, this, [&] {
            auto* reabierta = qobject_cast<Frm931Vista*>(QApplication::activeModalWidget());
            QVERIFY(reabierta);
            QVERIFY(QTest::qWaitForWindowExposed(reabierta));
            despues = loQueMuestra(reabierta);
            visto = true;
            QTest::mouseClick(reabierta->control(QStringLiteral("cmdCancelar")), Qt::LeftButton);
        });
        QTest::mouseClick(picker.CmdOpciones[0], Qt::LeftButton);
        QVERIFY(visto);

        // What the stored form shows its own way: 464 (as 150, 462 and the stored tax would) as
        // a signed amount, the period box as the stored period, the suspension left unanswered
        // as the "No" it was stored as; the taxpayer in a box in place of the list.
        const QList<QPair<QString, QString>> propias = {{QStringLiteral("TxtValor(464)"), QStringLiteral("-210,000")},
                                                        {QStringLiteral("TxtEjercicio"), QStringLiteral("202608")},
                                                        {QStringLiteral("OptSuspPC(0)"), QStringLiteral("x")}};
        for (const auto& [nombre, texto] : propias) {
            QCOMPARE(despues.value(nombre), texto);
            despues[nombre] = antes.value(nombre);
        }
        QStringList distintas;
        for (auto it = antes.cbegin(); it != antes.cend(); ++it) {
            if (it.key() == QLatin1String("TxtRazon") || it.key() == QLatin1String("CmbRuc")
                || it.key() == QLatin1String("TxtNumRuc"))
                continue;
            if (despues.value(it.key()) != it.value())
                distintas << QStringLiteral("%1: '%2' -> '%3'").arg(it.key(), it.value(), despues.value(it.key()));
        }
        QVERIFY2(distintas.isEmpty(), qPrintable(distintas.join(QLatin1Char('\n'))));
        QCOMPARE(despues.value(QStringLiteral("TxtNumRuc")), DatosDemo::kRucAndina);
        QCOMPARE(despues.value(QStringLiteral("TxtRazon")).trimmed(), antes.value(QStringLiteral("TxtRazon")).trimmed());
    }
};

QTEST_MAIN(PruebaFrmContAbrir)
#include "frmcontabrir.moc"
