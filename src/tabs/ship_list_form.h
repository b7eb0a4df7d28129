#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "actions/draft_ship_list.h"
#include "desk/controls.h"
#include "desk/host.h"

namespace oravin {

/// The form in which a drafted ship list is looked through and edited as a table before it is saved: the lines, and
/// under them the fields of the selected one.
struct ShipListForm {
  std::string caption;
  Label lblPurpose;  ///< what the form is for, and what the draft says of itself
  ListView lstShips;
  Label lblName;
  TextBox txtName;
  Label lblFile;
  TextBox txtFile;
  Label lblKind;
  TextBox txtKind;
  Label lblStats;
  TextBox txtStats;
  Label lblTexture0;
  TextBox txtTexture0;
  Label lblTexture1;
  TextBox txtTexture1;
  Button cmdApply;
  Button cmdRemoveLine;
  Button cmdMoveUp;
  Button cmdMoveDown;
  Button cmdSave;
  Button cmdCancel;

  std::vector<DraftedShip> ships;   ///< the lines
  std::optional<std::size_t> line;  ///< the one whose fields are in the boxes
  int blocks = 0;                   ///< how many statistics blocks there are; 0 when that is not known
  std::string path;                 ///< the file that Save writes
  bool changed = false;             ///< a line was changed, moved or removed
  bool saved = false;
  bool shown = false;  ///< false closes the form
};

/// The form's name for the desk.
inline constexpr const char* shipListForm = "ShipList";

ShipListForm NewShipListForm();

/// Shows a draft in the form until it is closed.
/// @param path the file that Save writes
/// @return whether the list was saved
bool EditShipList(Host& host, ShipListForm& form, const ShipListDraft& draft, const std::string& path);

/// Puts the fields of the selected line into the boxes. What was typed for another line is taken into that one first;
/// where it cannot be, a box of cmdApply_Click says why, and that line is selected again.
void lstShips_ItemClick(Host& host, ShipListForm& form);

/// Takes the boxes into the selected line. Boxes titled "Ship list", after which the line stays as it was: a kind or a
/// statistics block that is no such number, a block that the statistics do not have, and whatever WhyNotListed says.
void cmdApply_Click(Host& host, ShipListForm& form);

/// Takes the selected line out of the list; the next one is selected.
void cmdRemoveLine_Click(ShipListForm& form);

/// Moves the selected line up or down by one, with what was typed; where that cannot be taken a box says why, and the
/// line stays. A second part stands directly behind its ship.
void cmdMoveUp_Click(Host& host, ShipListForm& form);
void cmdMoveDown_Click(Host& host, ShipListForm& form);

/// Saves the list (SaveShipList, with the old one kept) and closes the form; what was typed and not applied yet is
/// applied first. A box titled "Ship list" says why it cannot be saved as it is (WhyNotSaved); then its line is
/// selected and the form stays.
void cmdSave_Click(Host& host, ShipListForm& form);

/// Closes the form without saving; asks first when something was changed or typed.
void cmdCancel_Click(Host& host, ShipListForm& form);

}  // namespace oravin
