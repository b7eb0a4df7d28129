#include <string>
#include <vector>

#include "actions/learn_loadout.h"
#include "app/handlers.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/text_table.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "textures/extract_texture.h"
#include "textures/picture.h"

namespace oravin {

namespace {

/// Opens a cache in its tab: the one that is named, else the game's own.
bool OpenTcache(Session& session, const Values& values) {
  TcacheTab& tab = session.main.tcache;
  if (values.Has("--cache")) tab.txtTcacheSource.text = values.Of("--cache");
  Run(session.main, "tcache.cmdOpenTcache");
  return !tab.openCache.empty() && !tab.table.empty();
}

const char* FormatOf(const TcacheEntry& entry) {
  return entry.pixelFormat == paletteFormat ? "8-bit" : entry.pixelFormat == colourFormat ? "16-bit" : "unsupported";
}

bool IsAdded(const TcacheEntry& entry) { return entry.entryOffset >= TcacheEntryOffset(factoryTextures); }

Json JsonOf(const TcacheEntry& entry) {
  return {{"name", ToUtf8(Trim(entry.name))}, {"width", entry.width},       {"height", entry.height},
          {"format", FormatOf(entry)},        {"images", entry.imageCount}, {"dataOffset", entry.dataOffset},
          {"added", IsAdded(entry)}};
}

std::string TextOf(const TcacheTable& table) {
  std::vector<std::vector<std::string>> rows;
  for (const TcacheEntry& entry : table) {
    rows.push_back({Trim(entry.name), std::to_string(entry.width) + " x " + std::to_string(entry.height),
                    FormatOf(entry), std::to_string(entry.imageCount), std::to_string(entry.dataOffset),
                    IsAdded(entry) ? "added" : "factory"});
  }
  return TextTable({{"Name"}, {"Size", true}, {"Format"}, {"Images", true}, {"Data offset", true}, {"Origin"}}, rows);
}

/// Selects the textures of some names, which may be patterns; says which name stands for none.
void SelectTextures(Session& session, const std::vector<std::string>& names) {
  TcacheTab& tab = session.main.tcache;
  for (const std::string& name : names) {
    bool found = false;
    // The list is in the table's order, since the cache was only just opened.
    for (std::size_t i = 0; i < tab.table.size(); ++i) {
      if (!MatchesPattern(Trim(tab.table[i].name), Trim(name))) continue;
      tab.lstTcache.rows[i].selected = true;
      found = true;
    }
    if (!found) SayError(session.console, "there is no texture \"" + name + "\" in this cache");
  }
}

/// The row of a texture by its name; says so when there is none.
std::optional<std::size_t> RowNamed(Session& session, const std::string& name) {
  const TcacheTable& table = session.main.tcache.table;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (SameName(table[i].name, name)) return i;
  }
  SayError(session.console, "there is no texture \"" + name + "\" in this cache");
  return std::nullopt;
}

/// Runs an action that ends with a message of success; `document` and `text` are told when it did.
std::optional<Result> RunToSuccess(Session& session, const char* handler, Json document, const std::string& text) {
  const int failuresBefore = session.console.failures;
  const int successesBefore = session.console.successes;
  Run(session.main, handler);
  const bool done = session.console.successes > successesBefore;
  if (!done && session.console.failures > failuresBefore) return std::nullopt;
  document["done"] = done;
  return Result{document, done ? text : "Nothing was done.\n"};
}

/// The cells of one level that were seen, and how many of their pixels agreed, in percent.
struct LevelReport {
  int seen = 0;
  double clear = 100;
};

LevelReport ReportOf(const LearnedLoadout& learned, std::size_t level) {
  LevelReport report;
  double pixels = 0;
  double agreed = 0;
  for (std::size_t colour = 0; colour < coloursPerLevel; ++colour) {
    const LearnedCell& cell = learned.cells.at(level * coloursPerLevel + colour);
    report.seen += cell.seen > 0 ? 1 : 0;
    pixels += cell.seen;
    agreed += cell.agreed;
  }
  if (pixels > 0) report.clear = 100 * agreed / pixels;
  return report;
}

Result TellLearned(const LearnedLoadout& learned, const std::string& path) {
  Json levels = Json::array();
  Json cells = Json::array();
  std::vector<std::vector<std::string>> rows;
  for (std::size_t level = 0; level < loadoutLevels; ++level) {
    const LevelReport report = ReportOf(learned, level);
    const int side = 256 >> level;
    levels.push_back(Json{{"side", side}, {"seen", report.seen}, {"clear", report.clear}});
    std::string clear = std::to_string(report.clear);
    clear.resize(clear.find('.') + 2);
    rows.push_back({std::to_string(side), std::to_string(report.seen), clear});
  }
  for (const LearnedCell& cell : learned.cells) {
    cells.push_back(Json{{"value", cell.value}, {"seen", cell.seen}, {"agreed", cell.agreed}});
  }
  const std::string table = TextTable({{"Side", true}, {"Seen of 256", true}, {"Clear, %", true}}, rows);
  return {{{"action", "loadout learn"},
           {"file", ToUtf8(path)},
           {"pairs", learned.pairs},
           {"seenCells", learned.seenCells},
           {"levels", levels},
           {"cells", cells}},
          "Learned from " + std::to_string(learned.pairs) + " pairs of textures: " + std::to_string(learned.seenCells) +
              " of 2,048 cells were seen.\n" + table + "Written to " + ToUtf8(path) + "\n"};
}

}  // namespace

