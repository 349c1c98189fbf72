// "Presentación Preliminar" on the offscreen platform: paging by buttons, keys and scrolling,
// with the page buttons enabled only where they move; the page count, the zoom, printing
// through the print dialog and to PDF without a printer, saving as PDF.
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QGraphicsView>
#include <QImage>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include "basic/respondedor_guion.h"
#include "reports/reproduccion.h"
#include "reports/vista/frmpreview.h"
#include "reports/vista/impresion.h"
#include "shell/globales.h"

namespace {

// The print and file dialogs as a user answers them: printer or not, the pages and copies
// chosen, the file named. Printing goes to a PDF file the test reads back.
class DialogosFalsos : public DialogosImpresion {
public:
    bool impresoras = true;
    int desde = 0, hasta = 0, copias = 1;   // 0: all pages
    QString salida, archivoPdf;
    QList<QPair<int, int>> ofrecido;        // min and max of each print dialog
    QStringList titulosPdf;

    bool hayImpresoras() override { return impresoras; }
    bool elegirImpresora(QPrinter& impresora, int min, int max, QWidget*) override
    {
        ofrecido << qMakePair(min, max);
        if (impresora.fromPage() != min || impresora.toPage() != max)
            ofrecido << qMakePair(-impresora.fromPage(), -impresora.toPage());
        impresora.setOutputFormat(QPrinter::PdfFormat);
        impresora.setOutputFileName(salida);
        impresora.setCopyCount(copias);
        if (desde > 0) {
            impresora.setPrintRange(QPrinter::PageRange);
            impresora.setFromTo(desde, hasta);
        }
        return !salida.isEmpty();
    }
    QString elegirArchivoPdf(const QString& titulo, const QString&, QWidget*) override
    {
        titulosPdf << titulo;
        return archivoPdf;
    }
};

int paginasPdf(const QString& ruta)
{
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? int(f.readAll().count("/Type /Page\n")) : -1;
}

} // namespace

class PruebaPreview : public QObject {
    Q_OBJECT

private:
    QTemporaryDir dir;
    RespondedorGuion mensajes;
    DialogosFalsos dialogos;

    // `n` pages, one mark "H<page>" each, with the breaks the builder writes.
    static QByteArray hojas(int n)
    {
        QByteArray t = "<!font!>Courier New<!/font!>\r\n<!nHojas!>" + QByteArray::number(n)
                       + "<!/nHojas!>\r\n<!Orientacion!>V<!/Orientacion!>\r\n<!Color!>&H00FFFFC0&<!/Color!>\r\n";
        for (int h = 0; h < n; ++h) {
            if (h > 0)
                t += "pNuevaHoja\r\n";
            t += QStringLiteral("pPos|300|350|H%1|True|16|%1|\r\npCuadro|150|300|1700|1640|%1|\r\n").arg(h).toLatin1();
        }
        return t;
    }

    void escribir(const QString& nombre, int n)
    {
        QFile f(dir.filePath(nombre));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(hojas(n));
    }

    // The button of an action on the screen.
    static QToolButton* botonDe(frmPreview& w, QAction* accion)
    {
        for (QToolButton* b : w.findChildren<QToolButton*>())
            if (b->defaultAction() == accion && b->isVisible())
                return b;
        return nullptr;
    }

    // Clicks the button of an action, as the user does.
    static void pulsar(frmPreview& w, QAction* accion)
    {
        QToolButton* boton = botonDe(w, accion);
        QVERIFY(boton);
        QTest::mouseClick(boton, Qt::LeftButton);
    }

    // The page the model shows, the sheet the widget scrolled to and the caption of the count.
    static QString pagina(frmPreview& w)
    {
        return QStringLiteral("%1/%2 %3").arg(w.modelo().elementoVisible()).arg(w.picFondo()->currentPage() - 1).arg(w.lblPagina()->text());
    }

    static QWidget* vista(frmPreview& w) { return w.picFondo()->findChild<QGraphicsView*>()->viewport(); }

