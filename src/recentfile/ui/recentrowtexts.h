#pragma once

#include "lists/ui/listrow.h"

#include <QMap>

/// What a row tells beside name, folder and time.
enum class RecentDetail { Time /**< nothing more */, Size, Type };

/// The buttons of a row; the numbers that the list and its delegate exchange.
namespace RecentButton {
enum Number { Share, More };
}

/// What one row of the recent list says.
struct RecentRow : ListRow
{
    using Texts = QMap<QString, QString>;

    /// `texts` has those of the badges, by style key. GUI thread.
    static RecentRow of(const QModelIndex &index, RecentDetail detail, const Texts &texts);
};

namespace zel::recent {

/// What kind of file the name promises, "DOCX"; empty for a name without suffix.
QString typeText(const QString &name);

/// Folder of `path` for a person: the home folder as "~". Empty when there is no path.
QString folderText(const QString &path, const QString &home);

} // namespace zel::recent
