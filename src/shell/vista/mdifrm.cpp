#include "shell/vista/mdifrm.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

#include "family/vista/accesibles.h"
#include "family/vista/barraestado.h"
#include "shell/arranque.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "shell/vista/ayuda.h"
#include "shell/vista/puntero.h"
#include "shell/vista/ventanas.h"

namespace {

QPointer<MDIFrm> g_principal;

constexpr int kTwipsPorPixel = 15;

struct ItemMenu {
    const char* nombre;
    const char* texto;   // nullptr: separator
    void (*orden)();
};

struct Menu {
    const char* nombre;
    const char* texto;
    QList<ItemMenu> items;
};

const QList<Menu>& arbolMenus()
{
    static const QList<Menu> menus = {
        {"mnuDeclara", "&Declaraciones",
         {{"mnuNueva", "&Nueva", &mnuNueva_Click},
          {"mnuModificar", "&Modificar", &mnuModificar_Click},
          {"mnuEliminar", "&Eliminar", &mnuEliminar_Click},
          {"rayita1", nullptr, nullptr},
          {"mnuImprimir", "&Imprimir", &mnuImprimir_Click},
          {"rayita", nullptr, nullptr},
          {"mnuSalir", "&Salir", &mnuSalir_Click}}},
        {"mnuDeclarEnv", "Declaraciones &Enviadas",
         {{"mnuRegistrar", "&Registrar número de orden", &mnuRegistrar_Click},
          {"mnuEliminar1", "&Eliminar", &mnuEliminar1_Click},
          {"Raya", nullptr, nullptr},
          {"mnuImprimir1", "&Imprimir", &mnuImprimir1_Click}}},
        {"mnuConsultas", "&Consultas",
         {{"mnuFactores", "&Factores de Actualización", &mnuFactores_Click},
          {"mnuDocIdent", "&Bancos", &mnuDocIdent_Click},
          {"mnupais", "&Paises", &mnupais_Click},
          {"mnuUIT", "&UIT", &mnuUIT_Click}}},
        {"mnuayuda", "&Ayuda",
         {{"mnuContenido", "&Contenido", &mnuContenido_Click},
          {"rayita2", nullptr, nullptr},
          {"mnuAcercade", "Acerca &de QVL", &mnuAcercade_Click}}},
    };
    return menus;
}

struct BotonHerramienta {
    int indice;
    const char* tip;   // nullptr: separator
    QStyle::StandardPixmap icono;
};

const QList<BotonHerramienta>& botonesBarra()
{
    static const QList<BotonHerramienta> botones = {
        {1, "Nueva", QStyle::SP_FileIcon},
        {2, "Modificar", QStyle::SP_DialogOpenButton},
        {3, "Eliminar", QStyle::SP_TrashIcon},
        {4, "Imprimir", QStyle::SP_FileDialogContentsView},
        {5, "Salir", QStyle::SP_DialogCloseButton},
        {6, nullptr, QStyle::SP_CustomBase},
        {7, "Num. Orden", QStyle::SP_DialogApplyButton},
        {8, nullptr, QStyle::SP_CustomBase},
        {9, nullptr, QStyle::SP_CustomBase},
        {10, "Ayuda", QStyle::SP_DialogHelpButton},
    };
    return botones;
}

// The family's background: a vertical blue gradient.
class Fondo : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        QLinearGradient g(0, 0, 0, height());
        g.setColorAt(0, QColor(0x16, 0x40, 0x6b));
        g.setColorAt(0.6, QColor(0x3c, 0x78, 0xb4));
        g.setColorAt(1, QColor(0x9c, 0xc3, 0xe6));
        p.fillRect(rect(), g);
    }
};

}  // namespace

QWidget* ventanaPrincipal()
{
    return g_principal.data();
}

