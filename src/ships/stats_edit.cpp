#include "ships/stats_edit.h"

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "ships/stats_show.h"
#include "ships/stats_source.h"
#include "util/File_Path.h"
#include "util/number_text.h"
#include "util/text.h"

namespace oravin {

namespace {

constexpr double highestValue = 10000000;
constexpr const char* noDefault = "Imported Ships have no default";

/// The rows 2, 4, 6 and 8, counted from 1.
bool IsInertia(std::size_t row) { return row % 2 == 1 && row < 8; }

/// The number that a row is to hold; nothing when a box has refused it.
std::optional<float> ValueFor(Host& host, std::size_t row, const std::string& text) {
  const auto number = Trim(text).empty() ? 0.0 : NumberFrom(text);
  // The number as it was typed counts, so that none which only rounds to the limit comes in.
  if (number && *number >= 0 && *number <= (IsInertia(row) ? 1 : highestValue)) {
    return static_cast<float>(*number) + 0.0F;  // no minus before a zero
  }
  Show(host,
       IsInertia(row) ? "Inertia must be a value between 0 and 1." : "This value must be between 0 and 10,000,000",
       Icon::exclamation);
  return std::nullopt;
}

bool WriteValue(Host& host, const Installation& installation, const ShipRecord& ship, std::size_t row, float value) {
  StatsSource source = SourceOf(installation, ship);
  ShipStats stats;
  if (!GetShipsStats(host, source.path, source.index, stats)) return false;
  stats.values.at(statsRows.at(row).field) = value;
  return PutShipsStats(host, source.path, source.index, stats);
}

/// Puts one ship's defaults back.
/// @throws RunTimeError when it has none or a file fails
void PutDefaults(Files& files, const Installation& installation, const ShipRecord& ship) {
  const ShipStats stats = ReadDefaults(files, installation, ship);
  const StatsSource source = SourceOf(installation, ship);
  WriteShipsStats(files, source.path, source.index, stats);
}

/// True for an imported ship that nothing can be restored for.
bool HasNoDefault(const Installation& installation, const ShipRecord& ship) {
  return ship.Imported && (WholeNumber(ship.StatsIndex) == 0 || !FileExists(StatsTextOf(installation, ship)));
}

void RestoreImported(Host& host, const Installation& installation, const ShipRecord& ship) {
  std::string text = StatsTextOf(installation, ship);
  ShipStats stats;
  if (HasNoDefault(installation, ship) || !GetImportStats(host, text, stats)) {
    Show(host, noDefault, Icon::exclamation);
    return;
  }
  StatsSource source = SourceOf(installation, ship);
  PutShipsStats(host, source.path, source.index, stats);
}

void RestoreStock(Host& host, const Installation& installation, const ShipRecord& ship) {
  StatsSource source = SourceOf(installation, ship);
  std::string defaults = installation.GamePath + "shipstats.def";
  ShipStats stats;
  if (GetShipsStats(host, defaults, source.index, stats)) PutShipsStats(host, source.path, source.index, stats);
}

/// Puts the defaults of a ship and of its second part back; returns why not, in words, where that cannot be.
std::string RestoreQuietly(Files& files, const Installation& installation, std::size_t first) {
  const std::size_t end = first + static_cast<std::size_t>(PartsOf(installation.ships[first]));
  for (std::size_t part = first; part < end; ++part) {
    const ShipRecord& ship = installation.ships[part];
    if (HasNoDefault(installation, ship)) return noDefault;
    try {
      PutDefaults(files, installation, ship);
    } catch (const RunTimeError& error) {
      return error.what();
    }
  }
  return "";
}

}  // namespace

void shipStatsList_AfterLabelEdit(Host& host, StatsTab& tab, const Installation& installation) {
  LabelEdit& edited = tab.shipStatsList.edited;
  edited.refused = true;
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  if (ship == nullptr || edited.row >= statsRows.size()) return;
  const auto value = ValueFor(host, edited.row, edited.text);
  if (!value) return;
  if (!WriteValue(host, installation, *ship, edited.row, *value)) return;
  edited.text = NumberText(*value);
  edited.refused = false;
  DisplayShipStats(host, tab, installation);
}

void pldStatsCopy_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const int index = SelectedShip(tab);
  const ShipRecord* ship = ShipAt(installation, index);
  if (ship == nullptr) return;
  tab.remembered = RememberedShip{index, ship->ShipName.Trimmed()};
  DisplayShipStats(host, tab, installation);
  EnableStatsControls(tab);
}

void pldStatsPaste_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  const ShipRecord* from = ShipAt(installation, RememberedShipIn(tab, installation.ships));
  if (ship == nullptr || from == nullptr) return;
  StatsSource source = SourceOf(installation, *from);
  StatsSource destination = SourceOf(installation, *ship);
  ShipStats stats;
  if (!GetShipsStats(host, source.path, source.index, stats)) return;
  if (!PutShipsStats(host, destination.path, destination.index, stats)) return;
  DisplayShipStats(host, tab, installation);
}

void pldStatsRestoreDefault_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  if (ship == nullptr) return;
  if (ship->Imported) {
    RestoreImported(host, installation, *ship);
  } else {
    RestoreStock(host, installation, *ship);
  }
  DisplayShipStats(host, tab, installation);
}

void cmdRestoreShipStats_Click(Host& host, StatsTab& tab, const Installation& installation) {
  pldStatsRestoreDefault_Click(host, tab, installation);
}

void cmdRestoreAllStats_Click(Host& host, StatsTab& tab, const Installation& installation) {
  WritePlan plan;
  plan.files = {installation.GamePath + "shipstats.bin", installation.GamePath + "shipstats.def"};
  if (installation.ships.empty() || !ReadyToWrite(host, plan)) return;
  unsigned restored = 0;
  std::vector<std::string> failed;
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    const ShipRecord& ship = installation.ships[i];
    if (IsInert(ship)) continue;
    const std::string why = RestoreQuietly(host.files, installation, i);
    if (why.empty()) {
      ++restored;
    } else {
      failed.push_back(ship.ShipName.Trimmed() + ": " + why);
    }
    if (ship.HasSecondPart) ++i;
  }
  const std::string count = "The statistics of " + Grouped(restored) + (restored == 1 ? " ship" : " ships") +
                            (restored == 1 ? " was" : " were") + " restored.";
  if (failed.empty()) {
    ShowSuccess(host, count, Icon::information);
  } else {
    Show(host, count + "\nThese could not be restored:" + Listed(failed), Icon::exclamation);
  }
  if (SelectedShip(tab) >= 0) DisplayShipStats(host, tab, installation);
}

}  // namespace oravin
