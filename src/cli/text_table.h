#pragma once

#include <string>
#include <vector>

namespace oravin {

struct TextColumn {
  std::string heading;
  bool number = false;  ///< aligned to the right
};

/// A table with aligned columns, two blanks between them and no blanks at the ends of its lines. Texts come in the
/// core's code page, in which a character is a byte; the table is UTF-8. Without any heading there is no line of them.
std::string TextTable(const std::vector<TextColumn>& columns, const std::vector<std::vector<std::string>>& rows);

}  // namespace oravin
