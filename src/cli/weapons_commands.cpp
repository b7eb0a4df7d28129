#include <algorithm>
#include <string>
#include <vector>

#include "app/handlers.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/ship_names.h"
#include "cli/text_table.h"
#include "cli/weapon_types.h"
#include "tabs/stats_show.h"

namespace oravin {

namespace {

/// Selects a ship and lists its weapons; null when a box or an error has said why that cannot be.
const ShipRecord* ShipWithWeapons(Session& session, const std::string& name) {
  const ShipRecord* ship = SelectShip(session, name);
  if (ship == nullptr) return nullptr;
  const int failuresBefore = session.console.failures;
  // Only the weapons: a click on the ship reads its statistics and those of all others too.
  DisplayWeapons(session.main.host, session.main.stats, session.main.installation);
  return session.console.failures == failuresBefore ? ship : nullptr;
}

/// The attachments that a row of the weapons shows: one, or both of a pair.
std::vector<std::size_t> AttachmentsOf(const StatsTab& tab, std::size_t row) {
  const auto first = static_cast<std::size_t>(tab.shipWeaponsList.rows.at(row).item);
  if (!tab.pairs.paired.at(first)) return {first};
  return {first, static_cast<std::size_t>(tab.pairs.partner.at(first))};
}

/// The row that shows an attachment.
std::size_t RowWith(const StatsTab& tab, std::size_t attachment) {
  std::size_t row = 0;
  for (; row < tab.shipWeaponsList.rows.size(); ++row) {
    const std::vector<std::size_t> shown = AttachmentsOf(tab, row);
    if (std::find(shown.begin(), shown.end(), attachment) != shown.end()) break;
  }
  return row;
}

Json JsonOf(const StatsTab& tab, std::size_t row) {
  Json attachments = Json::array();
  for (const std::size_t index : AttachmentsOf(tab, row)) {
    const ShpAttachment& attachment = tab.attachments.at(index);
    attachments.push_back(Json{{"index", index},
                               {"filePosition", attachment.filePosition},
                               {"kind", attachment.kind},
                               {"x", attachment.x},
                               {"y", attachment.y},
                               {"z", attachment.z},
                               {"gunType", attachment.gunType},
                               {"externalGunType", attachment.externalGunType}});
  }
  return {{"row", row + 1}, {"name", tab.shipWeaponsList.rows.at(row).texts.at(0)}, {"attachments", attachments}};
}

std::string WeaponsTable(const StatsTab& tab) {
  std::vector<std::vector<std::string>> rows;
  for (std::size_t row = 0; row < tab.shipWeaponsList.rows.size(); ++row) {
    const std::vector<std::size_t> shown = AttachmentsOf(tab, row);
    std::string indices;
    for (const std::size_t index : shown) indices += (indices.empty() ? "" : ", ") + std::to_string(index);
    const ShpAttachment& first = tab.attachments.at(shown.front());
    rows.push_back({std::to_string(row + 1), tab.shipWeaponsList.rows[row].texts.at(0), indices,
                    std::to_string(first.x), std::to_string(first.y), std::to_string(first.z)});
  }
  return TextTable({{"Row", true}, {"Weapon"}, {"Attachments"}, {"X", true}, {"Y", true}, {"Z", true}}, rows);
}

/// The row that a number from 1 means; says which there are when it means none.
std::optional<std::size_t> RowNumbered(Session& session, const ShipRecord& ship, const std::string& number) {
  const std::size_t rows = session.main.stats.shipWeaponsList.rows.size();
  for (std::size_t row = 0; row < rows; ++row) {
    if (Trim(number) == std::to_string(row + 1)) return row;
  }
  const std::string which = rows == 0   ? " has no weapons"
                            : rows == 1 ? " has one weapon, in row 1"
                                        : " has its weapons in the rows 1 to " + std::to_string(rows);
  SayError(session.console, "there is no row \"" + number + "\"; " + ship.ShipName.Trimmed() + which);
  return std::nullopt;
}

Result CloakOf(const StatsTab& tab, const ShipRecord& ship) {
  const std::string name = ToUtf8(ship.ShipName.Trimmed());
  const std::string& kind = tab.lblShipClass.caption;
  return {{{"ship", name}, {"class", kind}, {"cloakingDevice", tab.chkHasCloak.checked}}, name + ": " + kind + "\n"};
}

}  // namespace

std::optional<Result> ListWeapons(Session& session, const Values& values) {
  const ShipRecord* ship = ShipWithWeapons(session, values.at(0));
  if (ship == nullptr) return std::nullopt;
  const StatsTab& tab = session.main.stats;
  const std::string name = ToUtf8(ship->ShipName.Trimmed());
  Json weapons = Json::array();
  for (std::size_t row = 0; row < tab.shipWeaponsList.rows.size(); ++row) weapons.push_back(JsonOf(tab, row));
  return Result{{{"ship", name}, {"weapons", weapons}},
                weapons.empty() ? name + " has no weapons.\n" : WeaponsTable(tab)};
}

std::optional<Result> SetWeapon(Session& session, const Values& values) {
  const ShipRecord* ship = ShipWithWeapons(session, values.at(0));
  if (ship == nullptr) return std::nullopt;
  StatsTab& tab = session.main.stats;
  const auto row = RowNumbered(session, *ship, values.at(1));
  if (!row) return std::nullopt;
  const auto code = values.arguments.size() > 3 ? std::optional(values.at(3)) : std::nullopt;
  const auto choice = ChoiceOf(session, values.at(2), code);
  if (!choice) return std::nullopt;
  const std::size_t attachment = AttachmentsOf(tab, *row).front();
  SelectOnly(tab.shipWeaponsList, *row);
  Run(session.main, "stats.shipWeaponsList.ItemClick");
  tab.clickedType = choice->type;
  const int failuresBefore = session.console.failures;
  Run(session.main, choice->handler);
  if (session.console.failures > failuresBefore) return std::nullopt;
  // What two attachments became may make a pair of them, or part one: rows may have moved.
  const std::size_t now = RowWith(tab, attachment);
  Json document = {{"action", "set"}, {"ship", ToUtf8(ship->ShipName.Trimmed())}};
  document.update(JsonOf(tab, now));
  return Result{document, ToUtf8(ship->ShipName.Trimmed()) + ", row " + std::to_string(now + 1) + ": " +
                              tab.shipWeaponsList.rows.at(now).texts.at(0) + "\n"};
}

std::optional<Result> RestoreShipWeapons(Session& session, const Values& values) {
  const ShipRecord* ship = SelectShip(session, values.at(0));
  if (ship == nullptr) return std::nullopt;
  const int failuresBefore = session.console.failures;
  Run(session.main, "stats.cmdRestoreWeapons");
  if (session.console.failures > failuresBefore) return std::nullopt;
  const std::string name = ToUtf8(ship->ShipName.Trimmed());
  return Result{{{"action", "restore"}, {"ship", name}}, name + " has the weapons of its original model.\n"};
}

std::optional<Result> ShowCloak(Session& session, const Values& values) {
  const ShipRecord* ship = ShipWithWeapons(session, values.at(0));
  if (ship == nullptr) return std::nullopt;
  return CloakOf(session.main.stats, *ship);
}

std::optional<Result> ToggleShipCloak(Session& session, const Values& values) {
  const ShipRecord* ship = SelectShip(session, values.at(0));
  if (ship == nullptr) return std::nullopt;
  const int failuresBefore = session.console.failures;
  Run(session.main, "stats.chkHasCloak.MouseUp");
  if (session.console.failures > failuresBefore) return std::nullopt;
  Result result = CloakOf(session.main.stats, *ship);
  Json document = {{"action", "toggle"}};
  document.update(result.document);
  return Result{document, result.text};
}

}  // namespace oravin