    static void rueda(frmPreview& w, int giro)
    {
        QWidget* v = vista(w);
        const QPointF centro(v->width() / 2.0, v->height() / 2.0);
        QWheelEvent e(centro, v->mapToGlobal(centro), QPoint(), QPoint(0, giro), Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
        QApplication::sendEvent(v, &e);
    }

    static void mostrar(frmPreview& w)
    {
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
    }

private slots:
    void init()
    {
        G().reiniciar();
        G().gsPathRpt = dir.path();
        escribir(QStringLiteral("r.PRN"), 5);
        escribir(QStringLiteral("u.PRN"), 1);
        mensajes = RespondedorGuion();
        instalarRespondedor(&mensajes);
        dialogos = DialogosFalsos();
        instalarDialogosImpresion(&dialogos);
        instalarDestinoImpresion(imprimeEnEscritorio);
    }

    void cleanup()
    {
        instalarDestinoImpresion({});
        instalarDialogosImpresion(nullptr);
        instalarRespondedor(nullptr);
        G().reiniciar();
    }

    void botonesYFondo()
    {
        frmPreview w(QStringLiteral("r.PRN"));
        mostrar(w);
        QCOMPARE(w.windowTitle(), QStringLiteral("Presentación Preliminar"));
        QCOMPARE(w.boton(2)->toolTip(), QStringLiteral("Pag Anterior"));
        QCOMPARE(w.boton(3)->toolTip(), QStringLiteral("Pag Sgt"));
        QCOMPARE(w.boton(4)->toolTip(), QStringLiteral("Imprimir"));
        QCOMPARE(w.boton(5)->toolTip(), QStringLiteral("Salir"));
        QCOMPARE(w.picFondo()->pageCount(), 5);
        QCOMPARE(pagina(w), QStringLiteral("0/0 Página 1 de 5"));

        // The sheets carry the page's background colour of the report.
        const QImage imagen = w.picFondo()->grab().toImage();
        int cian = 0;
        for (int y = 0; y < imagen.height(); y += 4)
            for (int x = 0; x < imagen.width(); x += 4)
                cian += QColor(imagen.pixel(x, y)) == QColor(0xC0, 0xFF, 0xFF);
        QVERIFY2(cian > imagen.width() * imagen.height() / 16 / 4, qPrintable(QString::number(cian)));
    }

    // Ctrl++ and Ctrl+- go by the steps of the box, within 50 and 200 per cent; so does Ctrl
    // with the wheel; the two fits and the box set the zoom as they say.
    void zoom()
    {
        frmPreview w(QStringLiteral("r.PRN"));
        mostrar(w);
        QVERIFY(w.ajustarAncho()->isChecked());
        QStringList vistos;
        auto anotar = [&] {
            vistos << QString::number(w.zoom()) + QLatin1Char(':')
                          + (w.cboZoom()->currentIndex() >= 0 ? w.cboZoom()->currentText() : QStringLiteral("-"));
        };
        w.cboZoom()->showPopup();
        QTest::keyClick(w.cboZoom()->view(), Qt::Key_Home);
        QTest::keyClick(w.cboZoom()->view(), Qt::Key_Down);
        QTest::keyClick(w.cboZoom()->view(), Qt::Key_Return);
        anotar();
        QVERIFY(!w.ajustarAncho()->isChecked());
        // Ctrl with a key ('-', '+', '='), or with the wheel (its turn).
        for (int paso : {int(Qt::Key_Minus), int(Qt::Key_Minus), int(Qt::Key_Plus), int(Qt::Key_Equal), 120, 120, 120, 120, 120, -120}) {
            if (paso == 120 || paso == -120)
                rueda(w, paso);
            else
                QTest::keyClick(vista(w), Qt::Key(paso), Qt::ControlModifier);
            anotar();
        }
        QCOMPARE(vistos, (QStringList{"75:75%", "50:50%", "50:50%", "75:75%", "100:100%", "125:125%", "150:150%",
                                      "175:175%", "200:200%", "200:200%", "175:175%"}));

        pulsar(w, w.paginaCompleta());
        QCOMPARE(w.picFondo()->zoomMode(), QPrintPreviewWidget::FitInView);
        QVERIFY(w.paginaCompleta()->isChecked());
        const int pagina = w.zoom();
        pulsar(w, w.ajustarAncho());
        QCOMPARE(w.picFondo()->zoomMode(), QPrintPreviewWidget::FitToWidth);
        QVERIFY(w.zoom() > pagina);   // a sheet is taller than wide
        QVERIFY(!w.paginaCompleta()->isChecked());
        pulsar(w, w.ajustarAncho());   // the fit in force stays
        QVERIFY(w.ajustarAncho()->isChecked());
        QCOMPARE(w.picFondo()->zoomMode(), QPrintPreviewWidget::FitToWidth);
        QCOMPARE(w.cboZoom()->placeholderText(), QString::number(w.zoom()) + QLatin1Char('%'));

        // The window grows, and the sheet fitted to the width with it.
        const int antes = w.zoom();
        w.resize(w.width() + 300, w.height());
        QVERIFY(QTest::qWaitFor([&] { return w.zoom() > antes; }, 2000));
    }

    // "Pag Anterior" and "Pag Sgt" can be pressed only where they move the page, however the
    // page was reached; a preview of one page, whole report or range, has neither. Steps: the
    // two buttons clicked, the four keys, the sheets scrolled to the bottom or the top.
    void botonesDePagina_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<int>("desde");   // 0: no range
        QTest::addColumn<int>("hasta");
        QTest::addColumn<QStringList>("pasos");
        QTest::addColumn<QString>("esperado");   // mark on view, page, and "<" ">" for the buttons enabled
        const QString r = QStringLiteral("r.PRN"), u = QStringLiteral("u.PRN");
        QTest::newRow("primera") << r << 0 << 0 << QStringList{} << "H0 0/0 Página 1 de 5 ->";
        QTest::newRow("media por AvPág") << r << 0 << 0 << QStringList{"AvPág", "AvPág"} << "H2 2/2 Página 3 de 5 <>";
        QTest::newRow("media por RePág") << r << 0 << 0 << QStringList{"Fin", "RePág"} << "H3 3/3 Página 4 de 5 <>";
        QTest::newRow("media por Pag Anterior") << r << 0 << 0 << QStringList{"abajo", "Ant"} << "H3 3/3 Página 4 de 5 <>";
        QTest::newRow("última por Pag Sgt") << r << 0 << 0 << QStringList{"Sgt", "Sgt", "Sgt", "Sgt"}
                                           << "H4 4/4 Página 5 de 5 <-";
        QTest::newRow("última por AvPág") << r << 0 << 0 << QStringList{"AvPág", "AvPág", "AvPág", "AvPág", "AvPág"}
                                         << "H4 4/4 Página 5 de 5 <-";
        QTest::newRow("primera por RePág") << r << 0 << 0 << QStringList{"Sgt", "RePág", "RePág"} << "H0 0/0 Página 1 de 5 ->";
        QTest::newRow("primera por Inicio") << r << 0 << 0 << QStringList{"Fin", "Inicio"} << "H0 0/0 Página 1 de 5 ->";
        QTest::newRow("primera desplazando") << r << 0 << 0 << QStringList{"Fin", "arriba"} << "H0 0/0 Página 1 de 5 ->";
        QTest::newRow("una hoja, todas las teclas") << u << 0 << 0 << QStringList{"AvPág", "Fin", "RePág", "Inicio", "abajo"}
                                                   << "H0 0/0 Página 1 de 1 --";
        QTest::newRow("rango de una hoja, teclas") << r << 3 << 3 << QStringList{"AvPág", "Fin", "abajo"}
                                                  << "H2 0/0 Página 1 de 1 --";
        QTest::newRow("rango más allá del reporte") << r << 5 << 9 << QStringList{"Fin"} << "H4 0/0 Página 1 de 1 --";
        QTest::newRow("rango de dos, al final") << r << 2 << 3 << QStringList{"Sgt"} << "H2 1/1 Página 2 de 2 <-";
        QTest::newRow("rango de dos, de vuelta") << r << 2 << 3 << QStringList{"Fin", "RePág"} << "H1 0/0 Página 1 de 2 ->";
    }

