#include "app/hog_handlers.h"

#include <array>

#include "tabs/archive_tab.h"
#include "tabs/first_bytes.h"

namespace oravin {

namespace {

using OnHogTab = void (*)(HogTab&);
using OnHostAndHogTab = void (*)(Host&, HogTab&);

template <OnHogTab action>
void DoInHog(Main& main) {
  action(main.hog);
}

template <OnHostAndHogTab action>
void DoInHog(Main& main) {
  action(main.host, main.hog);
}

/// For actions that change the selection: also updates the view of the first bytes.
template <OnHogTab action>
void DoAndLookInHog(Main& main) {
  action(main.hog);
  hogList_ItemClick(main.hog);
}

void EditSelected(Main& main) { pldHogProperties_Click(main.host, main.hog, main.tableEditor); }

void Save(Main& main) {
  cmdSave_Click(main.host, main.hog, main.tableEditor);
  hogList_ItemClick(main.hog);
}

void Paste(Main& main) {
  pldHogPaste_Click(main.host, main.hog);
  hogList_ItemClick(main.hog);
}

void Cancel(Main& main) { cmdCancel_Click(main.tableEditor); }

constexpr std::array<Handler, 20> hogHandlers = {{{"hog.cmdBrowseHogPath", DoInHog<cmdBrowseHogPath_Click>, false},
                                                  {"hog.cmdBrowseHogDest", DoInHog<cmdBrowseHogDest_Click>, false},
                                                  {"hog.cmdOpen", DoInHog<cmdOpen_Click>, false},
                                                  {"hog.cmdCloseHog", DoInHog<cmdCloseHog_Click>, false},
                                                  {"hog.cmdExtract", DoInHog<cmdExtract_Click>, false},
                                                  {"hog.cmdUnpackExtract", DoInHog<cmdUnpackExtract_Click>, false},
                                                  {"hog.cmdSelectAll", DoAndLookInHog<cmdSelectAll_Click>, false},
                                                  {"hog.cmdSelectNone", DoAndLookInHog<cmdSelectNone_Click>, false},
                                                  {"hog.cmdBackupFAT", DoInHog<cmdBackupFAT_Click>, true},
                                                  {"hog.cmdRestoreFAT", DoInHog<cmdRestoreFAT_Click>, true},
                                                  {"hog.hogList.ColumnClick", DoInHog<hogList_ColumnClick>, false},
                                                  {"hog.hogList.ItemClick", DoInHog<hogList_ItemClick>, false},
                                                  {"hog.hogList.DblClick", EditSelected, false},
                                                  {"hog.txtFilter.Change", DoAndLookInHog<DisplayHog>, false},
                                                  {"hog.cmdFirstBytes", DoInHog<cmdFirstBytes_Click>, false},
                                                  {"hog.pldHogCopy", DoInHog<pldHogCopy_Click>, false},
                                                  {"hog.pldHogPaste", Paste, true},
                                                  {"hog.pldHogProperties", EditSelected, false},
                                                  {"FAT_Editor.cmdSave", Save, true},
                                                  {"FAT_Editor.cmdCancel", Cancel, false}}};

}  // namespace

std::span<const Handler> HogHandlers() { return hogHandlers; }

}  // namespace oravin
