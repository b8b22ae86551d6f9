#include "service/methods/drive/thumbnails.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>
#include <QtEndian>

namespace zel::service {
namespace {

struct Size
{
    const char *folder;
    int pixels;
};
constexpr Size Sizes[] = {{"normal", 128}, {"large", 256}, {"x-large", 512}, {"xx-large", 1024}};

constexpr qint64 MostHeader = 64 * 1024;

QString cacheFolder()
{
    const QString home = QFile::decodeName(qgetenv("XDG_CACHE_HOME"));
    return QDir::isAbsolutePath(home) ? home + QStringLiteral("/thumbnails")
                                      : QDir::homePath() + QStringLiteral("/.cache/thumbnails");
}

/// What the head of a PNG file says.
struct Head
{
    int width = 0;
    int height = 0;
    QByteArray mtime; ///< of the file that was pictured, seconds as text
    QByteArray uri;
};

void takeText(const QByteArray &data, Head &head)
{
    const int end = data.indexOf('\0');
    if (data.left(end) == "Thumb::MTime")
        head.mtime = data.mid(end + 1);
    else if (data.left(end) == "Thumb::URI")
        head.uri = data.mid(end + 1);
}

std::optional<Head> readHead(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.read(MostHeader);
    if (!bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return {};
    Head head;
    for (qint64 at = 8; at + 12 <= bytes.size();) {
        const qint64 length = qFromBigEndian<quint32>(bytes.constData() + at);
        const QByteArray type = bytes.mid(int(at) + 4, 4);
        if (type == "IDAT" || length > bytes.size() - at - 12)
            break;
        const QByteArray data = bytes.mid(int(at) + 8, int(length));
        if (type == "IHDR" && length >= 8) {
            head.width = int(qFromBigEndian<quint32>(data.constData()));
            head.height = int(qFromBigEndian<quint32>(data.constData() + 4));
        } else if (type == "tEXt") {
            takeText(data, head);
        }
        at += length + 12;
    }
    return head.width > 0 && head.height > 0 ? std::optional(head) : std::nullopt;
}

} // namespace

QByteArray thumbnailUri(const QString &file)
{
    const QByteArray path = QFile::encodeName(file);
    return "file://" + path.toPercentEncoding("/!$&'()*+,:=@");
}

std::optional<Thumbnail> findThumbnail(const QString &file, int size)
{
    const QFileInfo info(file);
    if (!info.isFile())
        return {};
    const QByteArray uri = thumbnailUri(info.absoluteFilePath());
    const QString name = QString::fromLatin1(QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex())
        + QStringLiteral(".png");
    std::optional<Thumbnail> best;
    for (const Size &one : Sizes) {
        const QString path =
            cacheFolder() + QLatin1Char('/') + QLatin1String(one.folder) + QLatin1Char('/') + name;
        const auto head = readHead(path);
        // One of an older content must not be shown.
        if (!head || head->mtime.toLongLong() != info.lastModified().toSecsSinceEpoch()
            || (!head->uri.isEmpty() && head->uri != uri))
            continue;
        best = Thumbnail{path, head->width, head->height};
        if (one.pixels >= size)
            break;
    }
    return best;
}

} // namespace zel::service