    void botonesDePagina()
    {
        QFETCH(QString, archivo);
        QFETCH(int, desde);
        QFETCH(int, hasta);
        QFETCH(QStringList, pasos);
        QFETCH(QString, esperado);
        if (desde > 0) {
            G().gbPorHojas = -1;
            G().gnHojaDesde = qint16(desde);
            G().gnHojaHasta = qint16(hasta);
        }
        frmPreview w(archivo);
        mostrar(w);
        const QHash<QString, int> teclas{{QStringLiteral("AvPág"), Qt::Key_PageDown},
                                         {QStringLiteral("RePág"), Qt::Key_PageUp},
                                         {QStringLiteral("Inicio"), Qt::Key_Home},
                                         {QStringLiteral("Fin"), Qt::Key_End}};
        QScrollBar* barra = w.picFondo()->findChild<QGraphicsView*>()->verticalScrollBar();
        for (const QString& paso : pasos) {
            if (paso == QLatin1String("Ant") || paso == QLatin1String("Sgt")) {
                QToolButton* b = botonDe(w, w.boton(paso == QLatin1String("Ant") ? 2 : 3));
                QVERIFY2(b && b->isEnabled(), qPrintable(paso));
                QTest::mouseClick(b, Qt::LeftButton);
            } else if (teclas.contains(paso)) {
                QTest::keyClick(vista(w), Qt::Key(teclas[paso]));
            } else {
                barra->setValue(paso == QLatin1String("abajo") ? barra->maximum() : 0);
            }
        }
        QToolButton* anterior = botonDe(w, w.boton(2));
        QToolButton* siguiente = botonDe(w, w.boton(3));
        QVERIFY(anterior && siguiente);
        auto estado = [&] {
            const int i = w.modelo().elementoVisible();
            const QString marca = i < 0 ? QString() : w.modelo().picPrevia[i].pagina.comandos.value(0).texto;
            return marca + QLatin1Char(' ') + pagina(w) + QLatin1Char(' ') + QLatin1Char(anterior->isEnabled() ? '<' : '-')
                   + QLatin1Char(siguiente->isEnabled() ? '>' : '-');
        };
        QCOMPARE(estado(), esperado);
        // A button that can't be pressed changes nothing.
        for (QToolButton* b : {anterior, siguiente})
            if (!b->isEnabled())
                QTest::mouseClick(b, Qt::LeftButton);
        QCOMPARE(estado(), esperado);
    }

