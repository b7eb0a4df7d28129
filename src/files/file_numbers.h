#pragma once

#include <cstdint>

#include "files/file.h"

/// Numbers in open files. Offsets are 0-based; a reader past the file's end throws a FileError. Results are never
/// negative.
namespace oravin {

std::uint32_t ReadLongBE(File& file, std::uint64_t offset);  ///< 4 bytes, the highest first
std::uint32_t ReadLongLE(File& file, std::uint64_t offset);  ///< 4 bytes, the lowest first
std::uint32_t ReadWordBE(File& file, std::uint64_t offset);  ///< 2 bytes, the highest first
std::uint32_t Read24BE(File& file, std::uint64_t offset);    ///< 3 bytes, the highest first

}  // namespace oravin
