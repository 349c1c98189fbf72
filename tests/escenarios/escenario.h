#pragma once
// A user in front of the real windows: keys go where the focus is (the open menu, the modal
// window in front, the focused control), as the keyboard sends them. A script is text to type
// and keys in braces, "4445555{Enter}{A-g}{Tab*3}{S-Tab}{Space}{?antes}": {Tab}, {Enter},
// {Space}, {Esc}, {Del}, {BS}, arrows, {Home}, {End}, letters, with A- (Alt), C- (Ctrl) and S-
// (Shift), *n to repeat. A check point {?name} runs its function at that moment, inside
// whatever modal window is open then.
#include "basic/respondedor_guion.h"
#include "comun/base_prueba.h"
#include "comun/usuario_vista.h"
#include "store/base.h"

#include "basic/reloj.h"
#include "form931/frm931.h"
#include "form931/vista/frm931vista.h"
#include "shell/globales.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMap>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

namespace escenario {

// Where a key goes now.
inline QWidget* destino()
{
    if (QWidget* p = QApplication::activePopupWidget())
        return p;
    QWidget* foco = QApplication::focusWidget();
    if (QWidget* modal = QApplication::activeModalWidget(); modal && (!foco || foco->window() != modal))
        foco = modal->focusWidget() ? modal->focusWidget() : modal;
    return foco ? foco : QApplication::activeWindow();
}

// One key by its name in a script ("Tab", "A-g", "C-a", "S-Tab"...), pressed and released
// through the window system's path, so that shortcuts and mnemonics work. False: no such key.
inline bool pulsar(QString nombre)
{
    static const QMap<QString, QPair<Qt::Key, const char*>> teclas{
        {"Tab", {Qt::Key_Tab, "\t"}},     {"Enter", {Qt::Key_Return, "\r"}}, {"Space", {Qt::Key_Space, " "}},
        {"Esc", {Qt::Key_Escape, ""}},    {"Del", {Qt::Key_Delete, "\x7f"}}, {"BS", {Qt::Key_Backspace, "\b"}},
        {"Up", {Qt::Key_Up, ""}},         {"Down", {Qt::Key_Down, ""}},      {"Left", {Qt::Key_Left, ""}},
        {"Right", {Qt::Key_Right, ""}},   {"Home", {Qt::Key_Home, ""}},      {"End", {Qt::Key_End, ""}}};
    Qt::KeyboardModifiers mod;
    for (; nombre.size() > 2 && nombre.at(1) == QLatin1Char('-'); nombre = nombre.mid(2))
        mod |= nombre.at(0) == QLatin1Char('A') ? Qt::AltModifier
               : nombre.at(0) == QLatin1Char('C') ? Qt::ControlModifier : Qt::ShiftModifier;
    Qt::Key key;
    QString texto;
    if (teclas.contains(nombre)) {
        key = teclas.value(nombre).first;
        texto = QString::fromLatin1(teclas.value(nombre).second);
        if (key == Qt::Key_Tab && (mod & Qt::ShiftModifier))
            key = Qt::Key_Backtab;
    } else if (nombre.size() == 1 && nombre.at(0).isLetterOrNumber()) {
        key = static_cast<Qt::Key>(nombre.at(0).toUpper().unicode());
        if (mod & Qt::ControlModifier)
            texto = QString(QChar(key - Qt::Key_A + 1));
        else if (!(mod & Qt::AltModifier))
            texto = nombre.toLower();
    } else {
        return false;
    }
    if (QWidget* w = destino())
        QTest::sendKeyEvent(QTest::Press, w, key, texto, mod);
    if (QWidget* w = destino())
        QTest::sendKeyEvent(QTest::Release, w, key, texto, mod);
    return true;
}

// A script on its way, one step at a time from the event loop: the next step is on its way
// before this one runs, so it runs inside any modal window this one opens.
struct Guion : QObject {
    QVector<QPair<QString, int>> pasos;   // key name (0), text to type (1), check point (2)
    QMap<QString, std::function<void()>> revisiones;
    QStringList fallos;
    int siguiente = 0;
    bool terminado = false;

    void leer(const QString& guion)
    {
        static const QRegularExpression partes(QStringLiteral("\\{([^}*]+)(?:\\*(\\d+))?\\}|[^{]+"));
        for (auto it = partes.globalMatch(guion); it.hasNext();) {
            const auto m = it.next();
            if (m.captured(1).isEmpty())
                pasos.append({m.captured(0), 1});
            else if (m.captured(1).startsWith(QLatin1Char('?')))
                pasos.append({m.captured(1).mid(1), 2});
            else
                for (int k = 0; k < (m.captured(2).isEmpty() ? 1 : m.captured(2).toInt()); ++k)
                    pasos.append({m.captured(1), 0});
        }
    }

    void paso()
    {
        if (siguiente >= pasos.size()) {
            terminado = true;
            return;
        }
        // A window is active before it takes keys: one just shown, or the one a closed modal
        // window hands back (not every platform gives the activation back by itself).
        QWidget* activar = QApplication::activeModalWidget();
        if (!activar && !QApplication::activeWindow())
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->isVisible() && w->windowType() != Qt::Popup && w->windowType() != Qt::ToolTip)
                    activar = w;
        if (activar && !activar->isActiveWindow() && !QApplication::activePopupWidget()) {
            activar->activateWindow();
            QTimer::singleShot(5, this, [this] { paso(); });
            return;
        }
        const auto [que, tipo] = pasos.at(siguiente++);
        // Alt+letter on a button clicks it a moment later (its animated click): wait for it.
        QTimer::singleShot(tipo == 0 && que.startsWith(QLatin1String("A-")) ? 250 : 0, this, [this] { paso(); });
        if (tipo == 2 && revisiones.contains(que))
            revisiones.value(que)();
        else if (tipo == 1)
            for (QChar c : que)
                QTest::keyClick(destino(), c.toLatin1());
        else if (tipo == 2 || !pulsar(que))
            fallos << QStringLiteral("paso desconocido: %1").arg(que);
    }
};

// Runs a script; returns the faults found (none: every step ran and every window it opened is
// closed again). A window left open past the time allowed is hidden, which ends its loop.
inline QStringList ejecutar(const QString& guion, const QMap<QString, std::function<void()>>& revisiones = {},
                            int msMax = 60000)
{
    Guion g;
    g.revisiones = revisiones;
    g.leer(guion);
    QTimer::singleShot(msMax, &g, [&g] {
        g.fallos << QStringLiteral("tiempo agotado en el paso %1").arg(g.siguiente);
        g.siguiente = g.pasos.size();
        while (QWidget* m = QApplication::activeModalWidget())
            m->hide();
    });
    QTimer::singleShot(0, &g, [&g] { g.paso(); });
    QElapsedTimer t;
    t.start();
    while (!g.terminado && t.elapsed() < msMax + 5000)
        QTest::qWait(10);
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
    if (!(obtenido == esperado))
        QDebug(&fallos().emplace_back()) << que << ": obtenido" << obtenido << "esperado" << esperado;
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
