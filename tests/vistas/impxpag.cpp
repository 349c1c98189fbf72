// The page-range dialog on the offscreen platform: its texts, the key filter, the five checks
// in their order with their exact messages, and the hand-over to the preview.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "basic/respondedor_guion.h"
#include "reports/previa.h"
#include "reports/vista/frmimpxpag.h"
#include "shell/globales.h"

class PruebaImpxPag : public QObject {
    Q_OBJECT

private:
    RespondedorGuion mensajes;
    QStringList previas;
    const QString titulo = QStringLiteral("Impresión de 5 páginas");

    static void escribir(QLineEdit* caja, const QString& texto)
    {
        caja->selectAll();
        QTest::keyClick(caja, Qt::Key_Backspace);
        QTest::keyClicks(caja, texto);
    }

private slots:
    void init()
    {
        G().reiniciar();
        mensajes = RespondedorGuion();
        instalarRespondedor(&mensajes);
        previas.clear();
        instalarAbridorPrevia([this](const QString& a) { previas << a; });
    }

    void cleanup()
    {
        instalarAbridorPrevia({});
        instalarRespondedor(nullptr);
        G().reiniciar();
    }

    void textos()
    {
        frmImpxPag d(titulo, 5, QStringLiteral("00000007.PRN"));
        d.show();
        QCOMPARE(d.windowTitle(), titulo);
        QCOMPARE(d.txtTotPaginas->text(), QStringLiteral("5"));
        QCOMPARE(d.txtPagDesde->text(), QStringLiteral("1"));
        QCOMPARE(d.txtPagHasta->text(), QStringLiteral("1"));
        QCOMPARE(d.cmdAccion[0]->text(), QStringLiteral("&Preliminar"));
        QCOMPARE(d.cmdAccion[1]->text(), QStringLiteral("&Cancelar"));
        const QStringList lineas = d.lblTexto->text().split(QLatin1Char('\n'));
        QCOMPARE(lineas.size(), 8);
        QCOMPARE(lineas[0], QStringLiteral("El   reporte   generado   contiene                  página(s)."));
        QCOMPARE(lineas[2], QStringLiteral("Si  su  consulta  contiene  más  de  10  páginas  puede"));
        QCOMPARE(lineas[3], QStringLiteral("ocasionar la caída del programa debido a la saturación"));
        QCOMPARE(lineas[4], QStringLiteral("de la memoria de la computadora."));
        QCOMPARE(lineas[6], QStringLiteral("Se  recomienda  imprimir  en  rangos  no  mayores a 10"));
        QCOMPARE(lineas[7], QStringLiteral("páginas."));
        // The count sits over the gap of the first line, between "contiene" and "página(s).".
        const QFontMetrics m(d.lblTexto->font());
        QVERIFY(d.txtTotPaginas->geometry().left() >= m.horizontalAdvance(QStringLiteral("El   reporte   generado   contiene")));
        QVERIFY(d.txtTotPaginas->geometry().right()
                < m.horizontalAdvance(QStringLiteral("El   reporte   generado   contiene                  ")) + 6);
    }

    void teclas()
    {
        frmImpxPag d(titulo, 5, QStringLiteral("x.PRN"));
        d.show();
        d.activateWindow();
        escribir(d.txtPagDesde, QStringLiteral("a2-b .x"));
        QCOMPARE(d.txtPagDesde->text(), QStringLiteral("2 ."));   // digits, blank and "." pass
        d.txtPagDesde->setFocus();
        QTest::keyClick(d.txtPagDesde, Qt::Key_Return);   // Enter moves on as Tab does
        QVERIFY(QTest::qWaitFor([&] { return d.txtPagHasta->hasFocus(); }, 1000));
        QVERIFY(d.isVisible());
    }

    void comprobaciones_data()
    {
        QTest::addColumn<QString>("desde");
        QTest::addColumn<QString>("hasta");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("inicio vacío") << "" << "3" << "Ingrese página de inicio";
        QTest::newRow("inicio en blanco") << "  " << "3" << "Ingrese página de inicio";
        QTest::newRow("inicio cero") << "0" << "3" << "Página inicial debe ser a partir de 1";
        QTest::newRow("inicio sobre el total") << "6" << "6" << "Página inicial no debe ser mayor a total de páginas del reporte";
        QTest::newRow("fin vacío") << "2" << "" << "Ingrese página de Fin";
        QTest::newRow("fin antes del inicio") << "5" << "1" << "Página de Inicio debe ser mayor a página de Fin";
        QTest::newRow("fin sobre el total") << "4" << "9" << "";
        QTest::newRow("una hoja") << "5" << "5" << "";
    }

    void comprobaciones()
    {
        QFETCH(QString, desde);
        QFETCH(QString, hasta);
        QFETCH(QString, mensaje);
        frmImpxPag d(titulo, 5, QStringLiteral("00000007.PRN"));
        d.show();
        escribir(d.txtPagDesde, desde);
        escribir(d.txtPagHasta, hasta);
        QTest::mouseClick(d.cmdAccion[0], Qt::LeftButton);
        QVERIFY(d.isVisible());   // the dialog stays open either way
        if (mensaje.isEmpty()) {
            QVERIFY(mensajes.mostrados.isEmpty());
            QCOMPARE(previas, QStringList{QStringLiteral("00000007.PRN")});
            QCOMPARE(G().gnHojaDesde, qint16(desde.toInt()));
            QCOMPARE(G().gnHojaHasta, qint16(hasta.toInt()));
        } else {
            QCOMPARE(mensajes.mostrados.size(), 1);
            QCOMPARE(mensajes.mostrados[0].texto, mensaje);
            QCOMPARE(mensajes.mostrados[0].titulo, titulo);
            QCOMPARE(mensajes.mostrados[0].flags, 16);
            QVERIFY(previas.isEmpty());
        }
    }
};

QTEST_MAIN(PruebaImpxPag)
#include "impxpag.moc"
