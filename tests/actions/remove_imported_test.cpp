// Removing imported ships: which records and blocks go, and what is restored before.

#include "base/file_error.h"
#include "removing.h"
#include "support/fault.h"
#include "support/file_marks.h"

#include <numeric>

namespace oravin::test {
namespace {

constexpr const char* trapTitle = "cmdRemoveShips_Click()";

TEST_F(Removing, TakesTheShipAwayAndKeepsItsAddOnFiles) {
  WriteFileAt(stage.files.Game("ships/manta.bak"), "the original weapons");
  const FolderImage expected = WithoutManta(stage.Image());
  Remove({manta});
  EXPECT_TRUE(SameImage(expected, stage.Image()));
  EXPECT_EQ(stage.installation.ships.size(), 14U);  // the surplus element is one of them
  EXPECT_TRUE(IsInert(stage.installation.ships.back()));
  EXPECT_EQ(stage.Record(manta).ShipName.Trimmed(), "Wraith");
}

TEST_F(Removing, TheCatalogueInMemoryIsWhatANewRunLoads) {
  stage.Swap("BRAVO", "COLOSSUS");
  Remove({manta});
  const Ships inMemory = stage.installation.ships;
  stage.Reload();
  EXPECT_EQ(inMemory, stage.installation.ships);
}

TEST_F(Removing, WhatIsNoImportedShipIsLeftAlone) {
  const FolderImage before = stage.Image();
  for (const int index : {int{alpha}, 14, -1, 99}) EXPECT_FALSE(Do({index}).begun);
  EXPECT_FALSE(Do({}).begun);
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Removing, SaysWhereTheRemainingRecordsStand) {
  const RemovalResult result = Do({manta, colossus});
  EXPECT_EQ(result.records, (std::vector<std::size_t>{manta, colossus}));
  EXPECT_EQ(IndexAfter(result, alpha), alpha);
  EXPECT_EQ(IndexAfter(result, manta), -1);
  EXPECT_EQ(IndexAfter(result, wraith), wraith - 1);
  EXPECT_EQ(IndexAfter(result, colossus), -1);
  EXPECT_EQ(IndexAfter(result, -1), -1);
}

TEST_F(Removing, AFileThatTheSystemCannotSayIsThereRefusesIt) {
  for (const std::string& path :
       {stage.ModelPath(manta), stage.files.programPath + "shipsData.txt",
        stage.files.programPath + "addons\\ships\\manta.shp", stage.files.gamePath + "tcachehw.dat"}) {
    SCOPED_TRACE(path);
    stage.host.files.before = [path](const FileOperation& operation) {
      if (operation.kind == FileOperation::Kind::look && operation.path == path) {
        throw FileError("could not look for", path, faultReason);
      }
    };
    ExpectRefused("Error - could not look for " + path + ": " + faultReason, trapTitle);
  }
}

TEST_F(Removing, StockShipsThatFlyAsItArePutBackFirst) {
  const FolderImage before = stage.Image();
  stage.Swap("ALPHA", "MANTA");
  stage.Swap("TIGER", "MANTA");
  stage.Swap("BRAVO", "WRAITH");
  stage.Unswap("BRAVO");
  Remove({manta});
  FolderImage expected = WithoutManta(before);
  ChangeRecords(expected, [](Ships& ships) {
    for (const int target : {alpha, bravo, tiger, tigerVariant}) {
      ships[SwitcherStage::At(target)].ChangedToIndex = BooleanValue(false);
    }
  });
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Removing, ShipsThatShareTheirNameArePutBackByTheirPlace) {
  // Three records of one name: the third is a ship of its own, which its name does not lead to.
  stage.files.ships[cruiser].name = "Tiger";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  SwapShip(stage.host, stage.installation, cruiser, manta);
  ASSERT_TRUE(stage.RecordOnDisk(cruiser).Changed);
  Remove({manta});
  EXPECT_FALSE(stage.RecordOnDisk(cruiser).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(cruiser)), stage.ModelBytes(cruiser));
  EXPECT_FALSE(exists(stage.Backup(cruiser)));
}

TEST_F(Removing, ShipsThatFlyAsAnotherOneKeepDoingSo) {
  stage.Swap("ALPHA", "COLOSSUS");
  stage.Swap("BRAVO", "MANTA");
  stage.Swap("STORED", "TIGER");
  const FolderImage before = stage.Image();
  Remove({wraith});
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToIndex, Int16Value(colossus - 1));
  EXPECT_EQ(stage.RecordOnDisk(bravo).ChangedToIndex, Int16Value(manta));
  EXPECT_EQ(stage.RecordOnDisk(stored).ChangedToIndex, Int16Value(tiger));
  for (const int ship : {alpha, bravo, stored}) {
    EXPECT_TRUE(SameBytes(before.at("game/ships/" + stage.files.ships[SwitcherStage::At(ship)].file),
                          ReadFileAt(stage.Model(ship))));
  }
  EXPECT_TRUE(SameBytes(before.at("game/shipstats.bin"), ReadFileAt(stage.files.Game("shipstats.bin"))));
}

