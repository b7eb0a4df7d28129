#pragma once

#include "desk/host.h"
#include "platform/package.h"

namespace oravin {

/// Sets up the program folder of a program that was installed as a package: makes it and its folders for add-ons, and
/// copies the package's files that are missing there. The manual is updated; every other existing file may be the
/// player's own and is kept. Where the package has set up the folder itself, only missing folders are made.
///
/// A failure gives a message box with start-up's title; what was set up stays.
void LayOutProgramFolder(Host& host, const platform::PackagePlaces& package);

}  // namespace oravin
