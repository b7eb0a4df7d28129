#include "actions/restore_stats.h"

#include <gtest/gtest.h>

#include "support/fault.h"
#include "support/file_marks.h"
#include "support/scripted_desk.h"
#include "support/stats_file.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::FolderImage;
using test::ImageOf;
using test::Joined;
using test::ReadFileAt;
using test::ScriptedHost;
using test::StatsBlock;
using test::StatsFrom;
using test::TemporaryFolder;
using test::WriteFileAt;

ShipRecord Ship(const std::string& name, int index, bool imported = false) {
  ShipRecord ship;
  ship.ShipName.Set(name);
  ship.ShipFile.Set(name + ".shp");
  ship.StatsIndex = Int16Value(index);
  ship.ChangedToIndex = Int16Value(0);
  ship.Imported = imported;
  return ship;
}

/// A game folder whose statistics were changed in every block, and the defaults.
struct RestoredStats : testing::Test {
  TemporaryFolder folder;
  ScriptedHost at;
  Installation installation{
      folder.windows, folder.windows, {Ship("A", 0), Ship("B", 1), Ship("C", 2, true), ShipRecord()}};
  Ships& ships = installation.ships;
  std::string current = installation.statsPath();

  void SetUp() override {
    WriteFileAt(folder.Native("shipstats.bin"), Now(100, 200, 300));
    WriteFileAt(folder.Native("shipstats.def"),
                Joined({StatsBlock("A", StatsFrom(1), 0xD1), StatsBlock("B", StatsFrom(2), 0xD2)}));
  }
  /// The current file with these statistics in its blocks; names and tails are its own.
  static Bytes Now(float a, float b, float c) {
    return Joined({StatsBlock("A", StatsFrom(a), 0xA1), StatsBlock("B", StatsFrom(b), 0xA2),
                   StatsBlock("C", StatsFrom(c), 0xA3)});
  }
  void ExpectMissing() { at.desk.ExpectBox("Error - Path(s) not found", "RestoreShipStats", Icon::exclamation); }
  void ExpectInvalidShip() { at.desk.ExpectBox("Error - invalid ship", "PutShipsStats", Icon::exclamation); }
};

TEST_F(RestoredStats, EveryStockShipGetsItsOwnBackAndTheDefaultsAreDeleted) {
  RestoreShipStats(at.host, installation);
  EXPECT_TRUE(test::SameImage(FolderImage{{"shipstats.bin", Now(1, 2, 300)}}, ImageOf(folder.native)));
}

TEST_F(RestoredStats, ASecondRestoreFails) {
  RestoreShipStats(at.host, installation);
  ExpectMissing();
  RestoreShipStats(at.host, installation);
  EXPECT_EQ(ReadFileAt(folder.Native("shipstats.bin")), Now(1, 2, 300));
}

TEST_F(RestoredStats, AMissingCurrentFileKeepsTheDefaults) {
  std::filesystem::remove(folder.Native("shipstats.bin"));
  const FolderImage before = ImageOf(folder.native);
  ExpectMissing();
  RestoreShipStats(at.host, installation);
  EXPECT_TRUE(test::SameImage(before, ImageOf(folder.native)));
}

TEST_F(RestoredStats, AShipWithoutABlockIsReportedAndTheOthersAreRestored) {
  ships[0].StatsIndex = Int16Value(7);
  ExpectInvalidShip();
  RestoreShipStats(at.host, installation);
  EXPECT_TRUE(test::SameImage(FolderImage{{"shipstats.bin", Now(100, 2, 300)}}, ImageOf(folder.native)));
}

TEST_F(RestoredStats, AnIndexThatIsNoBlockNumberIsAnInvalidShip) {
  for (const TaggedValue& index : {Int16Value(-1), Int32Value(40000), TaggedValue{TaggedValue::real, 1e12, {}}}) {
    SetUp();
    ships[0].StatsIndex = index;
    ExpectInvalidShip();
    RestoreShipStats(at.host, installation);
    EXPECT_EQ(ReadFileAt(folder.Native("shipstats.bin")), Now(100, 2, 300));
  }
}

