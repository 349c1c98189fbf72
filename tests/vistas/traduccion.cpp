// Qt's own texts in Spanish once the module's start has loaded Qt's translation: the standard
// buttons of message boxes and button boxes, and the context menu of a text box.
#include "shell/vista/traduccion_qt.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QtTest>

class PruebaTraduccion : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(cargarTraduccionQt(*QCoreApplication::instance())); }

    void botonesEstandar()
    {
        QMessageBox caja;
        caja.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        QDialogButtonBox botones(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Save);
        QCOMPARE((QStringList{caja.button(QMessageBox::Yes)->text(), caja.button(QMessageBox::No)->text(),
                              botones.button(QDialogButtonBox::Ok)->text(), botones.button(QDialogButtonBox::Cancel)->text(),
                              botones.button(QDialogButtonBox::Save)->text()}),
                 (QStringList{"&Sí", "&No", "Aceptar", "Cancelar", "Guardar"}));
    }

    void menuDeUnaCajaDeTexto()
    {
        QLineEdit caja(QStringLiteral("texto"));
        std::unique_ptr<QMenu> menu(caja.createStandardContextMenu());
        QStringList textos;
        for (QAction* a : menu->actions())
            if (!a->isSeparator())
                textos << a->text().split(QLatin1Char('\t')).first();
        QVERIFY2(textos.contains(QStringLiteral("&Deshacer")) && textos.contains(QStringLiteral("&Pegar")),
                 qPrintable(textos.join(QLatin1Char('|'))));
    }
};

QTEST_MAIN(PruebaTraduccion)
#include "traduccion.moc"
