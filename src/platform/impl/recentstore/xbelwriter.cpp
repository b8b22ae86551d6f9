#include "xbelwriter.h"

#include "fileurl.h"
#include "listfile.h"

#include <QSaveFile>

#include <glib.h>

#include <memory>

namespace zel::recent {
namespace {

constexpr qint64 LargestEdited = 64LL << 20; // the library holds the whole list in memory
constexpr int Attempts = 8;

template <auto Free> struct Deleter
{
    template <typename T> void operator()(T *value) const { Free(value); }
};
using Bookmarks = std::unique_ptr<GBookmarkFile, Deleter<g_bookmark_file_free>>;
using Text = std::unique_ptr<char, Deleter<g_free>>;
using Time = std::unique_ptr<GDateTime, Deleter<g_date_time_unref>>;
using Addresses = std::unique_ptr<char *, Deleter<g_strfreev>>;

enum class LoadResult { Loaded, Damaged, Failed };

LoadResult load(const QString &path, GBookmarkFile *bookmarks, std::optional<FileStamp> &stamp)
{
    QFile file;
    FileStamp opened;
    const ListFileState state = openListFile(path, file, opened);
    if (state == ListFileState::Unusable || opened.size > LargestEdited)
        return LoadResult::Failed;
    if (state == ListFileState::Missing)
        return LoadResult::Loaded;
    stamp = opened;
    const QByteArray data = file.read(opened.size);
    if (data.isEmpty())
        return opened.size == 0 ? LoadResult::Loaded : LoadResult::Failed;
    return g_bookmark_file_load_from_data(bookmarks, data.constData(), gsize(data.size()), nullptr)
        ? LoadResult::Loaded
        : LoadResult::Damaged;
}

// Programs encode addresses differently, so a bookmark is found by its path.
QHash<QString, QByteArrayList> addressesByPath(GBookmarkFile *bookmarks)
{
    QHash<QString, QByteArrayList> found;
    gsize count = 0;
    const Addresses addresses(g_bookmark_file_get_uris(bookmarks, &count));
    for (gsize i = 0; i < count; ++i) {
        const char *address = addresses.get()[i];
        found[localPathOf(QString::fromUtf8(address))].append(QByteArray(address));
    }
    return found;
}

Time toTime(qint64 ms)
{
    const Time seconds(g_date_time_new_from_unix_utc(ms / 1000));
    return Time(seconds ? g_date_time_add(seconds.get(), (ms % 1000) * 1000) : nullptr);
}

bool addVisit(GBookmarkFile *bookmarks, const QByteArray &known, const XbelEdit::Visit &visit)
{
    QByteArray address = known;
    const Time time = toTime(visit.time);
    if (known.isEmpty()) {
        const Text made(g_filename_to_uri(QFile::encodeName(visit.path).constData(), nullptr, nullptr));
        address = QByteArray(made.get());
    }
    if (address.isEmpty() || !time)
        return false;
    const char *uri = address.constData();
    const QByteArray mimeType =
        visit.mimeType.isEmpty() ? QByteArray("application/octet-stream") : visit.mimeType.toUtf8();
    g_bookmark_file_set_mime_type(bookmarks, uri, mimeType.constData());
    g_bookmark_file_set_application_info(
        bookmarks, uri, ApplicationName, "zelbox %u", -1, time.get(), nullptr);
    if (known.isEmpty())
        g_bookmark_file_set_added_date_time(bookmarks, uri, time.get());
    g_bookmark_file_set_visited_date_time(bookmarks, uri, time.get());
    // Last, since every other change sets it to the present.
    g_bookmark_file_set_modified_date_time(bookmarks, uri, time.get());
    return true;
}

bool apply(GBookmarkFile *bookmarks, const XbelEdit &edit)
{
    const auto known = addressesByPath(bookmarks);
    bool changed = false;
    for (const XbelEdit::Visit &visit : edit.visits)
        changed = addVisit(bookmarks, known.value(visit.path).value(0), visit) || changed;
    for (const QString &path : edit.removals) {
        for (const QByteArray &address : known.value(path))
            changed = g_bookmark_file_remove_item(bookmarks, address.constData(), nullptr) || changed;
    }
    return changed;
}

enum class ReplaceResult { Replaced, Outdated, Failed };

ReplaceResult replace(const QString &path, GBookmarkFile *bookmarks, const std::optional<FileStamp> &stamp,
    const std::function<void()> &beforeReplace)
{
    gsize size = 0;
    const Text data(g_bookmark_file_to_data(bookmarks, &size, nullptr));
    QSaveFile file(path);
    if (!data || !file.open(QIODevice::WriteOnly)
        || !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)
        || file.write(data.get(), qint64(size)) != qint64(size) || !file.flush())
        return ReplaceResult::Failed;
    if (beforeReplace)
        beforeReplace();
    if (stampOf(path) != stamp)
        return ReplaceResult::Outdated;
    return file.commit() ? ReplaceResult::Replaced : ReplaceResult::Failed;
}

} // namespace

XbelEditResult editXbel(const QString &file, const XbelEdit &edit, const std::function<void()> &beforeReplace)
{
    makeFolderOf(file);
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const Bookmarks bookmarks(g_bookmark_file_new());
        std::optional<FileStamp> stamp;
        const LoadResult loaded = load(file, bookmarks.get(), stamp);
        if (loaded != LoadResult::Loaded)
            return loaded == LoadResult::Damaged ? XbelEditResult::Damaged : XbelEditResult::Failed;
        if (!apply(bookmarks.get(), edit))
            return XbelEditResult::Unchanged;
        const ReplaceResult replaced = replace(file, bookmarks.get(), stamp, beforeReplace);
        if (replaced != ReplaceResult::Outdated)
            return replaced == ReplaceResult::Replaced ? XbelEditResult::Written : XbelEditResult::Failed;
    }
    return XbelEditResult::Failed;
}

} // namespace zel::recent
