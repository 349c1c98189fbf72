#include "dialogs/vista/frmconsultas.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "shell/vista/puntero.h"
#include "shell/vista/ventanas.h"

#include <QEvent>
#include <QFont>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr Qt::WindowFlags kMarco =
    Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint;

// Runs a lookup's load under the hourglass; a catalogue that can't be read is told with the
// error's text and number, and the window isn't shown.
template <typename Modelo>
bool cargar(Modelo& modelo)
{
    fijarPunteroEspera(true);
    try {
        modelo.Form_Load();
    } catch (const ErrorVB& e) {
        fijarPunteroEspera(false);
        MsgBox(e.descripcion + QStringLiteral("\n") + Str(e.numero), vbCritical, QStringLiteral("Error"));
        return false;
    }
    fijarPunteroEspera(false);
    return true;
}

// One instance at a time: any earlier one goes before the new one is shown.
template <typename Vista, typename... Args>
void mostrarUnica(QPointer<Vista>& instancia, Args&&... args)
{
    delete instancia;
    instancia = new Vista(std::forward<Args>(args)..., ventanaPrincipal());
    instancia->exec();
    delete instancia;
}

}  // namespace

void DialogoConsulta::showEvent(QShowEvent* e)
{
    if (QWidget* p = parentWidget() ? parentWidget()->window() : nullptr) {
        const QRect r = p->frameGeometry();
        move(r.center() - QPoint(width() / 2, height() / 2));
    }
    QDialog::showEvent(e);
}

DialogoGrilla::DialogoGrilla(const QString& caption, const QStringList& columnas,
                             const QVector<FilaConsulta>& filas, bool habilitada, QWidget* padre)
    : DialogoConsulta(padre)
{
    setWindowTitle(caption);
    setWindowFlags(kMarco);

    datos_ = new QStandardItemModel(filas.size(), 2, this);
    datos_->setHorizontalHeaderLabels(columnas);
    for (int i = 0; i < filas.size(); ++i) {
        datos_->setItem(i, 0, new QStandardItem(filas[i].codigo));
        datos_->setItem(i, 1, new QStandardItem(filas[i].descrip));
    }

    grdBancos = new QTableView(this);
    grdBancos->setObjectName(QStringLiteral("grdBancos"));
    grdBancos->setModel(datos_);
    grdBancos->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdBancos->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdBancos->setSelectionMode(QAbstractItemView::SingleSelection);
    grdBancos->verticalHeader()->hide();
    grdBancos->horizontalHeader()->setStretchLastSection(true);
    grdBancos->resizeColumnToContents(0);
    if (!filas.isEmpty())
        grdBancos->setCurrentIndex(datos_->index(0, 0));
    grdBancos->setEnabled(habilitada);

    CmdSalir = new QPushButton(QStringLiteral("&Salir"), this);
    CmdSalir->setObjectName(QStringLiteral("CmdSalir"));
    connect(CmdSalir, &QPushButton::clicked, this, &QDialog::accept);

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(CmdSalir);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(grdBancos, 1);
    todo->addLayout(botones);
}

bool DialogoGrilla::event(QEvent* e)
{
    const bool r = DialogoConsulta::event(e);
    if (e->type() == QEvent::WindowActivate && grdBancos->isEnabled())
        grdBancos->setFocus(Qt::ActiveWindowFocusReason);
    return r;
}

VistaFrmConsFac::VistaFrmConsFac(const FrmConsFac& modelo, QWidget* padre)
    : DialogoGrilla(modelo.Caption, modelo.columnas, modelo.filas, modelo.grdBancosEnabled, padre)
{
    setObjectName(QStringLiteral("FrmConsFac"));
    for (int i = 0; i < grdBancos->model()->rowCount(); ++i)
        grdBancos->model()->setData(grdBancos->model()->index(i, 1), int(Qt::AlignRight | Qt::AlignVCenter),
                                    Qt::TextAlignmentRole);
    lblVacio = new QLabel(modelo.lblVacio, this);
    lblVacio->setObjectName(QStringLiteral("lblVacio"));
    lblVacio->setAlignment(Qt::AlignCenter);
    lblVacio->setWordWrap(true);
    lblVacio->setVisible(!modelo.lblVacio.isEmpty());
    grdBancos->setVisible(modelo.lblVacio.isEmpty());
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, lblVacio, 1);
    setFixedSize(326, 314);
}

VistaFrmConsultas::VistaFrmConsultas(const FrmConsultas& modelo, QWidget* padre)
    : DialogoGrilla(modelo.Caption, modelo.columnas, modelo.filas, modelo.grdBancosEnabled, padre)
{
    setObjectName(QStringLiteral("FrmConsultas"));
    setFixedSize(471, 276);
}

VistaFrmConsTasas::VistaFrmConsTasas(QWidget* padre) : DialogoConsulta(padre)
{
    const FrmConsTasas modelo;
    setObjectName(QStringLiteral("FrmConsTasas"));
    setWindowTitle(modelo.Caption);
    setWindowFlags(kMarco);

    auto* tabla = new QGridLayout;
    for (int c = 0; c < modelo.titulos.size(); ++c) {
        auto* t = new QLabel(modelo.titulos[c], this);
        QFont negrita = t->font();
        negrita.setBold(true);
        t->setFont(negrita);
        tabla->addWidget(t, 0, c);
    }
    const auto& tasas = FrmConsTasas::tasas();
    for (int i = 0; i < tasas.size(); ++i) {
        const QString textos[2] = {tasas[i].codigo, tasas[i].descrip};
        for (int c = 0; c < 2; ++c) {
            auto* l = new QLabel(textos[c], this);
            l->setObjectName(QStringLiteral("lblTasas_%1").arg(lblTasas.size()));
            l->setTextFormat(Qt::PlainText);
            tabla->addWidget(l, i + 1, c);
            lblTasas.append(l);
        }
    }
    tabla->setColumnStretch(0, 1);

    Command1 = new QPushButton(modelo.Command1Caption, this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, [this] {
        fijarPunteroEspera(true);
        accept();
    });

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(tabla);
    todo->addStretch();
    todo->addLayout(botones);
    setFixedSize(467, 263);
    fijarPunteroEspera(false);
}

void VistaFrmConsTasas::done(int resultado)
{
    QDialog::done(resultado);
    fijarPunteroEspera(false);
}

void abrirFrmConsFac()
{
    static QPointer<VistaFrmConsFac> instancia;
    FrmConsFac modelo;
    if (cargar(modelo))
        mostrarUnica(instancia, modelo);
}

void abrirFrmConsultas()
{
    static QPointer<VistaFrmConsultas> instancia;
    FrmConsultas modelo;
    if (cargar(modelo))
        mostrarUnica(instancia, modelo);
}

void abrirFrmConsTasas()
{
    static QPointer<VistaFrmConsTasas> instancia;
    mostrarUnica(instancia);
}
