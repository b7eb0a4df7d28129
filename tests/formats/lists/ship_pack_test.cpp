// The reader of ship packs: which ships it finds, and which packs it refuses.

#include "lists/ship_pack.h"

#include <gtest/gtest.h>

#include "desk/program_end.h"
#include "support/fault.h"
#include "support/model_file.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

struct ThePack : testing::Test {
  int Read(const std::string& text) {
    WriteFileAt(folder.Native("new.pak"), text);
    return GetPAK(here.host, folder.Windows("new.pak"), folder.windows, ships);
  }
  /// The pack is refused by the error trap's box, and the array stays.
  void ExpectRefused(const std::string& text, const std::string& reason) {
    SCOPED_TRACE(text.substr(0, 200));
    const std::vector<PackShip> before = {{capitalClass, "m", "n", "h", "s"}};
    ships = before;
    here.desk.ExpectBox("Error - could not read " + folder.Windows("new.pak") + ": " + reason, "GetPAK");
    EXPECT_EQ(Read(text), 0);
    EXPECT_TRUE(here.desk.Done());
    EXPECT_EQ(ships, before);
  }
  [[nodiscard]] PackShip Ship(const std::string& model, const std::string& name, const std::string& switched = "",
                              const std::string& header = "") const {
    return {fighterClass, folder.windows + model, name, header, switched};
  }
  void Model(const std::string& name, std::uint8_t classByte) const {
    WriteFileAt(folder.Native(name), ModelHead(classByte));
  }

  TemporaryFolder folder;
  ScriptedHost here;
  std::vector<PackShip> ships;
};

/// A pack of so many ships, each in a line of its own.
std::string PackOf(int count) {
  std::string text = "\"Many ships\"\r\n";
  for (int i = 1; i <= count; ++i) {
    const std::string number = std::to_string(i);
    text.append("\"\\m").append(number).append(".shp\",\"Ship ").append(number).append("\",\"\"\r\n");
  }
  return text;
}

TEST_F(ThePack, ThreeItemsAShipBehindTheHeader) {
  EXPECT_EQ(
      Read("\"The, header\"\r\n\"\\one.shp\",\"One, the first\",\"Tiger\"\r\n\"\\sub\\two.shp\",\"Two\",\"\"\r\n"), 2);
  EXPECT_EQ(ships, (std::vector<PackShip>{
                       Ship("one.shp", "One, the first", "Tiger", "The, header"), Ship("sub\\two.shp", "Two"), {}}));
}

TEST_F(ThePack, TheHeaderAloneMakesNoShipsAndOneEmptyEntry) {
  for (const std::string text : {"header", "header\r\n", "\"header\"\n\n \n", "header\r"}) {
    EXPECT_EQ(Read(text), 0) << text;
    PackShip empty;
    empty.header = "header";
    EXPECT_EQ(ships, std::vector<PackShip>{empty}) << text;
  }
}

TEST_F(ThePack, AnEmptyHeaderIsAHeader) {
  EXPECT_EQ(Read("\n\\one.shp\nOne\nTiger\n"), 1);
  EXPECT_EQ(ships, (std::vector<PackShip>{Ship("one.shp", "One", "Tiger"), {}}));
}

TEST_F(ThePack, TheArrayHasOneEntryMoreThanThereAreShips) {
  for (const int count : {1, 300, 301}) {
    EXPECT_EQ(Read(PackOf(count)), count);
    ASSERT_EQ(ships.size(), static_cast<std::size_t>(count) + 1);
    EXPECT_EQ(ships.back(), PackShip{});
    EXPECT_EQ(ships.front().header, "Many ships");
    EXPECT_EQ(ships[static_cast<std::size_t>(count) - 1].shipName, "Ship " + std::to_string(count));
  }
}

TEST_F(ThePack, TheThreeHundredAndSecondShipIsAnError) {
  ExpectRefused(PackOf(302), "it lists more than 301 ships");
  ExpectRefused(PackOf(10000), "it lists more than 301 ships");
  ExpectRefused(PackOf(301) + "x", "it lists more than 301 ships");
}

TEST_F(ThePack, AModelsFirstCharacterIsAlwaysDropped) {
  EXPECT_EQ(Read("h\none.shp,One,\n/two.shp,Two,\n"), 2);
  EXPECT_EQ(ships[0].modelPath, folder.windows + "ne.shp");
  EXPECT_EQ(ships[1].modelPath, folder.windows + "two.shp");
}

TEST_F(ThePack, SlashesInAModelLeadIntoFoldersToo) {
  EXPECT_EQ(Read("h\n/a/b\\one.shp,One,x\n"), 1);
  EXPECT_EQ(ships[0].modelPath, folder.windows + "a\\b\\one.shp");
}

TEST_F(ThePack, BlanksBehindAModelDoNotCount) {
  EXPECT_EQ(Read("h\n\"\\one.shp  \",One,x\n"), 1);
  EXPECT_EQ(ships[0].modelPath, folder.windows + "one.shp");
}

