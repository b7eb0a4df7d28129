// Extracting: as stored and unpacked, with folders, clashes, refused names, stops and failures.

#include "archive/destination.h"
#include "files/whole_file.h"
#include "support/archive_tab_stage.h"
#include "support/fault.h"
#include "support/file_marks.h"

namespace oravin::test {
namespace {

struct Extracting : HogTabStage {
  void Extract() { cmdExtract_Click(stage.host, tab); }
  void Unpack() { cmdUnpackExtract_Click(stage.host, tab); }
  void ExpectComplete() { stage.desk.ExpectSuccess("Extraction Complete"); }
  void ExpectUnpackComplete() { stage.desk.ExpectSuccess("Unpacking and extraction Complete"); }
  void ExpectNotWritten(const std::string& lines) { stage.desk.ExpectBox("These files were not extracted:\n" + lines); }
  void ExpectQuestionAbout(const std::string& name, Answer answer) {
    stage.desk.Expect({"Error unpacking " + name + " file not compressed. Do you want to extract?", programTitle,
                       Icon::question, Buttons::yesNoCancel},
                      answer);
  }
  void Out(const std::string& name, const std::string& content) {
    WriteFileAt(stage.folder.Native("out/" + name), content);
  }
  const std::string text = "a text that repeats, repeats, repeats, repeats itself";
};

FolderImage FilesOf(const std::vector<std::pair<std::string, std::string>>& files) {
  FolderImage image;
  for (const auto& [name, content] : files) {
    for (std::size_t slash = name.find('/'); slash != std::string::npos; slash = name.find('/', slash + 1)) {
      image[name.substr(0, slash + 1)] = {};
    }
    image[name] = BytesOf(content);
  }
  return image;
}

TEST_F(Extracting, WritesTheSelectedEntriesAsTheyAreStored) {
  const demo::ArchiveFile packed = Packed("b.txt", text);
  Open({Stored("a.txt", "stored"), packed, Stored("c.txt", "left out"), Stored("empty", "")});
  Select({0, 1, 3});
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"a.txt", "stored"}, {"b.txt", TextOf(packed.bytes)}, {"empty", ""}}), Extracted()));
  EXPECT_EQ(tab.lblHogFiles.caption, "3 file(s)");
  EXPECT_EQ(tab.filesExtracted, 3U);
}

TEST_F(Extracting, NothingSelectedIsCompleteWithNoFiles) {
  Open({Stored("a.txt", "x")});
  ExpectComplete();
  Extract();
  EXPECT_EQ(tab.lblHogFiles.caption, "0 file(s)");
  EXPECT_TRUE(Extracted().empty());
}

TEST_F(Extracting, TheDestinationMustExist) {
  Open({Stored("a.txt", "x")});
  cmdSelectAll_Click(tab);
  for (const std::string& folder : {std::string(), stage.folder.Windows("nowhere"), stage.hogPath}) {
    tab.txtHogDest.text = folder;
    stage.desk.ExpectBox("Destination path doesn't exist", programTitle, Icon::none);
    Extract();
    stage.desk.ExpectBox("Destination path doesn't exist", programTitle, Icon::none);
    Unpack();
  }
  EXPECT_TRUE(Extracted().empty());
}

TEST_F(Extracting, TheDestinationGetsItsBackslash) {
  Open({Stored("a.txt", "x")});
  cmdSelectAll_Click(tab);
  tab.txtHogDest.text = " " + stage.folder.Windows("out") + " ";
  ExpectComplete();
  Extract();
  EXPECT_EQ(tab.txtHogDest.text, destination);
  EXPECT_TRUE(SameImage(FilesOf({{"a.txt", "x"}}), Extracted()));
}

TEST_F(Extracting, ProgressNamesEachFile) {
  Open({Stored("a.txt", "x"), Packed("b.txt", text)});
  cmdSelectAll_Click(tab);
  ExpectQuestionAbout("a.txt", Answer::yes);
  ExpectUnpackComplete();
  Unpack();
  ASSERT_EQ(stage.desk.progress.size(), 3U);
  EXPECT_EQ(stage.desk.progress[0].text, "Extracting a.txt");
  EXPECT_EQ(stage.desk.progress[0].done, 0);
  EXPECT_EQ(stage.desk.progress[1].text, "Unpacking and Extracting b.txt");
  EXPECT_EQ(stage.desk.progress[1].done, 1);
  EXPECT_EQ(stage.desk.progress[1].total, 2);
  EXPECT_EQ(stage.desk.progress[2].total, 0);
}

