#include "recentfile/ui/recentguides.h"

ZelBoxRecentFileEmptyGuideWidget::ZelBoxRecentFileEmptyGuideWidget(QWidget *parent)
    : EmptyStateWidget(QStringLiteral(":/icons_svg/empty_recent.svg"), tr("No recent files yet"),
        tr("Documents that you open appear here, newest first."), parent)
{
}
