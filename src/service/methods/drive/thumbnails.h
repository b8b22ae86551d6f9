#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace zel::service {

/// A picture of a file in the desktop's cache, as the freedesktop Thumbnail Managing Standard describes it.
struct Thumbnail
{
    QString path;
    int width = 0; ///< pixels
    int height = 0;
};

/// The address that the cache knows a file by: "file://…", escaped as the desktop's programs do.
QByteArray thumbnailUri(const QString &file);

/// The smallest picture that is at least `size` pixels in one direction, else the largest there is; nothing
/// when there is none of the file as it is now. Reads the disk; any thread.
std::optional<Thumbnail> findThumbnail(const QString &file, int size);

} // namespace zel::service
