#include "register/vista/frmcontabrir.h"

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

FrmContAbrirVista::FrmContAbrirVista(qint16 nOpcion, QWidget* padre)
    : QDialog(padre), m_(nOpcion)
{
    setObjectName(QStringLiteral("FrmContAbrir"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);

    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Label1 = new QLabel(Frame1);
    Label1->setObjectName(QStringLiteral("Label1"));

    grdContrib = new QTableWidget(0, FrmContAbrir::columnas().size(), Frame1);
    grdContrib->setObjectName(QStringLiteral("grdContrib"));
    grdContrib->setHorizontalHeaderLabels(FrmContAbrir::columnas());
    grdContrib->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdContrib->setSelectionMode(QAbstractItemView::SingleSelection);
    grdContrib->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdContrib->verticalHeader()->setVisible(false);
    grdContrib->horizontalHeader()->setStretchLastSection(true);
    grdContrib->setColumnWidth(0, 100);
    grdContrib->setColumnWidth(1, 260);
    grdContrib->setColumnWidth(2, 70);

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
    resize(7755 / kTwipsPorPixel, 4530 / kTwipsPorPixel);
    m_.Form_Load();
    refrescar();
}

void FrmContAbrirVista::ejecutar(const std::function<void()>& evento)
{
    evento();
    refrescar();
}

void FrmContAbrirVista::refrescar()
{
    ++refrescando_;
    setWindowTitle(m_.Caption);
    Frame1->setTitle(m_.Frame1);
    Label1->setText(m_.Label1);
    for (int i = 0; i < 2; ++i)
        CmdOpciones[i]->setText(m_.CmdOpciones[i]);
    const auto& filas = m_.filas;
    bool iguales = filas.size() == mostradas_.size();
    for (qsizetype i = 0; iguales && i < filas.size(); ++i) {
        const FilaContAbrir& a = filas.at(i);
        const FilaContAbrir& b = mostradas_.at(i);
        iguales = a.ruc == b.ruc && a.nombre == b.nombre && a.periodo == b.periodo && a.formulario == b.formulario;
    }
    if (!iguales) {
        grdContrib->setRowCount(static_cast<int>(filas.size()));
        for (int r = 0; r < filas.size(); ++r) {
            const FilaContAbrir& f = filas.at(r);
            const QString textos[] = {f.ruc, f.nombre, f.periodo, f.formulario};
            for (int c = 0; c < 4; ++c)
                grdContrib->setItem(r, c, new QTableWidgetItem(textos[c]));
        }
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

bool FrmContAbrirVista::event(QEvent* e)
{
    // Every activation reloads the list: another program of the family may have changed it.
    if (e->type() == QEvent::WindowActivate && isVisible())
        ejecutar([this] { m_.Form_Activate(); });
    return QDialog::event(e);
}

void FrmContAbrirVista::showEvent(QShowEvent* e)
{
    m_.visible = true;
    ejecutar([this] { m_.Form_Activate(); });
    QDialog::showEvent(e);
}

void FrmContAbrirVista::hideEvent(QHideEvent* e)
{
    m_.visible = false;
    QDialog::hideEvent(e);
}

void abrirFrmContAbrir(qint16 nOpcion)
{
    static QPointer<FrmContAbrirVista> instancia;
    delete instancia;
    instancia = new FrmContAbrirVista(nOpcion, ventanaPrincipal());
    instancia->exec();
    delete instancia;
}
