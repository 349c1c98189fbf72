#include "reports/vista/frmpreview.h"

#include "basic/msgbox.h"
#include "reports/reproduccion.h"
#include "shell/globales.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFileDialog>
#include <QGridLayout>
#include <QIcon>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

namespace {
constexpr double kTwipsPorPixel = 15.0;
int px(int twips) { return qRound(twips / kTwipsPorPixel); }
}

LienzoPrevia::LienzoPrevia(const ModeloPrevia& modelo, QWidget* padre) : QWidget(padre), modelo_(modelo)
{
    setObjectName(QStringLiteral("picFondo"));
    setFixedSize(sizeHint());
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize LienzoPrevia::sizeHint() const { return QSize(px(ModeloPrevia::kAnchoMarco), px(ModeloPrevia::kAltoMarco)); }

void LienzoPrevia::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    const int i = modelo_.elementoVisible();
    if (i < 0)
        return;
    const ModeloPrevia::Elemento& e = modelo_.picPrevia[i];
    p.scale(1.0 / kTwipsPorPixel, 1.0 / kTwipsPorPixel);
    p.translate(e.left, e.top);
    p.fillRect(QRect(0, 0, ModeloPrevia::kLadoPagina, ModeloPrevia::kLadoPagina), colorRuntime(e.pagina.colorFondo));
    dibujaPagina(p, e.pagina, false);
}

frmPreview::frmPreview(const QString& archivo, QWidget* padre) : QDialog(padre)
{
    setObjectName(QStringLiteral("frmPreview"));
    setWindowTitle(QStringLiteral("Presentación Preliminar"));

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
    connect(accionPdf_, &QAction::triggered, this, [this] {
        const QString ruta = QFileDialog::getSaveFileName(this, QStringLiteral("Guardar PDF"),
                                                          QDir::home().filePath(QFileInfo(modelo_.Archivo).completeBaseName()
                                                                                + QStringLiteral(".pdf")),
                                                          QStringLiteral("PDF (*.pdf)"));
        if (!ruta.isEmpty() && !guardarComo(ruta))
            MsgBox(QStringLiteral("No se pudo grabar el archivo ") + ruta, vbCritical, QStringLiteral("Guardar PDF"));
    });

    lienzo_ = new LienzoPrevia(modelo_, this);
    const int pasos[2] = {ModeloPrevia::kPasoVertical0, ModeloPrevia::kPasoVertical1};
    for (int i = 0; i < 2; ++i) {
        vsb_[i] = new QScrollBar(Qt::Vertical, this);
        vsb_[i]->setObjectName(QStringLiteral("vsbPic%1").arg(i));
        vsb_[i]->setRange(0, ModeloPrevia::kMaxVertical);
        vsb_[i]->setSingleStep(pasos[i]);
        vsb_[i]->setPageStep(pasos[i]);
        connect(vsb_[i], &QScrollBar::valueChanged, this, [this, i](int v) {
            if (refrescando_)
                return;
            modelo_.setVsbPic(i, v);
            refrescar();
        });
    }
    hsb_ = new QScrollBar(Qt::Horizontal, this);
    hsb_->setObjectName(QStringLiteral("HScroll1"));
    hsb_->setRange(0, ModeloPrevia::kMaxHorizontal);
    hsb_->setSingleStep(ModeloPrevia::kPasoHorizontal);
    hsb_->setPageStep(ModeloPrevia::kPasoHorizontal);
    connect(hsb_, &QScrollBar::valueChanged, this, [this](int v) {
        if (refrescando_)
            return;
        modelo_.setHScroll1(v);
        refrescar();
    });

    auto* rejilla = new QGridLayout;
    rejilla->setSpacing(0);
    rejilla->addWidget(vsb_[1], 0, 0);
    rejilla->addWidget(lienzo_, 0, 1);
    rejilla->addWidget(vsb_[0], 0, 2);
    rejilla->addWidget(hsb_, 1, 1);
    auto* principal = new QVBoxLayout(this);
    principal->setContentsMargins(4, 0, 4, 4);
    principal->addWidget(tlbPrevia_);
    principal->addLayout(rejilla);
    principal->setSizeConstraint(QLayout::SetFixedSize);

    modelo_.Archivo = archivo;
    modelo_.Form_Load();
    refrescar();
}

QAction* frmPreview::boton(int indice) const
{
    return indice >= 2 && indice <= 5 ? botones_[indice - 2] : nullptr;
}

bool frmPreview::guardarComo(const QString& ruta) { return modelo_.guardarPdf(ruta); }

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

void frmPreview::refrescar()
{
    refrescando_ = true;
    vsb_[0]->setValue(modelo_.vsbPic[0]);
    vsb_[1]->setValue(modelo_.vsbPic[1]);
    hsb_->setValue(modelo_.HScroll1);
    refrescando_ = false;
    lienzo_->update();
}

void abrirPrevia(const QString& archivo, QWidget* padre)
{
    frmPreview ventana(archivo, padre);
    if (ventana.modelo().descargar)
        return;
    ventana.exec();
}
