#include "service/methods/envelope/drivebookmark.h"

#include "base/logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUrl>
#include <algorithm>
#include <optional>

namespace zel::service {
namespace {

constexpr qint64 LargestFile = 1024 * 1024;

QString configDir()
{
    const QString value = QFile::decodeName(qgetenv("XDG_CONFIG_HOME"));
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value)
                                       : QDir::homePath() + QLatin1String("/.config");
}

QString bookmarksFile()
{
    return configDir() + QLatin1String("/gtk-3.0/bookmarks");
}

// Nothing when it cannot be read, or is no list of places by its size.
std::optional<QByteArray> contentsOf(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > LargestFile || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

// Without one of its own, GTK reads the file of its earlier version, until somebody writes the new one.
std::optional<QByteArray> bookmarks()
{
    const QString path = bookmarksFile();
    if (QFileInfo::exists(path))
        return contentsOf(path);
    const QString earlier = QDir::homePath() + QLatin1String("/.gtk-bookmarks");
    return QFileInfo::exists(earlier) ? contentsOf(earlier) : QByteArray();
}

bool names(const QByteArray &line, const QString &folder)
{
    const QUrl address = QUrl::fromEncoded(line.split(' ').constFirst().trimmed());
    return address.isLocalFile() && QDir::cleanPath(address.toLocalFile()) == QDir::cleanPath(folder);
}

} // namespace

bool isBookmarked(const QString &folder)
{
    const QList<QByteArray> lines = bookmarks().value_or(QByteArray()).split('\n');
    return std::any_of(
        lines.cbegin(), lines.cend(), [&folder](const QByteArray &line) { return names(line, folder); });
}

bool setBookmarked(const QString &folder, bool wanted)
{
    const auto before = bookmarks();
    if (!before) {
        qCWarning(lcService, "the places of file managers cannot be read");
        return false;
    }
    if (isBookmarked(folder) == wanted)
        return true;
    QList<QByteArray> lines = before->split('\n');
    while (!lines.isEmpty() && lines.constLast().trimmed().isEmpty())
        lines.removeLast();
    if (wanted)
        lines.append(QUrl::fromLocalFile(QDir::cleanPath(folder)).toEncoded());
    else
        lines.erase(std::remove_if(lines.begin(), lines.end(),
                        [&folder](const QByteArray &line) { return names(line, folder); }),
            lines.end());
    lines.append(QByteArray());      // the last one ends, too
    QSaveFile file(bookmarksFile()); // follows a link that the user has set up
    if (!QDir().mkpath(QFileInfo(bookmarksFile()).path()) || !file.open(QIODevice::WriteOnly)
        || file.write(lines.join('\n')) < 0 || !file.commit()) {
        qCWarning(
            lcService, "the places of file managers cannot be written: %s", qPrintable(file.errorString()));
        return false;
    }
    return true;
}

} // namespace zel::service
