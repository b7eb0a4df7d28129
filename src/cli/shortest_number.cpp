#include "cli/shortest_number.h"

#include <cmath>

#include "base/number_text.h"

namespace oravin {

Json ShortestJson(float number) {
  if (!std::isfinite(number)) return nullptr;
  if (number == 0.0F && std::signbit(number)) return -0.0;  // as a whole number it would lose its sign
  // The text, not the number, becomes the value: converted to double, 0.1 would read 0.10000000149011612.
  return Json::parse(NumberText(number));
}

}  // namespace oravin
