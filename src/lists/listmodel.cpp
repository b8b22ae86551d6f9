#include "lists/listmodel.h"

zel::ListSections ListModel::sections() const
{
    const int rows = rowCount();
    if (rows == 0)
        return {};
    return {{zel::ListSection::Unheaded, {}, 0, rows}};
}
