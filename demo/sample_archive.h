// The archive of the sample installation.
#pragma once

#include <filesystem>
#include <vector>

#include "demo/model_writer.h"
#include "demo/sample.h"
#include "demo/ship_list.h"

namespace oravin::demo {

/// The model file of a planned ship; always the same.
Bytes BuildShipModel(const PlannedShip& ship);

/// Writes resource.hog: the stock models under their file names, without folders, spread among other entries whose
/// names have folders. At most one entry is in memory.
void WriteSampleArchive(const std::filesystem::path& path, const std::vector<PlannedShip>& ships,
                        const SampleOptions& options);

}  // namespace oravin::demo
