// The pages of the declaration window. The boxes of each frame come from the table of
// boxes, in its rows; the other controls are laid out here.
#include "form931/vista/frm931vista.h"

#include "form931/casillas.h"
#include "form931/vista/frm931vista_comun.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace vista931;

namespace {

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


QGridLayout* rejillaCasillas(QWidget* padre)
{
    auto* g = new QGridLayout(padre);
    g->setHorizontalSpacing(8);
    g->setVerticalSpacing(3);
    g->setColumnStretch(3, 1);
    return g;
}

}  // namespace

// The boxes of a frame as rows of its grid from `fila` on; the row after the last is returned.
// The new coefficient stands below a rule, in bold.
int Frm931Vista::filasDelMarco(QGridLayout* rejilla, const char* marco, int fila, int columna)
{
    for (const DefCasilla* d : casillasDelMarco(marco, columna)) {
        const bool coeficiente = d->presentacion == Presentacion::Coeficiente;
        if (coeficiente) {
            auto* linea = new QFrame;
            linea->setFrameShape(QFrame::HLine);
            linea->setFrameShadow(QFrame::Sunken);
            rejilla->addWidget(linea, fila++, 0, 1, 3);
        }
        filaCasilla(rejilla, fila++, d->numero);
        if (coeficiente) {
            QFont negrita = caja(d->numero)->font();
            negrita.setBold(true);
            caja(d->numero)->setFont(negrita);
        }
    }
    return fila;
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

QWidget* Frm931Vista::paginaActivo()
{
    QWidget* f1 = nuevoMarcoSimple(QStringLiteral("frame1(1)"));
    f1->setMouseTracking(true);
    f1->installEventFilter(this);
    auto* h = new QHBoxLayout(f1);
    auto* pila = new QGridLayout;
    const struct { const char* nombre; int encabezado; } paradas[] = {{"Frame26", 41}, {"Frame34", 168}};
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
        g->setRowStretch(filasDelMarco(g, p.nombre, 1), 1);
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
    const struct { const char* nombre; const char* titulo; int encabezado; } marcos[] = {
        {"Frame35", "Pasivo", 98}, {"Frame36", "Patrimonio", 90}};
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
        g->setRowStretch(filasDelMarco(g, p.nombre, 1), 1);
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
    for (int columna : {0, 1}) {
        auto* cont = new QWidget;
        QGridLayout* g = rejillaCasillas(cont);
        g->setContentsMargins(0, 0, 0, 0);
        g->setRowStretch(filasDelMarco(g, "frame1(7)", 0, columna), 1);
        h->addWidget(cont, 1);
        if (columna == 0) {
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
    g->setRowStretch(filasDelMarco(g, "frame1(2)", 0), 1);
    h->addWidget(izq, 3);

    auto* der = new QVBoxLayout;
    QGroupBox* mype = nuevoMarco(QStringLiteral("frmMype"), QStringLiteral("MYPE Tributario"));
    QGridLayout* gm = rejillaCasillas(mype);
    filasDelMarco(gm, "frmMype", 0);
    der->addWidget(mype);
    der->addStretch(1);
    h->addLayout(der, 2);

    // Carriers of the annex parts: boxes of the declaration that are never shown.
    portadores_ = new QWidget(f2);
    portadores_->setObjectName(QStringLiteral("portadores"));
    auto* hp = new QHBoxLayout(portadores_);
    for (const DefCasilla* d : casillasDelMarco("portadores"))
        hp->addWidget(nuevaCasilla(d->numero));
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
    g6->setColumnStretch(1, 1);
    g6->setRowStretch(filasDelMarco(g6, "Frame6", fila), 1);
    v5->addWidget(f6, 1);

    QGroupBox* f7 = nuevoMarco(QStringLiteral("Frame7"), QStringLiteral("Datos del representante legal"));
    auto* g7 = new QGridLayout(f7);
    fila = 0;
    nombreFila(g7, QStringLiteral("Apellidos"), nuevaCaja(QStringLiteral("txtApellidoRL"), &m_.txtApellidoRL));
    nombreFila(g7, QStringLiteral("Nombres"), nuevaCaja(QStringLiteral("txtNombreRL"), &m_.txtNombreRL));
    nombreFila(g7, QStringLiteral("Tipo de documento"),
               nuevaLista(QStringLiteral("cboTipDocRepLegal"), m_.cboTipDocRepLegal));
    g7->setColumnStretch(1, 1);
    g7->setRowStretch(filasDelMarco(g7, "Frame7", fila), 1);
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
