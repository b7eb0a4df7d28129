#include "tabs/archive_tab.h"

#include <algorithm>
#include <numeric>

#include "base/hex_text.h"
#include "base/text.h"
#include "desk/dialogs.h"
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

/// Puts the entries' indices into the order of a column; equal ones stay in table order.
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
  tab.cmdFirstBytes = {"Hide first b&ytes", "Shows or hides how the selected file begins"};
  tab.txtFirstBytes.readOnly = true;
  EnableHogControls(tab);
  return tab;
}

bool IsArchiveOpen(const HogTab& tab) { return !tab.archive.path.empty(); }

std::string OnlyReadRemark(const HogTab& tab) {
  const std::string& why = tab.archive.whyOnlyRead;
  return why.empty() ? why : "This archive can only be looked at and extracted from: " + why + ".";
}

bool MayWriteArchive(Host& host, const HogTab& tab) {
  const std::string remark = OnlyReadRemark(tab);
  if (!remark.empty()) Show(host, remark, Icon::exclamation);
  return remark.empty();
}

const HogEntry& EntryOf(const HogTab& tab, const ListRow& row) { return tab.archive.entries.at(IndexOf(row)); }

std::optional<std::size_t> SelectedEntry(const HogTab& tab) {
  const auto row = SelectedRow(tab.hogList);
  return row ? std::optional(IndexOf(tab.hogList.rows[*row])) : std::nullopt;
}

std::string FatBackupOf(const std::string& hogPath) { return ChangeExtension(hogPath, ".FAT"); }

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
  TellSelection(tab);
}

void TellSelection(HogTab& tab) {
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
  const bool one = selected > 0;
  const bool writable = tab.archive.whyOnlyRead.empty();
  tab.pldHogCopy.enabled = one;
  tab.pldHogPaste.enabled = one && writable && tab.remembered && SameName(tab.remembered->archive, tab.archive.path);
  tab.pldHogProperties.enabled = one;
}

void EnableHogControls(HogTab& tab) {
  const bool open = IsArchiveOpen(tab);
  for (Button* button : {&tab.cmdExtract, &tab.cmdUnpackExtract, &tab.cmdSelectAll, &tab.cmdSelectNone,
                         &tab.cmdBackupFAT, &tab.cmdCloseHog}) {
    button->enabled = open;
  }
  tab.cmdRestoreFAT.enabled =
      open && tab.archive.whyOnlyRead.empty() && FileExists(*tab.archive.file.files, FatBackupOf(tab.archive.path));
  tab.txtFilter.enabled = open;
  TellSelection(tab);
}

void cmdSelectAll_Click(HogTab& tab) {
  SelectAll(tab.hogList, true);
  TellSelection(tab);
}

void cmdSelectNone_Click(HogTab& tab) {
  SelectAll(tab.hogList, false);
  TellSelection(tab);
}

void hogList_ColumnClick(HogTab& tab) {
  tab.hogList.sorted = NextOrder(tab.hogList);
  DisplayHog(tab);
}

}  // namespace oravin
