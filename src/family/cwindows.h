#pragma once
// Presence test of the family launcher and the other window operations of the family: top-level
// windows looked up by their exact title. The operating system's list of windows comes through
// EnumeradorVentanas, so the matching rules can be tested with a list made by hand.
#include <QList>
#include <QString>
#include <QtGlobal>

#include <memory>

struct VentanaSistema {
    QString titulo;
    bool visible = false;   // shown on screen, or minimised (a minimised window still counts)
    QString clase;          // class name of the window
    quintptr id = 0;        // the system's handle, for closing it
};

class EnumeradorVentanas {
public:
    virtual ~EnumeradorVentanas() = default;
    // Top-level windows in the system's order.
    virtual QList<VentanaSistema> ventanas() = 0;
    // Asks the window to close, as its close box would. False when it couldn't be asked.
    virtual bool cerrar(const VentanaSistema& ventana) = 0;
};

// The windows of the desktop this process runs on: X11 when built with it and a display is
// reachable; otherwise an empty list (so the launcher is never found).
std::unique_ptr<EnumeradorVentanas> enumeradorDelSistema();

class cWindows {
public:
    cWindows();
    explicit cWindows(std::shared_ptr<EnumeradorVentanas> enumerador);

    // Finds the window by class and title (an empty class matches any) and asks it to close.
    // The title "Progman" is refused: nothing is done.
    void CloseApp(const QString& titulo, const QString& clase);
    // True when a visible (or minimised) window has exactly this title, case included.
    // Hidden windows, windows without a title and titles that only begin with it don't count.
    bool CorreApp(const QString& titulo);
    // Class name of the window with this title, up to 256 characters; "" when there is none.
    QString ClassName(const QString& titulo);

    // Titles of the visible windows seen by the last CorreApp, in order (a trace, never read).
    const QStringList& vistas() const { return vistas_; }

private:
    static QString LeeTitulo(const VentanaSistema& ventana);
    std::shared_ptr<EnumeradorVentanas> enumerador_;
    QStringList vistas_;
};
