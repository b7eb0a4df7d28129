#include "cli/weapon_types.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "models/weapons.h"

namespace oravin {

namespace {

/// One of the two menus that hold several weapons.
struct Menu {
  const std::vector<TypeItem>& items;
  std::string (*nameOf)(int code);
  const char* handler;
  const char* kind;
};

std::string ItemsOf(const Menu& menu) {
  std::string items;
  for (const TypeItem& item : menu.items) {
    items += (items.empty() ? "" : ", ") + std::to_string(item.Index) + " " + item.item.caption;
  }
  return items;
}

std::optional<WeaponChoice> ChoiceIn(Session& session, const Menu& menu, const std::optional<std::string>& code) {
  const auto named = [&](const TypeItem& item) {
    return Trim(*code) == std::to_string(item.Index) || SameName(*code, item.item.caption) ||
           SameName(*code, menu.nameOf(item.Index));
  };
  if (code) {
    const auto item = std::find_if(menu.items.begin(), menu.items.end(), named);
    if (item != menu.items.end()) return WeaponChoice{item->Index, menu.handler};
  }
  const std::string wrong = code ? "there is no " + std::string(menu.kind) + " \"" + *code + "\""
                                 : "the code of the " + std::string(menu.kind) + " is missing";
  SayError(session.console, wrong + "; there are: " + ItemsOf(menu));
  return std::nullopt;
}

}  // namespace

std::optional<WeaponChoice> ChoiceOf(Session& session, const std::string& type,
                                     const std::optional<std::string>& code) {
  const StatsTab& tab = session.main.stats;
  if (SameName(type, "gun")) {
    return ChoiceIn(session, {tab.pldGunType, GetGunName, "stats.pldGunType", "gun"}, code);
  }
  if (SameName(type, "external")) {
    return ChoiceIn(session, {tab.pldExtGunType, GetExtGunName, "stats.pldExtGunType", "external gun"}, code);
  }
  if (!SameName(type, "missile")) {
    SayError(session.console, "there is no type of weapons \"" + type + "\"; there are: gun, external, missile");
    return std::nullopt;
  }
  if (code) {
    SayError(session.console, "a missile takes no code; \"" + *code + "\" is one too many");
    return std::nullopt;
  }
  return WeaponChoice{tab.pldMissileType.at(0).Index, "stats.pldMissileType"};
}

}  // namespace oravin
