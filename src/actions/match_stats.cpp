#include "actions/match_stats.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include "base/text.h"
#include "files/file.h"

namespace oravin {

namespace {

constexpr std::size_t mostPairs = 1000000;

/// A shorter name is not compared as the start of another one.
constexpr std::size_t shortestPrefix = 3;

constexpr std::array<std::string_view, 9> romanNumbers = {"II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X"};

bool IsLetterOrDigit(char c) {
  const auto code = static_cast<std::uint8_t>(c);
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || code >= 0x80;
}

/// Comparison key of a name: upper case, without spaces and punctuation.
struct NameKey {
  std::string plain;
  std::string numbered;  ///< the same with Roman numbers as digits
};

std::string Numbered(const std::string& word) {
  const auto* const found = std::find(romanNumbers.begin(), romanNumbers.end(), word);
  return found == romanNumbers.end() ? word : std::to_string(found - romanNumbers.begin() + 2);
}

NameKey KeyOf(const std::string& name) {
  NameKey key;
  std::string word;
  const auto endWord = [&] {
    key.plain += word;
    key.numbered += Numbered(word);
    word.clear();
  };
  for (const char c : name) {
    if (IsLetterOrDigit(c)) {
      word += UpperChar(c);
    } else {
      endWord();
    }
  }
  endWord();
  return key;
}

/// The edit distance of two texts; more than `most` counts as `most` + 1.
std::size_t EditDistance(const std::string& a, const std::string& b, std::size_t most) {
  if (a.size() > b.size() + most || b.size() > a.size() + most) return most + 1;
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0U : 1U);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
    }
  }
  return std::min(row.back(), most + 1);
}

/// A possible match; smaller ones are taken first.
struct Candidate {
  MatchSureness sureness = MatchSureness::none;
  std::size_t difference = 0;
  std::size_t model = 0;
  std::size_t block = 0;

  bool operator<(const Candidate& other) const {
    return std::tie(sureness, difference, model, block) <
           std::tie(other.sureness, other.difference, other.model, other.block);
  }
};

std::optional<Candidate> Compare(const std::string& a, const std::string& b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  if (shorter >= shortestPrefix && (a.starts_with(b) || b.starts_with(a))) {
    return Candidate{MatchSureness::prefix, std::max(a.size(), b.size()) - shorter};
  }
  const std::size_t most = shorter >= 7 ? 2 : shorter >= 4 ? 1 : 0;
  const std::size_t distance = most == 0 ? 1 : EditDistance(a, b, most);
  if (distance > most) return std::nullopt;
  return Candidate{MatchSureness::close, distance};
}

/// The state while blocks are assigned.
struct Matching {
  std::span<const NamedModel> models;
  std::span<const std::string> blocks;
  std::vector<NameKey> modelKeys;
  std::vector<NameKey> blockKeys;
  std::vector<bool> taken;  ///< for each block
  std::vector<StatsMatch> matches;
};

void Take(Matching& matching, const Candidate& candidate) {
  if (matching.taken[candidate.block] || matching.matches[candidate.model].block) return;
  matching.taken[candidate.block] = true;
  matching.matches[candidate.model] = {candidate.block, candidate.sureness};
}

/// The blocks of each name in reverse order: taken ones are dropped from the end.
using BlocksByName = std::unordered_map<std::string, std::vector<std::size_t>>;

void TakeEqual(Matching& matching, BlocksByName& blocks, std::size_t model, const std::string& name,
               MatchSureness sureness) {
  const auto found = blocks.find(name);
  if (found == blocks.end() || matching.matches[model].block) return;
  auto& indices = found->second;
  while (!indices.empty() && matching.taken[indices.back()]) indices.pop_back();
  if (!indices.empty()) Take(matching, {sureness, 0, model, indices.back()});
}

void TakeExact(Matching& matching) {
  BlocksByName names;
  BlocksByName keys;
  for (std::size_t i = matching.blocks.size(); i-- > 0;) {
    const NameKey& key = matching.blockKeys[i];
    if (key.plain.empty()) continue;
    names[matching.blocks[i]].push_back(i);
    keys[key.plain].push_back(i);
    if (key.numbered != key.plain) keys[key.numbered].push_back(i);
  }
  for (std::size_t i = 0; i < matching.models.size(); ++i) {
    TakeEqual(matching, names, i, matching.models[i].stem, MatchSureness::exact);
  }
  for (std::size_t i = 0; i < matching.models.size(); ++i) {
    TakeEqual(matching, keys, i, matching.modelKeys[i].plain, MatchSureness::alike);
  }
}

