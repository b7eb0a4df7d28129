#include "support/stats_tab_stage.h"

#include <algorithm>

#include "tabs/stats_edit.h"

namespace oravin::test {

TabStage::TabStage() {
  installation.GamePath = folder.Windows("game\\");
  installation.ProgramPath = folder.Windows("program\\");
  installation.ships = {Ship("Alpha", "alpha.shp", 0),
                        Ship("Bravo", "bravo.shp", 1),
                        Ship("Twin", "twin.shp", 2),
                        Ship("Twin", "t_twin.shp", 3),
                        Ship("Manta", "manta.shp", 4, true),
                        Ship("Wraith", "wraith.shp", 5, true),
                        Ship("Homeless", "homeless.shp", 0, true),
                        ShipRecord()};
  installation.ships[twin].HasSecondPart = true;
  installation.ships[twin].SecondPartIndex = Int16Value(twinVariant);

  std::vector<Bytes> current;
  std::vector<Bytes> defaults;
  for (int block = 0; block < 4; ++block) {
    current.push_back(StatsBlock("SHIP" + std::to_string(block), StatsFrom(static_cast<float>(100 * block) + 0.5F)));
  }
  defaults = current;
  defaults.push_back(StatsBlock("Manta", StatsFrom(400.5F)));
  defaults.push_back(StatsBlock("Wraith", StatsFrom(500.5F)));
  WriteFileAt(Game("shipstats.bin"), Joined(current));
  WriteFileAt(Game("shipstats.def"), Joined(defaults));
  WriteFileAt(Program("addons/stats/manta.txt"), "1,0.5,3,0.5,5,0.5,7,0.5,9\r\n10,11,12,13,14,15\r\n");

  weapons = {Gun(100, 0, 50, 2),   Gun(-100, 0, 50, 2),   Gun(0, 90, 400, 11),
             Missile(250, -40, 0), Missile(-250, -40, 0), ExternalGun(0, 200, -300, 7)};
  const Bytes model = ModelWith(weapons);
  for (const char* file : {"alpha", "bravo", "manta", "wraith", "homeless"}) {
    WriteFileAt(Game("ships/" + std::string(file) + ".shp"), model);
  }
  WriteFileAt(Game("ships/twin.shp"), model);
  WriteFileAt(Game("ships/t_twin.shp"), model);
  DisplayShipEdit(tab, installation.ships);
}

ShipRecord TabStage::Ship(const std::string& name, const std::string& file, int statsIndex, bool imported) {
  ShipRecord ship;
  ship.ShipName.Set(name);
  ship.ShipFile.Set(file);
  ship.ShipKind = Int16Value(imported ? importedKind : 1);
  ship.StatsIndex = Int16Value(statsIndex);
  ship.ChangedToIndex = Int16Value(0);
  ship.Imported = imported;
  return ship;
}

void TabStage::Choose(std::size_t ship) {
  const auto& rows = tab.shipEditingList.rows;
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&](const ListRow& item) { return item.item == static_cast<int>(ship); });
  ASSERT_NE(row, rows.end());
  SelectOnly(tab.shipEditingList, static_cast<std::size_t>(row - rows.begin()));
  shipEditingList_ItemClick(at.host, tab, installation);
}

void TabStage::ChooseWeapon(std::size_t row) {
  ASSERT_LT(row, tab.shipWeaponsList.rows.size());
  SelectOnly(tab.shipWeaponsList, row);
  shipWeaponsList_ItemClick(tab);
}

bool TabStage::Edit(std::size_t row, const std::string& text) {
  tab.shipStatsList.edited = {row, text};
  shipStatsList_AfterLabelEdit(at.host, tab, installation);
  return !tab.shipStatsList.edited.refused;
}

std::vector<std::string> TabStage::Texts(const ListView& list, std::size_t column) {
  std::vector<std::string> texts;
  for (const ListRow& row : list.rows) texts.push_back(TextAt(list, row, column));
  return texts;
}

void TabStage::PutStats(FolderImage& image, const std::string& file, std::size_t block, const ShipStats& stats) {
  const Bytes bytes = StatsBlock("", stats);
  std::copy_n(bytes.begin() + 64, 60, image.at(file).begin() + static_cast<std::ptrdiff_t>(352 * block + 64));
}

}  // namespace oravin::test
