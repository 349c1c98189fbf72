// Every window of the module, opened as the user opens it: each visible box, button, list and
// grid carries an accessible name, the known ones read as the user reads them, and F1 opens the
// help on that window's page.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include <functional>
#include <memory>

#include "comun/base_prueba.h"
#include "comun/usuario_vista.h"
#include "dialogs/vista/frmanexo477.h"
#include "dialogs/vista/frmconsist.h"
#include "dialogs/vista/frmconsultas.h"
#include "dialogs/vista/frmperdida.h"
#include "dialogs/vista/frmubigeo.h"
#include "reports/vista/frmimpxpag.h"
#include "reports/vista/frmpreview.h"
#include "shell/globales.h"
#include "shell/vista/ayuda.h"
#include "shell/vista/mdifrm.h"
#include "shell/vista/ventanas.h"
#include "store/base.h"

namespace {

QString descripcion(const QWidget* w)
{
    return w->objectName() + QStringLiteral(" (") + QString::fromLatin1(w->metaObject()->className()) +
           QLatin1Char(')');
}

// The controls of `ventana` that a screen reader could not name: those on the screen and those
// on the pages of tabs behind (only controls hidden by the window's rules are left out).
QStringList sinNombre(const QWidget* ventana)
{
    QStringList faltan;
    for (const QWidget* w : ventana->findChildren<QWidget*>()) {
        const bool control = qobject_cast<const QAbstractButton*>(w) || qobject_cast<const QLineEdit*>(w) ||
                             qobject_cast<const QComboBox*>(w) || qobject_cast<const QAbstractItemView*>(w);
        if (control && !w->isHidden() && w->window() == ventana && w->accessibleName().isEmpty())
            faltan << descripcion(w);
    }
    return faltan;
}

VentanaAyuda* ayudaVisible()
{
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* a = qobject_cast<VentanaAyuda*>(w); a && a->isVisible())
            return a;
    return nullptr;
}

QByteArray unaHoja()
{
    return "<!font!>Courier New<!/font!>\r\n<!nHojas!>1<!/nHojas!>\r\n<!Orientacion!>V<!/Orientacion!>\r\n"
           "<!Color!>&H00FFFFC0&<!/Color!>\r\npPos|300|350|Hoja|True|16|1|\r\n";
}

}  // namespace

class PruebaVentanasAccesibles : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;
    std::unique_ptr<MDIFrm> principal;
    QMap<QString, QStringList> faltan;      // window -> controls without a name
    QMap<QString, QString> ayudas;          // window -> page that F1 opened
    QMap<QString, QString> nombres;         // "window/control" -> accessible name

    // What F1 opens in `ventana`, pressed where the focus is; the help window goes with it, so
    // that the modal window does not block it.
    QString pulsarF1(QWidget* ventana)
    {
        QWidget* foco = QApplication::focusWidget();
        QTest::keyClick(foco && foco->window() == ventana ? foco : ventana, Qt::Key_F1);
        VentanaAyuda* a = ayudaVisible();
        if (!a || a->parentWidget() != ventana)
            return QStringLiteral("sin ayuda");
        const QString destino = a->destino();
        faltan.insert(QStringLiteral("CMDlgHlp"), sinNombre(a));
        QTest::mouseClick(a->cmdCerrar, Qt::LeftButton);
        if (a->isVisible())
            return QStringLiteral("no se cierra");
        // The closed help goes away, and the window takes the keys again.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        activar(ventana);
        return destino;
    }

    static void activar(QWidget* ventana)
    {
        ventana->activateWindow();
        QApplication::setActiveWindow(ventana);
        QTRY_COMPARE(QApplication::activeWindow(), ventana);
    }

    void revisar(QWidget* ventana)
    {
        faltan.insert(ventana->objectName(), sinNombre(ventana));
        ayudas.insert(ventana->objectName(), pulsarF1(ventana));
    }

    void anotar(QWidget* ventana, const QString& control)
    {
        auto* w = ventana->findChild<QWidget*>(control);
        QVERIFY2(w, qPrintable(control));
        nombres.insert(ventana->objectName() + QLatin1Char('/') + control, w->accessibleName());
    }

    // Runs `abrir`, which shows a modal window and returns when it closes; while it is open,
    // `mirar` looks at it, then it is closed as with its close box.
    void abrirYMirar(const std::function<void()>& abrir, const std::function<void(QWidget*)>& mirar = {})
    {
        QWidget* antes = QApplication::activeModalWidget();
        bool visto = false;
        QElapsedTimer reloj;
        reloj.start();
        QTimer espera;
        espera.setInterval(10);
        connect(&espera, &QTimer::timeout, this, [&] {
            QWidget* w = QApplication::activeModalWidget();
            if (w && w != antes && w->isVisible()) {
                espera.stop();
                visto = true;
                revisar(w);
                if (mirar)
                    mirar(w);
                w->close();
                if (auto* d = qobject_cast<QDialog*>(w); d && d->isVisible())
                    d->reject();
            } else if (reloj.elapsed() > 10000) {
                espera.stop();
            }
        });
        espera.start();
        abrir();
        QVERIFY(visto);
    }