TEST_F(Extracting, UnpacksCompressedEntriesToExactlyTheirSize) {
  Open({Packed("a.txt", text), Packed("empty.txt", "")});
  cmdSelectAll_Click(tab);
  ExpectUnpackComplete();
  Unpack();
  EXPECT_TRUE(SameImage(FilesOf({{"a.txt", text}, {"empty.txt", ""}}), Extracted()));
  EXPECT_EQ(tab.lblHogFiles.caption, "2 file(s)");
}

TEST_F(Extracting, AStoredEntryIsAskedAboutAndYesWritesItsExactBytes) {
  Open({Stored("a.txt", "stored"), Packed("b.txt", text)});
  cmdSelectAll_Click(tab);
  ExpectQuestionAbout("a.txt", Answer::yes);
  ExpectUnpackComplete();
  Unpack();
  EXPECT_TRUE(SameImage(FilesOf({{"a.txt", "stored"}, {"b.txt", text}}), Extracted()));
}

TEST_F(Extracting, UnpackingAStoredEntryAndAnsweringNoLeavesNoDestinationFile) {
  Open({Stored("sub\\a.txt", "stored"), Packed("b.txt", text)});
  cmdSelectAll_Click(tab);
  ExpectQuestionAbout("sub\\a.txt", Answer::no);
  ExpectUnpackComplete();
  Unpack();
  EXPECT_TRUE(SameImage(FilesOf({{"b.txt", text}}), Extracted()));
  EXPECT_EQ(tab.lblHogFiles.caption, "1 file(s)");
}

TEST_F(Extracting, CancelEndsTheUnpacking) {
  Open({Packed("a.txt", text), Stored("b.txt", "stored"), Packed("c.txt", text)});
  cmdSelectAll_Click(tab);
  ExpectQuestionAbout("b.txt", Answer::cancel);
  stage.desk.ExpectBox("Exiting unpack / extract function", programTitle, Icon::none);
  Unpack();
  EXPECT_TRUE(SameImage(FilesOf({{"a.txt", text}}), Extracted()));
}

TEST_F(Extracting, AnEntryOfOneByteIsStored) {
  Open({Stored("a", "\x10"), Stored("b", "\xFB")});
  cmdSelectAll_Click(tab);
  ExpectQuestionAbout("a", Answer::yes);
  ExpectQuestionAbout("b", Answer::yes);
  ExpectUnpackComplete();
  Unpack();
  EXPECT_TRUE(SameImage(FilesOf({{"a", "\x10"}, {"b", "\xFB"}}), Extracted()));
}

TEST_F(Extracting, FilesComeInTheListsOrder) {
  Open({Stored("a.txt", "1"), Stored("b.txt", "2"), Stored("A.TXT", "3")});
  tab.hogList.clickedColumn = hogOffsetColumn;
  hogList_ColumnClick(tab);
  hogList_ColumnClick(tab);
  cmdSelectAll_Click(tab);
  ExpectNotWritten("a.txt: another file of the same name was extracted before it");
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"A.TXT", "3"}, {"b.txt", "2"}}), Extracted()));
}

TEST_F(Extracting, FoldersAreKeptAndMadeWhereTheyAreMissing) {
  MakeFolderAt(stage.folder.Native("out/Ships"));
  Open({Stored("ships\\new\\a.shp", "1"), Stored("SHIPS\\New\\b.shp", "2"), Stored("ships\\c.shp", "3")});
  cmdSelectAll_Click(tab);
  ExpectComplete();
  Extract();
  EXPECT_TRUE(
      SameImage(FilesOf({{"Ships/new/a.shp", "1"}, {"Ships/new/b.shp", "2"}, {"Ships/c.shp", "3"}}), Extracted()));
}

TEST_F(Extracting, AFileThatIsThereIsReplacedUnderItsSpelling) {
  Out("README.TXT", "a longer text that was there before");
  Open({Stored("readme.txt", "new")});
  cmdSelectAll_Click(tab);
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"README.TXT", "new"}}), Extracted()));
}

TEST_F(Extracting, NamesThatDifferOnlyInCaseAreReported) {
  Open({Stored("a.txt", "1"), Stored("A.txt", "2"), Stored("a.txt", "3"), Stored("b.txt", "4")});
  cmdSelectAll_Click(tab);
  ExpectNotWritten(
      "A.txt: another file of the same name was extracted before it\n"
      "a.txt: another file of the same name was extracted before it");
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"a.txt", "1"}, {"b.txt", "4"}}), Extracted()));
}

TEST_F(Extracting, ANameThatIsAFolderOfAnotherIsReported) {
  Open({Stored("a", "1"), Stored("A\\b", "2"), Stored("c\\d", "3"), Stored("C", "4")});
  cmdSelectAll_Click(tab);
  ExpectNotWritten("A\\b: a file that was extracted before bears its folder's name\nC: a folder bears its name");
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"a", "1"}, {"c/d", "3"}}), Extracted()));
}

