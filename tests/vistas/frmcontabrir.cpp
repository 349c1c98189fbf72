// The two declaration pickers on the screen and the declaration window they open: the cursor
// stays where the user left it whatever activates the window again, the status bar names the
// row the next action works on, a stored declaration opens and stores again unchanged, and the
// order number goes to the sent copy the user picked, with the check code of the stored row.
#include "basic/reloj.h"
#include "comun/base_prueba.h"
#include "form931/frm931.h"
#include "form931/grabacion_comun.h"
#include "form931/guion.h"
#include "form931/vista/frm931vista.h"
#include "register/vista/frmcontabrir.h"
#include "register/vista/frmcontabrirenv.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "shell/vista/ventanas.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

using namespace prueba931;

namespace {

const QString kControl = QStringLiteral("0012345678");
const QDate kEnvio(2026, 11, 21);
// The rows of a small declaration: the regime, the payment block (balance at 31 July), a box.
const QList<QPair<QString, QString>> kFilas = {{"056", "4"}, {"813", "0"}, {"605", "0"}, {"606", "0"},
                                               {"607", "0"}, {"608", "1"}, {"500", "1000"}};

// A working declaration as a save leaves it: its header and one row.
void declaracion(const QString& ruc, const QString& periodo)
{
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, FEC_PRO, ESTADO, cNumero)"
                            " VALUES (6, ?, ?, '0931', '20/11/2026', 0, '123456')"),
             {ruc, periodo});
    for (const auto& [casilla, valor] : kFilas)
        ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR, cNumero)"
                                " VALUES (6, ?, ?, '0931', ?, ?, '123456')"),
                 {ruc, periodo, casilla, valor});
}

// A sent copy as the family's sending module writes it: the header with the date of sending
// (a DATE column) and the control number, and the rows of the declaration.
void enviada(const QString& ruc, const QString& periodo, const QString& correl)
{
    ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, CORREL, FEC_PRO, ESTADO,"
                            " FEC_ENV, CONTROL, cNumero) VALUES (6, ?, ?, '0931', 0, ?, '20/11/2026', 0, ?, ?, '000000')"),
             {ruc, periodo, correl, kEnvio.toString(Qt::ISODate), kControl});
    for (const auto& [casilla, valor] : kFilas)
        ejecutar(QStringLiteral("INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, CASILLA, I_VALOR, cNumero)"
                                " VALUES (6, ?, ?, '0931', ?, ?, ?, '000000')"),
                 {ruc, periodo, correl, casilla, valor});
}

QString celda(QTableWidget* g, int fila, int columna)
{
    return g->item(fila, columna) ? g->item(fila, columna)->text() : QString();
}

// The key of a grid row: RUC, period and (for sent copies) correlative.
QString claveFila(QTableWidget* g, int fila)
{
    QString k = celda(g, fila, 0) + QLatin1Char(' ') + celda(g, fila, 2);
    if (g->columnCount() > 7)
        k += QLatin1Char(' ') + celda(g, fila, 7);
    return k;
}

// Another window takes the focus and gives it back, as a message box or another program does.
void reactivar(QWidget* w)
{
    QWidget otra;
    otra.resize(120, 80);
    otra.show();
    otra.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&otra));
    w->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(w));
}

void clicEnFila(QTableWidget* g, int fila)
{
    const QRect r = g->visualItemRect(g->item(fila, 0));
    QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, r.center());
}

// Runs `paso` on the declaration window as soon as it shows modally, while the click that
// opened it waits in its loop.
void alAbrirseLaDeclaracion(QObject* contexto, std::function<void(Frm931Vista*)> paso, bool* hecho)
{
    auto* reloj = new QTimer(contexto);
    reloj->setInterval(5);
    QObject::connect(reloj, &QTimer::timeout, contexto, [reloj, paso, hecho] {
        auto* v = qobject_cast<Frm931Vista*>(QApplication::activeModalWidget());
        if (!v || !v->isVisible())
            return;
        reloj->stop();
        reloj->deleteLater();
        paso(v);
        *hecho = true;
    });
    reloj->start();
}

