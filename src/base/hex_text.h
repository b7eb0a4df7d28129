#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/bytes.h"

/// Numbers as hexadecimal text and as bytes.
namespace oravin {

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
