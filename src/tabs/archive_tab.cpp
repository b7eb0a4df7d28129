#include "tabs/archive_tab.h"

#include <algorithm>
#include <utility>

#include "actions/back_up_table.h"
#include "actions/extract_entries.h"
#include "base/hex_text.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "tabs/name_filter.h"

namespace oravin {

namespace {

std::size_t IndexOf(const ListRow& row) { return static_cast<std::size_t>(row.item); }

std::string CellOf(const HogEntry& entry, std::size_t column) {
  switch (column) {
    case hogNameColumn:
      return entry.Name;
    case hogOffsetColumn:
      return DecToHex(entry.Offset);
    case hogSizeColumn:
      return DecToHex(entry.Size);
    default:
      return ExtensionOf(entry.Name);
  }
}

/// Sorts the entries' indices by a column; equal ones stay in table order.
void Sort(std::vector<std::uint32_t>& order, const std::vector<HogEntry>& entries, const SortOrder& by) {
  const auto sort = [&](auto valueOf) {
    using Value = decltype(valueOf(entries.front()));
    std::vector<std::pair<Value, std::uint32_t>> keyed;
    keyed.reserve(order.size());
    for (const std::uint32_t index : order) keyed.emplace_back(valueOf(entries[index]), index);
    std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& a, const auto& b) {
      return by.descending ? b.first < a.first : a.first < b.first;
    });
    std::transform(keyed.begin(), keyed.end(), order.begin(), [](const auto& item) { return item.second; });
  };
  switch (by.column) {
    case hogNameColumn:
      return sort([](const HogEntry& entry) { return UpperCase(entry.Name); });
    case hogOffsetColumn:
      return sort([](const HogEntry& entry) { return entry.Offset; });
    case hogSizeColumn:
      return sort([](const HogEntry& entry) { return entry.Size; });
    default:
      return sort([](const HogEntry& entry) { return ExtensionOf(entry.Name); });
  }
}

std::string FilesInWords(unsigned files) { return Grouped(files) + " file(s)"; }

/// A size with its digits grouped. Intentional: 0 has no digits, as in the pattern "##,###,###,###".
std::string Formatted(std::uint32_t size) { return size == 0 ? std::string() : Grouped(size); }

std::string CaptionOf(const HogStatus& status, const OpenArchive& archive) {
  using Kind = HogStatus::Kind;
  switch (status.kind) {
    case Kind::none:
      return ReadOnlyRemark(archive);
    case Kind::extracting:
    case Kind::unpacking:
      return ExtractionText(status.entry, status.kind == Kind::unpacking);
    case Kind::extracted:
      return FilesInWords(status.files) + " extracted to " + status.other;
    case Kind::tableSaved:
      return "The table was saved as " + status.other;
    case Kind::tableRestored:
      return "The table was restored from " + status.other;
    case Kind::placeCopied:
      return "Copied: the place of " + Presentable(status.entry);
    case Kind::placePasted:
      return Presentable(status.other) + " now stands in for " + Presentable(status.entry);
  }
  return {};
}

void ShowStatus(HogTab& tab) { tab.lblFilePath.caption = CaptionOf(tab.status, tab.archive); }

/// The line about what is listed and selected, and the menu.
void ShowSelection(HogTab& tab) {
  const std::vector<ListRow>& rows = tab.hogList.rows;
  std::uint64_t shownBytes = 0;
  std::uint64_t selectedBytes = 0;
  std::size_t selected = 0;
  for (const ListRow& row : rows) {
    const std::uint64_t size = EntryOf(tab, row).Size;
    shownBytes += size;
    if (row.selected) {
      ++selected;
      selectedBytes += size;
    }
  }
  tab.lblShown.caption.clear();
  if (IsArchiveOpen(tab)) {
    tab.lblShown.caption = Grouped(rows.size()) + " of " + Grouped(tab.archive.entries.size()) + " listed (" +
                           Grouped(shownBytes) + " bytes), " + Grouped(selected) + " selected (" +
                           Grouped(selectedBytes) + " bytes)";
  }
  const bool any = selected > 0;
  const bool writable = tab.archive.whyReadOnly.empty();
  tab.pldHogCopy.enabled = any;
  tab.pldHogPaste.enabled = any && writable && tab.remembered && SameName(tab.remembered->archive, tab.archive.path);
  tab.pldHogProperties.enabled = any;
}

