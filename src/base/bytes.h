#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Numbers and text inside byte arrays. Integers are composed by shifts, so the machine's own byte order does not
/// matter.
namespace oravin {

using Bytes = std::vector<std::uint8_t>;

inline std::uint32_t BigEndian32(const std::uint8_t* at) {
  return std::uint32_t{at[0]} << 24 | std::uint32_t{at[1]} << 16 | std::uint32_t{at[2]} << 8 | at[3];
}

inline std::uint32_t LittleEndian32(const std::uint8_t* at) {
  return std::uint32_t{at[3]} << 24 | std::uint32_t{at[2]} << 16 | std::uint32_t{at[1]} << 8 | at[0];
}

inline void PutBigEndian32(std::uint8_t* at, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) at[i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
}

inline void PutLittleEndian32(std::uint8_t* at, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) at[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

/// Bytes as characters, one per byte.
inline std::string TextOf(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

/// Characters as bytes, one per character.
inline Bytes BytesOf(std::string_view text) { return {text.begin(), text.end()}; }

}  // namespace oravin
