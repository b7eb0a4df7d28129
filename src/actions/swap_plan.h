#pragma once

#include "desk/write_plan.h"
#include "installation/installation.h"

namespace oravin {

/// What a swap of two known ships is going to write.
WritePlan PlanSwap(Files& files, const Installation& installation, int target, int source);

/// What putting a changed ship back is going to write.
WritePlan PlanUnswap(Files& files, const Installation& installation, int target);

}  // namespace oravin