TEST_F(Removing, ARecordWhoseIndexIsOnlyInItsLowerBitsTheShipsIsLeftAlone) {
  const TaggedValue index = ChangeBravoToLowerBitsOf(manta);
  Remove({manta});
  EXPECT_TRUE(stage.RecordOnDisk(bravo).Changed);
  EXPECT_EQ(stage.RecordOnDisk(bravo).ChangedToIndex, index);
}

TEST_F(Removing, ARecordWhoseIndexIsOnlyInItsLowerBitsALaterShipsIsLeftAlone) {
  const TaggedValue index = ChangeBravoToLowerBitsOf(colossus);
  Remove({wraith});
  EXPECT_TRUE(stage.RecordOnDisk(bravo).Changed);
  EXPECT_EQ(stage.RecordOnDisk(bravo).ChangedToIndex, index);
}

TEST_F(Removing, SeveralAndAllAtOnce) {
  Remove({manta, colossus});
  EXPECT_EQ(stage.installation.ships.size(), 13U);
  EXPECT_EQ(stage.Record(manta).ShipName.Trimmed(), "Wraith");
  Remove({manta}, true);
  EXPECT_EQ(stage.installation.ships.size(), 12U);
  EXPECT_FALSE(exists(stage.files.Game("ships/wraith.shp")));
}

TEST_F(Removing, BothImportedPartsOfAShipGo) {
  stage.files.ships[wraith].name = "Manta";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  Remove({manta});
  EXPECT_EQ(stage.installation.ships.size(), 13U);
  EXPECT_EQ(stage.Record(manta).ShipName.Trimmed(), "Colossus");
  EXPECT_FALSE(exists(stage.files.Game("ships/wraith.shp")));
  EXPECT_TRUE(exists(AddOn("removed/Manta/manta.shp")));
  EXPECT_TRUE(exists(AddOn("removed/Manta2/wraith.shp")));
}

TEST_F(Removing, RecordsThatBecomeNeighboursUnderOneNameAreTwoParts) {
  stage.files.ships[wraith].name = "Twin ";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  EXPECT_FALSE(stage.Record(twinVariant).HasSecondPart);
  Remove({manta});
  EXPECT_TRUE(stage.Record(twinVariant).HasSecondPart);
  EXPECT_EQ(stage.RecordOnDisk(twinVariant).SecondPartIndex, Int16Value(manta));
}

TEST_F(Removing, AnImportedShipThatIsTakenForAStockShipsSecondPartIsPutBackWithIt) {
  stage.files.ships[manta].name = "Twin";
  stage.files.ships[twinVariant].name = "Another";
  std::swap(stage.files.ships[twin], stage.files.ships[twinVariant]);
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  ASSERT_TRUE(stage.Record(twinVariant).HasSecondPart);
  // Its block is none of shipstats.bin, of which boxes tell.
  stage.desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
  stage.Swap("TWIN", "WRAITH");
  ASSERT_TRUE(stage.Record(manta).Changed);
  EXPECT_TRUE(Do({manta}, true).done);
  EXPECT_FALSE(stage.RecordOnDisk(twinVariant).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(twinVariant)), stage.ModelBytes(twinVariant));
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.org")));
}

TEST_F(Removing, ABlockThatIsNotItsOwnStays) {
  stage.Record(manta).StatsIndex = Int16Value(13);    // Wraith's
  stage.Record(colossus).StatsIndex = Int16Value(3);  // the game's own
  const Bytes before = ReadFileAt(stage.files.Game("shipstats.def"));
  Remove({manta, colossus});
  EXPECT_TRUE(SameBytes(before, ReadFileAt(stage.files.Game("shipstats.def"))));
}

