#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace oravin {

/// Reads a text file whose values are separated by commas and line ends. A text value may be in double quotes and may
/// then contain commas. Spaces around a value are ignored.
struct DelimitedText {
  std::string path;      ///< for error messages
  std::string_view all;  ///< the whole text; owned by the caller
  std::size_t at = 0;
};

/// True when only spaces, tabs and line ends are left.
bool AtEnd(DelimitedText& text);

/// Returns the next value as text. Between two consecutive separators there is an empty value.
/// @throws FileError at the end of the text, for a quote that is not closed on its line, and for one that is not
///   followed by a separator
std::string TakeText(DelimitedText& text);

/// The same for texts with one value per line: an empty line is an empty value.
/// @throws FileError as TakeText
std::string TakeItem(DelimitedText& text);

/// Returns the next value as a decimal number. The decimal point is always a point.
/// @throws FileError as TakeText, and for a value that is not a number
double TakeNumber(DelimitedText& text);

/// Returns the next value as a whole number from `lowest` to `highest`.
/// @throws FileError as TakeNumber, and for a number outside that range
std::int32_t TakeWhole(DelimitedText& text, std::int32_t lowest, std::int32_t highest);

}  // namespace oravin
