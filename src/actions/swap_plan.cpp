#include "actions/swap_plan.h"

#include <algorithm>

#include "archive/unpack.h"
#include "base/file_error.h"
#include "catalogue/catalogue.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

/// The most bytes that a ship's model takes, whether it is loose or has to be unpacked first.
std::uint64_t ModelSize(Files& files, const Installation& installation, const ShipRecord& ship) {
  const std::uint64_t loose = std::max(LengthOrThrow(files, installation.modelPath(ModelOf(ship))),
                                       LengthOrThrow(files, installation.modelPath(BackupOf(ship))));
  if (loose > 0) return loose;
  try {
    File hog(files, installation.archivePath(), OpenFor::reading);
    return UnpackedSize(hog, Unsigned32(ship.HogSize), Unsigned32(ship.HogOffset));
  } catch (const FileError&) {
    return 0;  // unpacking the model reports an archive that cannot be read
  }
}

void AddModel(WritePlan& plan, const Installation& installation, const ShipRecord& ship) {
  plan.files.push_back(installation.modelPath(ModelOf(ship)));
  plan.files.push_back(installation.modelPath(BackupOf(ship)));
}

WritePlan CommonPlan(const Installation& installation) {
  WritePlan plan;
  plan.files = {installation.cataloguePath(), installation.statsPath()};
  plan.folders = {installation.modelsFolder()};
  return plan;
}

}  // namespace

WritePlan PlanSwap(Files& files, const Installation& installation, int target, int source) {
  WritePlan plan = CommonPlan(installation);
  const auto first = static_cast<std::size_t>(target);
  const ShipRecord& by = installation.ships[static_cast<std::size_t>(source)];
  const std::uint64_t sourceSize = ModelSize(files, installation, by);
  NeedRoom(plan, installation.GamePath, sourceSize);
  // A source that only the archive has is unpacked first, and an older backup of it is deleted.
  if (!by.Imported && !FileIsThere(files, installation.modelPath(ModelOf(by)))) AddModel(plan, installation, by);
  for (std::size_t part = first; part < first + static_cast<std::size_t>(PartsOf(installation.ships[first])); ++part) {
    AddModel(plan, installation, installation.ships[part]);
    NeedRoom(plan, installation.GamePath, sourceSize + ModelSize(files, installation, installation.ships[part]));
  }
  return plan;
}

WritePlan PlanUnswap(Files& files, const Installation& installation, int target) {
  WritePlan plan = CommonPlan(installation);
  const auto first = static_cast<std::size_t>(target);
  for (std::size_t part = first; part < first + static_cast<std::size_t>(PartsOf(installation.ships[first])); ++part) {
    AddModel(plan, installation, installation.ships[part]);
    // Where the archive does not have the model either, the file in its place may have to be kept.
    if (!FileIsThere(files, installation.modelPath(BackupOf(installation.ships[part])))) {
      NeedRoom(plan, installation.ProgramPath,
               LengthOrThrow(files, installation.modelPath(ModelOf(installation.ships[part]))));
    }
    NeedRoom(plan, installation.GamePath, ModelSize(files, installation, installation.ships[part]));
  }
  return plan;
}

}  // namespace oravin
