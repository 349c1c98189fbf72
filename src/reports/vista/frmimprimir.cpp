#include "reports/vista/frmimprimir.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "reports/previa.h"
#include "reports/vista/frmimpxpag.h"
#include "reports/vista/frmpreview.h"
#include "shell/vista/puntero.h"
#include "shell/vista/ventanas.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
int px(int twips) { return qRound(twips / 15.0); }
}

frmImprimir::frmImprimir(QWidget* padre) : QDialog(padre)
{
    setObjectName(QStringLiteral("frmImprimir"));

    Frame2 = new QGroupBox(this);
    grdContrib = new QTableWidget(this);
    grdContrib->setObjectName(QStringLiteral("grdContrib"));
    grdContrib->setColumnCount(ModeloImprimir::kColumnas);
    grdContrib->setHorizontalHeaderLabels(ModeloImprimir::titulosColumnas());
    grdContrib->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdContrib->setSelectionMode(QAbstractItemView::SingleSelection);
    grdContrib->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdContrib->verticalHeader()->setDefaultSectionSize(px(240));
    grdContrib->installEventFilter(this);
    auto* marcoGrilla = new QVBoxLayout(Frame2);
    marcoGrilla->addWidget(grdContrib);

    auto* Frame1 = new QGroupBox(QStringLiteral("Opciones"), this);
    auto* opciones = new QVBoxLayout(Frame1);
    const QString textosOpt[3] = {QStringLiteral("Declaración"), QStringLiteral("Anexos"),
                                  QStringLiteral("Declaración y anexos")};
    for (int i = 0; i < 3; ++i) {
        OptImp[i] = new QRadioButton(textosOpt[i], Frame1);
        opciones->addWidget(OptImp[i]);
        connect(OptImp[i], &QRadioButton::clicked, this, [this, i] {
            modelo_.OptImp_Click(i);
            refrescar();
        });
    }

    auto* Frame3 = new QGroupBox(QStringLiteral("Anexos"), this);
    auto* anexos = new QVBoxLayout(Frame3);
    const QString textosChk[ModeloImprimir::kAnexos] = {QStringLiteral("Apéndice III"), QStringLiteral("Apéndice IV al valor"),
                                                        QStringLiteral("Apéndice IV específico"), QStringLiteral("Anexos")};
    for (int i = 0; i < ModeloImprimir::kAnexos; ++i) {
        ChkAnexos[i] = new QCheckBox(textosChk[i], Frame3);
        anexos->addWidget(ChkAnexos[i]);
        connect(ChkAnexos[i], &QCheckBox::toggled, this, [this, i](bool v) { modelo_.ChkAnexos[i] = v; });
    }

    const QString textosCmd[3] = {QStringLiteral("&Preliminar"), QStringLiteral("&Imprimir"), QStringLiteral("&Salir")};
    auto* botones = new QVBoxLayout;
    for (int i = 0; i < 3; ++i) {
        CmdImprimir[i] = new QPushButton(textosCmd[i], this);
        CmdImprimir[i]->setObjectName(QStringLiteral("CmdImprimir%1").arg(i));
        CmdImprimir[i]->setAutoDefault(false);
        botones->addWidget(CmdImprimir[i]);
        connect(CmdImprimir[i], &QPushButton::clicked, this, [this, i] { pulsar(i); });
    }
    botones->addStretch();

    auto* lado = new QVBoxLayout;
    lado->addWidget(Frame1);
    lado->addWidget(Frame3);
    lado->addLayout(botones);
    auto* principal = new QHBoxLayout(this);
    principal->addWidget(Frame2, 1);
    principal->addLayout(lado);

    connect(grdContrib, &QTableWidget::cellDoubleClicked, this, [this] { pulsar(0); });
    connect(grdContrib, &QTableWidget::currentCellChanged, this, [this](int fila) { modelo_.grdContrib_RowColChange(fila); });

    // The dialogs this window opens: the page range over it, the preview over the range.
    instalarAbridorImpxPag([this](const QString& titulo, qint16 paginas, const QString& archivo) {
        fijarPunteroEspera(false);
        frmImpxPag rango(titulo, paginas, archivo, this);
        rango.exec();
    });
    instalarAbridorPrevia([](const QString& archivo) {
        QWidget* padre = QApplication::activeModalWidget();
        abrirPrevia(archivo, padre ? padre : ventanaPrincipal());
    });

    modelo_.Form_Load();
    setWindowTitle(modelo_.Caption);
    Frame2->setTitle(modelo_.Frame2);
    llenarGrilla();
    refrescar();
}

frmImprimir::~frmImprimir()
{
    instalarAbridorImpxPag({});
}

void frmImprimir::llenarGrilla()
{
    const QSignalBlocker bloqueo(grdContrib);
    grdContrib->setRowCount(int(modelo_.filas.size()));
    for (int f = 0; f < modelo_.filas.size(); ++f)
        for (int c = 0; c < ModeloImprimir::kColumnas; ++c)
            grdContrib->setItem(f, c, new QTableWidgetItem(modelo_.filas[f].value(c)));
    for (int c = 0; c < ModeloImprimir::kColumnas; ++c) {
        grdContrib->setColumnHidden(c, !modelo_.columnaVisible[c]);
        if (modelo_.anchoColumna[c] > 0)
            grdContrib->setColumnWidth(c, px(modelo_.anchoColumna[c]));
    }
    if (modelo_.anchoGrilla > 0)
        grdContrib->setMinimumWidth(px(modelo_.anchoGrilla));
    else
        grdContrib->setMinimumWidth(px(10500));
    grdContrib->setEnabled(modelo_.grdContribHabilitada);
    if (modelo_.filaActual >= 0)
        grdContrib->setCurrentCell(modelo_.filaActual, 0);
}

void frmImprimir::refrescar()
{
    for (int i = 0; i < 3; ++i)
        OptImp[i]->setChecked(modelo_.OptImp == i);
    for (int i = 0; i < ModeloImprimir::kAnexos; ++i) {
        const QSignalBlocker bloqueo(ChkAnexos[i]);
        if (i < 3)   // the box "Anexos" stays enabled whatever the option
            ChkAnexos[i]->setEnabled(modelo_.ChkAnexosHabilitados);
        ChkAnexos[i]->setChecked(modelo_.ChkAnexos[i]);
    }
}

void frmImprimir::pulsar(int indice)
{
    if (indice != 2)
        fijarPunteroEspera(true);
    modelo_.CmdImprimir_Click(indice);
    fijarPunteroEspera(false);
    if (modelo_.descargar) {
        accept();
        return;
    }
    if (modelo_.filaActual >= 0 && modelo_.filaActual < grdContrib->rowCount()) {
        const QSignalBlocker bloqueo(grdContrib);
        grdContrib->setCurrentCell(modelo_.filaActual, 0);
    }
}

void frmImprimir::changeEvent(QEvent* e)
{
    if (e->type() == QEvent::ActivationChange && isActiveWindow())
        modelo_.Form_Activate();
    QDialog::changeEvent(e);
}

void frmImprimir::done(int resultado)
{
    if (!descargado_) {
        descargado_ = true;
        modelo_.Form_Unload();
    }
    QDialog::done(resultado);
}

bool frmImprimir::eventFilter(QObject* objeto, QEvent* e)
{
    if (objeto == grdContrib && e->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(e)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            pulsar(0);
            return true;
        }
    }
    return QDialog::eventFilter(objeto, e);
}

void pAbreImprimir(qint16)
{
    frmImprimir ventana(ventanaPrincipal());
    ventana.exec();
}
