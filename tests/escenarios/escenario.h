#pragma once
// A user in front of the real windows: keys go where the focus is (the open menu, the modal
// window in front, the focused control), exactly as the keyboard would send them. A script is a
// string of text and keys in braces:
//
//   "4445555{Enter}{A-g}{Tab*3}{S-Tab}{Space}{?antes}"
//
// Keys: {Tab}, {S-Tab}, {Enter}, {Space}, {Esc}, {Del}, {BS}, {Up}, {Down}, {Left}, {Right},
// {Home}, {End}, {PgUp}, {PgDn}, {A-x} (Alt+x), {C-x} (Ctrl+x), {C-Tab}, {Name*n} repeats. A
// check point {?name} runs the function given for it at that moment, inside whatever modal
// window is open then. The script runs one step at a time from the event loop, so a key that
// opens a modal window finds the following steps running inside that window.
#include "basic/respondedor_guion.h"
#include "comun/base_prueba.h"
#include "comun/usuario_vista.h"
#include "store/base.h"

#include <QApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QKeySequence>
#include <QLineEdit>
#include <QMap>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include "basic/reloj.h"
#include "form931/frm931.h"
#include "form931/vista/frm931vista.h"
#include "shell/globales.h"

#include <functional>
#include <memory>

namespace escenario {

// Where a key goes now.
inline QWidget* destino()
{
    if (QWidget* p = QApplication::activePopupWidget())
        return p;
    QWidget* foco = QApplication::focusWidget();
    if (QWidget* modal = QApplication::activeModalWidget()) {
        if (!foco || foco->window() != modal)
            foco = modal->focusWidget() ? modal->focusWidget() : modal;
    }
    if (!foco)
        foco = QApplication::activeWindow();
    return foco;
}

struct Tecla {
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers mod = Qt::NoModifier;
};

inline bool leerTecla(const QString& nombre, Tecla& t)
{
    static const QMap<QString, Qt::Key> teclas{
        {QStringLiteral("Tab"), Qt::Key_Tab},      {QStringLiteral("Enter"), Qt::Key_Return},
        {QStringLiteral("Space"), Qt::Key_Space},  {QStringLiteral("Esc"), Qt::Key_Escape},
        {QStringLiteral("Del"), Qt::Key_Delete},   {QStringLiteral("BS"), Qt::Key_Backspace},
        {QStringLiteral("Up"), Qt::Key_Up},        {QStringLiteral("Down"), Qt::Key_Down},
        {QStringLiteral("Left"), Qt::Key_Left},    {QStringLiteral("Right"), Qt::Key_Right},
        {QStringLiteral("Home"), Qt::Key_Home},    {QStringLiteral("End"), Qt::Key_End},
        {QStringLiteral("PgUp"), Qt::Key_PageUp},  {QStringLiteral("PgDn"), Qt::Key_PageDown},
        {QStringLiteral("Ins"), Qt::Key_Insert},   {QStringLiteral("F1"), Qt::Key_F1},
    };
    QString n = nombre;
    t.mod = Qt::NoModifier;
    while (n.size() > 2 && n.at(1) == QLatin1Char('-')) {
        const QChar m = n.at(0);
        if (m == QLatin1Char('A'))
            t.mod |= Qt::AltModifier;
        else if (m == QLatin1Char('C'))
            t.mod |= Qt::ControlModifier;
        else if (m == QLatin1Char('S'))
            t.mod |= Qt::ShiftModifier;
        else
            return false;
        n = n.mid(2);
    }
    if (teclas.contains(n)) {
        t.key = teclas.value(n);
        if (t.key == Qt::Key_Tab && (t.mod & Qt::ShiftModifier))
            t.key = Qt::Key_Backtab;
        return true;
    }
    if (n.size() == 1 && n.at(0).isLetterOrNumber()) {
        t.key = static_cast<Qt::Key>(n.at(0).toUpper().unicode());
        return true;
    }
    return false;
}

// One key now, to wherever the focus is.
inline void pulsar(const Tecla& t)
{
    QWidget* w = destino();
    if (!w)
        return;
    QString texto;
    if (t.key == Qt::Key_Return)
        texto = QStringLiteral("\r");
    else if (t.key == Qt::Key_Space)
        texto = QStringLiteral(" ");
    else if (t.key == Qt::Key_Tab)
        texto = QStringLiteral("\t");
    else if (t.key == Qt::Key_Delete)
        texto = QString(QChar(0x7f));
    else if (t.key == Qt::Key_Backspace)
        texto = QStringLiteral("\b");
    else if (t.key < 0x80 && t.key >= Qt::Key_A && t.key <= Qt::Key_Z && (t.mod & Qt::ControlModifier))
        texto = QString(QChar(t.key - Qt::Key_A + 1));
    else if (t.key < 0x80 && !(t.mod & Qt::AltModifier))
        texto = QString(QChar(t.key)).toLower();
    // Press and release through the window system's path, so that shortcuts and mnemonics work.
    QTest::sendKeyEvent(QTest::Press, w, t.key, texto, t.mod);
    if (QWidget* r = destino())
        QTest::sendKeyEvent(QTest::Release, r, t.key, texto, t.mod);
}

inline void teclear(const QString& texto)
{
    for (QChar c : texto) {
        QWidget* w = destino();
        if (!w)
            return;
        QTest::keyClick(w, c.toLatin1());
    }
}

// A script on its way. Use ejecutar() below.
class Guion : public QObject {
public:
    struct Paso {
        QString texto;          // typed as it stands
        Tecla tecla;            // or one key
        QString revision;       // or a check point
        bool esTecla = false;
    };

