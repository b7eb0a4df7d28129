#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/file.h"

/// The names of stock models in the archive's table. While the features are enabled their first three characters are
/// "S47": the game no longer finds them there and takes the loose models of its ships folder.
namespace oravin {

/// A model's name with its first three characters replaced by the mark. A shorter name cannot bear it and comes back
/// as it is.
std::string Disguised(const std::string& model);

/// True when the name at a table position is that model's, plain or disguised, without regard to case, ended by a zero
/// byte. False at positions inside the header and past the file's end.
bool NamesModel(File& file, std::uint32_t fatPos, const std::string& model);

/// True when the name at a table position is that model's in its disguised form alone.
bool NamesDisguised(File& file, std::uint32_t fatPos, const std::string& model);

/// Disguises the name at a table position, if it is that model's (NamesModel).
/// @return whether it now stands disguised
bool DisguiseName(File& file, std::uint32_t fatPos, const std::string& model);

/// Puts the name at a table position back, if it is that model's (NamesModel).
/// @param spelling the very characters to write, of the same length
/// @return whether it now stands plain
bool PutNameBack(File& file, std::uint32_t fatPos, const std::string& model, const std::string& spelling);

}  // namespace oravin
