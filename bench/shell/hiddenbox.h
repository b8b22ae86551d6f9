#pragma once

#include "measuredprocess.h"
#include "support/xscreen.h"

#include <filesystem>
#include <map>
#include <string>

/// What the box does while nobody looks at it.
struct HiddenFigures
{
    std::map<std::string, long> boxWakeUps;     ///< by the thread's name
    std::map<std::string, long> serviceWakeUps; ///< of the cloud-service process
    double shownMegabytes = 0;                  ///< PSS before it was hidden
    double hiddenMegabytes = 0;                 ///< and when the measured time was over
    double serviceMegabytes = 0;                ///< PSS of the cloud-service process
};

/// Starts the box with `bin/zelbox`, hides it as the tray does, waits until it has come to rest (at most 20
/// s) and then watches it for `seconds`. False when a step failed.
bool watchHiddenBox(
    zeltest::XScreen &screen, const std::filesystem::path &bin, int seconds, HiddenFigures &figures);
