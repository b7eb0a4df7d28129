#pragma once

#include <string>

#include "cli/json_forms.h"

namespace oravin {

/// What NumberText makes of a number, as a JSON number; null for what JSON has no number for (infinite, not a number).
Json ShortestJson(float number);

}  // namespace oravin
