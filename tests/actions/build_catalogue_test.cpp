// The catalogue that enabling builds: places of stock models, statistics and models of add-on ships.

#include <algorithm>
#include <array>
#include <bit>

#include "actions/restore_stats.h"
#include "base/file_error.h"
#include "base/text.h"
#include "stats/ship_stats.h"
#include "support/fault.h"
#include "support/swap_stage.h"

namespace oravin::test {
namespace {

struct CatalogueBuild : testing::Test {
  CatalogueBuild() { BackupShipStats(stage.host, stage.installation); }

  [[nodiscard]] TableEntry Entry(int ship) const {
    return EntryNamed(ReadFileAt(stage.files.Game("resource.hog")),
                      stage.files.ships[SwitcherStage::At(ship)].entryName);
  }
  void ExpectMissing(const std::string& names) {
    stage.desk.ExpectBox("The models of these ships were found neither in resource.hog nor among the add-ons:" + names);
  }
  /// Gives a ship of the list another model, which is nowhere.
  void LoseModel(int ship) {
    stage.files.ships[SwitcherStage::At(ship)].file = "ghost.shp";
    stage.files.WriteShipList();
  }
  /// Names add-on ships alike but for spaces and case, and gives every add-on ship a statistics text of its own.
  void NameAlike(const std::vector<int>& ships) {
    static constexpr std::array<const char*, 3> spellings = {"Manta", " mantA", "MANTA"};
    for (std::size_t i = 0; i < ships.size(); ++i)
      stage.files.ships[SwitcherStage::At(ships[i])].name = spellings.at(i);
    stage.files.WriteShipList();
    for (const int ship : {manta, wraith, colossus}) {
      std::string text;
      for (int value = 0; value < 15; ++value) text += std::to_string(100 * ship + value) + "\r\n";
      WriteFileAt(stage.files.Program("addons/stats/" + stage.files.ships[SwitcherStage::At(ship)].file)
                      .replace_extension(".txt"),
                  text);
    }
  }
  /// The block that an add-on ship gets from the text that NameAlike has given it.
  static Bytes AddedBlock(int ship, const std::string& name) {
    // The text lists Shield Recharge as its 10th value; the file has it behind Afterburner Fuel.
    static constexpr std::array<int, 15> order = {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 9, 12, 13, 14};
    Bytes block(352);
    const std::string trimmed = Trim(name);
    std::copy(trimmed.begin(), trimmed.end(), block.begin());
    for (std::size_t i = 0; i < order.size(); ++i) {
      const auto value = static_cast<float>(100 * ship + order.at(i));
      PutLittleEndian32(&block.at(64 + 4 * i), std::bit_cast<std::uint32_t>(value));
    }
    return block;
  }
  static Bytes Joined(const std::vector<Bytes>& blocks) {
    Bytes all;
    for (const Bytes& block : blocks) all.insert(all.end(), block.begin(), block.end());
    return all;
  }
  void ExpectBlocks(int mantas, int wraiths, int colossuss) {
    EXPECT_EQ(stage.RecordOnDisk(manta).StatsIndex, Int16Value(mantas));
    EXPECT_EQ(stage.RecordOnDisk(wraith).StatsIndex, Int16Value(wraiths));
    EXPECT_EQ(stage.RecordOnDisk(colossus).StatsIndex, Int16Value(colossuss));
  }
  [[nodiscard]] Bytes Defaults() const { return ReadFileAt(stage.files.Game("shipstats.def")); }
  [[nodiscard]] Bytes StatsOf(const Bytes& blocks, std::size_t block) const {
    const auto begin = blocks.begin() + static_cast<std::ptrdiff_t>(statsBlockSize * block + statsOffset);
    return {begin, begin + static_cast<std::ptrdiff_t>(statsSize)};
  }
  static void ExpectNoPlace(const ShipRecord& ship) {
    EXPECT_EQ(ship.HogOffset, Int32Value(0));
    EXPECT_EQ(ship.HogSize, Int32Value(0));
    EXPECT_EQ(ship.HogFatPos, Int32Value(0));
  }

