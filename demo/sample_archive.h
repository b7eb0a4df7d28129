// The archive of the sample installation.
#pragma once

#include <filesystem>
#include <vector>

#include "demo/model_writer.h"
#include "demo/sample.h"
#include "demo/ship_list.h"

namespace oravin::demo {

/// The model file of a planned ship, the same each time.
Bytes BuildShipModel(const PlannedShip& ship);

/// Writes resource.hog: the stock models under their file names, without a folder, spread among other entries whose
/// names have folders. Entry by entry; no more than one entry is held in memory.
void WriteSampleArchive(const std::filesystem::path& path, const std::vector<PlannedShip>& ships,
                        const SampleOptions& options);

}  // namespace oravin::demo
