#include "base/posix/unixsocket.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

/// Starts a program as a service manager does for a connection: with a listening socket as descriptor 3.
/// usage: activate SOCKET_PATH PROGRAM [ARGUMENT...]
int main(int argc, char **argv)
{
    if (argc < 3)
        return 2;
    zel::posix::UniqueFd listener = zel::posix::listenUnix(argv[1]);
    if (!listener)
        return 3;
    // Without close-on-exec, which dup2() to the same number would keep.
    if (listener.get() == 3 ? ::fcntl(3, F_SETFD, 0) != 0 : ::dup2(listener.get(), 3) != 3)
        return 3;
    if (listener.get() == 3)
        listener.release();
    ::setenv("LISTEN_PID", std::to_string(::getpid()).c_str(), 1);
    ::setenv("LISTEN_FDS", "1", 1);
    ::execv(argv[2], argv + 2);
    std::perror(argv[2]);
    return 4;
}