private slots:
    void initTestCase()
    {
        familia = std::make_unique<FamiliaPrueba>();
        for (const char* periodo : {"202606", "202607"}) {
            ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, ESTADO, cNumero)"
                                    " VALUES (6, ?, ?, '0931', 0, '123456')"),
                     {DatosDemo::kRucAndina, QString::fromLatin1(periodo)});
            ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, NORDEN, CONTROL)"
                                    " VALUES (6, ?, ?, '0931', '01', '12345678', '999')"),
                     {DatosDemo::kRucAndina, QString::fromLatin1(periodo)});
        }
        QFile mens(G().gsArchMens);
        QVERIFY(mens.open(QIODevice::WriteOnly));
        mens.write("Casilla 610: falta el nuevo coeficiente\r\n");
        mens.close();
        QFile hoja(familia->carpeta() + QStringLiteral("RPT/00000001.PRN"));
        QVERIFY(hoja.open(QIODevice::WriteOnly));
        hoja.write(unaHoja());
        hoja.close();

        principal = std::make_unique<MDIFrm>();
        principal->show();
        QVERIFY(QTest::qWaitForWindowActive(principal.get()));
    }

    void cleanupTestCase()
    {
        principal.reset();
        familia.reset();
    }

    void cadaVentanaSeAbre()
    {
        revisar(principal.get());
        nombres.insert(QStringLiteral("MDIFrm/Nueva"),
                       principal->tlbMenu->widgetForAction(principal->boton(1))->accessibleName());

        G().gsPeriodo = QStringLiteral("2026");
        abrirYMirar([] { pAbreDeclaracion(0, {}); }, [this](QWidget* frm) {
            anotar(frm, QStringLiteral("TxtValor(610)"));
            anotar(frm, QStringLiteral("TxtValor(500)"));
            anotar(frm, QStringLiteral("CmdGrabar"));
            anotar(frm, QStringLiteral("CmbRuc"));
            anotar(frm, QStringLiteral("grdPerdidaTributaria"));
            // Identified as a user does, the statements can come to the front.
            auto* vista = qobject_cast<Frm931Vista*>(frm);
            QVERIFY(vista);
            usuario::elegirLinea(vista, QStringLiteral("CmbRuc"),
                                 frm->findChild<QComboBox*>(QStringLiteral("CmbRuc"))->findText(DatosDemo::kRucAndina, Qt::MatchStartsWith));
            usuario::teclear(vista, QStringLiteral("TxtTelefono"), QStringLiteral("4445555"));
            for (const char* opcion : {"optRenta(0)", "OptPersona(0)", "OptInicio(0)", "OptPrecedente(0)", "OptAnterior(0)"})
                usuario::clic(vista, QString::fromLatin1(opcion));
            usuario::elegirLinea(vista, QStringLiteral("CboBalance"), 1);
            auto* pestanas = frm->findChild<QTabWidget*>(QStringLiteral("SSTab1"));
            QTest::mouseClick(pestanas->tabBar(), Qt::LeftButton, {}, pestanas->tabBar()->tabRect(1).center());
            QCOMPARE(pestanas->currentIndex(), 1);
            nombres.insert(QStringLiteral("F1 en estados financieros"), pulsarF1(frm));
            pestanas->setCurrentIndex(0);
            abrirYMirar([frm] { abrirFrmPerdida(frm); }, [this](QWidget* w) {
                for (QLineEdit* le : w->findChildren<QLineEdit*>())
                    nombres.insert(QStringLiteral("frmPerdidaEjercAnt/") + le->objectName(), le->accessibleName());
            });
            abrirYMirar([frm] { abrirFrmConsist(frm); });
            abrirYMirar([frm] {
                frmUbigeo dlg(QStringLiteral("Ubigeo Zona "), frm);
                dlg.exec();
            });
            abrirYMirar([frm] {
                frmAnexo477 dlg(*G().gfrmDeclaracion, 477, frm);
                dlg.exec();
            });
        });
        G().giOpcion = 1;
        abrirYMirar([] { abrirFrmContAbrir(1); }, [this](QWidget* w) { anotar(w, QStringLiteral("grdContrib")); });
        G().giOpcion = 2;
        abrirYMirar([] { abrirFrmContAbrirEnv(); });
        G().gbEnviada = false;
        G().gbImpEnviada = false;
        abrirYMirar([] { pAbreImprimir(1); }, [this](QWidget* w) {
            const QString archivo = familia->carpeta() + QStringLiteral("RPT/00000001.PRN");
            abrirYMirar([w, archivo] {
                frmImpxPag rango(QStringLiteral("Imprimir"), 1, archivo, w);
                rango.exec();
            });
            abrirYMirar([w, archivo] { abrirPrevia(archivo, w); });
        });
        abrirYMirar([] { abrirFrmConsFac(); });
        G().giOpcion = 1;
        abrirYMirar([] { abrirFrmConsultas(); }, [this](QWidget* w) { anotar(w, QStringLiteral("grdBancos")); });
        abrirYMirar([] { abrirFrmConsTasas(); });
        abrirYMirar([] { abrirFrmAcercade(); });
    }

    void ningunControlVisibleQuedaSinNombre()
    {
        const QStringList vistas = faltan.keys();
        QCOMPARE(vistas, (QStringList{"CMDlgHlp", "Frm931", "FrmConsFac", "FrmConsTasas", "FrmConsist", "FrmConsultas",
                                      "FrmContAbrir", "FrmContAbrirEnv", "MDIFrm", "frmAcercade", "frmAnexo477",
                                      "frmImprimir", "frmImpxPag", "frmPerdidaEjercAnt", "frmPreview", "frmUbigeo"}));
        for (auto it = faltan.cbegin(); it != faltan.cend(); ++it)
            QVERIFY2(it.value().isEmpty(), qPrintable(it.key() + QStringLiteral(": ") + it.value().join(", ")));
    }

    void losNombresSeLeenComoLaVentana()
    {
        QCOMPARE(nombres.value("Frm931/TxtValor(610)"), QStringLiteral("Casilla 610 NUEVO COEFICIENTE O PORCENTAJE"));
        QVERIFY2(nombres.value("Frm931/TxtValor(500)").startsWith(QStringLiteral("Casilla 500 ")),
                 qPrintable(nombres.value("Frm931/TxtValor(500)")));
        QCOMPARE(nombres.value("Frm931/CmdGrabar"), QStringLiteral("Grabar"));
        QCOMPARE(nombres.value("MDIFrm/Nueva"), QStringLiteral("Nueva"));
        // A grid without a label of its own: its tab's caption, else its window's title.
        QCOMPARE(nombres.value("Frm931/grdPerdidaTributaria"),
                 QStringLiteral("Pérdida tributaria compensable de ejercicios anteriores"));
        QCOMPARE(nombres.value("FrmConsultas/grdBancos"), QStringLiteral("Bancos"));
        QCOMPARE(nombres.value("FrmContAbrir/grdContrib"),
                 QStringLiteral("Seleccione la Declaración que desea modificar"));
        QVERIFY2(!nombres.value("Frm931/CmbRuc").isEmpty() && nombres.value("Frm931/CmbRuc") != "CmbRuc",
                 qPrintable(nombres.value("Frm931/CmbRuc")));
        QStringList perdida;
        for (auto it = nombres.cbegin(); it != nombres.cend(); ++it)
            if (it.key().startsWith(QLatin1String("frmPerdidaEjercAnt/")) && it.value() != QStringLiteral("Importe de la pérdida consignada en la DDJJ Anual"))
                perdida << it.value();
        QCOMPARE(perdida, QStringList{QStringLiteral("Año")});
    }

    void f1AbreLaPaginaDeCadaVentana()
    {
        QCOMPARE(nombres.value("F1 en estados financieros"), QStringLiteral("declaracion.html#estados"));
        const QMap<QString, QString> esperadas = {
            {"MDIFrm", "Ql931.html"},
            {"Frm931", "declaracion.html#identificacion"},
            {"frmPerdidaEjercAnt", "perdida.html"},
            {"FrmConsist", "inconsistencias.html"},
            {"frmUbigeo", "ubigeo.html"},
            {"frmAnexo477", "anexo477.html"},
            {"FrmContAbrir", "modificar.html"},
            {"FrmContAbrirEnv", "enviadas.html"},
            {"frmImprimir", "imprimir.html"},
            {"frmImpxPag", "imprimir.html#paginas"},
            {"frmPreview", "imprimir.html#preliminar"},
            {"FrmConsFac", "consultas.html"},
            {"FrmConsultas", "consultas.html"},
            {"FrmConsTasas", "consultas.html"},
            {"frmAcercade", "Ql931.html"},
        };
        QCOMPARE(ayudas, esperadas);
    }
};

QTEST_MAIN(PruebaVentanasAccesibles)
#include "ventanas_accesibles.moc"
