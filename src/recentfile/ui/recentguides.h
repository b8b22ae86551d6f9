#pragma once

#include "widgets/emptystate.h"

/// What the page shows when there is no recent file. GUI thread.
class ZelBoxRecentFileEmptyGuideWidget : public EmptyStateWidget
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileEmptyGuideWidget(QWidget *parent = nullptr);
};
