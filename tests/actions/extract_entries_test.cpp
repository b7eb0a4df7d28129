// Extraction and the table's backup as actions on an open archive, without a tab: what they return and report.

#include "actions/extract_entries.h"

#include "actions/back_up_table.h"
#include "demo/compressor.h"
#include "support/archive_stage.h"

namespace oravin::test {
namespace {

struct ExtractingEntries : testing::Test {
  ExtractingEntries() {
    MakeFolderAt(stage.folder.Native("out"));
    stage.Write({{"a.txt", BytesOf("stored a")},
                 {"sub\\b.txt", demo::Compress(BytesOf("the packed content"))},
                 {"c.txt", BytesOf("stored c")}});
    archive = OpenArchiveAt(stage.host.files, stage.hogPath);
    EXPECT_EQ(ReadArchiveTable(archive).condition, TableCondition::readable);
  }

  ExtractionResult Extract(const std::vector<std::size_t>& entries, ExtractionMode mode) {
    return ExtractEntries(
        stage.host, archive, entries, stage.folder.Windows("out\\"), mode,
        [&](const HogEntry& entry, bool unpacking) { steps.push_back(ExtractionText(entry.Name, unpacking)); });
  }
  void ExpectQuestion(Answer answer) {
    stage.desk.Expect({"Error unpacking a.txt file not compressed. Do you want to extract?", programTitle,
                       Icon::question, Buttons::yesNoCancel},
                      answer);
  }
  [[nodiscard]] FolderImage Extracted() const { return ImageOf(stage.folder.Native("out")); }

  ArchiveStage stage;
  OpenArchive archive;
  std::vector<std::string> steps;
};

TEST_F(ExtractingEntries, WritesTheGivenOnesInTheirOrderAndReturnsTheirNumber) {
  const ExtractionResult result = Extract({2, 0}, ExtractionMode::stored);
  EXPECT_EQ(result.end, ExtractionEnd::complete);
  EXPECT_EQ(result.files, 2U);
  EXPECT_EQ(steps, (std::vector<std::string>{"Extracting c.txt", "Extracting a.txt"}));
  EXPECT_TRUE(SameImage({{"a.txt", BytesOf("stored a")}, {"c.txt", BytesOf("stored c")}}, Extracted()));
  ASSERT_EQ(stage.desk.progress.size(), 3U);
  EXPECT_EQ(stage.desk.progress[1].text, "Extracting a.txt");
  EXPECT_EQ(stage.desk.progress[1].done, 1);
  EXPECT_EQ(stage.desk.progress[1].total, 2);
  EXPECT_EQ(stage.desk.progress[2].total, 0);
}

TEST_F(ExtractingEntries, UnpacksAndAsksAboutWhatIsNotCompressed) {
  ExpectQuestion(Answer::no);
  const ExtractionResult result = Extract({0, 1}, ExtractionMode::unpacked);
  EXPECT_EQ(result.end, ExtractionEnd::complete);
  EXPECT_EQ(result.files, 1U);
  EXPECT_EQ(steps, std::vector<std::string>{"Unpacking and Extracting sub\\b.txt"});
  EXPECT_EQ(ReadTextAt(stage.folder.Native("out/sub/b.txt")), "the packed content");
}

TEST_F(ExtractingEntries, EndsWithCancelAndWhereNobodyAnswers) {
  for (const Answer answer : {Answer::cancel, Answer::none}) {
    ExpectQuestion(answer);
    const ExtractionResult result = Extract({1, 0, 2}, ExtractionMode::unpacked);
    EXPECT_EQ(result.end, ExtractionEnd::cancelled);
    EXPECT_EQ(result.files, 1U);
  }
}

TEST_F(ExtractingEntries, StopsWhenTheUserAsksForIt) {
  int asked = 0;
  stage.host.desk.stopAsked = [&] { return ++asked > 1; };
  const ExtractionResult result = Extract({0, 2}, ExtractionMode::stored);
  EXPECT_EQ(result.end, ExtractionEnd::stopped);
  EXPECT_EQ(result.files, 1U);
}

TEST_F(ExtractingEntries, FailsAtAnEntryOutsideTheArchiveAndKeepsWhatWasWritten) {
  archive.entries[2].Offset = 0xFFFFFFFF;
  stage.desk.ExpectBox("Error - could not extract c.txt: its place in the archive lies past that file's end",
                       "cmdExtract_Click()");
  const ExtractionResult result = Extract({0, 2}, ExtractionMode::stored);
  EXPECT_EQ(result.end, ExtractionEnd::failed);
  EXPECT_EQ(result.files, 1U);
  EXPECT_TRUE(SameImage({{"a.txt", BytesOf("stored a")}}, Extracted()));
}

TEST_F(ExtractingEntries, TheTablesBackupIsSavedAndRestored) {
  const Bytes before = stage.Archive();
  EXPECT_EQ(BackUpTable(stage.host, archive), TableCopy::done);
  EXPECT_TRUE(
      SameBytes(Bytes(before.begin(), before.begin() + archive.tableSize), ReadFileAt(stage.Game("resource.FAT"))));
  WriteEntry(archive, 0, {"x.txt", 1, 2});
  stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
  EXPECT_EQ(RestoreTable(stage.host, archive), TableCopy::done);
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
  EXPECT_EQ(stage.desk.shown.back().title, "Hog File Allocation Table Restore");
}

TEST_F(ExtractingEntries, TheTablesBackupIsDeclinedOrFails) {
  EXPECT_EQ(BackUpTable(stage.host, archive), TableCopy::done);
  const FolderImage before = stage.Image();
  stage.desk.AllowOthers([](const Message&) { return Answer::cancel; });
  EXPECT_EQ(BackUpTable(stage.host, archive), TableCopy::declined);
  EXPECT_EQ(RestoreTable(stage.host, archive), TableCopy::declined);
  EXPECT_TRUE(SameImage(before, stage.Image()));
  stage.desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::yesNo ? Answer::yes : Answer::ok; });
  archive.tableSize = 15;
  EXPECT_EQ(BackUpTable(stage.host, archive), TableCopy::failed);
  EXPECT_EQ(stage.desk.shown.back().title, "cmdBackupFAT_Click()");
  WriteFileAt(stage.Game("resource.FAT"), "no backup");
  EXPECT_EQ(RestoreTable(stage.host, archive), TableCopy::failed);
  EXPECT_EQ(stage.desk.shown.back().title, "cmdRestoreFAT_Click()");
  EXPECT_TRUE(SameBytes(before.at("game/resource.hog"), stage.Archive()));
}

}  // namespace
}  // namespace oravin::test
