#pragma once

#include "desk/host.h"
#include "platform/package.h"

namespace oravin {

/// Lays out the program folder of a program that came as a package: makes it, its folders for add-ons, and copies the
/// package's files that are missing there. The manual follows the package; every other file that is there may be the
/// player's own and stays. Where the package has laid the folder out itself, only missing folders are made.
///
/// A failure is told in a box titled as start-up's; what could be laid out stays.
void LayOutProgramFolder(Host& host, const platform::PackagePlaces& package);

}  // namespace oravin
