#include "family/cwindows.h"

#include <QByteArray>

#ifdef F931_CON_X11
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#endif

cWindows::cWindows() : enumerador_(enumeradorDelSistema()) {}

cWindows::cWindows(std::shared_ptr<EnumeradorVentanas> enumerador) : enumerador_(std::move(enumerador)) {}

QString cWindows::LeeTitulo(const VentanaSistema& ventana) { return ventana.titulo; }

bool cWindows::CorreApp(const QString& titulo)
{
    vistas_.clear();
    if (!enumerador_)
        return false;
    for (const VentanaSistema& v : enumerador_->ventanas()) {
        const QString leido = LeeTitulo(v);
        if (!v.visible || leido.isEmpty())
            continue;
        vistas_ << leido;
        if (leido == titulo)
            return true;
    }
    return false;
}

void cWindows::CloseApp(const QString& titulo, const QString& clase)
{
    if (titulo == QLatin1String("Progman") || !enumerador_)
        return;
    for (const VentanaSistema& v : enumerador_->ventanas())
        if (LeeTitulo(v) == titulo && (clase.isEmpty() || v.clase == clase)) {
            enumerador_->cerrar(v);
            return;
        }
}

QString cWindows::ClassName(const QString& titulo)
{
    if (!enumerador_)
        return QString();
    for (const VentanaSistema& v : enumerador_->ventanas())
        if (LeeTitulo(v) == titulo)
            return v.clase.left(256);
    return QString();
}

namespace {

#ifdef F931_CON_X11

// Windows may vanish while they are being read; such errors are ignored, not fatal.
int ignorarError(Display*, XErrorEvent*) { return 0; }

class ConManejadorMudo {
public:
    ConManejadorMudo() : anterior_(XSetErrorHandler(ignorarError)) {}
    ~ConManejadorMudo() { XSetErrorHandler(anterior_); }
private:
    int (*anterior_)(Display*, XErrorEvent*);
};

class EnumeradorX11 : public EnumeradorVentanas {
public:
    QList<VentanaSistema> ventanas() override
    {
        QList<VentanaSistema> lista;
        Display* d = XOpenDisplay(nullptr);
        if (!d)
            return lista;
        {
            ConManejadorMudo mudo;
            for (Window w : candidatas(d))
                lista.append(leer(d, w));
            XSync(d, False);
        }
        XCloseDisplay(d);
        return lista;
    }

    bool cerrar(const VentanaSistema& ventana) override
    {
        Display* d = XOpenDisplay(nullptr);
        if (!d)
            return false;
        bool enviado = false;
        {
            ConManejadorMudo mudo;
            XEvent e{};
            e.xclient.type = ClientMessage;
            e.xclient.window = Window(ventana.id);
            e.xclient.message_type = XInternAtom(d, "WM_PROTOCOLS", False);
            e.xclient.format = 32;
            e.xclient.data.l[0] = long(XInternAtom(d, "WM_DELETE_WINDOW", False));
            e.xclient.data.l[1] = CurrentTime;
            enviado = XSendEvent(d, Window(ventana.id), False, NoEventMask, &e) != 0;
            XSync(d, False);
        }
        XCloseDisplay(d);
        return enviado;
    }

private:
    // The window manager's list of clients when there is one; else the root's children and,
    // since a reparenting manager wraps each client in a frame, their children too.
    static QList<Window> candidatas(Display* d)
    {
        const Window raiz = DefaultRootWindow(d);
        QList<Window> lista;
        Atom tipo = None;
        int formato = 0;
        unsigned long n = 0, resto = 0;
        unsigned char* datos = nullptr;
        if (XGetWindowProperty(d, raiz, XInternAtom(d, "_NET_CLIENT_LIST", False), 0, 65536, False, XA_WINDOW,
                               &tipo, &formato, &n, &resto, &datos) == Success
            && datos && tipo == XA_WINDOW && formato == 32) {
            const auto* ventanas = reinterpret_cast<const unsigned long*>(datos);
            for (unsigned long i = 0; i < n; ++i)
                lista.append(Window(ventanas[i]));
        }
        if (datos)
            XFree(datos);
        if (!lista.isEmpty())
            return lista;

        const QList<Window> nivel1 = hijas(d, raiz);
        for (Window w : nivel1) {
            lista.append(w);
            lista.append(hijas(d, w));
        }
        return lista;
    }

