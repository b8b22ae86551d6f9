#include "recentfile/ui/recentcommandtexts.h"

#include "recentfile/recordtexts.h"
#include "recentfile/ui/recentcommands.h"
#include "widgets/nametext.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace zel::recent {
namespace {

bool isOnOtherDevices(const RecentFileInfo &record)
{
    return !record.roamingId.isEmpty();
}

QString folderNameOf(const RecentFileInfo &record)
{
    return shortName(QFileInfo(record.path).dir().dirName());
}

} // namespace

QString noticeName(const RecentFileInfo &record)
{
    return shortName(shownName(record));
}

int countLocal(const RecordInfoList &records)
{
    return int(std::count_if(
        records.cbegin(), records.cend(), [](const RecentFileInfo &each) { return !each.path.isEmpty(); }));
}

QString removedText(const RecordInfoList &records)
{
    const int local = countLocal(records);
    QString text = records.size() == 1
        ? RecentCommands::tr("“%1” was removed from the list.").arg(noticeName(records.constFirst()))
        : RecentCommands::tr("%Ln document(s) were removed from the list.", nullptr, records.size());
    if (local == 0)
        text += QLatin1Char(' ') + RecentCommands::tr("This cannot be undone.");
    else if (local < records.size())
        text += QLatin1Char(' ')
            + RecentCommands::tr("Undo brings back %Ln of them, on this device only.", nullptr, local);
    else if (std::any_of(records.cbegin(), records.cend(), isOnOtherDevices))
        text += QLatin1Char(' ') + RecentCommands::tr("Undo works on this device only.");
    return text;
}

QString backOnListText(const RecordInfoList &records)
{
    const int local = countLocal(records);
    return local == 1 && records.size() == 1
        ? RecentCommands::tr("“%1” is back on the list.").arg(noticeName(records.constFirst()))
        : RecentCommands::tr("%Ln document(s) are back on the list.", nullptr, local);
}

QString deletedText(const RecordInfoList &records)
{
    return records.size() == 1
        ? RecentCommands::tr("“%1” was moved to the recycle bin.").arg(noticeName(records.constFirst()))
        : RecentCommands::tr("%Ln file(s) were moved to the recycle bin.", nullptr, records.size());
}

QString notDeletedText(const RecordInfoList &records)
{
    return records.size() == 1
        ? RecentCommands::tr("“%1” could not be deleted.").arg(noticeName(records.constFirst()))
        : RecentCommands::tr("%Ln file(s) could not be deleted.", nullptr, records.size());
}

QString broughtBackText(const RecordInfoList &records)
{
    return records.size() == 1
        ? RecentCommands::tr("“%1” is back in “%2”.")
              .arg(noticeName(records.constFirst()), folderNameOf(records.constFirst()))
        : RecentCommands::tr("%Ln file(s) are back where they were.", nullptr, records.size());
}

QString notBroughtBackText(const RecordInfoList &records)
{
    return records.size() == 1
        ? RecentCommands::tr("“%1” could not be brought back.").arg(noticeName(records.constFirst()))
        : RecentCommands::tr("%Ln file(s) could not be brought back.", nullptr, records.size());
}

} // namespace zel::recent
