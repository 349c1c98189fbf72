#include "reports/vista/frmpreview.h"

#include "reports/reproduccion.h"
#include "reports/vista/impresion.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QScreen>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

constexpr int kZoomMinimo = 50;
constexpr int kZoomMaximo = 200;

QAction* accionConTeclas(QWidget* dueno, const QList<QKeySequence>& teclas)
{
    auto* a = new QAction(dueno);
    a->setShortcuts(teclas);
    a->setShortcutContext(Qt::WindowShortcut);
    dueno->addAction(a);
    return a;
}

} // namespace

const QList<int>& frmPreview::pasosZoom()
{
    static const QList<int> pasos{50, 75, 100, 125, 150, 175, 200};
    return pasos;
}

frmPreview::frmPreview(const QString& archivo, QWidget* padre)
    : QDialog(padre, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint
                         | Qt::WindowCloseButtonHint),
      hoja_(QPrinter::HighResolution)
{
    setObjectName(QStringLiteral("frmPreview"));
    setWindowTitle(QStringLiteral("Presentación Preliminar"));
    setSizeGripEnabled(true);

    tlbPrevia_ = new QToolBar(this);
    tlbPrevia_->setObjectName(QStringLiteral("tlbPrevia"));
    tlbPrevia_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tlbPrevia_->addSeparator();   // button 1
    const QStyle* estilo = style();
    const struct {
        const char* nombre;
        QStyle::StandardPixmap icono;
    } botones[4] = {{"Pag Anterior", QStyle::SP_ArrowBack},
                    {"Pag Sgt", QStyle::SP_ArrowForward},
                    {"Imprimir", QStyle::SP_FileIcon},
                    {"Salir", QStyle::SP_DialogCloseButton}};
    for (int i = 0; i < 4; ++i) {
        const QString nombre = QString::fromUtf8(botones[i].nombre);
        const QIcon icono = i == 2 ? QIcon::fromTheme(QStringLiteral("document-print"), estilo->standardIcon(botones[i].icono))
                                   : estilo->standardIcon(botones[i].icono);
        QAction* a = tlbPrevia_->addAction(icono, nombre);
        a->setToolTip(nombre);
        connect(a, &QAction::triggered, this, [this, i] { pulsar(i + 2); });
        botones_[i] = a;
    }
    tlbPrevia_->addSeparator();
    accionPdf_ = tlbPrevia_->addAction(estilo->standardIcon(QStyle::SP_DialogSaveButton), QStringLiteral("Guardar PDF"));
    accionPdf_->setToolTip(QStringLiteral("Guardar PDF"));
    connect(accionPdf_, &QAction::triggered, this, &frmPreview::guardarComoPdf);

    // Under the sheets: the page on view on the left, the zoom on the right.
    accionAncho_ = new QAction(QStringLiteral("Ajustar al ancho"), this);
    accionPagina_ = new QAction(QStringLiteral("Página completa"), this);
    // The two fits are one choice: pressing the fit in force keeps it; a zoom of the box or the
    // keys leaves neither.
    auto* ajustes = new QActionGroup(this);
    ajustes->setExclusionPolicy(QActionGroup::ExclusionPolicy::Exclusive);
    auto* pie = new QHBoxLayout;
    pie->setContentsMargins(4, 2, 4, 0);
    lblPagina_ = new QLabel(this);
    lblPagina_->setObjectName(QStringLiteral("lblPagina"));
    pie->addWidget(lblPagina_);
    pie->addStretch(1);
    for (QAction* a : {accionAncho_, accionPagina_}) {
        a->setToolTip(a->text());
        a->setCheckable(true);
        ajustes->addAction(a);
        auto* b = new QToolButton(this);
        b->setDefaultAction(a);
        b->setFocusPolicy(Qt::NoFocus);
        pie->addWidget(b);
    }
    cboZoom_ = new QComboBox(this);
    cboZoom_->setObjectName(QStringLiteral("cboZoom"));
    cboZoom_->setToolTip(QStringLiteral("Zoom"));
    cboZoom_->setFocusPolicy(Qt::ClickFocus);
    for (int paso : pasosZoom())
        cboZoom_->addItem(QString::number(paso) + QLatin1Char('%'), paso);
    cboZoom_->setMinimumContentsLength(5);
    pie->addWidget(cboZoom_);

    // The sheets are the PDF's paper, so what the screen shows is what the file holds.
    preparaPapel(hoja_);
    hoja_.setDocName(QStringLiteral("Formulario 931"));
    previa_ = new QPrintPreviewWidget(&hoja_, this);
    previa_->setObjectName(QStringLiteral("picFondo"));
    previa_->setViewMode(QPrintPreviewWidget::SinglePageView);
    previa_->setFocusPolicy(Qt::StrongFocus);
    connect(previa_, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* impresora) { imprimeDocumento(*impresora, modelo_.documento(), true); });
    connect(previa_, &QPrintPreviewWidget::previewChanged, this, [this] {
        // The user scrolled to another sheet, or the zoom changed.
        if (!refrescando_ && previa_->pageCount() > 0 && previa_->currentPage() - 1 != modelo_.nHojaActual) {
            modelo_.pIrA(qint16(previa_->currentPage() - 1));
            refrescar();
        }
        mostrarZoom();
    });
    if (auto* vista = previa_->findChild<QGraphicsView*>())
        vista->viewport()->installEventFilter(this);

    connect(accionAncho_, &QAction::triggered, this, [this] {
        previa_->fitToWidth();
        mostrarZoom();
    });
    connect(accionPagina_, &QAction::triggered, this, [this] {
        previa_->fitInView();
        mostrarZoom();
    });
    connect(cboZoom_, &QComboBox::activated, this, [this](int i) { fijarZoom(cboZoom_->itemData(i).toInt()); });

    // The keys of the sheets and of the zoom, wherever the focus is in the window.
    connect(accionConTeclas(this, {QKeySequence(Qt::Key_PageUp)}), &QAction::triggered, this, [this] { pulsar(2); });
    connect(accionConTeclas(this, {QKeySequence(Qt::Key_PageDown)}), &QAction::triggered, this, [this] { pulsar(3); });
    connect(accionConTeclas(this, {QKeySequence(Qt::Key_Home)}), &QAction::triggered, this, [this] { irA(0); });
    connect(accionConTeclas(this, {QKeySequence(Qt::Key_End)}), &QAction::triggered, this,
            [this] { irA(qint16(modelo_.nTotHojas - 1)); });
    connect(accionConTeclas(this, {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)}), &QAction::triggered,
            this, [this] { pasoZoom(1); });
    connect(accionConTeclas(this, {QKeySequence::ZoomOut}), &QAction::triggered, this, [this] { pasoZoom(-1); });

    auto* principal = new QVBoxLayout(this);
    principal->setContentsMargins(4, 0, 4, 4);
    principal->addWidget(tlbPrevia_);
    principal->addWidget(previa_, 1);
    principal->addLayout(pie);

    if (const QScreen* pantalla = QGuiApplication::primaryScreen()) {
        const QSize libre = pantalla->availableSize();
        resize(qMin(900, libre.width() * 9 / 10), qMin(760, libre.height() * 9 / 10));
    } else {
        resize(900, 760);
    }

    modelo_.Archivo = archivo;
    modelo_.Form_Load();
    if (!modelo_.descargar) {
        previa_->updatePreview();
        previa_->fitToWidth();
    }
    refrescar();
    previa_->setFocus();
}

