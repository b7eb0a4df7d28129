#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "actions/draft_ship_list.h"
#include "desk/controls.h"
#include "desk/host.h"

namespace oravin {

/// The form in which a drafted ship list is reviewed and edited as a table before it is saved: the lines, and below
/// them the fields of the selected one.
struct ShipListForm {
  std::string caption;
  Label lblPurpose;  ///< what the form is for, and a summary of the draft
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
  std::optional<std::size_t> line;  ///< the one whose fields the text boxes show
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

/// Shows the fields of the selected line in the text boxes. What was typed for another line is applied to that one
/// first; where it cannot be, a message of cmdApply_Click says why, and that line is selected again.
void lstShips_ItemClick(Host& host, ShipListForm& form);

/// Applies the text boxes to their line. Messages titled "Ship list", after which the line is unchanged: a kind or a
/// statistics block that is not a number of its range, a block that the statistics do not have, and those of
/// WhyNotListed.
void cmdApply_Click(Host& host, ShipListForm& form);

/// Removes the selected line from the list; the next one is selected.
void cmdRemoveLine_Click(ShipListForm& form);

/// Moves the selected line up or down by one, and applies what was typed; where that cannot be applied a message says
/// why, and the line stays. A second part comes directly after its ship.
void cmdMoveUp_Click(Host& host, ShipListForm& form);
void cmdMoveDown_Click(Host& host, ShipListForm& form);

/// Saves the list (SaveShipList) and closes the form; what was typed is applied first. A message titled "Ship list"
/// says why the list cannot be saved (WhyNotSaved); then the line at fault is selected and the form stays open.
void cmdSave_Click(Host& host, ShipListForm& form);

/// Closes the form without saving; asks first when something was changed or typed.
void cmdCancel_Click(Host& host, ShipListForm& form);

}  // namespace oravin
