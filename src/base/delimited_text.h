#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace oravin {

/// Reads a text file of values that commas and line ends separate, value by value; a text value may stand in double
/// quotes and then may hold commas. Blanks around a value do not count.
struct DelimitedText {
  std::string path;      ///< named by the errors
  std::string_view all;  ///< the file's whole text; belongs to the caller
  std::size_t at = 0;
};

/// True when nothing but blanks, tabs and line ends is left.
bool AtEnd(DelimitedText& text);

/// Takes the next value as text. Two separators in a row hold an empty value between them.
/// @throws FileError at the end of the text, and for a quote that is not closed on its line or that is followed by
///   anything but a separator
std::string TakeText(DelimitedText& text);

/// The same where every line holds a value: an empty line holds an empty one. For texts whose values may be blank and
/// stand a line each.
/// @throws FileError as TakeText
std::string TakeItem(DelimitedText& text);

/// Takes the next value as a decimal number. The decimal point is a point whatever the system's language is.
/// @throws FileError as TakeText, and for a value that is no number
double TakeNumber(DelimitedText& text);

/// Takes the next value as a whole number from `lowest` to `highest`.
/// @throws FileError as TakeNumber, and for a number outside of these
std::int32_t TakeWhole(DelimitedText& text, std::int32_t lowest, std::int32_t highest);

}  // namespace oravin