TEST_F(Removing, ABlockThatAShipThatStaysUsesTooStays) {
  stage.Record(colossus).StatsIndex = Int16Value(12);
  const Bytes before = ReadFileAt(stage.files.Game("shipstats.def"));
  Remove({manta});
  EXPECT_TRUE(SameBytes(before, ReadFileAt(stage.files.Game("shipstats.def"))));
}

TEST_F(Removing, ItsBlockServesTheNextImportedShip) {
  Remove({manta});
  const std::size_t size = ReadFileAt(stage.files.Game("shipstats.def")).size();
  stage.files.ships[manta].name = "Sting";
  stage.files.ships[manta].file = "sting.shp";
  stage.files.WriteShipList();
  WriteFileAt(AddOn("ships/sting.shp"), stage.ModelBytes(manta));
  EXPECT_TRUE(stage.Rebuild());
  EXPECT_EQ(stage.Record(manta).StatsIndex, Int16Value(12));
  const Bytes defaults = ReadFileAt(stage.files.Game("shipstats.def"));
  EXPECT_EQ(defaults.size(), size);
  EXPECT_EQ(TextOf(std::span(defaults).subspan(12 * 352, 6)), std::string("Sting\0", 6));
}

TEST_F(Removing, TheNextEnableDoesNotBringItBack) {
  Remove({manta});
  EXPECT_TRUE(stage.Rebuild());
  EXPECT_EQ(stage.installation.ships.size(), 14U);
  EXPECT_EQ(FindShip(stage.installation.ships, "Manta"), -1);
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
}

TEST_F(Removing, ADamagedListRefusesIt) {
  WriteFileAt(stage.files.Program("shipsData.txt"), "2\nnonsense");
  ExpectRefused(
      "Error - could not read " + stage.files.programPath + "shipsData.txt: \"nonsense\" is no number (line 2)",
      trapTitle);
}

TEST_F(Removing, WhatCannotBeWrittenRefusesItBeforeTheFirstChange) {
  stage.Swap("ALPHA", "MANTA");
  WriteFileAt(stage.files.Game("ships/manta.bak"), "the original weapons");
  stage.SetTextures(manta, {"skin"});
  WriteFileAt(AddOn("textures/skin.bmp"), "a bitmap");
  for (const std::string name :
       {"program/ships.dat", "program/shipsData.txt", "game/shipstats.def", "game/shipstats.bin", "game/tcachehw.dat",
        "game/ships/alpha.shp", "game/ships/alpha.org", "game/ships/manta.shp", "game/ships/manta.bak",
        "program/addons/ships/manta.shp", "program/addons/stats/manta.txt", "program/addons/textures/skin.bmp",
        "program/", "game/ships/", "game/", "program/addons/", "program/addons/ships/", "program/addons/stats/",
        "program/addons/textures/"}) {
    SCOPED_TRACE(name);
    if (readOnlyFoldersTakeFiles && name.ends_with('/')) continue;
    SetReadOnly(stage.files.folder.Native(name), true);
    ExpectRefused(stage.files.folder.Windows(name) +
                  " cannot be written: it is read-only.\nTake the read-only mark away and try again. Nothing has been "
                  "changed.");
    SetReadOnly(stage.files.folder.Native(name), false);
  }
  Remove({manta}, true);
}

TEST_F(Removing, AReadOnlyCacheDoesNotMatterWithNo) {
  SetReadOnly(stage.files.Game("tcachehw.dat"), true);
  Remove({manta}, false);
}

TEST_F(Removing, OneOfThreeHundred) {
  for (int i = 0; i < 297; ++i) {
    SmallShip copy = stage.files.ships[wraith];
    copy.name = "Copy " + std::to_string(i);
    copy.file = "copy" + std::to_string(i) + ".shp";
    WriteFileAt(AddOn("ships/" + copy.file), copy.model);
    stage.files.ships.push_back(copy);
  }
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  const Bytes catalogue = ReadFileAt(stage.files.Program("ships.dat"));
  Remove({manta}, true);
  Ships expected = RecordsIn(catalogue);
  expected.erase(expected.begin() + manta);
  MarkSecondParts(expected);
  EXPECT_TRUE(SameBytes(CatalogueOf(expected), ReadFileAt(stage.files.Program("ships.dat"))));
  std::vector<int> all(299);
  std::iota(all.begin(), all.end(), int{manta});
  Remove(all);
  EXPECT_EQ(stage.installation.ships.size(), 12U);
  EXPECT_EQ(ReadTextAt(stage.files.Program("shipsData.txt")).substr(0, 4), "11\r\n");
}

}  // namespace
}  // namespace oravin::test
