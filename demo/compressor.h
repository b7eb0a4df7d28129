// Compressor for archive entries, the counterpart of Oravin's decompressor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace oravin::demo {

/// Search effort.
enum class Effort {
  kFast,    ///< a few candidates per position
  kNormal,  ///< a good ratio at a good speed
  kBest,    ///< nearly every candidate
};

/// The largest content of an entry: its size field has 24 bits.
inline constexpr std::size_t kMaxContent = 0xFFFFFF;

/// Compresses `data` as one archive entry: the bytes 10 FB, the size of `data` as a 24-bit big-endian number, then the
/// command stream, which ends with an end command (FC to FF). Throws std::length_error above kMaxContent.
std::vector<std::uint8_t> Compress(std::span<const std::uint8_t> data, Effort effort = Effort::kNormal);

}  // namespace oravin::demo
