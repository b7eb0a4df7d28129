// Unpacking: what No and Cancel to the question about an entry that is not compressed leave in the destination.

#include "support/archive_tab_stage.h"
#include "support/fault.h"
#include "support/file_marks.h"

namespace oravin::test {
namespace {

struct Declining : HogTabStage {
  void Unpack() { cmdUnpackExtract_Click(stage.host, tab); }
  void ExpectQuestionAbout(const std::string& name, Answer answer) {
    stage.desk.Expect({"Error unpacking " + name + " file not compressed. Do you want to extract?", programTitle,
                       Icon::question, Buttons::yesNoCancel},
                      answer);
  }
  void ExpectComplete() { stage.desk.ExpectSuccess("Unpacking and extraction Complete"); }
  void ExpectCancelled() { stage.desk.ExpectBox("Exiting unpack / extract function", programTitle, Icon::none); }
  void Out(const std::string& name, const std::string& content) {
    WriteFileAt(stage.folder.Native("out/" + name), content);
  }
};

TEST_F(Declining, NoDeletesAnOlderDestinationFileAndNothingElse) {
  for (const char* name : {"a.txt", "a.txt.bak", "a", "b.txt", "aa.txt"}) Out(name, std::string("an older ") + name);
  MakeFolderAt(stage.folder.Native("out/sub"));
  Out("sub/a.txt", "another folder's");
  Open({Stored("a.txt", "stored")});
  Select({0});
  const FolderImage before = stage.Image();
  ExpectQuestionAbout("a.txt", Answer::no);
  ExpectComplete();
  Unpack();
  EXPECT_TRUE(SameImage(Without(before, {"out/a.txt"}), stage.Image()));
  EXPECT_FALSE(Extracted().contains("a.txt"));
  EXPECT_EQ(tab.filesExtracted, 0U);
}

TEST_F(Declining, CancelDeletesAnOlderDestinationFileAndNothingElse) {
  for (const char* name : {"a.txt", "b.txt", "c.txt"}) Out(name, std::string("an older ") + name);
  Open({Packed("a.txt", "packed"), Stored("b.txt", "stored"), Stored("c.txt", "never asked about")});
  cmdSelectAll_Click(tab);
  FolderImage expected = stage.Image();
  expected.erase("out/b.txt");
  expected["out/a.txt"] = BytesOf("packed");
  ExpectQuestionAbout("b.txt", Answer::cancel);
  ExpectCancelled();
  Unpack();
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Declining, NobodysAnswerEndsItAsCancelDoesAndLeavesAnOlderDestinationFile) {
  for (const char* name : {"a.txt", "b.txt", "c.txt"}) Out(name, std::string("an older ") + name);
  Open({Packed("a.txt", "packed"), Stored("b.txt", "stored"), Stored("c.txt", "never asked about")});
  cmdSelectAll_Click(tab);
  FolderImage expected = stage.Image();
  expected["out/a.txt"] = BytesOf("packed");
  ExpectQuestionAbout("b.txt", Answer::none);
  ExpectCancelled();
  Unpack();
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Declining, NoDeletesAnOlderFileInAFolderAndUnderItsOwnSpelling) {
  MakeFolderAt(stage.folder.Native("out/Ships"));
  Out("Ships/TIGER.SHP", "an older one");
  Out("Ships/manta.shp", "another");
  Open({Stored("ships\\tiger.shp", "stored"), Stored("SHIPS\\new\\x.shp", "stored")});
  cmdSelectAll_Click(tab);
  const FolderImage before = stage.Image();
  ExpectQuestionAbout("ships\\tiger.shp", Answer::no);
  ExpectQuestionAbout("SHIPS\\new\\x.shp", Answer::no);
  ExpectComplete();
  Unpack();
  EXPECT_TRUE(SameImage(Without(before, {"out/Ships/TIGER.SHP"}), stage.Image())) << "no folder is made either";
  EXPECT_FALSE(Extracted().contains("Ships/TIGER.SHP"));
}

TEST_F(Declining, NoToTheSecondOfANameLeavesWhatWasExtractedBefore) {
  Open({Packed("a.txt", "packed"), Stored("A.TXT", "stored")});
  cmdSelectAll_Click(tab);
  stage.desk.ExpectBox("These files were not extracted:\nA.TXT: another file of the same name was extracted before it");
  ExpectComplete();
  Unpack();
  EXPECT_TRUE(SameImage({{"a.txt", BytesOf("packed")}}, Extracted()));
}

TEST_F(Declining, ANameIsFreeAgainAfterNo) {
  Out("a.txt", "an older one");
  Open({Stored("a.txt", "stored"), Packed("A.TXT", "packed"), Stored("a.txt", "stored")});
  Select({0, 1});
  ExpectQuestionAbout("a.txt", Answer::no);
  ExpectComplete();
  Unpack();
  EXPECT_TRUE(SameImage({{"A.TXT", BytesOf("packed")}}, Extracted()));
}

TEST_F(Declining, NoTwiceForOneNameIsNoFailure) {
  Out("a.txt", "an older one");
  Open({Stored("a.txt", "1"), Stored("A.txt", "2")});
  cmdSelectAll_Click(tab);
  ExpectQuestionAbout("a.txt", Answer::no);
  ExpectQuestionAbout("A.txt", Answer::no);
  ExpectComplete();
  Unpack();
  EXPECT_TRUE(Extracted().empty());
}

TEST_F(Declining, WhatCannotBeReplacedIsNotAskedAboutAndNotDeleted) {
  Out("read-only", "an older one");
  SetReadOnly(stage.folder.Native("out/read-only"), true);
  MakeFolderAt(stage.folder.Native("out/folder"));
  Out("folder/inside", "kept");
  Open({Stored("read-only", "1"), Stored("folder", "2"), Stored("..\\evil", "3"), Stored("archive", "4")});
  std::filesystem::create_hard_link(stage.Game("resource.hog"), stage.folder.Native("out/archive"));
  cmdSelectAll_Click(tab);
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox(
      "These files were not extracted:\nread-only: there is a file of its name, and it is read-only\n"
      "folder: a folder bears its name\n..\\evil: it would leave the destination\n"
      "archive: it would overwrite the archive itself");
  ExpectComplete();
  Unpack();
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Declining, AFileThatCannotBeDeletedEndsItWithABoxAndStays) {
  Out("a.txt", "an older one");
  Out("b.txt", "another");
  Open({Stored("a.txt", "stored"), Stored("b.txt", "stored")});
  cmdSelectAll_Click(tab);
  const FolderImage before = stage.Image();
  Fault fault{FaultKind::failure, 1, 0, false, {}};
  Watch(stage.host.files, fault);
  ExpectQuestionAbout("a.txt", Answer::no);
  const std::string path = stage.folder.Windows("out\\a.txt");
  stage.desk.ExpectBox("Error - could not erase " + path + ": " + faultReason, "cmdUnpackExtract_Click()");
  Unpack();
  stage.host.files.before = nullptr;
  EXPECT_TRUE(fault.happened);
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

}  // namespace
}  // namespace oravin::test