TEST_F(Extracting, WhatLiesInTheDestinationAlreadyIsNotMistaken) {
  Out("ships", "a file");
  MakeFolderAt(stage.folder.Native("out/readme"));
  Open({Stored("ships\\a", "1"), Stored("README", "2"), Stored("b", "3")});
  cmdSelectAll_Click(tab);
  ExpectNotWritten("ships\\a: a file bears its folder's name\nREADME: a folder bears its name");
  ExpectComplete();
  Extract();
  FolderImage expected = FilesOf({{"b", "3"}, {"ships", "a file"}});
  expected["readme/"] = {};
  EXPECT_TRUE(SameImage(expected, Extracted()));
}

TEST_F(Extracting, AReadOnlyFileIsLeftAndReported) {
  Out("a", "old");
  SetReadOnly(stage.folder.Native("out/a"), true);
  Open({Stored("a", "1"), Stored("b", "2")});
  cmdSelectAll_Click(tab);
  ExpectNotWritten("a: there is a file of its name, and it is read-only");
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"a", "old"}, {"b", "2"}}), Extracted()));
}

TEST_F(Extracting, NamesThatWouldLeaveTheDestinationAreListedAndTheOthersExtracted) {
  Open({Stored("..\\evil", "1"), Stored("a", "2"), Stored("\\evil", "3"), Stored("C:evil", "4"), Stored("NUL", "5"),
        Stored("x.", "6"), Stored("x ", "7"), Stored("", "8"), Stored("sub\\..\\..\\evil", "9"), Stored("b", "10")});
  cmdSelectAll_Click(tab);
  const FolderImage before = stage.Image();
  ExpectNotWritten(
      "..\\evil: it would leave the destination\n\\evil: it would leave the destination\n"
      "C:evil: it would leave the destination\nNUL: no file can bear its name\n"
      "x.: no file can bear its name\nx : no file can bear its name\n: it has no name\n"
      "sub\\..\\..\\evil: it would leave the destination");
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"a", "2"}, {"b", "10"}}), Extracted()));
  EXPECT_TRUE(SameImage(Without(before, {"out/"}), Without(stage.Image(), {"out/"})));
  EXPECT_EQ(tab.lblHogFiles.caption, "2 file(s)");
}

TEST_F(Extracting, TheArchiveItselfIsNeverOverwritten) {
  Open({Stored("RESOURCE.hog", "1"), Stored("a", "2")});
  cmdSelectAll_Click(tab);
  const Bytes archive = stage.Archive();
  tab.txtHogDest.text = stage.gamePath;
  ExpectNotWritten("RESOURCE.hog: it would overwrite the archive itself");
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
  EXPECT_EQ(TextOf(ReadFileAt(stage.Game("a"))), "2");
}

TEST_F(Extracting, TheArchiveIsKnownByOtherNamesToo) {
  Open({Stored("other", "1")});
  std::filesystem::create_hard_link(stage.Game("resource.hog"), stage.folder.Native("out/other"));
  cmdSelectAll_Click(tab);
  ExpectNotWritten("other: it would overwrite the archive itself");
  ExpectComplete();
  Extract();
}

TEST_F(Extracting, AnEntryThatLiesPastTheArchivesEndEndsItAndWhatWasWrittenStays) {
  Bytes archive = demo::BuildArchive({Stored("a", "1"), Stored("b", "2"), Stored("c", "3")});
  PutBigEndian32(&archive[16 + 10 + 4], 0xFFFFFFFF);
  Open(archive);
  cmdSelectAll_Click(tab);
  stage.desk.ExpectBox("Error - could not extract b: its place in the archive lies past that file's end",
                       "cmdExtract_Click()");
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"a", "1"}}), Extracted()));
  EXPECT_EQ(tab.filesExtracted, 1U);
}

TEST_F(Extracting, AStreamThatEndsEarlyEndsItWithoutAHalfWrittenFile) {
  // 16 MiB declared, with three bytes of stream.
  Open({Packed("a", text), {"b", {0x10, 0xFB, 0xFF, 0xFF, 0xFF, 0xE0, 1, 2}}, Packed("c", text)});
  cmdSelectAll_Click(tab);
  Out("b", "an older one");
  stage.desk.ExpectBox("Error - could not unpack b: its compressed data end too early", "cmdUnpackExtract_Click()");
  Unpack();
  EXPECT_TRUE(SameImage(FilesOf({{"a", text}, {"b", "an older one"}}), Extracted()));
}

