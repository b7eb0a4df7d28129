#include "tabs/texture_import_panel.h"

#include "actions/import_texture.h"
#include "actions/learn_loadout.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/new_name.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/work_files.h"
#include "textures/loadout_maps.h"
#include "textures/mipmap_chain.h"
#include "textures/texture_cache.h"

namespace oravin {

namespace {

constexpr std::array<const char*, 4> infoCaptions = {"x Dim:", "y Dim:", "Depth:", "Blocks:"};

void ClearInfo(ImportTexturePanel& panel) {
  for (std::size_t i = 0; i < infoCaptions.size(); ++i) panel.lblBMPinfo.at(i).caption = infoCaptions.at(i);
}

/// Reads what the bitmap says of itself and shows it in the four labels.
bool ShowInfo(Host& host, ImportTexturePanel& panel, const std::string& path, BmpInfo& info) {
  if (!GetBMPInfo(host, path, info)) return false;
  // The depth is shown as it is kept, in bytes, behind which "bit" stands: that is meant.
  const std::array<std::string, 4> values = {std::to_string(info.width), std::to_string(info.height),
                                             std::to_string(info.depth) + " bit", std::to_string(info.imageCount)};
  for (std::size_t i = 0; i < values.size(); ++i) {
    panel.lblBMPinfo.at(i).caption = std::string(infoCaptions.at(i)) + " " + values.at(i);
  }
  return true;
}

bool ImportFighter(Host& host, const Installation& installation, const std::string& bitmap, const std::string& name) {
  const std::string& folder = installation.ProgramPath;
  const std::string cache = installation.cachePath();
  const std::string maps = folder + loadoutMapsName;
  const WorkFiles work(host.files, {folder + "import", folder + "gimport"});
  if (!ConvertFighterText(host, bitmap, folder + "import", folder)) return false;
  const bool toLearn = !FileExists(host.files, maps) && FileExists(host.files, cache);
  if (toLearn && !ProvideLoadoutMaps(host, cache, maps)) {
    return ImportTexture(host, cache, folder + "import", name, fighterChain);
  }
  return ConvertTexture(host, folder + "import", folder, "gimport", maps) &&
         ImportFighterTextures(host, cache, folder + "import", folder + "gimport", name);
}

}  // namespace

ImportTexturePanel NewImportTexturePanel() {
  ImportTexturePanel panel;
  panel.frameTextureImport.caption = "&Manual Texture Importing (not needed to import ship):";
  panel.cmdImportTexture = {"&Import Texture", "Imports texture into the Tcachehw.dat file", true};
  panel.chkForFighter.caption = "For fighter";
  panel.cmdImportTextureBrowse = {"Bro&wse", "", true};
  ClearInfo(panel);
  panel.preview = NewTexturePreview();
  panel.lbl3DConv = {Label{"Texture name:"}, Label{"&Import texture:"}};
  return panel;
}

void cmdImportTextureBrowse_Click(Host& host, ImportTexturePanel& panel) {
  std::string folder = ParentFolder(panel.txtImportTexturePath.text);
  const std::string file =
      ChooseFile(host, "", folder, "", "8-bit / 16-bit / 24-bit Bitmap (*.bmp)|*.bmp|All Files *.*|*.*");
  if (file.empty()) return;
  panel.txtImportTexturePath.text = file;
  BmpInfo info;
  if (ShowInfo(host, panel, file, info)) ShowBitmap(host, panel.preview, file, info);
}

void txtImportTexturePath_LostFocus(ImportTexturePanel& panel) {
  ShowNoTexture(panel.preview, "");
  ClearInfo(panel);
  TrimInPlace(panel.txtImportTexturePath.text);
  // It is only a look: the import itself tells in boxes what is wrong with a bitmap.
  Host quiet;
  quiet.desk.showBox = [](const Message&) { return Answer::ok; };
  if (!FileExists(quiet.files, panel.txtImportTexturePath.text)) return;
  BmpInfo info;
  if (ShowInfo(quiet, panel, panel.txtImportTexturePath.text, info)) {
    ShowBitmap(quiet, panel.preview, panel.txtImportTexturePath.text, info);
  }
}

void cmdImportTexture_Click(Host& host, ImportTexturePanel& panel, const Installation& installation) {
  std::string bitmap = panel.txtImportTexturePath.text;
  TrimInPlace(bitmap);
  if (!FileExists(host.files, bitmap)) {
    Show(host, "Import texture not found.", Icon::exclamation);
    return;
  }
  BmpInfo info;
  if (!ShowInfo(host, panel, bitmap, info)) return;
  const std::string name = Trim(Trim(panel.txtImportTextureName.text).substr(0, longestTextureName));
  if (name.empty()) {
    Show(host, "Enter name for texture", Icon::exclamation, "Import Texture");
    panel.nameTakesFocus = true;
    return;
  }
  if (!NameCanBeStored(host, name)) {
    panel.nameTakesFocus = true;
    return;
  }
  const bool imported = panel.chkForFighter.checked ? ImportFighter(host, installation, bitmap, name)
                                                    : ImportTexture(host, installation.cachePath(), bitmap, name, info);
  if (imported) ShowSuccess(host, "Textured imported successfully!", Icon::exclamation);
}

}  // namespace oravin
