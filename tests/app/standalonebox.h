#pragma once

#include "app/zelboxapplication.h"

/// The application object of a box of its own, without the entry around it.
struct StandAloneBox
{
    int argc = 1;
    char name[7] = "zelbox";
    char *argv[2] = {name, nullptr};
    ZelBoxApplicationIndependentProcesses application{argc, argv};
};
