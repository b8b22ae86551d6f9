#pragma once

#include "widgets/actiontable.h"

/// What can be done on the Recent page.
enum class RecentCommand {
    Open,
    OpenWith,
    OpenFolder,
    Share,
    Pin, ///< or unpin
    Copy,
    CopyPath,
    Remove,
    DeleteFile,
    TipOff,
    Undo,
    Refresh,
};

/// Their texts, icons and keys. GUI thread.
const zel::ActionTable &recentActionTable();
