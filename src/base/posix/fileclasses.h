#pragma once

#include <string_view>

namespace zel {

/// What files are by the suffixes of their names, for the box and for the services.
struct FileClass
{
    std::string_view name;
    std::string_view suffixes; ///< in lower case, without dots, a blank between two
};

inline constexpr FileClass fileClasses[] = {
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

} // namespace zel
