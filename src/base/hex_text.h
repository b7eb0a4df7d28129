#pragma once

#include <array>
#include <cstdint>
#include <string>

/// Numbers as hexadecimal text and as bytes.
namespace oravin {

/// Hexadecimal text as 4 bytes, the most significant first. Only the last eight characters count. Trims the text and
/// converts it to upper case.
/// @return false when one of them is no hexadecimal digit; the bytes then hold the digits before it
bool HexToByteArray(std::string& text, std::array<std::uint8_t, 4>& bytes);

/// A number's hexadecimal text in upper case, without leading zeros.
std::string DecToHex(std::uint32_t number);

/// A number as 4 bytes, the least significant first. Only the lowest 32 bits are kept.
std::array<std::uint8_t, 4> DecToByteArray(std::uint64_t number);

}  // namespace oravin
