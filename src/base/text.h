#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Text of the core is single-byte text in the game's code page (Windows-1252), one character a byte.
namespace oravin {

/// The text without the blanks (code 32) at its two ends.
std::string Trim(std::string_view text);

/// The same as a part of the text that is given; good as long as that lives.
std::string_view Trimmed(std::string_view text);

/// Removes the blanks at the two ends of the caller's own text.
void TrimInPlace(std::string& text);

/// A letter in upper case, accented ones included; another character as it is.
char UpperChar(char c);

/// The text with its letters in upper (lower) case, accented ones included.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// True when the two are one name: equal after trimming, without regard to case.
bool SameName(std::string_view a, std::string_view b);

/// A number with its digits grouped by thousands: 1,234,567.
std::string Grouped(unsigned long long number);

/// The names one a line, each behind a line break; of many only the first ones and how many more there are.
std::string Listed(const std::vector<std::string>& names);

/// All names one a line, each after a line break: for messages that can be scrolled.
std::string AllListed(const std::vector<std::string>& names);

/// Stands in text of the core for a character that the code page lacks: the control character "substitute". On a screen
/// it is the replacement character U+FFFD.
inline constexpr char substituteCharacter = '\x1A';

/// The text as UTF-8, for screens and JSON; every byte has a character, so nothing is lost.
std::string ToUtf8(std::string_view text);

/// UTF-8 as text of the core. A character outside the code page becomes a substitute, and so does each byte that is no
/// UTF-8: nothing that was typed is taken for another character.
std::string FromUtf8(std::string_view utf8);

/// True when every character is one of the code page's own: no control character, a substitute included, and none of
/// the five codes that Windows-1252 leaves free.
bool IsCodePageText(std::string_view text);

/// A text as a line of a box or a label has room for it: its middle left out where it is very long, and a '?' for what
/// cannot be shown.
std::string Presentable(std::string_view text);

}  // namespace oravin
