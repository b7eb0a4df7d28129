#include "app/tcache_handlers.h"

#include <array>

#include "desk/program_end.h"

namespace oravin {

namespace {

using OnTcacheTab = void (*)(TcacheTab&);
using OnHostAndTcacheTab = void (*)(Host&, TcacheTab&);
using OnInstallation = void (*)(Host&, TcacheTab&, const Installation&);

template <OnTcacheTab action>
void DoInTcache(Main& main) {
  action(main.tcache);
}

template <OnHostAndTcacheTab action>
void DoInTcache(Main& main) {
  action(main.host, main.tcache);
}

template <OnInstallation action>
void DoInTcache(Main& main) {
  action(main.host, main.tcache, main.installation);
}

/// For actions that change the selection: updates the preview too.
template <OnTcacheTab action>
void DoAndLookInTcache(Main& main) {
  action(main.tcache);
  lstTcache_ItemClick(main.host, main.tcache, main.installation);
}

void Sort(Main& main) { lstTcache_ColumnClick(main.tcache, static_cast<int>(main.tcache.lstTcache.clickedColumn)); }

void RenameTexture(Main& main) {
  const LabelEdit& edited = main.tcache.lstTcache.edited;
  lstTcache_AfterLabelEdit(main.host, main.tcache, main.installation, edited.row, edited.text);
}

void Restore(Main& main) {
  CloseOpenFiles(main);
  cmdRestoreTCACHE_Click(main.host, main.installation);
  CheckTcacheOnDisk(main.host, main.tcache);
}

void ExitFromTcache(Main&) { throw ProgramEnd(); }

void BrowseBitmap(Main& main) { cmdImportTextureBrowse_Click(main.host, main.imports.texture); }

void ImportOne(Main& main) {
  CloseOpenFiles(main);
  cmdImportTexture_Click(main.host, main.imports.texture, main.installation);
  CheckTcacheOnDisk(main.host, main.tcache);
}

void LookAtBitmap(Main& main) { txtImportTexturePath_LostFocus(main.host, main.imports.texture); }

constexpr std::array<Handler, 20> tcacheHandlers = {
    {{"tcache.cmdBrowseTcacheSource", DoInTcache<cmdBrowseTcacheSource_Click>, false},
     {"tcache.cmdBrowseTcacheDestination", DoInTcache<cmdBrowseTcacheDestination_Click>, false},
     {"tcache.cmdOpenTcache", DoInTcache<cmdOpenTcache_Click>, false},
     {"tcache.cmdCloseTcache", DoInTcache<cmdCloseTcache_Click>, false},
     {"tcache.cmdReopenTcache", DoInTcache<cmdReopenTcache_Click>, false},
     {"tcache.Activate", DoInTcache<CheckTcacheOnDisk>, false},
     {"tcache.cmdSelectAllTcache", DoAndLookInTcache<cmdSelectAllTcache_Click>, false},
     {"tcache.cmdSelectNoneTcache", DoAndLookInTcache<cmdSelectNoneTcache_Click>, false},
     {"tcache.cmdExtractTcache", DoInTcache<cmdExtractTcache_Click>, false},
     {"tcache.lstTcache.ColumnClick", Sort, false},
     {"tcache.lstTcache.ItemClick", DoInTcache<lstTcache_ItemClick>, false},
     {"tcache.lstTcache.AfterLabelEdit", RenameTexture, true},
     {"tcache.lstTcache.DblClick", DoInTcache<lstTcache_DblClick>, false},
     {"tcache.preview.cmdLargerImage", DoInTcache<cmdLargerImage_Click>, false},
     {"tcache.preview.cmdSmallerImage", DoInTcache<cmdSmallerImage_Click>, false},
     {"tcache.cmdRestoreTCACHE", Restore, true},
     {"tcache.cmdExit", ExitFromTcache, false},
     {"imports.cmdImportTextureBrowse", BrowseBitmap, false},
     {"imports.txtImportTexturePath.LostFocus", LookAtBitmap, false},
     {"imports.cmdImportTexture", ImportOne, true}}};

}  // namespace

std::span<const Handler> TcacheHandlers() { return tcacheHandlers; }

}  // namespace oravin
