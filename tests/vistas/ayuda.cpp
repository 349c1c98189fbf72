// The help window: its contents lead to pages that exist, the search keeps the pages that hold
// every word (accents and case aside), the contents, the links and the buttons move through the
// pages, and the family's copy of the first page stands for it.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>

#include "shell/vista/ayuda.h"

namespace {

QString leer(const QString& archivo)
{
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

QTreeWidgetItem* entrada(VentanaAyuda& v, const QString& titulo)
{
    for (QTreeWidgetItemIterator it(v.trvContenido); *it; ++it)
        if ((*it)->text(0) == titulo)
            return *it;
    return nullptr;
}

void clicEnContenido(VentanaAyuda& v, const QString& titulo)
{
    QTreeWidgetItem* item = entrada(v, titulo);
    QVERIFY2(item, qPrintable(titulo));
    const QRect r = v.trvContenido->visualItemRect(item);
    QTest::mouseClick(v.trvContenido->viewport(), Qt::LeftButton, {}, r.center());
}

// Clicks the first link of the page shown whose text is `texto`.
void clicEnEnlace(VentanaAyuda& v, const QString& texto)
{
    QTextCursor c = v.texto->document()->find(texto);
    while (!c.isNull() && !c.charFormat().isAnchor())
        c = v.texto->document()->find(texto, c);
    QVERIFY2(!c.isNull(), qPrintable(texto));
    QTextCursor medio(c);
    medio.setPosition(c.selectionStart() + 1);
    const QPoint p = v.texto->cursorRect(medio).center();
    QTest::mouseClick(v.texto->viewport(), Qt::LeftButton, {}, p);
}

}  // namespace

class PruebaAyuda : public QObject {
    Q_OBJECT

private slots:
    void cadaEntradaYCadaEnlaceLlevanAUnaPaginaQueExiste()
    {
        const QString carpeta = carpetaAyudaIncluida();
        const QList<EntradaAyuda> contenido = contenidoAyuda(carpeta);
        QVERIFY(contenido.size() >= 10);
        QCOMPARE(contenido.first().destino, QStringLiteral("Ql931.html"));
        QStringList destinos;
        for (const EntradaAyuda& e : contenido)
            destinos << e.destino;
        // Links between pages, as written in them.
        static const QRegularExpression enlace(QStringLiteral("href=\"([^\"]+)\""));
        const QStringList paginas = QDir(carpeta).entryList({QStringLiteral("*.html")});
        for (const QString& pagina : paginas) {
            QVERIFY2(destinos.contains(pagina), qPrintable(pagina + QStringLiteral(" no está en el contenido")));
            for (const QRegularExpressionMatch& m : enlace.globalMatch(leer(carpeta + QLatin1Char('/') + pagina)))
                destinos << (m.captured(1).startsWith(QLatin1Char('#')) ? pagina + m.captured(1) : m.captured(1));
        }
        for (const QString& d : std::as_const(destinos)) {
            const QString html = leer(carpeta + QLatin1Char('/') + d.section(QLatin1Char('#'), 0, 0));
            QVERIFY2(!html.isEmpty(), qPrintable(d));
            const QString ancla = d.section(QLatin1Char('#'), 1);
            if (!ancla.isEmpty())
                QVERIFY2(html.contains(QStringLiteral("<a name=\"%1\">").arg(ancla)), qPrintable(d));
        }
    }

    void laBusquedaDejaLasPaginasConTodasLasPalabras_data()
    {
        QTest::addColumn<QString>("palabras");
        QTest::addColumn<QStringList>("halladas");
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<QString>("marcada");   // a word marked in the first page found
        QTest::newRow("sin tilde ni mayúsculas") << "PAISES" << QStringList{"Menús y barra de herramientas", "Consultas"}
                                                 << "2 páginas halladas." << "Paises";
        QTest::newRow("todas las palabras") << "numero Orden control"
                                            << QStringList{"Declaraciones enviadas y número de orden"}
                                            << "1 página hallada." << "número";
        QTest::newRow("una sección") << "ubigeo frontera"
                                     << QStringList{"La declaración", "Página «Identificación»", "Ubigeo"}
                                     << "3 páginas halladas." << "frontera";
        QTest::newRow("los enlaces son de su destino") << "ubigeo"
                                                       << QStringList{"La declaración", "Página «Identificación»", "Ubigeo"}
                                                       << "3 páginas halladas." << "ubigeo";
        QTest::newRow("ninguna") << "zzzz" << QStringList{} << "Ninguna página contiene esas palabras." << "";
    }

