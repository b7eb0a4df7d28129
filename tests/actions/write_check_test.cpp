// Before a swap or an unswap changes anything, every file that it is going to change must be writable.

#include "support/file_marks.h"
#include "support/held_file.h"
#include "support/swap_stage.h"

namespace oravin::test {
namespace {

/// Alpha flies as Manta.
struct WriteCheck : testing::Test {
  WriteCheck() {
    stage.Enable();
    stage.Swap("ALPHA", "MANTA");
  }

  void ExpectReadOnly(const std::string& path) {
    stage.desk.ExpectBox(
        path +
        " cannot be written: it is read-only.\nTake the read-only mark away and try again. Nothing has "
        "been changed.");
  }
  void ExpectHeld(const std::string& path) {
    stage.desk.ExpectBox(path +
                         " cannot be written: another program has it open.\nClose StarLancer, and whatever else may be "
                         "using the file, and try again. Nothing has been changed.");
  }
  void Swap() { SwapShip(stage.host, stage.installation, alpha, wraith); }
  void SwapTwoParts() { SwapShip(stage.host, stage.installation, tiger, wraith); }
  void Unswap() { UnswapShip(stage.host, stage.installation, alpha); }
  void UnswapAll() { UnswapAllShips(stage.host, stage.installation); }

  /// Nothing has changed: no file, no record.
  void ExpectUnchanged(const FolderImage& before) {
    EXPECT_TRUE(SameImage(before, stage.Image()));
    EXPECT_EQ(stage.Record(alpha).ChangedToName.Trimmed(), "Manta");
  }
  /// All four actions are refused because of a file or folder that is read-only.
  void RefusedBecauseOf(const std::filesystem::path& native, const std::string& path) {
    SetReadOnly(native, true);
    const FolderImage before = stage.Image();
    for (const auto& action : {&WriteCheck::Swap, &WriteCheck::Unswap, &WriteCheck::UnswapAll}) {
      ExpectReadOnly(path);
      (this->*action)();
      ExpectUnchanged(before);
      EXPECT_TRUE(stage.desk.Done());
    }
    SetReadOnly(native, false);
    UnswapAll();
    EXPECT_FALSE(stage.RecordOnDisk(alpha).Changed);
  }

  SwitcherStage stage;
};

TEST_F(WriteCheck, AReadOnlyCatalogueRefusesEveryAction) {
  RefusedBecauseOf(stage.files.Program("ships.dat"), stage.files.programPath + "ships.dat");
}

TEST_F(WriteCheck, ReadOnlyStatisticsRefuseEveryAction) {
  RefusedBecauseOf(stage.files.Game("shipstats.bin"), stage.files.gamePath + "shipstats.bin");
}

TEST_F(WriteCheck, AReadOnlyModelRefusesEveryAction) { RefusedBecauseOf(stage.Model(alpha), stage.ModelPath(alpha)); }

TEST_F(WriteCheck, AReadOnlyBackupOfAModelRefusesEveryAction) {
  RefusedBecauseOf(stage.Backup(alpha), stage.BackupPath(alpha));
}

TEST_F(WriteCheck, AReadOnlyShipsFolderRefusesEveryAction) {
  if (readOnlyFoldersTakeFiles) GTEST_SKIP() << "no folder is read-only here";
  RefusedBecauseOf(stage.files.Game("ships"), stage.files.gamePath + "ships\\");
}

TEST_F(WriteCheck, TheSecondPartsModelIsLookedAtToo) {
  SetReadOnly(stage.Model(tigerVariant), true);
  const FolderImage before = stage.Image();
  ExpectReadOnly(stage.ModelPath(tigerVariant));
  SwapTwoParts();
  ExpectUnchanged(before);
}

TEST_F(WriteCheck, AReadOnlySourceModelDoesNotMatter) {
  SetReadOnly(stage.Model(wraith), true);
  Swap();
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(wraith));
  Unswap();
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
}

TEST_F(WriteCheck, TheBackupOfASourceThatHasToBeUnpackedIsLookedAt) {
  std::filesystem::remove(stage.Model(bravo));
  WriteFileAt(stage.Backup(bravo), "older");
  SetReadOnly(stage.Backup(bravo), true);
  const FolderImage before = stage.Image();
  ExpectReadOnly(stage.BackupPath(bravo));
  SwapShip(stage.host, stage.installation, alpha, bravo);
  ExpectUnchanged(before);
}

TEST_F(WriteCheck, UnswapAllLooksAtEveryShipBeforeItChangesTheFirst) {
  stage.Swap("STORED", "WRAITH");
  SetReadOnly(stage.Model(stored), true);
  const FolderImage before = stage.Image();
  ExpectReadOnly(stage.ModelPath(stored));
  UnswapAll();
  ExpectUnchanged(before);
}

TEST_F(WriteCheck, UnswapAllDoesNotLookAtShipsThatAreNotChanged) {
  SetReadOnly(stage.Model(stored), true);
  UnswapAll();
  EXPECT_FALSE(stage.RecordOnDisk(alpha).Changed);
}

TEST_F(WriteCheck, AFileThatAnotherProgramHasOpenRefusesTheAction) {
  if (!KnowsHeldFiles(stage.files.folder.native)) GTEST_SKIP() << "this file system does not tell of held files";
  const std::vector<std::pair<std::filesystem::path, std::string>> files = {
      {stage.files.Program("ships.dat"), stage.files.programPath + "ships.dat"},
      {stage.files.Game("shipstats.bin"), stage.files.gamePath + "shipstats.bin"},
      {stage.Model(alpha), stage.ModelPath(alpha)}};
  for (const auto& [native, path] : files) {
    const FolderImage before = stage.Image();
    {
      const HeldFile held(native);
      for (const auto& action : {&WriteCheck::Swap, &WriteCheck::Unswap, &WriteCheck::UnswapAll}) {
        ExpectHeld(path);
        (this->*action)();
        EXPECT_TRUE(stage.desk.Done());
      }
    }
    ExpectUnchanged(before);
  }
  Swap();
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToName.Trimmed(), "Wraith");
}

}  // namespace
}  // namespace oravin::test
