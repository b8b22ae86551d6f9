#pragma once

#include <sys/types.h>

/// What the kernel says of a process; see proc(5).
struct ProcessFigures
{
    long residentKb = 0;
    long wakeUps = 0; ///< times that it waited and went on, all threads

    static ProcessFigures of(pid_t pid);
};