TEST_F(RestoredStats, WhereAWriteFailsTheDefaultsAreKept) {
  test::SetReadOnly(folder.Native("shipstats.bin"), true);
  for (int i = 0; i < 2; ++i) {
    at.desk.ExpectBox("Error - could not open " + current + ": it is read-only", "PutShipsStats", Icon::exclamation);
  }
  const FolderImage before = ImageOf(folder.native);
  RestoreShipStats(at.host, installation);
  EXPECT_TRUE(test::SameImage(before, ImageOf(folder.native)));
}

TEST_F(RestoredStats, WhateverFailsAnotherRestoreFinishesIt) {
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    SetUp();
    ScriptedHost failing;
    failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
    test::Watch(failing.host.files, fault);
    RestoreShipStats(failing.host, installation);
    EXPECT_EQ(failing.desk.shown.size(), fault.happened ? 1U : 0U);
    EXPECT_EQ(std::filesystem::exists(folder.Native("shipstats.def")), fault.happened) << fault.what;
    if (fault.happened) RestoreShipStats(at.host, installation);
    EXPECT_TRUE(test::SameImage(FolderImage{{"shipstats.bin", Now(1, 2, 300)}}, ImageOf(folder.native)));
  });
}

TEST_F(RestoredStats, WhereverTheProcessStopsAnotherRestoreFinishesIt) {
  test::AtEachOperation(test::FaultKind::stop, [&](test::Fault& fault) {
    SetUp();
    ScriptedHost stopping;
    test::Watch(stopping.host.files, fault);
    const bool stopped = test::Stopped([&] { RestoreShipStats(stopping.host, installation); });
    if (stopped) RestoreShipStats(at.host, installation);
    EXPECT_TRUE(test::SameImage(FolderImage{{"shipstats.bin", Now(1, 2, 300)}}, ImageOf(folder.native)));
  });
}

TEST_F(RestoredStats, WithoutACatalogueEveryBlockThatBothFilesHaveIsRestored) {
  RestoreAllBlocks(at.host, installation);
  EXPECT_TRUE(test::SameImage(FolderImage{{"shipstats.bin", Now(1, 2, 300)}}, ImageOf(folder.native)));
}

TEST_F(RestoredStats, WithoutACatalogueADefaultBlockThatIsCutOffIsPassedOver) {
  std::filesystem::resize_file(folder.Native("shipstats.def"), 2 * 352 - 1);
  RestoreAllBlocks(at.host, installation);
  EXPECT_TRUE(test::SameImage(FolderImage{{"shipstats.bin", Now(1, 200, 300)}}, ImageOf(folder.native)));
}

TEST_F(RestoredStats, WithoutACatalogueAMissingFileIsReported) {
  std::filesystem::remove(folder.Native("shipstats.def"));
  ExpectMissing();
  RestoreAllBlocks(at.host, installation);
  EXPECT_EQ(ReadFileAt(folder.Native("shipstats.bin")), Now(100, 200, 300));
}

TEST_F(RestoredStats, WithoutACatalogueWhereAWriteFailsTheDefaultsAreKept) {
  test::SetReadOnly(folder.Native("shipstats.bin"), true);
  at.desk.ExpectBox("Error - could not open " + current + ": it is read-only", "PutShipsStats", Icon::exclamation);
  RestoreAllBlocks(at.host, installation);
  EXPECT_TRUE(std::filesystem::exists(folder.Native("shipstats.def")));
}

