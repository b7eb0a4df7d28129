#include "base/tagged_value.h"

#include <bit>
#include <charconv>
#include <cmath>

#include "base/bytes.h"
#include "base/text.h"

namespace oravin {

namespace {

/// The size of the value after its tag; for text that of its length field. Nothing for an unknown tag.
std::optional<std::size_t> WidthOf(std::uint16_t tag) {
  switch (tag) {
    case TaggedValue::empty:
    case TaggedValue::null:
      return 0;
    case TaggedValue::byte:
      return 1;
    case TaggedValue::int16:
    case TaggedValue::boolean:
    case TaggedValue::text:
      return 2;
    case TaggedValue::int32:
    case TaggedValue::single:
      return 4;
    case TaggedValue::real:
      return 8;
    default:
      return std::nullopt;
  }
}

std::uint64_t LittleEndian(std::span<const std::uint8_t> bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8 | bytes[i];
  return value;
}

void AppendLittleEndian(std::vector<std::uint8_t>& bytes, std::uint64_t value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

}  // namespace

TaggedValue Int16Value(int number) { return {TaggedValue::int16, static_cast<double>(number), {}}; }

TaggedValue Int32Value(std::uint32_t number) {
  return {TaggedValue::int32, static_cast<double>(static_cast<std::int32_t>(number)), {}};
}

TaggedValue BooleanValue(bool truth) { return {TaggedValue::boolean, truth ? -1.0 : 0.0, {}}; }

std::int64_t WholeNumber(const TaggedValue& value) {
  double number = value.number;
  if (value.tag == TaggedValue::text) {
    // Not strtod: its decimal point depends on the system's language.
    const std::string text = Trim(value.characters);
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc()) number = 0;
  }
  constexpr double farthest = 9.0e15;  // whole numbers up to here are exact; far above any value in the files
  if (std::isnan(number) || std::fabs(number) > farthest) return 0;
  return std::llrint(number);
}

std::uint32_t Unsigned32(const TaggedValue& value) { return static_cast<std::uint32_t>(WholeNumber(value)); }

void AppendTagged(std::vector<std::uint8_t>& bytes, const TaggedValue& value) {
  AppendLittleEndian(bytes, value.tag, 2);
  switch (value.tag) {
    case TaggedValue::text:
      AppendLittleEndian(bytes, value.characters.size(), 2);
      bytes.insert(bytes.end(), value.characters.begin(), value.characters.end());
      break;
    case TaggedValue::single:
      AppendLittleEndian(bytes, std::bit_cast<std::uint32_t>(static_cast<float>(value.number)), 4);
      break;
    case TaggedValue::real:
      AppendLittleEndian(bytes, std::bit_cast<std::uint64_t>(value.number), 8);
      break;
    default:
      AppendLittleEndian(bytes, static_cast<std::uint64_t>(WholeNumber(value)), WidthOf(value.tag).value_or(0));
      break;
  }
}

std::optional<TaggedValue> TakeTagged(std::span<const std::uint8_t> bytes, std::size_t& at) {
  if (at > bytes.size() || bytes.size() - at < 2) return std::nullopt;
  TaggedValue value;
  value.tag = static_cast<std::uint16_t>(LittleEndian(bytes.subspan(at, 2)));
  const std::optional<std::size_t> width = WidthOf(value.tag);
  if (!width || bytes.size() - at - 2 < *width) return std::nullopt;
  const std::uint64_t raw = LittleEndian(bytes.subspan(at + 2, *width));
  std::size_t end = at + 2 + *width;
  switch (value.tag) {
    case TaggedValue::int16:
    case TaggedValue::boolean:
      value.number = static_cast<std::int16_t>(raw);
      break;
    case TaggedValue::int32:
      value.number = static_cast<std::int32_t>(raw);
      break;
    case TaggedValue::single:
      value.number = static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(raw)));
      break;
    case TaggedValue::real:
      value.number = std::bit_cast<double>(raw);
      break;
    case TaggedValue::text:
      if (bytes.size() - end < raw) return std::nullopt;
      value.characters = TextOf(bytes.subspan(end, static_cast<std::size_t>(raw)));
      end += static_cast<std::size_t>(raw);
      break;
    default:
      value.number = static_cast<double>(raw);
      break;
  }
  at = end;
  return value;
}

}  // namespace oravin