    QVector<Paso> pasos;
    QMap<QString, std::function<void()>> revisiones;
    QStringList fallos;
    bool terminado = false;
    int siguiente = 0;

    bool leer(const QString& guion)
    {
        int i = 0;
        while (i < guion.size()) {
            if (guion.at(i) == QLatin1Char('{')) {
                const int fin = guion.indexOf(QLatin1Char('}'), i);
                if (fin < 0)
                    return false;
                QString nombre = guion.mid(i + 1, fin - i - 1);
                i = fin + 1;
                if (nombre.startsWith(QLatin1Char('?'))) {
                    pasos.append(Paso{QString(), {}, nombre.mid(1), false});
                    continue;
                }
                int veces = 1;
                if (const int x = nombre.lastIndexOf(QLatin1Char('*')); x > 0) {
                    veces = nombre.mid(x + 1).toInt();
                    nombre = nombre.left(x);
                }
                Tecla t;
                if (!leerTecla(nombre, t)) {
                    fallos << QStringLiteral("tecla desconocida: {%1}").arg(nombre);
                    return false;
                }
                for (int k = 0; k < veces; ++k)
                    pasos.append(Paso{QString(), t, QString(), true});
                continue;
            }
            int fin = guion.indexOf(QLatin1Char('{'), i);
            if (fin < 0)
                fin = guion.size();
            pasos.append(Paso{guion.mid(i, fin - i), {}, QString(), false});
            i = fin;
        }
        return true;
    }

    // One step; the next one is already on its way, so it runs inside any window this one opens.
    void paso()
    {
        if (siguiente >= pasos.size()) {
            terminado = true;
            return;
        }
        // A window that a closed modal one hands back is active again before it takes keys
        // (not every platform gives the activation back by itself).
        if (!QApplication::activeModalWidget() && !QApplication::activeWindow()) {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->isVisible() && !w->isMinimized() && w->windowType() != Qt::Popup && w->windowType() != Qt::ToolTip) {
                    w->activateWindow();
                    QTimer::singleShot(5, this, [this] { paso(); });
                    return;
                }
        }
        // A modal window just shown takes the keys once it is active.
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && !modal->isActiveWindow() && !QApplication::activePopupWidget()) {
            modal->activateWindow();
            QTimer::singleShot(5, this, [this] { paso(); });
            return;
        }
        const Paso p = pasos.at(siguiente++);
        // Alt+letter on a button clicks it a moment later (the button's animated click): the
        // next step waits for that.
        const bool conAlt = p.esTecla && (p.tecla.mod & Qt::AltModifier);
        QTimer::singleShot(conAlt ? 250 : 0, this, [this] { paso(); });
        if (!p.revision.isEmpty()) {
            const auto r = revisiones.constFind(p.revision);
            if (r == revisiones.constEnd())
                fallos << QStringLiteral("sin revisión %1").arg(p.revision);
            else
                r.value()();
        } else if (p.esTecla) {
            pulsar(p.tecla);
        } else {
            teclear(p.texto);
        }
    }
};

