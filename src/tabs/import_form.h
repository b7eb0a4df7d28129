#pragma once

#include <optional>
#include <string>
#include <vector>

#include "actions/import_source.h"
#include "actions/model_textures.h"
#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/texture_preview.h"

namespace oravin {

/// The form that imports new ships: those of a ship pack, or the one of a single model.
struct FighterPack {
  std::string caption;
  Label lblPack;         ///< what to do about the ships in the list
  ListView lstPack;      ///< a line for each ship, all checked at first; its name can be edited
  Label lblTextures;     ///< whose textures are listed below
  ListView lstTextures;  ///< the textures of the selected ship
  TexturePreview preview;
  Button cmdFindBitmap;  ///< gives the selected texture a bitmap
  Button cmdCheckAll;
  Button cmdCheckNone;
  Button cmdImportShips;
  Button cmdImportCancel;

  bool shown = false;                   ///< false closes the form
  bool done = false;                    ///< the import has run
  ImportSource source;                  ///< a ship for each line of lstPack
  std::optional<std::size_t> ship;      ///< whose textures are listed
  std::vector<ListedTexture> textures;  ///< one for each line of lstTextures
};

/// The form's name for the desk.
inline constexpr const char* fighterPackForm = "Fighter_PACK";

FighterPack NewFighterPack();

/// Shows the ships of a pack or of a single model (LoadImportSource, with its boxes). Every ship is a checked line,
/// which is red when its name is taken. The first ship is selected, and its textures are shown.
/// @return false when a box has said why nothing can be shown; the form is left empty then
bool LoadPack(Host& host, FighterPack& form, const Installation& installation, const std::string& path);

/// Takes the name that was edited in the list. A box says why it is refused (WhyNameRefused); then the old name stays.
void lstPack_AfterLabelEdit(Host& host, FighterPack& form, const Installation& installation);

/// Lists the textures of the selected ship and shows a picture of the first. Boxes as TextureList.
void lstPack_ItemClick(Host& host, FighterPack& form, const Installation& installation);

/// After a line was checked or unchecked: marks the names that are taken now.
void lstPack_ItemCheck(FighterPack& form, const Installation& installation);

/// Checks all lines, or none.
void cmdCheckAll_Click(FighterPack& form, const Installation& installation);
void cmdCheckNone_Click(FighterPack& form, const Installation& installation);

/// Shows the selected texture: its bitmap, else what the cache holds.
void lstTextures_ItemClick(Host& host, FighterPack& form, const Installation& installation);

/// Asks for the bitmap that the selected texture of the selected ship is to be imported from. One that cannot become a
/// texture gives a box and is not taken.
void cmdFindBitmap_Click(Host& host, FighterPack& form, const Installation& installation);

/// Closes the form.
void cmdImportCancel_Click(FighterPack& form);

}  // namespace oravin
