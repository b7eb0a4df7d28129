#include "app/import_handlers.h"

#include <array>

#include "app/import_file.h"
#include "app/show_changes.h"
#include "desk/dialogs.h"
#include "tabs/imported_list.h"

namespace oravin {

namespace {

constexpr const char* shipFilter =
    "SL SHP file (*.shp) or SL SHP Pack (*.pak)|*.shp;*.pak|SL Ship Pack (*.pak)|*.pak|All Files *.*|*.*";

constexpr const char* removeQuestion = "Are you sure that you want to remove these ships?";
constexpr const char* removeQuestionTitle = "Oravin - Manage Switcher";

constexpr const char* textureQuestion =
    "Do you also want to remove the associated textures for this model?\n"
    "It may take up to ten seconds to rebuild TCACHE file.\n"
    "(Won't remove textures shared with ships not being removed)";

using OnPackForm = void (*)(Host&, FighterPack&, const Installation&);
using OnPackFormAlone = void (*)(FighterPack&, const Installation&);

template <OnPackForm action>
void DoInPack(Main& main) {
  action(main.host, main.importForm, main.installation);
}

template <OnPackFormAlone action>
void DoInPack(Main& main) {
  action(main.importForm, main.installation);
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

void cmdRemoveShips_Click(Main& main) {
  const std::vector<int> ships = SelectedImported(main.imports, main.installation.ships);
  if (ships.empty() || !AskYesNo(main.host, removeQuestion, removeQuestionTitle)) return;
  if (!CatalogueThere(main.host, main.installation, removeTitle)) return;
  const bool textures = AskYesNo(main.host, textureQuestion);
  CloseOpenFiles(main);
  const RemovalResult result = RemoveImported(main.host, main.installation, ships, textures);
  ShowChanges(main, result);
  if (result.done) ShowSuccess(main.host, "Removal Complete", Icon::information);
}

void cmdRemoveAll_Click(Main& main) {
  SelectAll(main.imports.lstImported, true);
  lstImported_ItemClick(main.imports);
  cmdRemoveShips_Click(main);
}

void BrowseMesh(Main& main) { cmd3DSourceBrowse_Click(main.host, main.convert, main.installation); }

void Convert(Main& main) {
  const ImportWindow import{main.imports.txtImportFighter,
                            [&main](const std::string& path) { ImportFile(main, path); }};
  cmdConvert3dsToSL_Click(main.host, main.convert, main.installation, import);
}

void ConverterReadme(Main& main) { cmd3d2SLReadme_Click(main.installation); }

void CancelImport(Main& main) { cmdImportCancel_Click(main.importForm); }

constexpr std::array<Handler, 19> importHandlers = {
    {{"imports.cmdImportFighterBrowse", Browse, false},
     {"imports.txtImportFighter.Enter", ImportTyped, false},
     {"imports.lstImported.ItemClick", SelectImported, false},
     {"imports.lstImported.AfterLabelEdit", RenameImported, true},
     {"imports.lstImported.DblClick", ViewImported, false},
     {"imports.cmdRemoveShips", cmdRemoveShips_Click, true},
     {"imports.cmdRemoveAll", cmdRemoveAll_Click, true},
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
