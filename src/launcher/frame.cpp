#include "launcher/frame.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace zel::launcher {
namespace {

constexpr char magic[4] = {'Z', 'E', 'L', 'M'};
constexpr std::uint16_t version = 1;
constexpr std::size_t headerSize = sizeof(FrameHeader);

static_assert(headerSize == 12, "a header without padding");

void append(std::string &bytes, std::u16string_view units)
{
    bytes.append(reinterpret_cast<const char *>(units.data()), units.size() * sizeof(char16_t));
}

std::u16string unitsAt(const std::string &bytes, std::size_t offset, std::size_t count)
{
    std::u16string units(count, u'\0');
    std::memcpy(units.data(), bytes.data() + offset, count * sizeof(char16_t));
    return units;
}

std::size_t frameSize(std::size_t channelUnits, std::size_t textUnits)
{
    return headerSize + (channelUnits + textUnits) * sizeof(char16_t);
}

} // namespace

std::optional<std::string> encodeFrame(const Message &message)
{
    constexpr std::size_t maxChannel = std::numeric_limits<std::uint16_t>::max();
    const std::size_t size = frameSize(message.channel.size(), message.text.size());
    if (message.channel.size() > maxChannel || size > maxFrameBytes)
        return std::nullopt;
    FrameHeader header = {};
    std::memcpy(header.magic, magic, sizeof(magic));
    header.version = version;
    header.channelUnits = static_cast<std::uint16_t>(message.channel.size());
    header.textUnits = static_cast<std::uint32_t>(message.text.size());
    std::string bytes;
    bytes.reserve(size);
    bytes.append(reinterpret_cast<const char *>(&header), headerSize);
    append(bytes, message.channel);
    append(bytes, message.text);
    return bytes;
}

FrameReader::State FrameReader::feed(std::string_view bytes)
{
    if (m_state == State::Broken)
        return m_state;
    m_bytes += bytes;
    m_state = checked();
    if (m_state == State::Broken)
        m_bytes = {};
    return m_state;
}

FrameReader::State FrameReader::checked()
{
    const std::size_t known = std::min(m_bytes.size(), sizeof(magic));
    if (std::memcmp(m_bytes.data(), magic, known) != 0)
        return State::Broken;
    if (m_bytes.size() < headerSize)
        return State::Incomplete;
    if (header().version != version || expectedSize() > maxFrameBytes || m_bytes.size() > expectedSize())
        return State::Broken;
    return m_bytes.size() == expectedSize() ? State::Complete : State::Incomplete;
}

Message FrameReader::message() const
{
    const FrameHeader head = header();
    const std::size_t textOffset = headerSize + head.channelUnits * sizeof(char16_t);
    return {unitsAt(m_bytes, headerSize, head.channelUnits), unitsAt(m_bytes, textOffset, head.textUnits)};
}

FrameHeader FrameReader::header() const
{
    FrameHeader header = {};
    std::memcpy(&header, m_bytes.data(), headerSize);
    return header;
}

std::size_t FrameReader::expectedSize() const
{
    const FrameHeader head = header();
    return frameSize(head.channelUnits, head.textUnits);
}

} // namespace zel::launcher
