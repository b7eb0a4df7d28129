// Changes of single entries of a table, without a form: what is written and returned.

#include "actions/edit_entry.h"

#include "support/archive_stage.h"

namespace oravin::test {
namespace {

struct EditingAnEntry : testing::Test {
  EditingAnEntry() {
    stage.Write({{"a.txt", BytesOf("first")}, {"b.txt", BytesOf("second")}});
    archive = OpenArchiveAt(stage.host.files, stage.hogPath);
    EXPECT_EQ(ReadArchiveTable(archive).condition, TableCondition::readable);
    before = stage.Archive();
  }

  /// The archive with the second entry's bytes in the table replaced.
  [[nodiscard]] Bytes WithSecond(std::uint32_t offset, std::uint32_t size, const std::string& name) const {
    Bytes changed = before;
    const Bytes row = TableRow(offset, size, name);
    std::copy(row.begin(), row.end(), changed.begin() + archive.entries[1].FatPos);
    return changed;
  }

  ArchiveStage stage;
  OpenArchive archive;
  Bytes before;
};

TEST_F(EditingAnEntry, WritesTheTypedTextsAndShowsTheNumbersAsTheyWereTaken) {
  EntryTexts texts{"c.txt", " 1a2b ", "ff"};
  EXPECT_TRUE(EditEntry(stage.host, archive, 1, texts));
  EXPECT_TRUE(SameBytes(WithSecond(0x1A2B, 0xFF, "c.txt"), stage.Archive()));
  EXPECT_EQ(archive.entries[1].Name, "c.txt");
  EXPECT_EQ(texts.offset, "1A2B");
  EXPECT_EQ(texts.size, "FF");
}

TEST_F(EditingAnEntry, RefusesWhatCannotBeWrittenAndWritesNothing) {
  EntryTexts longer{"longer.txt", "1", "2"};
  stage.desk.ExpectBox(
      "The name of the file MUST be the same length or the\nentire .hog file will have to be rebuilt. Changes not "
      "saved",
      "Table Editor");
  EXPECT_FALSE(EditEntry(stage.host, archive, 1, longer));
  EntryTexts wrong{"b.txt", "1", "2g"};
  stage.desk.ExpectBox("The value entered for size is an invalid hexadecimal number", "Table Editor");
  EXPECT_FALSE(EditEntry(stage.host, archive, 1, wrong));
  archive.whyReadOnly = "it is read-only";
  EntryTexts right{"b.txt", "1", "2"};
  stage.desk.ExpectBox("This archive can only be looked at and extracted from: it is read-only.");
  EXPECT_FALSE(EditEntry(stage.host, archive, 1, right));
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(EditingAnEntry, AnIndexThatIsNotThereChangesNothing) {
  EntryTexts texts{"b.txt", "1", "2"};
  EXPECT_FALSE(EditEntry(stage.host, archive, 2, texts));
  EXPECT_FALSE(PasteEntry(stage.host, archive, 2, {stage.hogPath, "a.txt", 1, 2}));
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(EditingAnEntry, PasteAsksAndWritesThePlaceAndTheSizeOnly) {
  const RememberedPlace place{stage.hogPath, "a.txt", 0x77, 0x88};
  const std::string question =
      "Do you want a.txt\nto stand in for b.txt?\n"
      "The table will then give the second file the place and the size of the first.";
  stage.desk.ExpectQuestion(question, Answer::no);
  EXPECT_FALSE(PasteEntry(stage.host, archive, 1, place));
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
  stage.desk.ExpectQuestion(question, Answer::yes);
  EXPECT_TRUE(PasteEntry(stage.host, archive, 1, place));
  EXPECT_TRUE(SameBytes(WithSecond(0x77, 0x88, "b.txt"), stage.Archive()));
}

}  // namespace
}  // namespace oravin::test
