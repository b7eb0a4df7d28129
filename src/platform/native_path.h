#pragma once

#include <string>

namespace oravin::platform {

/// Turns a Windows path of the core into a path of this machine.
///
/// On Windows the path is used as it is. Elsewhere the drive letters are those of the player's Wine prefix (the links
/// in its `dosdevices` folder; `WINEPREFIX`, else `~/.wine`), `Z:` is the root folder with or without a prefix, and
/// names are found without regard to case, keeping the spelling on disk. The part of a path that does not exist yet
/// keeps the spelling it is given in.
///
/// @param windowsPath a path with backslashes, absolute or relative to the current folder
/// @return the machine's path; empty when the drive letter leads nowhere
std::string ToNativePath(const std::string& windowsPath);

/// Turns a path of this machine, or a Windows path, into the Windows path that the core uses.
///
/// Away from Windows an absolute native path lies below `Z:`, a relative one is taken from the current folder first.
/// What already looks like a Windows path (a drive letter and a colon, or a backslash) stays as it is.
std::string ToWindowsPath(const std::string& path);

}  // namespace oravin::platform
