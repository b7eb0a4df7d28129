#pragma once

#include <array>
#include <string>

#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/texture_preview.h"

namespace oravin {

/// The panel of the "Import Ships" tab that imports a single texture.
struct ImportTexturePanel {
  Label frameTextureImport;  ///< the frame around the panel
  Button cmdImportTexture;
  CheckBox chkForFighter;
  Button cmdImportTextureBrowse;
  TextBox txtImportTextureName;
  TextBox txtImportTexturePath;
  std::array<Label, 4> lblBMPinfo;  ///< the bitmap's width, height, depth and mipmap levels
  std::array<Label, 2> lbl3DConv;   ///< the captions of the two text boxes: name, path
  TexturePreview preview;           ///< the bitmap as the texture will look
  bool nameTakesFocus = false;      ///< set when a name is missing; the window moves the focus and clears it
};

ImportTexturePanel NewImportTexturePanel();

/// Asks for a bitmap and shows its sizes and its picture.
void cmdImportTextureBrowse_Click(Host& host, ImportTexturePanel& panel);

/// Shows the bitmap whose path was typed, if it can be imported; without a box if it cannot.
void txtImportTexturePath_LostFocus(Host& host, ImportTexturePanel& panel);

/// Imports the bitmap into the game's cache with ImportTexture, under the name in its text box, cut to 30 characters;
/// with "For fighter" by ImportFighterTextures.
///
/// Boxes besides theirs: "Import texture not found.", that of GetBMPInfo, "Enter name for texture" titled "Import
/// Texture", that of NameCanBeStored, "Textured imported successfully!".
void cmdImportTexture_Click(Host& host, ImportTexturePanel& panel, const Installation& installation);

}  // namespace oravin
