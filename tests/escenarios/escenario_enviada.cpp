// A declaration from its store to its order number and its print, through the main window:
// reopened from "Modificar", moved to the history tables as the family's sending module does,
// given its order number in "Registrar número de orden" by keyboard, and previewed from the
// print selection of sent declarations.
#include "basic/reloj.h"
#include "comun/base_prueba.h"
#include "escenarios/conductor.h"
#include "family/vista/barraestado.h"
#include "form931/frm931.h"
#include "form931/grabacion_comun.h"
#include "form931/guion.h"
#include "form931/vista/frm931vista.h"
#include "reports/vista/frmpreview.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "shell/vista/mdifrm.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTableWidget>
#include <QTest>

#include <memory>

using namespace prueba931;

namespace {

const QString kPeriodo = QStringLiteral("202605");   // balance at 30 April
const QString kControl = QStringLiteral("0012345678");
const QDate kEnvio(2026, 11, 21);

QTableWidget* grilla(QWidget* w)
{
    return w->findChild<QTableWidget*>(QStringLiteral("grdContrib"));
}

// The keys of a window reach its shortcuts when it is the active one.
void teclaAlt(QWidget* v, Qt::Key tecla)
{
    v->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(v));
    QTest::keyClick(v, tecla, Qt::AltModifier);
}

QLineEdit* caja(QWidget* w, const QString& nombre)
{
    return qobject_cast<QLineEdit*>(qobject_cast<Frm931Vista*>(w)->control(nombre));
}

// What the sending module does with a stored declaration: its rows go to the history tables
// under a correlative, marked sent (ESTADO 1), with the date of sending and the control
// number, each with its code,
// and leave the working tables.
void enviar(const QString& correl)
{
    Transaccion t;
    const QVariantList clave{DatosDemo::kRucAndina, kPeriodo};
    ejecutar(QStringLiteral(
                 "INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, CORREL, FEC_PRO, ESTADO, RECTIFICA,"
                 " FEC_ENV, CONTROL) SELECT TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, ?, FEC_PRO, 1, RECTIFICA,"
                 " ?, ? FROM CAB WHERE DOC_ID_D=? AND PERIODO=?"),
             QVariantList{correl, kEnvio.toString(Qt::ISODate), kControl} + clave);
    ejecutar(QStringLiteral("INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, CORREL, CASILLA, I_VALOR,"
                            " idcasilla) SELECT TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, SEMANA, ?, CASILLA, I_VALOR,"
                            " idcasilla FROM DET WHERE DOC_ID_D=? AND PERIODO=?"),
             QVariantList{correl} + clave);
    ejecutar(QStringLiteral("INSERT INTO HF0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, CORREL, Anho, Importe)"
                            " SELECT Tip_doc_d, Doc_id_d, Periodo, Formulario, ?, Anho, Importe FROM F0931_PTCEA"
                            " WHERE Doc_id_d=? AND Periodo=?"),
             QVariantList{correl} + clave);
    for (const char* tabla : {"HCAB", "HDET", "HF0931_PTCEA"}) {
        QSqlQuery q = ejecutar(QStringLiteral("SELECT rowid FROM ") + QLatin1String(tabla));
        QList<qint64> filas;
        while (q.next())
            filas << q.value(0).toLongLong();
        q.finish();
        for (qint64 f : filas)
            sellarFila(QLatin1String(tabla), f, 6);
    }
    for (const char* tabla : {"F0931_PTCEA", "ACTA", "DET", "CAB"})
        ejecutar(QStringLiteral("DELETE FROM ") + QLatin1String(tabla) + QStringLiteral(" WHERE DOC_ID_D=? AND PERIODO=?"), clave);
    t.commit();
}

}  // namespace

