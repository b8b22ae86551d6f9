#include "xbeloutline.h"

#include "fileurl.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace zel::recent {
namespace {

constexpr int DeepestNesting = 1000;

using Problem = XbelOutline::Problem;

class Outliner
{
public:
    Outliner(const QString &text, const QSet<QString> &paths, const QString &application)
        : m_text(text), m_paths(paths), m_application(application), m_xml(text)
    {
        m_xml.setNamespaceProcessing(false); // some writers leave out the declarations
    }
    XbelOutline outline();

private:
    struct Level
    {
        XbelElement element;
        XbelElement XbelBookmark::*part = nullptr; ///< what of the current bookmark it is
        bool isBookmark = false;
    };

    void take(QXmlStreamReader::TokenType token);
    void startElement();
    void endElement();
    void classify(Level &level);
    bool is(const XbelElement &element, const char *ns, const char *name) const;
    bool isCore(const XbelElement &element, const char *name) const;
    QStringRef attribute(const char *name) const { return m_attributes.value(QLatin1String(name)); }
    void fail(Problem problem) { m_outline.problem = problem; }

    const QString &m_text;
    const QSet<QString> &m_paths;
    const QString m_application;
    QXmlStreamReader m_xml;
    QXmlStreamAttributes m_attributes;
    XbelOutline m_outline;
    QVector<Level> m_levels;
    XbelBookmark m_bookmark;
};

QString prefixOf(const QString &name)
{
    return name.left(std::max(0, name.indexOf(QLatin1Char(':'))));
}

QStringRef localName(const QString &name)
{
    return name.midRef(name.indexOf(QLatin1Char(':')) + 1);
}

XbelOutline Outliner::outline()
{
    if (m_text.contains(QChar::Null))
        fail(Problem::Damaged);
    while (m_outline.problem == Problem::None && !m_xml.atEnd())
        take(m_xml.readNext());
    if (m_outline.problem == Problem::None && m_xml.hasError())
        fail(Problem::Damaged);
    return std::move(m_outline);
}

void Outliner::take(QXmlStreamReader::TokenType token)
{
    switch (token) {
    case QXmlStreamReader::StartDocument: {
        const QStringRef encoding = m_xml.documentEncoding();
        if (!encoding.isEmpty() && encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) != 0)
            fail(Problem::Unsupported);
        break;
    }
    case QXmlStreamReader::DTD:
        if (!m_xml.entityDeclarations().isEmpty())
            fail(Problem::Unsupported);
        break;
    case QXmlStreamReader::StartElement:
        startElement();
        break;
    case QXmlStreamReader::EndElement:
        endElement();
        break;
    default:
        break;
    }
}

// The reader tells where it stands behind a tag. No "<" can stand inside of one, so it begins at the last.
void Outliner::startElement()
{
    Level level;
    XbelElement &element = level.element;
    m_attributes = m_xml.attributes();
    element.name = m_xml.qualifiedName().toString();
    element.contentBegin = int(m_xml.characterOffset());
    element.begin = m_text.lastIndexOf(QLatin1Char('<'), element.contentBegin - 1);
    const QStringRef tag = m_text.midRef(element.begin, element.contentBegin - element.begin);
    if (element.begin < 0 || !tag.endsWith(QLatin1Char('>')) || !tag.mid(1).startsWith(element.name)) {
        fail(Problem::Unsupported);
        return;
    }
    if (m_levels.size() >= DeepestNesting
        || (m_levels.isEmpty() && localName(element.name) != QLatin1String("xbel"))) {
        fail(Problem::Damaged);
        return;
    }
    if (!m_levels.isEmpty())
        element.prefixes = m_levels.last().element.prefixes;
    for (const QXmlStreamAttribute &attribute : std::as_const(m_attributes)) {
        const QStringRef name = attribute.qualifiedName();
        if (name == QLatin1String("xmlns"))
            element.prefixes.insert(QString(), attribute.value().toString());
        else if (name.startsWith(QLatin1String("xmlns:")))
            element.prefixes.insert(name.mid(6).toString(), attribute.value().toString());
    }
    classify(level);
    m_levels.append(level);
}

void Outliner::endElement()
{
    Level level = m_levels.takeLast();
    XbelElement &element = level.element;
    element.end = int(m_xml.characterOffset());
    element.contentEnd = element.end == element.contentBegin
        ? element.end
        : m_text.lastIndexOf(QLatin1Char('<'), element.end - 1);
    const QStringRef tag = m_text.midRef(element.contentEnd, element.end - element.contentEnd);
    if (!element.isClosedAtOnce() && !tag.startsWith(QLatin1String("</") + element.name)) {
        fail(Problem::Unsupported);
        return;
    }
    if (m_levels.isEmpty())
        m_outline.root = element;
    if (level.part)
        m_bookmark.*level.part = element;
    if (level.isBookmark && m_paths.contains(m_bookmark.path)) {
        m_bookmark.element = element;
        m_outline.bookmarks.append(m_bookmark);
    }
}

bool Outliner::is(const XbelElement &element, const char *ns, const char *name) const
{
    const QString known = element.prefixes.value(prefixOf(element.name));
    return localName(element.name) == QLatin1String(name)
        && (known.isEmpty() || known == QLatin1String(ns) || prefixOf(element.name).isEmpty());
}

bool Outliner::isCore(const XbelElement &element, const char *name) const
{
    const QString &root = m_levels.first().element.name;
    return localName(element.name) == QLatin1String(name) && prefixOf(element.name) == prefixOf(root);
}

void Outliner::classify(Level &level)
{
    const int depth = m_levels.size();
    const auto below = [&](XbelElement XbelBookmark::*part) { return m_levels.last().part == part; };
    const XbelElement &element = level.element;
    if (depth == 1 && isCore(element, "bookmark")) {
        m_bookmark = {};
        m_bookmark.path = localPathOf(attribute("href").toString());
        level.isBookmark = true;
    } else if (depth < 2) {
        return;
    } else if (m_levels.last().isBookmark && isCore(element, "title")) {
        level.part = &XbelBookmark::title;
    } else if (m_levels.last().isBookmark && isCore(element, "info")) {
        level.part = &XbelBookmark::info;
    } else if (below(&XbelBookmark::info) && isCore(element, "metadata")) {
        if (attribute("owner") == QLatin1String(MetadataOwner) && !m_bookmark.metadata.isThere())
            level.part = &XbelBookmark::metadata;
    } else if (below(&XbelBookmark::metadata) && is(element, BookmarkNamespace, "applications")) {
        level.part = &XbelBookmark::applications;
    } else if (below(&XbelBookmark::applications) && is(element, BookmarkNamespace, "application")) {
        if (attribute("name") == m_application)
            level.part = &XbelBookmark::application;
    }
}

} // namespace

XbelOutline outlineOf(const QString &text, const QSet<QString> &paths, const QString &application)
{
    return Outliner(text, paths, application).outline();
}

} // namespace zel::recent
