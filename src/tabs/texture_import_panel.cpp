#include "tabs/texture_import_panel.h"

#include "actions/import_texture.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/new_name.h"
#include "files/look_up.h"
#include "files/path.h"
#include "textures/texture_cache.h"

namespace oravin {

namespace {

constexpr std::array<const char*, 4> infoCaptions = {"x Dim:", "y Dim:", "Depth:", "Blocks:"};

void ClearInfo(ImportTexturePanel& panel) {
  for (std::size_t i = 0; i < infoCaptions.size(); ++i) panel.lblBMPinfo.at(i).caption = infoCaptions.at(i);
}

/// Shows a bitmap's sizes in the four labels.
void ShowInfo(ImportTexturePanel& panel, const BmpInfo& info) {
  // Intentional: the depth is shown in bytes, followed by "bit".
  const std::array<std::string, 4> values = {std::to_string(info.width), std::to_string(info.height),
                                             std::to_string(info.depth) + " bit", std::to_string(info.imageCount)};
  for (std::size_t i = 0; i < values.size(); ++i) {
    panel.lblBMPinfo.at(i).caption = std::string(infoCaptions.at(i)) + " " + values.at(i);
  }
}

/// Reads a bitmap's header and shows it; false after a box.
bool ReadInfo(Host& host, ImportTexturePanel& panel, const std::string& path, BmpInfo& info) {
  if (!Trap(host, "GetBMPInfo", [&] { info = GetBMPInfo(host.files, path); })) return false;
  ShowInfo(panel, info);
  return true;
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
  const std::string folder = ParentFolder(panel.txtImportTexturePath.text);
  const std::string file =
      ChooseFile(host, "", folder, "", "8-bit / 16-bit / 24-bit Bitmap (*.bmp)|*.bmp|All Files *.*|*.*");
  if (file.empty()) return;
  panel.txtImportTexturePath.text = file;
  BmpInfo info;
  if (ReadInfo(host, panel, file, info)) ShowBitmap(host, panel.preview, file, info);
}

void txtImportTexturePath_LostFocus(Host& host, ImportTexturePanel& panel) {
  ShowNoTexture(panel.preview, "");
  ClearInfo(panel);
  TrimInPlace(panel.txtImportTexturePath.text);
  try {
    const BmpInfo info = GetBMPInfo(host.files, panel.txtImportTexturePath.text);
    ShowInfo(panel, info);
    ShowBitmap(host, panel.preview, panel.txtImportTexturePath.text, info);
  } catch (const FileError&) {
    // No box while a path is being typed: the import shows what is wrong with the bitmap.
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
  if (!ReadInfo(host, panel, bitmap, info)) return;
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
  const bool imported = panel.chkForFighter.checked ? ImportFighterTextures(host, installation, bitmap, info, name)
                                                    : ImportTexture(host, installation.cachePath(), bitmap, name, info);
  if (imported) ShowSuccess(host, "Textured imported successfully!", Icon::exclamation);
}

}  // namespace oravin
