// The backup of the archive's table: when it is written, what it holds, and when it is renewed.

#include "installation/table_backup.h"

#include "base/file_error.h"
#include "support/archive_stage.h"
#include "support/fault.h"

namespace oravin::test {
namespace {

const std::vector<demo::ArchiveFile> someFiles = {
    {"hum.wav", Bytes(100, 1)}, {"alpha.shp", Bytes(100, 2)}, {"bravo.shp", Bytes(100, 3)}};

struct FatBackup : testing::Test {
  FatBackup() { stage.Write(someFiles); }

  void Keep(bool repaired = false) {
    KeepFatBackup(stage.host.files, stage.Installed(), stage.Table(), repaired, {"alpha.shp", "bravo.shp"});
  }
  [[nodiscard]] bool Kept() const { return exists(stage.Program("backup/resource.fat")); }
  [[nodiscard]] Bytes Backup() const { return ReadFileAt(stage.Program("backup/resource.fat")); }
  [[nodiscard]] Bytes FirstBytes(std::size_t count) const {
    const Bytes archive = stage.Archive();
    return {archive.begin(), archive.begin() + static_cast<std::ptrdiff_t>(count)};
  }
  [[nodiscard]] std::uint32_t TableEnd() const { return BigEndian32(&demo::BuildArchive(someFiles)[12]); }
  void SetH(std::uint32_t h) const {
    Bytes bytes(4);
    PutBigEndian32(bytes.data(), h);
    PatchFileAt(stage.Game("resource.hog"), 12, bytes);
  }
  void Rename(const std::string& entryName, const std::string& name) const {
    PatchFileAt(stage.Game("resource.hog"), EntryNamed(stage.Archive(), entryName).position + 8, BytesOf(name));
  }
  [[nodiscard]] std::vector<std::string> BackupFolder() const {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : ImageOf(stage.Program("backup"))) names.push_back(name);
    return names;
  }

  ArchiveStage stage;
};

using Names = std::vector<std::string>;

TEST_F(FatBackup, AMissingOneIsWrittenWithHeaderAndTable) {
  Keep();
  EXPECT_TRUE(SameBytes(FirstBytes(TableEnd()), Backup()));
  EXPECT_EQ(BackupFolder(), Names{"resource.fat"});
}

TEST_F(FatBackup, TheArchiveItselfStaysAsItIs) {
  const Bytes before = stage.Archive();
  Keep();
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(FatBackup, ATableWithADisguisedModelIsNotWritten) {
  Rename("alpha.shp", "s47");
  Keep();
  EXPECT_FALSE(Kept());
}

TEST_F(FatBackup, ATableWithADisguisedModelReplacesNoBackup) {
  WriteFileAt(stage.Program("backup/resource.fat"), "the backup");
  Rename("alpha.shp", "S47");
  Keep();
  EXPECT_EQ(TextOf(Backup()), "the backup");
  EXPECT_EQ(BackupFolder(), Names{"resource.fat"});
}

TEST_F(FatBackup, ANameWithTheMarkThatIsNoModelsDoesNotMatter) {
  Rename("hum.wav", "S47");
  Keep();
  EXPECT_TRUE(Kept());
}

TEST_F(FatBackup, AModelThatIsListedPlainCountsAsPlainWhateverElseIsListed) {
  stage.Write({{"alpha.shp", Bytes(9, 1)}, {"S47ha.shp", Bytes(9, 2)}});
  Keep();
  EXPECT_TRUE(Kept());
}

TEST_F(FatBackup, AnEqualOneIsNotTouched) {
  Keep();
  const auto written = std::filesystem::last_write_time(stage.Program("backup/resource.fat"));
  std::vector<std::string> writes;
  stage.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind != FileOperation::Kind::open && operation.kind != FileOperation::Kind::read &&
        !IsQuestion(operation.kind)) {
      writes.push_back(InWords(operation));
    }
  };
  Keep();
  EXPECT_EQ(writes, Names{});
  EXPECT_EQ(std::filesystem::last_write_time(stage.Program("backup/resource.fat")), written);
  EXPECT_EQ(BackupFolder(), Names{"resource.fat"});
}

TEST_F(FatBackup, WhenThePlainTableDiffersItIsRenewedAndTheOldOneKept) {
  WriteFileAt(stage.Program("backup/resource.fat"), "the first");
  Keep();
  EXPECT_TRUE(SameBytes(FirstBytes(TableEnd()), Backup()));
  EXPECT_EQ(ReadTextAt(stage.Program("backup/resource.old")), "the first");
  EXPECT_EQ(BackupFolder(), (Names{"resource.fat", "resource.old"}));
}

TEST_F(FatBackup, EveryOldOneGetsTheFirstFreeNumber) {
  Keep();
  const Bytes first = Backup();
  Rename("hum.wav", "HUM");
  Keep();
  const Bytes second = Backup();
  Rename("HUM.wav", "Hum");
  Keep();
  EXPECT_EQ(BackupFolder(), (Names{"resource.fat", "resource.old", "resource.old2"}));
  EXPECT_EQ(ReadFileAt(stage.Program("backup/resource.old")), first);
  EXPECT_EQ(ReadFileAt(stage.Program("backup/resource.old2")), second);
  EXPECT_EQ(Backup(), FirstBytes(TableEnd()));
}

