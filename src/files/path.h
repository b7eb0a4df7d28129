#pragma once

#include <string>
#include <string_view>

/// Texts of paths. Paths are Windows paths with backslashes; a folder's path ends in one. Spaces at the two ends of
/// what is given do not count.
namespace oravin {

/// The trimmed path with a backslash at its end; empty for an empty path.
std::string AddBackslash(std::string_view path);

/// Everything up to the last backslash, that one included; the last character is not looked at, so a folder's path and
/// the path of a file in it give the same. Empty without a backslash.
std::string ParentFolder(std::string_view path);

/// Everything after the last `\` or `:`; the last character is not looked at.
/// Intentional: a bare name gives an empty text.
std::string FileNameOf(std::string_view path);

/// The extension of at most three characters, in lower case and without its dot; empty for a longer one.
std::string ExtensionOf(std::string_view path);

/// The path with its extension of at most three characters replaced. Where there is none, the new one is appended.
/// @param extension the new extension with its dot
std::string ChangeExtension(std::string_view path, std::string_view extension);

/// True when the trimmed text is not empty and every character's code is between 32 and 127.
bool IsPrintableText(std::string_view text);

/// True when the name can stand for one file inside a folder: no separator, no drive, no wildcard, nothing that the
/// file system gives a meaning of its own. Names from lists and archives are asked this before a path is made of them.
/// Names of Windows devices are refused on every system, since the files may be copied to Windows: CON, PRN, AUX, NUL,
/// CONIN$, CONOUT$, COM and LPT with a digit (superscript 1, 2 and 3 count), also with extensions and with spaces
/// before the first dot.
bool IsPlainFileName(std::string_view name);

/// True when the name matches the pattern, in which `*` stands for any characters and `?` for one; case does not
/// matter. As on Windows, ".*" at the pattern's end stands for no extension too.
bool MatchesPattern(std::string_view name, std::string_view pattern);

}  // namespace oravin
