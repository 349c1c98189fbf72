// The annex window of casillas 473 and 477.
#include "dialogs/vista/frmanexo477.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "basic/texto.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
QLineEdit* cajaImporte(const QString& nombre)
{
    auto* w = new QLineEdit;
    w->setObjectName(nombre);
    QFont f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    f.setPointSizeF(QApplication::font().pointSizeF());
    w->setFont(f);
    w->setAlignment(Qt::AlignRight);
    w->setFixedWidth(QFontMetrics(f).horizontalAdvance(QLatin1Char('0')) * 17 + 12);
    w->setContextMenuPolicy(Qt::NoContextMenu);
    return w;
}
}  // namespace

frmAnexo477::frmAnexo477(Frm931& frm, int nCasilla, QWidget* padre)
    : QDialog(padre), m_(frm)
{
    setObjectName(QStringLiteral("frmAnexo477"));
    setModal(true);
    m_.nCasilla = static_cast<qint16>(nCasilla);
    m_.Form_Load();

    auto* v = new QVBoxLayout(this);
    auto* marco = new QGroupBox;
    marco->setObjectName(QStringLiteral("fraDeduccion"));
    auto* g = new QGridLayout(marco);
    for (int i = 0; i < 2; ++i) {
        lblCas_[i] = new QLabel;
        lblCas_[i]->setObjectName(QStringLiteral("lblCas(%1)").arg(i));
        lblCas_[i]->setStyleSheet(QStringLiteral("color: #555;"));
        lblCas_[i + 2] = new QLabel;
        lblCas_[i + 2]->setObjectName(QStringLiteral("lblCas(%1)").arg(i + 5));
        TxtMonto[i] = cajaImporte(QStringLiteral("TxtMonto(%1)").arg(i));
        lblCas_[i + 2]->setBuddy(TxtMonto[i]);
        TxtMonto[i]->installEventFilter(this);
        g->addWidget(lblCas_[i], i, 0);
        g->addWidget(lblCas_[i + 2], i, 1);
        g->addWidget(TxtMonto[i], i, 2);
        connect(TxtMonto[i], &QLineEdit::textEdited, this, [this, i](const QString& texto) {
            if (refrescando_)
                return;
            try {
                m_.setMonto(i, texto);
            } catch (const ErrorVB& e) {
                MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
            }
            refrescar();
        });
    }
    label1_ = new QLabel;
    label1_->setObjectName(QStringLiteral("Label1"));
    QFont negrita = label1_->font();
    negrita.setBold(true);
    label1_->setFont(negrita);
    TxtTotal = cajaImporte(QStringLiteral("TxtTotal"));
    TxtTotal->setReadOnly(true);
    TxtTotal->setFocusPolicy(Qt::NoFocus);
    g->addWidget(label1_, 2, 1, Qt::AlignRight);
    g->addWidget(TxtTotal, 2, 2);
    g->setColumnStretch(1, 1);
    v->addWidget(marco);

    auto* botones = new QDialogButtonBox;
    CmdGrabar = botones->addButton(m_.CmdGrabarCaption, QDialogButtonBox::AcceptRole);
    CmdGrabar->setObjectName(QStringLiteral("CmdGrabar"));
    cmdCancelar = botones->addButton(m_.cmdCancelarCaption, QDialogButtonBox::RejectRole);
    cmdCancelar->setObjectName(QStringLiteral("cmdCancelar"));
    // Enter presses the button that has the focus; the boxes keep Enter for moving on.
    for (QPushButton* b : {CmdGrabar, cmdCancelar}) {
        b->setAutoDefault(true);
        b->setDefault(false);
        b->installEventFilter(this);
    }
    connect(CmdGrabar, &QPushButton::clicked, this, [this] {
        try {
            m_.CmdGrabar_Click();
        } catch (const ErrorVB& e) {
            MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
        }
        tras();
    });
    connect(cmdCancelar, &QPushButton::clicked, this, [this] {
        m_.cmdCancelar_Click();
        tras();
    });
    v->addWidget(botones);
    setMinimumWidth(560);
    refrescar();
}

void frmAnexo477::tras()
{
    refrescar();
    if (m_.cerrado)
        done(m_.aceptado ? QDialog::Accepted : QDialog::Rejected);
}

void frmAnexo477::reject()
{
    m_.cmdCancelar_Click();
    tras();
}

void frmAnexo477::refrescar()
{
    ++refrescando_;
    setWindowTitle(m_.Caption);
    lblCas_[0]->setText(m_.lblCas.value(0));
    lblCas_[1]->setText(m_.lblCas.value(1));
    lblCas_[2]->setText(m_.lblCas.value(5));
    lblCas_[3]->setText(m_.lblCas.value(6));
    label1_->setText(m_.Label1);
    for (int i = 0; i < 2; ++i) {
        const Caja& c = m_.TxtMonto[i];
        const int maximo = c.MaxLength <= 0 ? 32767 : qMax<int>(c.MaxLength, c.Text.size());
        if (TxtMonto[i]->maxLength() != maximo)
            TxtMonto[i]->setMaxLength(maximo);
        if (TxtMonto[i]->text() != c.Text)
            TxtMonto[i]->setText(c.Text);
    }
    if (TxtTotal->text() != m_.TxtTotal.Text)
        TxtTotal->setText(m_.TxtTotal.Text);
    QWidget* foco = m_.foco == QLatin1String("TxtMonto(0)")   ? static_cast<QWidget*>(TxtMonto[0])
                    : m_.foco == QLatin1String("TxtMonto(1)") ? static_cast<QWidget*>(TxtMonto[1])
                    : m_.foco == QLatin1String("CmdGrabar")   ? static_cast<QWidget*>(CmdGrabar)
                                                              : static_cast<QWidget*>(cmdCancelar);
    if (foco != QApplication::focusWidget())
        foco->setFocus(Qt::TabFocusReason);
    --refrescando_;
}