    // The print dialog holds the report's pages of the range in force; the pages and copies
    // chosen there are what goes to paper. Saving as PDF, then "Salir".
    void imprimirPorElDialogoYGuardarPdf()
    {
        G().gbPorHojas = -1;
        G().gnHojaDesde = 2;
        G().gnHojaHasta = 3;
        frmPreview w(QStringLiteral("r.PRN"));
        mostrar(w);
        dialogos.salida = dir.filePath(QStringLiteral("todo.pdf"));
        pulsar(w, w.boton(4));
        QCOMPARE(dialogos.ofrecido, (QList<QPair<int, int>>{{2, 3}}));
        QCOMPARE(paginasPdf(dialogos.salida), 3);   // pages 2 and 3, then the break after 3
        QVERIFY(mensajes.mostrados.isEmpty());
        QCOMPARE(w.modelo().Modo, QStringLiteral("IMPRIMIR"));
        QCOMPARE(w.picFondo()->pageCount(), 2);   // the sheets on view stay as they are

        dialogos.salida = dir.filePath(QStringLiteral("tercera.pdf"));
        dialogos.desde = dialogos.hasta = 3;
        dialogos.copias = 2;
        pulsar(w, w.boton(4));
        QCOMPARE(paginasPdf(dialogos.salida), 4);   // page 3 and its break, twice

        dialogos.salida.clear();   // cancelled: nothing is printed, nothing said
        pulsar(w, w.boton(4));
        QVERIFY(mensajes.mostrados.isEmpty());
        QVERIFY(w.isVisible());

        // Saved as PDF: what the preview holds.
        QCOMPARE(w.guardarPdf()->text(), QStringLiteral("Guardar PDF"));
        dialogos.archivoPdf = dir.filePath(QStringLiteral("previa.pdf"));
        pulsar(w, w.guardarPdf());
        QCOMPARE(paginasPdf(dialogos.archivoPdf), 2);
        dialogos.archivoPdf = dir.filePath(QStringLiteral("no/existe/previa.pdf"));
        pulsar(w, w.guardarPdf());
        QCOMPARE(mensajes.textos(), QStringList{QStringLiteral("No se pudo grabar el archivo ") + dialogos.archivoPdf});

        pulsar(w, w.boton(5));
        QVERIFY(!w.isVisible());
    }

    // Without any printer the message stays, and the report can go to a PDF file instead.
    void sinImpresoraSeOfreceUnPdf()
    {
        dialogos.impresoras = false;
        dialogos.archivoPdf = dir.filePath(QStringLiteral("sin_impresora"));
        frmPreview w(QStringLiteral("r.PRN"));
        mostrar(w);
        QVERIFY(mensajes.mostrados.isEmpty());   // the preview itself needs no printer
        pulsar(w, w.boton(4));
        QCOMPARE(mensajes.textos(), QStringList{QStringLiteral("No existe una impresora seleccionada.Verifique.")});
        QCOMPARE(mensajes.mostrados[0].titulo, QStringLiteral("Impresión"));
        QCOMPARE(mensajes.mostrados[0].flags, 16);
        QCOMPARE(dialogos.titulosPdf, QStringList{QStringLiteral("Imprimir en archivo PDF")});
        QCOMPARE(paginasPdf(dialogos.archivoPdf + QStringLiteral(".pdf")), 5);
        QVERIFY(dialogos.ofrecido.isEmpty());
    }
};

QTEST_MAIN(PruebaPreview)
#include "preview.moc"
