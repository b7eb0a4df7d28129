#pragma once

#include <cstddef>
#include <string>

#include "desk/controls.h"
#include "desk/host.h"
#include "tabs/archive_tab.h"

namespace oravin {

/// The form that edits one entry of the archive's table: its name, and the offset and size of its data in hexadecimal.
struct FatEditor {
  Label lblName;
  TextBox txtName;
  Label lblOffset;
  TextBox txtOffset;
  Label lblSize;
  TextBox txtSize;
  Label lblRemark;  ///< that the name keeps its length, or why nothing can be changed
  Button cmdSave;
  Button cmdCancel;

  bool shown = false;     ///< false closes the form
  std::size_t entry = 0;  ///< the index of the entry
};

/// The form's name for the desk.
inline constexpr const char* fatEditorForm = "FAT_Editor";

FatEditor NewFatEditor();

/// Shows the form for the first selected entry; does nothing without a selection.
void pldHogProperties_Click(Host& host, HogTab& tab, FatEditor& form);

/// Writes the form's fields into the table (EditEntry) and closes the form. If they are refused, the form stays open.
void cmdSave_Click(Host& host, HogTab& tab, FatEditor& form);

/// Closes the form.
void cmdCancel_Click(FatEditor& form);

/// Remembers the place and size of the first selected entry's data for Paste, and puts name, offset and size of each
/// selected entry on the clipboard as a line.
void pldHogCopy_Click(Host& host, HogTab& tab);

/// Gives the first selected entry the remembered place and size (PasteEntry).
void pldHogPaste_Click(Host& host, HogTab& tab);

}  // namespace oravin
