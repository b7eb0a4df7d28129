// Extracting and opening textures from the "Tcache Editor" tab.
#include "actions/extract_textures.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "tabs/texture_tab.h"

namespace oravin {

namespace {

constexpr int enterKey = 13;

std::vector<const TcacheEntry*> SelectedTextures(const TcacheTab& tab) {
  std::vector<const TcacheEntry*> selected;
  for (const ListRow& row : tab.lstTcache.rows) {
    const TcacheEntry* entry = row.selected ? TextureOfRow(tab, row) : nullptr;
    if (entry != nullptr) selected.push_back(entry);
  }
  return selected;
}

void ShowStep(Host& host, TcacheTab& tab, const TcacheEntry& entry, int done, int total) {
  const std::string name = Trim(entry.name);
  if (entry.pixelFormat == colourFormat) tab.lblTcacheStructs.caption = "Extracting and converting " + name;
  if (entry.pixelFormat == paletteFormat) tab.lblTcacheStructs.caption = "Extracting " + name;
  ShowProgress(host, tab.lblTcacheStructs.caption, done, total);
}

}  // namespace

void cmdExtractTcache_Click(Host& host, TcacheTab& tab, const Installation& installation) {
  const std::string folder = Trim(tab.txtTcacheDestination.text);
  if (!FolderExists(host.files, folder)) {
    Show(host, "Destination path not found", Icon::exclamation);
    return;
  }
  ExtractionRun run;
  const bool all = Trap(host, "cmdExtractTcache_Click()", [&] {
    run = BeginExtraction(host.files, tab.openCache, AddBackslash(folder));
    const std::vector<const TcacheEntry*> selected = SelectedTextures(tab);
    for (std::size_t i = 0; i < selected.size(); ++i) {
      ShowStep(host, tab, *selected[i], static_cast<int>(i), static_cast<int>(selected.size()));
      ExtractNext(host.files, installation, run, tab.table, *selected[i]);
    }
  });
  EndProgress(host);
  tab.lblTcacheStructs.caption = std::to_string(tab.textureCount) + " texture(s)";
  if (all) ShowExtracted(host, run);
}

void lstTcache_DblClick(Host& host, TcacheTab& tab, const Installation& installation) {
  const auto row = SelectedRow(tab.lstTcache);
  const TcacheEntry* entry = row ? TextureOfRow(tab, tab.lstTcache.rows[*row]) : nullptr;
  if (entry != nullptr) PaintTexture(host, installation, tab.openCache, tab.table, *entry);
}

void lstTcache_KeyDown(Host& host, TcacheTab& tab, const Installation& installation, int keyCode) {
  if (keyCode == enterKey) lstTcache_DblClick(host, tab, installation);
}

}  // namespace oravin
