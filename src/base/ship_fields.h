#pragma once

#include <cstddef>

#include "base/fixed_text.h"

/// What the fields of the ship list and of the catalogue's records have in common.
namespace oravin {

inline constexpr std::size_t shipNameWidth = 30;

/// A ship's name, or the name of its model or of one of its textures, as a record of the catalogue holds it.
using ShipText = FixedText<shipNameWidth>;

/// The kind of an imported ship; 1 and 2 are kinds of stock ships.
inline constexpr int importedKind = 3;

}  // namespace oravin
