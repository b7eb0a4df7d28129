// Extracting into a folder that tells upper from lower case, where one name lies in several spellings.

#include "support/archive_tab_stage.h"

namespace oravin::test {
namespace {

struct SeveralSpellings : HogTabStage {
  SeveralSpellings() {
    for (const char* name : {"A.TXT", "A.txt", "a.txt"}) {
      WriteFileAt(stage.folder.Native(std::string("out/") + name), std::string("an older ") + name);
    }
  }
};

TEST_F(SeveralSpellings, TheEntrysOwnIsReplaced) {
  Open({Stored("a.txt", "stored")});
  cmdSelectAll_Click(tab);
  FolderImage expected = Extracted();
  expected["a.txt"] = BytesOf("stored");
  stage.desk.ExpectSuccess("Extraction Complete");
  cmdExtract_Click(stage.host, tab);
  EXPECT_TRUE(SameImage(expected, Extracted()));
}

TEST_F(SeveralSpellings, WithoutTheEntrysOwnTheFirstInByteOrderIsReplaced) {
  Open({Stored("a.TXT", "stored")});
  cmdSelectAll_Click(tab);
  FolderImage expected = Extracted();
  expected["A.TXT"] = BytesOf("stored");
  stage.desk.ExpectSuccess("Extraction Complete");
  cmdExtract_Click(stage.host, tab);
  EXPECT_TRUE(SameImage(expected, Extracted()));
}

TEST_F(SeveralSpellings, OneOfThemIsWrittenInOneExtraction) {
  Open({Stored("a.txt", "stored"), Stored("A.TXT", "stored too")});
  cmdSelectAll_Click(tab);
  FolderImage expected = Extracted();
  expected["a.txt"] = BytesOf("stored");
  stage.desk.ExpectBox("These files were not extracted:\nA.TXT: another file of the same name was extracted before it");
  stage.desk.ExpectSuccess("Extraction Complete");
  cmdExtract_Click(stage.host, tab);
  EXPECT_TRUE(SameImage(expected, Extracted()));
}

TEST_F(SeveralSpellings, NoToAStoredEntryDeletesItsOwnAlone) {
  Open({Stored("a.txt", "stored")});
  cmdSelectAll_Click(tab);
  const FolderImage before = Extracted();
  stage.desk.Expect({"Error unpacking a.txt file not compressed. Do you want to extract?", programTitle, Icon::question,
                     Buttons::yesNoCancel},
                    Answer::no);
  stage.desk.ExpectSuccess("Unpacking and extraction Complete");
  cmdUnpackExtract_Click(stage.host, tab);
  EXPECT_TRUE(SameImage(Without(before, {"a.txt"}), Extracted()));
  EXPECT_FALSE(Extracted().contains("a.txt"));
}

}  // namespace
}  // namespace oravin::test
