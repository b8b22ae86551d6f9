#include "fileclass.h"

#include "kfileclass.h"

#include <QHash>

namespace zel::platform {
namespace {

constexpr int MaxSuffixLength = 16;

struct ClassSuffixes
{
    const char *fileClass;
    const char *suffixes; // blank-separated
};

constexpr ClassSuffixes Classes[] = {
    {"document", "doc docx docm dot dotx dotm odt ott fodt rtf pages abw sxw lwp"},
    {"sheet", "xls xlsx xlsm xlsb xlt xltx ods ots fods csv tsv numbers gnumeric sxc"},
    {"slides", "ppt pptx pptm pps ppsx pot potx odp otp fodp key sxi"},
    {"pdf", "pdf xps oxps djvu ps eps ofd"},
    {"text", "txt text log md markdown rst tex org nfo adoc ini conf cfg srt"},
    {"picture",
        "png jpg jpeg jpe gif bmp webp svg svgz tif tiff ico heic heif avif jxl psd xcf kra raw cr2 nef dng "
        "arw odg "
        "emf wmf"},
    {"sound", "mp3 wav flac ogg oga opus m4a aac wma aiff aif mid midi amr ape"},
    {"film", "mp4 mkv avi mov webm wmv flv m4v mpg mpeg 3gp ogv ts mts vob"},
    {"archive", "zip rar 7z tar gz bz2 xz zst tgz tbz2 txz lz lzma z cab iso deb rpm jar apk"},
    {"code",
        "c cc cpp cxx h hh hpp hxx py js mjs jsx tsx java kt go rs rb php pl sh bash zsh lua swift cs sql "
        "html htm "
        "css scss xml json yaml yml toml cmake qml vue r ipynb"},
    {"book", "epub mobi azw azw3 fb2 cbz cbr"},
};

QHash<QString, QLatin1String> buildTable()
{
    QHash<QString, QLatin1String> table;
    for (const ClassSuffixes &entry : Classes) {
        const QStringList suffixes = QString::fromLatin1(entry.suffixes).split(QLatin1Char(' '));
        for (const QString &suffix : suffixes)
            table.insert(suffix, QLatin1String(entry.fileClass));
    }
    return table;
}

struct MimePattern
{
    const char *prefix;
    const char *fileClass;
};

// The first matching row counts.
constexpr MimePattern MimePatterns[] = {
    {"inode/directory", "folder"},
    {"image/", "picture"},
    {"audio/", "sound"},
    {"video/", "film"},
    {"text/plain", "text"},
    {"text/markdown", "text"},
    {"text/x-readme", "text"},
    {"text/x-log", "text"},
    {"text/", "code"},
    {"application/pdf", "pdf"},
    {"application/x-tar", "archive"},
    {"application/zip", "archive"},
    {"application/gzip", "archive"},
    {"application/x-compress", "archive"},
    {"application/json", "code"},
    {"application/xml", "code"},
    {"application/x-shellscript", "code"},
    {"application/vnd.oasis.opendocument.text", "document"},
    {"application/vnd.oasis.opendocument.spreadsheet", "sheet"},
    {"application/vnd.oasis.opendocument.presentation", "slides"},
    {"application/epub", "book"},
};

} // namespace

QString suffixOf(const QString &fileName)
{
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    const int nameBegin = fileName.lastIndexOf(QLatin1Char('/')) + 1;
    if (dot <= nameBegin || fileName.size() - dot - 1 > MaxSuffixLength)
        return {};
    return fileName.mid(dot + 1).toLower();
}

QLatin1String classOfSuffix(const QString &suffix)
{
    static const QHash<QString, QLatin1String> table = buildTable();
    return table.value(suffix);
}

QLatin1String classOfMimeType(const QString &mimeType)
{
    for (const MimePattern &pattern : MimePatterns) {
        if (mimeType.startsWith(QLatin1String(pattern.prefix)))
            return QLatin1String(pattern.fileClass);
    }
    return {};
}

QString iconFileOfClass(QLatin1String fileClass)
{
    return QLatin1String(":/zelplatform/filetypes/") + fileClass + QLatin1String(".svg");
}

} // namespace zel::platform

QLatin1String FileClassOf(const QString &fileName)
{
    return zel::platform::classOfSuffix(zel::platform::suffixOf(fileName));
}
