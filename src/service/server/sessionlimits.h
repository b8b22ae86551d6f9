#pragma once

#include <QtGlobal>
#include <chrono>

namespace zel::service {

/// What one client may make the service keep or wait for. Tests set smaller ones.
struct SessionLimits
{
    std::chrono::milliseconds handshakeTime{10000}; ///< until the first request is there
    std::chrono::milliseconds frameTime{30000};     ///< from a frame's first byte to its last
    std::chrono::milliseconds stallTime{60000};     ///< without a byte taken while more than pauseBytes wait
    qint64 pauseBytes = 8 << 20; ///< waiting to be sent; beyond, no request is read until all is sent
    qint64 mostBytes = 72 << 20; ///< waiting; whoever lets more pile up is dropped: an answer of the largest
                                 ///< size may come on top of pauseBytes
    qint64 mostOwedBytes = 64 << 20; ///< of the requests without an answer; beyond, none is read
    int mostOwed = 100000; ///< requests without an answer; beyond, none is read until half are answered
};

} // namespace zel::service
