#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace oravin::test {

/// Unpacks a compressed entry in the plainest way: command by command, byte by byte, every access checked.
/// @return nothing when the stream runs out or refers to what lies before its start
std::optional<std::vector<std::uint8_t>> ReferenceDecompress(std::span<const std::uint8_t> input);

}  // namespace oravin::test
