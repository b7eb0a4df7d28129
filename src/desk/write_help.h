#pragma once

#include <string>

#include "files/files.h"

namespace oravin {

/// Where Windows stores its copies of a folder's files (VirtualStore): the folder's path without its drive, below the
/// store.
/// @param store platform::VirtualStore(), ending in a backslash; empty on systems without such copies
/// @param folder an absolute folder path, ending in a backslash
/// @return the folder of the copies, ending in a backslash; empty if there are none
std::string VirtualCopies(Files& files, const std::string& store, const std::string& folder);

/// Text of the message that refuses an action because a file or folder cannot be written: the path, the reason, what
/// helps, and that nothing has been changed. Mentions copies of the folder's files in the VirtualStore.
/// @param path a file, or a folder ending in a backslash
/// @param reason from platform::WhyNotWritable or platform::WhyNoNewFiles
/// @param store as for VirtualCopies
std::string RefusalToWrite(Files& files, const std::string& path, const std::string& reason, const std::string& store);

}  // namespace oravin