  SwitcherStage stage;
};

TEST_F(CatalogueBuild, EveryStockShipIsUnchangedAndHasItsPlaceInTheArchive) {
  EXPECT_TRUE(stage.Build());
  for (int ship = alpha; ship <= twinVariant; ++ship) {
    const ShipRecord record = stage.RecordOnDisk(ship);
    const SmallShip& listed = stage.files.ships[SwitcherStage::At(ship)];
    EXPECT_EQ(record.ShipName.Trimmed(), Trim(listed.name));
    EXPECT_EQ(ModelOf(record), listed.file);
    EXPECT_EQ(record.ShipKind, Int16Value(listed.kind));
    EXPECT_EQ(record.HogOffset, Int32Value(Entry(ship).offset));
    EXPECT_EQ(record.HogSize, Int32Value(Entry(ship).size));
    EXPECT_EQ(record.HogFatPos, Int32Value(Entry(ship).position));
    EXPECT_EQ(record.StatsIndex, Int16Value(listed.statsIndex));
    EXPECT_EQ(record.Textures[0].Trimmed(), "hull");
    EXPECT_EQ(record.Textures[1].Trimmed(), "");
    EXPECT_FALSE(record.HasSecondPart);
    EXPECT_EQ(record.SecondPartIndex, Int16Value(0));
    EXPECT_FALSE(record.Changed);
    EXPECT_EQ(record.ChangedToIndex, Int16Value(0));
    EXPECT_FALSE(record.Imported);
    EXPECT_EQ(record.ChangedToName.Trimmed(), "");
    EXPECT_EQ(record.ChangedToFile.Trimmed(), "");
  }
}

TEST_F(CatalogueBuild, AnImportedShipHasNoPlaceInTheArchive) {
  EXPECT_TRUE(stage.Build());
  for (int ship = manta; ship <= colossus; ++ship) {
    const ShipRecord record = stage.RecordOnDisk(ship);
    EXPECT_TRUE(record.Imported);
    EXPECT_EQ(record.ShipKind, Int16Value(3));
    ExpectNoPlace(record);
    EXPECT_EQ(record.ChangedToIndex, Int16Value(0));
    EXPECT_EQ(record.ChangedToName.Trimmed(), "");
  }
}

TEST_F(CatalogueBuild, TheCatalogueIsLoadedWithItsSurplusRecordAndItsSecondParts) {
  EXPECT_TRUE(stage.Build());
  EXPECT_EQ(stage.installation.ships.size(), stage.files.ships.size() + 1);
  EXPECT_TRUE(IsInert(stage.installation.ships.back()));
  EXPECT_TRUE(stage.Record(tiger).HasSecondPart);
  EXPECT_EQ(stage.Record(tiger).SecondPartIndex, Int16Value(tigerVariant));
  EXPECT_FALSE(stage.Record(tigerVariant).HasSecondPart);
}

TEST_F(CatalogueBuild, AnOldCatalogueIsReplacedWhole) {
  WriteFileAt(stage.files.Program("ships.dat"), Bytes(100 * shipRecordSize, 0x20));
  EXPECT_TRUE(stage.Build());
  EXPECT_EQ(ReadFileAt(stage.files.Program("ships.dat")).size(), stage.files.ships.size() * shipRecordSize);
}

TEST_F(CatalogueBuild, AChangedShipIsUnchangedInTheNewCatalogue) {
  const HogTable backup = stage.Live();
  stage.Enable();
  stage.Swap("ALPHA", "MANTA");
  ASSERT_TRUE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_TRUE(stage.Build(backup));
  EXPECT_FALSE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToName.Trimmed(), "");
}

TEST_F(CatalogueBuild, AModelThatOnlyTheBackupListsGetsItsPlaceFromThere) {
  HogTable backup = stage.Live();
  const TableEntry entry = Entry(alpha);
  PatchFileAt(stage.files.Game("resource.hog"), entry.position + 8, BytesOf("S47"));
  EXPECT_TRUE(stage.Build(backup));
  EXPECT_EQ(stage.RecordOnDisk(alpha).HogOffset, Int32Value(entry.offset));
  EXPECT_EQ(stage.RecordOnDisk(alpha).HogSize, Int32Value(entry.size));
  EXPECT_EQ(stage.RecordOnDisk(alpha).HogFatPos, Int32Value(entry.position));
}

TEST_F(CatalogueBuild, ShipsThatAreFoundNowhereAreNamedInOneBoxAndKeepZero) {
  stage.files.ships[alpha].file = "ghost.shp";
  stage.files.ships[bravo].file = "spook.shp";
  stage.files.WriteShipList();
  ExpectMissing("\nghost.shp\nspook.shp");
  EXPECT_TRUE(stage.Build());
  ExpectNoPlace(stage.RecordOnDisk(alpha));
  ExpectNoPlace(stage.RecordOnDisk(bravo));
  EXPECT_EQ(stage.RecordOnDisk(tiger).HogFatPos, Int32Value(Entry(tiger).position));
}

TEST_F(CatalogueBuild, AnAddOnModelThatIsMissingIsNamedInTheSameBox) {
  LoseModel(alpha);
  std::filesystem::remove(stage.files.Program("addons/ships/wraith.shp"));
  ExpectMissing("\nghost.shp\nwraith.shp");
  EXPECT_TRUE(stage.Build());
  EXPECT_FALSE(exists(stage.Model(wraith)));
  EXPECT_TRUE(stage.RecordOnDisk(wraith).Imported);
}

TEST_F(CatalogueBuild, AddOnModelsAreCopiedIntoTheShipsFolderAndNothingElseIs) {
  EXPECT_TRUE(stage.Build());
  std::vector<std::string> names;
  for (const auto& [name, bytes] : ImageOf(stage.files.Game("ships"))) names.push_back(name);
  EXPECT_EQ(names, (std::vector<std::string>{"colossus.shp", "manta.shp", "players own.txt", "wraith.shp"}));
  EXPECT_EQ(ReadFileAt(stage.Model(manta)), stage.ModelBytes(manta));
}

TEST_F(CatalogueBuild, AnAddOnModelThatCannotBeCopiedIsToldOfAndTheOthersAreCopied) {
  const std::string from = stage.files.programPath + "addons\\ships\\manta.shp";
  stage.host.files.before = [&](const FileOperation& operation) {
    if (operation.path != from || IsQuestion(operation.kind)) return;
    throw FileError("could not open", from, "you have no permission");
  };
  for (const char* title : {"GetShpTextureNames", "BuildCatalogue"}) {
    stage.desk.ExpectBox("Error - could not open " + from + ": you have no permission", title);
  }
  EXPECT_TRUE(stage.Build());
  EXPECT_FALSE(exists(stage.Model(manta)));
  EXPECT_TRUE(exists(stage.Model(wraith)));
}

TEST_F(CatalogueBuild, AddOnShipsGetBlocksBehindTheStockOnes) {
  const Bytes before = Defaults();
  EXPECT_TRUE(stage.Build());
  const Bytes after = Defaults();
  EXPECT_EQ(after.size(), before.size() + 3 * statsBlockSize);
  EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin()));
  EXPECT_EQ(stage.RecordOnDisk(manta).StatsIndex, Int16Value(12));
  EXPECT_EQ(stage.RecordOnDisk(wraith).StatsIndex, Int16Value(13));
  EXPECT_EQ(stage.RecordOnDisk(colossus).StatsIndex, Int16Value(14));
  EXPECT_EQ(TextOf(std::span(after).subspan(13 * statsBlockSize, 6)), "Wraith");
}

