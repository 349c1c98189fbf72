// Every button of the module does something. From the main window, every menu command and
// toolbar button is pressed; every window they open (and every window those windows' buttons
// open) is opened afresh for each of its buttons, on each page of its tabs, and the button is
// clicked. A click counts as an effect when it changes what the window shows (the window
// mirrored again from its model where it has one, so a control the model never hears of shows
// no change), changes a row of the database or the status bar, shows a message, opens or
// closes a window. A button without any of these is reported.
#include "basic/errores.h"
#include "basic/reloj.h"
#include "comun/base_prueba.h"
#include "escenarios/conductor.h"
#include "form931/grabacion_comun.h"
#include "form931/guion.h"
#include "form931/vista/frm931vista.h"
#include "register/vista/selectorvista.h"
#include "reports/vista/frmimprimir.h"
#include "reports/vista/frmpreview.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "shell/vista/mdifrm.h"
#include "store/base.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QScrollBar>
#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace prueba931;

namespace {

// ------------------------------------------------------------------------------ the snapshot

// A window that mirrors its model again on request: a control the model doesn't know of goes
// back to what the model says.
bool reflejar(QWidget* w)
{
    if (auto* d = qobject_cast<Frm931Vista*>(w)) {
        d->refrescar();
        return true;
    }
    if (auto* s = qobject_cast<SelectorVista*>(w)) {
        s->refrescar();
        return true;
    }
    if (auto* i = qobject_cast<frmImprimir*>(w)) {
        i->refrescar();
        return true;
    }
    return false;
}

// What a window shows, control by control. In a window that can't be mirrored again, the
// button pressed is left out: its own check mark is Qt's doing, not the window's.
QStringList estadoVentana(QWidget* w, QWidget* pulsado = nullptr)
{
    if (reflejar(w))
        pulsado = nullptr;
    QStringList l{w->windowTitle(), QString::number(w->isVisible())};
    // The preview draws its page: the page on view is its model's.
    if (auto* p = qobject_cast<frmPreview*>(w))
        l << QStringLiteral("hoja %1 de %2").arg(p->modelo().nHojaActual).arg(p->modelo().nTotHojas);
    const QList<QWidget*> hijos = w->findChildren<QWidget*>();
    for (QWidget* h : hijos) {
        if (h == pulsado)
            continue;
        QString t = QString::fromLatin1(h->metaObject()->className()) + QLatin1Char(':') + h->objectName()
                    + QLatin1Char(':') + QString::number(h->isVisible()) + QString::number(h->isEnabled());
        if (auto* le = qobject_cast<QLineEdit*>(h))
            t += le->text() + QString::number(le->isReadOnly());
        else if (auto* b = qobject_cast<QAbstractButton*>(h))
            t += b->text() + QString::number(b->isChecked());
        else if (auto* c = qobject_cast<QComboBox*>(h))
            t += QString::number(c->currentIndex()) + QLatin1Char('/') + QString::number(c->count());
        else if (auto* tab = qobject_cast<QTabWidget*>(h))
            t += QString::number(tab->currentIndex());
        else if (auto* lb = qobject_cast<QLabel*>(h))
            t += lb->text();
        else if (auto* g = qobject_cast<QTableWidget*>(h))
            t += QString::number(g->rowCount()) + QLatin1Char('/') + QString::number(g->currentRow());
        else if (auto* s = qobject_cast<QScrollBar*>(h))
            t += QString::number(s->value());
        l << t;
    }
    // The focus is left out: any click moves it.
    return l;
}

// Every row of every table, and the status bar. A database the program closed (it ended)
// reads as that.
QStringList estadoDatos()
{
    if (!gdbBase().isValid() || !gdbBase().isOpen())
        return {QStringLiteral("base cerrada")};
    QStringList l;
    for (const QString& tabla : gdbBase().tables()) {
        QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM ") + tabla + QStringLiteral(" ORDER BY rowid"));
        while (q.next()) {
            QStringList c;
            for (int i = 0; i < q.record().count(); ++i)
                c << q.value(i).toString();
            l << tabla + QLatin1Char(':') + c.join(QLatin1Char('|'));
        }
    }
    const EstadoBarra& b = barraEstado();
    l << QStringList{b.PanelRuc, b.PanelNombre, b.PanelPeriodo, b.PanelFormulario}.join(QLatin1Char('|'));
    return l;
}

QSet<QWidget*> ventanasVisibles()
{
    QSet<QWidget*> s;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible())
            s.insert(w);
    return s;
}

