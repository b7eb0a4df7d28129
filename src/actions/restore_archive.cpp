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

bool EraseModelAndBackup(Host& host, const Installation& installation, const std::string& model,
                         const char* extension) {
  const bool erased = EraseIfThere(host, installation.modelPath(model));
  return EraseIfThere(host, installation.modelPath(ChangeExtension(model, extension))) && erased;
}

/// Deletes an add-on's loose model, and its backup if that is a copy of the add-on.
bool EraseAddOn(Host& host, const Installation& installation, const std::string& model) {
  const std::string backup = installation.modelPath(ChangeExtension(model, ".bak"));
  const bool same = Trapped(host, procedure, false,
                            [&] { return SameContent(host.files, backup, installation.addOnModelPath(model)); });
  const bool erased = EraseIfThere(host, installation.modelPath(model));
  return (!same || EraseIfThere(host, backup)) && erased;
}

/// The spelling of a model's name in the backup at the same table position; the given one if another name is there.
std::string SpellingOf(const HogTable& backup, const std::string& model, std::uint32_t fatPos) {
  for (const int index : EntriesNamed(backup.names, model)) {
    const HogEntry& entry = backup.entries[static_cast<std::size_t>(index)];
    if (entry.FatPos == fatPos && entry.Name.size() == model.size()) return entry.Name;
  }
  return model;
}

bool RestoreStock(Host& host, File& hog, const Installation& installation, const ShipRecord& ship,
                  const HogTable& backup, std::vector<std::string>& passedOver) {
  const std::string model = ModelOf(ship);
  const std::uint32_t fatPos = Unsigned32(ship.HogFatPos);
  bool named = true;
  if (fatPos != 0) {
    named = Trap(host, procedure, [&] {
      if (RestoreName(hog, fatPos, model, SpellingOf(backup, model, fatPos))) return;
      passedOver.push_back(model);
    });
  }
  return EraseModelAndBackup(host, installation, model, ".org") && named;
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

bool RestoreHog(Host& host, const Installation& installation, const HogTable& backup) {
  const Ships& ships = installation.ships;
  std::vector<std::string> passedOver;
  bool all = true;
  const bool through = Trap(host, procedure, [&] {
    RequireFile(host.files, installation.archivePath());
    File hog(host.files, installation.archivePath(), OpenFor::changing);
    bool asked = false;
    for (std::size_t i = 0; i < ships.size(); ++i) {
      const ShipRecord& ship = ships[i];
      if (IsInert(ship)) continue;
      ShowProgress(host, "Restoring " + ModelOf(ship), static_cast<int>(i), static_cast<int>(ships.size()));
      if (!ship.Imported) {
        all = RestoreStock(host, hog, installation, ship, backup, passedOver) && all;
      } else if (FileExists(host.files, installation.addOnModelPath(ModelOf(ship)))) {
        all = EraseAddOn(host, installation, ModelOf(ship)) && all;
      } else {
        // Intentional: the answer is not used, see the header.
        if (!asked) AskYesNo(host, "Do you wish to delete the imported ship(s) in SL\\ships\\ ?");
        asked = true;
        all = EraseModelAndBackup(host, installation, ModelOf(ship), ".bak") && all;
      }
    }
    Flush(hog);
  });
  EndProgress(host);
  NamePassedOver(host, passedOver);
  return through && all;
}

bool RestoreHogByBackup(Host& host, const Installation& installation, const HogTable& backup) {
  bool all = true;
  const bool through = Trap(host, procedure, [&] {
    RequireFile(host.files, installation.archivePath());
    File hog(host.files, installation.archivePath(), OpenFor::changing);
    for (const HogEntry& entry : backup.entries) {
      if (!IsPlainFileName(entry.Name) || !NamesDisguised(hog, entry.FatPos, entry.Name)) continue;
      // The loose model is deleted first: while the name is disguised, the next run still knows whose model it is.
      const bool erased = EraseModelAndBackup(host, installation, entry.Name, ".org");
      all = erased && all;
      if (!erased) continue;
      RestoreName(hog, entry.FatPos, entry.Name, entry.Name);
    }
    Flush(hog);
  });
  return through && all;
}

}  // namespace oravin
