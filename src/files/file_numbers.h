#pragma once

#include <cstdint>

#include "files/file.h"

/// Numbers in open files. Offsets are 0-based; reading past the end throws a FileError.
namespace oravin {

std::uint32_t ReadLongBE(File& file, std::uint64_t offset);  ///< 4 bytes, big-endian
std::uint32_t ReadLongLE(File& file, std::uint64_t offset);  ///< 4 bytes, little-endian
std::uint32_t ReadWordBE(File& file, std::uint64_t offset);  ///< 2 bytes, big-endian
std::uint32_t Read24BE(File& file, std::uint64_t offset);    ///< 3 bytes, big-endian

}  // namespace oravin
