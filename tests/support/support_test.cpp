#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "base/file_error.h"
#include "desk/dialogs.h"
#include "files/whole_file.h"
#include "support/fault.h"
#include "support/folder_image.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

TEST(TemporaryFolder, GoesWithAllThatIsInIt) {
  std::filesystem::path native;
  {
    const TemporaryFolder folder;
    native = folder.native;
    WriteFileAt(folder.Native("a/b.txt"), "x");
    EXPECT_EQ(ReadTextAt(folder.Native("a/b.txt")), "x");
    EXPECT_EQ(folder.windows.substr(1, 2), ":\\");
    EXPECT_TRUE(folder.windows.ends_with("\\"));
    EXPECT_EQ(folder.Windows("a/b.txt"), folder.windows + "a\\b.txt");
  }
  EXPECT_FALSE(std::filesystem::exists(native));
}

TEST(FolderImage, TellsMissingNewAndChangedFiles) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("same"), "s");
  WriteFileAt(folder.Native("gone"), "g");
  WriteFileAt(folder.Native("deep/changed"), Bytes{1, 2, 3});
  const FolderImage before = ImageOf(folder.native);
  EXPECT_TRUE(SameImage(before, ImageOf(folder.native)));

  std::filesystem::remove(folder.Native("gone"));
  WriteFileAt(folder.Native("deep/changed"), Bytes{1, 9});
  WriteFileAt(folder.Native("new"), "nn");
  const FolderImage after = ImageOf(folder.native);
  EXPECT_FALSE(SameImage(before, after));
  EXPECT_EQ(Differences(before, after),
            "  changed: deep/changed: 2 bytes instead of 3, from byte 1 on 09 instead of 02 03\n"
            "  missing: gone\n"
            "  new: new (2 bytes)\n");
  EXPECT_EQ(Differences(Without(before, {"deep/", "gone"}), Without(after, {"deep/", "new"})), "");
}

TEST(FolderImage, KnowsEmptyFolders) {
  const TemporaryFolder folder;
  MakeFolderAt(folder.Native("empty"));
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"empty/", {}}}));
}

TEST(ScriptedDesk, GivesTheAnswersInOrder) {
  ScriptedHost at;
  at.desk.ExpectQuestion("One?", Answer::yes);
  at.desk.ExpectQuestion("Two?", Answer::no, "Title");
  EXPECT_TRUE(AskYesNo(at.host, "One?"));
  EXPECT_FALSE(AskYesNo(at.host, "Two?", "Title"));
  EXPECT_TRUE(at.desk.Done());
}

// The failures that the macros below look for must come from a function of its own: they cannot reach local variables.
void ShowUnexpected() {
  ScriptedHost at;
  Show(at.host, "Surprise", Icon::none);
}

void ShowDifferent() {
  ScriptedHost at;
  at.desk.ExpectBox("Text", "Title", Icon::critical);
  Show(at.host, "Text", Icon::exclamation, "Title");
}

void ShowNothing() {
  ScriptedHost at;
  at.desk.ExpectBox("Text");
}

void BrowseUnexpected() {
  ScriptedHost at;
  EXPECT_EQ(BrowseForFolder(at.host), "");
}

void BrowseNever() {
  ScriptedHost at;
  at.desk.AnswerFolder("Z:\\");
}

TEST(ScriptedDesk, ABoxThatWasNotExpectedFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(ShowUnexpected(), "was not expected");
}

TEST(ScriptedDesk, ABoxThatDiffersFailsTheTest) { EXPECT_NONFATAL_FAILURE(ShowDifferent(), "a box differs"); }

TEST(ScriptedDesk, ABoxThatNeverComesFailsTheTest) { EXPECT_NONFATAL_FAILURE(ShowNothing(), "never came"); }

TEST(ScriptedDesk, ADialogThatWasNotExpectedFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(BrowseUnexpected(), "was not expected");
}

TEST(ScriptedDesk, ADialogThatNeverOpensFailsTheTest) { EXPECT_NONFATAL_FAILURE(BrowseNever(), "never opened"); }

TEST(ScriptedDesk, RecordsProgress) {
  ScriptedHost at;
  ShowProgress(at.host, "Copying", 1, 2);
  EndProgress(at.host);
  ASSERT_EQ(at.desk.progress.size(), 2U);
  EXPECT_EQ(at.desk.progress[0].text, "Copying");
  EXPECT_EQ(at.desk.progress[0].done, 1);
  EXPECT_EQ(at.desk.progress[0].total, 2);
  EXPECT_EQ(at.desk.progress[1].total, 0);
}

TEST(Fault, FailsTheOperationOfItsNumber) {
  const TemporaryFolder folder;
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    Files files;
    Watch(files, fault);
    const std::string path = folder.Windows("file");
    if (fault.at <= 4) {  // open, write, flush, rename
      EXPECT_THROW(WriteWhole(files, path, BytesOf("x")), FileError);
      EXPECT_FALSE(std::filesystem::exists(folder.Native("file")));
    } else {
      WriteWhole(files, path, BytesOf("x"));
      EXPECT_EQ(ReadTextAt(folder.Native("file")), "x");
    }
  });
  EXPECT_EQ(operations, 4);
}

TEST(Fault, StopsTheProcessWithoutTidyingUp) {
  const TemporaryFolder folder;
  Files files;
  Fault fault{FaultKind::stop, 3, 0, false, {}};
  Watch(files, fault);
  EXPECT_TRUE(Stopped([&] { WriteWhole(files, folder.Windows("file"), BytesOf("x")); }));
  EXPECT_TRUE(fault.happened);
  EXPECT_EQ(fault.what, "flush " + folder.Windows("file.oravin-new"));
  EXPECT_TRUE(std::filesystem::exists(folder.Native("file.oravin-new")));
}

}  // namespace
}  // namespace oravin::test
