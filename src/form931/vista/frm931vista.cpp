// The declaration window. Layout: four main pages (identification, statements, determination,
// complementary information), each holding the frames and boxes of the model by their names.
#include "form931/vista/frm931vista.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "dialogs/vista/frmanexo477.h"
#include "dialogs/vista/frmconsist.h"
#include "dialogs/vista/frmperdida.h"
#include "dialogs/vista/frmubigeo.h"
#include "family/cutilqvl.h"
#include "form931/casillas.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "shell/vista/ventanas.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

namespace {

const QString kTab = QStringLiteral("TAB");

// Colours of the model are in blue-green-red order.
QColor colorDe(quint32 bgr)
{
    return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

QString nombreIndice(const QString& nombre, int i)
{
    return QStringLiteral("%1(%2)").arg(nombre).arg(i);
}

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

// A closed modal window gives the activation back to the form, also where no window manager
// does it.
void volverALaVentana(QWidget* w)
{
    if (w && w->isVisible())
        w->activateWindow();
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
// not the faint text of a disabled control on its grey.
void textoLegibleSiCerrado(QPalette& p, QPalette::ColorRole fondo, QPalette::ColorRole texto)
{
    p.setColor(QPalette::Disabled, fondo, p.color(QPalette::Active, QPalette::Window));
    p.setColor(QPalette::Disabled, texto, p.color(QPalette::Active, QPalette::WindowText));
}

// A page of a tab control holds its frame: the frame's own visibility is the model's, the
// page's is the tab control's.
QWidget* pagina(QWidget* marco)
{
    auto* p = new QWidget;
    auto* v = new QVBoxLayout(p);
    v->setContentsMargins(0, 0, 0, 0);
    v->addWidget(marco);
    return p;
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

void Frm931Vista::construir()
{
    setWindowTitle(m_.Caption);
    auto* raiz = new QVBoxLayout(this);
    raiz->setContentsMargins(8, 8, 8, 8);
    raiz->setSpacing(6);

    QTabWidget* tab1 = nuevasPestanas(QStringLiteral("SSTab1"), m_.SSTab1, {});
    tab1->addTab(paginaIdentificacion(), QStringLiteral("&Identificación"));
    tab1->addTab(paginaEstados(), QStringLiteral("  Estados  &financieros"));
    tab1->addTab(pagina(paginaDeterminacion()), conAtajo(QStringLiteral("Determinación del nuevo coeficiente o porcentaje")));
    tab1->addTab(pagina(paginaInformacion()), QStringLiteral("Información com&plementaria"));
    raiz->addWidget(tab1, 1);
    raiz->addWidget(pieDeVentana());

    resize(1000, 660);
}

QWidget* Frm931Vista::paginaIdentificacion()
{
    QTabWidget* tab2 = nuevasPestanas(QStringLiteral("SSTab2"), m_.SSTab2, {});
    tab2->addTab(paginaDatosGenerales(), QStringLiteral("&Datos Generales"));
    tab2->addTab(paginaComplementarios(), conAtajo(QStringLiteral("Datos complementarios del régimen")));
    tab2->addTab(paginaSistemaPago(), conAtajo(QStringLiteral("Sistema de pago")));
    return tab2;
}

QWidget* Frm931Vista::paginaDatosGenerales()
{
    auto* pagina = new QWidget;
    auto* v = new QVBoxLayout(pagina);

    QGroupBox* f11 = nuevoMarco(QStringLiteral("Frame11"), QStringLiteral("Contribuyente"));
    auto* g11 = new QGridLayout(f11);
    // U: the R is the order-number button's, which shares the page in a sent declaration.
    auto* lRuc = new QLabel(QStringLiteral("R&UC"));
    QComboBox* cmbRuc = nuevaLista(QStringLiteral("CmbRuc"), m_.CmbRuc);
    cmbRuc->setMinimumWidth(420);
    QLineEdit* numRuc = nuevaCaja(QStringLiteral("TxtNumRuc"), &m_.TxtNumRuc);
    numRuc->setFont(fuenteImportes());
    numRuc->setFixedWidth(QFontMetrics(fuenteImportes()).horizontalAdvance(QLatin1Char('0')) * 13 + 12);
    lRuc->setBuddy(cmbRuc);
    auto* celdaRuc = new QWidget;
    auto* hRuc = new QHBoxLayout(celdaRuc);
    hRuc->setContentsMargins(0, 0, 0, 0);
    hRuc->addWidget(cmbRuc);
    hRuc->addWidget(numRuc);
    hRuc->addStretch(1);
    acompanar(lRuc, {cmbRuc, numRuc});
    g11->addWidget(lRuc, 0, 0);
    g11->addWidget(celdaRuc, 0, 1);
    auto* lRazon = new QLabel(QStringLiteral("Razón social"));
    QLineEdit* razon = nuevaCaja(QStringLiteral("TxtRazon"), &m_.TxtRazon);
    razon->setReadOnly(true);
    lRazon->setBuddy(razon);
    acompanar(lRazon, {razon});
    g11->addWidget(lRazon, 1, 0);
    g11->addWidget(razon, 1, 1);
    auto* lTel = new QLabel(QStringLiteral("&Teléfono"));
    QLineEdit* tel = nuevaCaja(QStringLiteral("TxtTelefono"), &m_.TxtTelefono);
    tel->setMaximumWidth(200);
    lTel->setBuddy(tel);
    acompanar(lTel, {tel});
    g11->addWidget(lTel, 2, 0);
    g11->addWidget(tel, 2, 1, Qt::AlignLeft);
    auto* lEj = new QLabel(QStringLiteral("Periodo"));
    QLineEdit* ej = nuevaCaja(QStringLiteral("TxtEjercicio"), &m_.TxtEjercicio);
    ej->setReadOnly(true);
    ej->setFocusPolicy(Qt::NoFocus);
    ej->setMaximumWidth(120);
    acompanar(lEj, {ej});
    g11->addWidget(lEj, 3, 0);
    g11->addWidget(ej, 3, 1, Qt::AlignLeft);
    g11->setColumnStretch(1, 1);
    v->addWidget(f11);

    QGroupBox* f17 = nuevoMarco(QStringLiteral("Frame17"), QStringLiteral("Régimen de renta"));
    f17->setMouseTracking(true);
    f17->installEventFilter(this);
    auto* g17 = new QGridLayout(f17);
    const QStringList regimenes = {QStringLiteral("General"), QStringLiteral("Agrario"),
                                   QStringLiteral("Amazonía o Zona de Selva"), QStringLiteral("Zona de frontera"),
                                   QStringLiteral("Convenio de estabilidad"), QStringLiteral("MYPE Tributario")};
    QWidget* renta = nuevoGrupo(QStringLiteral("optRenta"), m_.optRenta, regimenes, {0, 1, 2, 3, 4, 5}, false);
    // Two columns of three.
    delete renta->layout();
    auto* dos = new QGridLayout(renta);
    dos->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 6; ++i)
        if (QRadioButton* r = grupos_.last().b.value(i))
            dos->addWidget(r, i % 3, i / 3);
    g17->addWidget(renta, 0, 0);
    v->addWidget(f17);

    QGroupBox* f9 = nuevoMarco(QStringLiteral("Frame9"), QStringLiteral("Declaración rectificatoria"));
    auto* h9 = new QHBoxLayout(f9);
    h9->addWidget(nuevoGrupo(QStringLiteral("OptRectifica"), m_.OptRectifica,
                             {QStringLiteral("No"), QStringLiteral("Si")}, {1, 0}));
    auto* lOrden = new QLabel(QStringLiteral("Número de orden"));
    h9->addWidget(lOrden);
    QLineEdit* orden = nuevaCaja(QStringLiteral("TxtNumOrden"), &m_.TxtNumOrden);
    acompanar(lOrden, {orden});
    orden->setReadOnly(true);
    orden->setMaximumWidth(160);
    h9->addWidget(orden);
    h9->addStretch(1);
    v->addWidget(f9);
    v->addStretch(1);
    return pagina;
}

QWidget* Frm931Vista::paginaComplementarios()
{
    const QStringList noSi = {QStringLiteral("No"), QStringLiteral("Si")};
    auto* pagina = new QWidget;
    auto* v = new QVBoxLayout(pagina);

    QGroupBox* general = nuevoMarco(QStringLiteral("Frame_General"), QStringLiteral("Tipo de persona"));
    auto* hg = new QHBoxLayout(general);
    hg->addWidget(nuevoGrupo(QStringLiteral("OptPersona"), m_.OptPersona,
                             {QStringLiteral("Persona Jurídica"), QStringLiteral("Persona Natural")}, {0, 1}));
    v->addWidget(general);

    QGroupBox* f15 = nuevoMarco(QStringLiteral("Frame15"), QStringLiteral("Ley de Promoción Agraria"));
    auto* h15 = new QHBoxLayout(f15);
    h15->addWidget(nuevaEtiqueta(QStringLiteral("Label1(9)"), m_.Label1[9],
                                 QStringLiteral("Fecha de Presentación del formulario 4888")));
    h15->addWidget(nuevaCaja(QStringLiteral("MkePeriodo"), &m_.MkePeriodo, true));
    h15->addWidget(nuevaEtiqueta(QStringLiteral("lblTab1(0)"), m_.lblTab1_0, QStringLiteral("(dd/mm/aaaa)")));
    h15->addStretch(1);
    v->addWidget(f15);

    // Amazonía: the two excluding questions side by side, the fiscal address below.
    auto* amazonia = new QWidget;
    auto* ha = new QHBoxLayout(amazonia);
    ha->setContentsMargins(0, 0, 0, 0);
    QGroupBox* f21 = nuevoMarco(QStringLiteral("Frame21"), QStringLiteral("Ubicación"));
    auto* v21 = new QVBoxLayout(f21);
    v21->addWidget(nuevaEtiqueta(QStringLiteral("Label1(17)"), m_.Label1[17],
                                 QStringLiteral("Contribuyente Ubicado en la Amazonía")));
    v21->addWidget(nuevoGrupo(QStringLiteral("OptUbicAmazonia"), m_.OptUbicAmazonia, noSi, {1, 0}));
    ha->addWidget(f21);
    QGroupBox* f19 = nuevoMarco(QStringLiteral("Frame19"), QStringLiteral("Ley de la Amazonía"));
    auto* v19 = new QVBoxLayout(f19);
    v19->addWidget(nuevaEtiqueta(QStringLiteral("Label1(12)"), m_.Label1[12],
                                 QStringLiteral("Acogimiento a la Ley de la Amazonía")));
    v19->addWidget(nuevoGrupo(QStringLiteral("OptLeyAmazonia"), m_.OptLeyAmazonia, noSi, {1, 0}));
    ha->addWidget(f19);
    v->addWidget(amazonia);
    marcos_.insert(QStringLiteral("#amazonia"), amazonia);

    QGroupBox* f20 = nuevoMarco(QStringLiteral("Frame20"), QStringLiteral("Domicilio Fiscal"));
    auto* g20 = new QGridLayout(f20);
    QWidget* f28 = nuevoMarcoSimple(QStringLiteral("Frame28"));
    auto* h28 = new QHBoxLayout(f28);
    h28->setContentsMargins(0, 0, 0, 0);
    h28->addWidget(nuevaEtiqueta(QStringLiteral("Label1(13)"), m_.Label1[13],
                                 QStringLiteral("Domicilio Fiscal ubicado en la Amazonía junto con su Administración y Contabilidad")), 1);
    h28->addWidget(nuevoGrupo(QStringLiteral("OptDomFiscal"), m_.OptDomFiscal, noSi, {1, 0}));
    g20->addWidget(f28, 0, 0, 1, 2);
    QWidget* f29 = nuevoMarcoSimple(QStringLiteral("Frame29"));
    auto* h29 = new QHBoxLayout(f29);
    h29->setContentsMargins(0, 0, 0, 0);
    h29->addWidget(nuevaEtiqueta(QStringLiteral("Label1(14)"), m_.Label1[14],
                                 QStringLiteral("Zona a la que corresponde la ubicación de su domicilio")), 1);
    h29->addWidget(nuevoGrupo(QStringLiteral("OptZona"), m_.OptZona,
                              {QStringLiteral("Zona 1"), QStringLiteral("Zona 2")}, {0, 1}));
    g20->addWidget(f29, 1, 0, 1, 2);
    auto* ubi = new QHBoxLayout;
    auto* lUbi = new QLabel(QStringLiteral("Ubicación Geográfica de su Domicilio Fiscal"));
    ubi->addWidget(lUbi);
    QLineEdit* tu = nuevaCaja(QStringLiteral("TxtUbigeo"), &m_.TxtUbigeo);
    tu->setReadOnly(true);
    tu->setMaximumWidth(120);
    ubi->addWidget(tu);
    QPushButton* zona1 = nuevoBoton(QStringLiteral("CmdZona1"), m_.CmdZona1, QStringLiteral("Ubigeo"));
    connect(zona1, &QPushButton::clicked, this, [this] { ejecutar([this] { m_.CmdZona1_Click(); }); });
    ubi->addWidget(zona1);
    acompanar(lUbi, {zona1});
    ubi->addStretch(1);
    g20->addLayout(ubi, 2, 0, 1, 2);
    v->addWidget(f20);

    // Frontier.
    QGroupBox* f13 = nuevoMarco(QStringLiteral("Frame13"), QStringLiteral("Zona de frontera"));
    auto* h13 = new QHBoxLayout(f13);
    h13->addWidget(new QLabel(QStringLiteral("Se dedica a la actividad industrial")), 1);
    h13->addWidget(nuevoGrupo(QStringLiteral("OptActividad"), m_.OptActividad, noSi, {1, 0}));
    v->addWidget(f13);
    QGroupBox* f16 = nuevoMarco(QStringLiteral("Frame16"), QStringLiteral("Domicilio fiscal"));
    auto* g16 = new QGridLayout(f16);
    g16->addWidget(nuevaEtiqueta(QStringLiteral("Label1(20)"), m_.Label1[20],
                                 QStringLiteral("Domicilio Fiscal ubicado en la zona de frontera")), 0, 0);
    g16->addWidget(nuevoGrupo(QStringLiteral("OptFrontera"), m_.OptFrontera, noSi, {1, 0}), 0, 1);
    g16->addWidget(nuevaEtiqueta(QStringLiteral("Label1(21)"), m_.Label1[21],
                                 QStringLiteral("Ubicación Geográfica de su Domicilio Fiscal")), 1, 0);
    auto* ubi2 = new QHBoxLayout;
    QLineEdit* tu2 = nuevaCaja(QStringLiteral("TxtUbigeo2"), &m_.TxtUbigeo2);
    tu2->setReadOnly(true);
    tu2->setMaximumWidth(120);
    ubi2->addWidget(tu2);
    QPushButton* zona2 = nuevoBoton(QStringLiteral("CmdZona2"), m_.CmdZona2, QStringLiteral("Ubigeo"));
    connect(zona2, &QPushButton::clicked, this, [this] { ejecutar([this] { m_.CmdZona2_Click(); }); });
    ubi2->addWidget(zona2);
    ubi2->addStretch(1);
    g16->addLayout(ubi2, 1, 1);
    g16->setColumnStretch(0, 1);
    v->addWidget(f16);

    // Stability agreement.
    QGroupBox* f14 = nuevoMarco(QStringLiteral("Frame14"), QStringLiteral("Convenio de estabilidad"));
    auto* v14 = new QVBoxLayout(f14);
    v14->addWidget(nuevoGrupo(QStringLiteral("OptConvEstab"), m_.OptConvEstab,
                              {QString(), QStringLiteral("Estabilidad tributaria"),
                               QStringLiteral("Garantías y medidas de  promoción a la inversión"),
                               QStringLiteral("Estabilidad jurídica"),
                               QStringLiteral("Contratos de licencia de  exploración y explotación  de hidrocarburos")},
                              {1, 2, 3, 4}, false));
    auto* h14 = new QHBoxLayout;
    h14->addWidget(nuevaEtiqueta(QStringLiteral("Label1(5)"), m_.Label1[5],
                                 QStringLiteral("Número de Orden del Formulario 2305")));
    QLineEdit* f2305 = nuevaCaja(QStringLiteral("TxtNumOrdenF2305"), &m_.TxtNumOrdenF2305);
    f2305->setMaximumWidth(160);
    h14->addWidget(f2305);
    h14->addStretch(1);
    v14->addLayout(h14);
    v->addWidget(f14);
    v->addStretch(1);
    return pagina;
}

QWidget* Frm931Vista::paginaSistemaPago()
{
    const QStringList noSi = {QStringLiteral("No"), QStringLiteral("Si")};
    const QStringList resultado = {QStringLiteral("Utilidad"), QStringLiteral("Pérdida")};
    auto* pagina = new QWidget;
    auto* v = new QVBoxLayout(pagina);

    QGroupBox* f4 = nuevoMarco(QStringLiteral("Frame4"), QStringLiteral("¿Ha Iniciado sus actividades en el ejercicio?"));
    auto* h4 = new QHBoxLayout(f4);
    h4->addWidget(nuevoGrupo(QStringLiteral("OptInicio"), m_.OptInicio, noSi, {1, 0}));
    v->addWidget(f4);

    QGroupBox* fe = nuevoMarco(QStringLiteral("Frame_ejercicio"), QStringLiteral("Resultado del ejercicio"));
    auto* he = new QHBoxLayout(fe);
    QGroupBox* fa = nuevoMarco(QStringLiteral("Frame_anterior"), QStringLiteral("Ejercicio anterior"));
    auto* ha = new QHBoxLayout(fa);
    ha->addWidget(nuevoGrupo(QStringLiteral("OptAnterior"), m_.OptAnterior, resultado, {0, 1}));
    he->addWidget(fa);
    QGroupBox* fp = nuevoMarco(QStringLiteral("Frame_precedente"), QStringLiteral("Ejercicio precedente al anterior"));
    auto* hp = new QHBoxLayout(fp);
    hp->addWidget(nuevoGrupo(QStringLiteral("OptPrecedente"), m_.OptPrecedente, resultado, {0, 1}));
    he->addWidget(fp);
    v->addWidget(fe);

    auto* fila = new QHBoxLayout;
    QGroupBox* f18 = nuevoMarco(QStringLiteral("Frame18"), QStringLiteral("Fecha de balance"));
    auto* h18 = new QHBoxLayout(f18);
    QComboBox* balance = nuevaLista(QStringLiteral("CboBalance"), m_.CboBalance);
    balance->setMinimumWidth(180);
    h18->addWidget(balance);
    QLabel* presentacion = nuevaEtiqueta(QStringLiteral("LblPresentacion"), m_.LblPresentacion, QString(), true);
    h18->addWidget(presentacion, 1);
    fila->addWidget(f18, 2);
    QGroupBox* f3 = nuevoMarco(QStringLiteral("Frame3"), QStringLiteral("Sistema de pago"));
    auto* h3 = new QHBoxLayout(f3);
    QLabel* sistema = nuevaEtiqueta(QStringLiteral("LblSistema"), m_.LblSistema, QString(), true);
    sistema->setFrameShape(QFrame::Panel);
    sistema->setFrameShadow(QFrame::Sunken);
    sistema->setAlignment(Qt::AlignCenter);
    sistema->setMinimumWidth(40);
    QFont negrita = sistema->font();
    negrita.setBold(true);
    sistema->setFont(negrita);
    h3->addWidget(sistema);
    h3->addStretch(1);
    fila->addWidget(f3, 1);
    v->addLayout(fila);

    QGroupBox* sus = nuevoMarco(QStringLiteral("FrameSusPC"), QStringLiteral("Suspensión de los pagos a cuenta"));
    auto* gs = new QGridLayout(sus);
    gs->addWidget(nuevoGrupo(QStringLiteral("OptSuspPC"), m_.OptSuspPC, noSi, {1, 0}), 0, 0, 1, 2);
    auto* lRes = new QLabel(QStringLiteral("Número de resolución"));
    gs->addWidget(lRes, 1, 0);
    QLineEdit* res = nuevaCaja(QStringLiteral("txtNumRes"), &m_.txtNumRes);
    lRes->setBuddy(res);
    acompanar(lRes, {res});
    res->setFont(fuenteImportes());
    res->setMaximumWidth(QFontMetrics(fuenteImportes()).horizontalAdvance(QLatin1Char('0')) * 15 + 12);
    gs->addWidget(res, 1, 1, Qt::AlignLeft);
    auto* lNot = new QLabel(QStringLiteral("Fecha de notificación"));
    gs->addWidget(lNot, 2, 0);
    QLineEdit* notificacion = nuevaCaja(QStringLiteral("mkefecnot"), &m_.mkefecnot, true);
    lNot->setBuddy(notificacion);
    acompanar(lNot, {notificacion});
    gs->addWidget(notificacion, 2, 1, Qt::AlignLeft);
    gs->setColumnStretch(2, 1);
    v->addWidget(sus);
    v->addStretch(1);
    return pagina;
}

QWidget* Frm931Vista::paginaEstados()
{
    QTabWidget* tab3 = nuevasPestanas(QStringLiteral("SSTab3"), m_.SSTab3, {});
    tab3->addTab(pagina(paginaActivo()), conAtajo(QStringLiteral("Activo")));
    tab3->addTab(pagina(paginaPasivo()), conAtajo(QStringLiteral("&Pasivo y Patrimonio")));
    tab3->addTab(pagina(paginaGanancias()), conAtajo(QStringLiteral("Estado de ganancias y pérdidas")));
    return tab3;
}

namespace {
QGridLayout* rejillaCasillas(QWidget* padre)
{
    auto* g = new QGridLayout(padre);
    g->setHorizontalSpacing(8);
    g->setVerticalSpacing(3);
    g->setColumnStretch(3, 1);
    return g;
}
}

QWidget* Frm931Vista::paginaActivo()
{
    QWidget* f1 = nuevoMarcoSimple(QStringLiteral("frame1(1)"));
    f1->setMouseTracking(true);
    f1->installEventFilter(this);
    auto* h = new QHBoxLayout(f1);
    auto* pila = new QGridLayout;
    const struct { const char* nombre; int desde, hasta, encabezado; } paradas[] = {
        {"Frame26", 500, 515, 41}, {"Frame34", 516, 531, 168}};
    for (const auto& p : paradas) {
        QGroupBox* marco = nuevoMarco(QString::fromLatin1(p.nombre), QStringLiteral("Activo"));
        QGridLayout* g = rejillaCasillas(marco);
        VEncabezado enc;
        enc.indice = p.encabezado;
        enc.titulo = new QLabel;
        enc.titulo->setObjectName(nombreIndice(QStringLiteral("lblTab2"), p.encabezado));
        enc.columna = new QLabel;
        enc.columna->setAlignment(Qt::AlignCenter);
        enc.porDefecto = QStringLiteral("I. Balance General");
        g->addWidget(enc.titulo, 0, 0, 1, 2);
        g->addWidget(enc.columna, 0, 2);
        encabezados_.append(enc);
        int fila = 1;
        for (int n = p.desde; n <= p.hasta; ++n)
            filaCasilla(g, fila++, n);
        g->setRowStretch(fila, 1);
        pila->addWidget(marco, 0, 0);
    }
    h->addLayout(pila, 1);
    vscroll_ = new QScrollBar(Qt::Vertical);
    vscroll_->setObjectName(QStringLiteral("VScroll1"));
    vscroll_->installEventFilter(this);
    connect(vscroll_, &QScrollBar::valueChanged, this, [this](int valor) {
        if (refrescando_)
            return;
        const bool arrastre = vscroll_->isSliderDown();
        ejecutar([this, valor, arrastre] {
            if (arrastre) {
                m_.VScroll1.Value = valor;
                m_.VScroll1_Scroll();
            } else {
                m_.ponerVScroll(valor);
            }
        });
    });
    h->addWidget(vscroll_);
    return f1;
}

QWidget* Frm931Vista::paginaPasivo()
{
    QWidget* f6 = nuevoMarcoSimple(QStringLiteral("frame1(6)"));
    f6->setMouseTracking(true);
    f6->installEventFilter(this);
    auto* h = new QHBoxLayout(f6);
    const struct { const char* nombre; const char* titulo; int desde, hasta, encabezado; } marcos[] = {
        {"Frame35", "Pasivo", 532, 543, 98}, {"Frame36", "Patrimonio", 544, 555, 90}};
    for (const auto& p : marcos) {
        QGroupBox* marco = nuevoMarco(QString::fromLatin1(p.nombre), QString::fromUtf8(p.titulo));
        QGridLayout* g = rejillaCasillas(marco);
        VEncabezado enc;
        enc.indice = p.encabezado;
        enc.titulo = new QLabel;
        enc.titulo->setObjectName(nombreIndice(QStringLiteral("lblTab2"), p.encabezado));
        enc.columna = new QLabel;
        enc.columna->setAlignment(Qt::AlignCenter);
        enc.porDefecto = QStringLiteral("I. Balance General");
        g->addWidget(enc.titulo, 0, 0, 1, 2);
        g->addWidget(enc.columna, 0, 2);
        encabezados_.append(enc);
        int fila = 1;
        for (int n = p.desde; n <= p.hasta; ++n)
            filaCasilla(g, fila++, n);
        g->setRowStretch(fila, 1);
        h->addWidget(marco, 1);
    }
    return f6;
}

QWidget* Frm931Vista::paginaGanancias()
{
    QWidget* f7 = nuevoMarcoSimple(QStringLiteral("frame1(7)"));
    f7->setMouseTracking(true);
    f7->installEventFilter(this);
    auto* v = new QVBoxLayout(f7);
    VEncabezado enc;
    enc.indice = 100;
    enc.titulo = new QLabel;
    enc.titulo->setObjectName(QStringLiteral("lblTab2(100)"));
    enc.columna = new QLabel;
    enc.porDefecto = QStringLiteral("II. Estado de Ganancias y Pérdidas");
    auto* he = new QHBoxLayout;
    he->addWidget(enc.titulo, 1);
    he->addWidget(enc.columna);
    v->addLayout(he);
    encabezados_.append(enc);

    auto* h = new QHBoxLayout;
    const QVector<int> izquierda = {461, 462, 463, 464, 466, 467, 468, 469, 470, 471, 472, 473, 475, 476};
    const QVector<int> derecha = {477, 478, 480, 481, 483, 484, 485, 486, 487, 489, 490, 492, 493};
    for (const auto& columna : {izquierda, derecha}) {
        auto* cont = new QWidget;
        QGridLayout* g = rejillaCasillas(cont);
        g->setContentsMargins(0, 0, 0, 0);
        int fila = 0;
        for (int n : columna)
            filaCasilla(g, fila++, n);
        g->setRowStretch(fila, 1);
        h->addWidget(cont, 1);
        if (columna.first() == 461) {
            auto* sep = new QFrame;
            sep->setFrameShape(QFrame::VLine);
            sep->setFrameShadow(QFrame::Sunken);
            h->addWidget(sep);
        }
    }
    v->addLayout(h, 1);
    return f7;
}

QWidget* Frm931Vista::paginaDeterminacion()
{
    QWidget* f2 = nuevoMarcoSimple(QStringLiteral("frame1(2)"));
    f2->setMouseTracking(true);
    f2->installEventFilter(this);
    auto* h = new QHBoxLayout(f2);
    auto* izq = new QGroupBox(QStringLiteral("Determinación del impuesto"));
    QGridLayout* g = rejillaCasillas(izq);
    int fila = 0;
    for (int n : {100, 101, 103, 105, 106, 107, 108, 150, 110, 111, 113})
        filaCasilla(g, fila++, n);
    auto* linea = new QFrame;
    linea->setFrameShape(QFrame::HLine);
    linea->setFrameShadow(QFrame::Sunken);
    g->addWidget(linea, fila++, 0, 1, 3);
    filaCasilla(g, fila++, 610);
    QFont negrita = caja(610)->font();
    negrita.setBold(true);
    caja(610)->setFont(negrita);
    g->setRowStretch(fila, 1);
    h->addWidget(izq, 3);

    auto* der = new QVBoxLayout;
    QGroupBox* mype = nuevoMarco(QStringLiteral("frmMype"), QStringLiteral("MYPE Tributario"));
    QGridLayout* gm = rejillaCasillas(mype);
    fila = 0;
    for (int n : {250, 251, 252, 253})
        filaCasilla(gm, fila++, n);
    der->addWidget(mype);
    der->addStretch(1);
    h->addLayout(der, 2);

    // Carriers of the annex parts: boxes of the declaration that are never shown.
    portadores_ = new QWidget(f2);
    portadores_->setObjectName(QStringLiteral("portadores"));
    auto* hp = new QHBoxLayout(portadores_);
    for (int n : {432, 433, 650, 651})
        hp->addWidget(nuevaCasilla(n));
    portadores_->hide();
    return f2;
}

QWidget* Frm931Vista::paginaInformacion()
{
    QWidget* f3 = nuevoMarcoSimple(QStringLiteral("frame1(3)"));
    auto* v3 = new QVBoxLayout(f3);
    v3->setContentsMargins(0, 0, 0, 0);
    QTabWidget* tab4 = nuevasPestanas(QStringLiteral("SSTab4"), m_.SSTab4, {});
    v3->addWidget(tab4);

    QWidget* f5 = nuevoMarcoSimple(QStringLiteral("frame1(5)"));
    f5->setMouseTracking(true);
    f5->installEventFilter(this);
    auto* v5 = new QHBoxLayout(f5);

    QGroupBox* f6 = nuevoMarco(QStringLiteral("Frame6"), QStringLiteral("Datos del Contador"));
    auto* g6 = new QGridLayout(f6);
    int fila = 0;
    auto nombreFila = [&](QGridLayout* g, const QString& etiqueta, QWidget* w) {
        auto* l = new QLabel(etiqueta);
        l->setBuddy(w);
        acompanar(l, {w});
        g->addWidget(l, fila, 0, 1, 2);
        g->addWidget(w, fila, 2);
        ++fila;
    };
    QLineEdit* apellidosC = nuevaCaja(QStringLiteral("TxtNombreA"), &m_.TxtNombreA);
    nombreFila(g6, QStringLiteral("Apellidos"), apellidosC);
    nombreFila(g6, QStringLiteral("Nombres"), nuevaCaja(QStringLiteral("TxtNombreN"), &m_.TxtNombreN));
    nombreFila(g6, QStringLiteral("Zona de la colegiatura"), nuevaLista(QStringLiteral("CmbZona"), m_.CmbZona));
    for (int n : {209, 208, 211, 212})
        filaCasilla(g6, fila++, n);
    g6->setColumnStretch(1, 1);
    g6->setRowStretch(fila, 1);
    v5->addWidget(f6, 1);

    QGroupBox* f7 = nuevoMarco(QStringLiteral("Frame7"), QStringLiteral("Datos del representante legal"));
    auto* g7 = new QGridLayout(f7);
    fila = 0;
    nombreFila(g7, QStringLiteral("Apellidos"), nuevaCaja(QStringLiteral("txtApellidoRL"), &m_.txtApellidoRL));
    nombreFila(g7, QStringLiteral("Nombres"), nuevaCaja(QStringLiteral("txtNombreRL"), &m_.txtNombreRL));
    nombreFila(g7, QStringLiteral("Tipo de documento"),
               nuevaLista(QStringLiteral("cboTipDocRepLegal"), m_.cboTipDocRepLegal));
    for (int n : {225, 226})
        filaCasilla(g7, fila++, n);
    g7->setColumnStretch(1, 1);
    g7->setRowStretch(fila, 1);
    v5->addWidget(f7, 1);
    tab4->addTab(pagina(f5), conAtajo(QStringLiteral("I&nformación general")));

    QGroupBox* f2 = nuevoMarco(QStringLiteral("Frame2"), QString());
    auto* h2 = new QHBoxLayout(f2);
    grilla_ = new QTableWidget(0, 2);
    grilla_->setObjectName(QStringLiteral("grdPerdidaTributaria"));
    grilla_->setHorizontalHeaderLabels({QStringLiteral("Año"), QStringLiteral("Importe")});
    grilla_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grilla_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grilla_->verticalHeader()->hide();
    grilla_->horizontalHeader()->setStretchLastSection(true);
    h2->addWidget(grilla_, 1);
    connect(grilla_, &QTableWidget::currentCellChanged, this,
            [this](int fila, int, int, int) { m_.filaPerdida = qMax(0, fila); });
    auto* vb = new QVBoxLayout;
    const QStringList capt = {QStringLiteral("&Nuevo"), QStringLiteral("&Modificar"), QStringLiteral("&Eliminar")};
    for (int i = 0; i < 3; ++i) {
        QPushButton* b = nuevoBoton(nombreIndice(QStringLiteral("cmdPerdida"), i), m_.cmdPerdida[i], capt[i]);
        connect(b, &QPushButton::clicked, this, [this, i] { ejecutar([this, i] { m_.cmdPerdida_Click(i); }); });
        vb->addWidget(b);
    }
    vb->addStretch(1);
    h2->addLayout(vb);
    tab4->addTab(pagina(f2), conAtajo(QStringLiteral("Pérdida tributaria compensable de ejercicios anteriores")));
    return f3;
}

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

// ---------------------------------------------------------------------------- mirroring

void Frm931Vista::refrescarCaja(VCaja& v)
{
    const Caja& c = cajaModelo(v);
    QLineEdit* w = v.w;
    if (v.inicial || c.Enabled != v.enabled) {
        w->setEnabled(c.Enabled);
        v.enabled = c.Enabled;
    }
    if (v.casilla && (v.casilla == 432 || v.casilla == 433 || v.casilla == 650 || v.casilla == 651)) {
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
    bool cabe = v.casilla != 473 && v.casilla != 477;
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
        if ((v.casilla == 473 || v.casilla == 477) && !e->matches(QKeySequence::SelectAll)
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
