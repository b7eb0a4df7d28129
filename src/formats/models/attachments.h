#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "models/model_chunks.h"

/// The weapon attachments of ship models (`*.shp`; models/model_chunks.h draws the chunks).
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
/// Every failure is a FileError, of the kind `missing` for a missing file. Spaces at the ends of a path do not count.
namespace oravin {

inline constexpr std::uint16_t missileKind = 0;
inline constexpr std::uint16_t externalGunKind = 1;
inline constexpr std::uint16_t gunKind = 3;

/// The most attachments that are read from one model; further ones are only counted.
inline constexpr std::size_t mostAttachments = 120;

/// One weapon attachment of a model.
struct ShpAttachment {
  std::int32_t filePosition = 0;  ///< offset of its element in the file; 0 for one that was only counted
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
/// There are as many entries as attachments, at most 65,535. Intentional: those from the 121st on are zero. A field
/// past the file's end is zero too, and its attachment counts all the same.
ShpAttachments ReadAttachments(Files& files, const std::string& path);

/// The same for a model that is open, or in memory.
/// @param reader at the model's start
ShpAttachments AttachmentsOf(ModelReader& reader);

/// Writes the six fields of every attachment into its element; nothing else in the file changes.
///
/// An attachment whose file position is not that of an element of the file's own tables is passed over, and so is a
/// field that its element, or the file, has no room for. Everything is read and prepared before the first write.
void PutAttachments(Files& files, const std::string& path, std::span<const ShpAttachment> attachments);

/// True when each of these attachments is an element of the file's own tables with room for all six fields.
bool CanPutAttachments(Files& files, const std::string& path, std::span<const ShpAttachment> attachments);

}  // namespace oravin
