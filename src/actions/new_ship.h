#pragma once

#include <optional>
#include <string>
#include <vector>

#include "actions/import_batch.h"
#include "actions/import_source.h"
#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// A texture of a ship that is to be imported.
struct NewShipTexture {
  std::string name;  ///< as the record holds it
  std::string bitmap;
};

/// What is known of a ship before anything of it is written.
struct NewShip {
  ShipRecord record;  ///< without a statistics index
  ShipStats stats;
  std::string statsText;  ///< the text that they were read from; empty where they come from `shipstats.bin`
  std::vector<NewShipTexture> textures;
  bool deep = false;  ///< a fighter with 24-bit images
};

/// Looks at an offered ship: its model, the bitmaps of its textures, its statistics, the name of its model file.
/// Bitmaps that are missing are asked for, and what is given is remembered for the rest of the run.
///
/// Boxes, after which the ship counts as refused: a model that is missing or is none ("This is not a valid SL shp
/// file"), or has more textures than a record holds; "Texture not found - skipping ship!"; a name that no ship can
/// have, or that another one has; a statistics text that cannot be read.
///
/// A model gets the first free name, its base name with 2, 3, ... after it, when another ship has its file name, or an
/// imported one its base name, or when another file has the place of the model, its backup or its statistics text: in
/// the game's ships folder, among the add-ons, or in this run. That becomes a note. A statistics text among the add-ons
/// is another's for a model that brings one with other content, and for one that brings none when another add-on model
/// has the base name. The statistics are those of the text of the model's base name next to the model, else of the
/// add-ons' text of the name that it gets; else of the first block of `shipstats.bin`.
///
/// @param given bitmaps by texture, of the whole run
/// @return nothing when the ship is refused
std::optional<NewShip> LookAtShip(Host& host, const Installation& installation, const OfferedShip& offered,
                                  GivenBitmaps& given, ImportBatch& batch);

/// Asks for the bitmap of one texture, where it is missing.
/// @param folder where the dialog starts
/// @return its path; empty when the user gives none
std::string AskForBitmap(Host& host, const std::string& folder, const std::string& texture);

}  // namespace oravin
