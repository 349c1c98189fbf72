#pragma once
// A user at the module's modal windows. Steps are queued by the name of the window they are
// for; each runs as soon as that window is the modal one on top, also inside the loop of a
// window that an earlier step opened. A window that never comes leaves the script stuck: after
// a while every modal window is closed, so the test fails on its checks instead of hanging.
#include <QApplication>
#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>

class Conductor : public QObject {
public:
    using Accion = std::function<void(QWidget*)>;

    explicit Conductor(int esperaMaxima = 20000) : espera_(esperaMaxima)
    {
        reloj_.setInterval(5);
        QObject::connect(&reloj_, &QTimer::timeout, this, [this] { mirar(); });
        reloj_.start();
        desde_.start();
    }

    // The next step, for the window whose object name is `ventana`.
    void luego(const QString& ventana, Accion accion) { pasos_.append({ventana, std::move(accion)}); }
    bool terminado() const { return pasos_.isEmpty(); }
    // What is left, for the failure message.
    QString pendientes() const
    {
        QStringList l;
        for (const Paso& p : pasos_)
            l << p.ventana;
        return l.join(QLatin1Char(','));
    }
    QStringList visitadas;   // the windows met, in order

private:
    struct Paso {
        QString ventana;
        Accion accion;
    };

    void mirar()
    {
        QWidget* w = QApplication::activeModalWidget();
        if (pasos_.isEmpty())
            return;
        if (desde_.elapsed() > espera_) {
            // Stuck: let every modal loop end.
            if (w)
                w->close();
            return;
        }
        if (!w || !w->isVisible() || w->objectName() != pasos_.first().ventana)
            return;
        const Paso p = pasos_.takeFirst();
        visitadas << p.ventana;
        desde_.restart();
        // Run from a timer of its own: a step that opens a window waits in that window's loop,
        // and a timer doesn't fire again while its own handler runs.
        QPointer<QWidget> ventana(w);
        QTimer::singleShot(0, this, [p, ventana] {
            if (ventana)
                p.accion(ventana);
        });
    }

    QList<Paso> pasos_;
    QTimer reloj_;
    QElapsedTimer desde_;
    int espera_;
};
