// The declaration window: its surroundings, the factories of its controls, the forwarding of
// events and the openers. The pages are built in frm931vista_paginas.cpp, the mirroring of the
// model is in frm931vista_espejo.cpp, keys and mouse in frm931vista_teclas.cpp.
#include "form931/vista/frm931vista.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "dialogs/vista/frmanexo477.h"
#include "dialogs/vista/frmconsist.h"
#include "dialogs/vista/frmperdida.h"
#include "dialogs/vista/frmubigeo.h"
#include "form931/casillas.h"
#include "form931/vista/frm931vista_comun.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "shell/vista/ventanas.h"

#include <QApplication>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <memory>

using namespace vista931;

namespace vista931 {

// Colours of the model are in blue-green-red order.
QColor colorDe(quint32 bgr)
{
    return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

QString nombreIndice(const QString& nombre, int i)
{
    return QStringLiteral("%1(%2)").arg(nombre).arg(i);
}

QFont fuenteImportes()
{
    QFont f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    f.setPointSizeF(QApplication::font().pointSizeF());
    return f;
}

// The keyboard letters of the pages and buttons. Every page has a letter of its own among the
// controls shown with it; the captions read as they are, only the underlined letter differs
// where a page had none or would share its letter with another control in view.
QString conAtajo(const QString& caption)
{
    static const QHash<QString, QString> atajos{
        {QStringLiteral("Determinación del nuevo coeficiente o porcentaje"),
         QStringLiteral("Determinación del nuevo &coeficiente o porcentaje")},
        {QStringLiteral("Datos complementarios del régimen"), QStringLiteral("Datos c&omplementarios del régimen")},
        {QStringLiteral("Sistema de pago"), QStringLiteral("Siste&ma de pago")},
        {QStringLiteral(" Modalidad de pago a cuenta"), QStringLiteral(" &Modalidad de pago a cuenta")},
        {QStringLiteral("Activo"), QStringLiteral("&Activo")},
        {QStringLiteral("&Pasivo y Patrimonio"), QStringLiteral("Pasivo y Pa&trimonio")},
        {QStringLiteral("Estado de ganancias y pérdidas"), QStringLiteral("&Estado de ganancias y pérdidas")},
        {QStringLiteral("I&nformación general"), QStringLiteral("Información genera&l")},
        {QStringLiteral("Pérdida tributaria compensable de ejercicios anteriores"),
         QStringLiteral("Pérdida &tributaria compensable de ejercicios anteriores")},
    };
    return atajos.value(caption, caption);
}

// A shut box or list keeps its text legible: the normal text colour on the window's background,

}  // namespace vista931

namespace {

// A closed modal window gives the activation back to the form, also where no window manager
// does it.
void volverALaVentana(QWidget* w)
{
    if (w && w->isVisible())
        w->activateWindow();
}

}  // namespace

// ---------------------------------------------------------------------------- surroundings

void EntornoQt::abrirAnexo477(Frm931& frm, int nCasilla)
{
    frmAnexo477 dlg(frm, nCasilla, vista);
    const bool aceptado = dlg.exec() == QDialog::Accepted;
    volverALaVentana(vista);
    // The figure is made: the focus leaves the assistant box (for the box after it), so that
    // the next Enter goes on typing instead of opening the annex again.
    if (aceptado && frm.foco == Frm931::nombreCasilla(nCasilla))
        frm.pTecla(QStringLiteral("TAB"));
}

void EntornoQt::abrirUbigeo(const QString& caption)
{
    frmUbigeo dlg(caption, vista);
    dlg.exec();
    volverALaVentana(vista);
}

void EntornoQt::abrirConsist()
{
    abrirFrmConsist(vista);
    volverALaVentana(vista);
}

void EntornoQt::abrirPerdida()
{
    abrirFrmPerdida(vista);
    volverALaVentana(vista);
}

void EntornoQt::pBarraEstado(const QString& ruc, const QString& nombre, const QString& periodo,
                             const QString& formulario)
{
    ::pBarraEstado(ruc, nombre, periodo, formulario);
}

void EntornoQt::cerrarFormulario()
{
    if (vista)
        vista->cerrar();
}

// ---------------------------------------------------------------------------- building

Frm931Vista::Frm931Vista(Frm931& modelo, QWidget* padre)
    : QDialog(padre), m_(modelo)
{
    setObjectName(QStringLiteral("Frm931"));
    setModal(true);
    construir();
    refrescar();
}

Frm931Vista::~Frm931Vista() = default;

void Frm931Vista::registrar(const QString& nombre, QWidget* w)
{
    w->setObjectName(nombre);
    controles_.insert(nombre, w);
    nombres_.insert(w, nombre);
    w->installEventFilter(this);
}

QLineEdit* Frm931Vista::nuevaCasilla(int n)
{
    auto* w = new QLineEdit;
    const DefCasilla* d = defCasilla(n);
    const bool texto = d && d->presentacion == Presentacion::Texto;
    if (!texto) {
        w->setFont(fuenteImportes());
        w->setAlignment(Qt::AlignRight);
    }
    const QFontMetrics fm(fuenteImportes());
    w->setFixedWidth(fm.horizontalAdvance(QLatin1Char('0')) * 19 + 12);
    w->setContextMenuPolicy(Qt::NoContextMenu);
    registrar(Frm931::nombreCasilla(n), w);
    VCaja v;
    v.nombre = Frm931::nombreCasilla(n);
    v.w = w;
    v.casilla = n;
    indiceCaja_.insert(w, vcajas_.size());
    vcajas_.append(v);
    cajas_.insert(n, w);
    connect(w, &QLineEdit::textEdited, this, [this, w] { textoEditado(vcajas_[indiceCaja_.value(w)]); });
    return w;
}

QLineEdit* Frm931Vista::nuevaCaja(const QString& nombre, Caja* caja, bool mascara)
{
    auto* w = new QLineEdit;
    if (mascara) {
        w->setInputMask(QStringLiteral("99/99/9999;_"));
        w->setFont(fuenteImportes());
        w->setFixedWidth(QFontMetrics(fuenteImportes()).horizontalAdvance(QLatin1Char('0')) * 12 + 12);
    }
    w->setContextMenuPolicy(Qt::NoContextMenu);
    registrar(nombre, w);
    VCaja v;
    v.nombre = nombre;
    v.w = w;
    v.caja = caja;
    v.mascara = mascara;
    indiceCaja_.insert(w, vcajas_.size());
    vcajas_.append(v);
    connect(w, &QLineEdit::textEdited, this, [this, w] { textoEditado(vcajas_[indiceCaja_.value(w)]); });
    return w;
}

// One line of the paper form: casilla number, label, box.
void Frm931Vista::filaCasilla(QGridLayout* rejilla, int fila, int n, int columna)
{
    const DefCasilla* d = defCasilla(n);
    auto* numero = new QLabel(QString::number(n));
    numero->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    numero->setStyleSheet(QStringLiteral("QLabel:enabled { color: #555; }"));
    auto* etiqueta = new QLabel(d ? QString::fromUtf8(d->etiqueta) : QString());
    QLineEdit* caja = nuevaCasilla(n);
    etiqueta->setBuddy(caja);
    acompanar(numero, {caja});
    acompanar(etiqueta, {caja});
    rejilla->addWidget(numero, fila, columna);
    rejilla->addWidget(etiqueta, fila, columna + 1);
    rejilla->addWidget(caja, fila, columna + 2);
}

QWidget* Frm931Vista::nuevoGrupo(const QString& nombre, GrupoOpciones& g, const QStringList& porDefecto,
                                 const QVector<int>& orden, bool horizontal)
{
    auto* cont = new QWidget;
    QBoxLayout* caja = horizontal ? static_cast<QBoxLayout*>(new QHBoxLayout(cont))
                                  : static_cast<QBoxLayout*>(new QVBoxLayout(cont));
    caja->setContentsMargins(0, 0, 0, 0);
    VGrupo vg;
    vg.nombre = nombre;
    vg.g = &g;
    vg.porDefecto = porDefecto;
    vg.b.resize(qMax<int>(g.b.size(), porDefecto.size()));
    const int indiceGrupo = grupos_.size();
    for (int i : orden) {
        if (i >= vg.b.size())
            continue;
        auto* r = new QRadioButton(porDefecto.value(i));
        r->setAutoExclusive(false);
        registrar(nombreIndice(nombre, i), r);
        caja->addWidget(r);
        vg.b[i] = r;
        connect(r, &QRadioButton::clicked, this, [this, indiceGrupo, i] {
            if (refrescando_)
                return;
            GrupoOpciones* grupo = grupos_[indiceGrupo].g;
            ejecutar([this, grupo, i] { m_.marcar(*grupo, i); });
        });
    }
    caja->addStretch(1);
    grupos_.append(vg);
    return cont;
}

QComboBox* Frm931Vista::nuevaLista(const QString& nombre, Lista& l)
{
    auto* w = new QComboBox;
    w->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    registrar(nombre, w);
    VLista v;
    v.nombre = nombre;
    v.l = &l;
    v.w = w;
    listas_.append(v);
    Lista* lista = &l;
    connect(w, &QComboBox::activated, this, [this, lista](int i) {
        if (refrescando_)
            return;
        ejecutar([this, lista, i] { m_.elegir(*lista, i); });
    });
    return w;
}

QLabel* Frm931Vista::nuevaEtiqueta(const QString& nombre, Etiqueta& e, const QString& porDefecto, bool siempre)
{
    auto* w = new QLabel(porDefecto);
    w->setObjectName(nombre);
    w->setWordWrap(true);
    VEtiqueta v;
    v.e = &e;
    v.w = w;
    v.siempre = siempre;
    v.porDefecto = porDefecto;
    etiquetas_.append(v);
    return w;
}

void Frm931Vista::acompanar(QLabel* etiqueta, const QVector<QWidget*>& controles)
{
    acompanadas_.append({etiqueta, controles});
}

QPushButton* Frm931Vista::nuevoBoton(const QString& nombre, Boton& b, const QString& porDefecto)
{
    auto* w = new QPushButton(porDefecto);
    w->setAutoDefault(false);
    registrar(nombre, w);
    botones_.append({&b, w, nombre});
    return w;
}

QGroupBox* Frm931Vista::nuevoMarco(const QString& nombre, const QString& porDefecto)
{
    auto* w = new QGroupBox(porDefecto);
    w->setObjectName(nombre);
    marcos_.insert(nombre, w);
    captionMarco_.insert(nombre, porDefecto);
    return w;
}

QWidget* Frm931Vista::nuevoMarcoSimple(const QString& nombre)
{
    auto* w = new QWidget;
    w->setObjectName(nombre);
    marcos_.insert(nombre, w);
    return w;
}

QTabWidget* Frm931Vista::nuevasPestanas(const QString& nombre, Pestanas& p, const QStringList& porDefecto)
{
    auto* w = new QTabWidget;
    w->setObjectName(nombre);
    w->setUsesScrollButtons(false);
    pestanas_.append({w, &p});
    connect(w, &QTabWidget::currentChanged, this, [this, w, &p](int pagina) { pestanaElegida(w, p, pagina); });
    Q_UNUSED(porDefecto);
    return w;
}

// The foot of the window: the help lines, the order number and the buttons.
QWidget* Frm931Vista::pieDeVentana()
{
    auto* pie = new QWidget;
    auto* h = new QHBoxLayout(pie);
    h->setContentsMargins(0, 0, 0, 0);

    auto* marcoAyuda = new QFrame;
    marcoAyuda->setFrameShape(QFrame::StyledPanel);
    marcoAyuda->setFrameShadow(QFrame::Sunken);
    auto* va = new QVBoxLayout(marcoAyuda);
    va->setContentsMargins(6, 3, 6, 3);
    va->setSpacing(0);
    ayuda_ = nuevaEtiqueta(QStringLiteral("TxtAyuda"), m_.TxtAyuda, QString(), true);
    ayuda1_ = nuevaEtiqueta(QStringLiteral("TxtAyuda1"), m_.TxtAyuda1, QString(), true);
    ayuda_->setWordWrap(false);
    ayuda1_->setWordWrap(false);
    const int alto = ayuda_->fontMetrics().height();
    ayuda_->setMinimumHeight(alto);
    ayuda1_->setMinimumHeight(alto);
    va->addWidget(ayuda_);
    va->addWidget(ayuda1_);
    h->addWidget(marcoAyuda, 1);

    h->addWidget(nuevaEtiqueta(QStringLiteral("lblNorden"), m_.lblNorden, QStringLiteral("Nro. de Orden")));
    QLineEdit* orden = nuevaCaja(QStringLiteral("txtOrden"), &m_.txtOrden);
    orden->setMaximumWidth(120);
    h->addWidget(orden);
    h->addWidget(nuevaEtiqueta(QStringLiteral("lblGuion"), m_.lblGuion, QStringLiteral("-")));
    QLineEdit* verifica = nuevaCaja(QStringLiteral("txtverifica"), &m_.txtverifica);
    verifica->setMaximumWidth(40);
    h->addWidget(verifica);

    QPushButton* validar = nuevoBoton(QStringLiteral("CmdValidar"), m_.CmdValidar, QStringLiteral("&Validar"));
    QPushButton* grabar = nuevoBoton(QStringLiteral("CmdGrabar"), m_.CmdGrabar, QStringLiteral("&Grabar"));
    QPushButton* salir = nuevoBoton(QStringLiteral("cmdCancelar"), m_.cmdCancelar, QStringLiteral("&Salir"));
    connect(validar, &QPushButton::clicked, this, [this] { ejecutar([this] { m_.CmdValidar_Click(); }); });
    connect(grabar, &QPushButton::clicked, this, [this] { ejecutar([this] { m_.CmdGrabar_Click(); }); });
    connect(salir, &QPushButton::clicked, this, [this] { ejecutar([this] { m_.cmdCancelar_Click(); }); });
    h->addWidget(validar);
    h->addWidget(grabar);
    h->addWidget(salir);
    return pie;
}

QRadioButton* Frm931Vista::opcion(const QString& grupo, int indice) const
{
    return qobject_cast<QRadioButton*>(controles_.value(nombreIndice(grupo, indice)));
}


// ---------------------------------------------------------------------------- forwarding

void Frm931Vista::ejecutar(const std::function<void()>& evento)
{
    try {
        evento();
    } catch (const ErrorVB& e) {
        MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
    }
    refrescar();
    if (m_.cerrado || cerrarPendiente_)
        cerrar();
}

void Frm931Vista::cerrar()
{
    if (!isVisible()) {
        cerrarPendiente_ = true;
        return;
    }
    cerrarPendiente_ = false;
    QDialog::done(QDialog::Accepted);
}

// Escape and the window's close box leave the form the way its exit button does.
void Frm931Vista::reject()
{
    ejecutar([this] { m_.cmdCancelar_Click(); });
}

void Frm931Vista::showEvent(QShowEvent* evento)
{
    QDialog::showEvent(evento);
    if (activado_)
        return;
    activado_ = true;
    ejecutar([this] { m_.Form_Activate(); });
}

// ---------------------------------------------------------------------------- openers

int mostrarDeclaracion(Frm931& frm, EntornoQt& entorno, QWidget* padre)
{
    Frm931Vista vista(frm, padre);
    entorno.vista = &vista;
    const int r = vista.exec();
    entorno.vista = nullptr;
    return r;
}

void pAbreDeclaracion(qint16 modo, const QStringList& datos)
{
    EntornoQt entorno;
    auto frm = std::make_unique<Frm931>(&entorno);
    G().gfrmDeclaracion = frm.get();
    try {
        frm->miModo = modo;
        if (modo == 1) {
            frm->msRuc = datos.value(0);
            frm->msRazon = datos.value(1);
        }
        frm->Form_Load();
        if (!frm->cerrado)
            mostrarDeclaracion(*frm, entorno, ventanaPrincipal());
    } catch (const ErrorVB& e) {
        MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
    }
    G().gfrmDeclaracion = nullptr;
}

