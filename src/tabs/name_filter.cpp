#include "tabs/name_filter.h"

#include "base/text.h"
#include "files/path.h"

namespace oravin {

namespace {

/// Copies nothing: a hundred thousand names are searched at every keystroke.
bool Holds(std::string_view name, std::string_view wanted) {
  if (wanted.size() > name.size()) return false;
  const std::size_t last = name.size() - wanted.size();
  for (std::size_t at = 0; at <= last; ++at) {
    std::size_t same = 0;
    while (same < wanted.size() && UpperChar(name[at + same]) == wanted[same]) ++same;
    if (same == wanted.size()) return true;
  }
  return false;
}

}  // namespace

NameFilter FilterFrom(std::string_view typed) {
  const std::string wanted = UpperCase(Trim(typed));
  return {wanted, wanted.find_first_of("*?") != std::string::npos};
}

bool Passes(const NameFilter& filter, std::string_view name) {
  return filter.pattern ? MatchesPattern(name, filter.wanted) : Holds(name, filter.wanted);
}

}  // namespace oravin
