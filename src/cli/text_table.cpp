#include "cli/text_table.h"

#include <algorithm>

#include "base/text.h"

namespace oravin {

namespace {

std::string Line(const std::vector<TextColumn>& columns, const std::vector<std::size_t>& widths,
                 const std::vector<std::string>& texts) {
  std::string line;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string padding(widths[i] - texts[i].size(), ' ');
    line += (i > 0 ? "  " : "") + (columns[i].number ? padding + texts[i] : texts[i] + padding);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return ToUtf8(line) + "\n";
}

}  // namespace

std::string TextTable(const std::vector<TextColumn>& columns, const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::string> headings;
  std::vector<std::size_t> widths;
  for (const TextColumn& column : columns) {
    headings.push_back(column.heading);
    widths.push_back(column.heading.size());
  }
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < columns.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  const bool headed = std::any_of(headings.begin(), headings.end(), [](const auto& text) { return !text.empty(); });
  std::string table = headed ? Line(columns, widths, headings) : std::string();
  for (const auto& row : rows) table += Line(columns, widths, row);
  return table;
}

}  // namespace oravin
