// The declaration window mirrors its model: texts, states, colours, options, lists,
// captions, pages and focus.
#include "form931/vista/frm931vista.h"

#include "form931/casillas.h"
#include "form931/vista/frm931vista_comun.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>

using namespace vista931;

namespace {

// The lists carry payloads after long runs of blanks (codes, lengths of document types) that
// are read back from the item's text; only the part before them is shown.
QString textoVisible(const QString& item)
{
    static const QRegularExpression relleno(QStringLiteral(" {20,}"));
    const int corte = item.indexOf(relleno);
    return (corte < 0 ? item : item.left(corte)).trimmed();
}

// The headings of the statement pages align their words with runs of blanks: they are shown
// split into the title and the column heading ("Valor" and the date).
QStringList partesEncabezado(const QString& texto)
{
    static const QRegularExpression blancos(QStringLiteral(" {2,}"));
    return texto.trimmed().split(blancos, Qt::SkipEmptyParts);
}

void textoLegibleSiCerrado(QPalette& p, QPalette::ColorRole fondo, QPalette::ColorRole texto)
{
    p.setColor(QPalette::Disabled, fondo, p.color(QPalette::Active, QPalette::Window));
    p.setColor(QPalette::Disabled, texto, p.color(QPalette::Active, QPalette::WindowText));
}

}  // namespace

// ---------------------------------------------------------------------------- mirroring

void Frm931Vista::refrescarCaja(VCaja& v)
{
    const Caja& c = cajaModelo(v);
    QLineEdit* w = v.w;
    if (v.inicial || c.Enabled != v.enabled) {
        w->setEnabled(c.Enabled);
        v.enabled = c.Enabled;
    }
    if (v.casilla && qstrcmp(defCasilla(v.casilla)->marco, "portadores") == 0) {
        // carriers stay inside their hidden holder
    } else if (v.inicial || c.Visible != v.visible) {
        w->setVisible(c.Visible);
        v.visible = c.Visible;
    }
    if (v.inicial || c.Locked != v.readOnly) {
        w->setReadOnly(c.Locked);
        v.readOnly = c.Locked;
    }
    if (v.inicial || c.BackColor != v.color) {
        QPalette p = w->palette();
        p.setColor(QPalette::Active, QPalette::Base, colorDe(c.BackColor));
        p.setColor(QPalette::Inactive, QPalette::Base, colorDe(c.BackColor));
        textoLegibleSiCerrado(p, QPalette::Base, QPalette::Text);
        w->setPalette(p);
        v.color = c.BackColor;
    }
    if (v.mascara) {
        // Qt's masked box reads "//" when empty; the model keeps the blanks as "_".
        if (v.inicial || w->displayText() != c.Text)
            w->setText(c.Text);
    } else {
        // A maximum length never cuts a text that the rules wrote.
        const int maximo = c.MaxLength <= 0 ? 32767 : qMax<int>(c.MaxLength, c.Text.size());
        if (maximo != v.maximo) {
            w->setMaxLength(maximo);
            v.maximo = maximo;
        }
        if (v.inicial || w->text() != c.Text) {
            const bool conFoco = w->hasFocus();
            w->setText(c.Text);
            if (conFoco)
                w->end(false);
        }
    }
    v.texto = c.Text;
    v.inicial = false;
}

void Frm931Vista::refrescarAyuda()
{
    for (QLabel* w : {ayuda_, ayuda1_}) {
        const Etiqueta& e = w == ayuda_ ? m_.TxtAyuda : m_.TxtAyuda1;
        if (w->text() != e.Caption)
            w->setText(e.Caption);
        QPalette p = w->palette();
        const QColor c = colorDe(e.ForeColor);
        if (p.color(QPalette::WindowText) != c) {
            p.setColor(QPalette::WindowText, c);
            w->setPalette(p);
        }
    }
}

