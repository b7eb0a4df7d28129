#include "cli/console.h"

#include <gtest/gtest.h>

#include <sstream>

#include "sample_runs.h"

namespace oravin {
namespace {

struct ConsoleDesk : testing::Test {
  Answer Show(const Message& box) { return DeskOf(console).showBox(box); }

  std::ostringstream out;
  std::ostringstream err;
  std::istringstream in;
  Console console{out, err, in};
};

const Message message{"It went wrong.", "Somewhere", Icon::exclamation, Buttons::ok, false};
const Message question{"Two lines.\nGo on?", "Oravin", Icon::question, Buttons::yesNo, false};

TEST_F(ConsoleDesk, AMessageIsItsTitleAndText) {
  EXPECT_EQ(Show(message), Answer::ok);
  EXPECT_EQ(err.str(), "Somewhere: It went wrong.\n");
  EXPECT_EQ(out.str(), "");
}

TEST_F(ConsoleDesk, FurtherLinesAreIndentedAndAQuestionHasItsAnswer) {
  console.answers.always = true;
  EXPECT_EQ(Show(question), Answer::yes);
  EXPECT_EQ(err.str(), "Oravin: Two lines.\n  Go on?\n  [yes/no] yes\n");
}

TEST_F(ConsoleDesk, LineEndsOfTwoCharactersAreOneLineEnd) {
  Show({"One\r\nTwo", "Oravin", Icon::none, Buttons::ok, false});
  EXPECT_EQ(err.str(), "Oravin: One\n  Two\n");
}

TEST_F(ConsoleDesk, JsonBoxesAreOneLineWithTheKeysInOrder) {
  console.json = true;
  Show(question);
  EXPECT_EQ(
      err.str(),
      R"({"box":{"title":"Oravin","text":"Two lines.\nGo on?","icon":"question","buttons":"yesno","answer":"no"}})"
      "\n");
  EXPECT_EQ(out.str(), "");
}

TEST_F(ConsoleDesk, JsonNamesEveryIcon) {
  console.json = true;
  for (const auto& [icon, word] : std::vector<std::pair<Icon, std::string>>{{Icon::none, "none"},
                                                                            {Icon::exclamation, "exclamation"},
                                                                            {Icon::critical, "critical"},
                                                                            {Icon::question, "question"},
                                                                            {Icon::information, "information"}}) {
    err.str("");
    Show({"Text", "Title", icon, Buttons::ok, false});
    EXPECT_EQ(Json::parse(err.str()), test::BoxLine("Title", "Text", word, "ok", "ok"));
  }
}

TEST_F(ConsoleDesk, JsonNamesEveryKindOfButtonsAndTheSafeAnswer) {
  console.json = true;
  for (const auto& [buttons, word, answer] :
       std::vector<std::tuple<Buttons, std::string, std::string>>{{Buttons::ok, "ok", "ok"},
                                                                  {Buttons::okCancel, "okcancel", "cancel"},
                                                                  {Buttons::yesNo, "yesno", "no"},
                                                                  {Buttons::yesNoCancel, "yesnocancel", "cancel"}}) {
    err.str("");
    Show({"Text", "Title", Icon::question, buttons, false});
    EXPECT_EQ(Json::parse(err.str()), test::BoxLine("Title", "Text", "question", word, answer));
  }
}

TEST_F(ConsoleDesk, TextsAreUtf8Outside) {
  Show({"caf\xE9", "\x80", Icon::none, Buttons::ok, false});
  console.json = true;
  Show({"caf\xE9", "\x80", Icon::none, Buttons::ok, false});
  EXPECT_EQ(err.str(),
            "\xE2\x82\xAC: caf\xC3\xA9\n"
            "{\"box\":{\"title\":\"\xE2\x82\xAC\",\"text\":\"caf\xC3\xA9\",\"icon\":\"none\",\"buttons\":\"ok\","
            "\"answer\":\"ok\"}}\n");
}

TEST_F(ConsoleDesk, ExclamationAndCriticalCountAsFailures) {
  Show({"Text", "Title", Icon::exclamation, Buttons::ok, false});
  EXPECT_EQ(console.failures, 1);
  Show({"Text", "Title", Icon::critical, Buttons::ok, false});
  EXPECT_EQ(console.failures, 2);
}

TEST_F(ConsoleDesk, OtherIconsAreNoFailures) {
  for (const Icon icon : {Icon::none, Icon::question, Icon::information}) {
    Show({"Text", "Title", icon, Buttons::ok, false});
  }
  EXPECT_EQ(console.failures, 0);
  EXPECT_EQ(console.successes, 0);
}

TEST_F(ConsoleDesk, ASuccessIsNoFailureWhateverItsIcon) {
  Show({"Text", "Title", Icon::exclamation, Buttons::ok, true});
  Show({"Text", "Title", Icon::critical, Buttons::ok, true});
  EXPECT_EQ(console.failures, 0);
  EXPECT_EQ(console.successes, 2);
}

TEST_F(ConsoleDesk, AQuestionWithTheExclamationIconCountsAsOne) {
  Show({"Text", "Title", Icon::exclamation, Buttons::yesNo, false});
  EXPECT_EQ(console.failures, 1);
}

TEST_F(ConsoleDesk, ThePlannedAnswersComeFirstThenNobodys) {
  console.answers.inOrder = {Answer::yes};
  EXPECT_EQ(Show(question), Answer::yes);
  EXPECT_EQ(Show(question), Answer::none);
}

TEST_F(ConsoleDesk, ThePlannedAnswersComeFirstThenThePerson) {
  console.terminal = true;
  console.answers.inOrder = {Answer::no};
  in.str("yes\n");
  EXPECT_EQ(Show(question), Answer::no);
  EXPECT_EQ(Show(question), Answer::yes);
}

TEST_F(ConsoleDesk, APersonIsAskedAtTheTerminal) {
  console.terminal = true;
  in.str("y\n");
  EXPECT_EQ(Show(question), Answer::yes);
  EXPECT_EQ(err.str(), "Oravin: Two lines.\n  Go on?\n  [yes/no] ");
}

TEST_F(ConsoleDesk, APersonIsAskedAgainUntilTheAnswerIsOne) {
  console.terminal = true;
  in.str("maybe\n\ncancel\nNO\nyes\n");
  EXPECT_EQ(Show(question), Answer::no);
  EXPECT_EQ(err.str(), "Oravin: Two lines.\n  Go on?\n  [yes/no]   [yes/no]   [yes/no]   [yes/no] ");
}

TEST_F(ConsoleDesk, AtTheEndOfTheInputTheSafeAnswerIsWrittenAndNobodyGaveIt) {
  console.terminal = true;
  EXPECT_EQ(Show(question), Answer::none);
  EXPECT_EQ(err.str(), "Oravin: Two lines.\n  Go on?\n  [yes/no] no\n");
}

TEST_F(ConsoleDesk, NobodyIsAskedAwayFromATerminal) {
  in.str("yes\n");
  EXPECT_EQ(Show(question), Answer::none);
}

TEST_F(ConsoleDesk, APersonIsAskedWithJsonTooAndTheLineHasTheAnswer) {
  console.terminal = true;
  console.json = true;
  in.str("yes\n");
  EXPECT_EQ(Show(question), Answer::yes);
  const std::string prompt = "Oravin: Two lines.\n  Go on?\n  [yes/no] ";
  ASSERT_EQ(err.str().substr(0, prompt.size()), prompt);
  EXPECT_EQ(Json::parse(err.str().substr(prompt.size())),
            test::BoxLine("Oravin", "Two lines.\nGo on?", "question", "yesno", "yes"));
}

TEST_F(ConsoleDesk, AMessageWithOkAloneAsksNobody) {
  console.terminal = true;
  in.str("left alone\n");
  Show(message);
  std::string line;
  std::getline(in, line);
  EXPECT_EQ(line, "left alone");
}

TEST_F(ConsoleDesk, ProgressIsSilentAwayFromATerminal) {
  DeskOf(console).showProgress({"Unpacking", 1, 2});
  DeskOf(console).showProgress({});
  EXPECT_EQ(err.str(), "");
}

TEST_F(ConsoleDesk, ProgressIsOneRewrittenLineOnATerminal) {
  console.terminal = true;
  DeskOf(console).showProgress({"Unpacking", 1, 2});
  DeskOf(console).showProgress({"Done", 2, 2});
  DeskOf(console).showProgress({});
  EXPECT_EQ(err.str(), "Unpacking (1/2)\r               \rDone (2/2)\r          \r");
}

TEST_F(ConsoleDesk, ALongProgressTextStaysOnOneLine) {
  console.terminal = true;
  DeskOf(console).showProgress({std::string(200, 'x'), 1, 2});
  EXPECT_EQ(err.str(), std::string(78, 'x'));
}

TEST_F(ConsoleDesk, ABoxTakesTheProgressLineAwayFirst) {
  console.terminal = true;
  DeskOf(console).showProgress({"Up", 1, 2});
  Show(message);
  EXPECT_EQ(err.str(), "Up (1/2)\r        \rSomewhere: It went wrong.\n");
}

TEST_F(ConsoleDesk, AnErrorIsToldAndCounts) {
  SayError(console, "no ship is named \"\xC9toile\"");
  EXPECT_EQ(err.str(), "oravin-cli: no ship is named \"\xC3\x89toile\"\n");
  EXPECT_EQ(console.failures, 1);
}

TEST_F(ConsoleDesk, AnErrorIsOneLineOfJson) {
  console.json = true;
  SayError(console, "no ship is named \"X\"");
  EXPECT_EQ(err.str(), "{\"error\":\"no ship is named \\\"X\\\"\"}\n");
}

TEST_F(ConsoleDesk, AFolderIsTypedAtTheTerminal) {
  console.terminal = true;
  in.str(" /games/lancer \nC:\\Lancer\n");
  EXPECT_EQ(DeskOf(console).browseForFolder("Select"), "Z:\\games\\lancer");
  EXPECT_EQ(DeskOf(console).browseForFolder("Select"), "C:\\Lancer");
  EXPECT_EQ(err.str(), "Select (an empty line cancels): Select (an empty line cancels): ");
}

TEST_F(ConsoleDesk, AnEmptyLineAndTheEndOfTheInputCancelAFolder) {
  console.terminal = true;
  in.str("\n");
  EXPECT_EQ(DeskOf(console).browseForFolder("Select"), "");
  EXPECT_EQ(DeskOf(console).browseForFolder("Select"), "");
}

TEST_F(ConsoleDesk, AFolderIsCancelledAwayFromATerminalAndTheOptionsAreNamed) {
  in.str("/games/lancer\n");
  EXPECT_EQ(DeskOf(console).browseForFolder("Select"), "");
  EXPECT_EQ(
      err.str(),
      "oravin-cli: a folder is asked for (\"Select\") and nobody is there to answer; name the folders with --game "
      "and --program\n");
}

TEST_F(ConsoleDesk, AFileIsTypedAtTheTerminalAndCancelledElsewhere) {
  in.str("/a/b.txt\n");
  EXPECT_EQ(DeskOf(console).openDialog({"Open", "Z:\\a\\", "", ""}), "");
  EXPECT_EQ(err.str(), "oravin-cli: a file is asked for (\"Open\") and nobody is there to answer\n");
  console.terminal = true;
  EXPECT_EQ(DeskOf(console).openDialog({"Open", "Z:\\a\\", "", ""}), "Z:\\a\\b.txt");
}

TEST_F(ConsoleDesk, TheFileThatIsAskedForIsNamed) {
  const FileQuestion wanted{"Find texture file", "Z:\\a\\", "hull.bmp", ""};
  EXPECT_EQ(DeskOf(console).openDialog(wanted), "");
  console.terminal = true;
  EXPECT_EQ(DeskOf(console).openDialog(wanted), "");
  EXPECT_EQ(err.str(),
            "oravin-cli: a file is asked for (\"Find texture file hull.bmp\") and nobody is there to answer\n"
            "Find texture file hull.bmp (an empty line cancels): \n");
}

}  // namespace
}  // namespace oravin
