#pragma once

#include <string>

#include "desk/host.h"

namespace oravin {

/// True when a new name can be stored in one of the game's files, whose text is Windows-1252 (IsCodePageText).
/// Otherwise a box says which name cannot, and why. Names that stay as they are are not asked about.
/// @param name as FromUtf8 gave it, or as another file has it
/// @param title the box's
bool NameCanBeStored(Host& host, const std::string& name, const std::string& title = programTitle);

}  // namespace oravin
