#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "archive/archive_table.h"
#include "desk/controls.h"
#include "desk/host.h"
#include "files/file.h"

namespace oravin {

/// The archive that the tab keeps open.
struct OpenArchive {
  File file;                    ///< closed while none is open
  std::string path;             ///< empty while none is open
  std::string whyOnlyRead;      ///< why it cannot be written, in words; empty where it can
  std::uint32_t size = 0;       ///< in bytes, as its header says
  std::uint32_t tableSize = 0;  ///< H, the size in bytes of header and table, as its header says
  std::vector<HogEntry> entries;
};

/// The place in an archive that Copy remembers for Paste.
struct RememberedPlace {
  std::string archive;
  std::string name;
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
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
  Label lblFilePath;     ///< what is being extracted, or what there is to say of the archive
  Button cmdFirstBytes;  ///< folds the view of the selected entry's first bytes away, and out again
  TextBox txtFirstBytes;

  OpenArchive archive;
  std::optional<RememberedPlace> remembered;
  unsigned filesExtracted = 0;  ///< by the last extraction
};

HogTab NewHogTab();

/// True while the tab has an archive open.
bool IsArchiveOpen(const HogTab& tab);

/// Lists the entries that the filter lets through, in the list's order, and tells their number and size. What was
/// selected stays selected where it is still listed.
void DisplayHog(HogTab& tab);

/// Brings the line about what is listed and selected, and the menu, up to date.
void TellSelection(HogTab& tab);

/// Enables what can be used on the archive that is open, or disables it all when none is.
void EnableHogControls(HogTab& tab);

/// True when the open archive can be written; else a box says why not.
bool MayWriteArchive(Host& host, const HogTab& tab);

/// What there is to say of an archive that cannot be written; empty where it can.
std::string OnlyReadRemark(const HogTab& tab);

/// The entry that a row shows.
const HogEntry& EntryOf(const HogTab& tab, const ListRow& row);

/// The index of the first selected row's entry.
std::optional<std::size_t> SelectedEntry(const HogTab& tab);

/// The path of the table's backup: the archive's with the extension ".FAT".
std::string FatBackupOf(const std::string& hogPath);

/// The tab's own actions on the list.
void cmdSelectAll_Click(HogTab& tab);
void cmdSelectNone_Click(HogTab& tab);
void hogList_ColumnClick(HogTab& tab);

}  // namespace oravin
