#pragma once

#include "krecentfile.h"

#include <QTimer>

/// Tells of single clicks on documents, for telemetry: a click counts as one only when no second one on the
/// same document follows. GUI thread.
class RecentClicks
{
public:
    RecentClicks();

    void add(int row, const RecentFileInfo &record);
    void tell();   ///< what has waited for a second click is one
    void forget(); ///< it was the first half of a double click

private:
    QTimer m_timer; // runs while one is to be told of
    int m_row = -1;
    RecentFileInfo m_record; // as it was then
};
