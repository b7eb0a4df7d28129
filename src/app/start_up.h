#pragma once

#include <string>

#include "app/main.h"
#include "platform/package.h"

namespace oravin {

/// Folders that the user gave at start, as native or Windows paths; empty ones are searched for.
struct GivenFolders {
  std::string game;
  std::string program;
  bool offerShipList = false;  ///< where a chosen program folder has no ship list, OfferShipList before it is refused
  platform::PackagePlaces package = {};  ///< where the program came as a package: the folder to take when none is found
};

/// Start-up: settles the game folder and the program folder, shows them, loads the catalogue when the features are
/// enabled, fills the lists, and keeps a first copy of the stock statistics.
///
/// The folders come from the registry, else from the INI file in the program folder, else from the user, whose choice
/// is stored. Folders given by the caller are taken as they are and not stored. A given program folder must have a ship
/// list; one whose features are enabled is taken without it, so that they can be disabled.
///
/// Where neither the registry nor the usual place has a program folder, a program that came as a package takes the one
/// that its package names and lays it out. It has no ship list at first; if `offerShipList` is set, one is offered as
/// soon as the game folder is known.
///
/// @throws ProgramEnd when the user cancels a choice of folder, or a given folder is not the right one
void Form_Load(Main& main, const GivenFolders& given = {});

/// Settles the game folder as Form_Load does, for what needs no more. The program folder is the given one or the first
/// guess, whether it is one or not; without either it is the game folder. Nothing is loaded or stored back.
/// @throws ProgramEnd as Form_Load
void FindGameFolder(Main& main, const GivenFolders& given = {});

}  // namespace oravin
