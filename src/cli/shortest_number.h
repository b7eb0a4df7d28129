#pragma once

#include <string>

#include "cli/json_forms.h"

namespace oravin {

/// The shortest decimal text that reads back as the same single-precision number: 0.1, 250, 1e+20.
std::string ShortestText(float number);

/// The same as a JSON number; null for what JSON has no number for (infinite, not a number).
Json ShortestJson(float number);

}  // namespace oravin
