#pragma once

#include <string>

namespace oravin::platform {

/// The folder in which Windows stores copies of files that older programs, such as the game, were not allowed to
/// change: `VirtualStore` in the user's local application data. It need not exist.
/// @return the folder as a Windows path that ends in a backslash; empty on systems without such copies
std::string VirtualStore();

}  // namespace oravin::platform
