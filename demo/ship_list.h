// The ships of the sample installation: the game's stock ships and three add-on ships.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace oravin::demo {

/// One record of the ship list (shipsData.txt).
struct SampleShip {
  int kind = 1;                    ///< 1 and 2: the two sides' stock ships; 3: an add-on ship
  std::string name;                ///< at most 30 characters; two consecutive records of one name are a two-part ship
  std::string file;                ///< the model's file name, at most 30 characters
  int statsIndex = 0;              ///< the ship's block in shipstats.bin (0 for add-on ships: Enable appends theirs)
  std::string texture0, texture1;  ///< names of textures in the cache (of add-on bitmaps for kind 3)
  bool capital = false;            ///< the model's class byte marks a capital ship
  bool stored = false;             ///< the model is uncompressed in the archive
};

/// A record with further data for the sample's writer.
struct PlannedShip {
  SampleShip ship;
  std::uint8_t classByte = 0;         ///< of the model: 0 fighter, 2 cloaked fighter, 1, 3 or 5 capital ship
  bool variant = false;               ///< the second ("Tiger") part of a two-part ship
  std::vector<std::string> textures;  ///< all texture names of the model
};

/// The models of the hand-made list in its order, each once (variants share their first part's textures), for the
/// texture plan: file name stem and whether it is a capital ship.
struct NamedModel {
  std::string stem;
  bool capital;
};
std::vector<NamedModel> NamedModels();

/// Plans `stockRecords` stock records (1 or more) and, after them, the three add-on ships.
std::vector<PlannedShip> PlanShips(int stockRecords);

}  // namespace oravin::demo
