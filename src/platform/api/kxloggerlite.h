#pragma once

#include "zelplatform_export.h"

#include <string>

/// The suite's logger for trace lines. Any thread. Lines go to the process's log at info level.
/// Never pass document names or credentials.
class ZELPLATFORM_EXPORT KxLoggerLite
{
public:
    static void writeInfo(const std::wstring &line); ///< UTF-32 as wchar_t on Linux
};
