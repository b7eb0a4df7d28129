#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "actions/edit_entry.h"
#include "archive/open_archive.h"
#include "desk/controls.h"
#include "desk/host.h"

namespace oravin {

/// The last thing done on the tab, for the line under the list.
struct HogStatus {
  enum class Kind {
    none,  ///< then the line says whether the archive is read-only
    extracting,
    unpacking,
    extracted,
    tableSaved,
    tableRestored,
    placeCopied,
    placePasted,
  };
  Kind kind = Kind::none;
  std::string entry = {};  ///< the name of the entry being extracted, copied or pasted over
  std::string other = {};  ///< the path of the destination or of the table's backup, or the name of the pasted entry
  unsigned files = 0;      ///< extracted
};

/// The columns of hogList.
enum HogColumn : std::size_t { hogNameColumn, hogOffsetColumn, hogSizeColumn, hogExtensionColumn };

/// The "Hog Editor" tab: its controls, and what it has open.
struct HogTab {
  Label lblHogPath;
  TextBox txtHogPath;
  Button cmdBrowseHogPath;
  Button cmdOpen;
  Button cmdCloseHog;

  Label lblHogDest;
  TextBox txtHogDest;
  Button cmdBrowseHogDest;
  Button cmdExtract;
  Button cmdUnpackExtract;

  Label lblFilter;
  TextBox txtFilter;  ///< which entries are listed; empty for all
  Button cmdSelectAll;
  Button cmdSelectNone;
  Button cmdBackupFAT;
  Button cmdRestoreFAT;

  ListView hogList;  ///< a row's item is the entry's index
  MenuItem pldHogCopy;
  MenuItem pldHogPaste;
  MenuItem pldHogProperties;

  Label lblHogSize;
  Label lblHogFiles;
  Label lblShown;        ///< how many entries are listed and selected, and their size
  Label lblFilePath;     ///< the text of `status`
  Button cmdFirstBytes;  ///< hides and shows the view of the selected entry's first bytes
  TextBox txtFirstBytes;

  OpenArchive archive;
  bool hasTableBackup = false;   ///< there is a backup of its table to restore
  std::uint32_t filesShown = 0;  ///< in lblHogFiles: the archive's files, or those of the last complete extraction
  HogStatus status;
  std::optional<RememberedPlace> remembered;
  unsigned filesExtracted = 0;  ///< by the last extraction
};

HogTab NewHogTab();

/// True while the tab has an archive open.
bool IsArchiveOpen(const HogTab& tab);

/// Lists the entries that pass the filter, in the list's order. What was selected stays selected if it is still listed.
void DisplayHog(HogTab& tab);

/// Makes captions and enabled controls from the tab's values.
void ShowHog(HogTab& tab);

/// The entry that a row shows.
const HogEntry& EntryOf(const HogTab& tab, const ListRow& row);

/// The index of the first selected row's entry.
std::optional<std::size_t> SelectedEntry(const HogTab& tab);

/// Asks for an archive; its path goes into txtHogPath.
void cmdBrowseHogPath_Click(Host& host, HogTab& tab);

/// Asks for the folder to extract to; it goes into txtHogDest, with a backslash at its end.
void cmdBrowseHogDest_Click(Host& host, HogTab& tab);

/// Opens the archive of txtHogPath and lists its entries (ReadArchiveTable). If it cannot be written it is opened
/// read-only.
///
/// Message boxes: "File not found"; "This file is not a valid SL Hog file", after which an archive that was open stays
/// open; one for a damaged count without a good backup, and the error trap's for a damaged table, after which none is
/// open.
void cmdOpen_Click(Host& host, HogTab& tab);

/// Closes the archive and empties the list.
void cmdCloseHog_Click(HogTab& tab);

void cmdSelectAll_Click(HogTab& tab);
void cmdSelectNone_Click(HogTab& tab);
void hogList_ColumnClick(HogTab& tab);

/// Writes the selected entries into the folder of txtHogDest, as they are stored or unpacked (ExtractEntries), in the
/// list's order.
///
/// Message boxes: "Destination path doesn't exist"; those of ExtractEntries; at the end "Extraction Complete" or
/// "Unpacking and extraction Complete", "Exiting unpack / extract function" after Cancel, or that the user stopped it.
void cmdExtract_Click(Host& host, HogTab& tab);
void cmdUnpackExtract_Click(Host& host, HogTab& tab);

/// Saves the table (BackUpTable). "Couldn't create FAT backup file." is shown if there is no backup afterwards.
void cmdBackupFAT_Click(Host& host, HogTab& tab);

/// Restores the table from its backup (RestoreTable) and lists the entries again.
void cmdRestoreFAT_Click(Host& host, HogTab& tab);

}  // namespace oravin
