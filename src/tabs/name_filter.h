#pragma once

#include <string>
#include <string_view>

namespace oravin {

/// Which names a person wants to see. Upper and lower case do not matter.
struct NameFilter {
  std::string wanted;    ///< in upper case, without blanks at the ends; empty for all names
  bool pattern = false;  ///< the name must match it as a whole, `*` for any characters and `?` for one
};

/// What a filter box says: a text that names must hold, or a pattern when it has `*` or `?`.
NameFilter FilterFrom(std::string_view typed);

bool Passes(const NameFilter& filter, std::string_view name);

}  // namespace oravin
