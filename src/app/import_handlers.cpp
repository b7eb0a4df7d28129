#include "app/import_handlers.h"

#include <array>

#include "app/import_file.h"
#include "desk/dialogs.h"
#include "tabs/imported_list.h"
#include "tabs/remove_imported.h"
#include "tabs/rename_imported.h"

namespace oravin {

namespace {

constexpr const char* shipFilter =
    "SL SHP file (*.shp) or SL SHP Pack (*.pak)|*.shp;*.pak|SL Ship Pack (*.pak)|*.pak|All Files *.*|*.*";

using OnPackForm = void (*)(Host&, FighterPack&, const Installation&);
using OnPackFormAlone = void (*)(FighterPack&, const Installation&);

template <OnPackForm action>
void DoInPack(Main& main) {
  action(main.host, main.Fighter_PACK, main.installation);
}

template <OnPackFormAlone action>
void DoInPack(Main& main) {
  action(main.Fighter_PACK, main.installation);
}

RefillLists Refill(Main& main) {
  return [&main] { RefillShipLists(main); };
}

void Browse(Main& main) {
  const std::string chosen = ChooseFile(main.host, "", main.installation.GamePath, "", shipFilter);
  if (!chosen.empty()) ImportFile(main, chosen);
}

void ImportTyped(Main& main) { ImportFile(main, main.imports.txtImportFighter.text); }

void SelectImported(Main& main) { lstImported_ItemClick(main.imports); }

void RenameImported(Main& main) {
  if (lstImported_AfterLabelEdit(main.host, main.imports, main.installation)) RefillShipLists(main);
}

void ViewImported(Main& main) { ViewModel(main.host.files, main.imports.lstImported, main.installation); }

void Remove(Main& main) {
  SwapDesk desk = SwapDeskOf(main);
  cmdRemoveShips_Click(desk, main.imports, Refill(main));
}

void RemoveAll(Main& main) {
  SwapDesk desk = SwapDeskOf(main);
  cmdRemoveAll_Click(desk, main.imports, Refill(main));
}

void BrowseMesh(Main& main) { cmd3DSourceBrowse_Click(main.host, main.convert, main.installation); }

void Convert(Main& main) {
  const ImportWindow import{main.imports.txtImportFighter,
                            [&main](const std::string& path) { ImportFile(main, path); }};
  cmdConvert3dsToSL_Click(main.host, main.convert, main.installation, import);
}

void ConverterReadme(Main& main) { cmd3d2SLReadme_Click(main.installation); }

void CancelImport(Main& main) { cmdImportCancel_Click(main.Fighter_PACK); }

constexpr std::array<Handler, 19> importHandlers = {
    {{"imports.cmdImportFighterBrowse", Browse, false},
     {"imports.txtImportFighter.Enter", ImportTyped, false},
     {"imports.lstImported.ItemClick", SelectImported, false},
     {"imports.lstImported.AfterLabelEdit", RenameImported, true},
     {"imports.lstImported.DblClick", ViewImported, false},
     {"imports.cmdRemoveShips", Remove, true},
     {"imports.cmdRemoveAll", RemoveAll, true},
     {"convert.cmd3DSourceBrowse", BrowseMesh, false},
     {"convert.cmdConvert3dsToSL", Convert, false},
     {"convert.cmd3d2SLReadme", ConverterReadme, false},
     {"Fighter_PACK.lstPack.AfterLabelEdit", DoInPack<lstPack_AfterLabelEdit>, false},
     {"Fighter_PACK.lstPack.ItemClick", DoInPack<lstPack_ItemClick>, false},
     {"Fighter_PACK.lstPack.ItemCheck", DoInPack<lstPack_ItemCheck>, false},
     {"Fighter_PACK.lstTextures.ItemClick", DoInPack<lstTextures_ItemClick>, false},
     {"Fighter_PACK.cmdFindBitmap", DoInPack<cmdFindBitmap_Click>, false},
     {"Fighter_PACK.cmdCheckAll", DoInPack<cmdCheckAll_Click>, false},
     {"Fighter_PACK.cmdCheckNone", DoInPack<cmdCheckNone_Click>, false},
     {"Fighter_PACK.cmdImportShips", cmdImportShips_Click, true},
     {"Fighter_PACK.cmdImportCancel", CancelImport, false}}};

}  // namespace

std::span<const Handler> ImportHandlers() { return importHandlers; }

}  // namespace oravin
