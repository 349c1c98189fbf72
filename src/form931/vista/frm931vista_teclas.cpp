// Keys, mouse, paste and drop in the declaration window, and the moves of the focus between
// pages: each forwarded to the model's event methods.
#include "form931/vista/frm931vista.h"

#include "basic/errores.h"
#include "form931/casillas.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>
#include <QTimer>

namespace {

const QString kTab = QStringLiteral("TAB");

// Character code of a key as the key-press event of a text box receives it; 0 for keys that
// type nothing (arrows, Delete, function keys).
int codigoCaracter(const QKeyEvent* e)
{
    switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Delete:
        return 0;
    default:
        break;
    }
    if (e->matches(QKeySequence::Paste))
        return 22;
    const QString t = e->text();
    if (t.size() != 1)
        return 0;
    return t.at(0).unicode();
}

// Key code of the key-down event.
int codigoTeclaAbajo(const QKeyEvent* e)
{
    const int k = e->key();
    switch (k) {
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    case Qt::Key_Menu: return 93;
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Home: return 36;
    case Qt::Key_End: return 35;
    default: break;
    }
    if ((k >= Qt::Key_0 && k <= Qt::Key_9) || (k >= Qt::Key_A && k <= Qt::Key_Z))
        return k;
    return 0;
}

int mayusculas(const QKeyEvent* e)
{
    int s = 0;
    if (e->modifiers() & Qt::ShiftModifier) s |= 1;
    if (e->modifiers() & Qt::ControlModifier) s |= 2;
    if (e->modifiers() & Qt::AltModifier) s |= 4;
    return s;
}

void vaciarPortapapeles()
{
    if (QClipboard* p = QGuiApplication::clipboard())
        p->clear();
}

}  // namespace

void Frm931Vista::textoEditado(VCaja& v)
{
    if (refrescando_)
        return;
    const QString texto = v.mascara ? v.w->displayText() : v.w->text();
    ejecutar([this, &v, texto] {
        if (v.casilla) {
            m_.setTxt(v.casilla, texto);
            return;
        }
        m_.escribirControl(v.nombre, texto);
    });
}

void Frm931Vista::enterComoTab()
{
    tabular(true);
}

void Frm931Vista::tabular(bool adelante)
{
    const QString desde = m_.foco;
    ejecutar([this, adelante] { m_.pTecla(adelante ? kTab : QStringLiteral("+TAB")); });
    seguirEnPaginas(desde, adelante);
}

bool Frm931Vista::enPaginaMostrada(const QString& control) const
{
    const Frm931::UbicacionControl u = Frm931::ubicacion(control);
    if (u.paginaSSTab1 < 0 || u.paginaSSTab1 != m_.SSTab1.Tab)
        return false;
    if (u.subTab == QLatin1String("SSTab2"))
        return m_.SSTab2.Tab == u.paginaSub;
    if (u.subTab == QLatin1String("SSTab3"))
        return m_.SSTab3.Tab == u.paginaSub;
    if (u.subTab == QLatin1String("SSTab4"))
        return m_.SSTab4.Tab == u.paginaSub;
    return true;
}

QString Frm931Vista::paradaDePagina(bool primera) const
{
    const QStringList& orden = Frm931::ordenTabulacion();
    for (int k = 0; k < orden.size(); ++k) {
        const QString& c = orden.at(primera ? k : orden.size() - 1 - k);
        if (!enPaginaMostrada(c) || !m_.puedeRecibirFoco(c))
            continue;
        if (const int n = Frm931::casillaDeNombre(c); n && m_.caja(n).Locked)
            continue;
        return c;
    }
    return QString();
}

void Frm931Vista::seguirEnPaginas(const QString& desde, bool adelante)
{
    const Frm931::UbicacionControl u = Frm931::ubicacion(desde);
    if (u.subTab.isEmpty() || u.paginaSSTab1 != m_.SSTab1.Tab || Frm931::ubicacion(m_.foco).paginaSSTab1 >= 0)
        return;
    Pestanas& sub = u.subTab == QLatin1String("SSTab2")   ? m_.SSTab2
                    : u.subTab == QLatin1String("SSTab3") ? m_.SSTab3
                                                          : m_.SSTab4;
    if (sub.Tab != u.paginaSub)
        return;
    for (int pagina = sub.Tab + (adelante ? 1 : -1); pagina >= 0 && pagina < sub.captions.size();
         pagina += adelante ? 1 : -1) {
        if (!sub.TabEnabled.value(pagina, true) || !sub.TabVisible.value(pagina, true))
            continue;
        ejecutar([this, &sub, pagina, adelante] {
            m_.elegirPestana(sub, pagina);
            if (sub.Tab != pagina)
                return;   // refused: its message has put the focus where it is due
            const QString destino = paradaDePagina(adelante);
            if (!destino.isEmpty())
                m_.darFoco(destino);
        });
        return;
    }
}

