#include "tabs/top_view.h"

#include <algorithm>
#include <cmath>

namespace oravin {

TopView TopViewOf(std::span<const ShpAttachment> attachments, const WeaponPairs& pairs,
                  std::optional<std::size_t> selected) {
  double halfWidth = 0;
  std::optional<std::pair<double, double>> length;
  for (const ShpAttachment& attachment : attachments) {
    if (attachment.filePosition == 0) continue;
    const double z = attachment.z;
    halfWidth = std::max(halfWidth, std::fabs(static_cast<double>(attachment.x)));
    length = length ? std::pair(std::min(length->first, z), std::max(length->second, z)) : std::pair(z, z);
  }
  TopView view;
  if (!length) return view;
  const double scale = std::max({2 * halfWidth, length->second - length->first, 1.0});
  const double middle = (length->first + length->second) / 2;
  for (std::size_t i = 0; i < attachments.size(); ++i) {
    const ShpAttachment& attachment = attachments[i];
    if (attachment.filePosition == 0) continue;
    const bool partner = selected && pairs.paired[*selected] && pairs.partner[*selected] == static_cast<int>(i);
    view.points.push_back({0.5 + attachment.x / scale, 0.5 - (attachment.z - middle) / scale, i,
                           attachment.kind == missileKind, selected == i || partner});
  }
  return view;
}

}  // namespace oravin
