#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "catalogue/ship_record.h"
#include "lists/ship_list.h"

namespace oravin {

/// The ship list's lines of some imported ships, in the ships' order. Ships with the same name and model file get a
/// line each, as far as there are enough.
std::vector<std::optional<std::size_t>> FindImportedLines(const ShipListText& list, const Ships& ships);

}  // namespace oravin
