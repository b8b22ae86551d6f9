#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

namespace zel::platform {

/// How the URI of a local file may be written in thumbnails: programs differ in what they escape.
QList<QByteArray> thumbnailUris(const QString &path);

/// The valid thumbnail of a document that suits `pixels` by `pixels` best, scaled down to fit; null when
/// there is none. Reads `$XDG_CACHE_HOME/thumbnails`. Any thread; may block for as long as the document's
/// file system does.
QImage readThumbnail(const QString &path, int pixels);

} // namespace zel::platform
