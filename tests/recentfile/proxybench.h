#pragma once

#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/records.h"

#include <QRandomGenerator>

#include <memory>

class QAbstractItemModelTester;

namespace recenttest {

/// Model and proxy under model testers, on 2024-03-20, with a small language for what is in them and happens
/// to them: a record is "name@days ago", then "=size" and "*" for pinned where wanted; its name is its id
/// too.
class ProxyBench
{
public:
    ProxyBench();
    ~ProxyBench();

    RecordInfoList records(const QString &texts) const; ///< blank-separated
    static RecordInfoList many(int count); ///< with names that are equal, or differ in digits only

    /// "add RECORD", "set RECORD", "rename ID NAME", "remove ID" or "unread ID".
    void change(const QString &text);
    /// Anything that can happen to source or proxy; tells what it was.
    QString randomStep(QRandomGenerator &random);

    QString print() const; ///< the proxy's rows as "[section] name name [section] name"
    /// The same, worked out anew from the source without any of the proxy's means.
    QString naivePrint() const { return naivePrint(proxy.sort()); }
    QString naivePrint(const RecentSort &sort) const;
    /// The proxy's signals since the last call, such as "inserted 0-3; moved 3 to 1; changed 1; sections".
    QString takeSignals();
    /// Whether indexes that randomStep() kept still are for the records that they were made for.
    bool persistentIndexesAreRight();

    FixedNow now{at(QStringLiteral("2024-03-20 14:30"))};
    ZelBoxRecentFileModel model;
    RecentSortFilterModel proxy;

private:
    struct Kept
    {
        QPersistentModelIndex index;
        QString id;
    };
    RecentFileInfo randomRecord(QRandomGenerator &random) const;
    QString randomSourceStep(QRandomGenerator &random);
    void keepIndexes(QRandomGenerator &random);

    std::unique_ptr<QAbstractItemModelTester> m_modelTester;
    std::unique_ptr<QAbstractItemModelTester> m_proxyTester;
    QStringList m_signals;
    std::vector<Kept> m_kept;
    bool m_mayLoseIndexes = false;
};

} // namespace recenttest
