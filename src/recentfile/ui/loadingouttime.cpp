#include "recentfile/ui/loadingouttime.h"

#include <QPushButton>

LoadingOuttime::LoadingOuttime(int milliseconds, QObject *parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(milliseconds);
    connect(&m_timer, &QTimer::timeout, this, &LoadingOuttime::sigTimeout);
}

ZelBoxLoadingOuttimeWidget::ZelBoxLoadingOuttimeWidget(QWidget *parent)
    : EmptyStateWidget(QStringLiteral(":/icons_svg/empty_recent.svg"), tr("This takes longer than usual"),
        tr("The list of recent files could not be loaded yet."), parent)
{
    QPushButton *retry = addAction(tr("Retry"));
    QPushButton *feedback = addAction(tr("Feedback"));
    connect(retry, &QPushButton::clicked, this, &ZelBoxLoadingOuttimeWidget::retryRequested);
    connect(feedback, &QPushButton::clicked, this, &ZelBoxLoadingOuttimeWidget::feedbackRequested);
}
