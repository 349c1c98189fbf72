// The declaration window as the accountant uses it: pages that refuse a change, captions and
// read-only texts after a save and in modify mode, the keyboard (Alt+letter, Tab both ways,
// Enter, Delete, Ctrl+A), pasting, and the mouse.
#include "escenario.h"

#include "comun/usuario_vista.h"
#include "dialogs/vista/frmanexo477.h"

#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>
#include <cmath>

using namespace escenario;

namespace {

// Contrast of a box's text against its background as drawn, by the ratio of relative
// luminances used for legibility (1 none, 21 black on white): darkest pixel against commonest.
double contraste(QWidget* w)
{
    const QImage img = w->grab().toImage().convertToFormat(QImage::Format_RGB32);
    auto luz = [](QRgb c) { return (0.2126 * qRed(c) + 0.7152 * qGreen(c) + 0.0722 * qBlue(c)) / 255.0; };
    QMap<QRgb, int> cuenta;
    double oscuro = 1;
    for (int y = 4; y < img.height() - 4; ++y)
        for (int x = 4; x < img.width() - 4; ++x) {
            ++cuenta[img.pixel(x, y)];
            oscuro = qMin(oscuro, luz(img.pixel(x, y)));
        }
    const QRgb fondo = std::max_element(cuenta.cbegin(), cuenta.cend()).key();
    return (std::pow(luz(fondo), 2.2) + 0.05) / (std::pow(oscuro, 2.2) + 0.05);
}

QLabel* etiqueta(QWidget* v, const QString& texto)
{
    for (QLabel* l : v->findChildren<QLabel*>())
        if (l->text() == texto)
            return l;
    return nullptr;
}

}  // namespace

