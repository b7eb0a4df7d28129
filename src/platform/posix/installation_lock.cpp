#include "platform/installation_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "platform/native_path.h"

namespace oravin::platform {

bool LockFolder(const std::string& folder, FolderLock& lock) {
  UnlockFolder(lock);
  const std::string native = ToNativePath(folder);
  const int file = open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return true;
  if (flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    close(file);
    return false;
  }
  lock.handle = file;
  return true;
}

void UnlockFolder(FolderLock& lock) {
  if (lock.handle >= 0) close(static_cast<int>(lock.handle));
  lock.handle = -1;
}

}  // namespace oravin::platform
