#pragma once

#include <string>
#include <string_view>

namespace oravin {

/// Which names the user wants to see. Case does not matter.
struct NameFilter {
  std::string wanted;    ///< in upper case, trimmed; empty for all names
  bool pattern = false;  ///< the name must match it as a whole, `*` for any characters and `?` for one
};

/// A filter box's text: names must contain it, or match it as a pattern if it has `*` or `?`.
NameFilter FilterFrom(std::string_view typed);

bool Passes(const NameFilter& filter, std::string_view name);

}  // namespace oravin
