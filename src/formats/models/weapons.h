#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "models/attachments.h"

/// The weapons that attachments stand for: their names, and which two are one weapon.
namespace oravin {

/// The name of a gun's type code; "Unknown Gun" for a code without one.
std::string GetGunName(int code);

/// The name of an external gun's type code; "Unknown" for a code without one. Intentional: 8, 9 and 10 have none.
std::string GetExtGunName(int code);

/// Which attachments are the two mirrored halves of one weapon.
struct WeaponPairs {
  std::vector<std::int32_t> partner;  ///< the index of the other half; -1 for an attachment without one
  std::vector<bool> paired;
};

/// Finds the pairs: two attachments of one kind (0, 1 or 3) whose x mirror each other (within 70), whose z are the same
/// (within 25) and whose y are the same or mirrored (within 30). The first acceptable partner wins.
WeaponPairs FindWeaponPairs(std::span<const ShpAttachment> attachments);

}  // namespace oravin
