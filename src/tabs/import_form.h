#pragma once

#include <optional>
#include <string>
#include <vector>

#include "actions/model_textures.h"
#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "lists/ship_pack.h"
#include "tabs/texture_preview.h"

namespace oravin {

/// The colour of a ship whose name is taken: pure red.
inline constexpr std::uint32_t nameTakenColour = 255;

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
  std::string path;                     ///< of the pack or model that is shown
  std::string folder;                   ///< the one that it lies in, ending in a backslash
  std::string header;                   ///< the pack's
  std::vector<PackShip> ships;          ///< one for each line, with the name as it was edited
  std::vector<GivenBitmaps> given;      ///< for each ship
  std::optional<std::size_t> ship;      ///< whose textures are listed
  std::vector<ListedTexture> textures;  ///< one for each line of lstTextures
};

/// The form's name for the desk.
inline constexpr const char* fighterPackForm = "Fighter_PACK";

FighterPack NewFighterPack();

/// A ship that is to be imported.
struct CheckedShip {
  PackShip ship;       ///< with the name as it was edited, without blanks at its ends
  GivenBitmaps given;  ///< its bitmaps that are not to be looked for beside the model
};

/// Fills the form from a pack, or from a single model, whose ship is named as the file without its last 4 characters.
/// Every ship becomes a checked line with the key "s" and its number from 1; it is red when its name is taken. The
/// first one is selected, and its textures are shown.
///
/// A pack's boxes are those of GetPAK, a missing model's that of IsCapitalShip. A pack that lists no ships is shown.
/// @return false when a box has said why nothing can be shown; the form is left empty then
bool LoadPack(Host& host, FighterPack& form, const Installation& installation, const std::string& path);

/// Colours every line anew: red for one whose name is that of a ship of the catalogue, or of a checked line above it,
/// since two ships of one name cannot both be imported. Sets the import button: it needs a checked line.
void ColourPack(FighterPack& form, const Installation& installation);

/// Takes the name that was edited in the list. Boxes, after which the old name stays: "The ship name '...' has the same
/// name as an existing ship." and those of WhyNoShipName.
void lstPack_AfterLabelEdit(Host& host, FighterPack& form, const Installation& installation);

/// Shows the textures of the selected ship, and the first of them as a picture. Boxes as TextureList.
void lstPack_ItemClick(Host& host, FighterPack& form, const Installation& installation);

/// After a line was checked or unchecked: colours the lines anew.
void lstPack_ItemCheck(FighterPack& form, const Installation& installation);

/// Checks all lines, or none.
void cmdCheckAll_Click(FighterPack& form, const Installation& installation);
void cmdCheckNone_Click(FighterPack& form, const Installation& installation);

/// Shows the selected texture: its bitmap, else what the cache holds.
void lstTextures_ItemClick(Host& host, FighterPack& form, const Installation& installation);

/// Asks for the bitmap that the selected texture of the selected ship is to be imported from. One that cannot become a
/// texture gives a box and is not taken.
void cmdFindBitmap_Click(Host& host, FighterPack& form, const Installation& installation);

/// Asks for the bitmap of one texture, where it is missing.
/// @param folder where the dialog begins
/// @return its path; empty when the person gives none
std::string AskForBitmap(Host& host, const std::string& folder, const std::string& texture);

/// Closes the form.
void cmdImportCancel_Click(FighterPack& form);

/// True when a checked line is red: nothing may be imported then.
bool AnyCheckedRed(const FighterPack& form);

/// The ships that are to be imported, in the order of the list.
std::vector<CheckedShip> CheckedShips(const FighterPack& form);

}  // namespace oravin