    static QList<Window> hijas(Display* d, Window w)
    {
        QList<Window> lista;
        Window raiz = 0, padre = 0;
        Window* hijos = nullptr;
        unsigned int n = 0;
        if (XQueryTree(d, w, &raiz, &padre, &hijos, &n) && hijos) {
            for (unsigned int i = 0; i < n; ++i)
                lista.append(hijos[i]);
        }
        if (hijos)
            XFree(hijos);
        return lista;
    }

    static VentanaSistema leer(Display* d, Window w)
    {
        VentanaSistema v;
        v.id = quintptr(w);
        XWindowAttributes atributos{};
        if (!XGetWindowAttributes(d, w, &atributos))
            return v;
        v.visible = atributos.map_state == IsViewable || esIconica(d, w);
        v.titulo = titulo(d, w);
        XClassHint clase{};
        if (XGetClassHint(d, w, &clase)) {
            v.clase = QString::fromLocal8Bit(clase.res_class ? clase.res_class : "");
            if (clase.res_name)
                XFree(clase.res_name);
            if (clase.res_class)
                XFree(clase.res_class);
        }
        return v;
    }

    // Minimised: the manager has set WM_STATE to Iconic.
    static bool esIconica(Display* d, Window w)
    {
        const Atom wmState = XInternAtom(d, "WM_STATE", False);
        Atom tipo = None;
        int formato = 0;
        unsigned long n = 0, resto = 0;
        unsigned char* datos = nullptr;
        bool iconica = false;
        if (XGetWindowProperty(d, w, wmState, 0, 2, False, AnyPropertyType, &tipo, &formato, &n, &resto, &datos) == Success
            && datos && formato == 32 && n >= 1)
            iconica = reinterpret_cast<const long*>(datos)[0] == IconicState;
        if (datos)
            XFree(datos);
        return iconica;
    }

    // _NET_WM_NAME in UTF-8, else WM_NAME in whatever encoding it was set.
    static QString titulo(Display* d, Window w)
    {
        const Atom utf8 = XInternAtom(d, "UTF8_STRING", False);
        Atom tipo = None;
        int formato = 0;
        unsigned long n = 0, resto = 0;
        unsigned char* datos = nullptr;
        QString texto;
        if (XGetWindowProperty(d, w, XInternAtom(d, "_NET_WM_NAME", False), 0, 4096, False, utf8, &tipo, &formato,
                               &n, &resto, &datos) == Success
            && datos && tipo == utf8 && formato == 8)
            texto = QString::fromUtf8(reinterpret_cast<const char*>(datos), int(n));
        if (datos)
            XFree(datos);
        if (!texto.isEmpty())
            return texto;

        XTextProperty propiedad{};
        if (!XGetWMName(d, w, &propiedad) || !propiedad.value)
            return texto;
        const QByteArray bytes(reinterpret_cast<const char*>(propiedad.value), int(propiedad.nitems));
        if (propiedad.encoding == XA_STRING) {
            texto = QString::fromLatin1(bytes);
        } else if (propiedad.encoding == utf8) {
            texto = QString::fromUtf8(bytes);
        } else {
            char** lista = nullptr;
            int cuantos = 0;
            if (Xutf8TextPropertyToTextList(d, &propiedad, &lista, &cuantos) >= Success && lista && cuantos > 0)
                texto = QString::fromUtf8(lista[0]);
            if (lista)
                XFreeStringList(lista);
        }
        XFree(propiedad.value);
        return texto;
    }
};

#else

class EnumeradorVacio : public EnumeradorVentanas {
public:
    QList<VentanaSistema> ventanas() override { return {}; }
    bool cerrar(const VentanaSistema&) override { return false; }
};

#endif

}

std::unique_ptr<EnumeradorVentanas> enumeradorDelSistema()
{
#ifdef F931_CON_X11
    return std::make_unique<EnumeradorX11>();
#else
    return std::make_unique<EnumeradorVacio>();
#endif
}
