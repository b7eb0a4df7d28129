#pragma once

#include <string>
#include <vector>

#include "actions/match_stats.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "lists/ship_list.h"

/// A ship list drafted from the player's own installation, for players who have none.
namespace oravin {

/// A ship of the draft, and how it was found. Only `ship` goes into the list.
struct DraftedShip {
  ListedShip ship;
  bool capital = false;                       ///< by the model's class byte
  MatchSureness match = MatchSureness::none;  ///< how sure its statistics block is
  std::string comment;                        ///< what to know and to check, in plain words
};

/// A model that cannot be listed.
struct PassedOver {
  std::string name;    ///< as the archive or the folder has it
  std::string reason;  ///< in plain words: "it lies in a folder of the archive"
};

struct ShipListDraft {
  std::vector<DraftedShip> ships;
  std::vector<PassedOver> passedOver;
  std::vector<std::string> freeBlocks;  ///< the named statistics blocks that no ship has: "12 Rescue Tug"
  int blocks = 0;                       ///< how many statistics blocks there are
  std::string remark;                   ///< about the whole draft; may be empty
  bool stopped = false;                 ///< the user stopped it; then there are no ships
};

/// The kind of every ship of the archive. The game's files do not tell kinds 1 and 2 apart: both are stock ships with
/// different pictures, and a ship of kind 2 gets stronger guns where it replaces another one. Kind 1 leaves the
/// statistics unchanged.
inline constexpr int draftedKind = 1;

/// Drafts a list: every model (`*.shp`) of the archive in the order of its table, then those of the add-on ships.
///
/// - Where there is a `NAME.shp`, a model `t_NAME.shp` is its second part: it comes directly after it and has its name.
/// - A name that is disguised in the table is restored from the table's backup.
/// - The statistics block is the one with the name nearest to the model's (actions/match_stats.h); 0 if none is near.
/// - A ship is named as its block, else by its file; an imported ship as in the catalogue. Names are cut to 30
///   characters and made unique by numbers.
/// - The first two texture names come from the model. A damaged model is listed with a comment.
/// - What cannot be listed is passed over with a reason: models in folders of the archive, long names, names that no
///   file can have, second entries of one name.
///
/// Nothing is written, except for what LoadHogTable repairs. It shows its progress and can be stopped. An
/// archive that cannot be read gives the boxes of LoadHogTable or the error trap's, and an empty draft.
ShipListDraft DraftShipList(Host& host, const Installation& installation);

/// The ships alone, as they are saved.
std::vector<ListedShip> ShipsOf(const std::vector<DraftedShip>& drafted);

}  // namespace oravin
