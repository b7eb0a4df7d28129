#pragma once

#include <string>
#include <string_view>

/// Paths are Windows paths with backslashes; a folder's path ends in one. Several procedures trim the caller's own
/// variable: what they were given without blanks is what the caller goes on with. That is meant.
namespace oravin {

/// The path with a backslash at its end; empty for an empty path. The caller's variable becomes the same.
std::string AddBackslash(std::string& path);

/// Everything up to the last backslash, that one included; the last character is not looked at, so a folder's path and
/// the path of a file in it give the same. Empty without a backslash. Trims the path.
std::string ParentFolder(std::string& path);
std::string ParentFolder(std::string&& path);

/// Everything behind the last `\` or `:`; the last character is not looked at. A bare name gives an empty text: that is
/// meant. Trims the path.
std::string FileNameOf(std::string& path);
std::string FileNameOf(std::string&& path);

/// The extension of at most three characters, in lower case and without its dot; empty for a longer one.
std::string ExtensionOf(const std::string& path);

/// The path with its extension of at most three characters replaced. Where there is none, the new one is appended.
/// Trims both.
/// @param extension the new extension with its dot
std::string ChangeExtension(std::string& path, std::string& extension);
std::string ChangeExtension(std::string&& path, std::string&& extension);

/// True when the text is not empty and every character's code is between 32 and 127. Trims the text.
bool IsPrintableText(std::string& text);
bool IsPrintableText(std::string&& text);

/// True when the name can stand for one file inside a folder: no separator, no drive, no wildcard, nothing that the
/// file system gives a meaning of its own. Names from lists and archives are asked this before a path is made of them.
/// Names of Windows devices are refused on every system, since the files may be copied to Windows: CON, PRN, AUX, NUL,
/// CONIN$, CONOUT$, COM and LPT with a digit (superscript 1, 2 and 3 count), also with extensions and with spaces
/// before the first dot.
bool IsPlainFileName(const std::string& name);

/// True when the name matches the pattern, in which `*` stands for any characters and `?` for one; case does not
/// matter. As on Windows, ".*" at the pattern's end stands for no extension too.
bool MatchesPattern(std::string_view name, std::string_view pattern);

}  // namespace oravin
