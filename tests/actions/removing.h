#pragma once

#include "actions/remove_imported.h"
#include "support/imported_stage.h"

/// Removing imported ships.
namespace oravin::test {

struct Removing : testing::Test {
  RemovalResult Do(const std::vector<int>& ships, bool textures = false) {
    return RemoveImported(stage.host, stage.installation, ships, textures);
  }
  /// Removes ships; everything must go well.
  void Remove(const std::vector<int>& ships, bool textures = false) {
    const RemovalResult result = Do(ships, textures);
    EXPECT_TRUE(result.begun);
    EXPECT_TRUE(result.done);
    EXPECT_TRUE(stage.desk.Done());
  }
  /// Something refuses the removal of Manta before the first change.
  void ExpectRefused(const std::string& text, const std::string& title = programTitle) {
    const FolderImage before = stage.Image();
    const Ships ships = stage.installation.ships;
    stage.desk.ExpectBox(text, title);
    const RemovalResult result = Do({manta}, true);
    EXPECT_FALSE(result.begun);
    EXPECT_FALSE(result.done);
    EXPECT_TRUE(stage.desk.Done());
    EXPECT_TRUE(SameImage(before, stage.Image()));
    EXPECT_EQ(stage.installation.ships, ships);
  }
  /// Lets Bravo's record say that it is changed to a ship whose index is only in its lower 32 bits that of this one.
  TaggedValue ChangeBravoToLowerBitsOf(int ship) {
    ShipRecord& record = stage.Record(bravo);
    record.Changed = true;
    record.ChangedToIndex = {TaggedValue::real, 4294967296.0 + static_cast<double>(ship), {}};
    PutShipRecord(stage.host.files, stage.installation.cataloguePath(), stage.installation.ships, bravo);
    return record.ChangedToIndex;
  }
  [[nodiscard]] std::filesystem::path AddOn(const std::string& name) const {
    return stage.files.Program("addons/" + name);
  }

  ImportedStage stage;
};

/// Takes a file of an image to another place in it.
inline void Move(FolderImage& image, const std::string& from, const std::string& to) {
  const auto file = image.find(from);
  ASSERT_NE(file, image.end()) << from;
  image[to] = file->second;
  image.erase(file);
}

/// What removing Manta, alone and without its textures, makes of an image.
inline FolderImage WithoutManta(FolderImage image) {
  image.erase("game/ships/manta.shp");
  image.erase("game/ships/manta.bak");
  image["program/addons/removed/"];
  image["program/addons/removed/Manta/"];
  Move(image, "program/addons/ships/manta.shp", "program/addons/removed/Manta/manta.shp");
  Move(image, "program/addons/stats/manta.txt", "program/addons/removed/Manta/manta.txt");
  ChangeList(image, "14\r\n", "13\r\n");
  ChangeList(image, "3,\"Manta\",\"manta.shp\",0,\"hull\",\"\"\r\n", "");
  Bytes& defaults = image.at("game/shipstats.def");
  std::fill_n(defaults.begin() + 12 * 352, 352, std::uint8_t{0});
  ChangeRecords(image, [](Ships& ships) {
    ships.erase(ships.begin() + manta);
    MarkSecondParts(ships);
  });
  return image;
}

}  // namespace oravin::test
