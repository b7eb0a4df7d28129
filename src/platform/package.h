#pragma once

#include <string>

namespace oravin::platform {

/// The folders of an installed package, as Windows paths that end in a backslash; both empty if the program was not
/// installed, as in its build folder.
struct PackagePlaces {
  std::string data;     ///< the package's files for the program folder
  std::string program;  ///< the program folder of this user; it need not exist
};

/// Finds these folders from the location of the running executable.
///
/// On Windows both are the executable's own folder if the manual is in it: the installer and the portable archive
/// contain the program folder. Elsewhere installed files are read-only, so each user gets a program folder: the data
/// are in `../share/oravin` relative to the executable, and the program folder is `oravin` in the user's data folder
/// (`XDG_DATA_HOME`, else `~/.local/share`).
PackagePlaces PlacesOfPackage();

}  // namespace oravin::platform
