#pragma once

#include <string>
#include <string_view>

/// Texts of paths. Paths are Windows paths with backslashes; a folder's path ends in one. Arguments are trimmed first.
namespace oravin {

/// The trimmed path with a trailing backslash; empty for an empty path.
std::string AddBackslash(std::string_view path);

/// Everything up to the last backslash, inclusive. The last character is ignored, so a folder's path and the path of a
/// file in it give the same result. Empty without a backslash.
std::string ParentFolder(std::string_view path);

/// Everything after the last `\` or `:`; the last character is ignored.
/// Intentional: a name without a folder gives an empty text.
std::string FileNameOf(std::string_view path);

/// The extension in lower case without its dot; empty if longer than three characters.
std::string ExtensionOf(std::string_view path);

/// The path with its extension of at most three characters replaced. Without one, the new one is appended.
/// @param extension the new extension with its dot
std::string ChangeExtension(std::string_view path, std::string_view extension);

/// True if the trimmed text is not empty and all its characters have codes 32 to 127.
bool IsPrintableText(std::string_view text);

/// True if the name is a plain file name: no separator, drive, wildcard, or other character with a meaning of its own.
/// To be checked before a name from a list or archive becomes part of a path. Device names of Windows are refused on
/// every system, since the files may be copied to Windows: CON, PRN, AUX, NUL, CONIN$, CONOUT$, COM and LPT with a
/// digit (superscript 1, 2 and 3 count), also with extensions and with spaces before the first dot.
bool IsPlainFileName(std::string_view name);

/// True if the name matches the pattern, in which `*` matches any characters and `?` one, without regard to case. As on
/// Windows, ".*" at the pattern's end also matches no extension.
bool MatchesPattern(std::string_view name, std::string_view pattern);

}  // namespace oravin
