// Writer of flight statistics: blocks of shipstats.bin and the texts of add-on ships.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "demo/bytes.h"

namespace oravin::demo {

inline constexpr std::size_t kStatsBlockSize = 352;

/// The fifteen statistics in the order of the file: max speed, inertia, yaw max, yaw inertia, pitch max, pitch inertia,
/// roll max, roll inertia, shield strength, armor strength, afterburner fuel, shield recharge, gun energy, gun
/// recharge, ammo.
using SampleStats = std::array<float, 15>;

/// Plausible statistics for a fighter or a capital ship: the four inertias from 0 to 1, the others from 0 to
/// 10,000,000.
SampleStats MakeStats(std::uint64_t seed, bool capital);

/// One block of shipstats.bin: the name in 64 bytes, the statistics, then 228 bytes of the game, none of them zero.
Bytes BuildStatsBlock(const std::string& name, const SampleStats& stats);

/// The text of addons\stats\<ship>.txt: the fifteen values, one per line (CR LF), in the order of the window (shield
/// recharge directly after shield strength).
std::string BuildStatsText(const SampleStats& stats);

}  // namespace oravin::demo