// ------------------------------------------------------------------------------ the buttons

// The buttons of a window a user can press now, by a name that stays the same each time the
// window opens in the same state.
QList<QPair<QString, QAbstractButton*>> botones(QWidget* w)
{
    QList<QPair<QString, QAbstractButton*>> l;
    QHash<QString, int> vistos;
    for (QAbstractButton* b : w->findChildren<QAbstractButton*>()) {
        if (!b->isVisible() || !b->isEnabled())
            continue;
        // A window's own scroll and tab arrows and a grid's corner belong to Qt, not to the module.
        if (b->objectName().startsWith(QLatin1String("qt_")) || qobject_cast<QTabWidget*>(b->parentWidget())
            || qobject_cast<QAbstractItemView*>(b->parentWidget()))
            continue;
        if (qobject_cast<QToolButton*>(b) && qobject_cast<QToolBar*>(b->parentWidget()))
            continue;   // toolbar buttons are pressed as their actions
        // Pressing the option that is already chosen changes nothing, by design: a radio
        // button, or a button of an exclusive group of actions, that is checked.
        if (b->isChecked()) {
            auto* t = qobject_cast<QToolButton*>(b);
            QActionGroup* grupo = t && t->defaultAction() ? t->defaultAction()->actionGroup() : nullptr;
            if (qobject_cast<QRadioButton*>(b) || (grupo && grupo->isExclusive()))
                continue;
        }
        QString nombre = b->objectName().isEmpty() ? QString::fromLatin1(b->metaObject()->className()) + QLatin1Char('[')
                                                             + b->text() + QLatin1Char(']')
                                                       : b->objectName();
        const int n = vistos[nombre]++;
        if (n > 0)
            nombre += QLatin1Char('#') + QString::number(n);
        l.append({nombre, b});
    }
    return l;
}

// The actions of a window's toolbars and menus that run a command.
QList<QPair<QString, QAction*>> acciones(QWidget* w)
{
    QList<QPair<QString, QAction*>> l;
    QSet<QAction*> vistas;
    auto agregar = [&](QAction* a) {
        if (!a || vistas.contains(a) || a->isSeparator() || a->menu() || !a->isEnabled() || !a->isVisible())
            return;
        vistas.insert(a);
        l.append({a->objectName().isEmpty() ? a->text() : a->objectName(), a});
    };
    for (QToolBar* t : w->findChildren<QToolBar*>())
        if (t->isVisible())
            for (QAction* a : t->actions())
                agregar(a);
    for (QMenu* m : w->findChildren<QMenu*>())
        for (QAction* a : m->actions())
            agregar(a);
    return l;
}

// The pages of a window: one entry for each page of each tab widget, with the tab widgets
// around it turned to the page that holds it.
QList<QList<QPair<QString, int>>> paginas(QWidget* w)
{
    QList<QList<QPair<QString, int>>> l{{}};
    for (QTabWidget* t : w->findChildren<QTabWidget*>()) {
        for (int k = 0; k < t->count(); ++k) {
            QList<QPair<QString, int>> camino{{t->objectName(), k}};
            for (QWidget* p = t->parentWidget(); p && p != w; p = p->parentWidget())
                if (auto* a = qobject_cast<QTabWidget*>(p->parentWidget() ? p->parentWidget()->parentWidget() : nullptr))
                    if (a->indexOf(p) >= 0)
                        camino.prepend({a->objectName(), a->indexOf(p)});
            l << camino;
        }
    }
    return l;
}

void irAPagina(QWidget* w, const QList<QPair<QString, int>>& camino)
{
    for (const auto& [nombre, k] : camino)
        if (auto* t = w->findChild<QTabWidget*>(nombre); t && t->isTabEnabled(k))
            t->setCurrentIndex(k);
}

// ------------------------------------------------------------------------------ the walk

