#include "actions/imported_parts.h"

namespace oravin {

std::vector<std::size_t> ImportedParts(const Ships& ships, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= ships.size()) return {};
  const auto at = static_cast<std::size_t>(index);
  if (IsInert(ships[at]) || !ships[at].Imported) return {};
  // In a run of same-named records all but the last have HasSecondPart; pair them from the start.
  std::size_t first = at;
  while (first > 0 && ships[first - 1].HasSecondPart && ships[first - 1].Imported) --first;
  if ((at - first) % 2 == 1) return {};
  if (ships[at].HasSecondPart && ships[at + 1].Imported) return {at, at + 1};
  return {at};
}

}  // namespace oravin
