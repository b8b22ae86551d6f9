#include "clouddoc/ui/cloudcolumns.h"

using Key = zel::ListSort::Key;

CloudColumns::CloudColumns(QWidget *parent) : ColumnHeadings(parent)
{
    setName(int(Key::Name), tr("Name"));
    addColumn(RowColumn::Time, int(Key::Time), tr("Modified"));
    addColumn(RowColumn::Size, int(Key::Size), tr("Size"));
    connect(this, &ColumnHeadings::chosen, this, [this](int key, Qt::SortOrder order) {
        Q_EMIT sortChosen({Key(key), order});
    });
}

void CloudColumns::setSort(const zel::ListSort &sort)
{
    ColumnHeadings::setSort(int(sort.key), sort.order);
}
