#pragma once

#include "platform/recentstore/recentfixture.h"

#include "platform/impl/recentstore/xbel/xbelreader.h"

namespace zel::recent::test {

/// What the store reads from a list.
struct Outcome
{
    bool intact = false;
    QString entries; ///< "path@minute;…", "!" behind private ones
    QString problem;
};

inline Outcome readAll(const QByteArray &data, const XbelLimits &limits = {})
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    XbelReader reader(buffer, timeOf(24 * 60), timeOf(0), limits);
    while (reader.read(7) == XbelReader::State::Reading) { }
    QStringList texts;
    for (const XbelEntry &entry : reader.takeEntries()) {
        const qint64 minute = entry.time ? (entry.time - timeOf(0)) / 60000 : -1;
        texts.append(entry.path + QLatin1Char('@') + QString::number(minute)
            + (entry.isPrivate ? "!"_s : QString()) + (entry.isTimeGuessed ? "?"_s : QString()));
    }
    return {reader.read(0) == XbelReader::State::Intact, texts.join(QLatin1Char(';')), reader.problem()};
}

inline QString good(const char *path, int minute, const QString &extra = {})
{
    return bookmarkText({QString::fromUtf8(path), minute, extra});
}

} // namespace zel::recent::test
