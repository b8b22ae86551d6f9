#include "lists/listmodel.h"

zel::ListSections ListModel::sections() const
{
    const int rows = rowCount();
    if (rows == 0)
        return {};
    return {{zel::ListSection::Unheaded, {}, 0, rows}};
}

int ListModel::successorOf(int, int first, int last) const
{
    return last + 1 < rowCount() ? last + 1 : first - 1;
}
