#include "actions/unpack_models.h"

#include "archive/archive_table.h"
#include "archive/disguise.h"
#include "archive/unpack.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "installation/installation.h"
#include "installation/model_entry.h"

namespace oravin {

namespace {

/// Unpacks one model beside its name; says so where the archive no longer holds it.
bool AddShip(Host& host, WholeFiles& together, const std::string& gamePath, const ShipRecord& ship,
             const std::string& model, bool* nowhere = nullptr) {
  const std::string hogPath = gamePath + hogName;
  std::optional<HogEntry> entry;
  const bool done = Trap(host, "UnpackFile()", [&] {
    entry = LiveEntryOf(host, hogPath, ship);
    if (entry) {
      AddUnpacked(host.files, together, hogPath, gamePath + "ships\\" + model, entry->Size, entry->Offset);
    }
  });
  if (done && !entry) {
    Show(host, "The model " + ModelOf(ship) + " was not found in resource.hog. Nothing was unpacked.",
         Icon::exclamation);
    if (nowhere != nullptr) *nowhere = true;
  }
  return done && entry;
}

/// Unpacks every stock model; a two-part ship's first model serves both parts, and the second part is passed over.
void UnpackModels(Host& host, const std::string& gamePath, const Ships& ships) {
  const int total = static_cast<int>(ships.size());
  WholeFiles together;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const ShipRecord& ship = ships[i];
    if (!IsStock(ship)) continue;
    ShowProgress(host, "Unpacking " + ModelOf(ship), static_cast<int>(i), total);
    const bool listed = Unsigned32(ship.HogFatPos) != 0;
    if (listed) AddShip(host, together, gamePath, ship, ModelOf(ship));
    const std::int64_t partner = WholeNumber(ship.SecondPartIndex);
    if (!ship.HasSecondPart || partner <= static_cast<std::int64_t>(i)) continue;
    if (listed) AddShip(host, together, gamePath, ship, ModelOf(ships[static_cast<std::size_t>(partner)]));
    ++i;
  }
  Trap(host, "UnpackFile()", [&] { CommitWhole(host.files, together); });
}

void DisguiseModels(Host& host, const std::string& gamePath, const Ships& ships) {
  std::vector<std::string> passedOver;
  Trap(host, "UnpackSetup", [&] {
    File hog(host.files, gamePath + hogName, OpenFor::changing);
    for (const ShipRecord& ship : ships) {
      const std::uint32_t fatPos = Unsigned32(ship.HogFatPos);
      if (!IsStock(ship) || fatPos == 0) continue;
      const bool loose = FileExists(host.files, gamePath + "ships\\" + ModelOf(ship));
      if (!loose || !DisguiseName(hog, fatPos, ModelOf(ship))) passedOver.push_back(ModelOf(ship));
    }
    Flush(hog);
  });
  if (passedOver.empty()) return;
  Show(host,
       "The names of these ships were left as they are in resource.hog, because the model could not be unpacked or "
       "something else stands at its place in the table:" +
           Listed(passedOver),
       Icon::exclamation);
}

}  // namespace

std::uint32_t UnpackFile(Host& host, std::string& hogPath, std::string& folder, const std::string& name,
                         std::uint32_t size, std::uint32_t offset) {
  folder = AddBackslash(folder);
  TrimInPlace(hogPath);
  if (!FolderExists(host.files, folder) || !FileExists(host.files, hogPath)) {
    Show(host, "Error - Path(s) not found", Icon::exclamation, "UnpackFile()");
    return 0;
  }
  return Trapped(host, "UnpackFile()", std::uint32_t{0},
                 [&] { return UnpackEntry(host.files, hogPath, folder + name, size, offset); });
}

bool UnpackShip(Host& host, const std::string& gamePath, const ShipRecord& ship, const std::string& model,
                bool* nowhere) {
  WholeFiles alone;
  return AddShip(host, alone, gamePath, ship, model, nowhere) &&
         Trap(host, "UnpackFile()", [&] { CommitWhole(host.files, alone); });
}

void UnpackSetup(Host& host, std::string& gamePath, const Ships& ships) {
  gamePath = AddBackslash(gamePath);
  if (!FolderExists(host.files, gamePath)) {
    Show(host, "Error - Invalid Path", Icon::critical, "UnpackSetup");
    throw ProgramEnd();
  }
  UnpackModels(host, gamePath, ships);
  DisguiseModels(host, gamePath, ships);
  EndProgress(host);
}

}  // namespace oravin
