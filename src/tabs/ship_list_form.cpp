#include "tabs/ship_list_form.h"

#include <algorithm>
#include <cmath>

#include "actions/ship_list_file.h"
#include "base/number_text.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "lists/ship_list_text.h"

namespace oravin {

namespace {

constexpr const char* listTitle = "Ship list";

void RefuseLine(Host& host, const std::string& text) { Show(host, text, Icon::exclamation, listTitle); }

ListRow RowOf(std::size_t index, const DraftedShip& drafted) {
  const ListedShip& ship = drafted.ship;
  ListRow row;
  row.item = static_cast<int>(index);
  row.texts = {ship.name,     ship.file,      std::to_string(ship.kind), std::to_string(ship.statsIndex), ship.texture0,
               ship.texture1, drafted.comment};
  row.tooltip = drafted.comment;
  return row;
}

/// Shows the fields of the selected line in the text boxes.
void ShowFields(ShipListForm& form) {
  const auto row = SelectedRow(form.lstShips);
  const bool any = row && *row < form.ships.size();
  form.line = any ? row : std::nullopt;
  const ListedShip ship = any ? form.ships[*row].ship : ListedShip();
  form.txtName.text = ship.name;
  form.txtFile.text = ship.file;
  form.txtKind.text = any ? std::to_string(ship.kind) : "";
  form.txtStats.text = any ? std::to_string(ship.statsIndex) : "";
  form.txtTexture0.text = ship.texture0;
  form.txtTexture1.text = ship.texture1;
  for (TextBox* box :
       {&form.txtName, &form.txtFile, &form.txtKind, &form.txtStats, &form.txtTexture0, &form.txtTexture1}) {
    box->enabled = any;
  }
  form.cmdApply.enabled = any;
  form.cmdRemoveLine.enabled = any;
  form.cmdMoveUp.enabled = any && *row > 0;
  form.cmdMoveDown.enabled = any && *row + 1 < form.ships.size();
  form.cmdSave.enabled = !form.ships.empty();
}

/// Fills the list and selects a line, if there is one of that index.
void ShowLines(ShipListForm& form, std::size_t selected) {
  ClearRows(form.lstShips);
  for (std::size_t i = 0; i < form.ships.size(); ++i) AddRow(form.lstShips, RowOf(i, form.ships[i]));
  SelectOnly(form.lstShips, selected < form.ships.size() ? std::optional(selected) : std::nullopt);
  ShowFields(form);
}

/// A typed whole number; nothing when the text is none, or it is out of range.
std::optional<int> WholeIn(const std::string& text, int lowest, int highest) {
  const auto number = NumberFrom(text);
  if (!number || *number < lowest || *number > highest || *number != std::floor(*number)) return std::nullopt;
  return static_cast<int>(*number);
}

/// How many lines should be checked: the statistics are uncertain or were not found.
std::size_t Doubtful(const std::vector<DraftedShip>& ships) {
  return static_cast<std::size_t>(std::count_if(ships.begin(), ships.end(), [](const DraftedShip& ship) {
    return ship.ship.kind != importedKind && ship.match != MatchSureness::exact && ship.match != MatchSureness::alike &&
           ship.match != MatchSureness::shared;
  }));
}

std::string PurposeOf(const ShipListDraft& draft) {
  std::string text =
      "This list of ships was drafted from your installation. Please look through it before you save it.\n" +
      Grouped(draft.ships.size()) + " ships; the statistics of " + Grouped(Doubtful(draft.ships)) +
      " are worth a look; " + Grouped(draft.passedOver.size()) + " models were passed over.";
  if (!draft.remark.empty()) text += "\n" + draft.remark;
  return text;
}

/// The ship in the text boxes; nothing after a message that says what is wrong with it.
std::optional<ListedShip> TypedShip(Host& host, const ShipListForm& form) {
  const auto kind = WholeIn(form.txtKind.text, 1, importedKind);
  if (!kind) {
    RefuseLine(host, "The kind must be 1, 2 or 3.");
    return std::nullopt;
  }
  const int highest = form.blocks > 0 ? form.blocks - 1 : 32767;
  const auto block = WholeIn(form.txtStats.text, 0, highest);
  if (!block) {
    RefuseLine(host, "The statistics must be a whole number from 0 to " + std::to_string(highest) + ".");
    return std::nullopt;
  }
  ListedShip ship = {*kind,  Trim(form.txtName.text),     Trim(form.txtFile.text),
                     *block, Trim(form.txtTexture0.text), Trim(form.txtTexture1.text)};
  const std::string why = WhyNotListed(ship);
  if (why.empty()) return ship;
  RefuseLine(host, "The line cannot be changed like this: " + why + ".");
  return std::nullopt;
}

/// The line that the text boxes show; null when there is none.
DraftedShip* ShownLine(ShipListForm& form) {
  return form.line && *form.line < form.ships.size() ? &form.ships[*form.line] : nullptr;
}

/// Applies the text boxes to their line and selects it.
/// @return false when a message has said why not
bool Apply(Host& host, ShipListForm& form) {
  DraftedShip* line = ShownLine(form);
  if (line == nullptr) return true;
  const auto ship = TypedShip(host, form);
  if (!ship) return false;
  line->ship = *ship;
  form.changed = true;
  ShowLines(form, *form.line);
  return true;
}

/// True when something was typed that has not been applied.
bool HasTyped(ShipListForm& form) {
  const DraftedShip* line = ShownLine(form);
  if (line == nullptr) return false;
  const ListedShip& ship = line->ship;
  return form.txtName.text != ship.name || form.txtFile.text != ship.file ||
         form.txtKind.text != std::to_string(ship.kind) || form.txtStats.text != std::to_string(ship.statsIndex) ||
         form.txtTexture0.text != ship.texture0 || form.txtTexture1.text != ship.texture1;
}

void Move(Host& host, ShipListForm& form, bool up) {
  const auto row = SelectedRow(form.lstShips);
  if (!row || *row >= form.ships.size()) return;
  const std::size_t other = up ? *row - 1 : *row + 1;
  if (other >= form.ships.size()) return;  // the first line has none above it
  if (HasTyped(form) && !Apply(host, form)) return;
  std::swap(form.ships[*row], form.ships[other]);
  form.changed = true;
  ShowLines(form, other);
}

}  // namespace

ShipListForm NewShipListForm() {
  ShipListForm form;
  form.caption = "Ship list";
  form.lstShips.columns = {{"Ship"},      {"Model"},     {"Kind", true}, {"Statistics", true},
                           {"Texture 1"}, {"Texture 2"}, {"Comment"}};
  form.lblName.caption = "&Name:";
  form.lblFile.caption = "Mo&del:";
  form.lblKind.caption = "&Kind:";
  form.lblStats.caption = "S&tatistics:";
  form.lblTexture0.caption = "Texture &1:";
  form.lblTexture1.caption = "Texture &2:";
  form.txtKind.tooltip = "1 and 2 are the game's own ships, 3 is an imported one";
  form.txtStats.tooltip = "The ship's block in the statistics, counted from 0";
  form.txtFile.tooltip = "The model's name in the game's archive";
  form.cmdApply = {"&Apply", "Takes these fields into the selected line"};
  form.cmdRemoveLine = {"&Remove Line", "Takes the selected line out of the list"};
  form.cmdMoveUp = {"Move &Up", "A second part stands directly behind its ship"};
  form.cmdMoveDown = {"Move D&own", "A second part stands directly behind its ship"};
  form.cmdSave = {"Sa&ve", "Writes the list into Oravin's folder"};
  form.cmdCancel.caption = "&Cancel";
  return form;
}

bool EditShipList(Host& host, ShipListForm& form, const ShipListDraft& draft, const std::string& path) {
  form.ships = draft.ships;
  form.blocks = draft.blocks;
  form.path = path;
  form.changed = false;
  form.saved = false;
  form.lblPurpose.caption = PurposeOf(draft);
  ShowLines(form, 0);
  form.shown = true;
  ShowForm(host, shipListForm);
  form.shown = false;
  return form.saved;
}

void lstShips_ItemClick(Host& host, ShipListForm& form) {
  const auto chosen = SelectedRow(form.lstShips);
  if (chosen != form.line && HasTyped(form)) {
    if (!Apply(host, form)) return SelectOnly(form.lstShips, form.line);
    SelectOnly(form.lstShips, chosen);
  }
  ShowFields(form);
}

void cmdApply_Click(Host& host, ShipListForm& form) { Apply(host, form); }

void cmdRemoveLine_Click(ShipListForm& form) {
  const auto row = SelectedRow(form.lstShips);
  if (!row || *row >= form.ships.size()) return;
  form.ships.erase(form.ships.begin() + static_cast<std::ptrdiff_t>(*row));
  form.changed = true;
  const std::size_t last = form.ships.empty() ? 0 : form.ships.size() - 1;
  ShowLines(form, std::min(*row, last));
}

void cmdMoveUp_Click(Host& host, ShipListForm& form) { Move(host, form, true); }

void cmdMoveDown_Click(Host& host, ShipListForm& form) { Move(host, form, false); }

void cmdSave_Click(Host& host, ShipListForm& form) {
  if (HasTyped(form) && !Apply(host, form)) return;
  const std::vector<ListedShip> ships = ShipsOf(form.ships);
  if (const auto fault = WhyNotSaved(ships)) {
    if (fault->line) {
      SelectOnly(form.lstShips, fault->line);
      ShowFields(form);
    }
    RefuseLine(host, fault->text + "\nThe ship list was not saved.");
    return;
  }
  if (!SaveShipList(host, form.path, ships)) return;
  form.saved = true;
  form.changed = false;
  form.shown = false;
}

void cmdCancel_Click(Host& host, ShipListForm& form) {
  if ((form.changed || HasTyped(form)) &&
      !AskYesNo(host, "The list was changed. Do you want to close it without saving?", listTitle))
    return;
  form.shown = false;
}

}  // namespace oravin
