#pragma once

#include "clouddoc/clouddocorder.h"
#include "lists/ui/columnheadings.h"

/// The headings above the cloud documents. GUI thread.
class CloudColumns : public ColumnHeadings
{
    Q_OBJECT
public:
    explicit CloudColumns(QWidget *parent = nullptr);

    void setSort(const zel::ListSort &sort); ///< shows it; emits nothing

Q_SIGNALS:
    void sortChosen(const zel::ListSort &sort);
};
