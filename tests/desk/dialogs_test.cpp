#include "desk/dialogs.h"

#include <gtest/gtest.h>

#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::ScriptedHost;

TEST(Dialogs, AMessageHasTheOkButtonAndTheProgramsNameForATitle) {
  ScriptedHost at;
  at.desk.Expect({"Text", "Oravin", Icon::critical, Buttons::ok, false});
  at.desk.Expect({"Text", "Another", Icon::exclamation, Buttons::ok, false});
  Show(at.host, "Text", Icon::critical);
  Show(at.host, "Text", Icon::exclamation, "Another");
}

TEST(Dialogs, AMessageOfSuccessIsMarkedAsOne) {
  ScriptedHost at;
  at.desk.Expect({"Done", "Oravin", Icon::exclamation, Buttons::ok, true});
  ShowSuccess(at.host, "Done", Icon::exclamation);
}

TEST(Dialogs, AQuestionHasYesAndNoAndTheQuestionIcon) {
  ScriptedHost at;
  at.desk.Expect({"Sure?", "Oravin", Icon::question, Buttons::yesNo, false}, Answer::yes);
  at.desk.Expect({"Sure?", "Oravin - x", Icon::question, Buttons::yesNo, false}, Answer::no);
  EXPECT_TRUE(AskYesNo(at.host, "Sure?"));
  EXPECT_FALSE(AskYesNo(at.host, "Sure?", "Oravin - x"));
}

TEST(BrowseForFolder, AsksWithItsPromptAndReturnsTheChoice) {
  ScriptedHost at;
  at.desk.AnswerFolder("Z:\\game");
  at.desk.AnswerFolder("Z:\\other");
  EXPECT_EQ(BrowseForFolder(at.host), "Z:\\game");
  EXPECT_EQ(BrowseForFolder(at.host, "Where is it?"), "Z:\\other");
  EXPECT_EQ(at.desk.prompts, (std::vector<std::string>{"Select Folder", "Where is it?"}));
}

TEST(BrowseForFolder, CancelGivesAnEmptyText) {
  ScriptedHost at;
  at.desk.AnswerFolder("");
  EXPECT_EQ(BrowseForFolder(at.host), "");
}

TEST(BrowseForFolder, ADeskWithoutABrowserCancels) {
  Host host;
  EXPECT_EQ(BrowseForFolder(host), "");
}

TEST(ChooseFile, AsksAndReturnsAFileThatIsThere) {
  const test::TemporaryFolder folder;
  test::WriteFileAt(folder.Native("a.hog"), "x");
  ScriptedHost at;
  at.desk.AnswerFile(folder.Windows("a.hog"));
  const std::string begin = " C:\\Game ";
  EXPECT_EQ(ChooseFile(at.host, "Open", begin, "resource.hog", "Hog *.hog|*.hog"), folder.Windows("a.hog"));
  ASSERT_EQ(at.desk.fileQuestions.size(), 1U);
  EXPECT_EQ(at.desk.fileQuestions[0].title, "Open");
  EXPECT_EQ(at.desk.fileQuestions[0].folder, "C:\\Game\\");
  EXPECT_EQ(at.desk.fileQuestions[0].name, "resource.hog");
  EXPECT_EQ(at.desk.fileQuestions[0].filter, "Hog *.hog|*.hog");
}

TEST(ChooseFile, AFileThatIsMissingIsNotChosen) {
  const test::TemporaryFolder folder;
  ScriptedHost at;
  at.desk.AnswerFile(folder.Windows("missing.hog"));
  std::string begin = "C:\\";
  EXPECT_EQ(ChooseFile(at.host, "Open", begin, "", ""), "");
}

TEST(ChooseFile, CancelGivesAnEmptyText) {
  ScriptedHost at;
  at.desk.AnswerFile("");
  std::string begin;
  EXPECT_EQ(ChooseFile(at.host, "Open", begin, "", ""), "");
  EXPECT_EQ(begin, "");
}

TEST(ChooseFile, ADeskWithoutADialogCancels) {
  Host host;
  std::string begin;
  EXPECT_EQ(ChooseFile(host, "Open", begin, "", ""), "");
}

TEST(Progress, ADeskWithoutAWayOfShowingItShowsNone) {
  Host host;
  ShowProgress(host, "Copying", 1, 2);
  EndProgress(host);
  EXPECT_FALSE(host.desk.showProgress);
}

}  // namespace
}  // namespace oravin
