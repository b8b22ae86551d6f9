#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"
#include "tokenbudgetdevice.h"

#include <QSet>
#include <QXmlStreamReader>

namespace zel::recent {

/// Beyond these a list counts as damaged (whole, token, entries, depth) or the single value is left out (the
/// others).
struct XbelLimits
{
    qint64 bytes = 256LL << 20;
    qint64 tokenBytes = 16LL << 20; ///< of one tag, text or comment
    int entries = 200000;
    int depth = 64;
    int pathBytes = 4096;
    int nameLength = 255; ///< of a mime type or an application
    int applications = 64;
};

/// Reads a recently-used list ("Desktop Bookmark" format) piece by piece in bounded memory. Any thread.
/// Gives files on this machine only, no folders; private entries are given and marked.
/// What was read before damage stays valid.
class XbelReader
{
public:
    enum class State { Reading, Intact, Damaged };

    /// Times later than `latestTime` (ms since epoch) are taken for a wrong clock and do not count. Entries
    /// without any other get `fallbackTime`.
    XbelReader(QIODevice &device, qint64 latestTime, qint64 fallbackTime = 0, const XbelLimits &limits = {});

    State read(int tokens); ///< reads on for at most so many tokens
    QVector<XbelEntry> takeEntries() { return std::move(m_entries); }
    QString problem() const; ///< for the log: what the damage is and in which line, without names

private:
    enum class Node { Xbel, Bookmark, Info, Metadata, MimeType, Applications, Application, Private, Other };

    void startElement();
    Node enter(QStringView name);
    Node enterMetadata(QStringView name);
    void startEntry();
    void readTime();
    void finishEntry();
    QString shared(const QString &text);
    State fail(const QString &problem);

    TokenBudgetDevice m_device;
    QXmlStreamReader m_xml;
    const XbelLimits m_limits;
    const qint64 m_latestTime;
    const qint64 m_fallbackTime;
    State m_state = State::Reading;
    QString m_problem;
    QVector<Node> m_path;
    XbelEntry m_entry;
    QVector<XbelEntry> m_entries;
    int m_entryCount = 0;
    QSet<QString> m_names; ///< types and applications, which repeat all over a list
};

} // namespace zel::recent
