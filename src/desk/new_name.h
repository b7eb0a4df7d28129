#pragma once

#include <string>

#include "desk/host.h"

namespace oravin {

/// True if a new name can be stored in one of the game's files, whose text is Windows-1252 (IsCodePageText). Otherwise
/// a message box says why not. Not for names that stay unchanged.
/// @param name from FromUtf8 or from another file
/// @param title of the message box
bool NameCanBeStored(Host& host, const std::string& name, const std::string& title = programTitle);

}  // namespace oravin
