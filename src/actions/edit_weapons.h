#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"
#include "models/weapons.h"

/// Changes of the weapons and the class byte of a ship's model in the game's ships folder.
namespace oravin {

/// What an attachment becomes; a type that is not given stays.
struct Weapon {
  std::uint16_t kind = gunKind;
  std::optional<std::uint16_t> gunType;
  std::optional<std::uint16_t> externalGunType;
};

/// A gun, or an external gun, of a type code; and a missile launcher, which has one of each type.
Weapon GunOfType(int code);
Weapon ExternalGunOfType(int code);
Weapon MissileLauncher();

/// The weapons of a model as they were read.
struct ModelWeapons {
  ShpAttachments attachments;
  WeaponPairs pairs;
};

/// Reads the weapons of a ship's model. A missing model gives the box "Error - Path not found"; of one that cannot be
/// read there are none, without a box.
ModelWeapons GetWeapons(Host& host, const Installation& installation, const ShipRecord& ship);

/// What the class byte of a model says.
enum class ShipClass { fighter, cloakedFighter, capital };

/// The class of a ship's model; nothing where the model is missing, without a box: GetWeapons has it.
std::optional<ShipClass> ClassOf(Host& host, const Installation& installation, const ShipRecord& ship);

/// The model that the game flies as a ship's variant: its file has "t_" before the name of the ship's.
std::string VariantOf(const Installation& installation, const ShipRecord& ship);

/// Makes an attachment, and its partner where it is one of a pair, another weapon. Where the ship has a variant
/// (VariantOf), the attachments of the same numbers in it are changed as well.
///
/// Boxes, after which nothing is written: "Error - standard ship and Tiger ship attachments don't match" where the
/// variant has another number of attachments; one for an attachment that has no room for the types, or was only
/// counted; one for a model that no longer has the listed weapons; those of files that cannot be read or written.
/// @param listed the weapons that the choice was made from
/// @param number the index of an attachment
/// @param procedure the title of the error trap's box
void ChangeWeapon(Host& host, const Installation& installation, const ShipRecord& ship, const ModelWeapons& listed,
                  std::size_t number, const Weapon& weapon, const char* procedure);

/// Toggles the cloaking device in the class byte of a ship's model. Box "Error - file not found" titled "IsCloaked"
/// for a missing model, and the error trap's.
void ToggleCloakOf(Host& host, const Installation& installation, const ShipRecord& ship);

}  // namespace oravin
