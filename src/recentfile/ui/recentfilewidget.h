#pragma once

#include "recentfile/ui/recentfilewidgetbase.h"

/// The Recent page as a tab of the main window. GUI thread.
class ZelBoxRecentFileWidget : public ZelBoxRecentFileWidgetBase
{
    Q_OBJECT
public:
    using ZelBoxRecentFileWidgetBase::ZelBoxRecentFileWidgetBase;

    void pageHidden() override;

public Q_SLOTS:
    /// The user has gone to another page: what was new has been seen, if this page was shown since the last
    /// time.
    void onClearUnreadMsgAfterTabChanged();

protected:
    void showEvent(QShowEvent *event) override;

private:
    bool m_wasShown = false;
};
