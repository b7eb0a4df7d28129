#pragma once

#include <functional>
#include <string>

#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// The panel of the "Import Ships" tab by which a mesh of 3D Studio is made into a ship's model.
struct ConvertPanel {
  Label frame3DConversion;  ///< the frame around the panel
  Label lbl3DSource;        ///< the captions of the two text boxes
  Label lbl3DDest;
  TextBox txt3DSource;
  TextBox txt3DDest;
  Button cmd3DSourceBrowse;
  Button cmdConvert3dsToSL;
  Button cmd3d2SLReadme;
  bool sourceTakesFocus = false;       ///< set when the user must give a source; the window resets it
  bool destinationTakesFocus = false;  ///< the same for the destination
};

ConvertPanel NewConvertPanel();

/// What the conversion hands the new model on to.
struct ImportWindow {
  TextBox& txtImportFighter;                          ///< the box that holds the path of what is to be imported
  std::function<void(const std::string& path)> show;  ///< shows the import of that file until it is closed
};

/// Asks for a mesh, beginning in the game folder; the destination becomes the same name with the extension ".shp".
void cmd3DSourceBrowse_Click(Host& host, ConvertPanel& panel, const Installation& installation);

/// Converts the source into the destination (ConvertMesh) and goes on to the import of the new model.
///
/// Blanks at the ends of both boxes' texts go first. Boxes titled "Oravin - 3DS2SL Mesh Converter": "Enter a source
/// file name", "Enter a destination file name". The destination goes into txtImportFighter whatever came of it; the
/// import is shown only where the library was called and there is a model now.
void cmdConvert3dsToSL_Click(Host& host, ConvertPanel& panel, const Installation& installation,
                             const ImportWindow& import);

/// Opens the converter's readme, `3ds2sl.txt` in the program folder, in the user's text editor.
void cmd3d2SLReadme_Click(const Installation& installation);

}  // namespace oravin
