#pragma once

#include <string>
#include <vector>

namespace zel::launcher {

/// What the launcher itself was asked for.
struct Options
{
    enum class Mode { Run, Help, Version, SelfTest, Unknown };

    Mode mode = Mode::Run;
    std::string unknown;           ///< the option that nobody knows
    std::vector<char *> arguments; ///< the program's name and what belongs to the box; points into argv
};

/// Takes the launcher's own options ("--…") out of the command line, up to "--"; everything else is the
/// box's. Pure.
Options parseOptions(int argc, char **argv);

} // namespace zel::launcher
