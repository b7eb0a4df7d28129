#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Text of the core is single-byte text in the game's code page (Windows-1252), one character per byte.
namespace oravin {

/// The text without spaces (code 32) at its ends.
std::string Trim(std::string_view text);

/// The same as a view of the given text.
std::string_view Trimmed(std::string_view text);

/// Trims the caller's text in place.
void TrimInPlace(std::string& text);

/// The character in upper case, accented letters included.
char UpperChar(char c);

/// The text in upper (lower) case, accented letters included.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// True if two names are equal: trimmed, without regard to case.
bool SameName(std::string_view a, std::string_view b);

/// A number with its digits grouped by thousands: 1,234,567.
std::string Grouped(unsigned long long number);

/// The names, each after a line break; of many only the first ones and the number of others.
std::string Listed(const std::vector<std::string>& names);

/// All names, each after a line break: for messages that can be scrolled.
std::string AllListed(const std::vector<std::string>& names);

/// Replaces a character that the code page lacks: the control character "substitute", shown as U+FFFD.
inline constexpr char substituteCharacter = '\x1A';

/// The text as UTF-8, for screens and JSON. Lossless: every byte has a character.
std::string ToUtf8(std::string_view text);

/// UTF-8 as text of the core. Characters outside the code page, and bytes that are not UTF-8, become substitutes; none
/// becomes a different character.
std::string FromUtf8(std::string_view utf8);

/// True if every character is printable in the code page: no control characters, substitutes included, and none of the
/// five undefined codes.
bool IsCodePageText(std::string_view text);

/// A text shortened for one line of a message box or label: the middle of a very long text is left out, and '?'
/// replaces unprintable characters.
std::string Presentable(std::string_view text);

}  // namespace oravin
