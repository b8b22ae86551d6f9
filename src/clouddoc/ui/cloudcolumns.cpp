#include "clouddoc/ui/cloudcolumns.h"

CloudColumns::CloudColumns(QWidget *parent) : ColumnHeadings(parent)
{
    setName(tr("Name"));
    addColumn(RowColumn::Time, tr("Modified"));
    addColumn(RowColumn::Size, tr("Size"));
}
