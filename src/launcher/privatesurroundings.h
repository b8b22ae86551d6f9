#pragma once

#include <string>

namespace zel::launcher {

/// Temporary folders in place of the user's, for this process and those it starts. Removed with the object.
/// One thread.
class PrivateSurroundings
{
public:
    PrivateSurroundings() = default;
    ~PrivateSurroundings();
    PrivateSurroundings(const PrivateSurroundings &) = delete;
    PrivateSurroundings &operator=(const PrivateSurroundings &) = delete;

    /// Makes the folders and points the environment to them; the display and the session bus stay reachable.
    /// False with errno on failure.
    bool enter();
    const std::string &folder() const { return m_folder; }

private:
    std::string m_folder;
};

} // namespace zel::launcher
