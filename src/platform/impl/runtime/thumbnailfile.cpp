#include "thumbnailfile.h"

#include "base/posix/uniquefd.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QImageReader>
#include <QStandardPaths>
#include <QUrl>
#include <QtEndian>

#include <fcntl.h>
#include <sys/stat.h>

namespace zel::platform {
namespace {

struct Size
{
    const char *folder;
    int pixels;
};
constexpr Size Sizes[] = {{"normal", 128}, {"large", 256}, {"x-large", 512}, {"xx-large", 1024}};
constexpr int SizeCount = sizeof Sizes / sizeof *Sizes;

// Far above what the folders are for, and still no burden.
constexpr qint64 MostBytes = 4 * 1024 * 1024;
constexpr int MostPixels = 2048;
constexpr int MostTextBytes =
    16 * 1024; // as they are stored; packed ones may unfold to a thousand times that

struct Document
{
    QList<QByteArray> uris;
    qint64 modified = 0; ///< seconds since epoch
};

// The smallest that need not be blown up, then the larger ones, then the largest of the smaller ones.
QList<int> sizesFor(int pixels)
{
    QList<int> order;
    for (int i = 0; i < SizeCount; ++i) {
        if (Sizes[i].pixels >= pixels)
            order.append(i);
    }
    for (int i = SizeCount - 1; i >= 0; --i) {
        if (Sizes[i].pixels < pixels)
            order.append(i);
    }
    return order;
}

bool isOf(const Document &document, const QString &uri, const QString &modified)
{
    bool ok = false;
    if (modified.toLongLong(&ok) != document.modified || !ok)
        return false;
    return uri.isEmpty() || document.uris.contains(uri.toLatin1());
}

// The decoder unpacks all texts of a picture, however many there are; those of thumbnails are few and short.
bool hasShortTexts(const QByteArray &png)
{
    constexpr int Signature = 8;
    constexpr int Around = 12; // length, type and checksum of a chunk
    qint64 texts = 0;
    for (qint64 at = Signature; at + Around <= png.size();) {
        const auto size = qFromBigEndian<quint32>(png.constData() + at);
        const QByteArray type = png.mid(int(at) + 4, 4);
        if (type == "tEXt" || type == "zTXt" || type == "iTXt")
            texts += size;
        at += Around + qint64(size);
    }
    return texts <= MostTextBytes;
}

QImage decode(QByteArray png, const Document &document)
{
    if (png.size() > MostBytes || !hasShortTexts(png))
        return {};
    QBuffer buffer(&png);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > MostPixels || size.height() > MostPixels)
        return {};
    const QImage image = reader.read();
    // Not from the reader: it takes such a key for "Thumb".
    const bool isValid =
        isOf(document, image.text(QStringLiteral("Thumb::URI")), image.text(QStringLiteral("Thumb::MTime")));
    return isValid ? image : QImage();
}

QImage readOne(const QString &path, const Document &document)
{
    posix::UniqueFd fd(::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!fd || ::fstat(fd.get(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > MostBytes)
        return {};
    QFile file;
    if (!file.open(fd.release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return {};
    return decode(file.read(MostBytes + 1), document);
}

QImage fitted(const QImage &image, int pixels)
{
    const bool fits = image.width() <= pixels && image.height() <= pixels;
    const QImage scaled =
        fits ? image : image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return scaled.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

QList<QByteArray> thumbnailUris(const QString &path)
{
    QList<QByteArray> uris{"file://" + QFile::encodeName(path).toPercentEncoding("!$&'()*+,/:=@"),
        QUrl::fromLocalFile(path).toEncoded()};
    if (uris.at(0) == uris.at(1))
        uris.removeLast();
    return uris;
}

QImage readThumbnail(const QString &path, int pixels)
{
    struct stat status = {};
    if (pixels <= 0 || ::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    const Document document{thumbnailUris(path), status.st_mtim.tv_sec};
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
        + QStringLiteral("/thumbnails/");
    for (const int size : sizesFor(pixels)) {
        for (const QByteArray &uri : document.uris) {
            const QByteArray name = QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex();
            const QImage image = readOne(cache + QLatin1String(Sizes[size].folder) + QLatin1Char('/')
                    + QLatin1String(name) + QStringLiteral(".png"),
                document);
            if (!image.isNull())
                return fitted(image, pixels);
        }
    }
    return {};
}

} // namespace zel::platform
