#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// Which block of the statistics is a model's: only the names say it, and those are alike rather than equal.
namespace oravin {

/// How sure it is that a block is a ship's.
enum class MatchSureness {
  exact,   ///< the block has the model's name
  alike,   ///< the same but for case, spaces and punctuation; "IV" is taken for "4"
  prefix,  ///< one of the names begins with the other
  close,   ///< the names differ by a letter or two
  shared,  ///< a second part without a block of its own: its ship's
  none,    ///< no block's name comes near
};

/// The sureness in a word or two: "exact", "alike", "begins alike", "close", "its ship's", "none".
const char* SurenessText(MatchSureness sureness);

/// A model whose block is wanted.
struct NamedModel {
  std::string stem;                 ///< the model's file name without its extension
  std::optional<std::size_t> ship;  ///< of a second part: the index of its ship, which has no ship itself
};

struct StatsMatch {
  std::optional<std::size_t> block;
  MatchSureness sureness = MatchSureness::none;
};

/// Finds the models' blocks. A block is one ship's, save for second parts that share theirs; surer matches come first,
/// of equally sure ones the one whose names differ least, then the first in order. Where there are more than a million
/// pairs of names left to compare, they are not compared: those models have no block.
/// @param blocks the blocks' names; an empty one matches nothing
/// @return one for each model
std::vector<StatsMatch> MatchStats(std::span<const NamedModel> models, std::span<const std::string> blocks);

}  // namespace oravin
