#pragma once

#include <string>
#include <vector>

#include "actions/match_stats.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "lists/ship_list.h"

/// A ship list drafted from the player's own installation, for those who have none.
namespace oravin {

/// A ship of the draft, and how it was found. Only `ship` goes into the list.
struct DraftedShip {
  ListedShip ship;
  bool capital = false;                       ///< by the model's class byte
  MatchSureness match = MatchSureness::none;  ///< how sure its statistics block is
  std::string comment;                        ///< what there is to know and to check, in plain words
};

/// A model that cannot stand in the list.
struct PassedOver {
  std::string name;    ///< as the archive or the folder has it
  std::string reason;  ///< in plain words: "it lies in a folder of the archive"
};

struct ShipListDraft {
  std::vector<DraftedShip> ships;
  std::vector<PassedOver> passedOver;
  std::vector<std::string> freeBlocks;  ///< the named statistics blocks that no ship has: "12 Rescue Tug"
  int blocks = 0;                       ///< how many statistics blocks there are
  std::string remark;                   ///< what holds for the whole draft; empty when there is nothing to say
  bool stopped = false;                 ///< the person stopped it; then there are no ships
};

/// The kind that every ship of the archive is given. The game's files do not tell kinds 1 and 2 apart: both are stock
/// ships, shown with different pictures, and a ship of kind 2 gets stronger guns where it stands in for another one.
/// Kind 1 leaves the statistics as the game has them.
inline constexpr int draftedKind = 1;

/// Drafts a list: every model (`*.shp`) of the archive in the order of its table, then those of the add-on ships.
///
/// - A model `t_NAME.shp` beside a `NAME.shp` is its second part: it comes directly behind it and bears its name.
/// - A name that is disguised in the table is put back from the table's backup.
/// - The statistics block is the one whose name comes nearest to the model's (stats_match.h); 0 where none does.
/// - A ship is named as its block is, else by its file; an imported ship as the catalogue has it. Names are cut to 30
///   characters and told apart by numbers.
/// - The first two texture names come from the model. A damaged model is listed with a comment.
/// - What cannot stand in the list is passed over with a reason: models in folders of the archive, long names, names
///   that no file can bear, second entries of one name.
///
/// Nothing is written, except for what LoadHogTable repairs. It tells how far it has come and can be stopped. An
/// archive that cannot be read gives the boxes of LoadHogTable or the error trap's, and an empty draft.
ShipListDraft DraftShipList(Host& host, const Installation& installation);

/// The ships alone, as they are saved.
std::vector<ListedShip> ShipsOf(const std::vector<DraftedShip>& drafted);

}  // namespace oravin