void Frm931Vista::enfocarPagina()
{
    if (enPaginaMostrada(m_.foco) && m_.puedeRecibirFoco(m_.foco))
        return;
    const QString destino = paradaDePagina(true);
    if (!destino.isEmpty())
        ejecutar([this, destino] { m_.darFoco(destino); });
}

void Frm931Vista::pegar(VCaja& v, const QString& texto)
{
    QLineEdit* w = v.w;
    if (w->isReadOnly() || !w->isEnabled() || texto.isEmpty())
        return;
    // The assistant boxes take no key at all: their figure is made in the annex.
    bool cabe = !esAsistida(v.casilla);
    QString tecleado;
    for (int i = 0; cabe && i < texto.size(); ++i) {
        const int tecla = texto.at(i).unicode();
        if (tecla < 32 || tecla > 255) {
            cabe = false;
        } else if (v.mascara) {
            cabe = texto.at(i).isDigit() || texto.at(i) == QLatin1Char('/');
            tecleado += texto.at(i);
        } else {
            int resultado = 0;
            try {
                resultado = v.casilla ? m_.TxtValor_KeyPress(v.casilla, tecla) : m_.teclaControl(v.nombre, tecla);
            } catch (const ErrorVB&) {
                resultado = 0;
            }
            cabe = resultado != 0 && resultado != 13;
            tecleado += QChar(resultado);
        }
    }
    const int maximo = cajaModelo(v).MaxLength;
    const int largo = w->text().size() - w->selectedText().size() + tecleado.size();
    if (cabe && !v.mascara && maximo > 0 && largo > maximo)
        cabe = false;
    if (!cabe) {
        QApplication::beep();
        refrescar();
        return;
    }
    w->insert(tecleado);
    textoEditado(v);
}

// A key in a box: the model's key-press rule first; a refused key is dropped, a converted key
// is typed in its converted form.
bool Frm931Vista::teclaEnCaja(VCaja& v, QKeyEvent* e)
{
    if (saltarFiltro_)
        return false;
    const int abajo = codigoTeclaAbajo(e);
    const int shift = mayusculas(e);
    const bool vaciar = (abajo == 45 && (shift & 1)) || abajo == 93;
    if (v.casilla && abajo) {
        int queda = abajo;
        ejecutar([this, &v, abajo, shift, &queda] { queda = m_.TxtValor_KeyDownTecla(v.casilla, abajo, shift); });
        if (vaciar)
            vaciarPortapapeles();
        if (queda == 0 || vaciar)
            return true;
    } else if (vaciar) {
        vaciarPortapapeles();
        return true;
    }
    if (e->matches(QKeySequence::Paste)) {
        if (const QClipboard* c = QGuiApplication::clipboard())
            pegar(v, c->text());
        return true;
    }
    // Editing keys with Control (select all, copy, cut, undo, word moves) are the box's own;
    // the assistant boxes only let their figure be selected and copied.
    if (e->modifiers() & Qt::ControlModifier) {
        if (esAsistida(v.casilla) && !e->matches(QKeySequence::SelectAll)
            && !e->matches(QKeySequence::Copy))
            return true;
        return false;
    }
    const int tecla = codigoCaracter(e);
    if (tecla == 0)
        return false;
    if (v.w->isReadOnly() && tecla != 13)
        return false;
    const QString focoAntes = m_.foco;
    int resultado = 0;
    ejecutar([this, &v, tecla, &resultado] {
        resultado = v.casilla ? m_.TxtValor_KeyPress(v.casilla, tecla) : m_.teclaControl(v.nombre, tecla);
    });
    if (resultado == 0 || m_.foco != focoAntes || resultado == 13)
        return true;
    if (resultado == tecla)
        return false;
    // Converted key (upper case): type the converted character instead.
    QKeyEvent otra(QEvent::KeyPress, e->key(), e->modifiers() & ~Qt::ShiftModifier, QString(QChar(resultado)));
    saltarFiltro_ = true;
    QCoreApplication::sendEvent(v.w, &otra);
    saltarFiltro_ = false;
    return true;
}

void Frm931Vista::pestanaElegida(QTabWidget* w, Pestanas& p, int pagina)
{
    if (refrescando_ || pagina == p.Tab)
        return;
    ejecutar([this, &p, pagina] { m_.elegirPestana(p, pagina); });
    enfocarPagina();
    Q_UNUSED(w);
}

