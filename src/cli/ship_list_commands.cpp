#include "actions/draft_ship_list.h"
#include "actions/ship_list_file.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/text_table.h"
#include "desk/dialogs.h"

namespace oravin {

namespace {

Json JsonOfLine(const DraftedShip& drafted) {
  const ListedShip& ship = drafted.ship;
  return {{"name", ToUtf8(ship.name)},
          {"model", ToUtf8(ship.file)},
          {"kind", ship.kind},
          {"class", drafted.capital ? "capital ship" : "fighter"},
          {"statsIndex", ship.statsIndex},
          {"match", SurenessText(drafted.match)},
          {"texture0", ToUtf8(ship.texture0)},
          {"texture1", ToUtf8(ship.texture1)},
          {"comment", ToUtf8(drafted.comment)}};
}

Json JsonOfDraft(const ShipListDraft& draft) {
  Json ships = Json::array();
  for (const DraftedShip& ship : draft.ships) ships.push_back(JsonOfLine(ship));
  Json passedOver = Json::array();
  for (const PassedOver& model : draft.passedOver) {
    passedOver.push_back(Json{{"name", ToUtf8(model.name)}, {"reason", ToUtf8(model.reason)}});
  }
  Json freeBlocks = Json::array();
  for (const std::string& block : draft.freeBlocks) freeBlocks.push_back(ToUtf8(block));
  return {{"action", "shiplist draft"},
          {"ships", ships},
          {"passedOver", passedOver},
          {"freeBlocks", freeBlocks},
          {"remark", ToUtf8(draft.remark)}};
}

std::string TextOfDraft(const ShipListDraft& draft) {
  std::vector<std::vector<std::string>> rows;
  for (const DraftedShip& drafted : draft.ships) {
    const ListedShip& ship = drafted.ship;
    rows.push_back({ToUtf8(ship.name), ToUtf8(ship.file), drafted.capital ? "capital ship" : "fighter",
                    std::to_string(ship.statsIndex), SurenessText(drafted.match), ToUtf8(ship.texture0),
                    ToUtf8(ship.texture1), ToUtf8(drafted.comment)});
  }
  std::string text = TextTable(
      {{"Name"}, {"Model"}, {"Class"}, {"Block", true}, {"Match"}, {"Texture"}, {"Second texture"}, {"Comment"}}, rows);
  for (const PassedOver& model : draft.passedOver) {
    text += "Left out: " + ToUtf8(model.name) + ": " + ToUtf8(model.reason) + "\n";
  }
  for (const std::string& block : draft.freeBlocks) text += "No ship for the block " + ToUtf8(block) + "\n";
  return draft.remark.empty() ? text : text + ToUtf8(draft.remark) + "\n";
}

}  // namespace

std::optional<Result> DraftList(Session& session, const Values& values) {
  Main& main = session.main;
  const ShipListDraft draft = DraftShipList(main.host, main.installation);
  EndProgress(main.host);
  if (draft.stopped) {
    SayError(session.console, "stopped");
    return std::nullopt;
  }
  if (draft.ships.empty()) {
    SayError(session.console, "no ship models were found in the game's archive");
    return std::nullopt;
  }
  Result result{JsonOfDraft(draft), TextOfDraft(draft)};
  if (!values.Has("--to")) {
    result.text += "Nothing was written; --to FILE writes the list.\n";
    return result;
  }
  const std::string& path = values.Of("--to");
  if (!SaveShipList(main.host, path, ShipsOf(draft.ships))) return std::nullopt;
  result.document["file"] = ToUtf8(path);
  result.text += "Written to " + ToUtf8(path) + "\n";
  return result;
}

}  // namespace oravin