TEST_F(FatBackup, AFreeNumberInBetweenIsTaken) {
  WriteFileAt(stage.Program("backup/resource.fat"), "now");
  WriteFileAt(stage.Program("backup/resource.old"), "older");
  WriteFileAt(stage.Program("backup/resource.old3"), "old");
  Keep();
  EXPECT_EQ(ReadTextAt(stage.Program("backup/resource.old2")), "now");
  EXPECT_EQ(ReadTextAt(stage.Program("backup/resource.old")), "older");
  EXPECT_EQ(ReadTextAt(stage.Program("backup/resource.old3")), "old");
}

TEST_F(FatBackup, OneOfTheSameLengthWithOneOtherByteIsRenewed) {
  Keep();
  Bytes other = Backup();
  other.back() ^= 1;
  WriteFileAt(stage.Program("backup/resource.fat"), other);
  Keep();
  EXPECT_EQ(ReadFileAt(stage.Program("backup/resource.old")), other);
}

TEST_F(FatBackup, HMayReachBehindTheTable) {
  SetH(TableEnd() + 50);
  Keep();
  EXPECT_TRUE(SameBytes(FirstBytes(TableEnd() + 50), Backup()));
}

TEST_F(FatBackup, HMayReachToTheFilesEnd) {
  const std::size_t length = stage.Archive().size();
  SetH(static_cast<std::uint32_t>(length));
  Keep();
  EXPECT_TRUE(SameBytes(FirstBytes(length), Backup()));
}

TEST_F(FatBackup, WhereHIsNotBelievableItGoesToTheEndOfTheLastEntry) {
  const auto pastTheEnd = static_cast<std::uint32_t>(stage.Archive().size() + 1);
  for (const std::uint32_t h : {0U, 15U, 16U, TableEnd() - 1, pastTheEnd, 0xFFFFFFFFU}) {
    SCOPED_TRACE(h);
    std::filesystem::remove(stage.Program("backup/resource.fat"));
    SetH(h);
    Keep();
    EXPECT_TRUE(SameBytes(FirstBytes(TableEnd()), Backup()));
  }
}

TEST_F(FatBackup, ATableLargerThanOneBlockIsKeptWhole) {
  std::vector<demo::ArchiveFile> files(30'000, {std::string(20, 'n'), {}});
  stage.Write(files);
  Keep();
  EXPECT_TRUE(SameBytes(FirstBytes(16 + 30'000 * 29), Backup()));
  const FolderImage kept = ImageOf(stage.Program("backup"));
  Keep();
  EXPECT_TRUE(SameImage(kept, ImageOf(stage.Program("backup"))));
}

TEST_F(FatBackup, WhereTheCountWasRepairedTheBackupHoldsTheRightNumberInTheRightOrder) {
  std::vector<demo::ArchiveFile> files(967, {"name", {}});
  stage.Write(files);
  PatchFileAt(stage.Game("resource.hog"), 8, {0, 0, 0, 0});
  File hog(stage.host.files, stage.hogPath, OpenFor::reading);
  const HogTable live = TableOf(GetHogData(hog, 967));
  Close(hog);
  for (int time = 0; time < 2; ++time) {  // the second time finds an equal one
    KeepFatBackup(stage.host.files, stage.Installed(), live, true, {});
    EXPECT_TRUE(SameBytes(demo::BuildArchive(files), Backup()));
    EXPECT_EQ(BackupFolder(), Names{"resource.fat"});
  }
}

TEST_F(FatBackup, TheSizeThatMayBeWrittenIsKnownBefore) {
  EXPECT_EQ(FatBackupSize(stage.host.files, stage.Installed(), stage.Table()), TableEnd());
  WriteFileAt(stage.Program("backup/resource.fat"), Bytes(77, 1));
  EXPECT_EQ(FatBackupSize(stage.host.files, stage.Installed(), stage.Table()), TableEnd() + 77);
}

TEST_F(FatBackup, ReadingItGivesTheTableAsItWas) {
  const std::vector<HogEntry> entries = stage.Table().entries;
  Keep();
  Rename("alpha.shp", "S47");
  File backup(stage.host.files, stage.programPath + "backup\\resource.fat", OpenFor::reading);
  EXPECT_EQ(GetHogData(backup, HogCount(backup)), entries);
}

TEST_F(FatBackup, StoppedOrFailingAtAnyOperationTheOldBackupIsNeverLost) {
  const HogTable live = stage.Table();
  const Bytes fresh = FirstBytes(TableEnd());
  for (const FaultKind kind : {FaultKind::stop, FaultKind::failure}) {
    const int operations = AtEachOperation(kind, [&](Fault& fault) {
      std::filesystem::remove_all(stage.Program("backup"));
      WriteFileAt(stage.Program("backup/resource.fat"), "the old one");
      Host host;
      Watch(host.files, fault);
      try {
        KeepFatBackup(host.files, stage.Installed(), live, false, {"alpha.shp"});
      } catch (const FileError&) {
      } catch (const ProcessStopped&) {
      }
      const bool old = Backup() == BytesOf("the old one");
      EXPECT_TRUE(old || Backup() == fresh) << fault.what;
      if (!old) {
        EXPECT_EQ(ReadTextAt(stage.Program("backup/resource.old")), "the old one") << fault.what;
      }
    });
    EXPECT_GE(operations, 6);
  }
}

}  // namespace
}  // namespace oravin::test
