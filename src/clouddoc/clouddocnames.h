#pragma once

#include <QString>
#include <functional>

/// Rules for names in the drive. Pure functions; any thread.
namespace zel::clouddoc {

inline constexpr int LongestNameBytes = 255; ///< of UTF-8

enum class NameProblem {
    None,
    Empty,
    Slash,            ///< "/" parts folders
    Reserved,         ///< "." and "..", and what begins with ".zel-", which the drive uses itself
    ControlCharacter, ///< a line break, a tab and the like
    TooLong,          ///< more than LongestNameBytes
    Taken,
};

using IsTaken = std::function<bool(const QString &name)>;

/// What keeps `name` from being given; `isTaken` may be empty. Blanks at both ends count: see cleanedName().
NameProblem checkName(const QString &name, const IsTaken &isTaken = {});
QString cleanedName(const QString &typed); ///< without blanks at both ends
/// `wanted`, or "wanted (2)" with the first number that is free; a file's number stands before its suffix.
QString freeName(const QString &wanted, bool folder, const IsTaken &isTaken);
/// Number of characters before the suffix: what a rename selects. All of a folder's name.
int stemLength(const QString &name, bool folder);

} // namespace zel::clouddoc
