#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "util/bytes.h"
#include "util/files.h"

/// Bytes of open files as numbers and text, and numbers as text and bytes. Offsets are 0-based; a reader past the
/// file's end throws a RunTimeError. Results are never negative.
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

/// The characters of the trimmed text as bytes; an empty text gives one byte 0 and the count 0.
/// @return the number of characters
std::size_t StrToByteArray(const std::string& text, Bytes& bytes);

/// Hexadecimal text as 4 bytes, the most significant first. Only the last eight characters count. Trims the text and
/// puts it in upper case.
/// @return false at a character that is no hexadecimal digit, with the bytes filled in part
bool HexToByteArray(std::string& text, std::array<std::uint8_t, 4>& bytes);

/// A number's hexadecimal text in upper case, without leading zeros.
std::string DecToHex(std::uint32_t number);

/// A number as 4 bytes, the least significant first, as a little-endian field of a file takes them. A number that needs
/// more than 32 bits keeps its lowest 32.
std::array<std::uint8_t, 4> DecToByteArray(std::uint64_t number);

/// The value divided by 2, n times, without remainders; and multiplied by 2, n times.
std::int64_t ShiftRight(std::int64_t value, int count);
std::int64_t ShiftLeft(std::int64_t value, int count);

}  // namespace oravin
