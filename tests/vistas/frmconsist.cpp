// The inconsistency viewer on the screen: what it shows, and what its two ways out answer.
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
        QVERIFY(G().gbConsistAbierto);

        // Typing changes nothing.
        v.TxtPreliminar->setFocus();
        QTest::keyClicks(v.TxtPreliminar, QStringLiteral("xyz"));
        QCOMPARE(v.TxtPreliminar->toPlainText(), QString::fromUtf8(contenido));
    }

    void cerrarPorLaVentanaNoResponde()
    {
        FamiliaPrueba familia;
        escribirMens("uno\n");
        FrmConsist modelo;
        modelo.Form_Load();
        VistaFrmConsist v(modelo);
        v.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v));
        v.close();
        QVERIFY(!v.isVisible());
        QCOMPARE(G().gsRespConsist, QString());
        QVERIFY(!G().gbConsistAbierto);
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
        QVERIFY(G().gbConsistAbierto);
        const auto& m = familia.respondedor().mostrados;
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].texto, QStringLiteral("No existe una impresora seleccionada.Verifique."));
        QCOMPARE(m[0].titulo, QStringLiteral("Impresión"));
    }

    void abrirEsModalYSeCierraConAceptar()
    {
        FamiliaPrueba familia;
        escribirMens("Debe señalar el regimen de renta\n");
        bool visto = false;
        QTimer::singleShot(0, [&] {
            auto* v = qobject_cast<VistaFrmConsist*>(QApplication::activeModalWidget());
            if (!v)
                return;
            visto = v->isModal() && v->TxtPreliminar->toPlainText().startsWith(QStringLiteral("Debe"));
            QTest::mouseClick(v->CmdGrabar, Qt::LeftButton);
        });
        abrirFrmConsist(nullptr);
        QVERIFY(visto);
        QCOMPARE(G().gsRespConsist, QStringLiteral("A"));
        QVERIFY(!G().gbConsistAbierto);
    }

    void abrirSinArchivoDiceElErrorYNoAbre()
    {
        FamiliaPrueba familia;
        QFile::remove(G().gsArchMens);
        abrirFrmConsist(nullptr);
        QVERIFY(!G().gbConsistAbierto);
        const auto& m = familia.respondedor().mostrados;
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].texto, QStringLiteral("No se encontró el archivo\n 53"));
        QCOMPARE(m[0].titulo, QStringLiteral("Error"));
    }
};

QTEST_MAIN(PruebaFrmConsist)
#include "frmconsist.moc"
