// The window of one carried-forward tax loss.
#include "dialogs/vista/frmperdida.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

void mostrarErrorVB(const ErrorVB& e)
{
    MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
}

bool esEnter(const QKeyEvent* ke) { return ke->key() == Qt::Key_Return || ke->key() == Qt::Key_Enter; }

}  // namespace

frmPerdidaEjercAnt::frmPerdidaEjercAnt(QWidget* padre)
    : QDialog(padre)
{
    setObjectName(QStringLiteral("frmPerdidaEjercAnt"));
    setModal(true);
    setWindowTitle(m_.Caption);

    auto* v = new QVBoxLayout(this);
    Frame1 = new QGroupBox(QStringLiteral("Año e Importe"));
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* g = new QGridLayout(Frame1);
    MkeAnho = new QLineEdit;
    MkeAnho->setObjectName(QStringLiteral("MkeAnho"));
    MkeAnho->setInputMask(QStringLiteral("9999;_"));
    MkeAnho->setMaximumWidth(MkeAnho->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 16);
    txtImporte = new QLineEdit;
    txtImporte->setObjectName(QStringLiteral("txtImporte"));
    txtImporte->setAlignment(Qt::AlignRight);
    // Wide enough for the fifteen characters of the amount with its separators.
    QFont cifras = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    cifras.setPointSizeF(QApplication::font().pointSizeF());
    txtImporte->setFont(cifras);
    txtImporte->setFixedWidth(QFontMetrics(cifras).horizontalAdvance(QLatin1Char('0')) * 17 + 12);
    txtImporte->setContextMenuPolicy(Qt::NoContextMenu);
    g->addWidget(new QLabel(QStringLiteral("Año :")), 0, 0);
    g->addWidget(MkeAnho, 0, 1, Qt::AlignLeft);
    g->addWidget(new QLabel(QStringLiteral("Importe de la pérdida consignada en la DDJJ Anual : ")), 1, 0);
    g->addWidget(txtImporte, 1, 1);
    v->addWidget(Frame1);

    auto* botones = new QDialogButtonBox;
    for (int i = 0; i < 2; ++i) {
        cmdAccion[i] = botones->addButton(FrmPerdidaEjercAnt::captionAccion(i),
                                          i == 0 ? QDialogButtonBox::AcceptRole : QDialogButtonBox::RejectRole);
        cmdAccion[i]->setObjectName(QStringLiteral("cmdAccion(%1)").arg(i));
        // Enter presses the button that has the focus.
        cmdAccion[i]->setAutoDefault(true);
        connect(cmdAccion[i], &QPushButton::clicked, this, [this, i] { accion(i); });
    }
    v->addWidget(botones);

    MkeAnho->installEventFilter(this);
    txtImporte->installEventFilter(this);
    connect(MkeAnho, &QLineEdit::textEdited, this, [this] { m_.MkeAnho.Text = MkeAnho->displayText(); });
    connect(txtImporte, &QLineEdit::textEdited, this, [this](const QString& t) { m_.txtImporte.Text = t; });

    m_.Form_Load();
    m_.Form_Activate();
    refrescar();
}

void frmPerdidaEjercAnt::refrescar()
{
    ++refrescando_;
    MkeAnho->setEnabled(m_.MkeAnho.Enabled);
    if (MkeAnho->displayText() != m_.MkeAnho.Text)
        MkeAnho->setText(QString(m_.MkeAnho.Text).remove(QLatin1Char('_')));
    txtImporte->setMaxLength(m_.txtImporte.MaxLength);
    if (txtImporte->text() != m_.txtImporte.Text)
        txtImporte->setText(m_.txtImporte.Text);
    QWidget* foco = m_.foco == QLatin1String("txtImporte") ? txtImporte : MkeAnho;
    if (foco->isEnabled() && foco != QApplication::focusWidget())
        foco->setFocus(Qt::OtherFocusReason);
    --refrescando_;
}

void frmPerdidaEjercAnt::accion(int indice)
{
    try {
        m_.cmdAccion_Click(indice);
    } catch (const ErrorVB& e) {
        mostrarErrorVB(e);
    }
    if (m_.cerrado)
        done(indice == 0 ? QDialog::Accepted : QDialog::Rejected);
    else
        refrescar();
}

void frmPerdidaEjercAnt::reject()
{
    accion(1);
}

