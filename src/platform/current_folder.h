#pragma once

#include <string>

namespace oravin::platform {

/// Sets the process's current folder (a Windows path). Returns false, and changes nothing, if it does not exist.
bool SetCurrentFolder(const std::string& folder);

/// The process's current folder as a Windows path that ends in a backslash.
std::string CurrentFolder();

/// The absolute form of a Windows path; a relative one is resolved against the current folder.
std::string FromTheRoot(const std::string& path);

}  // namespace oravin::platform