TEST_F(CatalogueBuild, AnAddOnShipWithoutAStatisticsTextTakesTheFirstBlocksStatistics) {
  const Bytes current = ReadFileAt(stage.files.Game("shipstats.bin"));
  EXPECT_TRUE(stage.Build());
  EXPECT_TRUE(SameBytes(StatsOf(current, 0), StatsOf(Defaults(), 13)));
}

TEST_F(CatalogueBuild, TheFirstBlockIsTheCurrentOneAndNotTheDefault) {
  PatchFileAt(stage.files.Game("shipstats.bin"), statsOffset, {0xAA, 0xBB, 0xCC, 0x44});
  EXPECT_TRUE(stage.Build());
  const Bytes stats = StatsOf(Defaults(), 13);
  EXPECT_EQ(Bytes(stats.begin(), stats.begin() + 4), (Bytes{0xAA, 0xBB, 0xCC, 0x44}));
}

TEST_F(CatalogueBuild, AStatisticsTextsValuesLandInTheFilesOrder) {
  EXPECT_TRUE(stage.Build());
  const Bytes stats = StatsOf(Defaults(), 12);
  // The text lists Shield Recharge as its 10th value; the file has it behind Afterburner Fuel.
  const std::vector<float> expected = {1, 0.5F, 3, 0.5F, 5, 0.5F, 7, 0.5F, 9, 11, 12, 10, 13, 14, 15};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(std::bit_cast<float>(LittleEndian32(&stats[4 * i])), expected[i]) << i;
  }
}

