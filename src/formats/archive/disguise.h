#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/file.h"

/// The names of stock models in the archive's table. While the features are enabled their first three characters are
/// "S47": the game no longer finds them and loads the models in its ships folder instead.
namespace oravin {

/// A model's name with its first three characters replaced by the mark. A name of three characters or fewer is returned
/// unchanged.
std::string Disguised(const std::string& model);

/// True when the name at a table position is that model's, plain or disguised; case does not matter. False when no zero
/// byte ends it there, inside the header and past the file's end.
bool NamesModel(File& file, std::uint32_t fatPos, const std::string& model);

/// True when the name at a table position is that model's disguised one.
bool NamesDisguised(File& file, std::uint32_t fatPos, const std::string& model);

/// Disguises the name at a table position, if it is that model's (NamesModel).
/// @return whether it is disguised now
bool DisguiseName(File& file, std::uint32_t fatPos, const std::string& model);

/// Restores the name at a table position, if it is that model's (NamesModel).
/// @param spelling the characters to write; nothing is written unless it is as long as the model's name
/// @return whether it is plain now
bool RestoreName(File& file, std::uint32_t fatPos, const std::string& model, const std::string& spelling);

}  // namespace oravin