std::vector<std::size_t> FreeBlocks(const Matching& matching) {
  std::vector<std::size_t> free;
  for (std::size_t i = 0; i < matching.blocks.size(); ++i) {
    if (!matching.taken[i] && !matching.blockKeys[i].plain.empty()) free.push_back(i);
  }
  return free;
}

/// The models without a block: ships, or second parts.
std::vector<std::size_t> Waiting(const Matching& matching, bool secondParts) {
  std::vector<std::size_t> waiting;
  for (std::size_t i = 0; i < matching.models.size(); ++i) {
    const bool second = matching.models[i].ship.has_value();
    if (second == secondParts && !matching.matches[i].block && !matching.modelKeys[i].plain.empty()) {
      waiting.push_back(i);
    }
  }
  return waiting;
}

void TakeAll(Matching& matching, std::vector<Candidate>& candidates) {
  std::sort(candidates.begin(), candidates.end());
  for (const Candidate& candidate : candidates) Take(matching, candidate);
}

void TakeSimilar(Matching& matching) {
  const std::vector<std::size_t> ships = Waiting(matching, false);
  const std::vector<std::size_t> blocks = FreeBlocks(matching);
  if (ships.size() * blocks.size() > mostPairs) return;
  std::vector<Candidate> candidates;
  for (const std::size_t ship : ships) {
    for (const std::size_t block : blocks) {
      const NameKey& key = matching.blockKeys[block];
      auto best = Compare(matching.modelKeys[ship].plain, key.plain);
      if (key.numbered != key.plain) {
        const auto other = Compare(matching.modelKeys[ship].plain, key.numbered);
        if (other && (!best || *other < *best)) best = other;
      }
      if (best) candidates.push_back({best->sureness, best->difference, ship, block});
    }
  }
  TakeAll(matching, candidates);
}

/// A block of a second part has its ship's name, or that of the ship's block, in its own.
void TakeForSecondParts(Matching& matching) {
  const std::vector<std::size_t> parts = Waiting(matching, true);
  const std::vector<std::size_t> blocks = FreeBlocks(matching);
  std::vector<Candidate> candidates;
  if (parts.size() * blocks.size() <= mostPairs) {
    for (const std::size_t part : parts) {
      const std::size_t ship = *matching.models[part].ship;
      const auto& shipsBlock = matching.matches[ship].block;
      const std::string& name = shipsBlock ? matching.blockKeys[*shipsBlock].plain : matching.modelKeys[ship].plain;
      if (name.size() < shortestPrefix) continue;
      for (const std::size_t block : blocks) {
        const std::string& key = matching.blockKeys[block].plain;
        if (key.find(name) == std::string::npos) continue;
        candidates.push_back({MatchSureness::prefix, key.size() - name.size(), part, block});
      }
    }
  }
  TakeAll(matching, candidates);
  for (std::size_t i = 0; i < matching.models.size(); ++i) {
    const auto& ship = matching.models[i].ship;
    if (!ship || matching.matches[i].block || !matching.matches[*ship].block) continue;
    matching.matches[i] = {matching.matches[*ship].block, MatchSureness::shared};
  }
}

}  // namespace

const char* SurenessText(MatchSureness sureness) {
  switch (sureness) {
    case MatchSureness::exact:
      return "exact";
    case MatchSureness::alike:
      return "alike";
    case MatchSureness::prefix:
      return "begins alike";
    case MatchSureness::close:
      return "close";
    case MatchSureness::shared:
      return "its ship's";
    case MatchSureness::none:
      break;
  }
  return "none";
}

std::vector<StatsMatch> MatchStats(std::span<const NamedModel> models, std::span<const std::string> blocks) {
  Matching matching{models, blocks, {}, {}, std::vector<bool>(blocks.size()), std::vector<StatsMatch>(models.size())};
  for (const NamedModel& model : models) matching.modelKeys.push_back(KeyOf(model.stem));
  for (const std::string& block : blocks) matching.blockKeys.push_back(KeyOf(block));
  TakeExact(matching);
  TakeSimilar(matching);
  TakeForSecondParts(matching);
  return std::move(matching.matches);
}

}  // namespace oravin
