#pragma once

#include "lists/ui/columnheadings.h"

/// The headings above the cloud documents. GUI thread.
class CloudColumns : public ColumnHeadings
{
    Q_OBJECT
public:
    explicit CloudColumns(QWidget *parent = nullptr);
};
