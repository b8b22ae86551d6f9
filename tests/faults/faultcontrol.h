#pragma once

#include <atomic>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

/// What the layer that is loaded before the C library (faultlayer.cpp) does with file calls below a folder.
/// Lies in the file that ZEL_FAULTS names, so that a test can change it while another process runs.
struct FaultControl
{
    enum Kind { Reads, Writes, Flushes, Looks, Kinds }; ///< Looks: for size, time or kind

    std::atomic<long> calls;       ///< counted so far
    std::atomic<long> failAt;      ///< the call with this number fails; 0: none
    std::atomic<bool> isFull;      ///< what writes or flushes fails
    std::atomic<int> error;        ///< errno of a failure
    std::atomic<int> takes[Kinds]; ///< ms, each call
    char folder[4096];             ///< without links; empty: nothing is touched
};

/// Makes the file or opens it; null when that fails. Stays mapped.
inline FaultControl *openFaultControl(const char *path)
{
    const int file = ::openat(AT_FDCWD, path, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    const bool made = file >= 0 && ::posix_fallocate(file, 0, sizeof(FaultControl)) == 0;
    void *mapped = made ? ::mmap(nullptr, sizeof(FaultControl), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0)
                        : MAP_FAILED;
    ::close(file);
    return mapped == MAP_FAILED ? nullptr : static_cast<FaultControl *>(mapped);
}
