#include "xbelreader.h"

#include "fileurl.h"
#include "isotime.h"

#include <algorithm>

namespace zel::recent {
namespace {

// Prefixes are looked through rather than resolved: some writers leave out their declaration.
QStringView withoutPrefix(QStringView name)
{
    const auto colon = name.lastIndexOf(u':');
    return colon < 0 ? name : name.mid(colon + 1);
}

} // namespace

XbelReader::XbelReader(QIODevice &device, qint64 latestTime, qint64 fallbackTime, const XbelLimits &limits)
    : m_device(device, limits.bytes, limits.tokenBytes),
      m_xml(&m_device),
      m_limits(limits),
      m_latestTime(latestTime),
      m_fallbackTime(fallbackTime)
{
    m_xml.setNamespaceProcessing(false);
}

XbelReader::State XbelReader::fail(const QString &problem)
{
    m_problem = problem + QStringLiteral(", line ") + QString::number(m_xml.lineNumber());
    m_state = State::Damaged;
    return m_state;
}

QString XbelReader::problem() const
{
    return m_problem;
}

XbelReader::State XbelReader::read(int tokens)
{
    while (m_state == State::Reading && tokens-- > 0) {
        m_device.renew();
        switch (m_xml.readNext()) {
        case QXmlStreamReader::StartElement:
            startElement();
            break;
        case QXmlStreamReader::EndElement:
            if (m_path.takeLast() == Node::Bookmark)
                finishEntry();
            break;
        case QXmlStreamReader::EndDocument:
            m_state = State::Intact;
            break;
        case QXmlStreamReader::Invalid:
            return fail(m_device.isExhausted() ? QStringLiteral("too large")
                                               : QStringLiteral("XML error %1").arg(m_xml.error()));
        default:
            break;
        }
    }
    return m_state;
}

void XbelReader::startElement()
{
    const QStringView name = withoutPrefix(m_xml.qualifiedName());
    if (m_path.isEmpty() && name != QLatin1String("xbel")) {
        fail(QStringLiteral("not a bookmark list"));
        return;
    }
    if (m_path.size() >= m_limits.depth) {
        fail(QStringLiteral("nested too deeply"));
        return;
    }
    m_path.append(m_path.isEmpty() ? Node::Xbel : enter(name));
}

XbelReader::Node XbelReader::enter(QStringView name)
{
    switch (m_path.last()) {
    case Node::Xbel:
        if (name != QLatin1String("bookmark"))
            return Node::Other;
        startEntry();
        return Node::Bookmark;
    case Node::Bookmark:
        return name == QLatin1String("info") ? Node::Info : Node::Other;
    case Node::Info: {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        const bool ours = attributes.value(QLatin1String("owner")) == QLatin1String("http://freedesktop.org");
        return ours && name == QLatin1String("metadata") ? Node::Metadata : Node::Other;
    }
    case Node::Metadata:
        return enterMetadata(name);
    case Node::Applications:
        if (name != QLatin1String("application"))
            return Node::Other;
        if (m_entry.applications.size() < m_limits.applications)
            m_entry.applications += shared(m_xml.attributes().value(QLatin1String("name")).toString());
        return Node::Application;
    case Node::MimeType:
    case Node::Application:
    case Node::Private:
    case Node::Other:
        break;
    }
    return Node::Other;
}

XbelReader::Node XbelReader::enterMetadata(QStringView name)
{
    if (name == QLatin1String("mime-type")) {
        m_entry.mimeType = shared(m_xml.attributes().value(QLatin1String("type")).toString());
        return Node::MimeType;
    }
    if (name == QLatin1String("applications"))
        return Node::Applications;
    if (name == QLatin1String("private")) {
        m_entry.isPrivate = true;
        return Node::Private;
    }
    return Node::Other;
}

void XbelReader::startEntry()
{
    m_entry = {};
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const QStringRef address = attributes.value(QLatin1String("href"));
    if (address.size() <= 3 * m_limits.pathBytes + 64) // every byte may be percent-encoded
        m_entry.path = localPathOf(address.toString());
    readTime();
}

void XbelReader::readTime()
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const char *name : {"added", "modified", "visited"}) {
        const qint64 time = parseIsoTime(attributes.value(QLatin1String(name)));
        if (time <= m_latestTime)
            m_entry.time = std::max(m_entry.time, time);
    }
    if (m_entry.time > 0)
        return;
    m_entry.time = m_fallbackTime;
    m_entry.isTimeGuessed = true;
}

void XbelReader::finishEntry()
{
    if (++m_entryCount > m_limits.entries) {
        fail(QStringLiteral("too many entries"));
        return;
    }
    const bool usable = m_entry.path.size() > 1 && m_entry.mimeType != FolderMimeType
        && (m_entry.path.size() * 3 <= m_limits.pathBytes
            || m_entry.path.toUtf8().size() <= m_limits.pathBytes);
    if (usable)
        m_entries.append(std::move(m_entry));
}

QString XbelReader::shared(const QString &text)
{
    return text.size() > m_limits.nameLength ? QString() : *m_names.insert(text);
}

} // namespace zel::recent
