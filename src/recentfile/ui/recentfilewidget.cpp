#include "recentfile/ui/recentfilewidget.h"

#include <utility>

void ZelBoxRecentFileWidget::pageHidden()
{
    ZelBoxRecentFileWidgetBase::pageHidden();
    onClearUnreadMsgAfterTabChanged();
}

void ZelBoxRecentFileWidget::onClearUnreadMsgAfterTabChanged()
{
    if (std::exchange(m_wasShown, false))
        onClearUnreadMsg();
}

void ZelBoxRecentFileWidget::showEvent(QShowEvent *event)
{
    m_wasShown = true;
    ZelBoxRecentFileWidgetBase::showEvent(event);
}
