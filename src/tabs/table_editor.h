#pragma once

#include <cstddef>
#include <string>

#include "desk/controls.h"
#include "desk/host.h"
#include "tabs/archive_tab.h"

namespace oravin {

/// The form in which one entry of the archive's table is edited: its name, the place of its data and their size, both
/// as hexadecimal text.
struct FatEditor {
  Label lblName;
  TextBox txtName;
  Label lblOffset;
  TextBox txtOffset;
  Label lblSize;
  TextBox txtSize;
  Label lblRemark;  ///< what there is to know before something is changed
  Button cmdSave;
  Button cmdCancel;

  bool shown = false;     ///< false closes the form
  std::size_t entry = 0;  ///< the index of the entry that it shows
};

/// The form's name for the desk.
inline constexpr const char* fatEditorForm = "FAT_Editor";

FatEditor NewFatEditor();

/// Shows the form for the first selected entry; without one nothing happens. A double-click on the list, the Enter key
/// and the menu's "Properties" do it.
void pldHogProperties_Click(Host& host, HogTab& tab, FatEditor& form);

/// Writes what the form says into the entry's place in the table, reads it back from there and closes the form.
///
/// Boxes titled "Table Editor", after which nothing is written and the form stays: a name of another length than the
/// entry's, a changed name that cannot be stored (NameCanBeStored), an offset or a size that is no hexadecimal number,
/// a table that is no longer what was read from it.
void cmdSave_Click(Host& host, HogTab& tab, FatEditor& form);

/// Closes the form.
void cmdCancel_Click(FatEditor& form);

/// Remembers the place and the size of the first selected entry's data for Paste, and puts the names, offsets and sizes
/// of the selected entries on the clipboard, a line each.
void pldHogCopy_Click(Host& host, HogTab& tab);

/// Asks, and then gives the first selected entry the remembered place and size, so that the one file stands in for the
/// other.
void pldHogPaste_Click(Host& host, HogTab& tab);

}  // namespace oravin
