#include "actions/edit_weapons.h"

#include <utility>
#include <vector>

#include "base/file_error.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "models/class_byte.h"

namespace oravin {

namespace {

constexpr std::uint16_t missileGunType = 64;
constexpr std::uint16_t missileExternalGunType = 6;

std::string ModelPathOf(const Installation& installation, const ShipRecord& ship) {
  return installation.modelPath(ModelOf(ship));
}

/// The attachments of a model, and its path.
struct ModelTable {
  std::string path;
  ShpAttachments attachments;
};

/// The attachments of these numbers, changed to a weapon; nothing when one of them cannot be written.
/// @throws FileError when the model cannot be read
std::optional<ShpAttachments> Changed(Files& files, const ModelTable& table, const std::vector<std::size_t>& numbers,
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

bool StillListed(Host& host, const ModelWeapons& listed, const ModelTable& table) {
  if (table.attachments == listed.attachments) return true;
  Show(host, table.path + " has been changed since its weapons were listed.\nNothing was changed now. Choose again.",
       Icon::exclamation);
  return false;
}

/// The tables of the ship's model and of its variant; empty when a box has said why nothing can be changed.
/// @throws FileError when a model cannot be read
std::vector<ModelTable> TablesOf(Host& host, const Installation& installation, const ShipRecord& ship,
                                 const ModelWeapons& listed) {
  const std::string model = ModelPathOf(installation, ship);
  std::vector<ModelTable> tables{{model, ReadAttachments(host.files, model)}};
  if (!StillListed(host, listed, tables[0])) return {};
  const std::string variant = VariantOf(installation, ship);
  if (!FileExists(host.files, variant)) return tables;
  tables.push_back({variant, ReadAttachments(host.files, variant)});
  if (tables[0].attachments.size() == tables[1].attachments.size()) return tables;
  Show(host, "Error - standard ship and Tiger ship attachments don't match", Icon::exclamation);
  return {};
}

/// Writes the weapon into all tables, or into none.
/// @throws FileError when a model cannot be read
void ChangeIn(Host& host, const std::vector<ModelTable>& tables, const std::vector<std::size_t>& numbers,
              const Weapon& weapon) {
  WritePlan plan;
  std::vector<ModelTable> changes;
  for (const ModelTable& table : tables) {
    auto changed = Changed(host.files, table, numbers, weapon);
    if (!changed) {
      Show(host,
           "This weapon cannot be changed: the table of attachments in " + table.path +
               "\nhas no room for its type, or it is not among the first " + std::to_string(mostAttachments) +
               ". Nothing was changed.",
           Icon::exclamation);
      return;
    }
    plan.files.push_back(table.path);
    changes.push_back({table.path, std::move(*changed)});
  }
  if (changes.empty() || !ReadyToWrite(host, plan)) return;
  Trap(host, "PutAttachments", [&] {
    for (const ModelTable& change : changes) PutAttachments(host.files, change.path, change.attachments);
  });
}

}  // namespace

Weapon GunOfType(int code) { return {gunKind, static_cast<std::uint16_t>(code), std::nullopt}; }

Weapon ExternalGunOfType(int code) { return {externalGunKind, std::nullopt, static_cast<std::uint16_t>(code)}; }

Weapon MissileLauncher() { return {missileKind, missileGunType, missileExternalGunType}; }

ModelWeapons GetWeapons(Host& host, const Installation& installation, const ShipRecord& ship) {
  ModelWeapons weapons;
  try {
    weapons.attachments = ReadAttachments(host.files, ModelPathOf(installation, ship));
  } catch (const FileError& error) {
    // Intentional: a model that cannot be read is passed over, as by the queries of the class byte.
    if (error.kind == ErrorKind::missing) ShowTrapped(host, "GetAttachments", error);
  }
  weapons.pairs = FindWeaponPairs(weapons.attachments);
  return weapons;
}

std::optional<ShipClass> ClassOf(Host& host, const Installation& installation, const ShipRecord& ship) {
  const std::string model = ModelPathOf(installation, ship);
  if (!FileExists(host.files, model)) return std::nullopt;
  return Trapped(host, "IsCloaked", std::optional<ShipClass>(), [&] {
    if (IsCapitalShip(host.files, model)) return std::optional(ShipClass::capital);
    return std::optional(IsCloaked(host.files, model) ? ShipClass::cloakedFighter : ShipClass::fighter);
  });
}

std::string VariantOf(const Installation& installation, const ShipRecord& ship) {
  return installation.modelPath("t_" + ModelOf(ship));
}

void ChangeWeapon(Host& host, const Installation& installation, const ShipRecord& ship, const ModelWeapons& listed,
                  std::size_t number, const Weapon& weapon, const char* procedure) {
  std::vector<std::size_t> numbers{number};
  if (listed.pairs.paired[number]) numbers.push_back(static_cast<std::size_t>(listed.pairs.partner[number]));
  Trap(host, procedure, [&] { ChangeIn(host, TablesOf(host, installation, ship, listed), numbers, weapon); });
}

void ToggleCloakOf(Host& host, const Installation& installation, const ShipRecord& ship) {
  Trap(host, "ToggleCloak", [&] { ToggleCloak(host.files, ModelPathOf(installation, ship)); });
}

}  // namespace oravin
