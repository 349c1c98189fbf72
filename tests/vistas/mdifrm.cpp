// The main window on the offscreen platform: caption, menus, toolbar, status bar, the load
// sequence and the mouse rule of the taxpayer's name. (That each command reaches its window is
// the walk of every button in tests/escenarios; what each sets, the commands' model test.)
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBar>
#include <QtTest>

#include "basic/respondedor_guion.h"
#include "dialogs/vista/frmacercade.h"
#include "family/vista/barraestado.h"
#include "shell/arranque.h"
#include "shell/comandos.h"
#include "shell/familia.h"
#include "shell/globales.h"
#include "shell/vista/mdifrm.h"
#include "shell/vista/ventanas.h"
#include "store/base.h"

class PruebaMDIFrm : public QObject {
    Q_OBJECT

private:
    RespondedorGuion mensajes;

    static void moverRaton(QWidget* w, QPoint p)
    {
        QMouseEvent e(QEvent::MouseMove, p, w->mapToGlobal(p), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(w, &e);
    }

private slots:
    void init()
    {
        G().reiniciar();
        barraEstado() = EstadoBarra();
        mensajes.mostrados.clear();
        instalarRespondedor(&mensajes);
    }
    void cleanup()
    {
        instalarRespondedor(nullptr);
        cerrarBase();
        G().reiniciar();
    }

    void tituloYMarco()
    {
        MDIFrm w;
        QCOMPARE(w.windowTitle(), QStringLiteral("0931 Modificación de coeficiente o porcentaje - v 1.6"));
        QVERIFY(!(w.windowFlags() & Qt::WindowMinimizeButtonHint));
        QVERIFY(!(w.windowFlags() & Qt::WindowMaximizeButtonHint));
        QCOMPARE(ventanaPrincipal(), static_cast<QWidget*>(&w));
    }

    void menusEnOrden()
    {
        MDIFrm w;
        QStringList vistos;
        for (QAction* m : w.menuBar()->actions()) {
            vistos << m->objectName() + QLatin1Char('=') + m->text();
            for (QAction* i : m->menu()->actions())
                vistos << QStringLiteral("  ") + i->objectName() + (i->isSeparator() ? QStringLiteral(" -") : QLatin1Char('=') + i->text());
        }
        const QStringList esperados = {
            QStringLiteral("mnuDeclara=&Declaraciones"),
            QStringLiteral("  mnuNueva=&Nueva"),
            QStringLiteral("  mnuModificar=&Modificar"),
            QStringLiteral("  mnuEliminar=&Eliminar"),
            QStringLiteral("  rayita1 -"),
            QStringLiteral("  mnuImprimir=&Imprimir"),
            QStringLiteral("  rayita -"),
            QStringLiteral("  mnuSalir=&Salir"),
            QStringLiteral("mnuDeclarEnv=Declaraciones &Enviadas"),
            QStringLiteral("  mnuRegistrar=&Registrar número de orden"),
            QStringLiteral("  mnuEliminar1=&Eliminar"),
            QStringLiteral("  Raya -"),
            QStringLiteral("  mnuImprimir1=&Imprimir"),
            QStringLiteral("mnuConsultas=&Consultas"),
            QStringLiteral("  mnuFactores=&Factores de Actualización"),
            QStringLiteral("  mnuDocIdent=&Bancos"),
            QStringLiteral("  mnupais=&Paises"),
            QStringLiteral("  mnuUIT=&UIT"),
            QStringLiteral("mnuayuda=&Ayuda"),
            QStringLiteral("  mnuContenido=&Contenido"),
            QStringLiteral("  rayita2 -"),
            QStringLiteral("  mnuAcercade=Acerca &de QVL"),
        };
        QCOMPARE(vistos, esperados);
    }

    void botonesDeLaBarra()
    {
        MDIFrm w;
        QCOMPARE(w.tlbMenu->objectName(), QStringLiteral("tlbMenu"));
        QStringList tips;
        for (int i = 1; i <= 10; ++i)
            tips << (w.boton(i)->isSeparator() ? QStringLiteral("-") : w.boton(i)->toolTip());
        QCOMPARE(tips, (QStringList{"Nueva", "Modificar", "Eliminar", "Imprimir", "Salir", "-", "Num. Orden", "-", "-",
                                    "Ayuda"}));
        for (int i : {1, 2, 3, 4, 5, 7, 10})
            QVERIFY2(!w.boton(i)->icon().isNull(), qPrintable(QString::number(i)));
    }

    void barraDeEstadoTrasPBarraEstado()
    {
        MDIFrm w;
        w.show();
        pBarraEstado(QStringLiteral("20600007891"), QStringLiteral("AGROEXPORTADORA DEL NORTE DEMO S.A.A."),
                     QStringLiteral("202406"), QStringLiteral("0931"));
        BarradeEstadoQVL* b = w.BarradeEstadoQVL1;
        QCOMPARE(b->objectName(), QStringLiteral("BarradeEstadoQVL1"));
        QCOMPARE(b->property("Modo").toInt(), 1);
        QCOMPARE(b->property("PanelRuc").toString(), QStringLiteral("20600007891"));
        QCOMPARE(b->property("PanelNombre").toString(), QStringLiteral("AGROEXPORTADORA DEL NORTE DEMO S.A.A."));
        QCOMPARE(b->property("PanelPeriodo").toString(), QStringLiteral("2024/06"));
        QCOMPARE(b->property("PanelFormulario").toString(), QStringLiteral("0931"));
        auto* panel = b->findChild<QLabel*>(QStringLiteral("PanelPeriodo"));
        QVERIFY(panel && panel->isVisible());
        QCOMPARE(panel->text(), QStringLiteral("2024/06"));
    }

    void elRatonBorraElNombreSalvoSobreCiertosBotones()
    {
        MDIFrm w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        const auto conNombre = [] {
            pBarraEstado(QStringLiteral("20600007891"), QStringLiteral("AGRO"), QStringLiteral("202406"),
                         QStringLiteral("0931"));
        };
        const auto nombre = [&w] { return w.BarradeEstadoQVL1->property("PanelNombre").toString(); };

        conNombre();
        QWidget* nueva = w.tlbMenu->widgetForAction(w.boton(1));
        moverRaton(nueva, QPoint(3, 3));
        QCOMPARE(nombre(), QStringLiteral("AGRO"));
        QWidget* separador = w.tlbMenu->widgetForAction(w.boton(6));
        moverRaton(separador, QPoint(1, 1));
        QCOMPARE(nombre(), QStringLiteral("AGRO"));
        QWidget* salir = w.tlbMenu->widgetForAction(w.boton(5));
        moverRaton(salir, QPoint(salir->width() / 2, 3));
        QCOMPARE(nombre(), QString());

        conNombre();
        moverRaton(w.imgFondo, QPoint(10, 10));
        QCOMPARE(nombre(), QString());
        conNombre();
        moverRaton(w.Picture2, QPoint(1, 1));
        QCOMPARE(nombre(), QString());
    }

    void cargaConLaFamiliaDelIntegrador()
    {
        QTemporaryDir dir;
        qputenv("QVL_WINDIR", dir.path().toUtf8());
        const Familia f = prepararFamilia(dir.path());
        G().gsPeriodo = QStringLiteral("2026");
        {
            MDIFrm w;
            QVERIFY(w.Form_Load());
            QVERIFY(w.isVisible());
            QCOMPARE(G().gsFormulario, QStringLiteral("0931"));
            QCOMPARE(G().gsPathSys, f.carpeta);
            QVERIFY(!G().gdbBase.isEmpty());
            QCOMPARE(archivoAyuda(), f.carpeta + QStringLiteral("0931/Ql931.hlp"));
            QCOMPARE(w.BarradeEstadoQVL1->property("Modo").toInt(), 1);
            QCOMPARE(w.BarradeEstadoQVL1->property("PanelRuc").toString(), QString());
            QCOMPARE(w.BarradeEstadoQVL1->property("PanelPeriodo").toString(), QString());
            QCOMPARE(w.BarradeEstadoQVL1->property("PanelFormulario").toString(), QStringLiteral("0931"));
            QCOMPARE(w.frameGeometry(), QRect(0, 0, 637, 487));
            QVERIFY(!QApplication::overrideCursor());
            QVERIFY(mensajes.mostrados.isEmpty());
            // Each activation puts it back in place.
            w.move(200, 150);
            w.resize(300, 200);
            QApplication::setActiveWindow(nullptr);
            w.activateWindow();
            QTRY_COMPARE(w.frameGeometry().size(), QSize(641, 481));
            // Left and top -4; the offscreen screen keeps windows inside it.
            QVERIFY(w.frameGeometry().left() <= 0 && w.frameGeometry().top() <= 0);
        }
        qunsetenv("QVL_WINDIR");
    }

    void sinBaseLaCargaFallaConSuMensaje()
    {
        QTemporaryDir dir;
        qputenv("QVL_WINDIR", dir.path().toUtf8());
        MDIFrm w;
        QVERIFY(!w.Form_Load());
        QCOMPARE(mensajes.textos(), QStringList{QStringLiteral(" 3051- Base esta bloqueda")});
        QCOMPARE(mensajes.mostrados[0].titulo, QStringLiteral("Error de Conección"));
        QVERIFY(!QApplication::overrideCursor());
        qunsetenv("QVL_WINDIR");
    }

    void laAyudaSeAbreEnSuVisor()
    {
        MDIFrm w;
        w.show();
        w.MostrarHelp();
        auto* visor = w.findChild<QDialog*>(QStringLiteral("CMDlgHlp"));
        QVERIFY(visor && visor->isVisible());
        auto* texto = visor->findChild<QTextBrowser*>();
        QVERIFY(texto->toPlainText().contains(QStringLiteral("Modificación de coeficiente o porcentaje")));
        QVERIFY(texto->toPlainText().contains(QStringLiteral("Estados financieros")));
        visor->close();
    }

    void acercaDeMuestraLaVersionCentrado()
    {
        MDIFrm w;
        w.setGeometry(100, 80, 700, 500);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        bool visto = false;
        QTimer::singleShot(0, [&] {
            auto* d = qobject_cast<frmAcercade*>(QApplication::activeModalWidget());
            QVERIFY(d);
            visto = true;
            QCOMPARE(d->txtVersion->text(), QStringLiteral("Versión 1.6"));
            QVERIFY((d->frameGeometry().center() - w.frameGeometry().center()).manhattanLength() <= 2);
            d->cmdAceptar->click();
        });
        w.accion(QStringLiteral("mnuAcercade"))->trigger();
        QVERIFY(visto);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(PruebaMDIFrm)
#include "mdifrm.moc"