// How to reach a window afresh: a command of the main window, then the buttons to press in
// the windows that open on the way.
struct Ruta {
    QString comando;                                  // action of MDIFrm
    QList<QPair<QString, QString>> botones;           // (window, button) on the way
    QString ventana;                                  // the window reached
    QString texto() const
    {
        QStringList l{comando};
        for (const auto& [v, b] : botones)
            l << v + QLatin1Char('.') + b;
        return l.join(QLatin1String(" > ")) + QLatin1String(" > ") + ventana;
    }
};

class Recorrido {
public:
    explicit Recorrido(FamiliaPrueba& familia) : familia_(familia) {}

    QStringList muertos;     // "route: button" of every button without effect
    QStringList vistas;      // windows walked
    int pulsados = 0;

    // Presses every command of the main window, then walks every window reached.
    void recorrer()
    {
        QList<QString> comandos;
        {
            MDIFrm w;
            w.show();
            QVERIFY(QTest::qWaitForWindowExposed(&w));
            for (const auto& [nombre, a] : acciones(&w))
                comandos << nombre;
        }
        for (const QString& comando : comandos)
            pulsarComando(comando);
        while (!pendientes_.isEmpty())
            recorrerVentana(pendientes_.takeFirst());
    }

    // The check of one window already on the screen: each of its buttons pressed in turn,
    // the window opened again by `reabrir` before each.
    bool tieneEfecto(QWidget* w, const std::function<void()>& pulsar, QStringList* abiertas, QWidget* pulsado = nullptr)
    {
        familia_.respondedor().mostrados.clear();
        const QStringList antesV = estadoVentana(w, pulsado);
        const QStringList antesD = estadoDatos();
        const QSet<QWidget*> antesW = ventanasVisibles();
        abiertas_.clear();
        cerrando_ = true;
        pulsar();
        QTest::qWait(1);
        cerrando_ = false;
        if (abiertas)
            *abiertas = abiertas_;
        ++pulsados;
        if (!familia_.respondedor().mostrados.isEmpty() || !abiertas_.isEmpty())
            return true;
        if (!w->isVisible())
            return true;
        if (ventanasVisibles() != antesW)
            return true;
        return estadoVentana(w, pulsado) != antesV || estadoDatos() != antesD;
    }

private:
    // Any modal window that opens while a button is being pressed is noted and shut.
    void vigilar()
    {
        if (!cerrando_)
            return;
        QWidget* m = QApplication::activeModalWidget();
        if (m && m->isVisible() && m != objetivo_) {
            abiertas_ << m->objectName();
            cerrar(m);
        }
    }

    void cerrar(QWidget* m)
    {
        // Leaving without saving, whatever the window asks.
        familia_.respondedor().respuestas = QList<int>(4, vbNo);
        if (auto* d = qobject_cast<QDialog*>(m))
            d->reject();
        else
            m->close();
    }

    void anotarNueva(const Ruta& base, const QStringList& abiertas, const QString& boton)
    {
        for (const QString& v : abiertas) {
            // A window is walked once for each window that opens it (the declaration window
            // new, opened from the list, opened as sent).
            const QString clave = v + QLatin1Char('<') + base.ventana;
            if (v.isEmpty() || conocidas_.contains(clave))
                continue;
            conocidas_.insert(clave);
            Ruta r = base;
            if (!boton.isEmpty())
                r.botones << qMakePair(r.ventana, boton);
            r.ventana = v;
            pendientes_ << r;
        }
    }

    // The main window with its real openers, but for the end of the program, which only shuts
    // the window here: ending the process would end every window loop that follows.
    static void sinFinDelPrograma(MDIFrm& w)
    {
        abridores().cerrarVentana = [&w] { w.close(); };
    }

