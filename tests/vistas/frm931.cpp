// The declaration window where it differs from its model: the masked date box keeps the blanks
// Qt drops, the scroller of the asset side, the annex by double click, leaving by the window's
// own keys, and the help line over a computed box. Whole declarations typed through it are in
// tests/escenarios.
#include "basic/reloj.h"
#include "comun/base_prueba.h"
#include "comun/usuario_vista.h"
#include "dialogs/vista/frmanexo477.h"
#include "form931/frm931.h"
#include "form931/vista/frm931vista.h"
#include "shell/globales.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <memory>

class PruebaFrm931 : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;
    std::unique_ptr<EntornoQt> entorno;
    std::unique_ptr<Frm931> frm;
    std::unique_ptr<Frm931Vista> vista;

    RespondedorGuion& respondedor() { return familia->respondedor(); }
    QLineEdit* caja(int n) { return vista->caja(n); }
    QTabWidget* pestanas(const QString& nombre) { return usuario::pestanas(vista.get(), nombre); }

    void irA(const QString& control) { usuario::irA(vista.get(), control); }
    void clic(const QString& control) { usuario::clic(vista.get(), control); }
    void teclear(const QString& control, const QString& texto) { usuario::teclear(vista.get(), control, texto); }
    void elegirLinea(const QString& control, int indice) { usuario::elegirLinea(vista.get(), control, indice); }
    static int lineaQueEmpieza(const Lista& l, const QString& inicio) { return usuario::lineaQueEmpieza(l, inicio); }

    // The annex answers itself as soon as it opens: parts typed, then "&Aceptar" or "&Cancelar".
    void alAbrirAnexo(const QString& parte0, const QString& parte1, bool aceptar = true)
    {
        QTimer::singleShot(0, this, [=, this] {
            auto* anexo = qobject_cast<frmAnexo477*>(QApplication::activeModalWidget());
            QVERIFY(anexo);
            // Each part typed and left with Enter, which moves on as Tab does.
            for (int i = 0; i < 2; ++i) {
                QTest::keyClicks(anexo->TxtMonto[i], i == 0 ? parte0 : parte1);
                QTest::keyClick(anexo->TxtMonto[i], Qt::Key_Return);
            }
            QCOMPARE(anexo->modelo().foco, QStringLiteral("CmdGrabar"));
            QTest::mouseClick(aceptar ? anexo->CmdGrabar : anexo->cmdCancelar, Qt::LeftButton);
        });
    }

    // Taxpayer, telephone, General regime, legal person, payment block answered for July.
    void identificar(int regimen = 0)
    {
        elegirLinea(QStringLiteral("CmbRuc"), lineaQueEmpieza(frm->CmbRuc, DatosDemo::kRucAndina));
        teclear(QStringLiteral("TxtTelefono"), QStringLiteral("4445555"));
        clic(QStringLiteral("optRenta(%1)").arg(regimen));
        if (regimen == 0 || regimen == 5)
            clic(QStringLiteral("OptPersona(0)"));
        clic(QStringLiteral("OptInicio(0)"));
        clic(QStringLiteral("OptPrecedente(0)"));
        clic(QStringLiteral("OptAnterior(0)"));
        elegirLinea(QStringLiteral("CboBalance"), 1);
    }

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        familia->comoUsuario(DatosDemo::kContador);
        G().gsPeriodo = QString::number(Hoy().year());
        G().gsPeriodoSel.clear();
        entorno = std::make_unique<EntornoQt>();
        frm = std::make_unique<Frm931>(entorno.get());
        frm->Form_Load();
        vista = std::make_unique<Frm931Vista>(*frm);
        entorno->vista = vista.get();
        vista->show();
        QVERIFY(QTest::qWaitForWindowActive(vista.get()));
    }

    void cleanup()
    {
        vista.reset();
        frm.reset();
        entorno.reset();
        familia.reset();
    }

    void laFechaConMascaraGuardaLosBlancos()
    {
        identificar(1);
        auto* mke = qobject_cast<QLineEdit*>(vista->control(QStringLiteral("MkePeriodo")));
        QCOMPARE(frm->MkePeriodo.Text, QStringLiteral("__/__/____"));
        QCOMPARE(mke->displayText(), QStringLiteral("__/__/____"));
        teclear(QStringLiteral("MkePeriodo"), QStringLiteral("1503"));
        QCOMPARE(frm->MkePeriodo.Text, QStringLiteral("15/03/____"));
        QTest::keyClicks(mke, QStringLiteral("2026"));
        QCOMPARE(frm->MkePeriodo.Text, QStringLiteral("15/03/2026"));
        QCOMPARE(mke->displayText(), frm->MkePeriodo.Text);
    }

    void enterEnLaUltimaCasillaDeUnaParadaCambiaDeParada()
    {
        identificar();
        teclear(QStringLiteral("TxtValor(515)"), QStringLiteral("5"));
        QTest::keyClick(caja(515), Qt::Key_Return);
        QCOMPARE(frm->foco, Frm931::nombreCasilla(516));
        QCOMPARE(vista->findChild<QScrollBar*>(QStringLiteral("VScroll1"))->value(), 15);
        QVERIFY(caja(516)->isVisible());
        QVERIFY(!caja(515)->isVisible());
        QCOMPARE(QApplication::focusWidget(), caja(516));
        teclear(QStringLiteral("TxtValor(530)"), QStringLiteral("7"));
        QTest::keyClick(caja(530), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), caja(500));
        QCOMPARE(caja(531)->text(), QStringLiteral("12"));
    }

    void elAnexoSeAbreConDobleClic_data()
    {
        QTest::addColumn<bool>("aceptar");
        QTest::addColumn<QString>("total");
        QTest::newRow("aceptar") << true << "10,000";
        QTest::newRow("cancelar") << false << "";
    }

    void elAnexoSeAbreConDobleClic()
    {
        QFETCH(bool, aceptar);
        QFETCH(QString, total);
        identificar();
        irA(QStringLiteral("TxtValor(477)"));
        alAbrirAnexo(QStringLiteral("7000"), QStringLiteral("3000"), aceptar);
        QTest::mouseDClick(caja(477), Qt::LeftButton);
        QVERIFY(QTest::qWaitForWindowActive(vista.get()));
        QCOMPARE(caja(477)->text(), total);
        QCOMPARE(frm->txt(432), aceptar ? QStringLiteral("7,000") : QString());
        // An accepted annex moves on to 478; after a cancel the focus stays, and leaving the
        // assistant box lands on 478, whatever was clicked.
        if (!aceptar) {
            QCOMPARE(frm->foco, Frm931::nombreCasilla(477));
            QTest::mouseClick(caja(480), Qt::LeftButton);
        }
        QCOMPARE(frm->foco, Frm931::nombreCasilla(478));
        QCOMPARE(QApplication::focusWidget(), caja(478));
    }

    void salirSinCambiosCierraLaVentana()
    {
        QTest::mouseClick(vista->control(QStringLiteral("cmdCancelar")), Qt::LeftButton);
        QVERIFY(respondedor().mostrados.isEmpty());
        QVERIFY(!vista->isVisible());
    }

    void escapeConCambiosPreguntaYSeQueda()
    {
        identificar();
        respondedor().respuestas << vbCancel;
        QTest::keyClick(vista.get(), Qt::Key_Escape);
        QCOMPARE(respondedor().textos().last(), QStringLiteral("¿El formulario ha sido modificado, desea guardar los cambios?"));
        QVERIFY(vista->isVisible());
    }

    void laAyudaMuestraLaFormulaDeLaCasilla()
    {
        identificar();
        irA(QStringLiteral("TxtValor(463)"));
        QEvent entrar(QEvent::Enter);
        QCoreApplication::sendEvent(caja(463), &entrar);
        QCOMPARE(vista->findChild<QLabel*>(QStringLiteral("TxtAyuda"))->text(), QStringLiteral("c463 = c461 - c462"));
        QCOMPARE(vista->findChild<QLabel*>(QStringLiteral("TxtAyuda"))->palette().color(QPalette::WindowText),
                 QColor(0, 0, 0xC0));
    }

};

QTEST_MAIN(PruebaFrm931)
#include "frm931.moc"
