#include "actions/rename_texture.h"

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/new_name.h"
#include "textures/cache_table.h"

namespace oravin {

std::optional<std::string> RenameCachedTexture(Host& host, const Installation& installation, std::size_t index,
                                               const std::optional<std::string>& oldName, const std::string& newName) {
  const std::string name = Trim(Trim(newName).substr(0, longestTextureName));
  const std::string cache = installation.cachePath();
  if (name.empty()) {
    Show(host, "Enter name for texture", Icon::exclamation);
    return std::nullopt;
  }
  const bool taken =
      Trapped(host, "FindStructOffset", false, [&] { return SlotNamed(ReadTcache(host.files, cache), name) >= 0; });
  if (taken) {
    Show(host, "Name already exists", Icon::exclamation);
    return std::nullopt;
  }
  if (!NameCanBeStored(host, name)) return std::nullopt;
  // All but the name is taken from the game's cache as it is now: the listed one may be another, or an older state.
  TcacheTable table;
  if (!Trap(host, "GetTcacheTable", [&] { table = GetTcacheTable(host.files, cache); })) return std::nullopt;
  if (index >= table.size() || (oldName && !SameName(table[index].name, *oldName))) {
    Show(host,
         "The game's texture cache has changed since this list was read. Open it again. Nothing has been changed.",
         Icon::exclamation);
    return std::nullopt;
  }
  table[index].name = name;
  const bool saved = Trap(host, "lstTcache_AfterLabelEdit()",
                          [&] { SaveTcacheEntry(host.files, cache, table, static_cast<int>(index)); });
  return saved ? std::optional(name) : std::nullopt;
}

}  // namespace oravin
