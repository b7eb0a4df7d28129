#include "platform/current_folder.h"

#include <unistd.h>

#include <filesystem>

#include "platform/native_path.h"

namespace oravin::platform {

bool SetCurrentFolder(const std::string& folder) {
  const std::string native = ToNativePath(folder);
  return !native.empty() && chdir(native.c_str()) == 0;
}

std::string CurrentFolder() {
  std::error_code failure;
  const std::filesystem::path here = std::filesystem::current_path(failure);
  std::string folder = ToWindowsPath(here.string());
  if (folder.empty() || folder.back() != '\\') folder += '\\';
  return folder;
}

}  // namespace oravin::platform
