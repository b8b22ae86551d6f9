#pragma once

#include <QString>

#include <optional>

class ListModel;
class QItemSelectionModel;

/// The row that was current before a filter hid others: what one looks for leads elsewhere, and back. GUI
/// thread.
class ListUnfiltered
{
public:
    void note(const QString &currentId); ///< rows are about to be hidden; the first time counts
    /// All rows are shown again. Makes that one current, unless it is gone or something is selected.
    void giveBack(const ListModel &model, QItemSelectionModel *selection);

private:
    std::optional<QString> m_id; ///< none: no row is hidden
};
