#pragma once

#include <string>

#include "files/files.h"

namespace oravin {

/// Lays out the program folder of a program that came as a package: makes it, its folders for add-ons, and copies the
/// package's files that are missing there. The manual is renewed from the package; every other file that is there may
/// be the player's own and stays. Where the package has laid the folder out itself, only missing folders are made.
/// @param data,program the package's files and the program folder, ending in a backslash
/// @throws FileError; what could be laid out stays
void LayOutProgramFolder(Files& files, const std::string& data, const std::string& program);

}  // namespace oravin
