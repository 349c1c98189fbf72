// The declaration window: it shows what the model holds, forwards what the user does, and a
// declaration typed through it shows the same boxes that `f931 calcular` computes.
#include "basic/reloj.h"
#include "comun/base_prueba.h"
#include "comun/usuario_vista.h"
#include "dialogs/vista/frmanexo477.h"
#include "form931/casillas.h"
#include "form931/frm931.h"
#include "form931/vista/frm931vista.h"
#include "shell/globales.h"

#include "rutas_prueba.h"
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <memory>

using Casillas = QMap<QString, QString>;
Q_DECLARE_METATYPE(Casillas)

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

    void laVentanaTieneLasPestanasYLasCasillasDelModelo()
    {
        const QStringList tab1 = {QStringLiteral("&Identificación"), QStringLiteral("  Estados  &financieros"),
                                  QStringLiteral("Determinación del nuevo coeficiente o porcentaje"),
                                  QStringLiteral("Información com&plementaria")};
        const QStringList tab2 = {QStringLiteral("&Datos Generales"), QStringLiteral("Datos complementarios del régimen"),
                                  QStringLiteral(" Modalidad de pago a cuenta")};
        const QStringList tab3 = {QStringLiteral("Activo"), QStringLiteral("&Pasivo y Patrimonio"),
                                  QStringLiteral("Estado de ganancias y pérdidas")};
        const QStringList tab4 = {QStringLiteral("I&nformación general"),
                                  QStringLiteral("Pérdida tributaria compensable de ejercicios anteriores")};
        const QList<QPair<QString, QStringList>> esperadas = {
            {QStringLiteral("SSTab1"), tab1}, {QStringLiteral("SSTab2"), tab2},
            {QStringLiteral("SSTab3"), tab3}, {QStringLiteral("SSTab4"), tab4}};
        for (const auto& [nombre, textos] : esperadas) {
            QTabWidget* t = pestanas(nombre);
            QVERIFY2(t, qPrintable(nombre));
            QCOMPARE(t->count(), textos.size());
            for (int i = 0; i < textos.size(); ++i)
                QCOMPARE(t->tabText(i), textos[i]);
        }
        QVERIFY(!pestanas(QStringLiteral("SSTab4"))->isTabEnabled(1));
        for (int n : ordenCasillas()) {
            QLineEdit* le = caja(n);
            QVERIFY2(le, qPrintable(QString::number(n)));
            QCOMPARE(le->objectName(), Frm931::nombreCasilla(n));
            QCOMPARE(le->text(), frm->txt(n));
            QCOMPARE(le->isReadOnly(), frm->caja(n).Locked);
        }
        QCOMPARE(caja(461)->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
        QCOMPARE(caja(473)->palette().color(QPalette::Base), QColor(0, 255, 255));
        QCOMPARE(qobject_cast<QPushButton*>(vista->control(QStringLiteral("CmdValidar")))->text(), QStringLiteral("&Validar"));
        QCOMPARE(qobject_cast<QPushButton*>(vista->control(QStringLiteral("CmdGrabar")))->text(), QStringLiteral("&Grabar"));
        QCOMPARE(qobject_cast<QPushButton*>(vista->control(QStringLiteral("cmdCancelar")))->text(), QStringLiteral("&Salir"));
        QCOMPARE(vista->findChild<QLabel*>(QStringLiteral("TxtAyuda"))->text(), frm->TxtAyuda.Caption);
    }

    void lasTeclasPasanPorLaReglaDeLaCasilla_data()
    {
        QTest::addColumn<int>("casilla");
        QTest::addColumn<QString>("teclas");
        QTest::addColumn<QString>("conFoco");
        QTest::addColumn<QString>("alSalir");
        QTest::newRow("solo digitos") << 461 << "12a3-4" << "1234" << "1,234";
        QTest::newRow("resta entre parentesis") << 462 << "500" << "500" << "(500)";
        QTest::newRow("cero sin parentesis") << 464 << "0" << "0" << "0";
        // The digit filter runs first in the registration boxes: only figures get through.
        QTest::newRow("colegiatura solo cifras") << 211 << "ab-1" << "1" << "1";
        QTest::newRow("documento en mayusculas") << 226 << "ab12" << "AB12" << "AB12";
        QTest::newRow("ruc del contador") << 208 << "1040000111x7" << "10400001117" << "10400001117";
    }

    void lasTeclasPasanPorLaReglaDeLaCasilla()
    {
        QFETCH(int, casilla);
        QFETCH(QString, teclas);
        QFETCH(QString, conFoco);
        QFETCH(QString, alSalir);
        identificar();
        teclear(Frm931::nombreCasilla(casilla), teclas);
        QCOMPARE(caja(casilla)->text(), conFoco);
        QCOMPARE(frm->txt(casilla), conFoco);
        QTest::keyClick(caja(casilla), Qt::Key_Tab);
        QVERIFY(frm->foco != Frm931::nombreCasilla(casilla));
        QCOMPARE(frm->txt(casilla), alSalir);
        QCOMPARE(caja(casilla)->text(), alSalir);
    }

    void laCadenaLlegaAlCoeficienteEnPantalla()
    {
        identificar();
        teclear(QStringLiteral("TxtValor(461)"), QStringLiteral("100000"));
        QTest::keyClick(caja(461), Qt::Key_Return);
        // Enter moves on in the form's own order, and the window follows.
        QCOMPARE(QApplication::focusWidget(), vista->control(frm->foco));
        for (int n : {463, 466, 470, 484, 487, 100, 106, 110, 113, 610})
            QCOMPARE(caja(n)->text(), frm->txt(n));
        QCOMPARE(caja(113)->text(), QStringLiteral("29,500"));
        QCOMPARE(caja(610)->text(), QStringLiteral("0.2950"));
    }

    void elCambioDeRegimenSePregunta()
    {
        identificar();
        clic(QStringLiteral("optRenta(1)"));     // answered with its default: No
        QVERIFY(respondedor().textos().last().startsWith(QStringLiteral("Va a cambiar de Régimen Tributario")));
        QVERIFY(vista->opcion(QStringLiteral("optRenta"), 0)->isChecked());
        QVERIFY(!vista->opcion(QStringLiteral("optRenta"), 1)->isChecked());
        QVERIFY(vista->findChild<QWidget*>(QStringLiteral("Frame15"))->isHidden());
        respondedor().respuestas << vbYes;
        clic(QStringLiteral("optRenta(1)"));
        QVERIFY(vista->opcion(QStringLiteral("optRenta"), 1)->isChecked());
        QVERIFY(!vista->opcion(QStringLiteral("optRenta"), 0)->isChecked());
        QVERIFY(!vista->findChild<QWidget*>(QStringLiteral("Frame15"))->isHidden());
        QVERIFY(vista->findChild<QWidget*>(QStringLiteral("Frame_General"))->isHidden());
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
        // Leaving the assistant box lands on 478, whatever was clicked.
        QTest::mouseClick(caja(480), Qt::LeftButton);
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

    void laVentanaYLaLineaDeComandosCoinciden_data()
    {
        QTest::addColumn<int>("regimen");
        QTest::addColumn<Casillas>("importes");
        QTest::newRow("general") << 0 << Casillas{
            {"500", "25000"}, {"508", "1200"}, {"520", "8000"}, {"524", "3000"}, {"532", "4000"}, {"544", "20000"},
            {"551", "900"}, {"552", "5000"}, {"432", "7000"}, {"433", "3000"}, {"461", "480000"}, {"462", "15000"},
            {"464", "210000"}, {"468", "30000"}, {"469", "45000"}, {"472", "2000"}, {"475", "1500"}, {"481", "700"},
            {"490", "9000"}, {"103", "4000"}, {"105", "1000"}, {"108", "2500"}};
        QTest::newRow("mype") << 5 << Casillas{
            {"251", "3000"}, {"252", "500"}, {"103", "1000"}, {"461", "150000"}, {"464", "60000"}, {"469", "12000"}, {"480", "800"}};
    }

    void laVentanaYLaLineaDeComandosCoinciden()
    {
        QFETCH(int, regimen);
        QFETCH(Casillas, importes);
        const QString codigos[] = {QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("2"),
                                   QStringLiteral("3"), QStringLiteral("6"), QStringLiteral("8")};

        // Through the window, in the order the command types.
        identificar(regimen);
        for (int n : frm->mvCasillas) {
            if (n == 432 || n == 433 || n == 650 || n == 651)
                continue;
            if (n == 477 && importes.contains(QStringLiteral("432"))) {
                irA(QStringLiteral("TxtValor(477)"));
                alAbrirAnexo(importes.value(QStringLiteral("432")), importes.value(QStringLiteral("433")));
                QTest::mouseDClick(caja(477), Qt::LeftButton);
                QVERIFY(QTest::qWaitForWindowActive(vista.get()));
                continue;
            }
            const QString codigo = codigoCasilla(n);
            if (importes.contains(codigo))
                teclear(Frm931::nombreCasilla(n), importes.value(codigo));
        }
        teclear(QStringLiteral("TxtValor(150)"), QString());   // the last box typed is left

        // Through the command line.
        QJsonObject casillas;
        casillas.insert(QStringLiteral("028"), QStringLiteral("4445555"));
        casillas.insert(QStringLiteral("056"), codigos[regimen]);
        casillas.insert(QStringLiteral("813"), QStringLiteral("0"));
        for (const char* c : {"605", "606", "607"})
            casillas.insert(QString::fromLatin1(c), QStringLiteral("0"));
        casillas.insert(QStringLiteral("608"), QStringLiteral("1"));
        for (auto it = importes.begin(); it != importes.end(); ++it)
            casillas.insert(it.key(), it.value());
        QJsonObject entrada;
        entrada.insert(QStringLiteral("ruc"), DatosDemo::kRucAndina);
        entrada.insert(QStringLiteral("casillas"), casillas);
        const QString archivo = familia->carpeta() + QStringLiteral("entrada.json");
        QFile f(archivo);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(QJsonDocument(entrada).toJson());
        f.close();
        QProcess p;
        p.start(QStringLiteral(F931_BIN_F931),
                {QStringLiteral("calcular"), QStringLiteral("--base"), familia->baseDatos(), QStringLiteral("--usuario"),
                 DatosDemo::kContador, QStringLiteral("--hoy"), Hoy().toString(QStringLiteral("yyyy-MM-dd")), archivo});
        QVERIFY(p.waitForFinished(60000));
        QCOMPARE(p.exitCode(), 0);
        const QJsonObject salida = QJsonDocument::fromJson(p.readAllStandardOutput()).object();
        const QJsonObject calculadas = salida.value(QStringLiteral("casillas")).toObject();
        QCOMPARE(calculadas.size(), frm->mvCasillas.size());
        for (int n : frm->mvCasillas)
            QVERIFY2(caja(n)->text() == calculadas.value(codigoCasilla(n)).toString(),
                     qPrintable(QStringLiteral("casilla %1: ventana \"%2\", comando \"%3\"")
                                    .arg(n)
                                    .arg(caja(n)->text(), calculadas.value(codigoCasilla(n)).toString())));
        QVERIFY(!caja(610)->text().isEmpty());
        QCOMPARE(salida.value(QStringLiteral("tasa")).toString(), G().gsTasa);
    }
};

QTEST_MAIN(PruebaFrm931)
#include "frm931.moc"
