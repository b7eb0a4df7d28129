#pragma once

#include <optional>
#include <string>

namespace oravin::platform {

/// The one root that the game and the program use.
inline constexpr const char* localMachine = "HKEY_LOCAL_MACHINE";

/// Reads one string value of the registry.
///
/// On Windows from the 32-bit view, where the game's installer wrote. Elsewhere first from the program's own store, the
/// file `oravin/registry.reg` below the user's configuration folder (`XDG_CONFIG_HOME`, else `~/.config`), then from
/// the Wine prefix's `system.reg` (`WINEPREFIX`, else `~/.wine`), in its plain and its 32-bit view.
///
/// @param root the root key's name
/// @param key the key's path; a backslash at its end does not matter, nor does letter case
/// @param value the value's name; empty for the key's default value
/// @return the string, or nothing when there is no such string value
std::optional<std::string> RegReadString(const std::string& root, const std::string& key, const std::string& value);

/// Sets one string value of the registry; away from Windows in the program's own store.
/// @return true when the value was made or set
bool RegWriteString(const std::string& root, const std::string& key, const std::string& value, const std::string& text);

}  // namespace oravin::platform
