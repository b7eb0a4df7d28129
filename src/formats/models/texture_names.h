#pragma once

#include <string>
#include <vector>

#include "desk/host.h"
#include "models/model_chunks.h"

namespace oravin {

/// As many different texture names as a model may have.
inline constexpr std::size_t mostTextureNames = 50;

/// Lists the textures of a ship model: every element of its texture-name tables (chunk type 6; ships/model_chunks.h)
/// begins with a name that a zero byte ends. Names are told apart by their letters' case too; an empty one is none.
///
/// Boxes, after which the array is as it was: "Error - Path not found" titled "ORAVIN" for a missing file, and the
/// error trap's for more than mostTextureNames names, for a name that the file ends inside and for a table that reaches
/// past the file's end. A model without a name leaves the array as it was without a box.
/// @param path trimmed in place
/// @param names the different names in the order of their first appearance
/// @return their number
int GetShpTextureNames(Host& host, std::string& path, std::vector<std::string>& names);

/// The same without a box.
/// @throws FileError for what gives the error trap's box, and when the file cannot be opened
std::vector<std::string> ReadShpTextureNames(Files& files, const std::string& path);

/// The same without boxes, for a model that is being read from its beginning.
/// @throws FileError where GetShpTextureNames shows the error trap's box
std::vector<std::string> TextureNamesOf(ModelReader& reader);

}  // namespace oravin
