#include "family/vista/accesibles.h"

#include <QAbstractButton>
#include <QAction>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QToolButton>

namespace {

// The name this helper gave, so that a later show can tell it from a name set by code.
constexpr const char* kNombreAuto = "nombreAccesibleAuto";

// What a user reads: plain text, without the '&' of the access key, blanks folded, and
// without the colon that ends a label.
QString legible(const QString& texto)
{
    QString t = Qt::mightBeRichText(texto) ? QTextDocumentFragment::fromHtml(texto).toPlainText() : texto;
    QString r;
    r.reserve(t.size());
    for (qsizetype i = 0; i < t.size(); ++i) {
        if (t.at(i) == QLatin1Char('&')) {
            if (i + 1 < t.size() && t.at(i + 1) == QLatin1Char('&')) {
                r += QLatin1Char('&');
                ++i;
            }
            continue;
        }
        r += t.at(i);
    }
    r = r.simplified();
    while (r.endsWith(QLatin1Char(':')))
        r = r.chopped(1).trimmed();
    return r;
}

bool esControl(const QWidget* w)
{
    return qobject_cast<const QAbstractButton*>(w) || qobject_cast<const QLineEdit*>(w) ||
           qobject_cast<const QComboBox*>(w) || qobject_cast<const QAbstractItemView*>(w) ||
           qobject_cast<const QAbstractSpinBox*>(w) || qobject_cast<const QTextEdit*>(w) ||
           qobject_cast<const QPlainTextEdit*>(w) || qobject_cast<const QTabBar*>(w) ||
           (qobject_cast<const QAbstractSlider*>(w) && !w->objectName().isEmpty() &&
            !w->objectName().startsWith(QLatin1String("qt_")));
}

QString textoDeEtiqueta(const QWidget* w)
{
    if (const auto* l = qobject_cast<const QLabel*>(w))
        return legible(l->text());
    return {};
}

// The label whose buddy is `w`, among the children of its parent and grandparent.
QString etiquetaCompanera(const QWidget* w)
{
    const QWidget* contenedor = w->parentWidget();
    for (int nivel = 0; contenedor && nivel < 2; ++nivel, contenedor = contenedor->parentWidget()) {
        for (const QLabel* l : contenedor->findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
            if (l->buddy() == w) {
                const QString t = legible(l->text());
                if (!t.isEmpty())
                    return t;
            }
        }
    }
    return {};
}

// The layout that holds `w` directly, searched from its parent's layout down.
QLayout* layoutDe(const QWidget* w, QLayout* desde, int& indice)
{
    if (!desde)
        return nullptr;
    for (int i = 0; i < desde->count(); ++i) {
        QLayoutItem* item = desde->itemAt(i);
        if (item->widget() == w) {
            indice = i;
            return desde;
        }
        if (QLayout* dentro = layoutDe(w, item->layout(), indice))
            return dentro;
    }
    return nullptr;
}

// The label that stands before `w` in its layout: the form label of its row, the nearest label
// to its left in a grid row (else just above it), or the item before it in a row or column.
QString etiquetaVecina(const QWidget* w)
{
    if (!w->parentWidget())
        return {};
    int indice = -1;
    QLayout* capa = layoutDe(w, w->parentWidget()->layout(), indice);
    if (!capa)
        return {};
    if (auto* forma = qobject_cast<QFormLayout*>(capa)) {
        const QString t = textoDeEtiqueta(forma->labelForField(const_cast<QWidget*>(w)));
        if (!t.isEmpty())
            return t;
    }
    if (auto* rejilla = qobject_cast<QGridLayout*>(capa)) {
        int fila, columna, filas, columnas;
        rejilla->getItemPosition(indice, &fila, &columna, &filas, &columnas);
        for (int c = columna - 1; c >= 0; --c) {
            QLayoutItem* item = rejilla->itemAtPosition(fila, c);
            if (!item || !item->widget())
                continue;
            const QString t = textoDeEtiqueta(item->widget());
            if (!t.isEmpty())
                return t;
            if (esControl(item->widget()))
                break;   // another control stands between: the label belongs to it
        }
        if (fila > 0) {
            if (QLayoutItem* arriba = rejilla->itemAtPosition(fila - 1, columna))
                return textoDeEtiqueta(arriba->widget());
        }
        return {};
    }
    for (int i = indice - 1; i >= 0; --i) {
        QWidget* antes = capa->itemAt(i)->widget();
        if (!antes)
            continue;   // a stretch or a spacing
        return textoDeEtiqueta(antes);
    }
    return {};
}

// The label that stands just left of `w` on the screen, with no other control between them.
QString etiquetaALaIzquierda(const QWidget* w)
{
    const QWidget* ventana = w->window();
    if (w == ventana || !w->isVisibleTo(ventana))
        return {};
    const QRect r(w->mapTo(ventana, QPoint(0, 0)), w->size());
    const QWidget* cercano = nullptr;
    int distancia = 300;   // pixels: farther than this, a label names something else
    for (const QWidget* o : ventana->findChildren<QWidget*>()) {
        if (o == w || o->window() != ventana || !(qobject_cast<const QLabel*>(o) || esControl(o)) ||
            o->isAncestorOf(w) || w->isAncestorOf(o) || !o->isVisibleTo(ventana))
            continue;
        const QRect q(o->mapTo(ventana, QPoint(0, 0)), o->size());
        if (r.center().y() < q.top() || r.center().y() > q.bottom() || q.right() > r.left() + 2)
            continue;
        if (r.left() - q.right() < distancia) {
            distancia = r.left() - q.right();
            cercano = o;
        }
    }
    return cercano ? textoDeEtiqueta(cercano) : QString();
}

QString etiquetaDe(const QWidget* w)
{
    QString t = etiquetaCompanera(w);
    if (t.isEmpty())
        t = etiquetaVecina(w);
    if (t.isEmpty())
        t = etiquetaALaIzquierda(w);
    return t;
}

QString nombreActual(const QWidget* w)
{
    const QString propio = w->accessibleName();
    return propio.isEmpty() ? nombreAccesibleSugerido(w) : propio;
}

// Parts that Qt builds inside a compound control take the name of the control.
QString nombreDeParte(const QWidget* w)
{
    if (const auto* cabecera = qobject_cast<const QHeaderView*>(w)) {
        const QWidget* vista = cabecera->parentWidget();
        const QString de = vista ? nombreActual(vista) : QString();
        const QString parte = cabecera->orientation() == Qt::Horizontal ? QStringLiteral("encabezado de columnas")
                                                                        : QStringLiteral("encabezado de filas");
        return de.isEmpty() ? parte : de + QStringLiteral(", ") + parte;
    }
    if (qobject_cast<const QAbstractButton*>(w) && qobject_cast<const QAbstractItemView*>(w->parentWidget()))
        return QStringLiteral("Seleccionar todo");
    if (w->objectName() == QLatin1String("qt_toolbar_ext_button"))
        return QStringLiteral("Más botones");
    if (w->objectName() == QLatin1String("qt_menubar_ext_button"))
        return QStringLiteral("Más menús");
    if (qobject_cast<const QTabBar*>(w))
        return QStringLiteral("Pestañas");
    if (const auto* barra = qobject_cast<const QAbstractSlider*>(w))
        return barra->orientation() == Qt::Vertical ? QStringLiteral("Desplazamiento vertical")
                                                    : QStringLiteral("Desplazamiento horizontal");
    // Up to the window that holds `w`; a combo's list pops up in a window of its own.
    for (const QWidget* p = w->parentWidget(); p; p = p->parentWidget()) {
        if (qobject_cast<const QComboBox*>(p) || qobject_cast<const QAbstractSpinBox*>(p))
            return nombreActual(p);
        if (p->isWindow() && p->windowType() != Qt::Popup)
            break;
    }
    return {};
}

QString tituloDelMarco(const QWidget* w)
{
    for (const QWidget* p = w->parentWidget(); p && !p->isWindow(); p = p->parentWidget())
        if (const auto* marco = qobject_cast<const QGroupBox*>(p))
            return legible(marco->title());
    return {};
}

// The caption of the tab whose page holds `w`, else the window's title.
QString tituloDeLaPagina(const QWidget* w)
{
    for (const QWidget* p = w->parentWidget(); p && !p->isWindow(); p = p->parentWidget()) {
        const QWidget* pila = p->parentWidget();
        const auto* pestanas = pila ? qobject_cast<const QTabWidget*>(pila->parentWidget()) : nullptr;
        if (pestanas && pestanas->indexOf(const_cast<QWidget*>(p)) >= 0)
            return legible(pestanas->tabText(pestanas->indexOf(const_cast<QWidget*>(p))));
    }
    return legible(w->window()->windowTitle());
}

QString nombrePorObjeto(const QWidget* w)
{
    const QString nombre = w->objectName();
    if (!nombre.isEmpty() && !nombre.startsWith(QLatin1String("qt_")))
        return nombre;
    return QString::fromLatin1(w->metaObject()->className());
}

class FiltroNombres : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* objeto, QEvent* e) override
    {
        if (e->type() == QEvent::Show && objeto->isWidgetType()) {
            auto* w = static_cast<QWidget*>(objeto);
            if (w->isWindow())
                nombrarAccesibles(w);
            else
                nombrarUno(w);
        }
        return false;
    }

