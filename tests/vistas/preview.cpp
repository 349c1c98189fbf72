// "Presentación Preliminar" on the offscreen platform: paging, the bars, the page on the
// screen, printing, saving as PDF and the missing file.
#include <QAction>
#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include "basic/respondedor_guion.h"
#include "reports/reproduccion.h"
#include "reports/vista/frmpreview.h"
#include "shell/globales.h"

class PruebaPreview : public QObject {
    Q_OBJECT

private:
    QTemporaryDir dir;
    RespondedorGuion mensajes;
    QList<DocumentoSpool> impresos;

    static QByteArray cincoHojas()
    {
        QByteArray t = "<!font!>Courier New<!/font!>\r\n<!nHojas!>5<!/nHojas!>\r\n<!Orientacion!>V<!/Orientacion!>\r\n"
                       "<!Color!>&H00FFFFC0&<!/Color!>\r\n";
        for (int h = 0; h < 5; ++h) {
            if (h > 0)
                t += "pNuevaHoja\r\n";
            t += QStringLiteral("pPos|300|350|H%1|True|16|%1|\r\npCuadro|150|300|1700|1640|%1|\r\n").arg(h).toLatin1();
        }
        return t;
    }

    // Clicks the toolbar button of an action, as the user does.
    static void pulsar(frmPreview& w, QAction* accion)
    {
        auto* barra = w.findChild<QToolBar*>(QStringLiteral("tlbPrevia"));
        QVERIFY(barra);
        auto* boton = qobject_cast<QToolButton*>(barra->widgetForAction(accion));
        QVERIFY(boton);
        QTest::mouseClick(boton, Qt::LeftButton);
    }

    static QColor pixel(frmPreview& w, QPoint p) { return QColor(w.picFondo()->grab().toImage().pixel(p)); }
    static const QColor cian() { return QColor(0xC0, 0xFF, 0xFF); }

private slots:
    void init()
    {
        G().reiniciar();
        G().gsPathRpt = dir.path();
        QFile f(dir.filePath(QStringLiteral("r.PRN")));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(cincoHojas());
        f.close();
        mensajes = RespondedorGuion();
        instalarRespondedor(&mensajes);
        impresos.clear();
        instalarDestinoImpresion([this](const DocumentoSpool& d) { impresos << d; });
    }

    void cleanup()
    {
        instalarDestinoImpresion({});
        instalarRespondedor(nullptr);
        G().reiniciar();
    }

    void botonesYPaginado()
    {
        frmPreview w(QStringLiteral("r.PRN"));
        w.show();
        QCOMPARE(w.windowTitle(), QStringLiteral("Presentación Preliminar"));
        QCOMPARE(w.boton(2)->toolTip(), QStringLiteral("Pag Anterior"));
        QCOMPARE(w.boton(3)->toolTip(), QStringLiteral("Pag Sgt"));
        QCOMPARE(w.boton(4)->toolTip(), QStringLiteral("Imprimir"));
        QCOMPARE(w.boton(5)->toolTip(), QStringLiteral("Salir"));
        QCOMPARE(w.guardarPdf()->text(), QStringLiteral("Guardar PDF"));
        QCOMPARE(w.modelo().nTotHojas, qint16(5));

        pulsar(w, w.boton(3));
        pulsar(w, w.boton(3));
        pulsar(w, w.boton(2));
        QCOMPARE(w.modelo().nHojaActual, qint16(1));
        QCOMPARE(w.modelo().elementoVisible(), 1);
        QCOMPARE(pixel(w, QPoint(5, 5)), cian());   // the page's background from the directive
    }

    void barrasEnPaso()
    {
        frmPreview w(QStringLiteral("r.PRN"));
        w.show();
        const QSize marco = w.picFondo()->size();
        QCOMPARE(marco, QSize(801, 355));   // 12015 by 5325 twips
        QCOMPARE(pixel(w, QPoint(5, marco.height() - 2)), cian());
        w.vsbPic(1)->setValue(11000);   // the page is 15000 high: the frame shows its end
        QCOMPARE(w.vsbPic(0)->value(), 11000);
        QCOMPARE(pixel(w, QPoint(5, marco.height() - 2)), QColor(Qt::white));
        QCOMPARE(w.vsbPic(0)->singleStep(), 400);
        QCOMPARE(w.vsbPic(1)->singleStep(), 350);
        w.HScroll1()->setValue(3500);
        QCOMPARE(pixel(w, QPoint(marco.width() - 2, 5)), QColor(Qt::white));
        QCOMPARE(w.HScroll1()->singleStep(), 45);

        pulsar(w, w.boton(3));   // paging brings the vertical bars back, not the horizontal one
        QCOMPARE(w.vsbPic(0)->value(), 0);
        QCOMPARE(w.vsbPic(1)->value(), 0);
        QCOMPARE(w.HScroll1()->value(), 3500);
    }

    void rangoDeUnaHoja()
    {
        G().gbPorHojas = -1;
        G().gnHojaDesde = 3;
        G().gnHojaHasta = 3;
        frmPreview w(QStringLiteral("r.PRN"));
        w.show();
        QCOMPARE(w.modelo().nTotHojas, qint16(1));
        pulsar(w, w.boton(3));
        pulsar(w, w.boton(2));
        QCOMPARE(w.modelo().nHojaActual, qint16(0));
        QVERIFY(!w.modelo().picPrevia[0].pagina.comandos.isEmpty());
        QCOMPARE(w.modelo().picPrevia[0].pagina.comandos[0].texto, QStringLiteral("H2"));
    }

    void imprimirGuardarYSalir()
    {
        G().gbPorHojas = -1;
        G().gnHojaDesde = 2;
        G().gnHojaHasta = 3;
        frmPreview w(QStringLiteral("r.PRN"));
        w.show();
        pulsar(w, w.boton(4));
        QCOMPARE(impresos.size(), 1);
        QCOMPARE(impresos[0].paginas.size(), 3);   // pages 2 and 3, then the blank page
        QVERIFY(impresos[0].paginas[2].comandos.isEmpty());
        QCOMPARE(w.modelo().nTotHojas, qint16(2));   // the pictures stay as they are
        QCOMPARE(w.modelo().Modo, QStringLiteral("IMPRIMIR"));

        const QString pdf = dir.filePath(QStringLiteral("previa.pdf"));
        QVERIFY(w.guardarComo(pdf));
        QFile f(pdf);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll().count("/Type /Page\n") + 0, 2);   // what the preview holds

        pulsar(w, w.boton(5));
        QVERIFY(!w.isVisible());
    }
};

QTEST_MAIN(PruebaPreview)
#include "preview.moc"
