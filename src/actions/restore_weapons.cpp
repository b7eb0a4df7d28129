#include "actions/restore_weapons.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "actions/edit_weapons.h"
#include "actions/load_table.h"
#include "archive/unpack.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "files/path.h"
#include "models/attachments.h"

namespace oravin {

namespace {

constexpr const char* title = "RestoreWeapons";
constexpr std::uint64_t largestModel = std::uint64_t{256} << 20;  // bytes in the archive; real models have a few MiB

void TellNoOriginal(Host& host) { Show(host, "No suitable original can be found", Icon::exclamation, title); }

void TellTooDifferent(Host& host) {
  Show(host,
       "This file's backup copy is too different than the\n"
       "the original to restore from. shipname.shp <> shipname.bak",
       Icon::exclamation);
}

bool SameForm(const ShpAttachments& a, const ShpAttachments& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const ShpAttachment& one, const ShpAttachment& other) {
    return one.filePosition == other.filePosition;
  });
}

/// A model's attachments; nothing where a box has said why they cannot be read.
std::optional<ShpAttachments> TableOf(Host& host, const std::string& path) {
  std::optional<ShpAttachments> table;
  Trap(host, title, [&] { table = ReadAttachments(host.files, path); });
  return table;
}

/// The table of a stock ship's own model, unpacked into memory; nothing after a box.
std::optional<ShpAttachments> StockTable(Host& host, const Installation& installation, const ShipRecord& ship) {
  const std::string hogPath = installation.archivePath();
  bool held = true;
  std::optional<ShpAttachments> table;
  Trap(host, "UnpackFile()", [&] {
    RequireFile(host.files, hogPath);
    const auto entry = LiveEntryOf(host, installation, ship);
    held = entry && entry->Size > 0;
    if (!held) return;
    File hog(host.files, hogPath, OpenFor::reading);
    ModelReader reader(ModelOf(ship), UnpackedContent(hog, *entry, largestModel));
    table = AttachmentsOf(reader);
  });
  if (!held) TellNoOriginal(host);
  return table;
}

std::optional<ShpAttachments> ImportedTable(Host& host, const Installation& installation, const ShipRecord& ship) {
  const std::string model = ModelOf(ship);
  for (const std::string& original :
       {installation.modelPath(ChangeExtension(model, ".bak")), installation.addOnModelPath(model)}) {
    if (FileExists(host.files, original)) return TableOf(host, original);
  }
  TellNoOriginal(host);
  return std::nullopt;
}

/// The models that must take a ship's table: its own, and that of the ship that replaces it.
std::vector<std::string> ModelsOf(const Installation& installation, const ShipRecord& ship) {
  std::vector<std::string> models{installation.modelPath(ModelOf(ship))};
  const std::int64_t partner = WholeNumber(ship.ChangedToIndex);
  const bool known = partner >= 0 && partner < static_cast<std::int64_t>(installation.ships.size());
  if (ship.Imported || !ship.Changed || !known) return models;
  const ShipRecord& by = installation.ships[static_cast<std::size_t>(partner)];
  if (!IsInert(by)) models.push_back(installation.modelPath(ModelOf(by)));
  return models;
}

/// True when every one of the models can take the table; else a box has said why not.
bool Fits(Host& host, const ShpAttachments& table, const std::vector<std::string>& models) {
  for (const std::string& model : models) {
    const auto present = TableOf(host, model);
    if (!present) return false;
    if (SameForm(table, *present)) continue;
    TellTooDifferent(host);
    return false;
  }
  return true;
}

}  // namespace

bool RestoreWeapons(Host& host, const Installation& installation, std::size_t number) {
  if (number >= installation.ships.size() || IsInert(installation.ships[number])) return false;
  const ShipRecord& ship = installation.ships[number];
  const auto table = ship.Imported ? ImportedTable(host, installation, ship) : StockTable(host, installation, ship);
  if (!table) return false;
  std::vector<std::string> models = ModelsOf(installation, ship);
  if (!Fits(host, *table, models)) return false;
  // Intentional: the "t_" variant gets the table too. A change of a weapon writes both models, so restoring the ship's
  // own model alone would leave that change in the one that the game flies as its variant.
  const std::string variant = VariantOf(installation, ship);
  if (FileExists(host.files, variant)) {
    const auto present = TableOf(host, variant);
    if (!present) return false;
    if (SameForm(*table, *present)) models.push_back(variant);
  }
  WritePlan plan;
  plan.files = models;
  return ReadyToWrite(host, plan) && Trap(host, "PutAttachments", [&] {
           for (const std::string& model : models) PutAttachments(host.files, model, *table);
         });
}

}  // namespace oravin
