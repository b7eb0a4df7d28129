#pragma once

#include <cstdlib>
#include <string>

namespace oravin::platform {

inline std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

/// The player's Wine prefix as a native folder: `WINEPREFIX`, else `~/.wine`. It need not exist.
inline std::string WinePrefix() {
  const std::string chosen = Environment("WINEPREFIX");
  return chosen.empty() ? Environment("HOME") + "/.wine" : chosen;
}

}  // namespace oravin::platform
