#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// Core text is bytes, Windows' own is UTF-16. A part of a path (between two backslashes) is Windows-1252, as all text
// of the core, if that code page has all its characters; any other part is UTF-8. In the opposite direction, a part
// that is valid UTF-8 is read as UTF-8. So every name of the file system has one spelling in the core and leads back to
// itself, names from the game's files keep their characters, and UTF-8 from a command line is understood.

namespace oravin::platform {

/// Text of the core, part by part, as UTF-16.
std::wstring ToWide(std::string_view text);

/// UTF-16 as text of the core, part by part.
std::string FromWide(std::wstring_view text);

/// UTF-16 as UTF-8.
std::string Utf8FromWide(std::wstring_view text);

/// A path of the core as the system's calls accept it: absolute, and with the prefix "\\?\" if it is too long for a
/// plain path. Empty for a path that no file can have: one with a second colon (a stream of another file) or a
/// wildcard.
std::wstring CallPath(const std::string& path);

/// Why a call on a path failed, in plain words.
/// @param error from GetLastError
/// @param path the path as passed to the call, to distinguish cases with the same error; may be empty
std::string Reason(DWORD error, const std::wstring& path = {});

}  // namespace oravin::platform