QAction* frmPreview::boton(int indice) const
{
    return indice >= 2 && indice <= 5 ? botones_[indice - 2] : nullptr;
}

int frmPreview::zoom() const { return qRound(previa_->zoomFactor() * 100); }

void frmPreview::pulsar(int indice)
{
    if (indice == 4)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    modelo_.tlbPrevia_ButtonClick(indice);
    if (indice == 4)
        QApplication::restoreOverrideCursor();
    refrescar();
    if (modelo_.descargar)
        reject();
}

void frmPreview::irA(qint16 hoja)
{
    modelo_.pIrA(hoja);
    refrescar();
}

void frmPreview::refrescar()
{
    refrescando_ = true;
    if (previa_->pageCount() > 0 && previa_->currentPage() != modelo_.nHojaActual + 1)
        previa_->setCurrentPage(modelo_.nHojaActual + 1);
    refrescando_ = false;
    lblPagina_->setText(QStringLiteral("Página %1 de %2").arg(modelo_.nHojaActual + 1).arg(modelo_.nTotHojas));
    // No previous page on the first, no next on the last: a report of one page has neither.
    botones_[0]->setEnabled(modelo_.hayAnterior());
    botones_[1]->setEnabled(modelo_.haySiguiente());
    mostrarZoom();
}

void frmPreview::fijarZoom(int porCiento)
{
    previa_->setZoomMode(QPrintPreviewWidget::CustomZoom);
    previa_->setZoomFactor(qBound(kZoomMinimo, porCiento, kZoomMaximo) / 100.0);
    // Zooming keeps the sheet on view.
    refrescando_ = true;
    previa_->setCurrentPage(modelo_.nHojaActual + 1);
    refrescando_ = false;
    mostrarZoom();
}

// The next step of the zoom above (1) or below (-1) the zoom on view, within 50 and 200.
void frmPreview::pasoZoom(int sentido)
{
    const int actual = zoom();
    int destino = sentido > 0 ? kZoomMaximo : kZoomMinimo;
    if (sentido > 0) {
        for (int paso : pasosZoom())
            if (paso > actual) {
                destino = paso;
                break;
            }
    } else {
        for (auto it = pasosZoom().crbegin(); it != pasosZoom().crend(); ++it)
            if (*it < actual) {
                destino = *it;
                break;
            }
    }
    fijarZoom(destino);
}

void frmPreview::mostrarZoom()
{
    const QPrintPreviewWidget::ZoomMode modo = previa_->zoomMode();
    accionAncho_->setChecked(modo == QPrintPreviewWidget::FitToWidth);
    accionPagina_->setChecked(modo == QPrintPreviewWidget::FitInView);
    const QSignalBlocker bloqueo(cboZoom_);
    const int indice = cboZoom_->findData(zoom());
    cboZoom_->setCurrentIndex(indice);
    cboZoom_->setPlaceholderText(QString::number(zoom()) + QLatin1Char('%'));
}

void frmPreview::guardarComoPdf()
{
    guardaPdfConDialogo(modelo_.documento(), QStringLiteral("Guardar PDF"), this);
}

bool frmPreview::eventFilter(QObject* objeto, QEvent* e)
{
    if (e->type() == QEvent::Wheel) {
        auto* rueda = static_cast<QWheelEvent*>(e);
        if (rueda->modifiers() & Qt::ControlModifier) {
            const int giro = rueda->angleDelta().y();
            if (giro != 0)
                pasoZoom(giro > 0 ? 1 : -1);
            return true;
        }
    }
    return QDialog::eventFilter(objeto, e);
}

void abrirPrevia(const QString& archivo, QWidget* padre)
{
    frmPreview ventana(archivo, padre);
    if (ventana.modelo().descargar)
        return;
    ventana.exec();
}
