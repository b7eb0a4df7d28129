#include "installation/imported_lines.h"

#include <set>

#include "lists/ship_list_edit.h"

namespace oravin {

std::vector<std::optional<std::size_t>> FindImportedLines(const ShipListText& list, const Ships& ships) {
  std::vector<std::optional<std::size_t>> lines;
  std::set<std::size_t> taken;
  for (const ShipRecord& ship : ships) {
    const std::string name = ship.ShipName.Trimmed();
    auto line = FindImportedLine(list, name, ModelOf(ship));
    while (line && !taken.insert(*line).second) line = FindImportedLine(list, name, ModelOf(ship), *line + 1);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace oravin
