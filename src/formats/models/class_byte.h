#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "models/model_chunks.h"

/// The class byte of a ship model, at the absolute offset 26: 1, 3 and 5 mark a capital ship, 2 a fighter with a
/// cloaking device, 0 a fighter without one.
namespace oravin {

/// The class byte of a model that is being read; nothing when the model ends before it.
/// @throws FileError when the file cannot be read
std::optional<std::uint8_t> ClassByteOf(ModelReader& reader);

/// True for the class bytes of capital ships: 1, 3 and 5.
bool MarksCapitalShip(std::uint8_t classByte);

/// True when the model's class byte is that of a capital ship. Intentional: false for a file that is there but cannot
/// be read that far.
/// @throws FileError of the kind `missing`, and no other
bool IsCapitalShip(Files& files, const std::string& path);

/// True when the model's class byte is 2. As IsCapitalShip.
bool IsCloaked(Files& files, const std::string& path);

/// Writes 2 into the class byte when it is not 2, else 0; a capital ship's byte becomes 2 as well.
/// @throws FileError; of the kind `missing` for a missing file
void ToggleCloak(Files& files, const std::string& path);

}  // namespace oravin
