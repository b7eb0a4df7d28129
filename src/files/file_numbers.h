#pragma once

#include <cstdint>
#include <string>

#include "files/files.h"

/// Numbers and texts of open files. Offsets are 0-based; a reader past the file's end throws a RunTimeError. Results
/// are never negative.
namespace oravin {

std::uint32_t ReadLongBE(Files& files, std::uint64_t offset, int handle);  ///< 4 bytes, the highest first
std::uint32_t ReadLongLE(Files& files, std::uint64_t offset, int handle);  ///< 4 bytes, the lowest first
std::uint32_t ReadWordBE(Files& files, std::uint64_t offset, int handle);  ///< 2 bytes, the highest first
std::uint32_t ReadWordLE(Files& files, std::uint64_t offset, int handle);  ///< 2 bytes, the lowest first
std::uint32_t Read24BE(Files& files, std::uint64_t offset, int handle);    ///< 3 bytes, the highest first

struct CString {
  std::string text;        ///< the characters before the zero byte
  std::uint64_t next = 0;  ///< the offset just behind the zero byte
};

/// Reads the characters from `offset` up to the first zero byte.
CString ReadCString(Files& files, std::uint64_t offset, int handle);

}  // namespace oravin
