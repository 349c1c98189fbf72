// The side dialogs of the declaration as the accountant types in them: the loss of earlier
// years and the annex of 473 and 477. Each amount box takes its own length whatever box had
// the focus before, Tab and Shift+Tab move between boxes, a paste goes in only when its keys
// would, and the loss page goes away when casilla 108 is emptied.
#include "escenario.h"

#include "comun/usuario_vista.h"
#include "dialogs/vista/frmanexo477.h"
#include "dialogs/vista/frmperdida.h"

#include <QClipboard>
#include <QSqlQuery>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

using namespace escenario;

class EscenarioDialogos : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;
    RespondedorGuion& respondedor() { return familia->respondedor(); }

    static QString importesGuardados()
    {
        QStringList l;
        QSqlQuery q = ::ejecutar(QStringLiteral("SELECT Anho || '=' || Importe FROM F0931_PTCEA ORDER BY Anho"));
        while (q.next())
            l << q.value(0).toString();
        return l.join(QLatin1Char(' '));
    }

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        familia->comoUsuario(DatosDemo::kContador);
        fallos().clear();
    }

    void cleanup() { familia.reset(); }

    // The loss dialog from the form, all by keyboard: the amount box takes twelve digits each
    // time it has the focus (not the fifteen of its display), Tab and Shift+Tab go between year,
    // amount and buttons, a paste with separators is refused, and Enter on "&Aceptar" stores.
    void perdidaPorTeclado()
    {
        VentanaNueva v;
        v.identificar();
        auto* t4 = v.vista->findChild<QTabWidget*>(QStringLiteral("SSTab4"));
        QString anho, enfocadoTrasTab, enfocadoTrasVuelta;
        ESCENARIO(QStringLiteral("{A-c}{Enter*2}2500{Enter}{A-p}{A-t}{?lista}{A-n}{?dialogo}"
                              "2015{Tab}{?tab}1234{Tab}{?fuera}{S-Tab}{?vuelta}{End}567890123456789{?largo}"
                              "{C-a}{?pegar}{Tab}{?pegado}{Enter}{?fila}"),
               {{QStringLiteral("lista"), [&] { igual(t4->currentIndex(), 1, QStringLiteral("página de pérdidas")); }},
                {QStringLiteral("dialogo"), [&] {
                     comprobar(qobject_cast<frmPerdidaEjercAnt*>(QApplication::activeModalWidget()), QStringLiteral("diálogo abierto"));
                     igual(enfocado(), QStringLiteral("MkeAnho"), QStringLiteral("primer foco"));
                 }},
                {QStringLiteral("tab"), [&] { igual(enfocado(), QStringLiteral("txtImporte"), QStringLiteral("Tab desde el año")); }},
                {QStringLiteral("fuera"), [&] {
                     igual(enfocado(), QStringLiteral("cmdAccion(0)"), QStringLiteral("Tab desde el importe"));
                     igual(textoDe(QStringLiteral("txtImporte")), QStringLiteral("1,234"), QStringLiteral("importe con separadores"));
                 }},
                {QStringLiteral("vuelta"), [&] {
                     igual(enfocado(), QStringLiteral("txtImporte"), QStringLiteral("Shift+Tab"));
                     igual(textoDe(QStringLiteral("txtImporte")), QStringLiteral("1234"), QStringLiteral("importe sin separadores"));
                     QApplication::clipboard()->setText(QStringLiteral("1,500.50"));
                 }},
                {QStringLiteral("largo"), [&] {
                     igual(textoDe(QStringLiteral("txtImporte")), QStringLiteral("123456789012"), QStringLiteral("doce cifras"));
                 }},
                {QStringLiteral("pegar"), [&] {
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
                     igual(textoDe(QStringLiteral("txtImporte")), QStringLiteral("123456789012"), QStringLiteral("pegado rechazado"));
                     QApplication::clipboard()->setText(QStringLiteral("4321"));
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
                 }},
                {QStringLiteral("pegado"), [&] {
                     igual(textoDe(QStringLiteral("txtImporte")), QStringLiteral("4,321"), QStringLiteral("pegado aceptado"));
                 }},
                {QStringLiteral("fila"), [&] { igual(QApplication::activeModalWidget(), static_cast<QWidget*>(v.vista.get()), QStringLiteral("diálogo cerrado")); }}});
        QCOMPARE(importesGuardados(), QStringLiteral("2015=4321"));
        QVERIFY2(respondedor().textos().isEmpty(), qPrintable(respondedor().textos().join(QLatin1Char('\n'))));
        // "Modificar" shows the row with its year shut and the focus on the amount.
        ESCENARIO(QStringLiteral("{A-m}{?cambio}{Esc}"),
                  {{QStringLiteral("cambio"), [] {
                       auto* d = qobject_cast<frmPerdidaEjercAnt*>(QApplication::activeModalWidget());
                       comprobar(d && !d->MkeAnho->isEnabled() && d->MkeAnho->text() == QLatin1String("2015"), QStringLiteral("año cerrado"));
                       igual(enfocado(), QStringLiteral("txtImporte"), QStringLiteral("foco en el importe"));
                       igual(textoDe(QStringLiteral("txtImporte")), QStringLiteral("4321"), QStringLiteral("importe"));
                   }}});
    }

    // The annex by keyboard from 477: Tab between the parts and the buttons, each part twelve
    // digits while typed and fifteen characters shown, a paste with separators refused.
    void anexoPorTeclado()
    {
        VentanaNueva v;
        v.identificar();
        frmAnexo477* anexo = nullptr;
        ESCENARIO(QStringLiteral("{A-f}{A-e}{Tab*9}{?ir}{Enter}{?abierto}9999999999999{Tab}{?parte1}{S-Tab}{?vuelta}"
                              "{Tab}{?pegar}{Tab}{?boton}{Enter}{?cerrado}"),
               {{QStringLiteral("ir"), [&] { igual(enfocado(), QStringLiteral("TxtValor(477)"), QStringLiteral("Tab hasta 477")); }},
                {QStringLiteral("abierto"), [&] {
                     anexo = qobject_cast<frmAnexo477*>(QApplication::activeModalWidget());
                     comprobar(anexo, QStringLiteral("anexo abierto"));
                     igual(enfocado(), QStringLiteral("TxtMonto(0)"), QStringLiteral("primer foco"));
                 }},
                {QStringLiteral("parte1"), [&] {
                     igual(enfocado(), QStringLiteral("TxtMonto(1)"), QStringLiteral("Tab a la segunda parte"));
                     igual(textoDe(QStringLiteral("TxtMonto(0)")), QStringLiteral("999,999,999,999"), QStringLiteral("primera parte"));
                     igual(anexo ? anexo->TxtMonto[0]->maxLength() : 0, 15, QStringLiteral("largo sin foco"));
                 }},
                {QStringLiteral("vuelta"), [&] {
                     igual(enfocado(), QStringLiteral("TxtMonto(0)"), QStringLiteral("Shift+Tab"));
                     igual(anexo ? anexo->TxtMonto[0]->maxLength() : 0, 12, QStringLiteral("largo con foco"));
                 }},
                {QStringLiteral("pegar"), [&] {
                     QApplication::clipboard()->setText(QStringLiteral("1,500.50"));
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
                     igual(textoDe(QStringLiteral("TxtMonto(1)")), QString(), QStringLiteral("pegado rechazado"));
                     QApplication::clipboard()->setText(QStringLiteral("1500"));
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
                     igual(textoDe(QStringLiteral("TxtMonto(1)")), QStringLiteral("1500"), QStringLiteral("pegado aceptado"));
                 }},
                {QStringLiteral("boton"), [&] { igual(enfocado(), QStringLiteral("CmdGrabar"), QStringLiteral("Tab al botón")); }},
                {QStringLiteral("cerrado"), [&] { comprobar(QApplication::activeModalWidget() == v.vista.get(), QStringLiteral("anexo cerrado")); }}});
        QCOMPARE(v.control<QLineEdit>(QStringLiteral("TxtValor(477)"))->text(), QStringLiteral("1,000,000,001,499"));
        QCOMPARE(v.modelo.txt(433), QStringLiteral("1,500"));
    }

    // Emptying 108 takes the loss page away, also when it was the page last shown: the
    // general information shows, header and body alike, and nothing of the loss page stays.
    void laPaginaDePerdidasSeVaCon108()
    {
        VentanaNueva v;
        v.identificar();
        auto* t4 = v.vista->findChild<QTabWidget*>(QStringLiteral("SSTab4"));
        ESCENARIO(QStringLiteral("{A-c}{Enter*2}2500{Enter}{A-p}{A-t}{?perdidas}{A-c}{Enter*2}{BS*4}{Enter}{A-p}"),
               {{QStringLiteral("perdidas"), [&] { igual(t4->currentIndex(), 1, QStringLiteral("en pérdidas")); }}});
        QVERIFY(!t4->isTabVisible(1));
        QCOMPARE(t4->currentIndex(), 0);
        auto* cuerpo = t4->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(cuerpo->currentIndex(), 0);
        QVERIFY(cuerpo->widget(0)->isVisible());
        QVERIFY(!cuerpo->widget(1)->isVisible());
        QVERIFY(!v.control(QStringLiteral("cmdPerdida(0)"))->isVisible());
        QCOMPARE(enfocado(), QStringLiteral("TxtNombreA"));
    }
};

QTEST_MAIN(EscenarioDialogos)
#include "escenario_dialogos.moc"