// A paste (or a drop) into a part: taken only when every character is one its keys take and
// the part still fits; otherwise refused, the part as it was.
void frmAnexo477::pegar(int i, const QString& texto)
{
    bool cabe = !texto.isEmpty();
    for (QChar c : texto)
        cabe = cabe && c.unicode() >= 32 && m_.TxtMonto_KeyPress(i, c.unicode()) != 0;
    QLineEdit* w = TxtMonto[i];
    const int largo = w->text().size() - w->selectedText().size() + texto.size();
    if (!cabe || largo > m_.TxtMonto[i].MaxLength) {
        QApplication::beep();
        return;
    }
    w->insert(texto);
    try {
        m_.setMonto(i, w->text());
    } catch (const ErrorVB& e) {
        MsgBox(e.descripcion + QLatin1Char('\n') + Str(e.numero), vbCritical, QStringLiteral("Error"));
    }
    refrescar();
}

bool frmAnexo477::eventFilter(QObject* objeto, QEvent* evento)
{
    // The buttons: the focus on them is the form's too, so that a refresh leaves it there.
    if ((objeto == CmdGrabar || objeto == cmdCancelar) && evento->type() == QEvent::FocusIn) {
        m_.foco = objeto == CmdGrabar ? QStringLiteral("CmdGrabar") : QStringLiteral("cmdCancelar");
        return QDialog::eventFilter(objeto, evento);
    }
    const int i = objeto == TxtMonto[0] ? 0 : objeto == TxtMonto[1] ? 1 : -1;
    if (i < 0)
        return QDialog::eventFilter(objeto, evento);
    switch (evento->type()) {
    case QEvent::FocusIn: {
        const auto r = static_cast<QFocusEvent*>(evento)->reason();
        if (refrescando_ == 0 && r != Qt::ActiveWindowFocusReason && r != Qt::PopupFocusReason) {
            m_.TxtMonto_GotFocus(i);
            refrescar();
        }
        break;
    }
    case QEvent::FocusOut: {
        const auto r = static_cast<QFocusEvent*>(evento)->reason();
        if (r != Qt::ActiveWindowFocusReason && r != Qt::PopupFocusReason) {
            m_.TxtMonto_LostFocus(i);
            ++refrescando_;
            TxtMonto[i]->setMaxLength(qMax<int>(m_.TxtMonto[i].MaxLength, m_.TxtMonto[i].Text.size()));
            TxtMonto[i]->setText(m_.TxtMonto[i].Text);
            --refrescando_;
        }
        break;
    }
    case QEvent::KeyPress: {
        auto* ke = static_cast<QKeyEvent*>(evento);
        // Tab and Shift+Tab move between the boxes as anywhere else.
        if (ke->key() == Qt::Key_Tab || ke->key() == Qt::Key_Backtab)
            return false;
        // Shift+Insert and the menu key empty the clipboard.
        if ((ke->key() == Qt::Key_Insert && (ke->modifiers() & Qt::ShiftModifier)) || ke->key() == Qt::Key_Menu) {
            QGuiApplication::clipboard()->clear();
            return true;
        }
        if (ke->matches(QKeySequence::Paste)) {
            pegar(i, QGuiApplication::clipboard()->text());
            return true;
        }
        // Editing keys with Control (select all, copy, cut, undo) are the box's own.
        if (ke->modifiers() & Qt::ControlModifier)
            return false;
        int tecla = 0;
        if (ke->key() == Qt::Key_Return || ke->key() == Qt::Key_Enter)
            tecla = 13;
        else if (ke->key() == Qt::Key_Backspace)
            tecla = 8;
        else if (ke->text().size() == 1)
            tecla = ke->text().at(0).unicode();
        if (tecla == 0)
            return false;
        if (m_.TxtMonto_KeyPress(i, tecla) == 0) {
            refrescar();
            return true;
        }
        return false;
    }
    case QEvent::MouseButtonPress:
        if (static_cast<QMouseEvent*>(evento)->button() == Qt::RightButton) {
            QGuiApplication::clipboard()->clear();
            return true;
        }
        break;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(evento)->button() == Qt::MiddleButton) {
            if (QGuiApplication::clipboard()->supportsSelection())
                pegar(i, QGuiApplication::clipboard()->text(QClipboard::Selection));
            return true;
        }
        break;
    case QEvent::Drop: {
        auto* de = static_cast<QDropEvent*>(evento);
        if (de->mimeData()->hasText()) {
            TxtMonto[i]->setCursorPosition(TxtMonto[i]->cursorPositionAt(de->position().toPoint()));
            pegar(i, de->mimeData()->text());
        }
        de->setDropAction(Qt::IgnoreAction);
        de->accept();
        return true;
    }
    default:
        break;
    }
    return QDialog::eventFilter(objeto, evento);
}
