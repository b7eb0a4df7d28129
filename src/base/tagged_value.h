#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace oravin {

/// A value with its own type, as in the catalogue's file: a 16-bit little-endian tag, then the value with the size that
/// the tag implies.
///
///   tag  0  empty            no bytes
///   tag  1  null             no bytes
///   tag  2  whole number     2 bytes, signed
///   tag  3  whole number     4 bytes, signed
///   tag  4  single float     4 bytes
///   tag  5  double float     8 bytes
///   tag  8  text             2 bytes length, then the characters
///   tag 11  truth value      2 bytes, FFFF true, 0000 false
///   tag 17  byte             1 byte
struct TaggedValue {
  static constexpr std::uint16_t empty = 0;
  static constexpr std::uint16_t null = 1;
  static constexpr std::uint16_t int16 = 2;
  static constexpr std::uint16_t int32 = 3;
  static constexpr std::uint16_t single = 4;
  static constexpr std::uint16_t real = 5;
  static constexpr std::uint16_t text = 8;
  static constexpr std::uint16_t boolean = 11;
  static constexpr std::uint16_t byte = 17;

  std::uint16_t tag = empty;
  double number = 0;       ///< the value of every numeric tag; -1 for true
  std::string characters;  ///< the value of tag 8

  bool operator==(const TaggedValue&) const = default;
};

TaggedValue Int16Value(int number);
/// @param number taken as 32 bits; offsets of 2 GiB and more keep their bit pattern
TaggedValue Int32Value(std::uint32_t number);
TaggedValue BooleanValue(bool truth);

/// The value as a whole number, whatever its tag; text is parsed as a number, 0 if it is none.
std::int64_t WholeNumber(const TaggedValue& value);
/// The value as an unsigned 32-bit offset or size in an archive.
std::uint32_t Unsigned32(const TaggedValue& value);

/// Appends the value in its file form.
void AppendTagged(std::vector<std::uint8_t>& bytes, const TaggedValue& value);

/// Reads one value at `at` and advances `at`. Nothing if the tag is unknown or the bytes end too early.
std::optional<TaggedValue> TakeTagged(std::span<const std::uint8_t> bytes, std::size_t& at);

}  // namespace oravin
