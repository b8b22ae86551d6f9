#pragma once

#include "widgets/actiontable.h"

/// What can be done on the cloud page.
enum class CloudCommand {
    Open,
    Reveal,
    Download,
    Cut,
    Copy,
    Paste,
    MoveTo,
    Rename,
    Trash,
    NewFolder,
    UploadFiles,
    UploadFolder,
    Undo,
    Reload,
    Back,
    Forward,
    Up,
};

/// Their texts, icons and keys. GUI thread.
const zel::ActionTable &cloudActionTable();
