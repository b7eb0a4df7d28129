#include "actions/unpack_models.h"

#include <optional>

#include "actions/load_table.h"
#include "archive/disguise.h"
#include "archive/unpack.h"
#include "base/file_error.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr const char* unpackTitle = "UnpackFile()";

/// Unpacks one model to a temporary file; a message box says so if the archive no longer holds it.
bool AddShip(Host& host, WholeFiles& together, const Installation& installation, const ShipRecord& ship,
             const std::string& model, bool* nowhere = nullptr) {
  std::optional<HogEntry> entry;
  const bool done = Trap(host, unpackTitle, [&] {
    entry = LiveEntryOf(host, installation, ship);
    if (!entry) return;
    AddUnpacked(host.files, together, installation.archivePath(), installation.modelPath(model), entry->Size,
                entry->Offset);
  });
  if (done && !entry) {
    Show(host, "The model " + ModelOf(ship) + " was not found in resource.hog. Nothing was unpacked.",
         Icon::exclamation);
    if (nowhere != nullptr) *nowhere = true;
  }
  return done && entry;
}

/// Unpacks every stock model. The first model of a two-part ship is written for both parts.
void UnpackModels(Host& host, const Installation& installation) {
  const Ships& ships = installation.ships;
  const int total = static_cast<int>(ships.size());
  WholeFiles together;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const ShipRecord& ship = ships[i];
    if (!IsStock(ship)) continue;
    ShowProgress(host, "Unpacking " + ModelOf(ship), static_cast<int>(i), total);
    const bool listed = Unsigned32(ship.HogFatPos) != 0;
    if (listed) AddShip(host, together, installation, ship, ModelOf(ship));
    const std::int64_t partner = WholeNumber(ship.SecondPartIndex);
    if (!ship.HasSecondPart || partner <= static_cast<std::int64_t>(i)) continue;
    if (listed) AddShip(host, together, installation, ship, ModelOf(ships[static_cast<std::size_t>(partner)]));
    ++i;
  }
  Trap(host, unpackTitle, [&] { CommitWhole(host.files, together); });
}

void DisguiseModels(Host& host, const Installation& installation) {
  std::vector<std::string> passedOver;
  Trap(host, "UnpackSetup", [&] {
    File hog(host.files, installation.archivePath(), OpenFor::changing);
    for (const ShipRecord& ship : installation.ships) {
      const std::uint32_t fatPos = Unsigned32(ship.HogFatPos);
      if (!IsStock(ship) || fatPos == 0) continue;
      const bool loose = FileExists(host.files, installation.modelPath(ModelOf(ship)));
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

bool UnpackShip(Host& host, const Installation& installation, const ShipRecord& ship, const std::string& model,
                bool* nowhere) {
  WholeFiles alone;
  return AddShip(host, alone, installation, ship, model, nowhere) &&
         Trap(host, unpackTitle, [&] { CommitWhole(host.files, alone); });
}

void UnpackSetup(Host& host, const Installation& installation) {
  if (!FolderExists(host.files, installation.GamePath)) {
    Show(host, "Error - Invalid Path", Icon::critical, "UnpackSetup");
    throw ProgramEnd();
  }
  UnpackModels(host, installation);
  DisguiseModels(host, installation);
  EndProgress(host);
}

}  // namespace oravin