void teclearEn(QWidget* w, const QString& texto)
{
    auto* le = qobject_cast<QLineEdit*>(w);
    QVERIFY(le && le->isVisible() && le->isEnabled());
    QTest::mouseClick(le, Qt::LeftButton);
    le->selectAll();
    QTest::keyClicks(le, texto);
}

}  // namespace

class PruebaFrmContAbrir : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;
    RespondedorGuion& respondedor() { return familia->respondedor(); }

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        barraEstado() = EstadoBarra();
        Abridores a;
        a.declaracion = [](qint16 modo, const QStringList& datos) { pAbreDeclaracion(modo, datos); };
        instalarAbridores(a);
    }

    void cleanup()
    {
        fijarHoy(QDate());
        instalarAbridores({});
        familia.reset();
    }

    // The user picks a row and asks to delete it, answers No, the window is activated again
    // (after the message, after another program) and another program adds a declaration that
    // sorts first: the cursor and the status bar stay on the row picked, and the deletion that
    // follows takes that row and no other.
    void elCursorQuedaDondeLoDejoElUsuario_data()
    {
        QTest::addColumn<bool>("enviadas");
        QTest::newRow("trabajo") << false;
        QTest::newRow("enviadas") << true;
    }

    void elCursorQuedaDondeLoDejoElUsuario()
    {
        QFETCH(bool, enviadas);
        std::unique_ptr<SelectorVista> v;
        if (enviadas) {
            // Two sent copies of one declaration, which only the hidden correlative tells apart.
            enviada(DatosDemo::kRucAndina, QStringLiteral("202608"), QStringLiteral("1"));
            enviada(DatosDemo::kRucAndina, QStringLiteral("202608"), QStringLiteral("2"));
            enviada(DatosDemo::kRucPacifico, QStringLiteral("202605"), QStringLiteral("1"));
            G().giOpcion = 3;
            G().gsPeriodo = QStringLiteral("202608");
            v = std::make_unique<FrmContAbrirEnvVista>();
        } else {
            declaracion(DatosDemo::kRucAndina, QStringLiteral("202605"));
            declaracion(DatosDemo::kRucAndina, QStringLiteral("202608"));
            declaracion(DatosDemo::kRucPacifico, QStringLiteral("202608"));
            v = std::make_unique<FrmContAbrirVista>(3);
        }
        QTableWidget* g = v->grdContrib;
        v->show();
        QVERIFY(QTest::qWaitForWindowActive(v.get()));
        QCOMPARE(g->rowCount(), 3);

        clicEnFila(g, 1);
        const QString elegida = claveFila(g, 1);
        QCOMPARE(barraEstado().PanelRuc, celda(g, 1, 0));

        respondedor().respuestas << vbNo;
        QTest::mouseClick(v->CmdOpciones[0], Qt::LeftButton);
        QCOMPARE(respondedor().mostrados.size(), 1);
        reactivar(v.get());
        QCOMPARE(g->currentRow(), 1);
        QCOMPARE(claveFila(g, 1), elegida);

        // Another program of the family adds a declaration of a taxpayer that sorts first.
        if (enviadas)
            enviada(DatosDemo::kRucPersona, QStringLiteral("202608"), QStringLiteral("1"));
        else
            declaracion(DatosDemo::kRucPersona, QStringLiteral("202608"));
        reactivar(v.get());
        QCOMPARE(g->rowCount(), 4);
        QCOMPARE(g->currentRow(), 2);
        QCOMPARE(claveFila(g, 2), elegida);
        QCOMPARE(barraEstado().PanelRuc, celda(g, 2, 0));
        QCOMPARE(barraEstado().PanelNombre, celda(g, 2, 1));

        respondedor().respuestas << vbYes;
        QTest::mouseClick(v->CmdOpciones[0], Qt::LeftButton);
        QCOMPARE(g->rowCount(), 3);
        QStringList quedan;
        for (int r = 0; r < g->rowCount(); ++r)
            quedan << claveFila(g, r);
        QVERIFY2(!quedan.contains(elegida), qPrintable(quedan.join(QLatin1Char('/'))));
        const QString tabla = enviadas ? QStringLiteral("HCAB") : QStringLiteral("CAB");
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM ") + tabla).toInt(), 3);
        // The cursor stands on the row that took the place of the deleted one, and the status
        // bar names it.
        QCOMPARE(barraEstado().PanelRuc, celda(g, g->currentRow(), 0));
    }

    // The sent picker's status line shows the period as stored, on the first list and on every
    // row change; a first list of the current period that is empty leaves the grid shut, even
    // when the activation then lists other periods.
    void laLineaDeEnviadasMuestraElPeriodoGuardado()
    {
        enviada(DatosDemo::kRucAndina, QStringLiteral("202608"), QStringLiteral("1"));
        enviada(DatosDemo::kRucPacifico, QStringLiteral("202605"), QStringLiteral("1"));
        G().giOpcion = 2;
        G().gsPeriodo = QStringLiteral("202608");
        {
            FrmContAbrirEnvVista v;
            v.show();
            QVERIFY(QTest::qWaitForWindowActive(&v));
            QVERIFY(v.grdContrib->isEnabled());
            QCOMPARE(v.grdContrib->rowCount(), 2);
            QCOMPARE(barraEstado().PanelRuc, DatosDemo::kRucAndina);
            QCOMPARE(barraEstado().PanelPeriodo, QStringLiteral("202608"));
            QTest::keyClick(v.grdContrib, Qt::Key_Down);
            QCOMPARE(v.grdContrib->currentRow(), 1);
            QCOMPARE(barraEstado().PanelRuc, DatosDemo::kRucPacifico);
            QCOMPARE(barraEstado().PanelPeriodo, QStringLiteral("202605"));
            QTest::mouseClick(v.CmdOpciones[1], Qt::LeftButton);
            QVERIFY(!v.isVisible());
            QCOMPARE(barraEstado().PanelRuc, QString());
            QCOMPARE(barraEstado().PanelPeriodo, QStringLiteral("202605"));
        }
        G().gsPeriodo = QStringLiteral("202611");
        FrmContAbrirEnvVista v;
        v.show();
        QVERIFY(QTest::qWaitForWindowActive(&v));
        QCOMPARE(v.grdContrib->rowCount(), 2);
        QVERIFY(!v.grdContrib->isEnabled());
        reactivar(&v);
        QVERIFY(!v.grdContrib->isEnabled());
    }

    // The order number typed in the declaration window goes to the sent copy picked, and its
    // check code is the one of the stored row (the date of sending counting as the date it is):
    // also when a declaration of another period was opened before in the session. When the
    // copy is gone by the time the user registers, nothing is stored and no message says so.
    void elNumeroDeOrdenVaALaCopiaElegida_data()
    {
        QTest::addColumn<bool>("otroPeriodoAntes");
        QTest::addColumn<bool>("borradaEntretanto");
        QTest::newRow("tras abrir otro periodo") << true << false;
        QTest::newRow("copia borrada entretanto") << false << true;
    }

    void elNumeroDeOrdenVaALaCopiaElegida()
    {
        QFETCH(bool, otroPeriodoAntes);
        QFETCH(bool, borradaEntretanto);
        // The period in hand when the command comes: the current one, or the one of the
        // declaration opened before.
        G().gsPeriodo = QStringLiteral("202608");
        if (otroPeriodoAntes) {
            declaracion(DatosDemo::kRucAndina, QStringLiteral("202605"));
            FrmContAbrirVista trabajo(1);
            trabajo.show();
            QVERIFY(QTest::qWaitForWindowActive(&trabajo));
            bool visto = false;
            alAbrirseLaDeclaracion(this, [](Frm931Vista* d) {
                QTest::mouseClick(d->control(QStringLiteral("cmdCancelar")), Qt::LeftButton);
            }, &visto);
            QTest::mouseClick(trabajo.CmdOpciones[0], Qt::LeftButton);
            QVERIFY(visto);
            QTest::mouseClick(trabajo.CmdOpciones[1], Qt::LeftButton);
        }
        enviada(DatosDemo::kRucAndina, QStringLiteral("202608"), QStringLiteral("1"));
        enviada(DatosDemo::kRucAndina, QStringLiteral("202608"), QStringLiteral("2"));
        enviada(DatosDemo::kRucPacifico, QStringLiteral("202605"), QStringLiteral("1"));
        // As "Registrar número de orden" opens the picker.
        G().gbEnviada = true;
        G().giOpcion = 2;
        G().gbImpEnviada = true;
        FrmContAbrirEnvVista v;
        v.show();
        QVERIFY(QTest::qWaitForWindowActive(&v));
        clicEnFila(v.grdContrib, 1);
        QCOMPARE(claveFila(v.grdContrib, 1), QStringLiteral("%1 202608 2").arg(DatosDemo::kRucAndina));

        const QString orden = QStringLiteral("123456789");
        const QString digitos = DigitoVerificador(kControl, orden);
        bool visto = false;
        alAbrirseLaDeclaracion(this, [&](Frm931Vista* d) {
            teclearEn(d->control(QStringLiteral("txtOrden")), orden);
            teclearEn(d->control(QStringLiteral("txtverifica")), digitos);
            if (borradaEntretanto)
                eliminarDeclaracionEnviada(DatosDemo::kRucAndina, QStringLiteral("202608"), QStringLiteral("2"));
            QTest::mouseClick(d->control(QStringLiteral("CmdGrabar")), Qt::LeftButton);
            if (d->isVisible()) {
                respondedor().respuestas << vbNo;
                QTest::mouseClick(d->control(QStringLiteral("cmdCancelar")), Qt::LeftButton);
            }
        }, &visto);
        QTest::keyClick(v.grdContrib, Qt::Key_Return);
        QVERIFY(visto);

        const QString grabado =
            QStringLiteral("El número de orden y el digito verificador fueron grabados satisfactoriamente.");
        if (borradaEntretanto) {
            QVERIFY(!respondedor().textos().contains(grabado));
            QVERIFY(respondedor().textos().contains(QStringLiteral(
                "La declaración enviada ya no se encuentra registrada. El número de orden no fue grabado.")));
            QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM HCAB WHERE NORDEN IS NOT NULL")).toInt(), 0);
            return;
        }
        QCOMPARE(respondedor().textos().last(), grabado);
        QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM HCAB WHERE PERIODO='202608' ORDER BY CORREL"));
        QVERIFY(q.next());
        QVERIFY(q.record().value(QStringLiteral("NORDEN")).isNull());
        QVERIFY(q.next());
        const QSqlRecord r = q.record();
        QCOMPARE(r.value(QStringLiteral("NORDEN")).toString(), orden);
        // The row in table order, the date of sending as the date it is.
        QVariantList columnas;
        for (int i = 0; i < r.count(); ++i)
            columnas << (r.fieldName(i).toUpper() == QLatin1String("FEC_ENV") ? QVariant(kEnvio) : r.value(i));
        QCOMPARE(r.value(QStringLiteral("cNumero")).toString(), CodigoFila(columnas, 6));
        QCOMPARE(r.value(QStringLiteral("cNumero")).toString(), CodigoFila(r, 6));
        // Back in the picker, on the copy registered, which now shows its number.
        QCOMPARE(v.grdContrib->currentRow(), 1);
        QCOMPARE(celda(v.grdContrib, 1, 4), orden);
    }

    // A declaration stored under each regime, before and from 2013, opened through "&Modificar"
    // and stored again without a change: accepted, and every row as it was, codes typed with
    // leading zeros (the telephone, the frontier district) included.
    void laGuardadaSeVuelveAGrabarSinCambios_data()
    {
        QTest::addColumn<int>("anio");
        QTest::addColumn<QString>("regimen");
        for (int anio : {2012, 2026})
            for (const char* r : {"4", "1", "2", "3", "6", "8"})
                QTest::addRow("%d regimen %s", anio, r) << anio << QString::fromLatin1(r);
    }

    void laGuardadaSeVuelveAGrabarSinCambios()
    {
        QFETCH(int, anio);
        QFETCH(QString, regimen);
        EntradaDeclaracion e = declaracionDeRegimen(regimen);
        e.casillas.insert(QStringLiteral("028"), QStringLiteral("014451234"));
        if (regimen == QLatin1String("3"))
            e.casillas.insert(QStringLiteral("603"), QStringLiteral("060101"));
        if (regimen == QLatin1String("1"))
            e.casillas.insert(QStringLiteral("200"), QString::number(anio) + QStringLiteral("0310"));
        if (anio < 2013)
            for (const char* c : {"611", "612", "613", "651"})
                e.casillas.remove(QString::fromLatin1(c));
        // Stored in its year, as a user of that year did.
        fijarHoy(QDate(anio, 11, 22));
        QString periodo;
        {
            EntornoSinPantalla entorno;
            Frm931 f(&entorno);
            reproducirEntrada(f, entorno, e);
            f.CmdGrabar_Click();
            QVERIFY2(!f.mbModificado, qPrintable(respondedor().textos().join(QLatin1Char('\n'))));
            periodo = escalar(QStringLiteral("SELECT PERIODO FROM CAB")).toString();
        }
        // Reopened today, but for an agrarian one of an earlier year: the date of its form 4888
        // must lie in today's year, so it is reopened within its own year.
        fijarHoy(regimen == QLatin1String("1") && anio < 2013 ? QDate(anio, 12, 15) : QDate());
        // The header but for the date of the save, which a save renews.
        const auto cabecera = [&periodo] {
            QSqlQuery q = ejecutar(QStringLiteral("SELECT DOC_ID_D, ESTADO, RECTIFICA, cNumero, FEC_PRO FROM CAB WHERE PERIODO=?"),
                                   {periodo});
            return q.next() ? QStringList{q.value(0).toString(), q.value(1).toString(), q.value(2).toString()} : QStringList();
        };
        const QStringList cab = cabecera();
        const QStringList det = volcado(QStringLiteral("DET"), periodo);
        respondedor().mostrados.clear();

        FrmContAbrirVista picker(1);
        picker.show();
        QVERIFY(QTest::qWaitForWindowActive(&picker));
        QCOMPARE(picker.grdContrib->rowCount(), 1);
        bool visto = false;
        QString telefono;
        alAbrirseLaDeclaracion(this, [&](Frm931Vista* d) {
            telefono = qobject_cast<QLineEdit*>(d->control(QStringLiteral("TxtTelefono")))->text();
            QTest::mouseClick(d->control(QStringLiteral("CmdGrabar")), Qt::LeftButton);
            QTest::mouseClick(d->control(QStringLiteral("cmdCancelar")), Qt::LeftButton);
        }, &visto);
        QTest::mouseClick(picker.CmdOpciones[0], Qt::LeftButton);
        QVERIFY(visto);
        const QStringList textos = respondedor().textos();
        QVERIFY2(textos.size() == 1 && textos.first().startsWith(QStringLiteral("La información de la declaración fue grabada")),
                 qPrintable(textos.join(QLatin1Char('\n'))));
        QCOMPARE(cabecera(), cab);
        QSqlQuery guardada = ejecutar(QStringLiteral("SELECT * FROM CAB"));
        QVERIFY(guardada.next());
        QCOMPARE(guardada.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(guardada.record(), 5));
        QCOMPARE(volcado(QStringLiteral("DET"), periodo), det);
        QCOMPARE(telefono, QStringLiteral("014451234"));
        QCOMPARE(mapaDet(periodo).value(QStringLiteral("028")), QStringLiteral("014451234"));
        if (regimen == QLatin1String("3"))
            QCOMPARE(mapaDet(periodo).value(QStringLiteral("603")), QStringLiteral("060101"));
    }
};

QTEST_MAIN(PruebaFrmContAbrir)
#include "frmcontabrir.moc"
