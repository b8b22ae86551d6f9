#include "clouddoc/ui/transferpanel.h"

#include "clouddoc/cloudtransfermodel.h"
#include "clouddoc/ui/transferlistview.h"
#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/contentcolumn.h"
#include "widgets/iconbutton.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int FewestRows = 2;
constexpr int MostRows = 4; // then it scrolls
} // namespace

TransferPanel::TransferPanel(CloudTransferModel *transfers, QWidget *parent)
    : QFrame(parent),
      m_transfers(transfers),
      m_head(new QWidget(this)),
      m_title(new QLabel(m_head)),
      m_nothing(new QLabel(this)),
      m_clear(new QPushButton(m_head)),
      m_view(new TransferListView(this)),
      m_slide(new QPropertyAnimation(this, "maximumHeight", this))
{
    m_view->setModel(transfers);
    layOut();
    connect(m_clear, &QAbstractButton::clicked, this, &TransferPanel::clearRequested);
    connect(transfers, &CloudTransferModel::activityChanged, this, &TransferPanel::follow);
    connect(transfers, &QAbstractItemModel::rowsInserted, this, &TransferPanel::follow);
    // Queued: the view has its rows by then. The newest stands first.
    connect(transfers, &QAbstractItemModel::rowsInserted, m_view, &TransferListView::scrollToTop,
        Qt::QueuedConnection);
    connect(transfers, &QAbstractItemModel::rowsRemoved, this, &TransferPanel::follow);
    connect(transfers, &QAbstractItemModel::modelReset, this, &TransferPanel::follow);
    connect(m_slide, &QAbstractAnimation::finished, this, [this] { setVisible(m_open); });
    hide();
    follow();
}

void TransferPanel::layOut()
{
    auto *close = new IconButton(QStringLiteral(":/icons_svg/window_close.svg"), tr("Close"), this);
    close->setGlyphSize(12);
    connect(close, &QAbstractButton::clicked, this, [this] { setOpen(false); });
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    m_title->setFont(strong);
    m_nothing->setAlignment(Qt::AlignCenter);
    m_nothing->setForegroundRole(QPalette::PlaceholderText);

    auto *head = new QHBoxLayout(m_head);
    head->addWidget(m_title, 1);
    head->addWidget(m_clear);
    head->addWidget(close);
    zel::keepInContentColumn(m_head, {zel::look::SpaceXL, 6, zel::look::SpaceL, 6});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 1, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_head);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_nothing, 1);
}

int TransferPanel::wantedHeight() const
{
    const int rows = qBound(FewestRows, m_transfers->rowCount(), MostRows);
    return 1 + m_head->sizeHint().height() + m_view->heightOf(rows);
}

QSize TransferPanel::sizeHint() const
{
    return {QFrame::sizeHint().width(), wantedHeight()};
}

QSize TransferPanel::minimumSizeHint() const
{
    return {QFrame::minimumSizeHint().width(), 0}; // it slides
}

void TransferPanel::setOpen(bool open)
{
    if (m_open == open)
        return;
    m_open = open;
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    if (open) {
        setMinimumHeight(0);
        setMaximumHeight(0);
        show();
    } else if (hadFocus && parentWidget()) {
        parentWidget()->setFocus(Qt::OtherFocusReason);
    }
    slide(open ? wantedHeight() : 0);
    Q_EMIT openChanged(open);
}

// The style knows whether things may move; it says 0 when they may not.
void TransferPanel::slide(int to)
{
    m_slide->stop();
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (duration <= 0 || !isVisible()) {
        setMaximumHeight(to);
        setVisible(m_open);
        return;
    }
    m_slide->setDuration(duration);
    m_slide->setEasingCurve(QEasingCurve::OutCubic);
    m_slide->setStartValue(height());
    m_slide->setEndValue(to);
    m_slide->start();
}

void TransferPanel::follow()
{
    const bool some = m_transfers->rowCount() > 0;
    m_view->setVisible(some);
    m_nothing->setVisible(!some);
    m_clear->setEnabled(m_transfers->endedCount() > 0);
    updateTexts();
    updateGeometry();
    if (m_open && m_slide->state() != QAbstractAnimation::Running && maximumHeight() != wantedHeight())
        setMaximumHeight(wantedHeight());
}

void TransferPanel::updateTexts()
{
    const int active = m_transfers->activeCount();
    m_title->setText(active > 0 ? tr("%Ln transfer(s) running", nullptr, active) : tr("Transfers"));
    m_clear->setText(tr("Clear Finished"));
    m_nothing->setText(tr("Nothing is being uploaded or downloaded."));
    setAccessibleName(tr("Transfers"));
}

void TransferPanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        setOpen(false);
    else
        QFrame::keyPressEvent(event);
}

void TransferPanel::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), KSkin::color(KSkin::Color::Surface));
    painter.fillRect(0, 0, width(), 1, KSkin::color(KSkin::Color::Border));
}
