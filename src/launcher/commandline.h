#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::launcher {

/// The command line as the box reads it: arguments separated by blanks, double quotes grouping. Pure value.
struct CommandLine
{
    std::string text;           ///< in the arguments' own encoding
    bool quotesDropped = false; ///< an argument held double quotes, which cannot be written
};

/// Joins the arguments so that the box's parser gives each back unchanged. The grammar has no escape for a
/// double quote: those inside an argument are left out.
CommandLine joinArguments(const std::vector<std::string_view> &arguments);

} // namespace zel::launcher
