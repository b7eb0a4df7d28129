// The backup of the table that the archive's tab makes, and its way back.

#include "files/whole_file.h"
#include "support/archive_tab_stage.h"
#include "support/fault.h"

namespace oravin::test {
namespace {

struct TheFatBackup : HogTabStage {
  void Backup() { cmdBackupFAT_Click(stage.host, tab); }
  void Restore() { cmdRestoreFAT_Click(stage.host, tab); }
  void ExpectOverwriteQuestion(Answer answer) {
    stage.desk.ExpectQuestion(
        "A hog FAT backup file already exists at this location.\nDo you want to overwrite this file?", answer,
        "Backup FAT table");
  }
  void ExpectWarning(Answer answer) {
    stage.desk.Expect({"Restoring the FAT table will overwrite any changes made to the table in this hog file from the "
                       "hog editor. It can't restore damage done to the hog from other apps. and it can CAUSE "
                       "INTERFERENCE with the ship switcher if enabled.",
                       "Hog File Allocation Table Restore", Icon::information, Buttons::okCancel},
                      answer);
  }
  Bytes BackupFile() const { return ReadFileAt(stage.Game("resource.FAT")); }
  /// The first H bytes of an archive.
  static Bytes TableOfBytes(const Bytes& archive) {
    return {archive.begin(), archive.begin() + static_cast<std::ptrdiff_t>(BigEndian32(&archive[12]))};
  }
  const std::vector<demo::ArchiveFile> files = {Stored("ships\\alpha.shp", "0123456789"), Stored("b.txt", "xyz")};
  const Bytes archive = demo::BuildArchive(files);
  const std::string backupPath = stage.gamePath + "resource.FAT";
};

TEST_F(TheFatBackup, HoldsExactlyTheFirstHBytes) {
  Open(archive);
  EXPECT_FALSE(tab.cmdRestoreFAT.enabled);
  Backup();
  EXPECT_TRUE(SameBytes(TableOfBytes(archive), BackupFile()));
  EXPECT_TRUE(tab.cmdRestoreFAT.enabled);
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
}

TEST_F(TheFatBackup, BackingUpTwiceAsksAndNoKeepsTheOldOne) {
  Open(archive);
  WriteFileAt(stage.Game("resource.fat"), std::string_view("the old one"));
  ExpectOverwriteQuestion(Answer::no);
  Backup();
  EXPECT_EQ(TextOf(ReadFileAt(stage.Game("resource.fat"))), "the old one");
  ExpectOverwriteQuestion(Answer::yes);
  Backup();
  EXPECT_TRUE(SameBytes(TableOfBytes(archive), ReadFileAt(stage.Game("resource.fat"))));
}

TEST_F(TheFatBackup, WithoutABackupAfterwardsThereIsABox) {
  Open(archive);
  Fault fault;
  fault.at = 1;
  Watch(stage.host.files, fault);
  stage.desk.ExpectBox("Error - could not open " + backupPath + std::string(besideSuffix) + ": " + faultReason,
                       "cmdBackupFAT_Click()");
  stage.desk.ExpectBox("Couldn't create FAT backup file.", "Error", Icon::critical);
  Backup();
  stage.host.files.before = nullptr;
  EXPECT_FALSE(tab.cmdRestoreFAT.enabled);
}

TEST_F(TheFatBackup, WhereverItFailsTheOldBackupOrTheNewOneIsWhole) {
  AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    Open(archive);
    WriteFileAt(stage.Game("resource.FAT"), std::string_view("the old one"));
    stage.desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
    Watch(stage.host.files, fault);
    Backup();
    stage.host.files.before = nullptr;
    EXPECT_TRUE(TextOf(BackupFile()) == "the old one" || BackupFile() == TableOfBytes(archive)) << fault.what;
  });
}

