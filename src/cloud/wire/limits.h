#pragma once

#include <cstdint>

/// What either end accepts from the other. A message that breaks one of these ends its connection.
namespace zel::wire {

inline constexpr uint32_t LargestFrame = 64u << 20;   ///< bytes after the length
inline constexpr uint32_t LargestText = 32u << 20;    ///< bytes of one string
inline constexpr uint32_t LargestContainer = 1000000; ///< entries of one list or map
/// Entries of all containers of a message together; without it lists of lists could ask for any amount of
/// memory.
inline constexpr uint32_t MostEntries = 4000000;
/// Of these, records: up to two kilobytes each in memory.
inline constexpr uint32_t MostRecords = 100000;
/// A record that was written whole takes at least so many bytes; one made to take fewer only asks for memory.
inline constexpr uint32_t SmallestRecord = 8;
inline constexpr uint32_t DeepestNesting = 32; ///< records within records
inline constexpr uint32_t LongestMethodName = 200;

/// Version of the link, told in the first request of a connection. Rises when an end that does not know the
/// change would misunderstand the other; fields and methods may be added without it.
inline constexpr int32_t ProtocolVersion = 1;

} // namespace zel::wire
