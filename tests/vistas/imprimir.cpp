// The print selection on the offscreen platform, on a system without printers: "&Preliminar"
// goes through the range dialog to the preview with no message, "&Imprimir" tells of the
// missing printer and writes the range in force to the PDF file the user names.
#include "comun/base_prueba.h"

#include "reports/reproduccion.h"
#include "reports/vista/frmimprimir.h"
#include "reports/vista/frmimpxpag.h"
#include "reports/vista/frmpreview.h"
#include "reports/vista/impresion.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QtTest/QtTest>

namespace {

class SinImpresoras : public DialogosImpresion {
public:
    QString archivoPdf;
    int dialogosDeImpresion = 0;
    bool hayImpresoras() override { return false; }
    bool elegirImpresora(QPrinter&, int, int, QWidget*) override
    {
        ++dialogosDeImpresion;
        return false;
    }
    QString elegirArchivoPdf(const QString&, const QString&, QWidget*) override { return archivoPdf; }
};

void escribir(QLineEdit* caja, const QString& texto)
{
    caja->selectAll();
    QTest::keyClicks(caja, texto);
}

} // namespace

class PruebaImprimir : public QObject {
    Q_OBJECT

private slots:
    void sinImpresoraPreliminarEImprimir()
    {
        FamiliaPrueba familia;
        SinImpresoras dialogos;
        instalarDialogosImpresion(&dialogos);
        instalarDestinoImpresion(imprimeEnEscritorio);
        ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, ESTADO, RECTIFICA, SEMANA) "
                                "VALUES (6,?,'201306','0931',0,'0',3)"),
                 {DatosDemo::kRucAndina});
        ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR) "
                                "VALUES (6,?,'201306','0931','100','1000')"),
                 {DatosDemo::kRucAndina});

        frmImprimir ventana;
        ventana.show();
        QVERIFY(QTest::qWaitForWindowExposed(&ventana));
        QCOMPARE(ventana.grdContrib->rowCount(), 1);

        // The range dialog: pages 2 to 3, "&Preliminar"; the preview: its title and page count,
        // then "Salir"; back in the range dialog, "&Cancelar".
        QStringList visto;
        QTimer::singleShot(0, [&visto] {
            auto* rango = qobject_cast<frmImpxPag*>(QApplication::activeModalWidget());
            if (!rango)
                return;
            visto << rango->windowTitle();
            escribir(rango->txtPagDesde, QStringLiteral("2"));
            escribir(rango->txtPagHasta, QStringLiteral("3"));
            QTimer::singleShot(0, [&visto] {
                auto* previa = qobject_cast<frmPreview*>(QApplication::activeModalWidget());
                if (!previa)
                    return;
                visto << previa->windowTitle() + QStringLiteral(": ") + previa->lblPagina()->text();
                auto* barra = previa->findChild<QToolBar*>(QStringLiteral("tlbPrevia"));
                QTest::mouseClick(barra->widgetForAction(previa->boton(5)), Qt::LeftButton);
            });
            QTest::mouseClick(rango->cmdAccion[0], Qt::LeftButton);
            QTest::mouseClick(rango->cmdAccion[1], Qt::LeftButton);
        });
        QTest::mouseClick(ventana.CmdImprimir[0], Qt::LeftButton);
        QCOMPARE(visto, (QStringList{QStringLiteral("Impresión de 5 páginas"),
                                     QStringLiteral("Presentación Preliminar: Página 1 de 2")}));
        QVERIFY(familia.respondedor().mostrados.isEmpty());

        // "&Imprimir" prints the range the preview left in force, here to a PDF file.
        QTemporaryDir dir;
        dialogos.archivoPdf = dir.filePath(QStringLiteral("declaracion.pdf"));
        QTest::mouseClick(ventana.CmdImprimir[1], Qt::LeftButton);
        QCOMPARE(familia.respondedor().textos(), QStringList{QStringLiteral("No existe una impresora seleccionada.Verifique.")});
        QCOMPARE(familia.respondedor().mostrados[0].titulo, QStringLiteral("Impresión"));
        QCOMPARE(dialogos.dialogosDeImpresion, 0);
        QFile pdf(dialogos.archivoPdf);
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QCOMPARE(int(pdf.readAll().count("/Type /Page\n")), 3);   // pages 2 and 3, then the break after 3
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM SPOOL")).toInt(), 2);   // one spool file a request

        instalarDestinoImpresion({});
        instalarDialogosImpresion(nullptr);
    }
};

QTEST_MAIN(PruebaImprimir)
#include "imprimir.moc"
