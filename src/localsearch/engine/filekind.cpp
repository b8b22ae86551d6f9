#include "localsearch/engine/filekind.h"

#include "base/posix/fileclasses.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace zel::localsearch {
namespace {

constexpr std::size_t longestSuffix = 16;

static_assert(
    std::size(fileClasses) + 1 == std::size_t(FileKind::Folder), "a kind for each class, and two more");
static_assert(fileClasses[std::size_t(FileKind::Pdf) - 1].name == "pdf");
static_assert(fileClasses[std::size_t(FileKind::Book) - 1].name == "book");

using SuffixTable = std::unordered_map<std::string_view, FileKind>;

SuffixTable suffixTable()
{
    SuffixTable table;
    for (std::size_t at = 0; at < std::size(fileClasses); ++at) {
        std::string_view rest = fileClasses[at].suffixes;
        while (!rest.empty()) {
            const std::string_view suffix = rest.substr(0, rest.find(' '));
            table.emplace(suffix, FileKind(at + 1));
            rest.remove_prefix(std::min(rest.size(), suffix.size() + 1));
        }
    }
    return table;
}

template <class... Kind> constexpr FileKinds bits(Kind... kind)
{
    return FileKinds((kindBit(kind) | ...));
}

struct KindWord
{
    std::string_view words; ///< a blank between two
    FileKinds kinds;
};

constexpr KindWord kindWords[] = {
    {"document documents doc docs 文档", bits(FileKind::Document, FileKind::Text, FileKind::Book)},
    {"text texts txt 文本", bits(FileKind::Text)},
    {"book books ebook ebooks 电子书", bits(FileKind::Book)},
    {"sheet sheets spreadsheet spreadsheets table tables 表格", bits(FileKind::Sheet)},
    {"slides slide presentation presentations 演示 幻灯片", bits(FileKind::Slides)},
    {"pdf pdfs", bits(FileKind::Pdf)},
    {"picture pictures image images photo photos 图片 照片", bits(FileKind::Picture)},
    {"sound sounds audio music 音频 音乐", bits(FileKind::Sound)},
    {"film films video videos movie movies 视频 电影", bits(FileKind::Film)},
    {"media 媒体", bits(FileKind::Sound, FileKind::Film)},
    {"archive archives 压缩包", bits(FileKind::Archive)},
    {"code source 代码", bits(FileKind::Code)},
    {"folder folders directory directories dir 文件夹 目录", bits(FileKind::Folder)},
    {"file files 文件", FileKinds(allKinds & ~kindBit(FileKind::Folder))},
    {"other others 其他 其它", bits(FileKind::Other)},
};

bool contains(std::string_view words, std::string_view word)
{
    for (std::size_t at = words.find(word); at != std::string_view::npos; at = words.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || words[at - 1] == ' ') && (end == words.size() || words[end] == ' '))
            return true;
    }
    return false;
}

} // namespace

std::size_t stemLength(std::string_view name)
{
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || name.size() - dot - 1 > longestSuffix)
        return name.size();
    return name.find(' ', dot) == std::string_view::npos ? dot : name.size();
}

std::string_view suffixOf(std::string_view name)
{
    const std::size_t dot = stemLength(name);
    return dot == name.size() ? std::string_view() : name.substr(dot + 1);
}

FileKind kindOfSuffix(std::string_view suffix)
{
    static const SuffixTable table = suffixTable();
    const auto found = table.find(suffix);
    return found == table.end() ? FileKind::Other : found->second;
}

FileKinds kindsNamed(std::string_view word)
{
    if (word.empty() || word.find(' ') != std::string_view::npos)
        return 0;
    const auto *found =
        std::ranges::find_if(kindWords, [word](const KindWord &row) { return contains(row.words, word); });
    return found == std::end(kindWords) ? FileKinds(0) : found->kinds;
}

} // namespace zel::localsearch