    void pulsarComando(const QString& comando)
    {
        MDIFrm w;
        sinFinDelPrograma(w);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QAction* a = nullptr;
        for (const auto& [nombre, accion] : acciones(&w))
            if (nombre == comando)
                a = accion;
        QVERIFY(a);
        QTimer vigia;
        QObject::connect(&vigia, &QTimer::timeout, [this] { vigilar(); });
        vigia.start(5);
        objetivo_ = &w;
        QStringList abiertas;
        if (!tieneEfecto(&w, [a] { a->trigger(); }, &abiertas))
            muertos << QStringLiteral("MDIFrm: ") + comando;
        // A command that ended the program closed the database: it opens again for the next.
        if (!gdbBase().isValid() || !gdbBase().isOpen())
            abrirBase(familia_.baseDatos());
        Ruta r;
        r.comando = comando;
        r.ventana = QStringLiteral("MDIFrm");
        anotarNueva(r, abiertas, QString());
        // The main window's own help viewer and anything else left open.
        for (QWidget* t : QApplication::topLevelWidgets())
            if (t != &w && t->isVisible() && !qobject_cast<QMenu*>(t))
                t->close();
    }

    // Opens the window of the route and runs `cuerpo` on it; every window of the route is shut
    // afterwards.
    void abrir(const Ruta& ruta, const std::function<void(QWidget*)>& cuerpo)
    {
        MDIFrm w;
        sinFinDelPrograma(w);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        Conductor c;
        for (const auto& [ventana, boton] : ruta.botones)
            c.luego(ventana, [this, boton](QWidget* v) {
                for (const auto& [nombre, b] : botones(v))
                    if (nombre == boton) {
                        b->click();
                        return;
                    }
                for (const auto& pagina : paginas(v)) {
                    irAPagina(v, pagina);
                    for (const auto& [nombre, b] : botones(v))
                        if (nombre == boton) {
                            b->click();
                            return;
                        }
                }
            });
        c.luego(ruta.ventana, [this, cuerpo](QWidget* v) {
            objetivo_ = v;
            cuerpo(v);
            objetivo_ = nullptr;
            cerrarTodo_ = true;
        });
        QTimer vigia;
        QObject::connect(&vigia, &QTimer::timeout, [this] {
            vigilar();
            if (!cerrarTodo_)
                return;
            if (QWidget* m = QApplication::activeModalWidget(); m && m->isVisible())
                cerrar(m);
        });
        vigia.start(5);
        cerrarTodo_ = false;
        for (const auto& [nombre, a] : acciones(&w))
            if (nombre == ruta.comando)
                a->trigger();
        cerrarTodo_ = false;
        familia_.respondedor().respuestas.clear();
        if (!c.terminado())
            muertos << QStringLiteral("no se llegó a ") + ruta.texto() + QStringLiteral(" (falta ") + c.pendientes()
                           + QLatin1Char(')');
    }

    void recorrerVentana(const Ruta& ruta)
    {
        vistas << ruta.ventana;
        // First the list of its buttons, page by page.
        QList<QPair<QList<QPair<QString, int>>, QString>> lista;
        abrir(ruta, [&](QWidget* v) {
            QSet<QString> ya;
            for (const auto& pagina : paginas(v)) {
                irAPagina(v, pagina);
                for (const auto& [nombre, b] : botones(v))
                    if (!ya.contains(nombre)) {
                        ya.insert(nombre);
                        lista.append({pagina, nombre});
                    }
            }
        });
        // Its toolbar commands, each on a window just opened.
        QStringList nombresAcciones;
        abrir(ruta, [&](QWidget* v) {
            for (const auto& [nombre, a] : acciones(v))
                nombresAcciones << nombre;
        });
        for (const QString& accion : std::as_const(nombresAcciones)) {
            abrir(ruta, [&](QWidget* v) {
                for (const auto& [nombre, a] : acciones(v)) {
                    if (nombre != accion)
                        continue;
                    QStringList abiertas;
                    if (!tieneEfecto(v, [a = a] { a->trigger(); }, &abiertas))
                        muertos << ruta.texto() + QStringLiteral(": ") + accion;
                    return;
                }
            });
        }
        // Then each button, on a window just opened.
        for (const auto& [pagina, boton] : lista) {
            abrir(ruta, [&, pagina = pagina, boton = boton](QWidget* v) {
                irAPagina(v, pagina);
                QAbstractButton* b = nullptr;
                for (const auto& [nombre, x] : botones(v))
                    if (nombre == boton)
                        b = x;
                if (!b)
                    return;   // not on the screen in a fresh window (it needs an earlier step)
                QStringList abiertas;
                if (!tieneEfecto(v, [b] { QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(6, b->height() / 2)); }, &abiertas, b))
                    muertos << ruta.texto() + QStringLiteral(": ") + boton;
                anotarNueva(ruta, abiertas, boton);
            });
        }
    }

    FamiliaPrueba& familia_;
    QList<Ruta> pendientes_;
    QSet<QString> conocidas_;
    QStringList abiertas_;
    QWidget* objetivo_ = nullptr;
    bool cerrando_ = false;
    bool cerrarTodo_ = false;
};

}  // namespace

