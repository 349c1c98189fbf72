// The inconsistency viewer on the screen: what it shows, its print without a printer, and a
// missing file. (Opened modal by "Validar" and closed by "&Aceptar": the declaration scenario.)
#include "comun/base_prueba.h"

#include "basic/errores.h"
#include "dialogs/consist.h"
#include "dialogs/vista/frmconsist.h"
#include "shell/globales.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QtTest>

namespace {

class SinImpresora : public DestinoImpresion {
public:
    QPagedPaintDevice& dispositivo() override { throw ErrorVB(482, QStringLiteral("x")); }
};

void escribirMens(const QByteArray& contenido)
{
    QFile f(G().gsArchMens);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(contenido);
}

}  // namespace

class PruebaFrmConsist : public QObject {
    Q_OBJECT

private slots:
    void muestraElArchivoTalCual()
    {
        FamiliaPrueba familia;
        const QByteArray contenido = "Debe señalar el regimen de renta\nSeleccione el tipo de persona\n";
        escribirMens(contenido);
        FrmConsist modelo;
        modelo.Form_Load();
        VistaFrmConsist v(modelo);
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));

        QCOMPARE(v.windowTitle(), QStringLiteral("Inconsistencias detectadas"));
        QCOMPARE(v.Label1->text(),
                 QStringLiteral("En su declaración se han detectado las siguientes inconsistencias :"));
        QCOMPARE(v.TxtPreliminar->toPlainText(), QString::fromUtf8(contenido));
        QVERIFY(v.TxtPreliminar->isReadOnly());
        QCOMPARE(v.TxtPreliminar->font().family(), QStringLiteral("Courier New"));
        QCOMPARE(v.CmdGrabar->text(), QStringLiteral("&Aceptar"));
        QCOMPARE(v.cmdImprimir->text(), QStringLiteral("&Imprimir"));

        // Typing changes nothing.
        v.TxtPreliminar->setFocus();
        QTest::keyClicks(v.TxtPreliminar, QStringLiteral("xyz"));
        QCOMPARE(v.TxtPreliminar->toPlainText(), QString::fromUtf8(contenido));
    }

    void imprimirSinImpresoraAvisaYSigueAbierta()
    {
        FamiliaPrueba familia;
        escribirMens("uno\n");
        FrmConsist modelo;
        SinImpresora sin;
        modelo.destino = &sin;
        modelo.Form_Load();
        VistaFrmConsist v(modelo);
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        QTest::mouseClick(v.cmdImprimir, Qt::LeftButton);
        QVERIFY(v.isVisible());
        const auto& m = familia.respondedor().mostrados;
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].texto, QStringLiteral("No existe una impresora seleccionada.Verifique."));
        QCOMPARE(m[0].titulo, QStringLiteral("Impresión"));
    }

    void abrirSinArchivoDiceElErrorYNoAbre()
    {
        FamiliaPrueba familia;
        QFile::remove(G().gsArchMens);
        abrirFrmConsist(nullptr);
        const auto& m = familia.respondedor().mostrados;
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].texto, QStringLiteral("No se encontró el archivo\n 53"));
        QCOMPARE(m[0].titulo, QStringLiteral("Error"));
    }
};

QTEST_MAIN(PruebaFrmConsist)
#include "frmconsist.moc"