MDIFrm::MDIFrm(QWidget* padre) : QMainWindow(padre)
{
    g_principal = this;
    setObjectName(QStringLiteral("MDIFrm"));
    setWindowTitle(QStringLiteral("0931 Modificación de coeficiente o porcentaje - v 1.6"));
    // No minimize or maximize box.
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setMouseTracking(true);
    // F1 and the accessible names reach every window of the module from here.
    instalarTeclaAyuda();
    instalarNombresAccesibles();

    crearMenus();
    crearBarra();
    crearFondo();
    BarradeEstadoQVL1 = new BarradeEstadoQVL(this);
    BarradeEstadoQVL1->setObjectName(QStringLiteral("BarradeEstadoQVL1"));
    setStatusBar(BarradeEstadoQVL1);

    Abridores a;
    a.declaracion = [](qint16 modo, const QStringList& datos) { pAbreDeclaracion(modo, datos); };
    a.contAbrir = [](qint16 opcion) { abrirFrmContAbrir(opcion); };
    a.imprimir = [](qint16 argumento) { pAbreImprimir(argumento); };
    a.contAbrirEnv = [] { abrirFrmContAbrirEnv(); };
    a.consFac = [] { abrirFrmConsFac(); };
    a.consultas = [] { abrirFrmConsultas(); };
    a.acercade = [] { abrirFrmAcercade(); };
    a.ayuda = [this] { mostrarAyuda(archivoAyuda(), QStringLiteral("257"), this); };
    a.cerrarVentana = [this] {
        close();
        QCoreApplication::exit(0);
    };
    a.puntero = [](bool espera) { fijarPunteroEspera(espera); };
    instalarAbridores(a);
    alCambiarBarra([this](const EstadoBarra&) { mostrarBarra(); });
    mostrarBarra();
}

MDIFrm::~MDIFrm()
{
    alCambiarBarra({});
    instalarAbridores({});
}

void MDIFrm::crearMenus()
{
    for (const Menu& m : arbolMenus()) {
        QMenu* menu = menuBar()->addMenu(QString::fromUtf8(m.texto));
        menu->setObjectName(QString::fromLatin1(m.nombre));
        menu->menuAction()->setObjectName(QString::fromLatin1(m.nombre));
        for (const ItemMenu& i : m.items) {
            QAction* a = i.texto ? menu->addAction(QString::fromUtf8(i.texto)) : menu->addSeparator();
            a->setObjectName(QString::fromLatin1(i.nombre));
            if (i.orden)
                connect(a, &QAction::triggered, this, [orden = i.orden] { orden(); });
        }
    }
}

void MDIFrm::crearBarra()
{
    tlbMenu = addToolBar(QString());
    tlbMenu->setObjectName(QStringLiteral("tlbMenu"));
    tlbMenu->setMovable(false);
    tlbMenu->setFloatable(false);
    tlbMenu->setContextMenuPolicy(Qt::PreventContextMenu);
    tlbMenu->setToolButtonStyle(Qt::ToolButtonIconOnly);
    tlbMenu->setIconSize(QSize(24, 24));
    tlbMenu->setMouseTracking(true);
    tlbMenu->installEventFilter(this);
    for (const BotonHerramienta& b : botonesBarra()) {
        QAction* a;
        if (b.tip) {
            a = tlbMenu->addAction(style()->standardIcon(b.icono), QString::fromUtf8(b.tip));
            a->setToolTip(QString::fromUtf8(b.tip));
            connect(a, &QAction::triggered, this, [indice = b.indice] { tlbMenu_ButtonClick(indice); });
        } else {
            a = tlbMenu->addSeparator();
        }
        a->setObjectName(QStringLiteral("tlbMenu_%1").arg(b.indice));
        botones_ << a;
        if (QWidget* w = tlbMenu->widgetForAction(a)) {
            w->setMouseTracking(true);
            w->installEventFilter(this);
        }
    }
}

void MDIFrm::crearFondo()
{
    Picture2 = new Fondo(this);
    Picture2->setObjectName(QStringLiteral("Picture2"));
    Picture2->setMouseTracking(true);
    Picture2->installEventFilter(this);

    imgFondo = new QLabel(Picture2);
    imgFondo->setObjectName(QStringLiteral("imgFondo"));
    imgFondo->setAlignment(Qt::AlignCenter);
    imgFondo->setTextFormat(Qt::RichText);
    imgFondo->setText(QStringLiteral(
        "<div style='color:#ffffff'>"
        "<p style='font-size:15pt; letter-spacing:3px'>PROGRAMA QUALVIA</p>"
        "<p style='font-size:44pt; font-weight:bold'>0931</p>"
        "<p style='font-size:14pt'>Modificación de coeficiente o porcentaje</p>"
        "</div>"));
    imgFondo->setMouseTracking(true);
    imgFondo->installEventFilter(this);
    auto* capa = new QVBoxLayout(Picture2);
    capa->addWidget(imgFondo);
    setCentralWidget(Picture2);
}

