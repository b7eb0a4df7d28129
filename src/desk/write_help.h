#pragma once

#include <string>

#include "files/files.h"

namespace oravin {

/// Where Windows keeps the copies of a folder's files: the folder's path without its drive, below the store.
/// @param store platform::VirtualStore(), ending in a backslash; empty where the system keeps no such copies
/// @param folder a folder's path from the root on, ending in a backslash
/// @return that folder, ending in a backslash; empty when there is no copy of any file in it
std::string VirtualCopies(Files& files, const std::string& store, const std::string& folder);

/// The text of the box that refuses an action because of a file or folder that cannot be written: the path, why, what
/// helps, and that nothing has been changed. Copies of the folder's files that Windows keeps elsewhere are named.
/// @param path a file, or a folder, which ends in a backslash
/// @param reason why it cannot be written, as platform::WhyNotWritable and platform::WhyNoNewFiles tell
/// @param store as for VirtualCopies
std::string RefusalToWrite(Files& files, const std::string& path, const std::string& reason, const std::string& store);

}  // namespace oravin