void Frm931Vista::refrescar()
{
    ++refrescando_;
    if (windowTitle() != m_.Caption)
        setWindowTitle(m_.Caption);

    for (VCaja& v : vcajas_)
        refrescarCaja(v);

    for (VGrupo& vg : grupos_) {
        for (int i = 0; i < vg.b.size(); ++i) {
            QRadioButton* r = vg.b[i];
            if (!r)
                continue;
            if (i >= vg.g->b.size()) {
                r->setVisible(false);
                continue;
            }
            const BotonOpcion& o = vg.g->b[i];
            const QString caption = o.Caption.isEmpty() ? vg.porDefecto.value(i) : o.Caption;
            if (r->text() != caption)
                r->setText(caption);
            if (r->isChecked() != o.Value)
                r->setChecked(o.Value);
            if (r->isEnabled() != o.Enabled)
                r->setEnabled(o.Enabled);
            if (r->isVisibleTo(r->parentWidget()) != o.Visible)
                r->setVisible(o.Visible);
        }
    }

    for (VLista& vl : listas_) {
        const Lista& l = *vl.l;
        if (vl.items != l.items) {
            vl.w->clear();
            for (const QString& item : l.items)
                vl.w->addItem(textoVisible(item));
            vl.items = l.items;
        }
        const int indice = l.ListIndex < vl.w->count() ? l.ListIndex : -1;
        if (vl.w->currentIndex() != indice)
            vl.w->setCurrentIndex(indice);
        if (vl.w->isEnabled() != l.Enabled)
            vl.w->setEnabled(l.Enabled);
        if (vl.w->isVisibleTo(vl.w->parentWidget()) != l.Visible)
            vl.w->setVisible(l.Visible);
        QPalette p = vl.w->palette();
        if (p.color(QPalette::Active, QPalette::Base) != colorDe(l.BackColor)) {
            for (auto grupo : {QPalette::Active, QPalette::Inactive}) {
                p.setColor(grupo, QPalette::Base, colorDe(l.BackColor));
                p.setColor(grupo, QPalette::Button, colorDe(l.BackColor));
            }
            textoLegibleSiCerrado(p, QPalette::Base, QPalette::Text);
            textoLegibleSiCerrado(p, QPalette::Button, QPalette::ButtonText);
            vl.w->setPalette(p);
        }
    }

    for (VEtiqueta& ve : etiquetas_) {
        if (ve.w == ayuda_ || ve.w == ayuda1_)
            continue;
        const QString texto = (ve.siempre || !ve.e->Caption.isEmpty()) ? ve.e->Caption : ve.porDefecto;
        if (ve.w->text() != texto)
            ve.w->setText(texto);
        if (ve.w->isEnabled() != ve.e->Enabled)
            ve.w->setEnabled(ve.e->Enabled);
        if (ve.w->isVisibleTo(ve.w->parentWidget()) != ve.e->Visible)
            ve.w->setVisible(ve.e->Visible);
    }
    refrescarAyuda();

    for (VEncabezado& enc : encabezados_) {
        const QStringList partes = partesEncabezado(m_.lblTab2.value(enc.indice).Caption);
        const QString titulo = QStringLiteral("<b>%1</b>").arg((partes.isEmpty() ? enc.porDefecto : partes.first()).toHtmlEscaped());
        if (enc.titulo->text() != titulo)
            enc.titulo->setText(titulo);
        const QString columna = partes.mid(1).join(QLatin1Char(' '));
        if (enc.columna->text() != columna)
            enc.columna->setText(columna);
    }

    for (VBoton& vb : botones_) {
        const Boton& b = *vb.b;
        if (!b.Caption.isEmpty() && vb.w->text() != conAtajo(b.Caption))
            vb.w->setText(conAtajo(b.Caption));
        if (vb.w->isEnabled() != b.Enabled)
            vb.w->setEnabled(b.Enabled);
        if (vb.w->isVisibleTo(vb.w->parentWidget()) != b.Visible)
            vb.w->setVisible(b.Visible);
        if (vb.w->isDefault() != b.Default)
            vb.w->setDefault(b.Default);
        if (b.Width > 0)
            vb.w->setMinimumWidth(b.Width / 15);
    }

    for (auto it = marcos_.begin(); it != marcos_.end(); ++it) {
        if (it.key().startsWith(QLatin1Char('#')))
            continue;
        const auto m = m_.marcos.constFind(it.key());
        if (m == m_.marcos.cend())
            continue;
        QWidget* w = it.value();
        if (w->isEnabled() != m->Enabled)
            w->setEnabled(m->Enabled);
        if (w->isVisibleTo(w->parentWidget()) != m->Visible)
            w->setVisible(m->Visible);
        if (auto* gb = qobject_cast<QGroupBox*>(w)) {
            const QString caption = m->Caption.isEmpty() ? captionMarco_.value(it.key()) : m->Caption;
            if (gb->title() != caption)
                gb->setTitle(caption);
        }
    }
    // The two Amazonía questions share one row: it goes with them.
    if (QWidget* fila = marcos_.value(QStringLiteral("#amazonia"))) {
        const bool ver = m_.marcos.value(QStringLiteral("Frame19")).Visible || m_.marcos.value(QStringLiteral("Frame21")).Visible;
        if (fila->isVisibleTo(fila->parentWidget()) != ver)
            fila->setVisible(ver);
    }

    for (auto& [w, p] : pestanas_) {
        for (int i = 0; i < w->count(); ++i) {
            if (i < p->captions.size() && !p->captions[i].isEmpty() && w->tabText(i) != conAtajo(p->captions[i]))
                w->setTabText(i, conAtajo(p->captions[i]));
            const bool en = i < p->TabEnabled.size() ? p->TabEnabled[i] : true;
            const bool vis = i < p->TabVisible.size() ? p->TabVisible[i] : true;
            if (w->isTabEnabled(i) != en)
                w->setTabEnabled(i, en);
            if (w->isTabVisible(i) != vis)
                w->setTabVisible(i, vis);
        }
        if (p->Tab >= 0 && p->Tab < w->count() && w->currentIndex() != p->Tab)
            w->setCurrentIndex(p->Tab);
        // Header and body always show the same page, also when the page is set back while the
        // tab control is still changing it.
        if (auto* cuerpo = w->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly);
            cuerpo && cuerpo->currentIndex() != w->currentIndex()) {
            cuerpo->setCurrentIndex(w->currentIndex());
        }
        for (int i = 0; i < w->count(); ++i)
            if (QWidget* pg = w->widget(i); pg && pg->isVisibleTo(w) != (i == w->currentIndex()))
                pg->setVisible(i == w->currentIndex());
    }

    const BarraDesplazamiento& vs = m_.VScroll1;
    if (vscroll_->minimum() != vs.Min || vscroll_->maximum() != vs.Max)
        vscroll_->setRange(vs.Min, vs.Max);
    if (vscroll_->singleStep() != vs.SmallChange)
        vscroll_->setSingleStep(vs.SmallChange);
    if (vscroll_->pageStep() != vs.LargeChange)
        vscroll_->setPageStep(vs.LargeChange);
    if (vscroll_->value() != vs.Value)
        vscroll_->setValue(vs.Value);

    if (grillaMostrada_ != m_.grdPerdidaTributaria) {
        grilla_->setRowCount(m_.grdPerdidaTributaria.size());
        for (int i = 0; i < m_.grdPerdidaTributaria.size(); ++i) {
            grilla_->setItem(i, 0, new QTableWidgetItem(m_.grdPerdidaTributaria[i].first));
            auto* importe = new QTableWidgetItem(m_.grdPerdidaTributaria[i].second);
            importe->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            grilla_->setItem(i, 1, importe);
        }
        grillaMostrada_ = m_.grdPerdidaTributaria;
    }

    for (auto& [etiqueta, controles] : acompanadas_) {
        bool abierta = false;
        for (QWidget* c : controles)
            abierta = abierta || (!c->isHidden() && c->isEnabled());
        if (etiqueta->testAttribute(Qt::WA_ForceDisabled) == abierta)
            etiqueta->setEnabled(abierta);
    }

    seguirFoco();
    --refrescando_;
}

// The view follows the model's focus (a rule or Enter moved it).
void Frm931Vista::seguirFoco()
{
    QWidget* w = controles_.value(m_.foco);
    if (!w) {
        // An option group takes the focus on its selected button, or on its first open one.
        for (const VGrupo& vg : grupos_) {
            if (vg.nombre != m_.foco)
                continue;
            for (QRadioButton* r : vg.b)
                if (r && r->isChecked())
                    w = r;
            for (QRadioButton* r : vg.b)
                if (!w && r && r->isVisible() && r->isEnabled())
                    w = r;
        }
    }
    if (!w || w == QApplication::focusWidget() || !w->isVisible() || !w->isEnabled())
        return;
    w->setFocus(Qt::TabFocusReason);
}