void MDIFrm::ponerGeometria(int izquierda, int arriba, int ancho, int alto)
{
    // Twips of the whole window, frame included, as the family sizes its windows.
    const QSize marco = frameGeometry().size() - geometry().size();
    move(izquierda / kTwipsPorPixel, arriba / kTwipsPorPixel);
    resize(qRound(double(ancho) / kTwipsPorPixel) - marco.width(),
           qRound(double(alto) / kTwipsPorPixel) - marco.height());
}

bool MDIFrm::Form_Load()
{
    G().gsFormulario = QStringLiteral("0931");
    setWindowState(Qt::WindowNoState);
    ponerGeometria(0, 0, 9555, 7300);
    show();
    ponerGeometria(0, 0, 9555, 7300);   // now that the frame is known
    fijarPunteroEspera(true);
    pLeerIni();
    if (!fAbrirBase()) {
        fijarPunteroEspera(false);
        return false;
    }
    archivoAyuda() = G().gsPathSys + QStringLiteral("0931/") + QStringLiteral("Ql931.hlp");
    pBarraEstado(QString(), QString(), G().gsPeriodo, G().gsFormulario);
    fijarPunteroEspera(false);
    return true;
}

void MDIFrm::MostrarHelp()
{
    ::MostrarHelp();
}

QAction* MDIFrm::accion(const QString& nombre) const
{
    return findChild<QAction*>(nombre);
}

void MDIFrm::mostrarBarra()
{
    const EstadoBarra& b = barraEstado();
    BarradeEstadoQVL1->setProperty("Modo", b.Modo);
    BarradeEstadoQVL1->setProperty("PanelRuc", b.PanelRuc);
    BarradeEstadoQVL1->setProperty("PanelNombre", b.PanelNombre);
    BarradeEstadoQVL1->setProperty("PanelPeriodo", b.PanelPeriodo);
    BarradeEstadoQVL1->setProperty("PanelFormulario", b.PanelFormulario);
}

void MDIFrm::moverSobreBarra(int x)
{
    QList<BotonBarra> medidas;
    for (QAction* a : std::as_const(botones_)) {
        const QWidget* w = tlbMenu->widgetForAction(a);
        medidas << (w ? BotonBarra{w->x(), w->width()} : BotonBarra{-1, -1});
    }
    if (barraLimpiaNombre(x, medidas) && !barraEstado().PanelNombre.isEmpty())
        limpiarPanelNombre();
}

bool MDIFrm::eventFilter(QObject* objeto, QEvent* e)
{
    if (e->type() == QEvent::MouseMove) {
        auto* w = qobject_cast<QWidget*>(objeto);
        const QPoint punto = static_cast<QMouseEvent*>(e)->position().toPoint();
        if (w == tlbMenu || (w && w->parentWidget() == tlbMenu)) {
            moverSobreBarra(w == tlbMenu ? punto.x() : w->mapTo(tlbMenu, punto).x());
        } else if ((w == Picture2 || w == imgFondo) && !barraEstado().PanelNombre.isEmpty()) {
            limpiarPanelNombre();
        }
    }
    return QMainWindow::eventFilter(objeto, e);
}

void MDIFrm::mouseMoveEvent(QMouseEvent* e)
{
    // Only a move over the window's own surface: moves that children pass up don't count.
    if (!childAt(e->position().toPoint()) && !barraEstado().PanelNombre.isEmpty())
        limpiarPanelNombre();
    QMainWindow::mouseMoveEvent(e);
}

void MDIFrm::changeEvent(QEvent* e)
{
    QMainWindow::changeEvent(e);
    // Each activation puts the window back in place, so it is never moved or resized for long.
    if (e->type() == QEvent::ActivationChange && isActiveWindow() && !cerrando_) {
        setWindowState(Qt::WindowNoState);
        ponerGeometria(-60, -60, 9615, 7215);
    }
}

void MDIFrm::closeEvent(QCloseEvent* e)
{
    // Unloading the main window ends the process.
    cerrando_ = true;
    e->accept();
    QCoreApplication::quit();
}