    void laBusquedaDejaLasPaginasConTodasLasPalabras()
    {
        QFETCH(QString, palabras);
        QFETCH(QStringList, halladas);
        QFETCH(QString, aviso);
        QFETCH(QString, marcada);
        VentanaAyuda v{QString()};
        v.show();
        QTest::keyClicks(v.txtBuscar, palabras);
        QCOMPARE(v.paginasHalladas(), halladas);
        QCOMPARE(v.lblHallados->text(), aviso);
        for (QTreeWidgetItemIterator it(v.trvContenido); *it; ++it) {
            // What was not found is out of sight, but for the parents of what was.
            bool conHallada = halladas.contains((*it)->text(0));
            for (int i = 0; i < (*it)->childCount(); ++i)
                conHallada = conHallada || halladas.contains((*it)->child(i)->text(0));
            QCOMPARE((*it)->isHidden(), !conHallada);
        }
        // Enter opens the first page found, its words marked.
        QTest::keyClick(v.txtBuscar, Qt::Key_Return);
        if (!halladas.isEmpty()) {
            QCOMPARE(v.trvContenido->currentItem()->text(0), halladas.first());
            QStringList marcadas;
            for (const QTextEdit::ExtraSelection& m : v.texto->extraSelections())
                marcadas << m.cursor.selectedText();
            QVERIFY2(marcadas.contains(marcada), qPrintable(marcadas.join(QLatin1Char(','))));
        }
        // An empty box gives the whole contents back.
        v.txtBuscar->selectAll();
        QTest::keyClick(v.txtBuscar, Qt::Key_Delete);
        QVERIFY(v.paginasHalladas().isEmpty());
        QVERIFY(v.lblHallados->text().isEmpty());
        for (QTreeWidgetItemIterator it(v.trvContenido); *it; ++it)
            QVERIFY(!(*it)->isHidden());
    }

    void contenidoEnlacesYBotonesRecorrenLasPaginas()
    {
        VentanaAyuda v{QString()};
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        v.ir(QStringLiteral("Ql931.html"));
        QVERIFY(v.texto->toPlainText().contains(QStringLiteral("Modificación de coeficiente o porcentaje")));
        QVERIFY(!v.cmdAtras->isEnabled());

        clicEnContenido(v, QStringLiteral("Consultas"));
        QCOMPARE(v.destino(), QStringLiteral("consultas.html"));
        QVERIFY(v.texto->toPlainText().contains(QStringLiteral("Factores de Actualización")));
        clicEnContenido(v, QStringLiteral("Página «Estados financieros»"));
        QCOMPARE(v.destino(), QStringLiteral("declaracion.html#estados"));

        // A link of the page goes to its page, and the contents follow.
        clicEnEnlace(v, QStringLiteral("Inconsistencias detectadas"));
        QCOMPARE(v.destino(), QStringLiteral("inconsistencias.html"));
        QCOMPARE(v.trvContenido->currentItem()->text(0), QStringLiteral("Inconsistencias detectadas"));

        QVERIFY(v.cmdAtras->isEnabled());
        QVERIFY(!v.cmdAdelante->isEnabled());
        QTest::mouseClick(v.cmdAtras, Qt::LeftButton);
        QCOMPARE(v.destino(), QStringLiteral("declaracion.html#estados"));
        QCOMPARE(v.trvContenido->currentItem()->text(0), QStringLiteral("Página «Estados financieros»"));
        QVERIFY(v.cmdAdelante->isEnabled());
        QTest::mouseClick(v.cmdAdelante, Qt::LeftButton);
        QCOMPARE(v.destino(), QStringLiteral("inconsistencias.html"));

        QTest::mouseClick(v.cmdCerrar, Qt::LeftButton);
        QVERIFY(!v.isVisible());
    }

    void laCopiaDeLaFamiliaHaceDePrimeraPagina()
    {
        QTemporaryDir dir;
        const QString hlp = dir.filePath(QStringLiteral("Ql931.hlp"));
        QFile f(hlp);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("<html><body><a name=\"257\"></a><h1>Ayuda de la familia</h1>"
                "<p><a href=\"consultas.html\">Consultas</a> propias</p></body></html>");
        f.close();
        QWidget padre;
        mostrarAyuda(hlp, QStringLiteral("257"), &padre);
        auto* v = padre.findChild<VentanaAyuda*>(QStringLiteral("CMDlgHlp"));
        QVERIFY(v && v->isVisible());
        QCOMPARE(v->destino(), QStringLiteral("Ql931.html#257"));
        QCOMPARE(v->texto->toPlainText().section(QLatin1Char('\n'), 0, 0), QStringLiteral("Ayuda de la familia"));
        // Its words are searched; the other pages still come from the help that ships.
        QTest::keyClicks(v->txtBuscar, QStringLiteral("propias"));
        QCOMPARE(v->paginasHalladas(), QStringList{QStringLiteral("Formulario 0931")});
        clicEnEnlace(*v, QStringLiteral("Consultas"));
        QCOMPARE(v->destino(), QStringLiteral("consultas.html"));
        QVERIFY(v->texto->toPlainText().contains(QStringLiteral("Factores de Actualización")));

        // A second call brings the same window forward, moved to the window that asks.
        QWidget otro;
        mostrarAyuda(QString(), QStringLiteral("257"), &otro);
        QCOMPARE(otro.findChild<VentanaAyuda*>(QStringLiteral("CMDlgHlp")), v);
        QVERIFY(v->isVisible());
        v->close();
    }
};

QTEST_MAIN(PruebaAyuda)
#include "ayuda.moc"
