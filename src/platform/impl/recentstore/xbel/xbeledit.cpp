#include "xbeledit.h"

#include "xbeloutline.h"

#include <QDateTime>

#include <algorithm>

namespace zel::recent {
namespace {

constexpr char NewList[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<xbel version=\"1.0\"\n"
                           "      xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\"\n"
                           "      xmlns:mime=\"http://www.freedesktop.org/standards/shared-mime-info\"\n"
                           ">\n</xbel>\n";
constexpr char ByteOrderMark[] = "\xef\xbb\xbf";
constexpr char Command[] = "'zelbox %u'";
// Desktop programs find a bookmark by its address, so that is encoded as they do it.
constexpr char Unencoded[] = "/!$&'()*+,:=@";

struct Replacement
{
    int begin;
    int length;
    QString text;
};

QString escaped(const QString &text)
{
    return text.toHtmlEscaped().replace(QLatin1Char('\''), QLatin1String("&apos;"));
}

QString attributeText(const char *name, const QString &value)
{
    return QLatin1Char(' ') + QLatin1String(name) + QLatin1String("=\"") + escaped(value) + QLatin1Char('"');
}

QString isoTime(qint64 ms)
{
    return QDateTime::fromMSecsSinceEpoch(ms, Qt::UTC).toString(Qt::ISODateWithMs);
}

QString addressOf(const QString &path)
{
    return QLatin1String("file://") + QString::fromLatin1(path.toUtf8().toPercentEncoding(Unencoded));
}

/// Name of an element in a namespace, with the declaration that it needs at this place, if any.
struct Qualified
{
    QString prefix; ///< with its colon
    QString declaration;
};

Qualified qualified(const XbelElement &parent, const char *ns, const char *usual)
{
    const QString uri = QLatin1String(ns);
    QStringList known = parent.prefixes.keys(uri);
    known.removeAll(QString());
    std::sort(known.begin(), known.end());
    const QString own = QLatin1String(usual);
    if (known.contains(own) || known.isEmpty())
        return {own + QLatin1Char(':'),
            known.isEmpty() ? attributeText(qPrintable(QLatin1String("xmlns:") + own), uri) : QString()};
    return {known.first() + QLatin1Char(':'), {}};
}

QString prefixOf(const XbelElement &element)
{
    return element.name.left(element.name.indexOf(QLatin1Char(':')) + 1);
}

class Editor
{
public:
    Editor(const QString &text, const XbelOutline &outline) : m_text(text), m_outline(outline) { }

    void visit(const XbelEdit::Visit &visit);
    void remove(const XbelBookmark &bookmark);
    bool hasChanges() const { return !m_replacements.empty() || !m_added.isEmpty(); }
    QString result();

private:
    void addBookmark(const XbelEdit::Visit &visit);
    void refresh(const XbelBookmark &bookmark, const XbelEdit::Visit &visit);
    void insert(const XbelElement &parent, int place, const QString &content);
    void setAttribute(const XbelElement &element, const char *name, const QString &value);
    std::pair<int, int> valueRange(const XbelElement &element, const char *name) const;
    int countOf(const XbelElement &application) const;

    static QString applicationText(const Qualified &prefix, qint64 time);
    static QString applicationsText(const XbelElement &parent, qint64 time);
    QString metadataText(const XbelElement &parent, const XbelEdit::Visit &visit) const;
    QString infoText(const XbelElement &parent, const XbelEdit::Visit &visit) const;

    const QString &m_text;
    const XbelOutline &m_outline;
    std::vector<Replacement> m_replacements;
    QString m_added; ///< new bookmarks
};

// The text is known to be well-formed, so a start tag is a name and pairs of name and quoted value.
std::pair<int, int> Editor::valueRange(const XbelElement &element, const char *name) const
{
    int at = element.begin + 1 + element.name.size();
    while (at < element.contentBegin) {
        const int equals = m_text.indexOf(QLatin1Char('='), at);
        if (equals < 0 || equals >= element.contentBegin)
            break;
        int open = equals + 1;
        while (m_text.at(open).isSpace())
            ++open;
        const int close = m_text.indexOf(m_text.at(open), open + 1);
        if (m_text.midRef(at, equals - at).trimmed() == QLatin1String(name))
            return {open + 1, close - open - 1};
        at = close + 1;
    }
    return {-1, 0};
}

void Editor::setAttribute(const XbelElement &element, const char *name, const QString &value)
{
    const auto [begin, length] = valueRange(element, name);
    if (begin >= 0)
        m_replacements.push_back({begin, length, escaped(value)});
    else
        m_replacements.push_back({element.begin + 1 + element.name.size(), 0, attributeText(name, value)});
}

void Editor::insert(const XbelElement &parent, int place, const QString &content)
{
    if (!parent.isClosedAtOnce()) {
        m_replacements.push_back({place, 0, content});
        return;
    }
    const int slash = m_text.lastIndexOf(QLatin1Char('/'), parent.end - 1);
    m_replacements.push_back({slash, parent.end - slash,
        QLatin1Char('>') + content + QLatin1String("</") + parent.name + QLatin1Char('>')});
}

int Editor::countOf(const XbelElement &application) const
{
    const auto [begin, length] = valueRange(application, "count");
    return begin < 0 ? 0 : std::clamp(m_text.midRef(begin, length).toInt(), 0, 1000000000);
}

QString Editor::applicationText(const Qualified &prefix, qint64 time)
{
    return QLatin1Char('<') + prefix.prefix + QLatin1String("application") + prefix.declaration
        + attributeText("name", QLatin1String(ApplicationName))
        + attributeText("exec", QLatin1String(Command)) + attributeText("modified", isoTime(time))
        + attributeText("count", QStringLiteral("1")) + QLatin1String("/>");
}

QString Editor::applicationsText(const XbelElement &parent, qint64 time)
{
    const Qualified outer = qualified(parent, BookmarkNamespace, "bookmark");
    const QString name = outer.prefix + QLatin1String("applications");
    return QLatin1String("\n        <") + name + outer.declaration + QLatin1String(">\n          ")
        + applicationText({outer.prefix, {}}, time) + QLatin1String("\n        </") + name
        + QLatin1String(">\n      ");
}

QString Editor::metadataText(const XbelElement &parent, const XbelEdit::Visit &visit) const
{
    const Qualified mime = qualified(parent, MimeNamespace, "mime");
    const QString name = prefixOf(m_outline.root) + QLatin1String("metadata");
    const QString type =
        visit.mimeType.isEmpty() ? QStringLiteral("application/octet-stream") : visit.mimeType;
    return QLatin1String("\n      <") + name + attributeText("owner", QLatin1String(MetadataOwner))
        + QLatin1String(">\n        <") + mime.prefix + QLatin1String("mime-type") + mime.declaration
        + attributeText("type", type) + QLatin1String("/>") + applicationsText(parent, visit.time)
        + QLatin1String("</") + name + QLatin1String(">\n    ");
}

QString Editor::infoText(const XbelElement &parent, const XbelEdit::Visit &visit) const
{
    const QString name = prefixOf(m_outline.root) + QLatin1String("info");
    return QLatin1String("\n    <") + name + QLatin1Char('>') + metadataText(parent, visit)
        + QLatin1String("</") + name + QLatin1String(">");
}

void Editor::visit(const XbelEdit::Visit &visit)
{
    const auto &bookmarks = m_outline.bookmarks;
    const auto known = std::find_if(bookmarks.cbegin(), bookmarks.cend(),
        [&](const XbelBookmark &bookmark) { return bookmark.path == visit.path; });
    if (known == bookmarks.cend())
        addBookmark(visit);
    else
        refresh(*known, visit);
}

void Editor::addBookmark(const XbelEdit::Visit &visit)
{
    const XbelElement &root = m_outline.root;
    const QString name = prefixOf(root) + QLatin1String("bookmark");
    const QString time = isoTime(visit.time);
    m_added += QLatin1String("  <") + name + attributeText("href", addressOf(visit.path))
        + attributeText("added", time) + attributeText("modified", time) + attributeText("visited", time)
        + QLatin1Char('>') + infoText(root, visit) + QLatin1String("\n  </") + name + QLatin1String(">\n");
}

void Editor::refresh(const XbelBookmark &bookmark, const XbelEdit::Visit &visit)
{
    const QString time = isoTime(visit.time);
    setAttribute(bookmark.element, "modified", time);
    setAttribute(bookmark.element, "visited", time);
    if (bookmark.application.isThere()) {
        setAttribute(bookmark.application, "exec", QLatin1String(Command));
        setAttribute(bookmark.application, "modified", time);
        setAttribute(bookmark.application, "count", QString::number(countOf(bookmark.application) + 1));
    } else if (bookmark.applications.isThere()) {
        const XbelElement &parent = bookmark.applications;
        insert(parent, parent.contentEnd, applicationText({prefixOf(parent), {}}, visit.time));
    } else if (bookmark.metadata.isThere()) {
        insert(
            bookmark.metadata, bookmark.metadata.contentEnd, applicationsText(bookmark.metadata, visit.time));
    } else if (bookmark.info.isThere()) {
        insert(bookmark.info, bookmark.info.contentEnd, metadataText(bookmark.info, visit));
    } else {
        const int place = bookmark.title.isThere() ? bookmark.title.end : bookmark.element.contentBegin;
        insert(bookmark.element, place, infoText(bookmark.element, visit));
    }
}

// With its line when it has that for itself.
void Editor::remove(const XbelBookmark &bookmark)
{
    const auto isAt = [this](
                          int at, char c) { return at < m_text.size() && m_text.at(at) == QLatin1Char(c); };
    int begin = bookmark.element.begin;
    int end = bookmark.element.end;
    while (isAt(begin - 1, ' ') || isAt(begin - 1, '\t'))
        --begin;
    if (isAt(end, '\r'))
        ++end;
    if (isAt(begin - 1, '\n') && isAt(end, '\n'))
        m_replacements.push_back({begin, end + 1 - begin, {}});
    else
        m_replacements.push_back({bookmark.element.begin, bookmark.element.end - bookmark.element.begin, {}});
}

QString Editor::result()
{
    const XbelElement &root = m_outline.root;
    const bool ownLine = !root.isClosedAtOnce() && m_text.at(root.contentEnd - 1) == QLatin1Char('\n');
    if (!m_added.isEmpty())
        insert(root, root.contentEnd, (ownLine ? QString() : QStringLiteral("\n")) + m_added);
    std::stable_sort(m_replacements.begin(), m_replacements.end(),
        [](const Replacement &a, const Replacement &b) { return a.begin < b.begin; });
    QString text;
    text.reserve(m_text.size() + 1024 * int(m_replacements.size()));
    int at = 0;
    for (const Replacement &replacement : m_replacements) {
        text += m_text.midRef(at, replacement.begin - at);
        text += replacement.text;
        at = replacement.begin + replacement.length;
    }
    return text + m_text.midRef(at);
}

bool isUsable(const QString &path)
{
    return path.size() > 1 && path.startsWith(QLatin1Char('/'));
}

// What is to be done, each path once.
struct Wishes
{
    QVector<XbelEdit::Visit> visits;
    QSet<QString> removals;
    QSet<QString> paths;
};

Wishes wishesOf(const XbelEdit &edit)
{
    Wishes wishes;
    for (const QString &path : edit.removals) {
        if (isUsable(path))
            wishes.removals.insert(path);
    }
    wishes.paths = wishes.removals;
    for (int i = edit.visits.size() - 1; i >= 0; --i) {
        const XbelEdit::Visit &visit = edit.visits.at(i);
        if (!isUsable(visit.path) || wishes.paths.contains(visit.path))
            continue;
        wishes.paths.insert(visit.path);
        wishes.visits.prepend(visit);
    }
    return wishes;
}

XbelEditResult editText(QString &text, const Wishes &wishes)
{
    const XbelOutline outline = outlineOf(text, wishes.paths, QLatin1String(ApplicationName));
    if (outline.problem != XbelOutline::Problem::None)
        return outline.problem == XbelOutline::Problem::Damaged ? XbelEditResult::Damaged
                                                                : XbelEditResult::Unsupported;
    Editor editor(text, outline);
    for (const XbelBookmark &bookmark : outline.bookmarks) {
        if (wishes.removals.contains(bookmark.path))
            editor.remove(bookmark);
    }
    for (const XbelEdit::Visit &visit : wishes.visits)
        editor.visit(visit);
    if (!editor.hasChanges())
        return XbelEditResult::Unchanged;
    text = editor.result();
    return XbelEditResult::Written;
}

} // namespace

XbelEditResult editXbelText(QByteArray &data, const XbelEdit &edit)
{
    const Wishes wishes = wishesOf(edit);
    const bool isNew = data.isEmpty();
    if (wishes.paths.isEmpty() || (isNew && wishes.visits.isEmpty()))
        return XbelEditResult::Unchanged;
    const QByteArray mark = data.startsWith(ByteOrderMark) ? QByteArray(ByteOrderMark) : QByteArray();
    QString text = isNew ? QString::fromLatin1(NewList)
                         : QString::fromUtf8(data.constData() + mark.size(), data.size() - mark.size());
    if (!isNew && mark + text.toUtf8() != data)
        return XbelEditResult::Unsupported;
    const XbelEditResult result = editText(text, wishes);
    if (result == XbelEditResult::Written)
        data = mark + text.toUtf8();
    return result;
}

} // namespace zel::recent
