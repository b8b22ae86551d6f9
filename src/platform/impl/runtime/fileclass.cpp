#include "fileclass.h"

#include "base/posix/fileclasses.h"
#include "kfileclass.h"

#include <QHash>

namespace zel::platform {
namespace {

constexpr int MaxSuffixLength = 16;

QHash<QString, QLatin1String> buildTable()
{
    QHash<QString, QLatin1String> table;
    for (const FileClass &entry : fileClasses) {
        const QLatin1String suffixes(entry.suffixes.data(), int(entry.suffixes.size()));
        for (const QString &suffix : QString(suffixes).split(QLatin1Char(' ')))
            table.insert(suffix, QLatin1String(entry.name.data(), int(entry.name.size())));
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
