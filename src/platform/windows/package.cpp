#include "platform/package.h"

#include "platform/file_system.h"
#include "platform/windows/wide_text.h"

namespace oravin::platform {

PackagePlaces PlacesOfPackage() {
  // The call truncates a longer path and does not return the needed size.
  std::wstring executable(MAX_PATH, L'\0');
  DWORD length = GetModuleFileNameW(nullptr, executable.data(), static_cast<DWORD>(executable.size()));
  while (length == executable.size()) {
    executable.resize(2 * executable.size());
    length = GetModuleFileNameW(nullptr, executable.data(), static_cast<DWORD>(executable.size()));
  }
  executable.resize(length);
  const std::size_t backslash = executable.find_last_of(L'\\');
  if (backslash == std::wstring::npos) return {};
  const std::string folder = FromWide(executable.substr(0, backslash + 1));
  if (LookAt(folder + "readme.txt").presence != Presence::visible) return {};
  return {folder, folder};
}

}  // namespace oravin::platform
