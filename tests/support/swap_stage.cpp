#include "support/swap_stage.h"

#include "actions/restore_stats.h"
#include "actions/unpack_models.h"

namespace oravin::test {

SwitcherStage::SwitcherStage() {
  installation.GamePath = files.gamePath;
  installation.ProgramPath = files.programPath;
}

HogTable SwitcherStage::Live() {
  File hog(host.files, installation.archivePath(), OpenFor::reading);
  return TableOf(GetHogData(hog, HogCount(hog)));
}

bool SwitcherStage::Build(const HogTable& backup) {
  const std::vector<ListedShip> list = ReadShipList(host.files, installation.shipListPath());
  return BuildCatalogue(host, installation, list, Live(), backup);
}

void SwitcherStage::Enable() {
  BackupShipStats(host, installation);
  EXPECT_TRUE(Build());
  UnpackSetup(host, installation);
}

std::string SwitcherStage::ModelPath(int ship) const {
  return installation.GamePath + "ships\\" + files.ships[At(ship)].file;
}

std::string SwitcherStage::BackupPath(int ship) const {
  const std::string path = ModelPath(ship);
  return path.substr(0, path.size() - 4) + ".org";
}

std::filesystem::path SwitcherStage::Backup(int ship) const { return Model(ship).replace_extension(".org"); }

ShipRecord SwitcherStage::RecordOnDisk(int ship) const {
  const Bytes catalogue = ReadFileAt(files.Program("ships.dat"));
  const auto record = RecordFrom(std::span(catalogue).subspan(shipRecordSize * At(ship), shipRecordSize));
  EXPECT_TRUE(record.has_value());
  return record.value_or(ShipRecord());
}

SwapResult SwitcherStage::Swap(const std::string& target, const std::string& source) {
  return SwapShip(host, installation, FindShip(installation.ships, target), FindShip(installation.ships, source));
}

SwapResult SwitcherStage::Unswap(const std::string& target) {
  return UnswapShip(host, installation, FindShip(installation.ships, target));
}

std::optional<std::size_t> RowOf(const ListView& list, int ship) {
  for (std::size_t i = 0; i < list.rows.size(); ++i) {
    if (list.rows[i].item == static_cast<int>(ship)) return i;
  }
  return std::nullopt;
}

}  // namespace oravin::test