std::optional<Result> ListTcache(Session& session, const Values& values) {
  if (!OpenTcache(session, values)) return std::nullopt;
  Json document = Json::array();
  for (const TcacheEntry& entry : session.main.tcache.table) document.push_back(JsonOf(entry));
  return Result{document, TextOf(session.main.tcache.table)};
}

std::optional<Result> ExtractTcache(Session& session, const Values& values) {
  if (!OpenTcache(session, values)) return std::nullopt;
  TcacheTab& tab = session.main.tcache;
  tab.txtTcacheDestination.text = values.Of("--to");
  if (values.several.empty()) {
    Run(session.main, "tcache.cmdSelectAllTcache");
  } else {
    SelectTextures(session, values.several);
    if (!SelectedRow(tab.lstTcache)) return std::nullopt;
  }
  std::size_t selected = 0;
  for (const ListRow& row : tab.lstTcache.rows) selected += row.selected ? 1 : 0;
  return RunToSuccess(session, "tcache.cmdExtractTcache",
                      {{"action", "extract"}, {"selected", selected}, {"to", ToUtf8(tab.txtTcacheDestination.text)}},
                      "Selected and extracted: " + std::to_string(selected) + ".\n");
}

std::optional<Result> ImportOneTexture(Session& session, const Values& values) {
  ImportTexturePanel& panel = session.main.imports.texture;
  panel.txtImportTexturePath.text = values.at(0);
  panel.txtImportTextureName.text = values.at(1);
  panel.chkForFighter.checked = values.Has("--fighter");
  return RunToSuccess(
      session, "imports.cmdImportTexture",
      {{"action", "import"}, {"name", ToUtf8(Trim(values.at(1)))}, {"fighter", values.Has("--fighter")}},
      ToUtf8(Trim(values.at(1))) + " was imported.\n");
}

std::optional<Result> RenameTexture(Session& session, const Values& values) {
  if (!OpenTcache(session, values)) return std::nullopt;
  TcacheTab& tab = session.main.tcache;
  const auto row = RowNamed(session, values.at(0));
  if (!row) return std::nullopt;
  tab.lstTcache.edited = {*row, values.at(1)};
  const int failuresBefore = session.console.failures;
  Run(session.main, "tcache.lstTcache.AfterLabelEdit");
  if (session.console.failures > failuresBefore) return std::nullopt;
  const std::string name = ToUtf8(tab.lstTcache.rows[*row].texts.at(0));
  return Result{{{"action", "rename"}, {"name", name}}, "The texture is called " + name + " now.\n"};
}

std::optional<Result> RestoreTcache(Session& session, const Values&) {
  // No more is known: a texture of the game's own that was renamed keeps its new name.
  return RunToSuccess(session, "tcache.cmdRestoreTCACHE", {{"action", "restore"}},
                      "The texture cache holds the game's 426 textures alone.\n");
}

std::optional<Result> PreviewTexture(Session& session, const Values& values) {
  if (!OpenTcache(session, values)) return std::nullopt;
  Main& main = session.main;
  const auto row = RowNamed(session, values.at(0));
  if (!row) return std::nullopt;
  SelectOnly(main.tcache.lstTcache, *row);
  Run(main, "tcache.lstTcache.ItemClick");
  const TexturePreview& preview = main.tcache.preview;
  if (!preview.picture) {
    SayError(session.console, preview.lblPreview.caption);
    return std::nullopt;
  }
  const std::string& path = values.Of("--to");
  const std::string extension = ExtensionOf(path);
  if (extension != "png" && extension != "bmp") {
    SayError(session.console, "the picture's file must end in .png or .bmp");
    return std::nullopt;
  }
  WriteWhole(main.host.files, path, extension == "png" ? PngFileOf(*preview.picture) : BitmapFileOf(*preview.picture));
  return Result{{{"action", "preview"},
                 {"name", ToUtf8(Trim(values.at(0)))},
                 {"width", preview.picture->width},
                 {"height", preview.picture->height},
                 {"file", ToUtf8(path)}},
                ToUtf8(preview.lblPreview.caption) + "\nWritten to " + ToUtf8(path) + "\n"};
}

std::optional<Result> LearnLoadoutMaps(Session& session, const Values& values) {
  Main& main = session.main;
  const std::string path = values.Has("--to") ? values.Of("--to") : main.installation.loadoutMapsPath();
  if (FileExists(main.host.files, path)) {
    SayError(session.console, path + " is there already, and is never overwritten");
    return std::nullopt;
  }
  const LearnedLoadout learned = LearnLoadout(main.host.files, main.installation.cachePath());
  if (learned.pairs == 0) {
    SayError(session.console, "the game's textures hold no pair to learn from");
    return std::nullopt;
  }
  WriteWhole(main.host.files, path, MapsOf(learned));
  return TellLearned(learned, path);
}

}  // namespace oravin
