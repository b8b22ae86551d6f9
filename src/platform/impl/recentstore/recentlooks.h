#pragma once

#include "platform/impl/recentstore/presence/presencechecker.h"
#include "platform/impl/recentstore/records/recenttypes.h"
#include "platform/impl/recentstore/records/roamingtypes.h"

namespace zel::recent {

/// Looks for the files of records: where each may be, and what the looks mean for them. Lives on the store's
/// thread.
class RecentLooks final : public QObject
{
    Q_OBJECT
public:
    explicit RecentLooks(const QStringList &temporaryFolders, QObject *parent = nullptr);

    void lookFor(const RecentState &state, const QStringList &ids); ///< urgent; unknown ids have no file
    void lookFor(const RecentState &state, const RecordInfoList &records);
    void lookForSizes(const RecentState &state); ///< that are not known yet
    /// Files that were opened just now, urgent. used() follows, unless they are gone or lie in a temporary
    /// folder.
    void lookForUses(const QHash<QString, qint64> &times);
    bool isAwaited(const QString &path) const { return m_usesToTell.contains(path); } ///< of lookForUses()
    void end(); ///< looks no more, awaits nothing; nothing is told from then on

    RecentDelta marks(
        const RecentState &state, const FileLooks &looks) const; ///< what was found, as a change

Q_SIGNALS:
    void found(const zel::recent::FileLooks &looks);
    void used(const QVector<zel::recent::FileUse> &uses);
    void foldersUsed(const QStringList &paths); ///< of lookForUses(); before found() tells of them

private:
    QStringList placesOf(const RecentState &state, const QStringList &ids);
    void tellUses(const FileLooks &looks);

    const QStringList m_temporaryFolders;
    PresenceChecker m_checker;
    QHash<QString, QString> m_idByPlace; ///< of records without a local one that are looked for
    QHash<QString, qint64> m_usesToTell; ///< times by path, until the file was looked at
};

} // namespace zel::recent
