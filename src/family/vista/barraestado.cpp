#include "family/vista/barraestado.h"

#include <QLabel>

BarradeEstadoQVL::BarradeEstadoQVL(QWidget* padre) : QStatusBar(padre)
{
    setSizeGripEnabled(false);
    ruc_ = panel("PanelRuc", QStringLiteral("RUC del contribuyente"), 110, 0);
    nombre_ = panel("PanelNombre", QStringLiteral("Nombre o razón social"), 0, 1);
    periodo_ = panel("PanelPeriodo", QStringLiteral("Periodo"), 70, 0);
    formulario_ = panel("PanelFormulario", QStringLiteral("Formulario"), 50, 0);
    setModo(0);
}

QLabel* BarradeEstadoQVL::panel(const char* nombre, const QString& ayuda, int ancho, int estiramiento)
{
    auto* l = new QLabel(this);
    l->setObjectName(QString::fromLatin1(nombre));
    l->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    l->setToolTip(ayuda);
    l->setTextFormat(Qt::PlainText);
    l->setMargin(1);
    if (ancho > 0)
        l->setMinimumWidth(ancho);
    addPermanentWidget(l, estiramiento);
    return l;
}

QString BarradeEstadoQVL::PanelRuc() const { return ruc_->text(); }
QString BarradeEstadoQVL::PanelNombre() const { return nombre_->text(); }
QString BarradeEstadoQVL::PanelPeriodo() const { return periodo_->text(); }
QString BarradeEstadoQVL::PanelFormulario() const { return formulario_->text(); }

void BarradeEstadoQVL::setModo(int modo)
{
    modo_ = modo;
    for (QLabel* l : {ruc_, nombre_, periodo_, formulario_})
        l->setVisible(modo != 0);
}

void BarradeEstadoQVL::setPanelRuc(const QString& texto) { ruc_->setText(texto); }
void BarradeEstadoQVL::setPanelNombre(const QString& texto) { nombre_->setText(texto); }
void BarradeEstadoQVL::setPanelPeriodo(const QString& texto) { periodo_->setText(texto); }
void BarradeEstadoQVL::setPanelFormulario(const QString& texto) { formulario_->setText(texto); }
