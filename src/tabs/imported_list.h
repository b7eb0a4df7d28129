#pragma once

#include <cstddef>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/import_tab.h"
#include "tabs/switcher_tab.h"

namespace oravin {

/// Fills lstImported with the imported ships of the catalogue; ships that were selected stay so by their names. An
/// item's key is "s" and the ship's index counted from 1. Two imported parts of one ship are one item, by the first of
/// them. Then the buttons are enabled that can do something.
///
/// A missing model is passed over without a box: the switcher's lists, which are filled together with this one, tell of
/// it.
/// @param known the classes that the switcher's lists have just been filled by: these models are not read once more
void DisplayImported(Host& host, ImportTab& tab, const Installation& installation, const ModelClasses& known = {});

/// Enables the buttons that can do something with what is selected.
void lstImported_ItemClick(ImportTab& tab);

/// The indices of the records of an imported ship that lstImported lists: one, or two where the next record is its
/// second part. Empty when the index is that of no such ship.
std::vector<std::size_t> ImportedParts(const Ships& ships, int index);

}  // namespace oravin
