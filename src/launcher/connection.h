#pragma once

#include "base/posix/deadline.h"
#include "base/posix/uniquefd.h"
#include "launcher/frame.h"

#include <string>

namespace zel::launcher {

/// One later start as the running box's launcher sees it: reads its message, holds it until there is a reply,
/// sends that. Server thread only; never blocks.
class Connection
{
public:
    enum class State {
        Reading,
        Waiting, ///< the message is complete and nobody has handled it yet
        Writing,
        Done ///< close it: answered, gone, silent for too long, or not speaking our language
    };

    /// `silence` is how long the other end may stay silent in the middle of a message.
    Connection(posix::UniqueFd fd, std::chrono::milliseconds silence);

    State state() const { return m_state; }
    int fd() const { return m_fd.get(); }
    short wantedEvents() const; ///< for poll
    bool hasDeadline() const { return m_state == State::Reading || m_state == State::Writing; }
    posix::Deadline deadline() const { return m_deadline; }

    void handle(short events);       ///< what poll reported
    void expire();                   ///< ends it when its deadline has passed
    Message message() const;         ///< when waiting
    void reply(std::u16string text); ///< when waiting

private:
    void read();
    void write();
    void proceed(State state);

    posix::UniqueFd m_fd;
    FrameReader m_reader;
    std::string m_reply;
    std::size_t m_written = 0;
    std::chrono::milliseconds m_silence;
    posix::Deadline m_deadline;
    State m_state = State::Reading;
};

} // namespace zel::launcher
