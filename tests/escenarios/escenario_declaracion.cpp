// A whole declaration per regime, from the main window's menu to the stored rows and back:
// typed with the keyboard alone (Tab, Enter, arrows and Space in the questions, Alt+letter for
// pages and buttons), the geographic picker, the annex and the loss dialog included, checked
// with "Validar", saved with "Grabar", and reopened through "Modificar" of the working picker,
// where the window shows again what was typed.
#include "escenario.h"

#include "dialogs/vista/frmconsist.h"
#include "register/vista/frmcontabrir.h"
#include "shell/vista/mdifrm.h"

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollBar>
#include <QSqlQuery>

using namespace escenario;

using Figuras = QMap<QString, QString>;
Q_DECLARE_METATYPE(Figuras)

namespace {

// The taxpayer (first of the list), the telephone, then the regime: the k-th option by arrows.
QString identificacion(int regimen)
{
    return QStringLiteral("{A-d}n{Down}4445555{Enter}{Down*%1}{Space}{Enter}{Enter}").arg(regimen);
}

// In the geographic picker: the department by arrows, its first province and district; Enter
// accepts.
QString ubigeo(int departamento)
{
    return QStringLiteral("{Down*%1}{Tab}{Down}{Tab}{Down}{Enter}").arg(departamento);
}

// The payment block: not started this year, profit both years, balance at 31 July, no
// suspension; Enter goes on to the buttons at the end.
const QString kPago = QStringLiteral("{Space}{Space}{Enter}{Space}{Enter}{Down*2}{Enter}{Space}{Enter}");

// The statements and the rest of the declaration, the same for every regime.
const QString kEstados = QStringLiteral(
    // Assets: 500 and 508; liabilities 532, equity 544.
    "{A-f}25000{Enter*8}1200{Enter*7}300{Enter}{?parada}800{Enter*15}{?vuelta}"
    "{A-t}4000{Enter*11}20000{Enter}"
    // Results: 461, 464, 468, 469, the annex of 473 (5000 + 1000), 475, the annex of 477
    // (7000 + 3000), 478, 481.
    "{A-e}480000{Enter}{Enter}210000{Enter}30000{Enter}45000{Enter}{Enter}"
    "{Enter}{?anexo}5000{Enter}1000{Enter}{Enter}1500{Enter}{Enter}"
    "{Enter}{?anexo}7000{Enter}3000{Enter}{Enter}2000{Enter}{Enter}700{Enter}"
    // Determination: 103, 105, 108.
    "{A-c}4000{Enter}1000{Enter}2500{Enter}"
    // Complementary information: the accountant's names, then a loss of 2015.
    "{A-p}PEREZ{Enter}JUAN{Enter}"
    "{A-t}{A-n}{?perdida}2015{Enter}2500{Enter}{Enter}"
    // Check, save, leave.
    "{A-v}{?consist}{A-a}{A-g}{?grabada}{?antes}{A-s}"
    // Open it again from the working picker.
    "{A-d}m{?picker}{A-m}{?releer}{A-s}{?picker}{A-s}");

}  // namespace

