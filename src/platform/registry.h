#pragma once

#include <optional>
#include <string>

namespace oravin::platform {

/// The root key of all values of the game and the program.
inline constexpr const char* localMachine = "HKEY_LOCAL_MACHINE";

/// Reads one string value of the registry.
///
/// On Windows from the 32-bit view, used by the game's installer. Elsewhere first from the program's own store,
/// `oravin/registry.reg` in the user's configuration folder (`XDG_CONFIG_HOME`, else `~/.config`), then from the Wine
/// prefix's `system.reg` (`WINEPREFIX`, else `~/.wine`), first the plain and then the 32-bit view.
///
/// @param root the root key's name
/// @param key the key's path; a trailing backslash and letter case do not matter
/// @param value the value's name; empty for the key's default value
/// @return the string, or nothing if there is no such string value
std::optional<std::string> RegReadString(const std::string& root, const std::string& key, const std::string& value);

/// Sets one string value of the registry; on other systems in the program's own store.
/// @return true on success
bool RegWriteString(const std::string& root, const std::string& key, const std::string& value, const std::string& text);

}  // namespace oravin::platform
