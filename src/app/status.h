#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/main.h"

namespace oravin {

/// One of the game's files as it is found.
struct GameFile {
  std::string name;
  bool found = false;
  std::uint64_t size = 0;   ///< in bytes
  std::uint64_t count = 0;  ///< of what it holds, as its header or its length says; 0 where it cannot be told
  std::string counted;      ///< what is counted: "entries", "textures", "blocks"
};

/// How the installation stands.
struct Status {
  std::string gameFolder;
  std::string programFolder;
  bool enabled = false;
  bool onlyLooks = false;
  std::size_t ships = 0;  ///< records of the catalogue without the inert ones
  std::size_t changedShips = 0;
  std::vector<GameFile> files;
};

/// Looks at the installation and changes nothing: a damaged count of the archive is told as it stands.
Status StatusOf(Main& main);

}  // namespace oravin
