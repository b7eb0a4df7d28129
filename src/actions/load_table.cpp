#include "actions/load_table.h"

#include "base/file_error.h"
#include "base/hex_text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "installation/model_entry.h"

namespace oravin {

namespace {

void RepairCount(Host& host, const std::string& path) {
  // Opened before the message: what cannot be written is not said to be corrected.
  File file(host.files, path, OpenFor::changing);
  Show(host, "Error in resource.hog - Hog says number of items = 0 - attempting to correct", Icon::exclamation);
  Put(file, hogCountOffset, DecToByteArray(repairedHogCount));
}

}  // namespace

LoadedTable LoadHogTable(Host& host, const std::string& path) {
  LoadedTable loaded;
  // Intentional: the read goes on. A missing file fails again when it is opened; a hidden one can be read.
  if (!FileExists(host.files, path)) ShowWarning(host, "GetHogData", ErrorKind::missing);
  Trap(host, "GetHogData", [&] {
    File hog(host.files, path, OpenFor::reading);
    std::uint32_t count = HogCount(hog);
    if (count == 0) {
      RepairCount(host, path);
      loaded.repaired = true;
      count = repairedHogCount;
    }
    loaded.table = TableOf(GetHogData(hog, count));
  });
  return loaded;
}

HogTable LoadFatBackup(Host& host, const Installation& installation) {
  const std::string path = installation.backupPath(fatBackupName);
  return FileExists(host.files, path) ? LoadHogTable(host, path).table : HogTable();
}

std::optional<HogEntry> LiveEntryOf(Host& host, const Installation& installation, const ShipRecord& ship) {
  if (auto recorded = RecordedEntry(host.files, installation, ship)) return recorded;
  const HogTable live = LoadHogTable(host, installation.archivePath()).table;
  // A table that cannot be read, or is empty, does not mean that the archive lacks the model.
  if (live.entries.empty()) {
    throw FileError("could not look for " + ModelOf(ship) + " in", installation.archivePath(),
                    "its table cannot be read");
  }
  return LookUpModel(ship, live);
}

}  // namespace oravin
