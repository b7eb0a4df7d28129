#pragma once

#include <string>
#include <vector>

#include "models/model_chunks.h"

namespace oravin {

/// The most different texture names that a model may have.
inline constexpr std::size_t mostTextureNames = 50;

/// Lists the textures of a ship model: every element of its texture-name tables (chunk type 6; models/model_chunks.h)
/// starts with a name that a zero byte ends. Names that differ in case are different; an empty one is none.
/// @param path spaces at its ends do not count
/// @return the different names in the order of their first appearance
/// @throws FileError of the kind `missing` for a missing file, `tooMany` for more than mostTextureNames names; also for
///   a name without an end and for a table that reaches past the file's end
std::vector<std::string> ReadShpTextureNames(Files& files, const std::string& path);

/// The same for a model that is open, or in memory.
/// @param reader at the model's start
std::vector<std::string> TextureNamesOf(ModelReader& reader);

}  // namespace oravin
