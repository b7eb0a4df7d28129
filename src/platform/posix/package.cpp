#include "platform/package.h"

#include <filesystem>

#include "platform/native_path.h"
#include "platform/posix/wine_prefix.h"

namespace oravin::platform {

namespace {

namespace fs = std::filesystem;

std::string AsFolder(const fs::path& path) { return ToWindowsPath(path.lexically_normal().string() + "/"); }

}  // namespace

PackagePlaces PlacesOfPackage() {
  std::error_code failure;
  const fs::path executable = fs::read_symlink("/proc/self/exe", failure);
  const fs::path data = executable.parent_path().parent_path() / "share" / "oravin";
  if (failure || !fs::exists(data / "readme.txt", failure)) return {};
  // The XDG base directories must be absolute; a relative one is ignored.
  const fs::path chosen = Environment("XDG_DATA_HOME");
  const fs::path home = Environment("HOME");
  if (!chosen.is_absolute() && !home.is_absolute()) return {};
  const fs::path users = chosen.is_absolute() ? chosen : home / ".local" / "share";
  return {AsFolder(data), AsFolder(users / "oravin")};
}

}  // namespace oravin::platform
