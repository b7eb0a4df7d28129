#pragma once

#include <string>

namespace oravin::platform {

/// True if native paths are always UTF-8; false if their encoding depends on the user's locale.
#ifdef _WIN32
inline constexpr bool nativePathsAreUtf8 = true;
#else
inline constexpr bool nativePathsAreUtf8 = false;
#endif

/// Converts a Windows path of the core to a native path.
///
/// Names are found without regard to case and get their spelling on disk; missing parts keep the given spelling. On
/// Windows the result is UTF-8. Elsewhere drive letters are those of the player's Wine prefix (the links in its
/// `dosdevices` folder; `WINEPREFIX`, else `~/.wine`), and `Z:` is the root folder even without a prefix.
///
/// @param windowsPath a path with backslashes, absolute or relative to the current folder
/// @return the native path; empty if the drive does not exist
std::string ToNativePath(const std::string& windowsPath);

/// Converts a native path, or a Windows path, to a Windows path of the core.
///
/// On other systems than Windows, an absolute native path becomes one on `Z:`, and a relative one is resolved against
/// the current folder. Anything that looks like a Windows path (a drive letter and a colon, or a backslash) is
/// unchanged. On Windows slashes become backslashes, and a path without a drive or server is resolved against the
/// current folder.
std::string ToWindowsPath(const std::string& path);

}  // namespace oravin::platform
