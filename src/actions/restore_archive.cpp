#include "actions/restore_archive.h"

#include "archive/disguise.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr const char* procedure = "RestoreHog";

bool EraseIfThere(Host& host, const std::string& path) {
  return !FileExists(host.files, path) || Trap(host, procedure, [&] { EraseFile(host.files, path); });
}

bool EraseModelAndBackup(Host& host, const std::string& shipsFolder, const std::string& model, const char* extension) {
  const bool erased = EraseIfThere(host, shipsFolder + model);
  return EraseIfThere(host, shipsFolder + ChangeExtension(model, extension)) && erased;
}

/// Deletes an add-on's loose model, and its backup where that is nothing but the add-on once more.
bool EraseAddOn(Host& host, const std::string& shipsFolder, const std::string& addOnFolder, const std::string& model) {
  const std::string backup = shipsFolder + ChangeExtension(model, ".bak");
  const bool same =
      Trapped(host, procedure, false, [&] { return SameContent(host.files, backup, addOnFolder + model); });
  const bool erased = EraseIfThere(host, shipsFolder + model);
  return (!same || EraseIfThere(host, backup)) && erased;
}

/// The spelling of a model's name in the backup, at the same table position and only when it is the same name.
std::string SpellingOf(const HogTable& backup, const std::string& model, std::uint32_t fatPos) {
  for (const int index : EntriesNamed(backup.names, model)) {
    const HogEntry& entry = backup.entries[static_cast<std::size_t>(index)];
    if (entry.FatPos == fatPos && entry.Name.size() == model.size()) return entry.Name;
  }
  return model;
}

bool RestoreStock(Host& host, File& hog, const std::string& shipsFolder, const ShipRecord& ship, const HogTable& backup,
                  std::vector<std::string>& passedOver) {
  const std::string model = ModelOf(ship);
  const std::uint32_t fatPos = Unsigned32(ship.HogFatPos);
  bool named = true;
  if (fatPos != 0) {
    named = Trap(host, procedure, [&] {
      if (PutNameBack(hog, fatPos, model, SpellingOf(backup, model, fatPos))) return;
      passedOver.push_back(model);
    });
  }
  return EraseModelAndBackup(host, shipsFolder, model, ".org") && named;
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

bool RestoreHog(Host& host, std::string hogPath, const std::string& shipsFolder, const std::string& addOnFolder,
                const Ships& ships, const HogTable& backup) {
  TrimInPlace(hogPath);
  if (!FileExists(host.files, hogPath)) {
    Show(host, "Error - hog not found", Icon::exclamation, procedure);
    return false;
  }
  std::vector<std::string> passedOver;
  bool all = true;
  const bool through = Trap(host, procedure, [&] {
    File hog(host.files, hogPath, OpenFor::changing);
    bool asked = false;
    for (std::size_t i = 0; i < ships.size(); ++i) {
      const ShipRecord& ship = ships[i];
      if (IsInert(ship)) continue;
      ShowProgress(host, "Restoring " + ModelOf(ship), static_cast<int>(i), static_cast<int>(ships.size()));
      if (!ship.Imported) {
        all = RestoreStock(host, hog, shipsFolder, ship, backup, passedOver) && all;
      } else if (FileExists(host.files, addOnFolder + ModelOf(ship))) {
        all = EraseAddOn(host, shipsFolder, addOnFolder, ModelOf(ship)) && all;
      } else {
        // The answer is not looked at: meant, see the header.
        if (!asked) AskYesNo(host, "Do you wish to delete the imported ship(s) in SL\\ships\\ ?");
        asked = true;
        all = EraseModelAndBackup(host, shipsFolder, ModelOf(ship), ".bak") && all;
      }
    }
    Flush(hog);
  });
  EndProgress(host);
  NamePassedOver(host, passedOver);
  return through && all;
}

bool RestoreHogByBackup(Host& host, std::string hogPath, const std::string& shipsFolder, const HogTable& backup) {
  TrimInPlace(hogPath);
  if (!FileExists(host.files, hogPath)) {
    Show(host, "Error - hog not found", Icon::exclamation, procedure);
    return false;
  }
  bool all = true;
  const bool through = Trap(host, procedure, [&] {
    File hog(host.files, hogPath, OpenFor::changing);
    for (const HogEntry& entry : backup.entries) {
      if (!IsPlainFileName(entry.Name) || !NamesDisguised(hog, entry.FatPos, entry.Name)) continue;
      // The loose model goes first: as long as the name is disguised, another run knows that it is the program's own.
      const bool erased = EraseModelAndBackup(host, shipsFolder, entry.Name, ".org");
      all = erased && all;
      if (!erased) continue;
      PutNameBack(hog, entry.FatPos, entry.Name, entry.Name);
    }
    Flush(hog);
  });
  return through && all;
}

}  // namespace oravin
