#pragma once

#include <QString>

namespace zel {

/// Asks a person for files or folders of this computer.
struct FileQuestion
{
    enum class Kind { File, Files, Folder };

    Kind kind = Kind::File;
    QString title;  ///< of the window
    QString accept; ///< on the button
    QString folder; ///< where to begin; empty: at home
};

} // namespace zel
