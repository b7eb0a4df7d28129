#pragma once

#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/import_tab.h"
#include "tabs/switcher_tab.h"

namespace oravin {

/// Fills lstImported with the imported ships of the catalogue; ships that were selected stay selected by their names.
/// A row's item is the ship's index. Two imported parts of one ship are one row, that of the first part. Then the
/// buttons are enabled that can do something.
///
/// A missing model has no message box here: the switcher's lists, which are filled together with this one, report it.
/// @param known the classes that DisplaySwitcher has just read: these models are not read again
void DisplayImported(Host& host, ImportTab& tab, const Installation& installation, const ModelClasses& known = {});

/// Enables the buttons that can do something with what is selected.
void lstImported_ItemClick(ImportTab& tab);

/// The indices of the imported ships that are selected.
std::vector<int> SelectedImported(const ImportTab& tab, const Ships& ships);

/// Renames the ship whose name was edited in lstImported (RenameImported); `edited.refused` is true afterwards when it
/// keeps its old name.
/// @return as RenameImported
bool lstImported_AfterLabelEdit(Host& host, ImportTab& tab, Installation& installation);

}  // namespace oravin
