// Extracting and opening textures from the "Tcache Editor" tab.
#include <set>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "platform/start_program.h"
#include "tabs/texture_tab.h"
#include "textures/extract_texture.h"

namespace oravin {

namespace {

constexpr int enterKey = 13;
constexpr const char* paintProgram = "\"C:\\Program Files\\Accessories\\MSPAINT.EXE\"";

/// One run over the selected textures.
struct ExtractionRun {
  std::string folder;
  std::set<std::string> used;        ///< safe names that were given in place of others, upper-cased
  std::vector<std::string> renamed;  ///< "name: file"
  std::vector<std::string> leftOut;  ///< textures whose data do not lie in the cache
  std::size_t headerSize = 0;        ///< of the texture extracted last
};

/// The texture that a row shows; null when the table has none.
const TcacheEntry* EntryOfRow(const TcacheTab& tab, const ListRow& row) {
  const std::size_t index = static_cast<std::size_t>(row.item);
  return index < tab.table.size() ? &tab.table[index] : nullptr;
}

bool IsTexture(const TcacheTable& table, const std::string& name) {
  for (const TcacheEntry& entry : table) {
    if (SameName(entry.name, name)) return true;
  }
  return false;
}

/// The file's name for a texture; a name that had to be replaced must not be one that another texture's file bears.
std::string FileNameFor(ExtractionRun& run, const TcacheTable& table, const std::string& name) {
  const std::string safe = SafeFileName(name);
  if (safe == name) return safe + ".bmp";
  std::string free = safe;
  for (int number = 2; run.used.contains(UpperCase(free)) || IsTexture(table, free); ++number) {
    free = safe + "_" + std::to_string(number);
  }
  run.used.insert(UpperCase(free));
  run.renamed.push_back(name + ": " + free + ".bmp");
  return free + ".bmp";
}

void ShowStep(Host& host, TcacheTab& tab, const TcacheEntry& entry, int done, int total) {
  const std::string name = Trim(entry.name);
  if (entry.pixelFormat == colourFormat) tab.lblTcacheStructs.caption = "Extracting and converting " + name;
  if (entry.pixelFormat == paletteFormat) tab.lblTcacheStructs.caption = "Extracting " + name;
  ShowProgress(host, tab.lblTcacheStructs.caption, done, total);
}

void ExtractSelected(Host& host, TcacheTab& tab, const Installation& installation, ExtractionRun& run) {
  const std::uint64_t length = FileLength(host.files, tab.openCache);
  std::vector<const TcacheEntry*> selected;
  for (const ListRow& row : tab.lstTcache.rows) {
    const TcacheEntry* entry = row.selected ? EntryOfRow(tab, row) : nullptr;
    if (entry != nullptr) selected.push_back(entry);
  }
  int done = 0;
  for (const TcacheEntry* entry : selected) {
    const std::string name = Trim(entry->name);
    ShowStep(host, tab, *entry, done++, static_cast<int>(selected.size()));
    if (!CanBeExtracted(*entry, length)) {
      run.leftOut.push_back(name);
      continue;
    }
    const std::string target = run.folder + FileNameFor(run, tab.table, name);
    const std::string lender = installation.programFile(TemplateFor(tab.table, name));
    ExtractTexture(host.files, tab.openCache, *entry, lender, target, run.headerSize);
  }
}

void TellEnd(Host& host, const ExtractionRun& run) {
  std::string text = "Extraction complete";
  if (!run.renamed.empty())
    text += "\n\nThese names cannot be names of files, so others were taken:" + Listed(run.renamed);
  if (run.leftOut.empty()) {
    ShowSuccess(host, text, Icon::information);
    return;
  }
  text += "\n\nThese textures were left out, because their data do not lie in the cache:" + Listed(run.leftOut);
  Show(host, text, Icon::information);
}

/// Extracts one texture for the paint program.
bool ExtractForPainting(Host& host, const TcacheTab& tab, const Installation& installation, const TcacheEntry& entry,
                        const std::string& target) {
  if (!FileExists(host.files, tab.openCache)) {
    Show(host, "TCACHE path not found", Icon::exclamation);
    return false;
  }
  if (!FolderExists(host.files, installation.ProgramPath)) {
    Show(host, "Destination path not found", Icon::exclamation);
    return false;
  }
  return Trap(host, "lstTcache_DblClick()", [&] {
    std::size_t headerSize = 0;
    const std::string lender = installation.programFile(TemplateFor(tab.table, entry.name));
    ExtractTexture(host.files, tab.openCache, entry, lender, target, headerSize);
  });
}

}  // namespace

void cmdExtractTcache_Click(Host& host, TcacheTab& tab, const Installation& installation) {
  ExtractionRun run;
  run.folder = tab.txtTcacheDestination.text;
  TrimInPlace(run.folder);
  if (!FolderExists(host.files, run.folder)) {
    Show(host, "Destination path not found", Icon::exclamation);
    return;
  }
  run.folder = AddBackslash(run.folder);
  const bool all = Trap(host, "cmdExtractTcache_Click()", [&] {
    // A cache that is gone ends it here, also when nothing is selected.
    File cache(host.files, tab.openCache, OpenFor::reading);
    ExtractSelected(host, tab, installation, run);
  });
  EndProgress(host);
  tab.lblTcacheStructs.caption = std::to_string(tab.textureCount) + " texture(s)";
  if (all) TellEnd(host, run);
}

void lstTcache_DblClick(Host& host, TcacheTab& tab, const Installation& installation) {
  const auto row = SelectedRow(tab.lstTcache);
  const TcacheEntry* entry = row ? EntryOfRow(tab, tab.lstTcache.rows[*row]) : nullptr;
  if (entry == nullptr) return;
  const std::string target = installation.paintedPath();
  if (!ExtractForPainting(host, tab, installation, *entry, target)) return;
  if (platform::StartProgram(std::string(paintProgram) + " \"" + target + "\"")) return;
  Show(host, "The bitmap could not be opened. It is this file:\n" + target, Icon::exclamation);
}

void lstTcache_KeyDown(Host& host, TcacheTab& tab, const Installation& installation, int keyCode) {
  if (keyCode == enterKey) lstTcache_DblClick(host, tab, installation);
}

}  // namespace oravin
