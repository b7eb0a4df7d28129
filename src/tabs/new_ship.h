#pragma once

#include <optional>
#include <string>
#include <vector>

#include "actions/import_batch.h"
#include "tabs/import_form.h"

namespace oravin {

/// A texture of a ship that is to be imported.
struct NewShipTexture {
  std::string name;  ///< as the record holds it
  std::string bitmap;
};

/// What can be found out about a ship before anything of it is written.
struct NewShip {
  ShipRecord record;  ///< without a statistics index
  ShipStats stats;
  std::string statsText;  ///< the text that they were read from, beside the model; empty for other ones
  std::vector<NewShipTexture> textures;
  bool deep = false;  ///< a fighter with 24-bit images
};

/// Looks at a checked ship: its model, the bitmaps of its textures, its statistics, the name of its model file. Bitmaps
/// that are missing are asked for, and what is given is remembered for the rest of the run.
///
/// Boxes, after which the ship counts as failed: a model that is missing or none ("This is not a valid SL shp file"),
/// or has more textures than a record holds; "Texture not found - skipping ship!"; a name that no ship can have, or
/// that another one has; a statistics text that cannot be read.
///
/// A model gets the first free name, its base name with 2, 3, ... after it, when another ship has its file name, or
/// an imported one its base name, or when the place of the model, its backup or its statistics text is another file's:
/// in the game's ships folder, among the add-ons, or of the run. That becomes a note. A statistics text among the
/// add-ons counts as another's for a model that brings one with other content, and for one that brings none when an
/// other add-on model has the base name. The statistics are those of the text of the model's base name next to
/// the model, else of the text that the add-ons have for the name that it gets; else of the first block of
/// `shipstats.bin`.
///
/// @param given bitmaps by texture, of the whole run
std::optional<NewShip> LookAtShip(Host& host, const Installation& installation, const CheckedShip& checked,
                                  GivenBitmaps& given, ImportBatch& batch);

}  // namespace oravin