class EscenarioEnviada : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;
    RespondedorGuion& respondedor() { return familia->respondedor(); }

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        barraEstado() = EstadoBarra();
    }
    void cleanup() { familia.reset(); }

    void deLaBaseAlNumeroDeOrdenYAlPapel()
    {
        // A consistent declaration stored earlier, with a Lima telephone.
        {
            EntradaDeclaracion e = declaracionConsistente();
            e.casillas.insert(QStringLiteral("028"), QStringLiteral("014451234"));
            EntornoSinPantalla entorno;
            Frm931 f(&entorno);
            reproducirEntrada(f, entorno, e);
            f.CmdGrabar_Click();
            QVERIFY(!f.mbModificado);
            QCOMPARE(escalar(QStringLiteral("SELECT ESTADO FROM CAB")).toInt(), 0);
        }
        respondedor().mostrados.clear();
        MDIFrm w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        auto panel = [&w](const char* p) { return w.BarradeEstadoQVL1->property(p).toString(); };

        // "Modificar": the picker lists it; Enter opens it as stored; the window goes with Escape.
        Conductor c;
        QString telefono, periodoBarra;
        c.luego(QStringLiteral("FrmContAbrir"), [&](QWidget* v) {
            QCOMPARE(grilla(v)->rowCount(), 1);
            QTest::keyClick(grilla(v), Qt::Key_Return);
        });
        c.luego(QStringLiteral("Frm931"), [&](QWidget* v) {
            telefono = caja(v, QStringLiteral("TxtTelefono"))->text();
            QTest::keyClick(v, Qt::Key_Escape);
        });
        c.luego(QStringLiteral("FrmContAbrir"), [&](QWidget* v) {
            periodoBarra = panel("PanelPeriodo");
            teclaAlt(v, Qt::Key_S);
        });
        w.accion(QStringLiteral("mnuModificar"))->trigger();
        QVERIFY2(c.terminado(), qPrintable(c.pendientes() + QLatin1Char(' ') + respondedor().textos().join(QLatin1Char('/'))));
        QCOMPARE(telefono, QStringLiteral("014451234"));
        QCOMPARE(periodoBarra, QStringLiteral("2026/05"));
        QVERIFY2(respondedor().mostrados.isEmpty(), qPrintable(respondedor().textos().join(QLatin1Char('\n'))));

        enviar(QStringLiteral("1"));

        // "Registrar número de orden": the sent copy is listed with its date; the number and
        // its check digits are typed; "&Registrar Nro. Orden" registers it.
        const QString orden = QStringLiteral("2026123456");
        const QString digitos = DigitoVerificador(kControl, orden);
        QStringList fila, barra;
        bool soloLectura = false;
        c.luego(QStringLiteral("FrmContAbrirEnv"), [&](QWidget* v) {
            QTableWidget* g = grilla(v);
            for (int col = 0; col < 7; ++col)
                fila << (g->item(0, col) ? g->item(0, col)->text() : QString());
            barra = QStringList{panel("PanelRuc"), panel("PanelPeriodo")};
            QTest::keyClick(g, Qt::Key_Return);
        });
        c.luego(QStringLiteral("Frm931"), [&](QWidget* v) {
            soloLectura = !caja(v, QStringLiteral("TxtValor(500)"))->isEnabled();
            QLineEdit* numero = caja(v, QStringLiteral("txtOrden"));
            QTest::mouseClick(numero, Qt::LeftButton);
            QTest::keyClicks(numero, orden);
            QLineEdit* verifica = caja(v, QStringLiteral("txtverifica"));
            QTest::mouseClick(verifica, Qt::LeftButton);
            verifica->selectAll();
            QTest::keyClicks(verifica, digitos);
            QTest::mouseClick(qobject_cast<Frm931Vista*>(v)->control(QStringLiteral("CmdGrabar")), Qt::LeftButton);
        });
        QString ordenEnGrilla;
        c.luego(QStringLiteral("FrmContAbrirEnv"), [&](QWidget* v) {
            ordenEnGrilla = grilla(v)->item(0, 4)->text();
            teclaAlt(v, Qt::Key_S);
        });
        w.accion(QStringLiteral("mnuRegistrar"))->trigger();
        QVERIFY2(c.terminado(), qPrintable(c.pendientes() + QLatin1Char(' ') + respondedor().textos().join(QLatin1Char('/'))));
        QCOMPARE(fila, (QStringList{DatosDemo::kRucAndina, DatosDemo::kNombreAndina, kPeriodo, QStringLiteral("0931"),
                                    QString(), QStringLiteral("21/11/2026"), kControl}));
        QCOMPARE(barra, (QStringList{DatosDemo::kRucAndina, kPeriodo}));
        QVERIFY(soloLectura);
        QCOMPARE(respondedor().textos(),
                 QStringList{QStringLiteral("El número de orden y el digito verificador fueron grabados satisfactoriamente.")});
        QCOMPARE(ordenEnGrilla, orden);
        QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM HCAB"));
        QVERIFY(q.next());
        QCOMPARE(q.record().value(QStringLiteral("NORDEN")).toString(), orden);
        QVariantList columnas;
        for (int i = 0; i < q.record().count(); ++i)
            columnas << (q.record().fieldName(i) == QLatin1String("FEC_ENV") ? QVariant(kEnvio) : q.record().value(i));
        QCOMPARE(q.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(columnas, 6));

        // The print selection of sent declarations: "&Preliminar" over the one sent, the whole
        // range, the preview of its pages; then out of the range and of the selection.
        int paginas = 0;
        QString titulo;
        c.luego(QStringLiteral("frmImprimir"), [&](QWidget* v) {
            QCOMPARE(grilla(v)->rowCount(), 1);
            teclaAlt(v, Qt::Key_P);
        });
        c.luego(QStringLiteral("frmImpxPag"), [&](QWidget* v) {
            teclaAlt(v, Qt::Key_P);
        });
        c.luego(QStringLiteral("frmPreview"), [&](QWidget* v) {
            auto* previa = qobject_cast<frmPreview*>(v);
            titulo = previa->windowTitle();
            paginas = previa->modelo().nTotHojas;
            previa->boton(5)->trigger();
        });
        c.luego(QStringLiteral("frmImpxPag"), [&](QWidget* v) { teclaAlt(v, Qt::Key_C); });
        c.luego(QStringLiteral("frmImprimir"), [&](QWidget* v) { teclaAlt(v, Qt::Key_S); });
        w.accion(QStringLiteral("mnuImprimir1"))->trigger();
        QVERIFY2(c.terminado(), qPrintable(c.pendientes() + QLatin1Char('/') + c.visitadas.join(QLatin1Char(','))));
        QCOMPARE(titulo, QStringLiteral("Presentación Preliminar"));
        QVERIFY(paginas >= 1);
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM SPOOL")).toInt(), 1);
        // No row of the whole road carries a code other than its own.
        for (const auto& [tabla, claves] : QList<QPair<QString, int>>{{"HCAB", 6}, {"HDET", 6}}) {
            QSqlQuery r = ejecutar(QStringLiteral("SELECT * FROM ") + tabla);
            while (r.next())
                QCOMPARE(r.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(r.record(), claves));
        }
    }
};

QTEST_MAIN(EscenarioEnviada)
#include "escenario_enviada.moc"
