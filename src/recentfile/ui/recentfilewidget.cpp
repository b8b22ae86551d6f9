#include "recentfile/ui/recentfilewidget.h"

void ZelBoxRecentFileWidget::onClearUnreadMsgAfterTabChanged()
{
    onClearUnreadMsg();
}
