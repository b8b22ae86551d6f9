#include "kcefloadingprogressdlg.h"

#include "klitestyle.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

KCefLoadingProgressDlg::KCefLoadingProgressDlg(QWidget *parent)
    : QDialog(parent), m_text(new QLabel(this)), m_bar(new QProgressBar(this))
{
    setWindowTitle(tr("ZEL Box"));
    setModal(true);
    m_text->setWordWrap(true);
    m_text->setMinimumWidth(KLiteStyle::dpiScaled(340));
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(tr("Loading progress"));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setAccessibleName(tr("Cancel"));
    m_goOn = buttons->addButton(tr("Continue without"), QDialogButtonBox::AcceptRole);
    m_goOn->setAccessibleName(tr("Continue without the web component"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(KLiteStyle::dpiScaledMargins({24, 24, 24, 20}));
    column->setSpacing(KLiteStyle::dpiScaled(16));
    column->addWidget(m_text);
    column->addWidget(m_bar);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);

    auto *engine = KxCefEngine::instance();
    connect(engine, &KxCefEngine::progressChanged, m_bar, &QProgressBar::setValue);
    connect(engine, &KxCefEngine::stateChanged, this, &KCefLoadingProgressDlg::onStateChanged);
    m_bar->setValue(engine->progress());
    onStateChanged(engine->state());
}

void KCefLoadingProgressDlg::onStateChanged(KxCefEngine::State state)
{
    const bool loading = state == KxCefEngine::Loading || state == KxCefEngine::Ready;
    m_bar->setVisible(loading);
    m_goOn->setVisible(!loading);
    switch (state) {
    case KxCefEngine::Ready:
        // Queued: an engine that was ready before exec() must end exec(), not precede it.
        QMetaObject::invokeMethod(this, &QDialog::accept, Qt::QueuedConnection);
        return;
    case KxCefEngine::Loading:
        m_text->setText(tr("Loading the component that shows web pages…"));
        break;
    case KxCefEngine::Missing:
        m_text->setText(
            tr("The component that shows web pages is not installed. Some pages will stay empty."));
        break;
    case KxCefEngine::Failed:
        m_text->setText(
            tr("The component that shows web pages could not be loaded. Some pages will stay empty."));
        break;
    }
    if (!loading) {
        m_goOn->setDefault(true);
        m_goOn->setFocus();
    }
    setAccessibleDescription(m_text->text());
}
