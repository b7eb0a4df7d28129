// An open archive: opening, its patient reading, and changes of single entries. Nobody is asked, nothing is repaired.

#include "archive/open_archive.h"

#include "archive/unpack.h"
#include "base/file_error.h"
#include "support/archive_stage.h"
#include "support/file_marks.h"

namespace oravin::test {
namespace {

struct AnOpenArchive : testing::Test {
  AnOpenArchive() { stage.Write({{"first", Bytes(10, 1)}, {"second", Bytes(20, 2)}, {"third", Bytes(30, 3)}}); }

  OpenArchive Open() { return OpenArchiveAt(stage.host.files, stage.hogPath); }
  OpenArchive OpenAndRead() {
    OpenArchive archive = Open();
    EXPECT_EQ(ReadArchiveTable(archive).condition, TableCondition::readable);
    return archive;
  }
  static Bytes WithCount(Bytes archive, std::uint32_t count) {
    PutBigEndian32(&archive[8], count);
    return archive;
  }

  ArchiveStage stage;
};

TEST_F(AnOpenArchive, IsOpenForWritingAndItsTableIsNotReadYet) {
  const OpenArchive archive = Open();
  EXPECT_EQ(archive.path, stage.hogPath);
  EXPECT_EQ(archive.whyReadOnly, "");
  EXPECT_TRUE(archive.entries.empty());
  EXPECT_EQ(stage.host.files.open, 1);
}

TEST_F(AnOpenArchive, SaysWhyItCanOnlyBeRead) {
  SetReadOnly(stage.Game("resource.hog"), true);
  EXPECT_EQ(Open().whyReadOnly, "it is read-only");
}

TEST_F(AnOpenArchive, IsNoOtherFile) {
  for (const char* start : {"bigf", "BIG", "", "RIFFxxxxxxxxxxxx"}) {
    stage.Write(BytesOf(start));
    try {
      Open();
      ADD_FAILURE() << start;
    } catch (const FileError& error) {
      EXPECT_EQ(error.kind, ErrorKind::wrongFormat);
    }
    EXPECT_EQ(stage.host.files.open, 0);
  }
}

TEST_F(AnOpenArchive, ThatIsMissingIsAnError) {
  std::filesystem::remove(stage.Game("resource.hog"));
  EXPECT_THROW(Open(), FileError);
}

TEST_F(AnOpenArchive, ReadsItsOwnHeaderAndTable) {
  const Bytes bytes = stage.Archive();
  const OpenArchive archive = OpenAndRead();
  EXPECT_EQ(archive.size, BigEndian32(&bytes[4]));
  EXPECT_EQ(archive.tableSize, BigEndian32(&bytes[12]));
  EXPECT_EQ(archive.entries, stage.Table().entries);
}

TEST_F(AnOpenArchive, WithADamagedCountReadsTheHeaderOfItsBackup) {
  const Bytes whole = stage.Archive();
  Bytes backup = WithCount(Bytes(whole.begin(), whole.begin() + 16), 2);
  PutBigEndian32(&backup[4], 4321);
  WriteFileAt(stage.Game("resource.fat"), backup);
  for (const std::uint32_t count : {0U, 100001U, 0xC7030000U, 0xFFFFFFFFU}) {
    const Bytes damaged = WithCount(whole, count);
    stage.Write(damaged);
    OpenArchive archive = Open();
    const TableReading reading = ReadArchiveTable(archive);
    EXPECT_EQ(reading.condition, TableCondition::readable);
    EXPECT_EQ(reading.count, 2U);
    EXPECT_EQ(archive.entries.size(), 2U);
    EXPECT_EQ(archive.size, 4321U);
    EXPECT_TRUE(SameBytes(damaged, stage.Archive()));
  }
}

TEST_F(AnOpenArchive, WithADamagedCountAndNoGoodBackupSaysWhichCountIsWrong) {
  const Bytes damaged = WithCount(stage.Archive(), 0);
  stage.Write(damaged);
  OpenArchive archive = Open();
  TableReading reading = ReadArchiveTable(archive);
  EXPECT_EQ(reading.condition, TableCondition::noBackup);
  EXPECT_EQ(reading.count, 0U);
  WriteFileAt(stage.Game("resource.fat"), WithCount(damaged, 100001));
  reading = ReadArchiveTable(archive);
  EXPECT_EQ(reading.condition, TableCondition::backupDamaged);
  EXPECT_EQ(reading.count, 100001U);
  EXPECT_TRUE(archive.entries.empty());
  EXPECT_TRUE(SameBytes(damaged, stage.Archive()));
}

TEST_F(AnOpenArchive, ThatIsReadAgainInVainKeepsItsEntries) {
  OpenArchive archive = OpenAndRead();
  const std::vector<HogEntry> entries = archive.entries;
  PatchFileAt(stage.Game("resource.hog"), 8, {0, 1, 0, 0});
  archive.file = File(stage.host.files, stage.hogPath, OpenFor::reading);
  EXPECT_THROW(ReadArchiveTable(archive), FileError);
  EXPECT_EQ(archive.entries, entries);
}

TEST_F(AnOpenArchive, WritesOverOneEntryAndReadsItBack) {
  OpenArchive archive = OpenAndRead();
  Bytes expected = stage.Archive();
  const std::uint32_t place = archive.entries[1].FatPos;
  const Bytes row = TableRow(0x01020304, 0xA0B0C0D0, "other!");
  std::copy(row.begin(), row.end(), expected.begin() + place);
  WriteEntry(archive, 1, {"other!", 0x01020304, 0xA0B0C0D0});
  EXPECT_TRUE(SameBytes(expected, stage.Archive()));
  EXPECT_EQ(archive.entries[1], (HogEntry{"other!", 0xA0B0C0D0, 0x01020304, place}));
  WriteEntry(archive, 1, {"", 5, 6});
  EXPECT_EQ(archive.entries[1], (HogEntry{"other!", 6, 5, place}));
  EXPECT_EQ(stage.Table().entries, archive.entries);
}

TEST_F(AnOpenArchive, KnowsWhenAnEntryIsNoLongerWhatWasRead) {
  OpenArchive archive = OpenAndRead();
  EXPECT_TRUE(IsAsRead(archive, 1));
  PatchFileAt(stage.Game("resource.hog"), archive.entries[1].FatPos + 8, BytesOf("X"));
  archive.file = File(stage.host.files, stage.hogPath, OpenFor::reading);
  EXPECT_FALSE(IsAsRead(archive, 1));
  EXPECT_TRUE(IsAsRead(archive, 0));
}

TEST_F(AnOpenArchive, HasItsTablesBackupInItsFolder) {
  EXPECT_EQ(FatBackupOf("C:\\game\\resource.hog"), "C:\\game\\resource.FAT");
}

TEST_F(AnOpenArchive, HoldsAnEntryThatEndsWithTheFileAndNoneThatEndsAfterIt) {
  const OpenArchive archive = OpenAndRead();
  const auto length = static_cast<std::uint32_t>(archive.file.length);
  EXPECT_TRUE(LiesInside(archive.file, {"", 1, length - 1, 0}));
  EXPECT_TRUE(LiesInside(archive.file, {"", 0, length, 0}));
  EXPECT_FALSE(LiesInside(archive.file, {"", 2, length - 1, 0}));
  EXPECT_FALSE(LiesInside(archive.file, {"", 0xFFFFFFFF, 0xFFFFFFFF, 0}));
}

TEST_F(AnOpenArchive, TellsCompressedEntriesByTheirFirstTwoBytes) {
  stage.Write({{"packed", {0x10, 0xFB, 0}}, {"stored", {0xFB, 0x10, 0}}, {"short", {0x10}}});
  OpenArchive archive = OpenAndRead();
  EXPECT_TRUE(IsCompressed(archive.file, archive.entries[0]));
  EXPECT_FALSE(IsCompressed(archive.file, archive.entries[1]));
  EXPECT_FALSE(IsCompressed(archive.file, archive.entries[2]));
}

}  // namespace
}  // namespace oravin::test