// Runs a script and returns the faults found (empty: every step ran, every window it opened is
// closed again, every check point passed). Check points report through `fallo`.
inline QStringList ejecutar(const QString& guion, const QMap<QString, std::function<void()>>& revisiones = {},
                            int msMax = qEnvironmentVariableIntValue("ESCENARIO_MS") > 0 ? qEnvironmentVariableIntValue("ESCENARIO_MS") : 60000)
{
    Guion g;
    g.revisiones = revisiones;
    if (!g.leer(guion))
        return g.fallos;
    // A window left open would hold the script's loop forever: past the time allowed, every
    // modal window is hidden, which ends its loop.
    QTimer guardia;
    QObject::connect(&guardia, &QTimer::timeout, &g, [&g] {
        g.fallos << QStringLiteral("tiempo agotado en el paso %1").arg(g.siguiente);
        g.siguiente = g.pasos.size();
        while (QWidget* m = QApplication::activeModalWidget())
            m->hide();
    });
    guardia.setSingleShot(true);
    guardia.start(msMax);
    QTimer::singleShot(0, &g, [&g] { g.paso(); });
    QElapsedTimer t;
    t.start();
    while (!g.terminado && t.elapsed() < msMax + 5000)
        QTest::qWait(10);
    if (!g.terminado)
        g.fallos << QStringLiteral("el guion no terminó");
    return g.fallos;
}

// Faults noted by check points, gathered by the test.
inline QStringList& fallos()
{
    static QStringList f;
    return f;
}

inline void comprobar(bool ok, const QString& que)
{
    if (!ok)
        fallos() << que;
}

template <class A, class B>
inline void igual(const A& obtenido, const B& esperado, const QString& que)
{
    if (!(obtenido == esperado)) {
        QDebug(&fallos().emplace_back()) << que << ": obtenido" << obtenido << "esperado" << esperado;
    }
}

// The text of a box of the window in front.
inline QString textoDe(const QString& nombre)
{
    QWidget* v = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : QApplication::activeWindow();
    auto* le = v ? v->findChild<QLineEdit*>(nombre) : nullptr;
    return le ? le->displayText() : QStringLiteral("<sin %1>").arg(nombre);
}

inline QString enfocado()
{
    QWidget* w = QApplication::focusWidget();
    return w ? w->objectName() : QString();
}

// Runs a script and gives its faults and those of its check points in one text ("" when none).
inline QString correr(const QString& guion, const QMap<QString, std::function<void()>>& revisiones = {})
{
    fallos().clear();
    const QStringList f = ejecutar(guion, revisiones) + fallos();
    return f.join(QLatin1Char('\n'));
}
#define ESCENARIO(...)                                          \
    do {                                                        \
        const QString fallos_ = escenario::correr(__VA_ARGS__); \
        QVERIFY2(fallos_.isEmpty(), qPrintable(fallos_));       \
    } while (0)

// A declaration window opened as "&Nueva" opens it, shown and active, for a test that works on
// one part of it.
struct VentanaNueva {
    EntornoQt entorno;
    Frm931 modelo{&entorno};
    std::unique_ptr<Frm931Vista> vista;

    VentanaNueva()
    {
        G().gsPeriodo = QString::number(Hoy().year());
        G().gsPeriodoSel.clear();
        modelo.Form_Load();
        vista = std::make_unique<Frm931Vista>(modelo);
        entorno.vista = vista.get();
        vista->show();
        if (!QTest::qWaitForWindowActive(vista.get()))
            fallos() << QStringLiteral("la ventana no se activó");
    }
    ~VentanaNueva() { entorno.vista = nullptr; }
    // A General declaration for a July balance: the taxpayer and telephone by keyboard, the
    // answers by mouse.
    void identificar()
    {
        if (!correr(QStringLiteral("{Down}4445555{Enter}{Space}")).isEmpty())
            return;
        for (const char* c : {"OptPersona(0)", "OptInicio(0)", "OptPrecedente(0)", "OptAnterior(0)"})
            usuario::clic(vista.get(), QString::fromLatin1(c));
        usuario::elegirLinea(vista.get(), QStringLiteral("CboBalance"), 1);
    }
    template <class W = QWidget>
    W* control(const QString& nombre) const { return qobject_cast<W*>(vista->control(nombre)); }
};

}  // namespace escenario
