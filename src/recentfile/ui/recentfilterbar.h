#pragma once

#include "lists/ui/filterbar.h"
#include "recentfile/documentkind.h"

/// Chips that narrow the list to one sort of documents. GUI thread.
class RecentFilterBar : public FilterBar
{
    Q_OBJECT
public:
    explicit RecentFilterBar(QWidget *parent = nullptr);

    zel::recent::DocumentKinds kinds() const; ///< of the chosen chip; empty for all
};
