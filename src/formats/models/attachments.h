#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "desk/host.h"
#include "models/model_chunks.h"

/// Weapons and class of ship models (`*.shp`; ships/model_chunks.h draws the chunks).
///
/// An element of the weapon attachment table (chunk type 9), of which only these fields are read or written:
///
///      0  2  kind: 0 missile launcher, 1 external gun, 3 gun; other values are shown as guns but never paired
///      4  4  x, signed
///      8  4  y, signed
///     12  4  z, signed
///     52  2  type code of an external gun
///    100  2  type code of a gun
///
/// The class byte stands at the absolute offset 26: 1, 3 and 5 mark a capital ship, 2 a fighter that carries a cloaking
/// device, 0 a fighter without one.
namespace oravin {

inline constexpr std::uint16_t missileKind = 0;
inline constexpr std::uint16_t externalGunKind = 1;
inline constexpr std::uint16_t gunKind = 3;

/// As many attachments as are ever read from one model; the ones behind them are counted and nothing more.
inline constexpr std::size_t mostAttachments = 120;

/// One weapon attachment of a model.
struct ShpAttachment {
  std::int32_t filePosition = 0;  ///< where its element begins in the file; 0 for one that was only counted
  std::uint16_t kind = 0;
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t z = 0;
  std::uint16_t gunType = 0;
  std::uint16_t externalGunType = 0;

  bool operator==(const ShpAttachment&) const = default;
};

using ShpAttachments = std::vector<ShpAttachment>;

/// Reads the attachments of all attachment tables of a model, in the order of the file.
///
/// The array gets as many entries as there are attachments, 65,535 at the most; those from the 121st on stay zero: that
/// is meant. A field that lies past the file's end stays zero too, and its attachment counts all the same. A model
/// without any leaves the array as it was, and so does one that the system cannot read, without a box.
/// A missing file gives the box "Error - Path not found".
/// @return the number of attachments
int GetAttachments(Host& host, std::string path, ShpAttachments& attachments);

/// The same without a box.
/// @throws FileError when the file cannot be opened or read; a file that merely ends too early is no such case
ShpAttachments ReadAttachments(Files& files, const std::string& path);

/// Writes the six fields of every attachment back into its element; nothing else in the file changes.
///
/// An attachment whose file position is not that of an element of the file's own tables is passed over, and so is a
/// field that its element, or the file, has no room for. All that is to be written is put together before the first
/// write. A missing file gives the box "Error - Path not found".
/// @return false when a box has said why they could not be written
bool PutAttachments(Host& host, std::string path, std::span<const ShpAttachment> attachments);

/// True when each of these attachments is an element of the file's own tables with room for all six fields.
/// @throws FileError when the file cannot be read
bool CanPutAttachments(Files& files, const std::string& path, std::span<const ShpAttachment> attachments);

/// The name of a gun's type code; "Unknown Gun" for a code without one.
std::string GetGunName(int code);

/// The name of an external gun's type code; "Unknown" for a code without one. 8, 9 and 10 have none: that is meant.
std::string GetExtGunName(int code);

/// Which attachments are the two mirrored halves of one weapon.
struct WeaponPairs {
  std::vector<std::int32_t> partner;  ///< the index of the other half; -1 for an attachment without one
  std::vector<bool> paired;
};

/// Finds the pairs: two attachments of one kind (0, 1 or 3) whose x mirror each other (within 70), whose z are the same
/// (within 25) and whose y are the same or mirrored (within 30). The first acceptable partner wins.
WeaponPairs FindWeaponPairs(std::span<const ShpAttachment> attachments);

/// The class byte of a model that is being read; nothing when the model ends before it.
/// @throws FileError when the file cannot be read
std::optional<std::uint8_t> ClassByteOf(ModelReader& reader);

/// True for the class bytes of capital ships: 1, 3 and 5.
bool MarksCapitalShip(std::uint8_t classByte);

/// True when the model's class byte is that of a capital ship. A file that cannot be read that far gives false without
/// a word; a missing one a box titled "IsCapitalShip".
bool IsCapitalShip(Host& host, std::string path);

/// True when the model's class byte is 2. As IsCapitalShip, with the title "IsCloaked".
bool IsCloaked(Host& host, std::string path);

/// Writes 2 into the class byte when it is not 2, else 0; a capital ship's byte becomes 2 as well. The boxes bear the
/// title "IsCloaked"; that is meant.
void ToggleCloak(Host& host, std::string path);

}  // namespace oravin