class EscenarioDeclaracion : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;

    static Figuras filasDet()
    {
        Figuras f;
        QSqlQuery q = ::ejecutar(QStringLiteral("SELECT CASILLA, I_VALOR FROM DET ORDER BY CASILLA"));
        while (q.next())
            f.insert(q.value(0).toString(), q.value(1).toString());
        return f;
    }

    // What the window in front shows, by control: boxes and lists by their text, options "x"
    // when set, the headings of the statements and the payment system.
    static Figuras enPantalla()
    {
        Figuras f;
        QWidget* v = QApplication::activeModalWidget();
        if (!v)
            return f;
        for (QLineEdit* le : v->findChildren<QLineEdit*>())
            if (!le->objectName().isEmpty())
                f.insert(le->objectName(), le->displayText());
        for (QRadioButton* r : v->findChildren<QRadioButton*>())
            if (r->isChecked())
                f.insert(r->objectName(), QStringLiteral("x"));
        for (QComboBox* c : v->findChildren<QComboBox*>())
            if (c->objectName() != QLatin1String("CmbRuc"))
                f.insert(c->objectName(), c->currentText());
        for (QLabel* l : v->findChildren<QLabel*>())
            if (l->objectName().startsWith(QLatin1String("lblTab2")) || l->objectName() == QLatin1String("LblSistema"))
                f.insert(l->objectName(), l->text());
        return f;
    }

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        familia->comoUsuario(DatosDemo::kContador);
    }

    void cleanup() { familia.reset(); }

    void unaDeclaracionPorRegimen_data()
    {
        QTest::addColumn<QString>("teclas");      // identification and regime details
        QTest::addColumn<Figuras>("pantalla");    // the reopened window, by control ("selector": the picker's caption)
        QTest::addColumn<Figuras>("filas");       // DET rows, casilla -> stored value

        // Common to every regime: the chain from the results to the taxable income.
        const Figuras comunes{{"TxtValor(463)", "480,000"}, {"TxtValor(484)", "211,200"},
                              {"TxtValor(473)", "6,000"},   {"TxtValor(477)", "10,000"},
                              {"TxtValor(106)", "214,200"}, {"TxtValor(110)", "211,700"},
                              {"TxtValor(108)", "(2,500)"}, {"TxtTelefono", "4445555"}, {"TxtValor(531)", "24,900"},
                              {"TxtNombreA", "PEREZ"},      {"OptInicio(0)", "x"}};
        auto mas = [&comunes](Figuras f) {
            for (auto it = comunes.cbegin(); it != comunes.cend(); ++it)
                f.insert(it.key(), it.value());
            return f;
        };
        const Figuras filasComunes{{"028", "4445555"}, {"650", "5000"}, {"651", "1000"}, {"432", "7000"},
                                   {"433", "3000"},    {"473", "6000"}, {"477", "10000"}, {"110", "211700"},
                                   {"108", "-2500"},   {"608", "1"},    {"605", "0"}, {"531", "24900"}};
        auto filasMas = [&filasComunes](Figuras f) {
            for (auto it = filasComunes.cbegin(); it != filasComunes.cend(); ++it)
                f.insert(it.key(), it.value());
            return f;
        };

        QTest::newRow("general")
            << identificacion(0) + QStringLiteral("{Space}{Enter}") + kPago + kEstados
            << mas({{"optRenta(0)", "x"}, {"OptPersona(0)", "x"}, {"TxtValor(113)", "62,452"}})
            << filasMas({{"056", "4"}, {"813", "0"}, {"113", "62452"}});
        QTest::newRow("agrario")
            << identificacion(1) + QStringLiteral("15032026{Tab}") + kPago + kEstados
            << mas({{"optRenta(1)", "x"}, {"MkePeriodo", "15/03/2026"}, {"TxtValor(113)", "31,755"}})
            << filasMas({{"056", "1"}, {"200", "20260315"}, {"113", "31755"}});
        QTest::newRow("amazonia")
            << identificacion(2) + QStringLiteral("{Left}{Space}{Tab}{Left}{Space}{Tab}{Space}{Tab}{Space}{?ubigeo}")
                   + ubigeo(1) + QStringLiteral("{Tab}") + kPago + kEstados
            << mas({{"optRenta(2)", "x"}, {"OptUbicAmazonia(1)", "x"}, {"OptDomFiscal(1)", "x"},
                    {"OptZona(0)", "x"}, {"TxtUbigeo", "010101"}, {"selector", "Ubigeo Zona 1"}, {"TxtValor(113)", "21,170"}})
            << filasMas({{"056", "2"}, {"809", "1"}, {"860", "1"}, {"811", "0"}, {"812", "010101"}, {"113", "21170"}});
        QTest::newRow("frontera")
            << identificacion(3) + QStringLiteral("{Left}{Space}{Tab}{Left}{Space}{Tab}{Space}{?ubigeo}") + ubigeo(23)
                   + QStringLiteral("{Tab}") + kPago + kEstados
            << mas({{"optRenta(3)", "x"}, {"OptActividad(1)", "x"}, {"OptFrontera(1)", "x"},
                    {"TxtUbigeo2", "230101"}, {"selector", "Ubigeo Zona 3"}})
            << filasMas({{"056", "3"}, {"601", "1"}, {"602", "1"}, {"603", "230101"}});
        QTest::newRow("convenio")
            << identificacion(4) + QStringLiteral("{Space}{Tab}12345678{Tab}") + kPago + kEstados
            << mas({{"optRenta(4)", "x"}, {"OptConvEstab(1)", "x"}, {"TxtNumOrdenF2305", "12345678"}})
            << filasMas({{"056", "6"}, {"804", "1"}, {"224", "12345678"}});
        QTest::newRow("mype")
            << identificacion(5) + QStringLiteral("{Right}{Space}{Enter}") + kPago + kEstados
            << mas({{"optRenta(5)", "x"}, {"OptPersona(1)", "x"}})
            << filasMas({{"056", "8"}, {"813", "1"}});
    }

    void unaDeclaracionPorRegimen()
    {
        QFETCH(QString, teclas);
        QFETCH(Figuras, pantalla);
        QFETCH(Figuras, filas);
        MDIFrm principal;
        principal.show();
        QVERIFY(QTest::qWaitForWindowActive(&principal));
        Figuras antes, reabierta;
        int anexos = 0, pickers = 0;
        const QMap<QString, std::function<void()>> revisiones{
            {QStringLiteral("anexo"), [&anexos] { anexos += qobject_cast<QDialog*>(QApplication::activeModalWidget()) != nullptr; }},
            // Enter at the end of the first stop of the assets goes on to the second, at the
            // end of the second back to the first.
            {QStringLiteral("parada"), [] {
                 igual(enfocado(), QStringLiteral("TxtValor(516)"), QStringLiteral("segunda parada"));
                 igual(QApplication::activeModalWidget()->findChild<QScrollBar*>(QStringLiteral("VScroll1"))->value(), 15, QStringLiteral("barra"));
             }},
            {QStringLiteral("vuelta"), [] {
                 igual(enfocado(), QStringLiteral("TxtValor(500)"), QStringLiteral("primera parada"));
                 igual(QApplication::activeModalWidget()->findChild<QScrollBar*>(QStringLiteral("VScroll1"))->value(), 1, QStringLiteral("barra"));
             }},
            {QStringLiteral("ubigeo"), [&reabierta] {
                 QWidget* w = QApplication::activeModalWidget();
                 reabierta.insert(QStringLiteral("selector"), w && w->objectName() == QLatin1String("frmUbigeo") ? w->windowTitle() : QString());
             }},
            {QStringLiteral("perdida"), [] {
                 igual(QApplication::activeModalWidget() ? QApplication::activeModalWidget()->objectName() : QString(),
                       QStringLiteral("frmPerdidaEjercAnt"), QStringLiteral("diálogo de pérdidas"));
             }},
            {QStringLiteral("consist"), [] {
                 comprobar(qobject_cast<VistaFrmConsist*>(QApplication::activeModalWidget()) != nullptr,
                           QStringLiteral("la validación muestra sus inconsistencias"));
             }},
            {QStringLiteral("grabada"), [this] {
                 const QStringList t = familia->respondedor().textos();
                 comprobar(!t.isEmpty() && t.last().startsWith(QStringLiteral("La información de la declaración fue grabada")),
                           QStringLiteral("grabada: ") + t.join(QLatin1String(" | ")));
             }},
            {QStringLiteral("picker"), [&pickers] {
                 pickers += qobject_cast<FrmContAbrirVista*>(QApplication::activeModalWidget()) != nullptr;
             }},
            {QStringLiteral("antes"), [&antes] { antes = enPantalla(); }},
            {QStringLiteral("releer"), [&reabierta] {
                 const QString selector = reabierta.value(QStringLiteral("selector"));
                 reabierta = enPantalla();
                 if (!selector.isEmpty())
                     reabierta.insert(QStringLiteral("selector"), selector);
                 igual(enfocado(), QStringLiteral("TxtTelefono"), QStringLiteral("primer foco al reabrir"));
             }},
        };
        ESCENARIO(teclas, revisiones);
        QCOMPARE(anexos, 2);
        QCOMPARE(pickers, 2);
        QVERIFY(!QApplication::activeModalWidget());

        const Figuras det = filasDet();
        QStringList distintas;
        for (auto it = filas.cbegin(); it != filas.cend(); ++it)
            if (det.value(it.key()) != it.value())
                distintas << QStringLiteral("DET %1: %2 (esperado %3)").arg(it.key(), det.value(it.key()), it.value());
        for (auto it = pantalla.cbegin(); it != pantalla.cend(); ++it)
            if (reabierta.value(it.key()) != it.value())
                distintas << QStringLiteral("%1: '%2' (esperado '%3')").arg(it.key(), reabierta.value(it.key()), it.value());
        // Everything else reads back as it was before leaving (the name without the blanks of
        // the taxpayer list), but for what the stored form shows its own way: the cost of sales
        // as a signed amount, the period box as the stored period, the unanswered suspension as
        // the "No" stored, the taxpayer in a box.
        const QStringList propias{QStringLiteral("TxtValor(464)"), QStringLiteral("TxtEjercicio"),
                                  QStringLiteral("OptSuspPC(0)"), QStringLiteral("TxtNumRuc"), QStringLiteral("selector")};
        for (auto it = antes.cbegin(); it != antes.cend(); ++it)
            if (!propias.contains(it.key()) && reabierta.value(it.key()).trimmed() != it.value().trimmed())
                distintas << QStringLiteral("%1: '%2' -> '%3'").arg(it.key(), it.value(), reabierta.value(it.key()));
        QCOMPARE(reabierta.value(QStringLiteral("TxtValor(464)")), QStringLiteral("-210,000"));
        QVERIFY2(distintas.isEmpty(), qPrintable(distintas.join(QLatin1Char('\n'))));
        QCOMPARE(escalar(QStringLiteral("SELECT Anho || '=' || Importe FROM F0931_PTCEA")).toString(), QStringLiteral("2015=2500"));
        QCOMPARE(escalar(QStringLiteral("SELECT COUNT(*) FROM CAB")).toInt(), 1);
    }
};

QTEST_MAIN(EscenarioDeclaracion)
#include "escenario_declaracion.moc"
