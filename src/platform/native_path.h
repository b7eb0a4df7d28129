#pragma once

#include <string>

namespace oravin::platform {

/// Whether the machine's paths are UTF-8 in any case, or bytes that the user's settings say how to read.
#ifdef _WIN32
inline constexpr bool nativePathsAreUtf8 = true;
#else
inline constexpr bool nativePathsAreUtf8 = false;
#endif

/// Turns a Windows path of the core into a path of this machine.
///
/// Names are found without regard to case, keeping the spelling on disk; the part of a path that does not exist yet
/// keeps the spelling it is given in. On Windows the path is UTF-8. Elsewhere the drive letters are those of the
/// player's Wine prefix (the links in its `dosdevices` folder; `WINEPREFIX`, else `~/.wine`), and `Z:` is the root
/// folder with or without a prefix.
///
/// @param windowsPath a path with backslashes, absolute or relative to the current folder
/// @return the machine's path; empty when the drive letter leads nowhere
std::string ToNativePath(const std::string& windowsPath);

/// Turns a path of this machine, or a Windows path, into the Windows path that the core uses.
///
/// Away from Windows an absolute native path lies below `Z:`, a relative one is taken from the current folder first.
/// What already looks like a Windows path (a drive letter and a colon, or a backslash) stays as it is. On Windows a
/// slash becomes a backslash, and a path that does not begin with a drive or a machine is taken from the current
/// folder.
std::string ToWindowsPath(const std::string& path);

}  // namespace oravin::platform