TEST_F(RestoredStats, SettingUpCopiesEachPairOnceFromTheHigherIndex) {
  ships[0].Changed = true;  // A and B replace each other: only B's side copies
  ships[0].ChangedToIndex = Int16Value(1);
  ships[1].Changed = true;
  ships[1].ChangedToIndex = Int16Value(0);
  const Bytes kept = ReadFileAt(folder.Native("shipstats.def"));
  SetUpShipStats(at.host, installation);
  EXPECT_TRUE(test::SameImage(FolderImage{{"shipstats.bin", Now(2, 200, 300)}, {"shipstats.def", kept}},
                              ImageOf(folder.native)));
}

TEST_F(RestoredStats, SettingUpUsesThePartnersOwnBlock) {
  ships[0].StatsIndex = Int16Value(2);  // ship 0 stands in block 2
  ships[1].Changed = true;
  ships[1].ChangedToIndex = Int16Value(0);
  SetUpShipStats(at.host, installation);
  EXPECT_EQ(ReadFileAt(folder.Native("shipstats.bin")), Now(100, 200, 2));
}

TEST_F(RestoredStats, SettingUpWithoutChangedShipsChangesNothing) {
  ships[1].ChangedToIndex = Int16Value(0);
  const FolderImage before = ImageOf(folder.native);
  SetUpShipStats(at.host, installation);
  EXPECT_TRUE(test::SameImage(before, ImageOf(folder.native)));
}

TEST_F(RestoredStats, SettingUpPassesOverAPartnerOutsideOfTheArray) {
  ships[1].Changed = true;
  ships[1].ChangedToIndex = Int16Value(-1);
  ships[0].Changed = true;
  ships[0].ChangedToIndex = Int16Value(30000);
  const FolderImage before = ImageOf(folder.native);
  SetUpShipStats(at.host, installation);
  EXPECT_TRUE(test::SameImage(before, ImageOf(folder.native)));
}

TEST_F(RestoredStats, SettingUpWithoutTheDefaultsReports) {
  std::filesystem::remove(folder.Native("shipstats.def"));
  ExpectMissing();
  SetUpShipStats(at.host, installation);
}

struct BackedUpStats : testing::Test {
  TemporaryFolder folder;
  ScriptedHost at;
  Installation installation{folder.windows, folder.windows, {}};
};

TEST_F(BackedUpStats, TheDefaultsAreACopy) {
  WriteFileAt(folder.Native("ShipStats.bin"), "statistics");
  BackupShipStats(at.host, installation);
  EXPECT_EQ(ImageOf(folder.native),
            (FolderImage{{"ShipStats.bin", BytesOf("statistics")}, {"shipstats.def", BytesOf("statistics")}}));
}

TEST_F(BackedUpStats, DefaultsThatAreThereStay) {
  WriteFileAt(folder.Native("shipstats.bin"), "changed");
  WriteFileAt(folder.Native("ShipStats.DEF"), "defaults");
  const FolderImage before = ImageOf(folder.native);
  BackupShipStats(at.host, installation);
  EXPECT_TRUE(test::SameImage(before, ImageOf(folder.native)));
}

TEST_F(BackedUpStats, AMissingFileGivesItsBox) {
  WriteFileAt(folder.Native("shipstats.def"), "defaults");
  at.desk.ExpectBox("Can't find shipstats.bin", "Oravin", Icon::exclamation);
  BackupShipStats(at.host, installation);
}

TEST_F(BackedUpStats, WhereverTheProcessStopsTheDefaultsAreWholeOrMissing) {
  test::AtEachOperation(test::FaultKind::stop, [&](test::Fault& fault) {
    std::filesystem::remove(folder.Native("shipstats.def"));
    WriteFileAt(folder.Native("shipstats.bin"), "statistics");
    ScriptedHost stopping;
    test::Watch(stopping.host.files, fault);
    const bool stopped = test::Stopped([&] { BackupShipStats(stopping.host, installation); });
    EXPECT_EQ(std::filesystem::exists(folder.Native("shipstats.def")), !stopped);
    BackupShipStats(at.host, installation);
    EXPECT_EQ(test::ReadTextAt(folder.Native("shipstats.def")), "statistics");
  });
}

}  // namespace
}  // namespace oravin
