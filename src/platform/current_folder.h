#pragma once

#include <string>

namespace oravin::platform {

/// Makes a folder (a Windows path) the process's current one. Returns false, and changes nothing, when it is not there.
bool SetCurrentFolder(const std::string& folder);

/// The process's current folder as a Windows path that ends in a backslash.
std::string CurrentFolder();

}  // namespace oravin::platform
