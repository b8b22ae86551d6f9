#pragma once

#include "recentfile/ui/recentfilewidgetbase.h"

/// The Recent page as a tab of the main window. GUI thread.
class ZelBoxRecentFileWidget : public ZelBoxRecentFileWidgetBase
{
    Q_OBJECT
public:
    using ZelBoxRecentFileWidgetBase::ZelBoxRecentFileWidgetBase;

public Q_SLOTS:
    void onClearUnreadMsgAfterTabChanged(); ///< the user has gone to another page: what was new has been seen
};
