#pragma once

#include <cstddef>
#include <vector>

#include "catalogue/ship_record.h"

namespace oravin {

/// The indices of the records of an imported ship: one, or two where the next record is its second part. Empty when the
/// index is not that of an imported ship's first record.
std::vector<std::size_t> ImportedParts(const Ships& ships, int index);

}  // namespace oravin
