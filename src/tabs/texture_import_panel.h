#pragma once

#include <array>
#include <string>

#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/texture_preview.h"

namespace oravin {

/// The panel of the "Import Ships" tab by which one texture is imported by hand.
struct ImportTexturePanel {
  Label frameTextureImport;  ///< the frame around the panel
  Button cmdImportTexture;
  CheckBox chkForFighter;
  Button cmdImportTextureBrowse;
  TextBox txtImportTextureName;
  TextBox txtImportTexturePath;
  std::array<Label, 4> lblBMPinfo;  ///< the bitmap's width, height, depth and images
  std::array<Label, 2> lbl3DConv;   ///< the captions of the two text boxes: name, path
  TexturePreview preview;           ///< the bitmap as the texture will look
  bool nameTakesFocus = false;      ///< set where the person must give a name; the window takes it back
};

ImportTexturePanel NewImportTexturePanel();

/// Asks for a bitmap and shows what it says of itself.
void cmdImportTextureBrowse_Click(Host& host, ImportTexturePanel& panel);

/// Shows the bitmap whose path was typed, if it is one that can be imported; without a word if it is not.
void txtImportTexturePath_LostFocus(ImportTexturePanel& panel);

/// Imports the bitmap into the game's cache under the name in its box, cut to 30 characters. With "For fighter" it is
/// made into a fighter's chain first and imported a second time, as its companion, whose name has a "g" before it. The
/// maps for that are learned where they are missing; where that fails, a box says why and the chain is imported alone.
///
/// Boxes beside those of the procedures that do the work: "Import texture not found.", "Enter name for texture" titled
/// "Import Texture", that of NameCanBeStored, "Textured imported successfully!".
void cmdImportTexture_Click(Host& host, ImportTexturePanel& panel, const Installation& installation);

}  // namespace oravin
