#include "launcher/commandline.h"

#include <algorithm>
#include <iterator>

namespace zel::launcher {
namespace {

std::string withoutQuotes(std::string_view argument)
{
    std::string text;
    std::copy_if(argument.begin(), argument.end(), std::back_inserter(text), [](char c) { return c != '"'; });
    return text;
}

} // namespace

CommandLine joinArguments(const std::vector<std::string_view> &arguments)
{
    CommandLine line;
    for (const std::string_view &argument : arguments) {
        const std::string text = withoutQuotes(argument);
        line.quotesDropped = line.quotesDropped || text.size() != argument.size();
        if (&argument != &arguments.front())
            line.text += ' ';
        const bool grouped = text.empty() || text.find(' ') != std::string::npos;
        line.text += grouped ? '"' + text + '"' : text;
    }
    return line;
}

} // namespace zel::launcher
