#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// One message between two launchers, as bytes: "ZELM", version, length of the channel's name, length of the
/// text (both in UTF-16 units), then the units of both, all in the machine's byte order. A connection carries
/// one frame each way.
namespace zel::launcher {

struct Message
{
    std::u16string channel; ///< empty in replies
    std::u16string text;

    bool operator==(const Message &) const = default;
};

struct FrameHeader
{
    char magic[4];
    std::uint16_t version;
    std::uint16_t channelUnits;
    std::uint32_t textUnits;
};

inline constexpr std::size_t maxFrameBytes = 8 * 1024 * 1024; ///< with its header

/// Empty when the message does not fit into a frame.
std::optional<std::string> encodeFrame(const Message &message);

/// Reads one frame from pieces of any size. Never holds more than has arrived, whatever length a frame
/// claims.
class FrameReader
{
public:
    enum class State { Incomplete, Complete, Broken };

    /// Broken stays broken: wrong mark or version, too long, or bytes behind the frame.
    State feed(std::string_view bytes);
    Message message() const; ///< when complete

private:
    State checked();
    FrameHeader header() const;
    std::size_t expectedSize() const;

    std::string m_bytes;
    State m_state = State::Incomplete;
};

} // namespace zel::launcher
