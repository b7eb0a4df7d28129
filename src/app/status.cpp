#include "app/status.h"

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
GameFile Look(Files& files, const std::string& folder, const std::string& name, const char* counted, Count&& count) {
  GameFile file;
  file.name = name;
  file.counted = counted;
  const std::string path = folder + name;
  file.found = FileExists(files, path);
  if (!file.found) return file;
  file.size = FileLength(files, path);
  try {
    file.count = count(path);
  } catch (const FileError&) {
    file.count = 0;  // a file too short for a header counts nothing
  }
  return file;
}

}  // namespace

Status StatusOf(Main& main) {
  const Installation& installation = main.installation;
  Status status;
  status.gameFolder = installation.GamePath;
  status.programFolder = installation.ProgramPath;
  status.enabled = FeaturesEnabled(main.host.files, installation.cataloguePath());
  status.onlyLooks = main.onlyLooks;
  for (const ShipRecord& ship : installation.ships) {
    if (IsInert(ship)) continue;
    ++status.ships;
    if (ship.Changed) ++status.changedShips;
  }
  Files& files = main.host.files;
  const auto blocks = [&](const std::string& path) { return FileLength(files, path) / statsBlockSize; };
  status.files.push_back(Look(files, installation.GamePath, hogName, "entries",
                              [&](const std::string& path) { return ArchiveCount(files, path); }));
  status.files.push_back(Look(files, installation.GamePath, tcacheName, "textures", [&](const std::string& path) {
    return static_cast<std::uint64_t>(TcacheCount(files, path));
  }));
  status.files.push_back(Look(files, installation.GamePath, statsName, "blocks", blocks));
  status.files.push_back(Look(files, installation.GamePath, defaultsName, "blocks", blocks));
  return status;
}

}  // namespace oravin
