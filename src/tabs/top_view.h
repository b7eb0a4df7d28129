#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "models/weapons.h"

/// A small picture of a model's attachments seen from above: x across, z along.
namespace oravin {

/// One attachment. Both places go from 0 to 1 in the same scale; x = 0 lies in the middle, larger z higher up.
struct TopViewPoint {
  double across = 0;  ///< 0 at the left, for the smallest x
  double along = 0;   ///< 0 at the top, for the largest z
  std::size_t attachment = 0;
  bool missile = false;
  bool selected = false;
};

struct TopView {
  std::vector<TopViewPoint> points;  ///< attachments that were only counted have none
};

/// Makes the picture.
/// @param selected the index of an attachment; its partner is marked as well
TopView TopViewOf(std::span<const ShpAttachment> attachments, const WeaponPairs& pairs,
                  std::optional<std::size_t> selected);

}  // namespace oravin
