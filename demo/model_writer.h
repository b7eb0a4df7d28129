// Writer of ship models (.shp).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "demo/bytes.h"

namespace oravin::demo {

/// Kinds of weapon attachments, with the numbers of the model files.
inline constexpr int kMissileLauncher = 0;
inline constexpr int kExternalGun = 1;
inline constexpr int kGun = 3;

/// One weapon attachment of a model.
struct ModelAttachment {
  int kind = kGun;
  std::int32_t x = 0, y = 0, z = 0;  ///< position in model units; pairs mirror x
  int externalGun = 0;               ///< type code of an external gun
  int gun = 0;                       ///< type code of a gun
};

/// What a written model contains.
struct ModelOptions {
  std::uint64_t seed = 0;
  std::string name;                          ///< at most 15 characters, in the header chunk
  std::uint8_t classByte = 0;                ///< 0 fighter, 2 cloaked fighter, 1, 3 or 5 capital ship
  int size = 40000;                          ///< approximate size of the file in bytes
  std::vector<std::string> textures;         ///< names, at most 31 characters each
  std::vector<ModelAttachment> attachments;  ///< in two chunks for a capital ship, else in one
};

/// The offset of the class byte in every model file.
inline constexpr std::size_t kClassByteOffset = 26;

/// A model file: a header chunk, meshes in three levels of detail, the texture names, the attachments. Throws
/// std::length_error if it is too large for its chunks (above about 1.5 MB) or a name is too long.
Bytes BuildModel(const ModelOptions& options);

/// Suitable weapons for a class: mirrored guns and missile launchers for a fighter, turrets for a capital ship; at most
/// 118.
std::vector<ModelAttachment> ArmShip(std::uint64_t seed, std::uint8_t classByte);

}  // namespace oravin::demo
