#pragma once

#include <string>

namespace oravin::platform {

/// The folders of a program that came as a package, as Windows paths that end in a backslash; both empty when it did
/// not, as in the folder that it was built in.
struct PackagePlaces {
  std::string data;     ///< where the package has put the files that belong into the program folder
  std::string program;  ///< the program folder that this user gets; it need not exist
};

/// Finds these folders by the place of the running executable.
///
/// On Windows both are the executable's own folder, when the manual lies in it: the installer and the portable archive
/// lay the program folder out there. Elsewhere what is installed can be read by all and changed by none, so that each
/// user gets a program folder: the data are in `../share/oravin` seen from the executable, and the program folder is
/// `oravin` below the user's data folder (`XDG_DATA_HOME`, else `~/.local/share`).
PackagePlaces PlacesOfPackage();

}  // namespace oravin::platform