class EscenarioBotones : public QObject {
    Q_OBJECT

    std::unique_ptr<FamiliaPrueba> familia;

private slots:
    void init()
    {
        familia = std::make_unique<FamiliaPrueba>();
        barraEstado() = EstadoBarra();
    }
    void cleanup() { familia.reset(); }

    // The detector itself: a button wired to nothing is caught, and so is an option the
    // window's model never hears of; a button that changes the window is not.
    void unBotonSinConexionSeDetecta()
    {
        QDialog d;
        auto* muerto = new QPushButton(QStringLiteral("Muerto"), &d);
        auto* vivo = new QPushButton(QStringLiteral("Vivo"), &d);
        auto* etiqueta = new QLabel(&d);
        auto* capa = new QVBoxLayout(&d);
        capa->addWidget(muerto);
        capa->addWidget(vivo);
        capa->addWidget(etiqueta);
        QObject::connect(vivo, &QPushButton::clicked, etiqueta, [etiqueta] { etiqueta->setText(QStringLiteral("x")); });
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        Recorrido r(*familia);
        QVERIFY(!r.tieneEfecto(&d, [muerto] { QTest::mouseClick(muerto, Qt::LeftButton); }, nullptr, muerto));
        QVERIFY(r.tieneEfecto(&d, [vivo] { QTest::mouseClick(vivo, Qt::LeftButton); }, nullptr, vivo));
        // A check box that only checks itself.
        auto* casilla = new QCheckBox(QStringLiteral("Suelta"), &d);
        capa->addWidget(casilla);
        casilla->show();
        QVERIFY(!r.tieneEfecto(&d, [casilla] { QTest::mouseClick(casilla, Qt::LeftButton, {}, QPoint(6, casilla->height() / 2)); },
                               nullptr, casilla));
    }

    // With a stored and a sent declaration, so that the lists have rows to act on.
    void cadaBotonHaceAlgo()
    {
        {
            EntornoSinPantalla entorno;
            Frm931 f(&entorno);
            reproducirEntrada(f, entorno, declaracionDeRegimen(QStringLiteral("4")));
            f.CmdGrabar_Click();
            QVERIFY(!f.mbModificado);
        }
        ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, FEC_ENV, CONTROL)"
                                " VALUES (6, ?, '202608', '0931', '1', '2026-11-21', '0012345678')"),
                 {DatosDemo::kRucAndina});
        ejecutar(QStringLiteral("INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, CASILLA, I_VALOR)"
                                " SELECT TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, '1', CASILLA, I_VALOR FROM DET"));
        familia->respondedor().mostrados.clear();
        Recorrido r(*familia);
        try {
            r.recorrer();
        } catch (const ErrorVB& e) {
            QFAIL(qPrintable(e.descripcion));
        }
        qInfo("%d botones pulsados en %s", r.pulsados, qPrintable(r.vistas.join(QLatin1String(", "))));
        QVERIFY2(r.muertos.isEmpty(), qPrintable(r.muertos.join(QLatin1Char('\n'))));
        QVERIFY(r.vistas.contains(QStringLiteral("Frm931")));
        QVERIFY(r.vistas.contains(QStringLiteral("FrmContAbrir")));
        QVERIFY(r.vistas.contains(QStringLiteral("FrmContAbrirEnv")));
        QVERIFY(r.vistas.contains(QStringLiteral("frmImprimir")));
        QVERIFY(r.vistas.contains(QStringLiteral("frmPreview")));
        QVERIFY(r.vistas.count(QStringLiteral("Frm931")) >= 3);   // new, from the list, sent
    }
};

QTEST_MAIN(EscenarioBotones)
#include "escenario_botones.moc"
