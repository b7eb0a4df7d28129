#include "platform/current_folder.h"

#include "platform/windows/wide_text.h"

namespace oravin::platform {

bool SetCurrentFolder(const std::string& folder) {
  const std::wstring native = ToWide(folder);
  return !native.empty() && SetCurrentDirectoryW(native.c_str()) != FALSE;
}

std::string CurrentFolder() {
  std::wstring here(GetCurrentDirectoryW(0, nullptr), L'\0');
  here.resize(GetCurrentDirectoryW(static_cast<DWORD>(here.size()), here.data()));
  std::string folder = FromWide(here);
  if (folder.empty() || folder.back() != '\\') folder += '\\';
  return folder;
}

}  // namespace oravin::platform
