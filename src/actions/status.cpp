#include "actions/status.h"

#include "actions/restore_cache.h"
#include "archive/archive_table.h"
#include "base/file_error.h"
#include "catalogue/catalogue.h"
#include "files/file.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "stats/ship_stats.h"

namespace oravin {

namespace {

std::uint64_t ArchiveCount(Files& files, const std::string& path) {
  File hog(files, path, OpenFor::reading);
  return ReadLongBE(hog, hogCountOffset);
}

template <typename Count>
GameFile Look(Files& files, const Installation& installation, const char* name, const char* counted, Count&& count) {
  GameFile file;
  file.name = name;
  file.counted = counted;
  const std::string path = installation.gameFile(name);
  file.found = FileExists(files, path);
  if (!file.found) return file;
  file.size = FileLength(files, path);
  try {
    file.count = count(path);
  } catch (const FileError&) {
    file.count = 0;  // the file is too short for a header
  }
  return file;
}

}  // namespace

Status StatusOf(Files& files, const Installation& installation, bool readOnly) {
  Status status;
  status.gameFolder = installation.GamePath;
  status.programFolder = installation.ProgramPath;
  status.enabled = FeaturesEnabled(files, installation.cataloguePath());
  status.readOnly = readOnly;
  for (const ShipRecord& ship : installation.ships) {
    if (IsInert(ship)) continue;
    ++status.ships;
    if (ship.Changed) ++status.changedShips;
  }
  const auto blocks = [&](const std::string& path) { return FileLength(files, path) / statsBlockSize; };
  status.files.push_back(Look(files, installation, hogName, "entries",
                              [&](const std::string& path) { return ArchiveCount(files, path); }));
  status.files.push_back(Look(files, installation, tcacheName, "textures", [&](const std::string& path) {
    return static_cast<std::uint64_t>(TcacheCount(files, path));
  }));
  status.files.push_back(Look(files, installation, statsName, "blocks", blocks));
  status.files.push_back(Look(files, installation, defaultsName, "blocks", blocks));
  return status;
}

}  // namespace oravin
