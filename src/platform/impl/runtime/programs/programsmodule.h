#pragma once

#include "kdocumentopener.h"

#include <QString>

namespace zel::platform {

/// What the module offers that knows the desktop's programs. It brings libraries of its own with it, so it is
/// loaded when somebody first asks. Both functions may block; any thread.
struct ProgramsModule
{
    /// For documents of this MIME type: the default one first, then as the desktop recommends them. Without
    /// those that hide themselves and without the box.
    KProgramList (*programsFor)(const QString &mimeType);
    /// Starts it with this document. Why that was not possible, for the log; empty when it was.
    QString (*launch)(const QString &programId, const QString &path);
};

/// Loads it on first use; null, with a warning in the log, when that is not possible. Any thread.
const ProgramsModule *programsModule();

/// The module's one symbol, a function `const ProgramsModule *()`.
#define ZEL_PROGRAMS_SYMBOL zelProgramsModule

} // namespace zel::platform
