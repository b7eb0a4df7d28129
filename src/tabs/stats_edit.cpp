#include "tabs/stats_edit.h"

#include <span>

#include "base/number_text.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "installation/stats_source.h"
#include "tabs/stats_show.h"

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
/// @throws FileError when it has none or a file fails
void PutDefaults(Files& files, const Installation& installation, const ShipRecord& ship) {
  const ShipStats stats = ReadDefaults(files, installation, ship);
  const StatsSource source = SourceOf(installation, ship);
  WriteShipsStats(files, source.path, source.index, stats);
}

/// True for an imported ship that nothing can be restored for.
bool HasNoDefault(Files& files, const Installation& installation, const ShipRecord& ship) {
  return ship.Imported && (WholeNumber(ship.StatsIndex) == 0 || !FileExists(files, StatsTextOf(installation, ship)));
}

/// The records of a ship: its own, and that of its second part.
std::span<const ShipRecord> PartsAt(const Installation& installation, int index) {
  const auto first = static_cast<std::size_t>(index);
  const auto parts = static_cast<std::size_t>(PartsOf(installation.ships[first]));
  return std::span(installation.ships).subspan(first, parts);
}

/// The default statistics of one part; nothing where it has none or they cannot be read, after a box in all cases but
/// that of an imported ship without any.
std::optional<ShipStats> DefaultsToRestore(Host& host, const Installation& installation, const ShipRecord& part) {
  ShipStats stats;
  if (part.Imported) {
    std::string text = StatsTextOf(installation, part);
    const bool read = !HasNoDefault(host.files, installation, part) && GetImportStats(host, text, stats);
    return read ? std::optional(stats) : std::nullopt;
  }
  std::string defaults = installation.defaultsPath();
  const bool read = GetShipsStats(host, defaults, SourceOf(installation, part).index, stats);
  return read ? std::optional(stats) : std::nullopt;
}

/// Gives each part its own default. A part without one does not keep the other from its own, and is reported once; a
/// file that fails ends it, so that there is one box about that, too.
void RestoreParts(Host& host, const Installation& installation, std::span<const ShipRecord> parts) {
  bool without = false;
  for (const ShipRecord& part : parts) {
    const auto stats = DefaultsToRestore(host, installation, part);
    if (!stats && part.Imported) {
      without = true;
      continue;
    }
    StatsSource source = SourceOf(installation, part);
    if (!stats || !PutShipsStats(host, source.path, source.index, *stats)) break;
  }
  if (without) Show(host, noDefault, Icon::exclamation);
}

/// Gives each part of a ship its own default; returns why not, in words, where that cannot be for one of them.
std::string RestoreQuietly(Files& files, const Installation& installation, std::span<const ShipRecord> parts) {
  std::string why;
  for (const ShipRecord& part : parts) {
    std::string problem = HasNoDefault(files, installation, part) ? noDefault : "";
    try {
      if (problem.empty()) PutDefaults(files, installation, part);
    } catch (const FileError& error) {
      problem = error.what();
    }
    if (why.empty()) why = problem;
  }
  return why;
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
  const int index = SelectedShip(tab);
  const ShipRecord* from = ShipAt(installation, RememberedShipIn(tab, installation.ships));
  if (ShipAt(installation, index) == nullptr || from == nullptr) return;
  StatsSource source = SourceOf(installation, *from);
  ShipStats stats;
  if (!GetShipsStats(host, source.path, source.index, stats)) return;
  bool changed = false;
  for (const ShipRecord& part : PartsAt(installation, index)) {
    StatsSource destination = SourceOf(installation, part);
    if (!PutShipsStats(host, destination.path, destination.index, stats)) break;
    changed = true;
  }
  if (changed) DisplayShipStats(host, tab, installation);
}

void pldStatsRestoreDefault_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const int index = SelectedShip(tab);
  if (ShipAt(installation, index) == nullptr) return;
  RestoreParts(host, installation, PartsAt(installation, index));
  DisplayShipStats(host, tab, installation);
}

void cmdRestoreShipStats_Click(Host& host, StatsTab& tab, const Installation& installation) {
  pldStatsRestoreDefault_Click(host, tab, installation);
}

void cmdRestoreAllStats_Click(Host& host, StatsTab& tab, const Installation& installation) {
  WritePlan plan;
  plan.files = {installation.statsPath(), installation.defaultsPath()};
  if (installation.ships.empty() || !ReadyToWrite(host, plan)) return;
  unsigned restored = 0;
  std::vector<std::string> failed;
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    const ShipRecord& ship = installation.ships[i];
    if (IsInert(ship)) continue;
    const std::string why = RestoreQuietly(host.files, installation, PartsAt(installation, static_cast<int>(i)));
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
