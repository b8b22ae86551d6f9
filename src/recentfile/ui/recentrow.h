#pragma once

#include "recentfile/ui/recentcell.h"

#include <QFont>
#include <QMap>

class QModelIndex;

/// What a row tells beside name, folder and time.
enum class RecentDetail { Time /**< nothing more */, Size, Type };

/// The fonts of a row with their measures.
struct RecentRowFonts
{
    explicit RecentRowFonts(const QFont &font);

    QFont name;
    QFont small; ///< of folder, time, badge and section headers
    QFontMetrics nameMetrics;
    QFontMetrics smallMetrics;
    RecentCellMetrics cell;
};

/// What one row says, ready to be shown: no text can break the line or turn its direction. Plain value.
struct RecentRow
{
    using Texts = QMap<QString, QString>;

    QString fileName; ///< in full
    QString name;     ///< as shown
    QString path;     ///< local file; empty when there is none
    QString folder;   ///< or the device that has the file
    QString detail;
    QString time;
    QString badge;
    bool missing = false;
    bool pinned = false;
    bool cloud = false;

    /// `texts` has those of the badges, by style key. GUI thread.
    static RecentRow of(const QModelIndex &index, RecentDetail detail, const Texts &texts);
    /// Shortens the texts to their room and returns where everything goes.
    RecentCell fit(const QRect &rect, const RecentRowFonts &fonts, bool buttons);

private:
    RecentCell::Wishes wishes(const RecentRowFonts &fonts, bool buttons) const;
};

namespace zel::recent {

/// What kind of file the name promises, "DOCX"; empty for a name without suffix.
QString typeText(const QString &name);

} // namespace zel::recent