class EscenarioVentana : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;
    RespondedorGuion& respondedor() { return familia->respondedor(); }

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        familia->comoUsuario(DatosDemo::kContador);
        fallos().clear();
    }

    void cleanup() { familia.reset(); }

    // A page change that a check refuses leaves header and body on the page that stays, by
    // mouse and by Alt+letter.
    void unCambioDePaginaRechazadoNoSeparaEncabezadoYCuerpo_data()
    {
        QTest::addColumn<QString>("tabs");
        QTest::addColumn<int>("pagina");
        QTest::addColumn<QString>("teclas");
        QTest::newRow("clic en estados") << "SSTab1" << 1 << "";
        QTest::newRow("clic en complementaria") << "SSTab1" << 3 << "";
        QTest::newRow("clic en regimen") << "SSTab2" << 1 << "";
        QTest::newRow("alt en estados") << "SSTab1" << 1 << "{A-f}";
        QTest::newRow("alt en complementaria") << "SSTab1" << 3 << "{A-p}";
    }

    void unCambioDePaginaRechazadoNoSeparaEncabezadoYCuerpo()
    {
        QFETCH(QString, tabs);
        QFETCH(int, pagina);
        QFETCH(QString, teclas);
        VentanaNueva v;
        auto* t = v.vista->findChild<QTabWidget*>(tabs);
        if (teclas.isEmpty())
            QTest::mouseClick(t->tabBar(), Qt::LeftButton, {}, t->tabBar()->tabRect(pagina).center());
        else
            ESCENARIO(teclas);
        QCOMPARE(respondedor().textos(), QStringList{QStringLiteral("Debe seleccionar un Contribuyente.")});
        for (auto* w : v.vista->findChildren<QTabWidget*>()) {
            auto* cuerpo = w->findChild<QStackedWidget*>();
            QCOMPARE(w->tabBar()->currentIndex(), 0);
            QCOMPARE(cuerpo->currentIndex(), 0);
            QVERIFY2(cuerpo->currentWidget()->isVisibleTo(w), qPrintable(w->objectName()));
            for (int i = 1; i < cuerpo->count(); ++i)
                QVERIFY2(!cuerpo->widget(i)->isVisibleTo(w), qPrintable(w->objectName()));
        }
        QCOMPARE(enfocado(), QStringLiteral("CmbRuc"));
    }

    // After the first save the taxpayer's captions go grey with their boxes: the name's box
    // shuts, the telephone stays open.
    void trasGrabarLasEtiquetasSiguenASusCajas()
    {
        VentanaNueva v;
        v.identificar();
        usuario::teclear(v.vista.get(), QStringLiteral("TxtValor(461)"), QStringLiteral("100000"));
        QTest::mouseClick(v.control(QStringLiteral("CmdGrabar")), Qt::LeftButton);
        QVERIFY2(!v.modelo.mbModificado, qPrintable(respondedor().textos().join(QLatin1Char('\n'))));
        usuario::irA(v.vista.get(), QStringLiteral("TxtRazon"));
        QVERIFY(!v.control(QStringLiteral("TxtRazon"))->isEnabled() && v.control(QStringLiteral("TxtTelefono"))->isEnabled());
        for (const char* par : {"Razón social:TxtRazon", "&Teléfono:TxtTelefono", "R&UC:TxtNumRuc"}) {
            const QStringList p = QString::fromUtf8(par).split(QLatin1Char(':'));
            QCOMPARE(etiqueta(v.vista.get(), p[0])->isEnabled(), v.control(p[1])->isEnabled());
        }
    }

    // In modify mode the fixed taxpayer reads well (normal text on the window's background),
    // its captions go grey with it, and the first focus is the first box there is to type.
    void enModificarElTextoFijoSeLee()
    {
        EntornoQt entorno;
        Frm931 modelo(&entorno);
        modelo.miModo = 1;
        modelo.msRuc = DatosDemo::kRucAndina;
        modelo.msRazon = DatosDemo::kNombreAndina;
        G().gsPeriodo = QString::number(Hoy().year()) + QStringLiteral("05");
        modelo.Form_Load();
        Frm931Vista vista(modelo);
        entorno.vista = &vista;
        vista.show();
        QVERIFY(QTest::qWaitForWindowActive(&vista));
        // The first focus is the first box there is to type: the telephone.
        QCOMPARE(enfocado(), QStringLiteral("TxtTelefono"));
        for (const char* c : {"TxtNumRuc", "TxtRazon"}) {
            auto* le = qobject_cast<QLineEdit*>(vista.control(QString::fromLatin1(c)));
            QVERIFY(!le->text().isEmpty());
            QVERIFY2(contraste(le) >= 4.5, qPrintable(QStringLiteral("%1: %2").arg(QString::fromLatin1(c)).arg(contraste(le))));
            QCOMPARE(le->palette().color(QPalette::Disabled, QPalette::Base), le->palette().color(QPalette::Active, QPalette::Window));
        }
        QCOMPARE(etiqueta(&vista, QStringLiteral("Razón social"))->isEnabled(), false);
        entorno.vista = nullptr;
    }

    // Every page by Alt+letter, each letter once: Alt+P always goes to the complementary
    // information, and the determination has its letter.
    void cadaPaginaTieneSuLetra()
    {
        VentanaNueva v;
        v.identificar();
        auto* t1 = v.vista->findChild<QTabWidget*>(QStringLiteral("SSTab1"));
        auto* t3 = v.vista->findChild<QTabWidget*>(QStringLiteral("SSTab3"));
        auto pagina = [t1] { return t1->currentIndex(); };
        ESCENARIO(QStringLiteral("{A-f}{?f}{A-c}{?c}{A-f}{A-p}{?p}{A-p}{?p}{A-i}{?i}"),
               {{QStringLiteral("f"), [&] { igual(pagina(), 1, QStringLiteral("Alt+F")); igual(enfocado(), QStringLiteral("TxtValor(500)"), QStringLiteral("foco en estados")); }},
                {QStringLiteral("c"), [&] { igual(pagina(), 2, QStringLiteral("Alt+C")); igual(enfocado(), QStringLiteral("TxtValor(103)"), QStringLiteral("foco en determinación")); }},
                {QStringLiteral("p"), [&] { igual(pagina(), 3, QStringLiteral("Alt+P")); igual(t3->currentIndex(), 0, QStringLiteral("pasivo intacto")); }},
                {QStringLiteral("i"), [&] { igual(pagina(), 0, QStringLiteral("Alt+I")); }}});
        // Within the statements: assets, liabilities, results, each by its letter.
        ESCENARIO(QStringLiteral("{A-f}{A-t}{?t}{A-e}{?e}{A-a}{?a}"),
               {{QStringLiteral("t"), [&] { igual(t3->currentIndex(), 1, QStringLiteral("pasivo")); igual(enfocado(), QStringLiteral("TxtValor(532)"), QStringLiteral("foco en pasivo")); }},
                {QStringLiteral("e"), [&] { igual(t3->currentIndex(), 2, QStringLiteral("resultados")); igual(enfocado(), QStringLiteral("TxtValor(461)"), QStringLiteral("foco en resultados")); }},
                {QStringLiteral("a"), [&] { igual(t3->currentIndex(), 0, QStringLiteral("activo")); }}});
        // No two visible controls share a letter on any page.
        for (int p = 0; p < t1->count(); ++p) {
            t1->setCurrentIndex(p);
            QMap<QChar, QStringList> letras;
            for (QWidget* w : v.vista->findChildren<QWidget*>()) {
                if (!w->isVisible())
                    continue;
                QStringList textos;
                if (auto* b = qobject_cast<QAbstractButton*>(w))
                    textos << b->text();
                if (auto* l = qobject_cast<QLabel*>(w); l && l->buddy())
                    textos << l->text();
                if (auto* tb = qobject_cast<QTabBar*>(w))
                    for (int i = 0; i < tb->count(); ++i)
                        if (tb->isTabVisible(i))
                            textos << tb->tabText(i);
                for (const QString& t : textos)
                    if (const int i = t.indexOf(QLatin1Char('&')); i >= 0 && i + 1 < t.size())
                        letras[t.at(i + 1).toLower()] << t;
            }
            for (auto it = letras.cbegin(); it != letras.cend(); ++it)
                QVERIFY2(it.value().size() == 1, qPrintable(QStringLiteral("página %1: %2").arg(p).arg(it.value().join(QLatin1String(" / ")))));
        }
    }

    // Enter walks the identification through every question it requires, page after page;
    // Tab and Shift+Tab walk the same way.
    void enterRecorreLasPreguntasObligatorias()
    {
        VentanaNueva v;
        QStringList recorrido;
        auto anotar = [&recorrido] { recorrido << enfocado(); };
        ESCENARIO(QStringLiteral("{Down}4445555{Enter}{Space}{Enter}{?r}{Enter}{?r}{Space}{Enter}{?r}{Space}{?r}{Space}{Enter}{?r}{Space}{Enter}{?r}{S-Tab}{?r}{Tab}{?r}"),
               {{QStringLiteral("r"), anotar}});
        QCOMPARE(recorrido, (QStringList{QStringLiteral("OptRectifica(0)"), QStringLiteral("OptPersona(0)"),
                                         QStringLiteral("OptInicio(0)"), QStringLiteral("OptPrecedente(0)"),
                                         QStringLiteral("OptAnterior(0)"), QStringLiteral("CboBalance"),
                                         QStringLiteral("OptAnterior(0)"), QStringLiteral("CboBalance")}));
        QVERIFY(v.modelo.OptPersona.valor(0));
        QVERIFY(v.modelo.OptAnterior.valor(0));
    }

    // In an amount box Delete deletes and Ctrl+A selects all; Enter on 473 opens the annex once,
    // and once it is accepted the focus goes on, so the next Enter does not open it again.
    void teclasDeEdicionYAnexoPorTeclado()
    {
        VentanaNueva v;
        v.identificar();
        int anexos = 0;
        ESCENARIO(QStringLiteral("{A-f}{A-e}12345{Home}{Del}{?del}{C-a}9{?ca}{Enter}{Enter*5}{?473}{Enter}{?anexo}7000{Enter}3000{Enter}{Enter}{?475}{Enter}{?476}"),
               {{QStringLiteral("del"), [&] { igual(textoDe(QStringLiteral("TxtValor(461)")), QStringLiteral("2345"), QStringLiteral("Supr")); }},
                {QStringLiteral("ca"), [&] { igual(textoDe(QStringLiteral("TxtValor(461)")), QStringLiteral("9"), QStringLiteral("Ctrl+A")); }},
                {QStringLiteral("473"), [&] { igual(enfocado(), QStringLiteral("TxtValor(473)"), QStringLiteral("llega a 473")); }},
                {QStringLiteral("anexo"), [&] { ++anexos; comprobar(qobject_cast<frmAnexo477*>(QApplication::activeModalWidget()), QStringLiteral("anexo abierto")); }},
                {QStringLiteral("475"), [&] { igual(enfocado(), QStringLiteral("TxtValor(475)"), QStringLiteral("tras el anexo")); }},
                {QStringLiteral("476"), [&] { igual(enfocado(), QStringLiteral("TxtValor(476)"), QStringLiteral("Enter sigue")); }}});
        QCOMPARE(anexos, 1);
        QCOMPARE(v.control<QLineEdit>(QStringLiteral("TxtValor(473)"))->text(), QStringLiteral("10,000"));
        QCOMPARE(v.control<QLineEdit>(QStringLiteral("TxtValor(461)"))->text(), QStringLiteral("9"));
    }

    // A paste holding anything a key of the box would refuse is refused whole, by keys, by
    // drag and drop; a paste of what the keys take goes in.
    void pegarSoloLoQueSeTeclearia_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("pegado");
        QTest::addColumn<bool>("soltar");
        QTest::addColumn<QString>("queda");
        QTest::newRow("importe con separadores") << "TxtValor(461)" << "1,500.50" << false << "77";
        QTest::newRow("importe soltado") << "TxtValor(461)" << "1,500.50" << true << "77";
        QTest::newRow("importe limpio") << "TxtValor(461)" << "1500" << false << "771500";
        QTest::newRow("importe limpio soltado") << "TxtValor(461)" << "1500" << true << "771500";
        QTest::newRow("telefono con guion") << "TxtTelefono" << "444-5555" << false << "77";
        QTest::newRow("nombre con cifras raras") << "TxtNombreA" << "PEREZ#1" << false << "77";
    }

    void pegarSoloLoQueSeTeclearia()
    {
        QFETCH(QString, control);
        QFETCH(QString, pegado);
        QFETCH(bool, soltar);
        QFETCH(QString, queda);
        VentanaNueva v;
        v.identificar();
        usuario::teclear(v.vista.get(), control, QStringLiteral("77"));
        auto* le = v.control<QLineEdit>(control);
        if (soltar) {
            QMimeData datos;
            datos.setText(pegado);
            const QPoint p(le->width() - 3, le->height() / 2);
            QDragEnterEvent entrar(p, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(le, &entrar);
            QDragMoveEvent mover(p, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(le, &mover);
            QDropEvent soltarEv(p, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(le, &soltarEv);
        } else {
            QApplication::clipboard()->setText(pegado);
            le->end(false);
            QTest::keyClick(le, Qt::Key_V, Qt::ControlModifier);
        }
        QCOMPARE(le->text(), queda);
        if (const int n = Frm931::casillaDeNombre(control))
            QCOMPARE(v.modelo.txt(n), queda);
    }

    // With the mouse: a double click on 477 opens its annex, which answers by mouse; once
    // accepted the focus is on 478. The help line shows the formula of a computed box under the
    // pointer, and Escape with changes asks before leaving.
    void conElRaton()
    {
        VentanaNueva v;
        v.identificar();
        usuario::irA(v.vista.get(), QStringLiteral("TxtValor(477)"));
        auto* c477 = v.control<QLineEdit>(QStringLiteral("TxtValor(477)"));
        ESCENARIO(QStringLiteral("{?dobleclic}{?anexo}"),
                  {{QStringLiteral("dobleclic"), [c477] { QTest::mouseDClick(c477, Qt::LeftButton); }},
                   {QStringLiteral("anexo"), [] {
                        auto* a = qobject_cast<frmAnexo477*>(QApplication::activeModalWidget());
                        comprobar(a, QStringLiteral("anexo abierto"));
                        if (!a)
                            return;
                        QTest::keyClicks(a->TxtMonto[0], QStringLiteral("7000"));
                        QTest::mouseClick(a->TxtMonto[1], Qt::LeftButton);
                        QTest::keyClicks(a->TxtMonto[1], QStringLiteral("3000"));
                        QTest::mouseClick(a->CmdGrabar, Qt::LeftButton);
                    }}});
        QCOMPARE(c477->text(), QStringLiteral("10,000"));
        QCOMPARE(enfocado(), QStringLiteral("TxtValor(478)"));
        QEvent entrar(QEvent::Enter);
        QCoreApplication::sendEvent(v.control(QStringLiteral("TxtValor(484)")), &entrar);
        auto* ayuda = v.vista->findChild<QLabel*>(QStringLiteral("TxtAyuda"));
        QCOMPARE(ayuda->text(), QStringLiteral("c484 = c470-c471-c472+c473+c475+c476+c477-c478-c480+c481-c483"));
        QCOMPARE(ayuda->palette().color(QPalette::WindowText), QColor(0, 0, 0xC0));
        respondedor().respuestas << vbCancel;
        QTest::keyClick(v.vista.get(), Qt::Key_Escape);
        QCOMPARE(respondedor().textos().last(), QStringLiteral("¿El formulario ha sido modificado, desea guardar los cambios?"));
        QVERIFY(v.vista->isVisible());
    }
};

QTEST_MAIN(EscenarioVentana)
#include "escenario_ventana.moc"
