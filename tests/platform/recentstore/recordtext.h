#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"

#include <QRegularExpression>
#include <QTest>

// Records as short texts, for tables.
//
// "a d1 s2 o3 r1 p3": file /a, used at 1 by the desktop, at 2 by a sandboxed application, opened at 3,
// removed at 1, pinned with the time 3. "=x c:x7": a record of the cloud service alone. The word after "c:"
// is an item: its id, its time, and what follows of "@a" used last here as /a, "%a" copied here as /a, "+"
// new, "*" modified, "!" seen but not told, "-7" forgotten up to 7, "?a" found as /a.
namespace zel::recent::test {

inline constexpr int SandboxSource = 2;

inline QString idOf(const QString &word)
{
    return word.startsWith(QLatin1Char('=')) ? roamingRecordId(word.mid(1)) : QLatin1Char('/') + word;
}

inline QString nameOf(const QString &id)
{
    return id.startsWith(QLatin1Char('/')) ? id.mid(1) : QLatin1Char('=') + id.mid(8);
}

inline RoamingPart toPart(const QString &text)
{
    static const QRegularExpression head(QStringLiteral("^([a-z])(\\d+)"));
    static const QRegularExpression flag(QStringLiteral("([@%?])([a-z])|(-\\d+)|[+*!]"));
    RoamingPart part;
    const QRegularExpressionMatch start = head.match(text);
    part.item.roamingId = part.item.name = start.captured(1);
    part.item.time = start.captured(2).toLongLong();
    part.item.user = QStringLiteral("me");
    auto flags = flag.globalMatch(text.mid(start.capturedLength()));
    while (flags.hasNext()) {
        const QRegularExpressionMatch found = flags.next();
        const QString path = QLatin1Char('/') + found.captured(2);
        switch (found.captured().at(0).toLatin1()) {
        case '@':
            part.item.usedPath = path;
            break;
        case '%':
            part.item.cachePath = path;
            break;
        case '?':
            part.foundPath = path;
            break;
        case '-':
            part.forgottenTime = found.captured().mid(1).toLongLong();
            break;
        case '!':
            part.isReadUntold = true;
            break;
        default:
            part.item.unread = found.captured() == QLatin1Char('+') ? 0 : 1;
        }
    }
    return part;
}

inline QString toText(const RoamingPart &part)
{
    QString text = part.item.roamingId + QString::number(part.item.time);
    for (const auto &[sign, path] :
        {std::pair('@', part.item.usedPath), std::pair('%', part.item.cachePath)}) {
        if (!path.isEmpty())
            text += QLatin1Char(sign) + path.mid(1);
    }
    if (part.item.unread >= 0)
        text += QLatin1Char(part.item.unread == 0 ? '+' : '*');
    if (part.isReadUntold)
        text += QLatin1Char('!');
    if (part.forgottenTime >= 0)
        text += QLatin1Char('-') + QString::number(part.forgottenTime);
    if (!part.foundPath.isEmpty())
        text += QLatin1Char('?') + part.foundPath.mid(1);
    return text;
}

inline StoredRecord toRecord(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    StoredRecord record;
    record.id = idOf(words.value(0));
    for (const QString &word : words.mid(1)) {
        const qint64 time = word.mid(1).toLongLong();
        switch (word.at(0).toLatin1()) {
        case 'd':
            record.setAccess(DesktopSource, time);
            break;
        case 's':
            record.setAccess(SandboxSource, time);
            break;
        case 'o':
            record.openedAt = time;
            break;
        case 'm':
            record.missingSince = time;
            break;
        case 'p':
            record.pinTime = time;
            break;
        case 'c':
            record.roaming = toPart(word.mid(2));
            break;
        default:
            record.removedTime = time;
        }
    }
    return record;
}

inline RecentState toState(const QString &text)
{
    RecentState state;
    for (const QString &part : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const StoredRecord record = toRecord(part);
        state.insert(record.id, record);
    }
    return state;
}

inline QString toText(const StoredRecord &record)
{
    QString text = nameOf(record.id);
    const auto add = [&text](char kind, qint64 time) {
        text += QLatin1Char(' ') + QLatin1Char(kind) + QString::number(time);
    };
    for (const auto &[source, kind] : {std::pair(DesktopSource, 'd'), std::pair(SandboxSource, 's')}) {
        if (const RecentAccess *access = record.accessOf(source))
            add(kind, access->time);
    }
    if (record.openedAt > 0)
        add('o', record.openedAt);
    if (record.removedTime >= 0)
        add('r', record.removedTime);
    if (record.pinTime > 0)
        add('p', record.pinTime);
    if (record.missingSince > 0)
        add('m', record.missingSince);
    if (record.roaming)
        text += QLatin1String(" c:") + toText(*record.roaming);
    return text;
}

inline QString toText(const RecentState &state)
{
    QStringList texts;
    for (const StoredRecord &record : state)
        texts.append(toText(record));
    texts.sort();
    return texts.join(QLatin1Char(';'));
}

// "+a32@1" added with kind and time, "-a" removed, "~a8@3" changed; then "+" or "*" for an unread mark.
inline QString shownText(const RecentDelta &delta)
{
    QStringList texts;
    const auto add = [&texts](QLatin1Char sign, const RecordInfoList &records) {
        for (const RecentFileInfo &r : records) {
            QString text = sign + r.displayText;
            if (sign != QLatin1Char('-'))
                text += QString::number(r.kind) + QLatin1Char('@') + QString::number(r.lastAccess);
            if (sign != QLatin1Char('-') && r.unread >= 0)
                text += QLatin1Char(r.unread == 0 ? '+' : '*');
            texts.append(text);
        }
    };
    add(QLatin1Char('+'), delta.added);
    add(QLatin1Char('-'), delta.removed);
    add(QLatin1Char('~'), delta.changed);
    texts.sort();
    return texts.join(QLatin1Char(' '));
}

inline RecordInfoList byId(RecordInfoList list)
{
    std::sort(list.begin(), list.end(), [](const auto &a, const auto &b) { return a.id < b.id; });
    return list;
}

/// Begins the table of a merge: what the state and the news lead to. Each call of the result adds a row.
inline auto newsTable()
{
    for (const char *column : {"state", "news", "shown", "after"})
        QTest::addColumn<QString>(column);
    return [](const char *name, const char *state, const char *news, const char *shown, const char *after) {
        QTest::newRow(name) << QString::fromLatin1(state) << QString::fromLatin1(news)
                            << QString::fromLatin1(shown) << QString::fromLatin1(after);
    };
}

} // namespace zel::recent::test
