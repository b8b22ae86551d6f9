#include "xbelwriter.h"

#include "base/paths.h"
#include "listfile.h"

#include <QFileInfo>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

namespace zel::recent {
namespace {

constexpr qint64 LargestEdited = 64LL << 20; // it is held in memory
constexpr int Attempts = 8;

// False: something stands there that cannot be read.
bool load(const QString &path, QByteArray &data, std::optional<FileStamp> &stamp)
{
    QFile file;
    FileStamp opened;
    const ListFileState state = openListFile(path, file, opened);
    if (state != ListFileState::Opened)
        return state == ListFileState::Missing;
    if (opened.size > LargestEdited)
        return false;
    stamp = opened;
    data = file.read(opened.size);
    return data.size() == opened.size;
}

enum class ReplaceResult { Replaced, Outdated, Failed };

ReplaceResult replace(const QString &path, const QByteArray &data, const std::optional<FileStamp> &stamp,
    const std::function<void()> &beforeReplace)
{
    const QString place = QFileInfo(path).isSymLink() ? QFileInfo(path).canonicalFilePath() : path;
    if (place.isEmpty()) // a link that leads nowhere
        return ReplaceResult::Failed;
    QTemporaryFile file(place + QLatin1String(".XXXXXX")); // made with mode 0600
    // The slow part comes before the comparison, so that only the renaming stands behind it.
    if (!file.open() || file.write(data) != data.size() || !file.flush() || ::fdatasync(file.handle()) != 0)
        return ReplaceResult::Failed;
    const QByteArray from = QFile::encodeName(file.fileName());
    const QByteArray to = QFile::encodeName(place);
    if (beforeReplace)
        beforeReplace();
    if (stampOf(path) != stamp)
        return ReplaceResult::Outdated;
    if (::rename(from.constData(), to.constData()) != 0)
        return ReplaceResult::Failed;
    file.setAutoRemove(false);
    return ReplaceResult::Replaced;
}

} // namespace

XbelEditResult editXbel(const QString &file, const XbelEdit &edit, const std::function<void()> &beforeReplace)
{
    paths::makeFolderOf(file);
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        QByteArray data;
        std::optional<FileStamp> stamp;
        if (!load(file, data, stamp))
            return XbelEditResult::Failed;
        const XbelEditResult edited = editXbelText(data, edit);
        if (edited != XbelEditResult::Written)
            return edited;
        const ReplaceResult replaced = replace(file, data, stamp, beforeReplace);
        if (replaced != ReplaceResult::Outdated)
            return replaced == ReplaceResult::Replaced ? XbelEditResult::Written : XbelEditResult::Failed;
    }
    return XbelEditResult::Failed;
}

} // namespace zel::recent
