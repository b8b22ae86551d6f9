#pragma once

#include "recentfile/records.h"

#include <QRandomGenerator>

/// A long list for the benchmarks of the Recent page: the same in every run.
namespace zel::recent::bench {

inline constexpr int Count = 100'000;

// A benchmark of something that does not work says nothing.
inline void require(bool holds)
{
    if (!holds)
        qFatal("the outcome is wrong");
}

inline QDateTime benchNow()
{
    return recenttest::at(QStringLiteral("2024-03-20 14:30"));
}

/// Count records newest first over the last four months, in a hundred folders, with names as people give
/// them.
inline const RecordInfoList &records()
{
    static const RecordInfoList list = [] {
        const QStringList names{QStringLiteral("Budget"), QStringLiteral("Quarterly report "),
            QStringLiteral("Minutes of the meeting "), QString::fromUtf8("二零二四年财务报告"),
            QString::fromUtf8("議事録"), QStringLiteral("DSC_"), QStringLiteral("drawing"),
            QStringLiteral("Letter to the editor "), QString::fromUtf8("Übersicht "),
            QStringLiteral("notes")};
        const QStringList suffixes{QStringLiteral(".odt"), QStringLiteral(".xlsx"), QStringLiteral(".pdf"),
            QStringLiteral(".jpg"), QStringLiteral(".txt"), QStringLiteral(".zip"), QStringLiteral(".pptx")};
        QRandomGenerator random(100'000);
        const qint64 newest = benchNow().toMSecsSinceEpoch();
        RecordInfoList made;
        made.reserve(Count);
        for (int i = 0; i < Count; ++i) {
            const QString name = names.at(random.bounded(names.size()))
                + QString::number(random.bounded(100'000)) + suffixes.at(random.bounded(suffixes.size()));
            RecentFileInfo info = recenttest::record(
                QStringLiteral("/home/someone/Documents/Folder %1/%2/%3").arg(i % 100).arg(i).arg(name),
                newest - i * 100'000LL);
            info.path = info.id;
            info.displayText = name;
            info.size = random.bounded(10'000'000);
            info.pinned = i % 50'000 == 5;
            made.append(info);
        }
        return made;
    }();
    return list;
}

} // namespace zel::recent::bench