TEST_F(CatalogueBuild, AStatisticsTextIsNamedAfterTheModelNotTheShip) {
  stage.files.ships[manta].name = "Ray";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Build());
  EXPECT_EQ(std::bit_cast<float>(LittleEndian32(StatsOf(Defaults(), 12).data())), 1.0F);
}

TEST_F(CatalogueBuild, ADamagedStatisticsTextIsToldOfAndTheFirstBlockServes) {
  WriteFileAt(stage.files.Program("addons/stats/manta.txt"), "1,2,three");
  stage.desk.ExpectBox(
      "Error - could not read " + stage.files.programPath + "addons\\stats\\manta.txt: \"three\" is no number (line 1)",
      "GetImportStats");
  EXPECT_TRUE(stage.Build());
  EXPECT_TRUE(SameBytes(StatsOf(ReadFileAt(stage.files.Game("shipstats.bin")), 0), StatsOf(Defaults(), 12)));
}

TEST_F(CatalogueBuild, ABlockThatBearsTheShipsNameIsWrittenAnewInItsPlace) {
  EXPECT_TRUE(stage.Build());
  const Bytes once = Defaults();
  WriteFileAt(stage.files.Program("addons/stats/wraith.txt"), "9,9,9,9,9,9,9,9,9,9,9,9,9,9,9");
  EXPECT_TRUE(stage.Build());
  const Bytes twice = Defaults();
  EXPECT_EQ(twice.size(), once.size());
  EXPECT_EQ(std::bit_cast<float>(LittleEndian32(StatsOf(twice, 13).data())), 9.0F);
  EXPECT_TRUE(SameBytes(StatsOf(once, 12), StatsOf(twice, 12)));
  EXPECT_EQ(stage.RecordOnDisk(wraith).StatsIndex, Int16Value(13));
}

TEST_F(CatalogueBuild, EachPartOfATwoPartAddOnShipHasABlockOfItsOwn) {
  NameAlike({manta, wraith});
  const Bytes before = Defaults();
  EXPECT_TRUE(stage.Build());
  EXPECT_TRUE(stage.Record(manta).HasSecondPart);
  const Bytes expected =
      Joined({before, AddedBlock(manta, "Manta"), AddedBlock(wraith, " mantA"), AddedBlock(colossus, "Colossus")});
  EXPECT_TRUE(SameBytes(expected, Defaults()));
  ExpectBlocks(12, 13, 14);
  EXPECT_TRUE(stage.Build());
  EXPECT_TRUE(SameBytes(expected, Defaults()));
  ExpectBlocks(12, 13, 14);
}

TEST_F(CatalogueBuild, AddOnShipsOfOneNameThatAreNoneOfTheOthersPartsHaveABlockEachToo) {
  NameAlike({manta, colossus});
  EXPECT_TRUE(stage.Build());
  ExpectBlocks(12, 13, 14);
  EXPECT_TRUE(stage.Build());
  ExpectBlocks(12, 13, 14);
  EXPECT_TRUE(SameBytes(StatsOf(AddedBlock(colossus, ""), 0), StatsOf(Defaults(), 14)));
}

TEST_F(CatalogueBuild, ASecondPartThatSharedTheFirstOnesBlockGetsItsOwn) {
  const Bytes stock = Defaults();
  NameAlike({manta, wraith});
  // What an older build left: one block for both parts, and one that a removed ship has emptied before it.
  WriteFileAt(stage.files.Game("shipstats.def"), Joined({stock, Bytes(352), AddedBlock(wraith, "Manta")}));
  EXPECT_TRUE(stage.Build());
  ExpectBlocks(13, 12, 14);
  EXPECT_TRUE(SameBytes(
      Joined({stock, AddedBlock(wraith, " mantA"), AddedBlock(manta, "Manta"), AddedBlock(colossus, "Colossus")}),
      Defaults()));
  EXPECT_TRUE(stage.Build());
  ExpectBlocks(12, 13, 14);
  // A block that is written anew keeps its name as it is spelled.
  EXPECT_TRUE(SameBytes(
      Joined({stock, AddedBlock(manta, "mantA"), AddedBlock(wraith, "Manta"), AddedBlock(colossus, "Colossus")}),
      Defaults()));
}

