#pragma once

#include <cstdint>
#include <string>

namespace oravin::platform {

/// The mark that one copy of the program works on a folder. It leaves no file behind and goes with the process.
struct FolderLock {
  std::intptr_t handle = -1;
};

/// Marks an existing folder (a Windows path) as worked on by this process.
/// @return false when another process has marked it; true otherwise, also where the file system knows no such marks
bool LockFolder(const std::string& folder, FolderLock& lock);

/// Takes the mark away again; nothing happens where there is none.
void UnlockFolder(FolderLock& lock);

}  // namespace oravin::platform
