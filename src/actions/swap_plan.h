#pragma once

#include "desk/write_plan.h"
#include "installation/installation.h"

namespace oravin {

/// What a swap of two known ships is going to write.
/// @throws FileError where the system cannot say which files are there
WritePlan PlanSwap(Files& files, const Installation& installation, int target, int source);

/// What the unswap of a swapped ship is going to write. Throws as PlanSwap.
WritePlan PlanUnswap(Files& files, const Installation& installation, int target);

}  // namespace oravin