TEST_F(Extracting, ASignatureAloneIsTooShort) {
  Open({{"a", {0x10, 0xFB, 0x00}}});
  cmdSelectAll_Click(tab);
  stage.desk.ExpectBox("Error - could not unpack a: it is too short", "cmdUnpackExtract_Click()");
  Unpack();
  EXPECT_TRUE(Extracted().empty());
}

TEST_F(Extracting, OverlappingEntriesAreEachWrittenWhole) {
  Bytes archive = demo::BuildArchive({Stored("a", "0123456789"), Stored("b", "x")});
  PutBigEndian32(&archive[16 + 10], BigEndian32(&archive[16]) + 3);
  PutBigEndian32(&archive[16 + 10 + 4], 4);
  Open(archive);
  cmdSelectAll_Click(tab);
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"a", "0123456789"}, {"b", "3456"}}), Extracted()));
}

TEST_F(Extracting, ALongNameIsShownShortened) {
  const std::string name(1000000, 'n');
  Open({Stored(name, "1"), Stored("b", "2")});
  cmdSelectAll_Click(tab);
  ExpectNotWritten(std::string(58, 'n') + "..." + std::string(58, 'n') + ": its name is too long");
  ExpectComplete();
  Extract();
  EXPECT_TRUE(SameImage(FilesOf({{"b", "2"}}), Extracted()));
}

TEST_F(Extracting, AStopLeavesWhatIsWholeAndNoHalfWrittenFile) {
  const std::string large(3 << 20, 'L');
  for (int questions = 0; questions < 7; ++questions) {
    Open({Stored("a", "1"), Stored("large", large), Stored("c", "3")});
    cmdSelectAll_Click(tab);
    stage.desk.StopAfter(questions);
    // Asked before each file, and between the blocks of the large one.
    const int whole = questions == 0 ? 0 : questions < 4 ? 1 : questions == 4 ? 2 : 3;
    if (whole == 3) {
      ExpectComplete();
    } else {
      stage.desk.ExpectBox("You stopped the extraction. " + std::to_string(whole) + " file(s) were extracted before.",
                           programTitle, Icon::information);
    }
    Extract();
    stage.desk.stopAfter.reset();
    FolderImage expected;
    if (whole > 0) expected["a"] = BytesOf("1");
    if (whole > 1) expected["large"] = BytesOf(large);
    if (whole > 2) expected["c"] = BytesOf("3");
    EXPECT_TRUE(SameImage(expected, Extracted())) << questions;
    std::filesystem::remove_all(stage.folder.Native("out"));
    MakeFolderAt(stage.folder.Native("out"));
  }
}

TEST_F(Extracting, WhereverAnOperationFailsEveryFileIsOldOrNewAsAWhole) {
  const std::map<std::string, std::string> fresh = {{"a", "new a"}, {"sub/b", "new b"}};
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    std::filesystem::remove_all(stage.folder.Native("out"));
    MakeFolderAt(stage.folder.Native("out"));
    Out("a", "the old a");
    Open({Stored("a", "new a"), Stored("sub\\b", "new b")});
    cmdSelectAll_Click(tab);
    stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
    Watch(stage.host.files, fault);
    Extract();
    stage.host.files.before = nullptr;
    for (const auto& [name, bytes] : Extracted()) {
      if (name == "sub/") continue;
      const bool old = name == "a" && TextOf(bytes) == "the old a";
      EXPECT_TRUE(old || (fresh.contains(name) && TextOf(bytes) == fresh.at(name))) << name << " after " << fault.what;
    }
    EXPECT_TRUE(Extracted().contains("a")) << fault.what;
  });
  EXPECT_GE(operations, 8);
}

TEST_F(Extracting, WhereverTheProcessStopsNoFileOfTheDestinationIsHalfWritten) {
  AtEachOperation(FaultKind::stop, [&](Fault& fault) {
    std::filesystem::remove_all(stage.folder.Native("out"));
    MakeFolderAt(stage.folder.Native("out"));
    Out("a", "the old a");
    Open({Stored("a", "new a"), Stored("b", "new b")});
    cmdSelectAll_Click(tab);
    stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
    Watch(stage.host.files, fault);
    Stopped([&] { Extract(); });
    stage.host.files.before = nullptr;
    for (const auto& [name, bytes] : Extracted()) {
      if (name.ends_with(besideSuffix)) continue;
      const std::string content = TextOf(bytes);
      EXPECT_TRUE(content == "new " + name || content == "the old a") << name << " after " << fault.what;
    }
    // The next run leaves nothing of the one that was cut short.
    Open({Stored("a", "new a"), Stored("b", "new b")});
    cmdSelectAll_Click(tab);
    Extract();
    EXPECT_TRUE(SameImage(FilesOf({{"a", "new a"}, {"b", "new b"}}), Extracted())) << fault.what;
  });
}

}  // namespace
}  // namespace oravin::test
