#pragma once

#include <string>
#include <utility>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"

/// A swap makes the game fly one ship, the source, in place of a stock ship, the target: the target's model and
/// statistics are replaced by the source's, and its catalogue record remembers it. The stock model is kept in the same
/// folder under its name with the extension ".org", the stock statistics in `shipstats.def`; an unswap restores both.
///
/// A ship whose model is nowhere, neither loose nor in the archive, has nothing to keep: a swap stops there, after the
/// catalogue was written. An unswap that finds no stock model leaves none: the source's model is deleted, and one that
/// has been changed since is kept in `backup\ships\`.
///
/// Nothing is rolled back: a failure in a later step leaves the records that were written. Every failure has the error
/// trap's message box, titled "cmdSwap_Click()" or "cmdUnSwap_Click()".
///
/// Ships are named by their index in the catalogue. Files that other tabs hold open should be closed before.
namespace oravin {

/// What a swap or an unswap changed.
struct SwapResult {
  int target = -1;
  bool listed = false;  ///< the catalogue has the change
  bool done = false;    ///< every step succeeded
};

/// True when the catalogue's file is there; otherwise the message box "Error - ships.dat not found - Reinstall" was
/// shown.
bool CatalogueThere(Host& host, const Installation& installation, const char* title);

/// True when a swap has something to do. Silently false when a ship is not known, the target is no stock ship, both
/// ships have one name, or the target is swapped to the source already; false after CatalogueThere's message box.
bool CanSwap(Host& host, const Installation& installation, int target, int source);

/// Makes the source fly in place of the target; does nothing unless CanSwap.
SwapResult SwapShip(Host& host, Installation& installation, int target, int source);

/// True when the target is swapped, so that an unswap has something to do; false after CatalogueThere's message box.
bool CanUnswap(Host& host, const Installation& installation, int target);

/// Restores the target; does nothing unless CanUnswap.
SwapResult UnswapShip(Host& host, Installation& installation, int target);

/// Restores every swapped ship, in the order of the catalogue, after making sure that all their files can be written. A
/// ship that fails does not end it; a catalogue that is missing does.
/// @return false when it was refused before its first change
bool UnswapAllShips(Host& host, Installation& installation);

/// Unswaps and swaps pairs of (target, source) names in their order. A name stands for the first ship of that name,
/// without regard to case and to spaces at its ends. A pair without a target's name is passed over.
void SwapPairs(Host& host, Installation& installation, const std::vector<std::pair<std::string, std::string>>& pairs);

}  // namespace oravin