TEST_F(CatalogueBuild, AStockShipOfTheSameNameDoesNotCountAmongTheAddOnShips) {
  stage.files.ships[carrier].name = "Manta";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Build());
  EXPECT_TRUE(stage.Build());
  ExpectBlocks(12, 13, 14);
}

TEST_F(CatalogueBuild, ALineWithoutAModelDoesNotCountAmongTheShipsOfItsName) {
  NameAlike({manta, wraith});
  stage.files.ships[manta].file = "";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Build());
  EXPECT_TRUE(stage.Build());
  EXPECT_EQ(stage.RecordOnDisk(wraith).StatsIndex, Int16Value(12));
  EXPECT_EQ(stage.RecordOnDisk(colossus).StatsIndex, Int16Value(13));
}

TEST_F(CatalogueBuild, ABlockThatARemovedShipLeftServesBeforeOneIsAppended) {
  Bytes defaults = Defaults();
  const Bytes stock = defaults;
  defaults.resize(defaults.size() + 2 * statsBlockSize);
  const Bytes name = BytesOf("Somebody");
  std::copy(name.begin(), name.end(), defaults.begin() + 12 * 352);
  WriteFileAt(stage.files.Game("shipstats.def"), defaults);
  EXPECT_TRUE(stage.Build());
  EXPECT_EQ(stage.RecordOnDisk(manta).StatsIndex, Int16Value(13));
  EXPECT_EQ(stage.RecordOnDisk(wraith).StatsIndex, Int16Value(14));
  const Bytes after = Defaults();
  EXPECT_EQ(after.size(), stock.size() + 4 * statsBlockSize);
  EXPECT_TRUE(SameBytes({defaults.begin(), defaults.begin() + 13 * 352}, {after.begin(), after.begin() + 13 * 352}));
  EXPECT_EQ(TextOf(std::span(after).subspan(13 * 352, 6)), std::string("Manta\0", 6));
}

TEST_F(CatalogueBuild, AFreeBlockAmongTheStockBlocksIsTheGames) {
  Bytes defaults = Defaults();
  std::fill_n(defaults.begin() + 3 * 352, 352, std::uint8_t{0});
  WriteFileAt(stage.files.Game("shipstats.def"), defaults);
  EXPECT_TRUE(stage.Build());
  EXPECT_EQ(stage.RecordOnDisk(manta).StatsIndex, Int16Value(12));
}

TEST_F(CatalogueBuild, AStockBlockOfTheSameNameIsNeverWritten) {
  stage.files.ships[manta].name = "SHIP3";
  stage.files.WriteShipList();
  const Bytes before = Defaults();
  EXPECT_TRUE(stage.Build());
  EXPECT_TRUE(SameBytes(StatsOf(before, 3), StatsOf(Defaults(), 3)));
  EXPECT_EQ(stage.RecordOnDisk(manta).StatsIndex, Int16Value(12));
}

TEST_F(CatalogueBuild, WithoutTheDefaultsNoneAreMadeUp) {
  std::filesystem::remove(stage.files.Game("shipstats.def"));
  for (int addOn = 0; addOn < 3; ++addOn) {
    stage.desk.ExpectBox("Error - could not open " + stage.files.gamePath + "shipstats.def: it does not exist",
                         "CopyShipStats");
  }
  EXPECT_TRUE(stage.Build());
  EXPECT_FALSE(exists(stage.files.Game("shipstats.def")));
  EXPECT_EQ(stage.RecordOnDisk(manta).StatsIndex, Int16Value(0));
}

TEST_F(CatalogueBuild, ALineWithoutAModelKeepsItsRecordAndNothingIsDoneForIt) {
  stage.files.ships[bravo].file = "";
  stage.files.ships[wraith].file = "";
  stage.files.WriteShipList();
  const std::size_t before = Defaults().size();
  EXPECT_TRUE(stage.Build());
  EXPECT_EQ(stage.RecordOnDisk(bravo).ShipName.Trimmed(), "Bravo");
  ExpectNoPlace(stage.RecordOnDisk(bravo));
  EXPECT_TRUE(IsInert(stage.Record(bravo)));
  EXPECT_EQ(ModelOf(stage.RecordOnDisk(tiger)), "tiger.shp");
  EXPECT_EQ(Defaults().size(), before + 2 * statsBlockSize);
}

TEST_F(CatalogueBuild, NamesLongerThanTheirFieldsAreCut) {
  stage.files.ships[alpha].name = "A name that is longer than thirty characters";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Build());
  EXPECT_EQ(stage.RecordOnDisk(alpha).ShipName.Trimmed(), "A name that is longer than thi");
}

