#pragma once

#include <string>

#include "app/main.h"

namespace oravin {

/// Opens the import form for a ship model or a ship pack, which becomes the text of txtImportFighter.
void ImportFile(Main& main, const std::string& path);

}  // namespace oravin
