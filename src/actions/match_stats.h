#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// Finds the statistics block of a model by its name; the names are similar rather than equal.
namespace oravin {

/// How sure it is that a block is a ship's.
enum class MatchSureness {
  exact,   ///< the block has the model's name
  alike,   ///< equal except for case, spaces and punctuation; "IV" equals "4"
  prefix,  ///< one of the names starts with the other
  close,   ///< the names differ by one or two letters
  shared,  ///< a second part without a block of its own has its ship's
  none,    ///< no block's name is near
};

/// The sureness in a word or two: "exact", "alike", "begins alike", "close", "its ship's", "none".
const char* SurenessText(MatchSureness sureness);

/// A model to find a block for.
struct NamedModel {
  std::string stem;                 ///< the model's file name without its extension
  std::optional<std::size_t> ship;  ///< of a second part: the index of its ship, which has no ship itself
};

struct StatsMatch {
  std::optional<std::size_t> block;
  MatchSureness sureness = MatchSureness::none;
};

/// Finds the models' blocks. Each block goes to one ship, except that second parts may share their ship's. Surer
/// matches are made first; of equally sure ones the one whose names differ least, then the first in order. More than a
/// million pairs of similar names are not compared: those models have no block.
/// @param blocks the blocks' names; an empty one matches nothing
/// @return a match for each model
std::vector<StatsMatch> MatchStats(std::span<const NamedModel> models, std::span<const std::string> blocks);

}  // namespace oravin