TEST_F(CatalogueBuild, FailingToWriteItLeavesTheOldOneAndCopiesNoModel) {
  WriteFileAt(stage.files.Program("ships.dat"), "the old one");
  const std::string path = stage.files.programPath + "ships.dat.oravin-new";
  stage.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::write && operation.path == path) {
      throw FileError("could not write", path, "the disk is full");
    }
  };
  stage.desk.ExpectBox("Error - could not write " + path + ": the disk is full", "BuildCatalogue");
  const FolderImage ships = ImageOf(stage.files.Game("ships"));
  EXPECT_FALSE(stage.Build());
  EXPECT_EQ(ReadTextAt(stage.files.Program("ships.dat")), "the old one");
  EXPECT_TRUE(SameImage(ships, ImageOf(stage.files.Game("ships"))));
  EXPECT_FALSE(exists(stage.files.Program("ships.dat.oravin-new")));
}

TEST_F(CatalogueBuild, StoppedOrFailingAtAnyOperationTheCatalogueIsWholeOldOrNew) {
  const std::vector<ListedShip> list = ReadShipList(stage.host.files, stage.installation.shipListPath());
  const HogTable live = stage.Live();
  const FolderImage models = ImageOf(stage.files.Game("ships"));
  ASSERT_TRUE(stage.Build());
  const Bytes fresh = ReadFileAt(stage.files.Program("ships.dat"));
  const Bytes old(2 * shipRecordSize, 0x20);
  stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
  for (const FaultKind kind : {FaultKind::stop, FaultKind::failure}) {
    int stayedOld = 0;
    const int operations = AtEachOperation(kind, [&](Fault& fault) {
      WriteFileAt(stage.files.Program("ships.dat"), old);
      for (const int ship : {manta, wraith, colossus}) std::filesystem::remove(stage.Model(ship));
      Watch(stage.host.files, fault);
      Stopped([&] { BuildCatalogue(stage.host, stage.installation, list, live, {}); });
      stage.host.files.before = nullptr;
      const Bytes now = ReadFileAt(stage.files.Program("ships.dat"));
      if (now == old) {
        ++stayedOld;
        EXPECT_TRUE(SameImage(models, ImageOf(stage.files.Game("ships")))) << fault.what;
      } else {
        EXPECT_EQ(now.size(), fresh.size()) << fault.what;
        if (kind == FaultKind::stop) {
          EXPECT_TRUE(SameBytes(fresh, now)) << fault.what;
        }
      }
    });
    EXPECT_GE(operations, 10);
    EXPECT_GT(stayedOld, 3);
  }
}

struct CatalogueLoading : testing::Test {
  CatalogueLoading() { installation.ProgramPath = folder.windows; }

  TemporaryFolder folder;
  ScriptedHost here;
  Installation installation;
};

TEST_F(CatalogueLoading, ReplacesTheShipsThatWereLoaded) {
  ShipRecord ship;
  ship.ShipName.Set("Tiger");
  ship.ShipFile.Set("tiger.shp");
  WriteFileAt(folder.Native("ships.dat"), SlotOf(ship).value());
  installation.ships.resize(9);
  EXPECT_TRUE(LoadCatalogue(here.host, installation));
  ASSERT_EQ(installation.ships.size(), 2U);
  EXPECT_EQ(installation.ships[0].ShipName.Trimmed(), "Tiger");
}

TEST_F(CatalogueLoading, AnyFailureGivesOneBoxAndNoShips) {
  installation.ships.resize(9);
  here.desk.ExpectBox("Error - could not open " + folder.Windows("ships.dat") + ": it does not exist", "LoadCatalogue");
  EXPECT_FALSE(LoadCatalogue(here.host, installation));
  EXPECT_TRUE(installation.ships.empty());
  Bytes damaged(868, 0x20);
  damaged[60] = 99;  // the tag of the kind
  WriteFileAt(folder.Native("ships.dat"), damaged);
  installation.ships.resize(9);
  here.desk.ExpectBox("Error - could not read " + folder.Windows("ships.dat") + ": record 1 is damaged",
                      "LoadCatalogue");
  EXPECT_FALSE(LoadCatalogue(here.host, installation));
  EXPECT_TRUE(installation.ships.empty());
}

}  // namespace
}  // namespace oravin::test
