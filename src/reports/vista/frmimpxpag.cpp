#include "reports/vista/frmimpxpag.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmImpxPag::frmImpxPag(const QString& titulo, qint16 paginas, const QString& archivo, QWidget* padre) : QDialog(padre)
{
    setObjectName(QStringLiteral("frmImpxPag"));
    modelo_.Caption = titulo;
    modelo_.Tag = archivo;
    modelo_.txtTotPaginas = QString::number(paginas);
    setWindowTitle(modelo_.Caption);

    // The advice keeps its blanks, so it is shown in a fixed-pitch face; the page count sits
    // over the gap of the first line.
    lblTexto = new QLabel(textoImpxPag().join(QLatin1Char('\n')), this);
    lblTexto->setObjectName(QStringLiteral("lblTexto"));
    lblTexto->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lblTexto->setTextFormat(Qt::PlainText);
    txtTotPaginas = new QLineEdit(modelo_.txtTotPaginas, lblTexto);
    txtTotPaginas->setObjectName(QStringLiteral("txtTotPaginas"));
    txtTotPaginas->setReadOnly(true);
    txtTotPaginas->setFocusPolicy(Qt::NoFocus);
    txtTotPaginas->setAlignment(Qt::AlignCenter);

    auto* etiquetaDesde = new QLabel(QStringLiteral("&Desde :"), this);
    auto* etiquetaHasta = new QLabel(QStringLiteral("&Hasta :"), this);
    txtPagDesde = new QLineEdit(modelo_.txtPagDesde, this);
    txtPagDesde->setObjectName(QStringLiteral("txtPagDesde"));
    txtPagHasta = new QLineEdit(modelo_.txtPagHasta, this);
    txtPagHasta->setObjectName(QStringLiteral("txtPagHasta"));
    for (QLineEdit* caja : {txtPagDesde, txtPagHasta}) {
        caja->setMaxLength(4);
        caja->installEventFilter(this);
    }
    etiquetaDesde->setBuddy(txtPagDesde);
    etiquetaHasta->setBuddy(txtPagHasta);
    connect(txtPagDesde, &QLineEdit::textChanged, this, [this](const QString& t) { modelo_.txtPagDesde = t; });
    connect(txtPagHasta, &QLineEdit::textChanged, this, [this](const QString& t) { modelo_.txtPagHasta = t; });

    cmdAccion[0] = new QPushButton(QStringLiteral("&Preliminar"), this);
    cmdAccion[1] = new QPushButton(QStringLiteral("&Cancelar"), this);
    for (int i = 0; i < 2; ++i) {
        cmdAccion[i]->setObjectName(QStringLiteral("cmdAccion%1").arg(i));
        cmdAccion[i]->setAutoDefault(false);
        connect(cmdAccion[i], &QPushButton::clicked, this, [this, i] { accion(i); });
    }

    auto* rango = new QGridLayout;
    rango->addWidget(etiquetaDesde, 0, 0);
    rango->addWidget(txtPagDesde, 0, 1);
    rango->addWidget(etiquetaHasta, 1, 0);
    rango->addWidget(txtPagHasta, 1, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdAccion[0]);
    botones->addWidget(cmdAccion[1]);
    auto* principal = new QVBoxLayout(this);
    principal->addWidget(lblTexto);
    principal->addLayout(rango);
    principal->addLayout(botones);
    colocarTotal();
}

void frmImpxPag::colocarTotal()
{
    const QString primera = textoImpxPag().first();
    const QString antes = QStringLiteral("El   reporte   generado   contiene ");
    const int hueco = int(primera.indexOf(QStringLiteral("página"))) - int(antes.size());
    const QFontMetrics m(lblTexto->font());
    const int x = lblTexto->contentsRect().left() + m.horizontalAdvance(antes);
    txtTotPaginas->setGeometry(x, lblTexto->contentsRect().top(), m.horizontalAdvance(QString(hueco - 1, QLatin1Char(' '))),
                               m.height() + 2);
}

void frmImpxPag::showEvent(QShowEvent* e)
{
    QDialog::showEvent(e);
    colocarTotal();
}

bool frmImpxPag::eventFilter(QObject* objeto, QEvent* e)
{
    if (e->type() == QEvent::KeyPress && (objeto == txtPagDesde || objeto == txtPagHasta)) {
        auto* tecla = static_cast<QKeyEvent*>(e);
        int codigo = 0;
        if (tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter)
            codigo = 13;
        else if (tecla->key() == Qt::Key_Backspace)
            codigo = 8;
        else if (!tecla->text().isEmpty())
            codigo = tecla->text().at(0).unicode();
        else
            return false;   // movement and editing keys are not characters
        const int paso = ModeloImpxPag::filtraTecla(codigo);
        if (paso == 13) {
            focusNextChild();
            return true;
        }
        return paso == 0;
    }
    return QDialog::eventFilter(objeto, e);
}

void frmImpxPag::accion(int indice)
{
    modelo_.cmdAccion_Click(indice);
    if (modelo_.descargar)
        reject();
}
