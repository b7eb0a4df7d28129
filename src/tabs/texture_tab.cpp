#include "tabs/texture_tab.h"

#include <algorithm>

#include "actions/restore_cache.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/new_name.h"
#include "desk/write_plan.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "textures/cache_table.h"

namespace oravin {

namespace {

/// The 64-bit FNV-1a sum of some bytes, going on from an earlier one.
std::uint64_t Sum(std::uint64_t sum, std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) sum = (sum ^ byte) * 0x100000001B3U;
  return sum;
}

std::uint64_t SealOf(const TcacheBytes& cache) {
  Bytes head(16);
  PutLittleEndian32(head.data(), static_cast<std::uint32_t>(cache.count));
  PutLittleEndian32(&head[4], static_cast<std::uint32_t>(cache.dataEnd));
  PutLittleEndian32(&head[8], static_cast<std::uint32_t>(cache.length));
  PutLittleEndian32(&head[12], static_cast<std::uint32_t>(cache.length >> 32));
  return Sum(Sum(0xCBF29CE484222325U, head), cache.slots);
}

std::string FormatText(std::int32_t pixelFormat) {
  return pixelFormat == paletteFormat ? "8-bit" : pixelFormat == colourFormat ? "16-bit" : "Unsupported";
}

/// The digits grouped by thousands. Intentional: none for 0, which is how the given pattern "##,###,###,###" writes it.
std::string GroupedSigned(std::int32_t number) {
  if (number == 0) return {};
  const auto magnitude = static_cast<unsigned long long>(number < 0 ? -static_cast<std::int64_t>(number) : number);
  return (number < 0 ? "-" : "") + Grouped(magnitude);
}

void SetOpen(TcacheTab& tab, bool open) {
  for (Button* button :
       {&tab.cmdSelectNoneTcache, &tab.cmdExtractTcache, &tab.cmdSelectAllTcache, &tab.cmdCloseTcache}) {
    button->enabled = open;
  }
  tab.cmdOpenTcache.enabled = !open;
}

void ClearStatus(TcacheTab& tab) {
  tab.lblTcacheStatus.caption.clear();
  tab.cmdReopenTcache.enabled = false;
}

ListRow RowOf(const TcacheEntry& entry, std::size_t index) {
  return {static_cast<int>(index),
          {entry.name, std::to_string(entry.width) + " x " + std::to_string(entry.height),
           FormatText(entry.pixelFormat), std::to_string(entry.imageCount) + " images"},
          0,
          false};
}

}  // namespace

TcacheTab NewTcacheTab() {
  TcacheTab tab;
  tab.cmdRestoreTCACHE = {"&Restore", "Will return the tcache to factory specs", true};
  tab.cmdExit = {"E&xit", "", true};
  tab.cmdSelectNoneTcache = {"S&elect None", "Unselects all textures", false};
  tab.cmdExtractTcache = {"&Extract", "", false};
  tab.cmdSelectAllTcache = {"&Select All", "Selects all textures", false};
  tab.cmdCloseTcache = {"&Close tcache", "", false};
  tab.cmdOpenTcache = {"&Open tcache", "", true};
  tab.cmdBrowseTcacheDestination = {"Browse", "", true};
  tab.cmdBrowseTcacheSource = {"Bro&wse", "", true};
  tab.lstTcache.columns = {
      {"Texture Name:", false}, {"Largest Dim:", false}, {"Color Depth:", false}, {"# Images:", false}};
  tab.lstTcache.severalSelectable = true;
  tab.lstTcache.labelsEditable = true;
  tab.preview = NewTexturePreview();
  tab.lblTCACHE = {Label{"&Destination:"}, Label{"Tcache &File:"}};
  tab.chkThumbnails = {"Show as pictures", "Lists the textures as small pictures", true, false};
  tab.cmdReopenTcache = {"Open again", "Reads the changed cache", false};
  return tab;
}

void cmdBrowseTcacheSource_Click(Host& host, TcacheTab& tab, const Installation& installation) {
  std::string folder = installation.GamePath;
  const std::string file = ChooseFile(host, "Open Texture Cache file", folder, "Tcachehw.dat",
                                      "SL Tcache file *.dat|*.dat|All files *.*|*.*");
  if (!file.empty()) tab.txtTcacheSource.text = file;
}

void cmdBrowseTcacheDestination_Click(Host& host, TcacheTab& tab) {
  std::string folder = BrowseForFolder(host, "Browse for texture destination folder");
  if (!folder.empty()) tab.txtTcacheDestination.text = AddBackslash(folder);
}

void cmdOpenTcache_Click(Host& host, TcacheTab& tab) {
  std::string path = tab.txtTcacheSource.text;
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "Error - File not found", Icon::exclamation, "Oravin - cmdOpenTcache_Click()");
    return;
  }
  // Without a table nothing is listed, also when another cache was open before.
  if (GetTcacheTable(host, path, tab.table) == 0) tab.table.clear();
  Trap(host, "Oravin - cmdOpenTcache_Click()", [&] {
    const TcacheBytes cache = ReadTcache(host.files, path);
    tab.textureCount = cache.count;
    tab.seal = SealOf(cache);
    tab.lblTcacheStructs.caption = std::to_string(cache.count) + " texture(s)";
    tab.lblTcachePath.caption = path;
    tab.lblTcacheSize.caption = "Tcache size: " + GroupedSigned(cache.dataEnd) + " byte(s)";
    ClearRows(tab.lstTcache);
    for (std::size_t i = 0; i < tab.table.size(); ++i) {
      TrimInPlace(tab.table[i].name);
      AddRow(tab.lstTcache, RowOf(tab.table[i], i));
    }
    tab.sortKey = -1;
    tab.lstTcache.sorted.reset();
    SetOpen(tab, true);
    ClearStatus(tab);
    tab.openCache = path;
    ShowNoTexture(tab.preview, "");
  });
}

