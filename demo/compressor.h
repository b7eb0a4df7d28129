// The compressor for the entries of the game's archive, the counterpart of Oravin's decompressor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace oravin::demo {

/// How long the compressor searches.
enum class Effort {
  kFast,    ///< a few candidates a position
  kNormal,  ///< a good ratio at a good speed
  kBest,    ///< nearly every candidate
};

/// The largest content that an entry can hold: its size field has 24 bits.
inline constexpr std::size_t kMaxContent = 0xFFFFFF;

/// Compresses `data` as one entry of the archive: the bytes 10 FB, the size of `data` as a 24-bit big-endian number,
/// then the command stream, which ends in an end command (FC to FF). Throws std::length_error above kMaxContent.
std::vector<std::uint8_t> Compress(std::span<const std::uint8_t> data, Effort effort = Effort::kNormal);

}  // namespace oravin::demo