TEST_F(ThePack, NamesAreKeptAsTheyStand) {
  EXPECT_EQ(Read("h\n\\one.shp,\"  One \",\" Tiger \"\n"), 1);
  EXPECT_EQ(ships[0].shipName, "  One ");
  EXPECT_EQ(ships[0].suggestedSwitch, " Tiger ");
}

TEST_F(ThePack, TheClassIsThatOfTheModel) {
  Model("fighter.shp", 0);
  Model("cloaked.shp", 2);
  Model("deep/ship.shp", 5);
  Model("cruiser.shp", 1);
  EXPECT_EQ(Read("h\n\\fighter.shp,A,\n\\cloaked.shp,B,\n\\deep\\ship.shp,C,\n\\cruiser.shp,D,\n"), 4);
  EXPECT_EQ(ships[0].shipClass, 1);
  EXPECT_EQ(ships[1].shipClass, 1);
  EXPECT_EQ(ships[2].shipClass, 2);
  EXPECT_EQ(ships[3].shipClass, 2);
  EXPECT_EQ(ships[4].shipClass, 0);
}

TEST_F(ThePack, AModelThatIsMissingOrTooShortMakesAFighterWithoutAWord) {
  WriteFileAt(folder.Native("short.shp"), "x");
  EXPECT_EQ(Read("h\n\\gone.shp,A,\n\\short.shp,B,\n"), 2);
  EXPECT_EQ(ships[0].shipClass, 1);
  EXPECT_EQ(ships[1].shipClass, 1);
}

TEST_F(ThePack, LinesMayEndInOneCharacterOrTwoAndTheLastOneNeedsNoEnd) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    for (const bool lastEnd : {true, false}) {
      std::string text = "h";
      text.append(end).append("\\a.shp,A,Tiger").append(end).append("\\b.shp,\"B\",\"\"");
      if (lastEnd) text += end;
      EXPECT_EQ(Read(text), 2);
      EXPECT_EQ(ships, (std::vector<PackShip>{Ship("a.shp", "A", "Tiger", "h"), Ship("b.shp", "B"), {}}));
    }
  }
}

TEST_F(ThePack, EveryItemMayStandInALineOfItsOwn) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    std::string text;
    for (const char* line : {"h", "\\a.shp", "A", "", "\\b.shp", "\"B\"", "Tiger", "", "", "\\c.shp", "C", "", " "}) {
      text += line + end;
    }
    EXPECT_EQ(Read(text), 3);
    EXPECT_EQ(ships, (std::vector<PackShip>{
                         Ship("a.shp", "A", "", "h"), Ship("b.shp", "B", "Tiger"), Ship("c.shp", "C"), {}}));
  }
}

TEST_F(ThePack, AllItemsMayStandInOneLine) {
  EXPECT_EQ(Read("h,\\a.shp,A,,\\b.shp,B,Tiger"), 2);
  EXPECT_EQ(ships, (std::vector<PackShip>{Ship("a.shp", "A", "", "h"), Ship("b.shp", "B", "Tiger"), {}}));
}

TEST_F(ThePack, APackThatEndsWithinAShipIsRefused) {
  ExpectRefused("h\n\\a.shp", "it ends too early (line 2)");
  ExpectRefused("h\n\\a.shp\n", "it ends too early (line 3)");
  ExpectRefused("h\n\\a.shp,A", "it ends too early (line 2)");
  ExpectRefused("h\n\\a.shp,A,x\n\\b.shp,B\n", "it ends too early (line 4)");
  ExpectRefused("h\n\\a.shp,", "it ends too early (line 2)");
  ExpectRefused("h\n\\a.shp,A\n  ", "it ends too early (line 3)");
}

TEST_F(ThePack, AnEmptyPackIsRefused) { ExpectRefused("", "it ends too early (line 1)"); }

TEST_F(ThePack, AQuoteThatNeverClosesIsRefused) {
  ExpectRefused("\"h\n", "a quote is not closed (line 1)");
  ExpectRefused("h\n\"\\a.shp,A,x\n", "a quote is not closed (line 2)");
  ExpectRefused("h\n\\a.shp,\"A", "a quote is not closed (line 2)");
  ExpectRefused("h\n\\a.shp,\"A\",\"x\r\n\\b.shp,\"B\",\"\"", "a quote is not closed (line 2)");
  ExpectRefused("h\n\\a.shp,\"A\"B,x\n", "a comma is missing after a quote (line 2)");
}

TEST_F(ThePack, BytesAbove127AreLettersOfNames) {
  EXPECT_EQ(Read("\xC4rger\n\\a.shp,\"\xDC\x80\xFF\",\xE4\n"), 1);
  EXPECT_EQ(ships[0].header, "\xC4rger");
  EXPECT_EQ(ships[0].shipName, "\xDC\x80\xFF");
  EXPECT_EQ(ships[0].suggestedSwitch, "\xE4");
  EXPECT_EQ(Read("h\n\\\xFC.shp,A,\n"), 1);
  EXPECT_EQ(ships[0].modelPath, folder.windows + "\xFC.shp");
}

