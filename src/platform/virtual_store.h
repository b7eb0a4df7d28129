#pragma once

#include <string>

namespace oravin::platform {

/// The folder in which Windows keeps the copies of files that older programs, the game among them, were not allowed to
/// change in their own place: `VirtualStore` below the user's local application data. It need not exist.
/// @return the folder as a Windows path that ends in a backslash; empty on systems that keep no such copies
std::string VirtualStore();

}  // namespace oravin::platform