void LookForTableBackup(HogTab& tab) {
  tab.hasTableBackup = FileExists(*tab.archive.file.files, FatBackupOf(tab.archive.path));
}

void Forget(HogTab& tab) {
  tab.archive = {};
  tab.hasTableBackup = false;
  tab.status = {};
  tab.txtFirstBytes.text.clear();
  ClearRows(tab.hogList);
  ShowHog(tab);
}

/// Opens an archive in place of the one that is open. If that fails, the old one is opened again, so that the list
/// shows what is open.
bool ReplaceArchive(Host& host, HogTab& tab, const std::string& path) {
  constexpr const char* procedure = "cmdOpen_Click()";
  Close(tab.archive.file);
  OpenArchive opened;
  if (Trap(host, procedure, [&] { opened = OpenArchiveAt(host.files, path); })) {
    tab.archive = std::move(opened);
    return true;
  }
  if (!IsArchiveOpen(tab)) return false;
  if (!Trap(host, procedure, [&] { OpenArchiveFile(host.files, tab.archive); })) Forget(tab);
  return false;
}

void ShowDamaged(Host& host, const OpenArchive& archive, const TableReading& reading) {
  const std::string backup = Presentable(FatBackupOf(archive.path));
  const std::string count = " It says that it holds " + Grouped(reading.count) + " files.";
  Show(host,
       reading.condition == TableCondition::noBackup
           ? "The table of this archive is damaged." + count + "\nWith a backup of the table beside it, " + backup +
                 ",\nits files could be listed and the table be repaired. Nothing was changed."
           : "The table of this archive is damaged, and so is its backup,\n" + backup + "." + count +
                 "\nNothing was changed.",
       Icon::exclamation);
}

/// Reads the header and the table of the open archive and lists them.
/// @return false when that failed, after a message box; then no archive is open
bool ReadArchive(Host& host, HogTab& tab) {
  TableReading reading;
  const bool whole = Trap(host, "cmdOpen_Click()", [&] { reading = ReadArchiveTable(tab.archive); });
  const bool readable = whole && reading.condition == TableCondition::readable;
  if (whole && !readable) ShowDamaged(host, tab.archive, reading);
  if (!readable) {
    Forget(tab);
    return false;
  }
  tab.filesShown = reading.count;
  tab.status = {};
  LookForTableBackup(tab);
  DisplayHog(tab);
  return true;
}

std::vector<std::size_t> SelectedEntries(const HogTab& tab) {
  std::vector<std::size_t> entries;
  for (const ListRow& row : tab.hogList.rows) {
    if (row.selected) entries.push_back(IndexOf(row));
  }
  return entries;
}

/// @param complete the message at the end
void Extract(Host& host, HogTab& tab, ExtractionMode mode, const char* complete) {
  if (!IsArchiveOpen(tab)) return;
  TrimInPlace(tab.txtHogDest.text);
  if (!FolderExists(host.files, tab.txtHogDest.text)) {
    Show(host, "Destination path doesn't exist", Icon::none);
    return;
  }
  tab.txtHogDest.text = AddBackslash(tab.txtHogDest.text);
  using Kind = HogStatus::Kind;
  const ExtractionStep step = [&tab](const HogEntry& entry, bool unpacking) {
    tab.status = {unpacking ? Kind::unpacking : Kind::extracting, entry.Name};
    ShowStatus(tab);
  };
  const ExtractionResult result =
      ExtractEntries(host, tab.archive, SelectedEntries(tab), tab.txtHogDest.text, mode, step);
  tab.filesExtracted = result.files;
  tab.status = {Kind::extracted, {}, tab.txtHogDest.text, result.files};
  if (result.end == ExtractionEnd::complete) tab.filesShown = result.files;
  ShowHog(tab);
  switch (result.end) {
    case ExtractionEnd::failed:
      return;
    case ExtractionEnd::cancelled:
      return Show(host, "Exiting unpack / extract function", Icon::none);
    case ExtractionEnd::stopped:
      return Show(host, "You stopped the extraction. " + FilesInWords(result.files) + " were extracted before.",
                  Icon::information);
    case ExtractionEnd::complete:
      ShowSuccess(host, complete, Icon::information);
  }
}

}  // namespace

