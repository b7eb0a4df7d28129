#pragma once

#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/import_tab.h"
#include "tabs/switcher_tab.h"

namespace oravin {

/// Fills lstImported with the imported ships of the catalogue; names that were selected stay selected. A row's
/// item is the ship's index. Two imported parts of one ship are one row, that of the first part. Then the buttons that
/// can do something are enabled.
///
/// A missing model gives no box: the switcher's lists, which are filled at the same time, show it.
/// @param known the classes that the switcher's lists have just read: these models are not read again
void DisplayImported(Host& host, ImportTab& tab, const Installation& installation, const ModelClasses& known = {});

/// Enables the buttons that can be used on the selection.
void lstImported_ItemClick(ImportTab& tab);

/// The indices of the imported ships that are selected.
std::vector<int> SelectedImported(const ImportTab& tab, const Ships& ships);

/// Renames the ship whose name was edited in lstImported (RenameImported); `edited.refused` is true afterwards when it
/// keeps its old name.
/// @return as RenameImported
bool lstImported_AfterLabelEdit(Host& host, ImportTab& tab, Installation& installation);

}  // namespace oravin
