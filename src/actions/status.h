#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/files.h"
#include "installation/installation.h"

namespace oravin {

/// One of the game's files.
struct GameFile {
  std::string name;
  bool found = false;
  std::uint64_t size = 0;   ///< in bytes
  std::uint64_t count = 0;  ///< of what is in it, by its header or its length; 0 where it cannot be read
  std::string counted;      ///< what is counted: "entries", "textures", "blocks"
};

/// The state of the installation.
struct Status {
  std::string gameFolder;
  std::string programFolder;
  bool enabled = false;
  bool readOnly = false;  ///< another Oravin is using the installation
  std::size_t ships = 0;  ///< records of the catalogue without the inert ones
  std::size_t changedShips = 0;
  std::vector<GameFile> files;
};

/// Looks at the installation and changes nothing: a damaged count of the archive is reported as it is.
Status StatusOf(Files& files, const Installation& installation, bool readOnly);

}  // namespace oravin
