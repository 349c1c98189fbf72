#include "register/vista/selectorvista.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr int kTwipsPorPixel = 15;

}  // namespace

SelectorVista::SelectorVista(const QString& nombre, const QStringList& columnas, const QVector<int>& anchos, int ancho,
                             int alto, QWidget* padre)
    : QDialog(padre)
{
    setObjectName(nombre);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);

    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Label1 = new QLabel(Frame1);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);

    grdContrib = new QTableWidget(0, static_cast<int>(columnas.size()), Frame1);
    grdContrib->setObjectName(QStringLiteral("grdContrib"));
    grdContrib->setHorizontalHeaderLabels(columnas);
    grdContrib->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdContrib->setSelectionMode(QAbstractItemView::SingleSelection);
    grdContrib->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdContrib->verticalHeader()->setVisible(false);
    grdContrib->horizontalHeader()->setStretchLastSection(true);
    for (int c = 0; c < anchos.size(); ++c)
        grdContrib->setColumnWidth(c, anchos.at(c));

    auto* marco = new QVBoxLayout(Frame1);
    marco->addWidget(Label1);
    marco->addWidget(grdContrib);

    for (int i = 0; i < 2; ++i) {
        CmdOpciones[i] = new QPushButton(this);
        CmdOpciones[i]->setObjectName(QStringLiteral("CmdOpciones(%1)").arg(i));
        CmdOpciones[i]->setAutoDefault(false);
        connect(CmdOpciones[i], &QPushButton::clicked, this, [this, i] { ejecutar([this, i] { opcion(i); }); });
    }
    CmdOpciones[0]->setDefault(true);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(CmdOpciones[0]);
    botones->addWidget(CmdOpciones[1]);

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Frame1);
    todo->addLayout(botones);

    connect(grdContrib, &QTableWidget::cellDoubleClicked, this, [this](int, int) { ejecutar([this] { dobleClic(); }); });
    connect(grdContrib, &QTableWidget::currentCellChanged, this, [this](int f, int, int, int) {
        if (refrescando_ == 0 && f >= 0)
            ejecutar([this, f] { cambioDeFila(f); });
    });
    resize(ancho / kTwipsPorPixel, alto / kTwipsPorPixel);
}

void SelectorVista::iniciar()
{
    cargar();
    refrescar();
}

void SelectorVista::ejecutar(const std::function<void()>& evento)
{
    evento();
    refrescar();
}

void SelectorVista::refrescar()
{
    ++refrescando_;
    const Textos t = textos();
    setWindowTitle(t.caption);
    Frame1->setTitle(t.marco);
    Label1->setText(t.etiqueta);
    for (int i = 0; i < 2; ++i)
        CmdOpciones[i]->setText(t.botones[i]);
    const QVector<QStringList> lista = filas();
    if (lista != mostradas_) {
        grdContrib->setRowCount(static_cast<int>(lista.size()));
        for (int r = 0; r < lista.size(); ++r)
            for (int c = 0; c < lista.at(r).size() && c < grdContrib->columnCount(); ++c)
                grdContrib->setItem(r, c, new QTableWidgetItem(lista.at(r).at(c)));
        mostradas_ = lista;
    }
    ajustarGrilla();
    const int actual = fila();
    if (actual >= 0 && actual < grdContrib->rowCount()) {
        if (grdContrib->currentRow() != actual)
            grdContrib->setCurrentCell(actual, 0);
    } else {
        grdContrib->setCurrentCell(-1, -1);
    }
    --refrescando_;
}

bool SelectorVista::event(QEvent* e)
{
    // Every activation reloads the list: the declaration form, or another program of the
    // family, may have changed it.
    if (e->type() == QEvent::WindowActivate && isVisible())
        ejecutar([this] { activar(); });
    return QDialog::event(e);
}

void SelectorVista::showEvent(QShowEvent* e)
{
    ponerVisible(true);
    ejecutar([this] { activar(); });
    if (grdContrib->isEnabled())
        grdContrib->setFocus();
    QDialog::showEvent(e);
}

void SelectorVista::hideEvent(QHideEvent* e)
{
    ponerVisible(false);
    QDialog::hideEvent(e);
}