// A paste (or a drop) into the amount: taken only when every character is one its keys take
// and the amount still fits; otherwise refused, the box as it was.
void frmPerdidaEjercAnt::pegar(const QString& texto)
{
    bool cabe = !texto.isEmpty();
    for (QChar c : texto)
        cabe = cabe && c.unicode() >= 32 && gobjUtil().TeclaNumero(c.unicode(), false, false, false) != 0;
    const int largo = txtImporte->text().size() - txtImporte->selectedText().size() + texto.size();
    if (!cabe || largo > m_.txtImporte.MaxLength) {
        QApplication::beep();
        return;
    }
    txtImporte->insert(texto);
    m_.txtImporte.Text = txtImporte->text();
}

bool frmPerdidaEjercAnt::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto != MkeAnho && objeto != txtImporte)
        return QDialog::eventFilter(objeto, evento);
    const bool importe = objeto == txtImporte;
    const auto razonDeFoco = [evento] {
        const auto r = static_cast<QFocusEvent*>(evento)->reason();
        return r != Qt::ActiveWindowFocusReason && r != Qt::PopupFocusReason;
    };
    switch (evento->type()) {
    case QEvent::FocusIn:
        if (importe && refrescando_ == 0 && razonDeFoco()) {
            m_.foco = QStringLiteral("txtImporte");
            m_.txtImporte_GotFocus();
            refrescar();
        } else if (!importe && refrescando_ == 0 && razonDeFoco()) {
            m_.foco = QStringLiteral("MkeAnho");
        }
        break;
    case QEvent::FocusOut:
        if (refrescando_ == 0 && razonDeFoco()) {
            if (importe) {
                m_.txtImporte_LostFocus();
                ++refrescando_;
                txtImporte->setMaxLength(m_.txtImporte.MaxLength);
                txtImporte->setText(m_.txtImporte.Text);
                --refrescando_;
            } else {
                m_.MkeAnho.Text = MkeAnho->displayText();
                // The focus goes wherever the user sent it, unless the year calls it back.
                m_.foco.clear();
                m_.MkeAnho_LostFocus();
                if (m_.foco == QLatin1String("MkeAnho"))
                    refrescar();
            }
        }
        break;
    case QEvent::KeyPress: {
        auto* ke = static_cast<QKeyEvent*>(evento);
        if (esEnter(ke)) {
            focusNextChild();
            return true;
        }
        // Tab and Shift+Tab move between the boxes as anywhere else.
        if (ke->key() == Qt::Key_Tab || ke->key() == Qt::Key_Backtab)
            return false;
        if (!importe)
            break;
        // Nothing can be pasted into the amount.
        if ((ke->key() == Qt::Key_Insert && (ke->modifiers() & Qt::ShiftModifier)) || ke->key() == Qt::Key_Menu) {
            QGuiApplication::clipboard()->clear();
            return true;
        }
        if (ke->matches(QKeySequence::Paste)) {
            pegar(QGuiApplication::clipboard()->text());
            return true;
        }
        // Editing keys with Control (select all, copy, cut, undo) are the box's own.
        if (ke->modifiers() & Qt::ControlModifier)
            return false;
        int tecla = 0;
        if (ke->key() == Qt::Key_Backspace)
            tecla = 8;
        else if (ke->text().size() == 1)
            tecla = ke->text().at(0).unicode();
        if (tecla == 0)
            return false;
        return gobjUtil().TeclaNumero(tecla, false, false, false) == 0;
    }
    case QEvent::MouseButtonPress:
        if (importe && static_cast<QMouseEvent*>(evento)->button() == Qt::RightButton) {
            QGuiApplication::clipboard()->clear();
            return true;
        }
        break;
    case QEvent::MouseButtonRelease:
        if (importe && static_cast<QMouseEvent*>(evento)->button() == Qt::MiddleButton) {
            if (QGuiApplication::clipboard()->supportsSelection())
                pegar(QGuiApplication::clipboard()->text(QClipboard::Selection));
            return true;
        }
        break;
    case QEvent::Drop:
        if (importe) {
            auto* de = static_cast<QDropEvent*>(evento);
            if (de->mimeData()->hasText()) {
                txtImporte->setCursorPosition(txtImporte->cursorPositionAt(de->position().toPoint()));
                pegar(de->mimeData()->text());
            }
            de->setDropAction(Qt::IgnoreAction);
            de->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QDialog::eventFilter(objeto, evento);
}

void abrirFrmPerdida(QWidget* padre)
{
    frmPerdidaEjercAnt dlg(padre);
    dlg.exec();
}