HogTab NewHogTab() {
  HogTab tab;
  tab.lblHogPath.caption = "Hog &Location:";
  tab.txtHogPath.tooltip = "The archive to open. A .hog file can also be dropped on this page.";
  tab.cmdBrowseHogPath.caption = "Bro&wse";
  tab.cmdOpen.caption = "&Open Hog";
  tab.cmdCloseHog.caption = "&Close Hog";
  tab.lblHogDest.caption = "&Destination:";
  tab.txtHogDest.tooltip = "The folder that files are extracted to";
  tab.cmdBrowseHogDest.caption = "Browse";
  tab.cmdExtract = {"&Extract", "Extract files from open .hog to destination without decompressing the files"};
  tab.cmdUnpackExtract = {"&Unpack", "Extracts and unpacks selected files"};
  tab.lblFilter.caption = "&Filter:";
  tab.txtFilter.tooltip = "Lists only the files whose names hold this text; with * and ?, those whose names match it";
  tab.cmdSelectAll = {"&Select All", "Selects all files"};
  tab.cmdSelectNone = {"S&elect None", "Unselects all files"};
  tab.cmdBackupFAT = {"&Backup FAT", "Saves a copy of the FAT table from the hog"};
  tab.cmdRestoreFAT = {"&Restore FAT", "Repairs hog FAT table"};
  tab.hogList.columns = {{"File Name:"}, {"Offset (Hex):", true}, {"Size (Hex):", true}, {"Ext."}};
  tab.hogList.severalSelectable = true;
  tab.pldHogCopy.caption = "&Copy";
  tab.pldHogPaste.caption = "&Paste";
  tab.pldHogProperties.caption = "Properties";
  tab.cmdFirstBytes.tooltip = "Shows or hides how the selected file begins";
  tab.txtFirstBytes.readOnly = true;
  ShowHog(tab);
  return tab;
}

bool IsArchiveOpen(const HogTab& tab) { return !tab.archive.path.empty(); }

const HogEntry& EntryOf(const HogTab& tab, const ListRow& row) { return tab.archive.entries.at(IndexOf(row)); }

std::optional<std::size_t> SelectedEntry(const HogTab& tab) {
  const auto row = SelectedRow(tab.hogList);
  return row ? std::optional(IndexOf(tab.hogList.rows[*row])) : std::nullopt;
}

void DisplayHog(HogTab& tab) {
  const std::vector<HogEntry>& entries = tab.archive.entries;
  ListView& list = tab.hogList;
  list.textOf = [&entries](const ListRow& row, std::size_t column) {
    const std::size_t index = IndexOf(row);
    return index < entries.size() ? CellOf(entries[index], column) : std::string();
  };
  std::vector<bool> selected(entries.size());
  for (const ListRow& row : list.rows) {
    if (row.selected && IndexOf(row) < selected.size()) selected[IndexOf(row)] = true;
  }
  const NameFilter filter = FilterFrom(tab.txtFilter.text);
  std::vector<std::uint32_t> order;
  for (std::uint32_t i = 0; i < entries.size(); ++i) {
    if (Passes(filter, entries[i].Name)) order.push_back(i);
  }
  if (list.sorted) Sort(order, entries, *list.sorted);
  ClearRows(list);
  list.rows.reserve(order.size());
  for (const std::uint32_t index : order) {
    list.rows.push_back({static_cast<int>(index), {}, 0, selected[index]});
  }
  ShowHog(tab);
}