public:
    static void nombrarUno(QWidget* w)
    {
        if (!esControl(w))
            return;
        const QString actual = w->accessibleName();
        const QVariant auto_ = w->property(kNombreAuto);
        if (!actual.isEmpty() && (!auto_.isValid() || auto_.toString() != actual))
            return;   // named by the window's own code
        const QString nombre = nombreAccesibleSugerido(w);
        if (nombre.isEmpty())
            return;
        w->setProperty(kNombreAuto, nombre);
        if (nombre != actual)
            w->setAccessibleName(nombre);
    }
};

}  // namespace

QString nombreAccesibleSugerido(const QWidget* w)
{
    if (!w || !esControl(w))
        return {};
    QString nombre = nombreDeParte(w);
    if (!nombre.isEmpty())
        return nombre;

    if (const auto* b = qobject_cast<const QAbstractButton*>(w)) {
        nombre = legible(b->text());
        if (nombre.isEmpty())
            if (const auto* t = qobject_cast<const QToolButton*>(w); t && t->defaultAction())
                nombre = legible(t->defaultAction()->text());
        if (nombre.isEmpty())
            nombre = legible(w->toolTip());
        if (nombre.isEmpty())
            nombre = etiquetaDe(w);
        return nombre.isEmpty() ? nombrePorObjeto(w) : nombre;
    }

    static const QRegularExpression casilla(QStringLiteral("^TxtValor\\((\\d+)\\)$"));
    const QRegularExpressionMatch m = casilla.match(w->objectName());
    const QString etiqueta = etiquetaDe(w);
    if (m.hasMatch()) {
        nombre = QStringLiteral("Casilla ") + m.captured(1);
        // The number printed beside the box is not part of its description.
        if (!etiqueta.isEmpty() && etiqueta != m.captured(1))
            nombre += QLatin1Char(' ') + etiqueta;
        return nombre;
    }
    if (!etiqueta.isEmpty())
        return etiqueta;
    nombre = tituloDelMarco(w);
    if (!nombre.isEmpty())
        return nombre;
    // A grid or a text is the content of its page or window.
    if (qobject_cast<const QAbstractItemView*>(w) || qobject_cast<const QTextEdit*>(w) ||
        qobject_cast<const QPlainTextEdit*>(w)) {
        nombre = tituloDeLaPagina(w);
        if (!nombre.isEmpty())
            return nombre;
    }
    nombre = legible(w->toolTip());
    if (nombre.isEmpty())
        if (const auto* le = qobject_cast<const QLineEdit*>(w))
            nombre = legible(le->placeholderText());
    return nombre.isEmpty() ? nombrePorObjeto(w) : nombre;
}

void nombrarAccesibles(QWidget* w)
{
    if (!w)
        return;
    FiltroNombres::nombrarUno(w);
    for (QWidget* hijo : w->findChildren<QWidget*>())
        FiltroNombres::nombrarUno(hijo);
}

void instalarNombresAccesibles()
{
    static QPointer<FiltroNombres> filtro;
    if (filtro || !qApp)
        return;
    filtro = new FiltroNombres(qApp);
    qApp->installEventFilter(filtro);
}
