#include "app/tcache_handlers.h"

#include <array>

#include "desk/program_end.h"

namespace oravin {

namespace {

using OnTab = void (*)(TcacheTab&);
using OnHostAndTab = void (*)(Host&, TcacheTab&);
using OnInstallation = void (*)(Host&, TcacheTab&, const Installation&);

template <OnTab action>
void Do(Main& main) {
  action(main.tcache);
}

template <OnHostAndTab action>
void Do(Main& main) {
  action(main.host, main.tcache);
}

template <OnInstallation action>
void Do(Main& main) {
  action(main.host, main.tcache, main.installation);
}

/// After what changes the selection, the preview is brought up to date too.
template <OnTab action>
void DoAndLook(Main& main) {
  action(main.tcache);
  lstTcache_ItemClick(main.host, main.tcache, main.installation);
}

void Sort(Main& main) { lstTcache_ColumnClick(main.tcache, static_cast<int>(main.tcache.lstTcache.clickedColumn)); }

void Rename(Main& main) {
  const LabelEdit& edited = main.tcache.lstTcache.edited;
  lstTcache_AfterLabelEdit(main.host, main.tcache, main.installation, edited.row, edited.text);
}

void Restore(Main& main) {
  CloseOpenFiles(main);
  cmdRestoreTCACHE_Click(main.host, main.installation);
  CheckTcacheOnDisk(main.host, main.tcache);
}

void Exit(Main&) { throw ProgramEnd(); }

void BrowseBitmap(Main& main) { cmdImportTextureBrowse_Click(main.host, main.imports.texture); }

void ImportOne(Main& main) {
  CloseOpenFiles(main);
  cmdImportTexture_Click(main.host, main.imports.texture, main.installation);
  CheckTcacheOnDisk(main.host, main.tcache);
}

void LookAtBitmap(Main& main) { txtImportTexturePath_LostFocus(main.imports.texture); }

constexpr std::array<Handler, 20> handlers = {
    {{"tcache.cmdBrowseTcacheSource", Do<cmdBrowseTcacheSource_Click>, false},
     {"tcache.cmdBrowseTcacheDestination", Do<cmdBrowseTcacheDestination_Click>, false},
     {"tcache.cmdOpenTcache", Do<cmdOpenTcache_Click>, false},
     {"tcache.cmdCloseTcache", Do<cmdCloseTcache_Click>, false},
     {"tcache.cmdReopenTcache", Do<cmdReopenTcache_Click>, false},
     {"tcache.Activate", Do<CheckTcacheOnDisk>, false},
     {"tcache.cmdSelectAllTcache", DoAndLook<cmdSelectAllTcache_Click>, false},
     {"tcache.cmdSelectNoneTcache", DoAndLook<cmdSelectNoneTcache_Click>, false},
     {"tcache.cmdExtractTcache", Do<cmdExtractTcache_Click>, false},
     {"tcache.lstTcache.ColumnClick", Sort, false},
     {"tcache.lstTcache.ItemClick", Do<lstTcache_ItemClick>, false},
     {"tcache.lstTcache.AfterLabelEdit", Rename, true},
     {"tcache.lstTcache.DblClick", Do<lstTcache_DblClick>, false},
     {"tcache.preview.cmdLargerImage", Do<cmdLargerImage_Click>, false},
     {"tcache.preview.cmdSmallerImage", Do<cmdSmallerImage_Click>, false},
     {"tcache.cmdRestoreTCACHE", Restore, true},
     {"tcache.cmdExit", Exit, false},
     {"imports.cmdImportTextureBrowse", BrowseBitmap, false},
     {"imports.txtImportTexturePath.LostFocus", LookAtBitmap, false},
     {"imports.cmdImportTexture", ImportOne, true}}};

}  // namespace

std::span<const Handler> TcacheHandlers() { return handlers; }

}  // namespace oravin