bool Frm931Vista::eventFilter(QObject* objeto, QEvent* evento)
{
    auto* w = qobject_cast<QWidget*>(objeto);
    switch (evento->type()) {
    case QEvent::FocusIn: {
        if (refrescando_ || !w)
            break;
        const auto* fe = static_cast<QFocusEvent*>(evento);
        if (fe->reason() == Qt::ActiveWindowFocusReason || fe->reason() == Qt::PopupFocusReason)
            break;
        const QString nombre = nombres_.value(w);
        if (nombre.isEmpty() || nombre == m_.foco || nombre.startsWith(m_.foco + QLatin1Char('(')))
            break;
        // A page on its way in hands the focus to one of its controls before the tab control
        // tells the page changed: the form hears of the page first, then of the focus.
        if (Frm931::ubicacion(nombre).paginaSSTab1 >= 0 && !enPaginaMostrada(nombre))
            break;
        ejecutar([this, nombre] { m_.darFoco(nombre); });
        if (auto* le = qobject_cast<QLineEdit*>(w); le && le->hasFocus() && fe->reason() != Qt::MouseFocusReason)
            QTimer::singleShot(0, le, [le] { le->selectAll(); });
        break;
    }
    case QEvent::KeyPress: {
        auto* ke = static_cast<QKeyEvent*>(evento);
        // Tab and Shift+Tab follow the form's own order of stops.
        const bool tab = ke->key() == Qt::Key_Tab || ke->key() == Qt::Key_Backtab;
        if (tab && !(ke->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) && nombres_.contains(w)) {
            tabular(ke->key() == Qt::Key_Tab && !(ke->modifiers() & Qt::ShiftModifier));
            return true;
        }
        const QString desde = m_.foco;
        const bool enter = ke->key() == Qt::Key_Return || ke->key() == Qt::Key_Enter;
        if (indiceCaja_.contains(objeto)) {
            const bool r = teclaEnCaja(vcajas_[indiceCaja_.value(objeto)], ke);
            if (enter)
                seguirEnPaginas(desde, true);
            return r;
        }
        if (enter && w && (qobject_cast<QComboBox*>(w) || qobject_cast<QRadioButton*>(w))) {
            const QString nombre = nombres_.value(w);
            ejecutar([this, nombre] { m_.teclaControl(nombre, 13); });
            // Every question moves on with Enter, so that none is passed over.
            if (m_.foco == desde)
                ejecutar([this] { m_.pTecla(kTab); });
            seguirEnPaginas(desde, true);
            return true;
        }
        break;
    }
    case QEvent::Drop: {
        if (!indiceCaja_.contains(objeto))
            break;
        auto* de = static_cast<QDropEvent*>(evento);
        if (de->mimeData()->hasText()) {
            VCaja& v = vcajas_[indiceCaja_.value(objeto)];
            v.w->setFocus(Qt::MouseFocusReason);
            v.w->setCursorPosition(v.w->cursorPositionAt(de->position().toPoint()));
            pegar(v, de->mimeData()->text());
        }
        de->setDropAction(Qt::IgnoreAction);
        de->accept();
        return true;
    }
    case QEvent::MouseButtonRelease: {
        // The middle button pastes the selection where the desktop has one: the same rule.
        auto* me = static_cast<QMouseEvent*>(evento);
        if (!indiceCaja_.contains(objeto) || me->button() != Qt::MiddleButton)
            break;
        const QClipboard* c = QGuiApplication::clipboard();
        if (c && c->supportsSelection())
            pegar(vcajas_[indiceCaja_.value(objeto)], c->text(QClipboard::Selection));
        return true;
    }
    case QEvent::MouseButtonDblClick: {
        if (!indiceCaja_.contains(objeto))
            break;
        VCaja& v = vcajas_[indiceCaja_.value(objeto)];
        if (v.casilla) {
            ejecutar([this, &v] { m_.TxtValor_DblClick(v.casilla); });
            return true;
        }
        break;
    }
    case QEvent::MouseButtonPress: {
        if (!indiceCaja_.contains(objeto))
            break;
        auto* me = static_cast<QMouseEvent*>(evento);
        if (me->button() != Qt::RightButton)
            break;
        VCaja& v = vcajas_[indiceCaja_.value(objeto)];
        vaciarPortapapeles();
        if (v.casilla)
            ejecutar([this, &v] { m_.TxtValor_MouseDown(v.casilla, 2); });
        return true;
    }
    case QEvent::Enter: {
        if (!indiceCaja_.contains(objeto))
            break;
        const VCaja& v = vcajas_[indiceCaja_.value(objeto)];
        if (!v.casilla || ultimoMovimiento_ == v.nombre)
            break;
        ultimoMovimiento_ = v.nombre;
        try {
            m_.TxtValor_MouseMove(v.casilla);
        } catch (const ErrorVB&) {
        }
        refrescarAyuda();
        break;
    }
    case QEvent::MouseMove: {
        if (!w || w->objectName().isEmpty() || ultimoMovimiento_ == w->objectName())
            break;
        const QString nombre = w->objectName();
        if (nombre.startsWith(QLatin1String("frame1(")) || nombre == QLatin1String("Frame17")) {
            ultimoMovimiento_ = nombre;
            if (nombre == QLatin1String("Frame17"))
                m_.Frame17_MouseMove();
            else
                m_.Frame1_MouseMove();
            refrescarAyuda();
        }
        break;
    }
    default:
        break;
    }
    return QDialog::eventFilter(objeto, evento);
}

