#include "tabs/table_editor.h"

#include "base/hex_text.h"
#include "base/text.h"
#include "desk/dialogs.h"

namespace oravin {

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
  const bool writable = tab.archive.whyReadOnly.empty();
  form.entry = *index;
  form.txtName.text = NameIsEditable(entry) ? entry.Name : Presentable(entry.Name);
  form.txtOffset.text = DecToHex(entry.Offset);
  form.txtSize.text = DecToHex(entry.Size);
  form.txtName.readOnly = !writable || !NameIsEditable(entry);
  form.txtOffset.readOnly = !writable;
  form.txtSize.readOnly = !writable;
  form.cmdSave.enabled = writable;
  form.lblRemark.caption = writable ? "The name keeps its length of " + Grouped(entry.Name.size()) + " characters."
                                    : ReadOnlyRemark(tab.archive);
  form.shown = true;
  ShowForm(host, fatEditorForm);
  form.shown = false;
}

void cmdSave_Click(Host& host, HogTab& tab, FatEditor& form) {
  if (!IsArchiveOpen(tab)) return;
  EntryTexts texts{form.txtName.text, form.txtOffset.text, form.txtSize.text};
  const bool saved = EditEntry(host, tab.archive, form.entry, texts);
  form.txtOffset.text = texts.offset;
  form.txtSize.text = texts.size;
  ++tab.hogList.revision;
  ShowHog(tab);
  if (saved) cmdCancel_Click(form);
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
  tab.status = {HogStatus::Kind::placeCopied, first->Name};
  ShowHog(tab);
}

void pldHogPaste_Click(Host& host, HogTab& tab) {
  const auto index = SelectedEntry(tab);
  if (!index || !tab.pldHogPaste.enabled || !tab.remembered) return;
  if (PasteEntry(host, tab.archive, *index, *tab.remembered)) {
    tab.status = {HogStatus::Kind::placePasted, tab.archive.entries[*index].Name, tab.remembered->name};
  }
  ++tab.hogList.revision;
  ShowHog(tab);
}

}  // namespace oravin
