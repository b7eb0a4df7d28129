#pragma once

#include <string>

namespace oravin::platform {

/// Makes a folder (a Windows path) the process's current one. Returns false, and changes nothing, when it is not there.
bool SetCurrentFolder(const std::string& folder);

/// The process's current folder as a Windows path that ends in a backslash.
std::string CurrentFolder();

/// A Windows path from the root on: one that is relative is taken from the current folder, others stay as they are.
std::string FromTheRoot(const std::string& path);

}  // namespace oravin::platform