void cmdCloseTcache_Click(TcacheTab& tab) {
  ClearRows(tab.lstTcache);
  SetOpen(tab, false);
  ClearStatus(tab);
  tab.lblTcacheSize.caption.clear();
  tab.lblTcachePath.caption.clear();
  tab.lblTcacheStructs.caption.clear();
  tab.openCache.clear();
  ShowNoTexture(tab.preview, "");
}

void cmdReopenTcache_Click(Host& host, TcacheTab& tab) {
  if (tab.openCache.empty()) return;
  tab.txtTcacheSource.text = tab.openCache;
  cmdCloseTcache_Click(tab);
  cmdOpenTcache_Click(host, tab);
}

void CheckTcacheOnDisk(Host& host, TcacheTab& tab) {
  if (tab.openCache.empty()) return;
  bool changed = true;
  if (FileExists(host.files, tab.openCache)) {
    // It is only a look: a cache that cannot be read just now is no reason for a box.
    try {
      changed = SealOf(ReadTcache(host.files, tab.openCache)) != tab.seal;
    } catch (const FileError&) {
      changed = true;
    }
  }
  if (!changed) {
    ClearStatus(tab);
    return;
  }
  tab.lblTcacheStatus.caption =
      "This cache has changed on disk since it was opened. Open it again to see what it holds.";
  tab.cmdReopenTcache.enabled = true;
}

void cmdSelectAllTcache_Click(TcacheTab& tab) { SelectAll(tab.lstTcache, true); }
void cmdSelectNoneTcache_Click(TcacheTab& tab) { SelectAll(tab.lstTcache, false); }

void lstTcache_ColumnClick(TcacheTab& tab, int column) {
  tab.sortKey = column;
  tab.lstTcache.sorted = SortOrder{static_cast<std::size_t>(column), false};
  const auto text = [column](const ListRow& row) {
    const auto at = static_cast<std::size_t>(column);
    return UpperCase(at < row.texts.size() ? row.texts[at] : std::string());
  };
  std::stable_sort(tab.lstTcache.rows.begin(), tab.lstTcache.rows.end(),
                   [&](const ListRow& a, const ListRow& b) { return text(a) < text(b); });
  ++tab.lstTcache.revision;
}

void lstTcache_AfterLabelEdit(Host& host, TcacheTab& tab, const Installation& installation, std::size_t row,
                              const std::string& text) {
  if (row >= tab.lstTcache.rows.size()) return;
  const std::size_t index = static_cast<std::size_t>(tab.lstTcache.rows[row].item);
  if (index >= tab.table.size()) return;
  const std::string oldName = Trim(tab.table[index].name);
  const auto keep = [&] { SetText(tab.lstTcache, row, 0, oldName); };
  const std::string newName = Trim(Trim(text).substr(0, longestTextureName));
  const std::string cache = installation.cachePath();
  keep();
  if (newName.empty()) {
    Show(host, "Enter name for texture", Icon::exclamation);
    return;
  }
  if (FindStructOffset(host, cache, newName) != 0) {
    Show(host, "Name already exists", Icon::exclamation);
    return;
  }
  if (!NameCanBeStored(host, newName)) return;
  // What is not changed is taken from the game's cache as it is now: the open one may be another, or an older state.
  TcacheTable own;
  if (GetTcacheTable(host, cache, own) == 0) return;
  const bool same = SameName(tab.openCache, cache);
  if (index >= own.size() || (same && !SameName(own[index].name, oldName))) {
    Show(host,
         "The game's texture cache has changed since this list was read. Open it again. Nothing has been changed.",
         Icon::exclamation);
    return;
  }
  own[index].name = newName;
  const bool saved = Trap(host, "lstTcache_AfterLabelEdit()", [&] {
    SaveTcacheEntry(host, cache, own, static_cast<int>(index));
    if (same) tab.seal = SealOf(ReadTcache(host.files, cache));
  });
  if (!saved) return;
  tab.table[index].name = newName;
  SetText(tab.lstTcache, row, 0, newName);
}

void cmdRestoreTCACHE_Click(Host& host, const Installation& installation) {
  if (FeaturesEnabled(host.files, installation.cataloguePath())) {
    Show(host, "This operation can't be preformed while other editing options are enabled.", Icon::exclamation);
    return;
  }
  if (!AskYesNo(host, "This should remove all textures that you have added.\nAre you sure that you want to do this?")) {
    return;
  }
  const std::string cache = installation.cachePath();
  WritePlan plan;
  plan.files = {cache};
  if (FolderExists(host.files, installation.GamePath)) {
    plan.folders = {installation.GamePath};
    NeedRoom(plan, installation.GamePath, FileLength(host.files, cache));
  }
  if (!ReadyToWrite(host, plan)) return;
  if (RestoreTcacheFile(host, cache)) ShowSuccess(host, "TCACHE Restoration complete", Icon::exclamation);
}

}  // namespace oravin