TEST_F(ThePack, AModelThatDoesNotLieBelowThePackIsRefused) {
  for (const std::string item :
       {"\\..\\x.shp",    "/../x.shp", "\\a\\..\\..\\x.shp", "\\a/../x.shp", "..\\x.shp",
        "../x.shp",       "\\..",      "...\\x.shp",         "\\.. \\x.shp", "\\...\\x.shp",
        "C:\\x.shp",      "C:x.shp",   "\\C:\\x.shp",        "\\C:x.shp",    "\\\\server\\share\\x.shp",
        "//server/x.shp", "\\\\x.shp", "\\\\?\\C:\\x.shp",   "\\.\\x.shp",   "\\a\\\\x.shp",
        "\\a\\"}) {
    ExpectRefused("h\n\\one.shp,One,\n\"" + item + "\",Two,\n",
                  "\"" + item + "\" is no model below the pack's own folder");
  }
}

TEST_F(ThePack, AModelThatIsNoPlainNameIsRefused) {
  for (const std::string item :
       {"\\*.shp", "\\a?.shp", "\\NUL", "\\con.shp", "\\a.shp:stream", "\\a|b", "\\ .shp", "\\x.shp."}) {
    ExpectRefused("h\n\"" + item + "\",One,\n", "\"" + item + "\" is no model below the pack's own folder");
  }
}

TEST_F(ThePack, ControlCharactersOfARefusedItemAreShownAsQuestionMarks) {
  const std::string why = " is no model below the pack's own folder";
  ExpectRefused("h\n\\a\x01\x7F.shp,One,\n", "\"\\a??.shp\"" + why);
  ExpectRefused(std::string("h\n\\a\0.shp,One,\n", 15), "\"\\a?.shp\"" + why);
}

TEST_F(ThePack, AModelWithoutANameIsRefused) {
  ExpectRefused("h\n\"\",One,x\n", "\"\" is no file name");
  ExpectRefused("h\n\\,One,x\n", "\"\\\" is no file name");
  ExpectRefused("h\n\"\\  \",One,x\n", "\"\\  \" is no file name");
}

TEST_F(ThePack, AnItemOfEnormousLengthIsRefusedAndShownInPart) {
  const std::string item = "\\" + std::string(1000, 'x');
  ExpectRefused("h\n" + item + ",One,\n", "\"" + item.substr(0, 40) + "\" is too long to be right");
  ExpectRefused("h\n\\a.shp," + item + ",\n", "\"" + item.substr(0, 40) + "\" is too long to be right");
  ExpectRefused("h\n\\a.shp,A," + item, "\"" + item.substr(0, 40) + "\" is too long to be right");
}

TEST_F(ThePack, AFileOfEnormousSizeIsRefused) {
  ExpectRefused(std::string((16U << 20U) + 1, 'x'), "it is too large to be right");
}

TEST_F(ThePack, AMissingPackEndsTheProgram) {
  here.desk.ExpectBox("Error in GetPAK - file not found", programTitle, Icon::information);
  EXPECT_THROW(GetPAK(here.host, folder.Windows("none.pak"), folder.windows, ships), ProgramEnd);
  EXPECT_TRUE(here.desk.Done());
}

TEST_F(ThePack, BlanksAroundItsPathDoNotCount) {
  WriteFileAt(folder.Native("new.pak"), "h\n\\a.shp,A,\n");
  EXPECT_EQ(GetPAK(here.host, "  " + folder.Windows("new.pak") + " ", folder.windows, ships), 1);
}

TEST_F(ThePack, NothingIsEverWritten) {
  std::vector<std::string> changes;
  here.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind != FileOperation::Kind::open && operation.kind != FileOperation::Kind::read &&
        !IsQuestion(operation.kind)) {
      changes.push_back(InWords(operation));
    }
  };
  Model("a.shp", 1);
  EXPECT_EQ(Read("h\n\\a.shp,A,\n"), 1);
  EXPECT_EQ(changes, std::vector<std::string>());
}

TEST_F(ThePack, AFailureOfReadingThePackGivesOneBoxAndNoShips) {
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    here.desk.shown.clear();
    ships.clear();
    Watch(here.host.files, fault);
    const int count = Read("h\n\\a.shp,A,\n");
    EXPECT_EQ(count, fault.happened ? 0 : 1);
    EXPECT_EQ(ships.empty(), fault.happened);
    EXPECT_EQ(here.desk.shown.size(), fault.happened ? 1U : 0U);
  });
  here.host.files.before = nullptr;
  EXPECT_GE(operations, 2);
}

}  // namespace
}  // namespace oravin::test
