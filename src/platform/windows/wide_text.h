#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// The core's text is bytes, Windows' own is UTF-16. A part of a path (what stands between two backslashes) is
// Windows-1252, as all text of the core, wherever that code page has all its characters; any other part is UTF-8. Read
// the other way round, a part that is valid UTF-8 is taken for that. So every name of the file system has one spelling
// in the core and leads back to itself, a name from one of the game's files keeps its letters, and UTF-8 from a command
// line is understood.

namespace oravin::platform {

/// Text of the core, part by part, as Windows' own.
std::wstring ToWide(std::string_view text);

/// Windows' text as the core's, part by part.
std::string FromWide(std::wstring_view text);

/// Windows' text as UTF-8.
std::string Utf8FromWide(std::wstring_view text);

/// A path of the core as the system's calls take it: whole, and marked by "\\?\" when it is longer than they take
/// plain. Empty for a path that no file can have: one with a colon behind the drive's (a part of another file), or with
/// a wildcard.
std::wstring CallPath(const std::string& path);

/// Why a call on a path failed, in plain words.
/// @param error what GetLastError said
/// @param path the path as the call was given it, to tell apart what the system gives one number; may be empty
std::string Reason(DWORD error, const std::wstring& path = {});

}  // namespace oravin::platform
