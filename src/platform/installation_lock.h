#pragma once

#include <cstdint>
#include <string>

namespace oravin::platform {

/// A lock on a folder for one Oravin. It creates no file and is released when the process ends.
struct FolderLock {
  std::intptr_t handle = -1;
};

/// Locks an existing folder (a Windows path) for this process.
/// @return false if another process has locked it; true otherwise, also if the file system does not support locks
bool LockFolder(const std::string& folder, FolderLock& lock);

/// Releases the lock, if there is one.
void UnlockFolder(FolderLock& lock);

}  // namespace oravin::platform
