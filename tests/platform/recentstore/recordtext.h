#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"

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
    static const QRegularExpression head("^([a-z])(\\d+)"_s);
    static const QRegularExpression flag("([@%?])([a-z])|(-\\d+)|[+*!]"_s);
    RoamingPart part;
    const QRegularExpressionMatch start = head.match(text);
    part.item.roamingId = part.item.name = start.captured(1);
    part.item.time = start.captured(2).toLongLong();
    part.item.user = "me"_s;
    auto flags = flag.globalMatch(text.mid(start.capturedLength()));
    while (flags.hasNext()) {
        const QRegularExpressionMatch found = flags.next();
        const char sign = found.captured().at(0).toLatin1();
        const QString path = QLatin1Char('/') + found.captured(2);
        if (sign == '-')
            part.forgottenTime = found.captured().mid(1).toLongLong();
        else if (sign == '!')
            part.isReadUntold = true;
        else if (sign == '+' || sign == '*')
            part.item.unread = sign == '+' ? 0 : 1;
        else
            (sign == '@' ? part.item.usedPath : sign == '%' ? part.item.cachePath : part.foundPath) = path;
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

inline const std::pair<char, int> AccessLetters[] = {{'d', DesktopSource}, {'s', SandboxSource}};
inline const std::pair<char, qint64 StoredRecord::*> TimeLetters[] = {{'o', &StoredRecord::openedAt},
    {'r', &StoredRecord::removedTime}, {'p', &StoredRecord::pinTime}, {'m', &StoredRecord::missingSince}};

inline StoredRecord toRecord(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    auto record = filled(&StoredRecord::id, idOf(words.value(0)));
    for (const QString &word : words.mid(1)) {
        for (const auto &[letter, source] : AccessLetters)
            if (word.at(0) == QLatin1Char(letter))
                record.setAccess(source, word.mid(1).toLongLong());
        for (const auto &[letter, time] : TimeLetters)
            if (word.at(0) == QLatin1Char(letter))
                record.*time = word.mid(1).toLongLong();
        if (word.at(0) == QLatin1Char('c'))
            record.roaming = toPart(word.mid(2));
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
    const auto add = [&text](char letter, qint64 time) {
        text += QLatin1Char(' ') + QLatin1Char(letter) + QString::number(time);
    };
    for (const auto &[letter, source] : AccessLetters)
        if (const RecentAccess *access = record.accessOf(source))
            add(letter, access->time);
    for (const auto &[letter, time] : TimeLetters)
        if (record.*time != StoredRecord().*time)
            add(letter, record.*time);
    if (record.roaming)
        text += " c:"_s + toText(*record.roaming);
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

} // namespace zel::recent::test
