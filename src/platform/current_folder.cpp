#include "platform/current_folder.h"

namespace oravin::platform {

std::string FromTheRoot(const std::string& path) {
  const bool hasDrive = path.size() >= 2 && path[1] == ':';
  const bool relative = !path.empty() && path[0] != '\\' && path[0] != '/' && !hasDrive;
  return relative ? CurrentFolder() + path : path;
}

}  // namespace oravin::platform
