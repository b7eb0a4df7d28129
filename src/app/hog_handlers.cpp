#include "app/hog_handlers.h"

#include <array>

#include "hog/extract.h"
#include "hog/first_bytes.h"
#include "hog/hog_fat.h"
#include "hog/hog_open.h"

namespace oravin {

namespace {

using OnTab = void (*)(HogTab&);
using OnHostAndTab = void (*)(Host&, HogTab&);

template <OnTab action>
void Do(Main& main) {
  action(main.hog);
}

template <OnHostAndTab action>
void Do(Main& main) {
  action(main.host, main.hog);
}

/// After what changes the selection, its view is brought up to date too.
template <OnTab action>
void DoAndLook(Main& main) {
  action(main.hog);
  hogList_ItemClick(main.host, main.hog);
}

void EditSelected(Main& main) { pldHogProperties_Click(main.host, main.hog, main.FAT_Editor); }

void Save(Main& main) {
  cmdSave_Click(main.host, main.hog, main.FAT_Editor);
  hogList_ItemClick(main.host, main.hog);
}

void Paste(Main& main) {
  pldHogPaste_Click(main.host, main.hog);
  hogList_ItemClick(main.host, main.hog);
}

void Cancel(Main& main) { cmdCancel_Click(main.FAT_Editor); }

constexpr std::array<Handler, 20> handlers = {{{"hog.cmdBrowseHogPath", Do<cmdBrowseHogPath_Click>, false},
                                               {"hog.cmdBrowseHogDest", Do<cmdBrowseHogDest_Click>, false},
                                               {"hog.cmdOpen", Do<cmdOpen_Click>, false},
                                               {"hog.cmdCloseHog", Do<cmdCloseHog_Click>, false},
                                               {"hog.cmdExtract", Do<cmdExtract_Click>, false},
                                               {"hog.cmdUnpackExtract", Do<cmdUnpackExtract_Click>, false},
                                               {"hog.cmdSelectAll", DoAndLook<cmdSelectAll_Click>, false},
                                               {"hog.cmdSelectNone", DoAndLook<cmdSelectNone_Click>, false},
                                               {"hog.cmdBackupFAT", Do<cmdBackupFAT_Click>, true},
                                               {"hog.cmdRestoreFAT", Do<cmdRestoreFAT_Click>, true},
                                               {"hog.hogList.ColumnClick", Do<hogList_ColumnClick>, false},
                                               {"hog.hogList.ItemClick", Do<hogList_ItemClick>, false},
                                               {"hog.hogList.DblClick", EditSelected, false},
                                               {"hog.txtFilter.Change", DoAndLook<DisplayHog>, false},
                                               {"hog.cmdFirstBytes", Do<cmdFirstBytes_Click>, false},
                                               {"hog.pldHogCopy", Do<pldHogCopy_Click>, false},
                                               {"hog.pldHogPaste", Paste, true},
                                               {"hog.pldHogProperties", EditSelected, false},
                                               {"FAT_Editor.cmdSave", Save, true},
                                               {"FAT_Editor.cmdCancel", Cancel, false}}};

}  // namespace

std::span<const Handler> HogHandlers() { return handlers; }

}  // namespace oravin