void ShowHog(HogTab& tab) {
  const bool open = IsArchiveOpen(tab);
  tab.lblHogSize.caption = open ? "Hog Size: " + Formatted(tab.archive.size) + " byte(s)" : "";
  tab.lblHogFiles.caption = open ? std::to_string(tab.filesShown) + " file(s)" : "";
  tab.cmdFirstBytes.caption = tab.txtFirstBytes.shown ? "Hide first b&ytes" : "Show first b&ytes";
  for (Button* button : {&tab.cmdExtract, &tab.cmdUnpackExtract, &tab.cmdSelectAll, &tab.cmdSelectNone,
                         &tab.cmdBackupFAT, &tab.cmdCloseHog}) {
    button->enabled = open;
  }
  tab.cmdRestoreFAT.enabled = open && tab.archive.whyReadOnly.empty() && tab.hasTableBackup;
  tab.txtFilter.enabled = open;
  ShowStatus(tab);
  ShowSelection(tab);
}

void cmdBrowseHogPath_Click(Host& host, HogTab& tab) {
  const std::string chosen =
      ChooseFile(host, "Open Hog", ParentFolder(tab.txtHogPath.text), "", "SL Hog File *.hog|*.hog|All Files *.*|*.*");
  if (!chosen.empty()) tab.txtHogPath.text = chosen;
}

void cmdBrowseHogDest_Click(Host& host, HogTab& tab) {
  const std::string chosen = BrowseForFolder(host);
  if (!chosen.empty()) tab.txtHogDest.text = AddBackslash(chosen);
}

void cmdOpen_Click(Host& host, HogTab& tab) {
  TrimInPlace(tab.txtHogPath.text);
  if (!FileExists(host.files, tab.txtHogPath.text)) {
    Show(host, "File not found", Icon::exclamation, "File path error");
    return;
  }
  if (!ReplaceArchive(host, tab, tab.txtHogPath.text)) return;
  tab.hogList.sorted.reset();
  tab.txtFilter.text.clear();
  tab.txtFirstBytes.text.clear();
  ClearRows(tab.hogList);
  ReadArchive(host, tab);
}

void cmdCloseHog_Click(HogTab& tab) {
  tab.txtFilter.text.clear();
  Forget(tab);
}

void cmdSelectAll_Click(HogTab& tab) {
  SelectAll(tab.hogList, true);
  ShowHog(tab);
}

void cmdSelectNone_Click(HogTab& tab) {
  SelectAll(tab.hogList, false);
  ShowHog(tab);
}

void hogList_ColumnClick(HogTab& tab) {
  tab.hogList.sorted = NextOrder(tab.hogList);
  DisplayHog(tab);
}

void cmdExtract_Click(Host& host, HogTab& tab) { Extract(host, tab, ExtractionMode::stored, "Extraction Complete"); }

void cmdUnpackExtract_Click(Host& host, HogTab& tab) {
  Extract(host, tab, ExtractionMode::unpacked, "Unpacking and extraction Complete");
}

void cmdBackupFAT_Click(Host& host, HogTab& tab) {
  if (!IsArchiveOpen(tab)) return;
  const TableCopy saved = BackUpTable(host, tab.archive);
  if (saved == TableCopy::declined) return;
  if (saved == TableCopy::done) tab.status = {HogStatus::Kind::tableSaved, {}, FatBackupOf(tab.archive.path)};
  LookForTableBackup(tab);
  ShowHog(tab);
  if (!tab.hasTableBackup) Show(host, "Couldn't create FAT backup file.", Icon::critical, "Error");
}

void cmdRestoreFAT_Click(Host& host, HogTab& tab) {
  if (!IsArchiveOpen(tab)) return;
  const TableCopy restored = RestoreTable(host, tab.archive);
  // The list must show what the table holds now, also after a failure.
  if (restored == TableCopy::declined || !ReadArchive(host, tab)) return;
  if (restored == TableCopy::done) tab.status = {HogStatus::Kind::tableRestored, {}, FatBackupOf(tab.archive.path)};
  ShowHog(tab);
}

}  // namespace oravin