TEST_F(TheFatBackup, AnHThatCannotBeRightIsTold) {
  for (const std::uint32_t size : {0U, 15U, static_cast<std::uint32_t>(archive.size() + 1), 0xFFFFFFFFU}) {
    Bytes odd = archive;
    PutBigEndian32(&odd[12], size);
    Open(odd);
    stage.desk.ExpectBox("Error - could not back up the table of " + stage.hogPath +
                             ": its header says that the table is " + std::to_string(size) +
                             " bytes long, which cannot be right",
                         "cmdBackupFAT_Click()");
    stage.desk.ExpectBox("Couldn't create FAT backup file.", "Error", Icon::critical);
    Backup();
  }
}

TEST_F(TheFatBackup, RestoringPutsTheTablesBytesBackAndNothingElse) {
  Open(archive);
  Backup();
  Bytes changed = archive;
  changed[16 + 8] = 'X';                 // a name
  changed[changed.size() - 1] ^= 0xFFU;  // a file's content
  PutBigEndian32(&changed[16 + 4], 3);   // a size
  Open(changed);
  EXPECT_EQ(ShownNames().front(), "Xhips\\alpha.shp");
  ExpectWarning(Answer::ok);
  Restore();
  Bytes expected = changed;
  std::copy_n(archive.begin(), BigEndian32(&archive[12]), expected.begin());
  EXPECT_TRUE(SameBytes(expected, stage.Archive()));
  EXPECT_EQ(ShownNames().front(), "ships\\alpha.shp") << "the list shows what the table holds now";
}

TEST_F(TheFatBackup, ABackupFromBeforeEnablingPutsTheShipsNamesBackIntoTheTable) {
  Open(archive);
  Backup();
  Bytes disguised = archive;
  std::copy_n("S47", 3, disguised.begin() + 16 + 8 + 6);
  Open(disguised);
  ExpectWarning(Answer::ok);
  Restore();
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
}

TEST_F(TheFatBackup, CancelWritesNothing) {
  Open(archive);
  Backup();
  Bytes changed = archive;
  changed[16 + 8] = 'X';
  Open(changed);
  ExpectWarning(Answer::cancel);
  Restore();
  EXPECT_TRUE(SameBytes(changed, stage.Archive()));
}

TEST_F(TheFatBackup, ABackupThatIsGoneIsTold) {
  Open(archive);
  stage.desk.ExpectBox("Restore file can't be found. Restore aborted.", "Error", Icon::critical);
  Restore();
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
}

TEST_F(TheFatBackup, ADamagedCountIsRepairedByIt) {
  Open(archive);
  Backup();
  Bytes damaged = archive;
  PutBigEndian32(&damaged[8], 0);
  Open(damaged);
  ExpectWarning(Answer::ok);
  Restore();
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
  EXPECT_EQ(tab.lblHogFiles.caption, "2 file(s)");
}

TEST_F(TheFatBackup, ADamagedTableSizeIsTakenFromTheBackup) {
  Open(archive);
  Backup();
  Bytes damaged = archive;
  PutBigEndian32(&damaged[12], 0xFFFFFF00);
  Open(damaged);
  ExpectWarning(Answer::ok);
  Restore();
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
}

TEST_F(TheFatBackup, ABackupThatIsTooShortOrSomethingElseIsRefusedBeforeAnythingIsWritten) {
  Open(archive);
  for (const auto& [content, why] :
       std::map<std::string, std::string>{{"BIGF and too little", "it is shorter than the archive's table"},
                                          {std::string(200, 'x'), "it is no backup of an archive's table"}}) {
    WriteFileAt(stage.Game("resource.FAT"), std::string_view(content));
    ExpectWarning(Answer::ok);
    stage.desk.ExpectBox("Error - could not restore from " + backupPath + ": " + why, "cmdRestoreFAT_Click()");
    Restore();
    EXPECT_TRUE(SameBytes(archive, stage.Archive()));
  }
  WriteFileAt(stage.Game("resource.FAT"), std::string_view());
  ExpectWarning(Answer::ok);
  stage.desk.ExpectBox("Error - could not restore from " + backupPath + ": it is no backup of an archive's table",
                       "cmdRestoreFAT_Click()");
  Restore();
}

}  // namespace
}  // namespace oravin::test
