#include "actions/extract_textures.h"

#include <algorithm>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "platform/start_program.h"
#include "textures/extract_texture.h"

namespace oravin {

namespace {

constexpr const char* paintProgram = "\"C:\\Program Files\\Accessories\\MSPAINT.EXE\"";

bool IsTexture(const TcacheTable& table, const std::string& name) {
  return std::any_of(table.begin(), table.end(), [&](const TcacheEntry& entry) { return SameName(entry.name, name); });
}

/// The file name for a texture; a replacement name must not be that of another texture's file.
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

}  // namespace

ExtractionRun BeginExtraction(Files& files, const std::string& cachePath, const std::string& folder) {
  ExtractionRun run;
  run.cachePath = cachePath;
  run.cacheLength = File(files, cachePath, OpenFor::reading).length;
  run.folder = folder;
  return run;
}

void ExtractNext(Files& files, const Installation& installation, ExtractionRun& run, const TcacheTable& table,
                 const TcacheEntry& entry) {
  const std::string name = Trim(entry.name);
  if (!CanBeExtracted(entry, run.cacheLength)) {
    run.leftOut.push_back(name);
    return;
  }
  const std::string target = run.folder + FileNameFor(run, table, name);
  const std::string lender = installation.programFile(TemplateFor(table, name));
  ExtractTexture(files, run.cachePath, entry, lender, target, run.headerSize);
}

void ShowExtracted(Host& host, const ExtractionRun& run) {
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

void PaintTexture(Host& host, const Installation& installation, const std::string& cachePath, const TcacheTable& table,
                  const TcacheEntry& entry) {
  if (!FileExists(host.files, cachePath)) return Show(host, "TCACHE path not found", Icon::exclamation);
  if (!FolderExists(host.files, installation.ProgramPath)) {
    return Show(host, "Destination path not found", Icon::exclamation);
  }
  const std::string target = installation.paintedPath();
  const bool extracted = Trap(host, "lstTcache_DblClick()", [&] {
    std::size_t headerSize = 0;
    const std::string lender = installation.programFile(TemplateFor(table, entry.name));
    ExtractTexture(host.files, cachePath, entry, lender, target, headerSize);
  });
  if (!extracted || platform::StartProgram(std::string(paintProgram) + " \"" + target + "\"")) return;
  Show(host, "The bitmap could not be opened. It is this file:\n" + target, Icon::exclamation);
}

}  // namespace oravin
