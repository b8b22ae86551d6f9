#pragma once

#include "support/xscreen.h"

#include <string>
#include <vector>

/// A program whose starts are measured, and the figures so far.
struct Program
{
    std::string path;
    std::string title;            ///< of its window
    bool hasRows = false;         ///< it lists documents in its window's lower half
    std::vector<double> mapped{}; ///< ms from exec until its window was mapped, one for each start
    std::vector<double> rows{};   ///< ms from exec until rows could be read, where it has some
    std::vector<double> pss{};    ///< MB once it had painted, for some of them
};

double median(std::vector<double> values); ///< -1 for none

/// A desktop's list with real files in the private home, so that nothing of the box's work is spared.
void writeRecentList(int records);

/// Starts it, waits for its window and rows, ends it; with `measureMemory` once it has painted. False: no
/// window came.
bool startOnce(zeltest::XScreen &screen, Program &program, bool measureMemory);

/// Both turn by turn, after one start each that does not count (caches warm, the box's database filled).
bool startTurnByTurn(zeltest::XScreen &screen, Program &one, Program &other, int rounds);
