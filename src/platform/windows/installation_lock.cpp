#include "platform/installation_lock.h"

#include <array>
#include <cwchar>

#include "platform/windows/wide_text.h"

namespace oravin::platform {

namespace {

/// A name that is equal for every path of a folder, for a mutex in the global namespace; empty if the folder cannot be
/// examined.
std::wstring MarkOf(const std::wstring& folder) {
  const HANDLE handle = CreateFileW(folder.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return {};
  BY_HANDLE_FILE_INFORMATION facts{};
  const bool known = GetFileInformationByHandle(handle, &facts) != FALSE;
  CloseHandle(handle);
  if (!known) return {};
  std::array<wchar_t, 64> name{};
  std::swprintf(name.data(), name.size(), L"Global\\Oravin-%08lx-%08lx%08lx", facts.dwVolumeSerialNumber,
                facts.nFileIndexHigh, facts.nFileIndexLow);
  return name.data();
}

}  // namespace

bool LockFolder(const std::string& folder, FolderLock& lock) {
  UnlockFolder(lock);
  const std::wstring name = MarkOf(CallPath(folder));
  if (name.empty()) return true;
  // Its existence is enough: the system deletes the mutex with the last process that has it open.
  const HANDLE mark = CreateMutexW(nullptr, FALSE, name.c_str());
  const DWORD error = GetLastError();
  if (mark == nullptr) return error != ERROR_ACCESS_DENIED;  // access denied: another user's process has it
  if (error == ERROR_ALREADY_EXISTS) {
    CloseHandle(mark);
    return false;
  }
  lock.handle = reinterpret_cast<std::intptr_t>(mark);
  return true;
}

void UnlockFolder(FolderLock& lock) {
  if (lock.handle != -1) CloseHandle(reinterpret_cast<HANDLE>(lock.handle));  // NOLINT(performance-no-int-to-ptr)
  lock.handle = -1;
}

}  // namespace oravin::platform
