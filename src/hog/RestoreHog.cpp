#include "hog/RestoreHog.h"

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "hog/disguise.h"
#include "util/File_Path.h"
#include "util/text.h"
#include "util/whole_file.h"

namespace oravin {

namespace {

using platform::OpenFor;

constexpr const char* procedure = "RestoreHog";

void EraseIfThere(Host& host, const std::string& path) {
  if (!FileExists(std::string(path))) return;
  Trap(host, procedure, [&] { EraseFile(host.files, path); });
}

void EraseModelAndBackup(Host& host, const std::string& shipsFolder, const std::string& model, const char* extension) {
  EraseIfThere(host, shipsFolder + model);
  EraseIfThere(host, shipsFolder + ChangeExtension(std::string(model), extension));
}

/// The spelling of a model's name in the backup, at the same table position and only when it is the same name.
std::string SpellingOf(const HogTable& backup, const std::string& model, std::uint32_t fatPos) {
  for (const int index : EntriesNamed(backup.names, model)) {
    const HogEntry& entry = backup.entries[static_cast<std::size_t>(index)];
    if (entry.FatPos == fatPos && entry.Name.size() == model.size()) return entry.Name;
  }
  return model;
}

void RestoreStock(Host& host, int hog, const std::string& shipsFolder, const ShipRecord& ship, const HogTable& backup,
                  std::vector<std::string>& passedOver) {
  const std::string model = ModelOf(ship);
  const std::uint32_t fatPos = Unsigned32(ship.HogFatPos);
  if (fatPos != 0) {
    const bool done = Trapped(host, procedure, false, [&] {
      return PutNameBack(host.files, hog, fatPos, model, SpellingOf(backup, model, fatPos));
    });
    if (!done) passedOver.push_back(model);
  }
  EraseModelAndBackup(host, shipsFolder, model, ".org");
}

void NamePassedOver(Host& host, const std::vector<std::string>& passedOver) {
  if (passedOver.empty()) return;
  Show(
      host,
      "The names of these ships were left as they are in resource.hog, because something else stands at their place in "
      "its table:" +
          Listed(passedOver),
      Icon::exclamation);
}

}  // namespace

void RestoreHog(Host& host, std::string hogPath, const std::string& shipsFolder, const std::string& addOnFolder,
                const Ships& ships, const HogTable& backup) {
  if (!FileExists(hogPath)) {
    Show(host, "Error - hog not found", Icon::exclamation, procedure);
    return;
  }
  std::vector<std::string> passedOver;
  Trap(host, procedure, [&] {
    const OpenedFile hog(host.files, hogPath, OpenFor::changing);
    bool asked = false;
    for (std::size_t i = 0; i < ships.size(); ++i) {
      const ShipRecord& ship = ships[i];
      if (IsInert(ship)) continue;
      ShowProgress(host, "Restoring " + ModelOf(ship), static_cast<int>(i), static_cast<int>(ships.size()));
      if (!ship.Imported) {
        RestoreStock(host, hog.handle, shipsFolder, ship, backup, passedOver);
      } else if (FileExists(addOnFolder + ModelOf(ship))) {
        EraseIfThere(host, shipsFolder + ModelOf(ship));
      } else {
        // The answer is not looked at: meant, see the header.
        if (!asked) AskYesNo(host, "Do you wish to delete the imported ship(s) in SL\\ships\\ ?");
        asked = true;
        EraseModelAndBackup(host, shipsFolder, ModelOf(ship), ".bak");
      }
    }
    Flush(host.files, hog.handle);
  });
  EndProgress(host);
  NamePassedOver(host, passedOver);
}

void RestoreHogByBackup(Host& host, std::string hogPath, const std::string& shipsFolder, const HogTable& backup) {
  if (!FileExists(hogPath)) {
    Show(host, "Error - hog not found", Icon::exclamation, procedure);
    return;
  }
  Trap(host, procedure, [&] {
    const OpenedFile hog(host.files, hogPath, OpenFor::changing);
    for (const HogEntry& entry : backup.entries) {
      if (!IsPlainFileName(entry.Name) || !NamesDisguised(host.files, hog.handle, entry.FatPos, entry.Name)) continue;
      PutNameBack(host.files, hog.handle, entry.FatPos, entry.Name, entry.Name);
      EraseModelAndBackup(host, shipsFolder, entry.Name, ".org");
    }
    Flush(host.files, hog.handle);
  });
}

}  // namespace oravin
