#include "actions/edit_stats.h"

#include <span>
#include <vector>

#include "actions/restore_stats.h"
#include "base/number_text.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "installation/stats_source.h"

namespace oravin {

namespace {

constexpr double highestValue = 10000000;
constexpr const char* noDefault = "Imported Ships have no default";

/// The rows 2, 4, 6 and 8, counted from 1.
bool IsInertia(std::size_t row) { return row % 2 == 1 && row < 8; }

/// The number of a text for a row; nothing when a box has refused it.
std::optional<float> ValueFor(Host& host, std::size_t row, const std::string& text) {
  const auto number = Trim(text).empty() ? 0.0 : NumberFrom(text);
  // The typed number is compared, not the rounded one, which may lie inside the limit.
  if (number && *number >= 0 && *number <= (IsInertia(row) ? 1 : highestValue)) {
    return static_cast<float>(*number) + 0.0F;  // no minus before a zero
  }
  Show(host,
       IsInertia(row) ? "Inertia must be a value between 0 and 1." : "This value must be between 0 and 10,000,000",
       Icon::exclamation);
  return std::nullopt;
}

bool PutShipsStats(Host& host, const Installation& installation, const ShipRecord& ship, const ShipStats& stats) {
  const StatsSource source = SourceOf(installation, ship);
  return Trap(host, "PutShipsStats", [&] { WriteShipsStats(host.files, source.path, source.index, stats); });
}

/// The records of a ship: its own, and that of its second part.
std::span<const ShipRecord> PartsAt(const Installation& installation, int index) {
  const auto first = static_cast<std::size_t>(index);
  const auto parts = static_cast<std::size_t>(PartsOf(installation.ships[first]));
  return std::span(installation.ships).subspan(first, parts);
}

/// Restores each part of a ship without a box.
/// @return why one of them could not be restored; empty where all were
std::string RestoreParts(Files& files, const Installation& installation, std::span<const ShipRecord> parts) {
  std::string why;
  for (const ShipRecord& part : parts) {
    std::string problem = noDefault;
    if (!HasNoDefault(files, installation, part)) {
      const auto failure = RestoreDefault(files, installation, part);
      problem = failure ? failure->error.what() : "";
    }
    if (why.empty()) why = problem;
  }
  return why;
}

void ReportRestored(Host& host, unsigned restored, const std::vector<std::string>& failed) {
  const std::string count = "The statistics of " + Grouped(restored) + (restored == 1 ? " ship" : " ships") +
                            (restored == 1 ? " was" : " were") + " restored.";
  if (failed.empty()) {
    ShowSuccess(host, count, Icon::information);
  } else {
    Show(host, count + "\nThese could not be restored:" + Listed(failed), Icon::exclamation);
  }
}

}  // namespace

std::optional<ShipStats> GetShipsStats(Host& host, const Installation& installation, const ShipRecord& ship) {
  const StatsSource source = SourceOf(installation, ship);
  return Trapped(host, "GetShipsStats", std::optional<ShipStats>(),
                 [&] { return std::optional(ReadShipsStats(host.files, source.path, source.index)); });
}

std::optional<float> EditStat(Host& host, const Installation& installation, const ShipRecord& ship, std::size_t row,
                              const std::string& text) {
  const auto value = ValueFor(host, row, text);
  if (!value) return std::nullopt;
  auto stats = GetShipsStats(host, installation, ship);
  if (!stats) return std::nullopt;
  stats->values.at(statsRows.at(row).field) = *value;
  return PutShipsStats(host, installation, ship, *stats) ? value : std::nullopt;
}

bool PasteStats(Host& host, const Installation& installation, int from, int to) {
  const auto stats = GetShipsStats(host, installation, installation.ships[static_cast<std::size_t>(from)]);
  if (!stats) return false;
  bool changed = false;
  for (const ShipRecord& part : PartsAt(installation, to)) {
    if (!PutShipsStats(host, installation, part, *stats)) break;
    changed = true;
  }
  return changed;
}

void RestoreDefaults(Host& host, const Installation& installation, int ship) {
  bool without = false;
  for (const ShipRecord& part : PartsAt(installation, ship)) {
    const bool none = HasNoDefault(host.files, installation, part);
    const auto failure = none ? std::nullopt : RestoreDefault(host.files, installation, part);
    if (failure) ShowTrapped(host, failure->procedure, failure->error);
    const bool unreadable = failure && failure->reading && part.Imported;
    without = without || none || unreadable;
    if (failure && !unreadable) break;
  }
  if (without) Show(host, noDefault, Icon::exclamation);
}

bool RestoreAllDefaults(Host& host, const Installation& installation) {
  WritePlan plan;
  plan.files = {installation.statsPath(), installation.defaultsPath()};
  if (installation.ships.empty() || !ReadyToWrite(host, plan)) return false;
  unsigned restored = 0;
  std::vector<std::string> failed;
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    const ShipRecord& ship = installation.ships[i];
    if (IsInert(ship)) continue;
    const std::string why = RestoreParts(host.files, installation, PartsAt(installation, static_cast<int>(i)));
    if (why.empty()) {
      ++restored;
    } else {
      failed.push_back(ship.ShipName.Trimmed() + ": " + why);
    }
    if (ship.HasSecondPart) ++i;
  }
  ReportRestored(host, restored, failed);
  return true;
}

}  // namespace oravin
