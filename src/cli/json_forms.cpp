#include "cli/json_forms.h"

#include "base/text.h"
#include "cli/answers.h"

namespace oravin {

namespace {

const char* WordOf(Icon icon) {
  switch (icon) {
    case Icon::exclamation:
      return "exclamation";
    case Icon::critical:
      return "critical";
    case Icon::question:
      return "question";
    case Icon::information:
      return "information";
    case Icon::none:
      break;
  }
  return "none";
}

const char* WordOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::okCancel:
      return "okcancel";
    case Buttons::yesNo:
      return "yesno";
    case Buttons::yesNoCancel:
      return "yesnocancel";
    case Buttons::ok:
      break;
  }
  return "ok";
}

std::string Shown(const ShipText& text) { return ToUtf8(text.Trimmed()); }

}  // namespace

Json JsonOf(const Message& box, Answer answer) {
  return {{"box",
           {{"title", ToUtf8(box.title)},
            {"text", ToUtf8(box.text)},
            {"icon", WordOf(box.icon)},
            {"buttons", WordOf(box.buttons)},
            {"answer", WordOf(answer)}}}};
}

Json JsonOf(const ShipRecord& ship, std::size_t index) {
  Json textures = Json::array();
  for (const ShipText& texture : ship.Textures) textures.push_back(Shown(texture));
  return {{"index", index},
          {"shipName", Shown(ship.ShipName)},
          {"shipFile", Shown(ship.ShipFile)},
          {"shipKind", WholeNumber(ship.ShipKind)},
          {"hogOffset", Unsigned32(ship.HogOffset)},
          {"hogSize", Unsigned32(ship.HogSize)},
          {"hogFatPos", Unsigned32(ship.HogFatPos)},
          {"statsIndex", WholeNumber(ship.StatsIndex)},
          {"textures", textures},
          {"hasSecondPart", ship.HasSecondPart},
          {"secondPartIndex", WholeNumber(ship.SecondPartIndex)},
          {"changed", ship.Changed},
          {"changedToIndex", WholeNumber(ship.ChangedToIndex)},
          {"imported", ship.Imported},
          {"changedToName", Shown(ship.ChangedToName)},
          {"changedToFile", Shown(ship.ChangedToFile)}};
}

Json JsonOf(const Status& status) {
  Json files = Json::array();
  for (const GameFile& file : status.files) {
    files.push_back(Json{{"name", ToUtf8(file.name)},
                         {"found", file.found},
                         {"size", file.size},
                         {"count", file.count},
                         {"counted", file.counted}});
  }
  return {{"gameFolder", ToUtf8(status.gameFolder)},
          {"programFolder", ToUtf8(status.programFolder)},
          {"enabled", status.enabled},
          {"onlyLooks", status.readOnly},
          {"ships", status.ships},
          {"changedShips", status.changedShips},
          {"files", files}};
}

std::string OneLine(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

}  // namespace oravin
