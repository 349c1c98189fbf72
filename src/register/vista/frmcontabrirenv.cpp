#include "register/vista/frmcontabrirenv.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "shell/vista/ventanas.h"

namespace {

constexpr int kTwipsPorPixel = 15;

}  // namespace

FrmContAbrirEnvVista::FrmContAbrirEnvVista(QWidget* padre)
    : QDialog(padre)
{
    setObjectName(QStringLiteral("FrmContAbrirEnv"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);

    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Label1 = new QLabel(Frame1);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);

    const QStringList& columnas = FrmContAbrirEnv::columnas();
    grdContrib = new QTableWidget(0, static_cast<int>(columnas.size()), Frame1);
    grdContrib->setObjectName(QStringLiteral("grdContrib"));
    grdContrib->setHorizontalHeaderLabels(columnas);
    grdContrib->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdContrib->setSelectionMode(QAbstractItemView::SingleSelection);
    grdContrib->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdContrib->verticalHeader()->setVisible(false);
    grdContrib->horizontalHeader()->setStretchLastSection(true);
    const int anchos[] = {95, 230, 60, 70, 90, 80, 70, 50};
    for (int c = 0; c < 8; ++c)
        grdContrib->setColumnWidth(c, anchos[c]);

    auto* marco = new QVBoxLayout(Frame1);
    marco->addWidget(Label1);
    marco->addWidget(grdContrib);

    for (int i = 0; i < 2; ++i) {
        CmdOpciones[i] = new QPushButton(this);
        CmdOpciones[i]->setObjectName(QStringLiteral("CmdOpciones(%1)").arg(i));
        CmdOpciones[i]->setAutoDefault(false);
        connect(CmdOpciones[i], &QPushButton::clicked, this, [this, i] { ejecutar([this, i] { m_.CmdOpciones_Click(i); }); });
    }
    CmdOpciones[0]->setDefault(true);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(CmdOpciones[0]);
    botones->addWidget(CmdOpciones[1]);

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Frame1);
    todo->addLayout(botones);

    connect(grdContrib, &QTableWidget::cellDoubleClicked, this,
            [this](int, int) { ejecutar([this] { m_.grdContrib_DblClick(); }); });
    connect(grdContrib, &QTableWidget::currentCellChanged, this, [this](int fila, int, int, int) {
        if (refrescando_ == 0 && fila >= 0)
            ejecutar([this, fila] { m_.grdContrib_RowColChange(fila); });
    });

    m_.cerrar = [this] { done(QDialog::Accepted); };
    resize(9195 / kTwipsPorPixel, 4530 / kTwipsPorPixel);
    m_.Form_Load();
    refrescar();
}

void FrmContAbrirEnvVista::ejecutar(const std::function<void()>& evento)
{
    evento();
    refrescar();
}

void FrmContAbrirEnvVista::refrescar()
{
    ++refrescando_;
    setWindowTitle(m_.Caption);
    Frame1->setTitle(m_.Frame1);
    Label1->setText(m_.Label1);
    for (int i = 0; i < 2; ++i)
        CmdOpciones[i]->setText(m_.CmdOpciones[i]);
    grdContrib->setColumnHidden(7, m_.correlOculta);
    grdContrib->setEnabled(m_.habilitada || !m_.filas.isEmpty());
    const auto& filas = m_.filas;
    if (filas != mostradas_) {
        grdContrib->setRowCount(static_cast<int>(filas.size()));
        for (int r = 0; r < filas.size(); ++r)
            for (int c = 0; c < 8; ++c)
                grdContrib->setItem(r, c, new QTableWidgetItem(filas.at(r).columna(c)));
        mostradas_ = filas;
    }
    if (m_.fila >= 0 && m_.fila < grdContrib->rowCount()) {
        if (grdContrib->currentRow() != m_.fila)
            grdContrib->setCurrentCell(m_.fila, 0);
    } else {
        grdContrib->setCurrentCell(-1, -1);
    }
    --refrescando_;
}

bool FrmContAbrirEnvVista::event(QEvent* e)
{
    // Every activation reloads the list: the declaration form may have changed it.
    if (e->type() == QEvent::WindowActivate && isVisible())
        ejecutar([this] { m_.Form_Activate(); });
    return QDialog::event(e);
}

void FrmContAbrirEnvVista::showEvent(QShowEvent* e)
{
    m_.visible = true;
    ejecutar([this] { m_.Form_Activate(); });
    if (grdContrib->isEnabled())
        grdContrib->setFocus();
    QDialog::showEvent(e);
}

void FrmContAbrirEnvVista::hideEvent(QHideEvent* e)
{
    m_.visible = false;
    QDialog::hideEvent(e);
}

void abrirFrmContAbrirEnv()
{
    static QPointer<FrmContAbrirEnvVista> instancia;
    delete instancia;
    instancia = new FrmContAbrirEnvVista(ventanaPrincipal());
    instancia->exec();
    delete instancia;
}
