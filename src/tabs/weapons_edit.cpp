#include "tabs/weapons_edit.h"

#include <algorithm>
#include <utility>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "installation/stats_source.h"
#include "tabs/stats_show.h"

namespace oravin {

namespace {

constexpr std::uint16_t missileGunType = 64;
constexpr std::uint16_t missileExternalGunType = 6;

/// What an attachment becomes; a type that is not given stays.
struct Weapon {
  std::uint16_t kind = gunKind;
  std::optional<std::uint16_t> gunType;
  std::optional<std::uint16_t> externalGunType;
};

/// A model's table with the changed attachments in it.
struct ChangedTable {
  std::string path;
  ShpAttachments attachments;
};

/// Takes a weapon into the attachments of these numbers.
/// @throws FileError when the model cannot be read
/// @return the changed attachments alone; nothing when one of them cannot be written
std::optional<ShpAttachments> Change(Files& files, const ChangedTable& table, const std::vector<std::size_t>& numbers,
                                     const Weapon& weapon) {
  ShpAttachments changed;
  for (const std::size_t number : numbers) {
    ShpAttachment attachment = table.attachments[number];
    attachment.kind = weapon.kind;
    attachment.gunType = weapon.gunType.value_or(attachment.gunType);
    attachment.externalGunType = weapon.externalGunType.value_or(attachment.externalGunType);
    changed.push_back(attachment);
  }
  if (!CanPutAttachments(files, table.path, changed)) return std::nullopt;
  return changed;
}

bool StillListed(Host& host, const StatsTab& tab, const ChangedTable& table) {
  if (table.attachments == tab.attachments) return true;
  Show(host, table.path + " has been changed since its weapons were listed.\nNothing was changed now. Choose again.",
       Icon::exclamation);
  return false;
}

/// The tables of the ship's model and of its variant; empty when a box has said why nothing can be changed.
std::vector<ChangedTable> TablesOf(Host& host, const StatsTab& tab, const Installation& installation,
                                   const ShipRecord& ship) {
  std::vector<ChangedTable> tables;
  const std::string model = installation.modelPath(ModelOf(ship));
  if (!FileExists(host.files, model)) {
    Show(host, "Error - Path not found", Icon::exclamation);
    return {};
  }
  tables.push_back({model, ReadAttachments(host.files, model)});
  if (!StillListed(host, tab, tables[0])) return {};
  const std::string variant = VariantOf(installation, ship);
  if (!FileExists(host.files, variant)) return tables;
  tables.push_back({variant, ReadAttachments(host.files, variant)});
  if (tables[0].attachments.size() == tables[1].attachments.size()) return tables;
  Show(host, "Error - standard ship and Tiger ship attachments don't match", Icon::exclamation);
  return {};
}

void ChangeWeapon(Host& host, const StatsTab& tab, const Installation& installation, const ShipRecord& ship,
                  const Weapon& weapon) {
  const std::size_t number = *SelectedAttachment(tab);
  std::vector<std::size_t> numbers{number};
  if (tab.pairs.paired[number]) numbers.push_back(static_cast<std::size_t>(tab.pairs.partner[number]));
  WritePlan plan;
  std::vector<std::pair<std::string, ShpAttachments>> changes;
  for (const ChangedTable& table : TablesOf(host, tab, installation, ship)) {
    auto changed = Change(host.files, table, numbers, weapon);
    if (!changed) {
      Show(host,
           "This weapon cannot be changed: the table of attachments in " + table.path +
               "\nhas no room for its type, or it is not among the first " + std::to_string(mostAttachments) +
               ". Nothing was changed.",
           Icon::exclamation);
      return;
    }
    plan.files.push_back(table.path);
    changes.emplace_back(table.path, std::move(*changed));
  }
  if (changes.empty() || !ReadyToWrite(host, plan)) return;
  for (const auto& [path, attachments] : changes) {
    if (!PutAttachments(host, path, attachments)) return;
  }
}

void ChangeSelected(Host& host, StatsTab& tab, const Installation& installation, const Weapon& weapon,
                    const char* procedure) {
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  if (ship == nullptr || !SelectedAttachment(tab)) return;
  Trap(host, procedure, [&] { ChangeWeapon(host, tab, installation, *ship, weapon); });
  if (FileExists(host.files, installation.modelPath(ModelOf(*ship)))) DisplayWeapons(host, tab, installation);
}

}  // namespace

void pldGunType_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const Weapon gun{gunKind, static_cast<std::uint16_t>(tab.clickedType), std::nullopt};
  ChangeSelected(host, tab, installation, gun, "pldGunType_Click()");
}

void pldExtGunType_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const Weapon externalGun{externalGunKind, std::nullopt, static_cast<std::uint16_t>(tab.clickedType)};
  ChangeSelected(host, tab, installation, externalGun, "pldExtGunType_Click()");
}

void pldMissileType_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const Weapon missile{missileKind, missileGunType, missileExternalGunType};
  ChangeSelected(host, tab, installation, missile, "pldMissileType_Click()");
}

void chkHasCloak_MouseUp(Host& host, StatsTab& tab, const Installation& installation) {
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  if (ship == nullptr) return;
  const std::string model = installation.modelPath(ModelOf(*ship));
  ToggleCloak(host, model);
  if (FileExists(host.files, model)) ShowClass(host, tab, model);
}

void cmdRestoreWeapons_Click(Host& host, StatsTab& tab, const Installation& installation, const UnpackModel& unpack) {
  const int index = SelectedShip(tab);
  const ShipRecord* ship = ShipAt(installation, index);
  if (ship == nullptr) return;
  RestoreWeapons(host, installation, static_cast<std::size_t>(index), unpack);
  if (FileExists(host.files, installation.modelPath(ModelOf(*ship)))) DisplayWeapons(host, tab, installation);
}

}  // namespace oravin
