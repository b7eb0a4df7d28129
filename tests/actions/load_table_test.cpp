// Loading tables: message boxes, and the repair of a count of 0.

#include "actions/load_table.h"

#include "support/archive_stage.h"
#include "support/fault.h"
#include "support/file_marks.h"

namespace oravin::test {
namespace {

constexpr const char* countBox = "Error in resource.hog - Hog says number of items = 0 - attempting to correct";

struct LoadingATable : testing::Test {
  /// @return the number of entries
  std::size_t Load() {
    loaded = LoadHogTable(stage.host, stage.hogPath);
    return loaded.table.entries.size();
  }
  /// The message box of the error trap.
  void ExpectRefused(const std::string& reason) {
    stage.desk.ExpectBox("Error - could not read " + stage.hogPath + ": " + reason, "GetHogData");
  }

  ArchiveStage stage;
  LoadedTable loaded;
};

TEST_F(LoadingATable, ReturnsTheEntriesAndTheIndexOfTheirNames) {
  stage.Write(HeaderAnd(1, TableRow(1, 2, "first")));
  EXPECT_EQ(Load(), 1U);
  EXPECT_EQ(loaded.table.entries, std::vector<HogEntry>(1, {"first", 2, 1, 16}));
  EXPECT_EQ(EntriesNamed(loaded.table.names, "FIRST"), std::vector<int>{0});
  EXPECT_FALSE(loaded.repaired);
  EXPECT_EQ(stage.host.files.open, 0);
}

TEST_F(LoadingATable, AMissingArchiveGivesItsBoxAndThenTheGeneralOne) {
  stage.desk.ExpectBox("Error - hog not found", "GetHogData");
  stage.desk.ExpectBox("Error - could not open " + stage.hogPath + ": it does not exist", "GetHogData");
  EXPECT_EQ(Load(), 0U);
}

TEST_F(LoadingATable, ADamagedTableGivesTheGeneralBoxAndNoEntries) {
  stage.Write(HeaderAnd(2, TableRow(1, 2, "the first and the last one")));
  ExpectRefused("its table is damaged: it ends in the middle of an entry");
  EXPECT_EQ(Load(), 0U);
}

/// A table of more than 967 entries, with a count of 0.
Bytes ArchiveOfCountZero() {
  Bytes table;
  for (std::uint32_t i = 0; i < 1000; ++i) {
    const Bytes row = TableRow(i, 2 * i, "file" + std::to_string(i));
    table.insert(table.end(), row.begin(), row.end());
  }
  return HeaderAnd(0, table);
}

TEST_F(LoadingATable, ACountOfZeroIsRepairedTo967WithTheLowestByteFirst) {
  Bytes archive = ArchiveOfCountZero();
  stage.Write(archive);
  stage.desk.ExpectBox(countBox);
  ASSERT_EQ(Load(), 967U);
  EXPECT_TRUE(loaded.repaired);
  EXPECT_EQ(loaded.table.entries[0], (HogEntry{"file0", 0, 0, 16}));
  EXPECT_EQ(loaded.table.entries[966].Name, "file966");
  const Bytes count = {0xC7, 0x03, 0x00, 0x00};
  std::copy(count.begin(), count.end(), archive.begin() + 8);
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
}

TEST_F(LoadingATable, TheReadAfterARepairFindsAnEnormousCountAndIsRefused) {
  stage.Write(ArchiveOfCountZero());
  stage.desk.ExpectBox(countBox);
  Load();
  const Bytes archive = stage.Archive();
  ExpectRefused("it says that it holds 3,338,862,592 files, more than it has room for");
  EXPECT_EQ(Load(), 0U);
  EXPECT_FALSE(loaded.repaired);
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
}

TEST_F(LoadingATable, ACountOfZeroInAFileTooSmallFor967IsRepairedAllTheSame) {
  stage.Write(HeaderAnd(0, TableRow(1, 2, "first")));
  stage.desk.ExpectBox(countBox);
  ExpectRefused("it says that it holds 967 files, more than it has room for");
  EXPECT_EQ(Load(), 0U);
  EXPECT_TRUE(loaded.repaired);
  const Bytes archive = stage.Archive();
  EXPECT_EQ(Bytes(archive.begin() + 8, archive.begin() + 12), (Bytes{0xC7, 0x03, 0x00, 0x00}));
}

TEST_F(LoadingATable, ACountOfZeroInAReadOnlyArchiveIsNotSaidToBeCorrected) {
  stage.Write(ArchiveOfCountZero());
  SetReadOnly(stage.Game("resource.hog"), true);
  stage.desk.ExpectBox("Error - could not open " + stage.hogPath + ": it is read-only", "GetHogData");
  EXPECT_EQ(Load(), 0U);
  EXPECT_FALSE(loaded.repaired);
  EXPECT_TRUE(SameBytes(ArchiveOfCountZero(), stage.Archive()));
}

TEST_F(LoadingATable, AFailureOfAnyOperationGivesNoEntriesAndOneBox) {
  stage.Write(HeaderAnd(1, TableRow(1, 2, "first")));
  stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    stage.desk.shown.clear();
    Watch(stage.host.files, fault);
    Load();
    if (!fault.happened) return;
    EXPECT_TRUE(loaded.table.entries.empty());
    ASSERT_EQ(stage.desk.shown.size(), 1U);
    EXPECT_EQ(stage.desk.shown[0].title, "GetHogData");
    EXPECT_EQ(stage.host.files.open, 0);
  });
  stage.host.files.before = nullptr;
  EXPECT_GE(operations, 2);
}

struct LoadingTheTableBackup : LoadingATable {};

TEST_F(LoadingTheTableBackup, WithoutOneTheTableIsEmptyAndThereIsNoMessage) {
  EXPECT_TRUE(LoadFatBackup(stage.host, stage.Installed()).entries.empty());
}

TEST_F(LoadingTheTableBackup, ReturnsItsEntriesAndTheIndexOfTheirNames) {
  WriteFileAt(stage.Program("backup/resource.fat"), HeaderAnd(1, TableRow(1, 2, "alone")));
  const HogTable backup = LoadFatBackup(stage.host, stage.Installed());
  EXPECT_EQ(backup.entries, std::vector<HogEntry>(1, {"alone", 2, 1, 16}));
  EXPECT_EQ(EntriesNamed(backup.names, "ALONE"), std::vector<int>{0});
}

TEST_F(LoadingTheTableBackup, ADamagedOneGivesTheReadersBoxAndAnEmptyTable) {
  WriteFileAt(stage.Program("backup/resource.fat"), HeaderAnd(5, TableRow(1, 2, "alone")));
  stage.desk.ExpectBox("Error - could not read " + stage.programPath +
                           "backup\\resource.fat: it says that it holds 5 files, more than it has room for",
                       "GetHogData");
  EXPECT_TRUE(LoadFatBackup(stage.host, stage.Installed()).entries.empty());
}

}  // namespace
}  // namespace oravin::test
