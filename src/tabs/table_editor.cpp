#include "tabs/table_editor.h"

#include <algorithm>
#include <array>

#include "base/hex_text.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/new_name.h"
#include "files/file.h"
#include "files/file_numbers.h"

namespace oravin {

namespace {

constexpr const char* editorTitle = "Table Editor";

/// A longer name is no game's file; an edit box would take very long to show it.
constexpr std::size_t longestEdited = 1000;

using Number = std::array<std::uint8_t, 4>;  ///< the most significant byte first

/// What is written over an entry of the table.
struct Change {
  std::string name;  ///< as long as the entry's own
  Number offset{};
  Number size{};
};

void RefuseEntry(Host& host, const std::string& text) { Show(host, text, Icon::exclamation, editorTitle); }

Number BigEndian(std::uint32_t value) {
  Number bytes{};
  PutBigEndian32(bytes.data(), value);
  return bytes;
}

/// The entry as the file has it now.
HogEntry ReadBack(File& hog, const HogEntry& known) {
  HogEntry entry;
  entry.FatPos = known.FatPos;
  entry.Offset = ReadLongBE(hog, entry.FatPos);
  entry.Size = ReadLongBE(hog, std::uint64_t{entry.FatPos} + 4);
  Bytes name(known.Name.size() + 1);
  Get(hog, std::uint64_t{entry.FatPos} + hogNameInEntry, name);
  entry.Name = TextOf(name);
  entry.Name.resize(std::min(entry.Name.find('\0'), known.Name.size()));
  return entry;
}

/// True when the table still has what was read from it: else the place may belong to another entry by now.
bool IsAsRead(Host& host, HogTab& tab, const HogEntry& entry) {
  if (ReadBack(tab.archive.file, entry) == entry) return true;
  RefuseEntry(host, "Another program has changed the table of " + Presentable(tab.archive.path) +
                        "\nsince it was opened. Open the archive again. Changes not saved");
  return false;
}

/// Writes an entry's offset, size and name, and takes it into the list as the file has it then.
/// @return whether it was written
bool SaveEntry(Host& host, HogTab& tab, std::size_t index, const Change& change, const char* procedure) {
  bool saved = false;
  Trap(host, procedure, [&] {
    HogEntry& entry = tab.archive.entries.at(index);
    if (!IsAsRead(host, tab, entry)) return;
    File& hog = tab.archive.file;
    const std::uint64_t at = entry.FatPos;
    Put(hog, at, change.offset);
    Put(hog, at + 4, change.size);
    // The old zero byte behind the name stays in its place.
    if (!change.name.empty()) Put(hog, at + hogNameInEntry, BytesOf(change.name));
    Flush(hog);
    entry = ReadBack(tab.archive.file, entry);
    saved = true;
  });
  ++tab.hogList.revision;
  TellSelection(tab);
  return saved;
}

/// A name that cannot be edited stays as it is.
bool NameIsEditable(const HogEntry& entry) { return entry.Name.size() <= longestEdited; }

}  // namespace

FatEditor NewFatEditor() {
  FatEditor form;
  form.lblName.caption = "&Name:";
  form.txtName.tooltip = "The new name must be as long as the old one";
  form.lblOffset.caption = "&Offset (Hex):";
  form.txtOffset.tooltip = "Where the file's data begin in the archive";
  form.lblSize.caption = "&Size (Hex):";
  form.txtSize.tooltip = "How many bytes these are, as stored";
  form.cmdSave = {"Sa&ve", "Writes this into the archive's table"};
  form.cmdCancel.caption = "&Cancel";
  return form;
}

void pldHogProperties_Click(Host& host, HogTab& tab, FatEditor& form) {
  const auto index = SelectedEntry(tab);
  if (!index) return;
  const HogEntry& entry = tab.archive.entries.at(*index);
  const bool writable = tab.archive.whyOnlyRead.empty();
  form.entry = *index;
  form.txtName.text = NameIsEditable(entry) ? entry.Name : Presentable(entry.Name);
  form.txtOffset.text = DecToHex(entry.Offset);
  form.txtSize.text = DecToHex(entry.Size);
  form.txtName.readOnly = !writable || !NameIsEditable(entry);
  form.txtOffset.readOnly = !writable;
  form.txtSize.readOnly = !writable;
  form.cmdSave.enabled = writable;
  form.lblRemark.caption =
      writable ? "The name keeps its length of " + Grouped(entry.Name.size()) + " characters." : OnlyReadRemark(tab);
  form.shown = true;
  ShowForm(host, fatEditorForm);
  form.shown = false;
}

void cmdSave_Click(Host& host, HogTab& tab, FatEditor& form) {
  if (!IsArchiveOpen(tab) || form.entry >= tab.archive.entries.size()) return;
  if (!MayWriteArchive(host, tab)) return;
  const HogEntry& entry = tab.archive.entries[form.entry];
  Change change;
  if (NameIsEditable(entry) && form.txtName.text != entry.Name) {
    // The table takes a name without blanks at its ends, so that is the length that counts.
    change.name = Trim(form.txtName.text);
    if (form.txtName.text.size() != entry.Name.size() || change.name.size() != entry.Name.size()) {
      RefuseEntry(host,
                  "The name of the file MUST be the same length or the\n"
                  "entire .hog file will have to be rebuilt. Changes not saved");
      return;
    }
    if (!NameCanBeStored(host, change.name, editorTitle)) return;
  }
  if (!HexToByteArray(form.txtOffset.text, change.offset)) {
    RefuseEntry(host, "The value entered for offset is an invalid hexadecimal number");
    return;
  }
  if (!HexToByteArray(form.txtSize.text, change.size)) {
    RefuseEntry(host, "The value entered for size is an invalid hexadecimal number");
    return;
  }
  if (SaveEntry(host, tab, form.entry, change, "cmdSave_Click()")) cmdCancel_Click(form);
}

void cmdCancel_Click(FatEditor& form) { form.shown = false; }

void pldHogCopy_Click(Host& host, HogTab& tab) {
  std::string lines;
  const HogEntry* first = nullptr;
  for (const ListRow& row : tab.hogList.rows) {
    if (!row.selected) continue;
    const HogEntry& entry = EntryOf(tab, row);
    if (first == nullptr) first = &entry;
    if (!lines.empty()) lines += "\n";
    lines += entry.Name + "\t" + DecToHex(entry.Offset) + "\t" + DecToHex(entry.Size);
  }
  if (first == nullptr) return;
  tab.remembered = RememberedPlace{tab.archive.path, first->Name, first->Offset, first->Size};
  PutOnClipboard(host, lines);
  TellSelection(tab);
  tab.lblFilePath.caption = "Copied: the place of " + Presentable(first->Name);
}

void pldHogPaste_Click(Host& host, HogTab& tab) {
  const auto index = SelectedEntry(tab);
  if (!index || !tab.pldHogPaste.enabled || !tab.remembered) return;
  if (!MayWriteArchive(host, tab)) return;
  const RememberedPlace& place = *tab.remembered;
  const HogEntry& entry = tab.archive.entries.at(*index);
  const std::string question = "Do you want " + Presentable(place.name) + "\nto stand in for " +
                               Presentable(entry.Name) +
                               "?\nThe table will then give the second file the place and the size of the first.";
  if (!AskYesNo(host, question)) return;
  const Change change{"", BigEndian(place.offset), BigEndian(place.size)};
  if (SaveEntry(host, tab, *index, change, "pldHogPaste_Click()")) {
    tab.lblFilePath.caption = Presentable(place.name) + " now stands in for " + Presentable(entry.Name);
  }
}

}  // namespace oravin
