#pragma once

#include <QtGlobal>

/// While the application object is made: a display that is named and cannot be used ends the process with a
/// sentence of ours and exit code 1, where Qt would abort. GUI thread, one at a time.
class DisplayGuard
{
public:
    DisplayGuard();
    ~DisplayGuard(); ///< what Qt had to say until now is passed on
    DisplayGuard(const DisplayGuard &) = delete;
    DisplayGuard &operator=(const DisplayGuard &) = delete;
};
