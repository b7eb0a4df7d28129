// The reader of ship packs: which ships it finds, and which packs it refuses.

#include "lists/ship_pack.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

using Ships = std::vector<PackShip>;

struct ThePack : testing::Test {
  ShipPack Read(const std::string& text) {
    WriteFileAt(folder.Native("new.pak"), text);
    return ReadShipPack(files, folder.Windows("new.pak"), folder.windows);
  }
  Ships ShipsIn(const std::string& text) { return Read(text).ships; }
  void ExpectRefused(const std::string& text, const std::string& reason) {
    SCOPED_TRACE(text.substr(0, 200));
    try {
      Read(text);
      ADD_FAILURE() << "it was read";
    } catch (const FileError& error) {
      EXPECT_EQ(error.what(), "could not read " + folder.Windows("new.pak") + ": " + reason);
      EXPECT_NE(error.kind, ErrorKind::missing);
    }
  }
  [[nodiscard]] PackShip Ship(const std::string& model, const std::string& name,
                              const std::string& switched = "") const {
    return {folder.windows + model, name, switched};
  }

  TemporaryFolder folder;
  Files files;
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

TEST_F(ThePack, HasThreeItemsForEachShipAfterTheHeader) {
  EXPECT_EQ(
      Read("\"The, header\"\r\n\"\\one.shp\",\"One, the first\",\"Tiger\"\r\n\"\\sub\\two.shp\",\"Two\",\"\"\r\n"),
      (ShipPack{"The, header", {Ship("one.shp", "One, the first", "Tiger"), Ship("sub\\two.shp", "Two")}}));
}

TEST_F(ThePack, TheHeaderAloneMakesNoShips) {
  for (const std::string text : {"header", "header\r\n", "\"header\"\n\n \n", "header\r"}) {
    EXPECT_EQ(Read(text), (ShipPack{"header", {}})) << text;
  }
}

TEST_F(ThePack, AnEmptyHeaderIsAHeader) {
  EXPECT_EQ(Read("\n\\one.shp\nOne\nTiger\n"), (ShipPack{"", {Ship("one.shp", "One", "Tiger")}}));
}

TEST_F(ThePack, MayHave301Ships) {
  for (const int count : {1, 300, 301}) {
    const ShipPack pack = Read(PackOf(count));
    ASSERT_EQ(pack.ships.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(pack.header, "Many ships");
    EXPECT_EQ(pack.ships.back(), Ship("m" + std::to_string(count) + ".shp", "Ship " + std::to_string(count)));
  }
}

TEST_F(ThePack, TheThreeHundredAndSecondShipIsAnError) {
  ExpectRefused(PackOf(302), "it lists more than 301 ships");
  ExpectRefused(PackOf(10000), "it lists more than 301 ships");
  ExpectRefused(PackOf(301) + "x", "it lists more than 301 ships");
}

TEST_F(ThePack, AModelsFirstCharacterIsAlwaysDropped) {
  EXPECT_EQ(ShipsIn("h\none.shp,One,\n/two.shp,Two,\n"), (Ships{Ship("ne.shp", "One"), Ship("two.shp", "Two")}));
}

TEST_F(ThePack, SlashesInAModelLeadIntoFoldersToo) {
  EXPECT_EQ(ShipsIn("h\n/a/b\\one.shp,One,x\n"), Ships{Ship("a\\b\\one.shp", "One", "x")});
}

TEST_F(ThePack, SpacesAfterAModelDoNotCount) {
  EXPECT_EQ(ShipsIn("h\n\"\\one.shp  \",One,x\n"), Ships{Ship("one.shp", "One", "x")});
}

TEST_F(ThePack, NamesAreKeptAsTheyAre) {
  EXPECT_EQ(ShipsIn("h\n\\one.shp,\"  One \",\" Tiger \"\n"), Ships{Ship("one.shp", "  One ", " Tiger ")});
}

TEST_F(ThePack, LinesMayEndInOneCharacterOrTwoAndTheLastOneNeedsNoEnd) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    for (const bool lastEnd : {true, false}) {
      std::string text = "h";
      text.append(end).append("\\a.shp,A,Tiger").append(end).append("\\b.shp,\"B\",\"\"");
      if (lastEnd) text += end;
      EXPECT_EQ(Read(text), (ShipPack{"h", {Ship("a.shp", "A", "Tiger"), Ship("b.shp", "B")}}));
    }
  }
}

TEST_F(ThePack, EveryItemMayStandInALineOfItsOwn) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    std::string text;
    for (const char* line : {"h", "\\a.shp", "A", "", "\\b.shp", "\"B\"", "Tiger", "", "", "\\c.shp", "C", "", " "}) {
      text += line + end;
    }
    EXPECT_EQ(Read(text), (ShipPack{"h", {Ship("a.shp", "A"), Ship("b.shp", "B", "Tiger"), Ship("c.shp", "C", "")}}));
  }
}

TEST_F(ThePack, AllItemsMayStandInOneLine) {
  EXPECT_EQ(Read("h,\\a.shp,A,,\\b.shp,B,Tiger"), (ShipPack{"h", {Ship("a.shp", "A"), Ship("b.shp", "B", "Tiger")}}));
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
  EXPECT_EQ(Read("\xC4rger\n\\a.shp,\"\xDC\x80\xFF\",\xE4\n"),
            (ShipPack{"\xC4rger", {Ship("a.shp", "\xDC\x80\xFF", "\xE4")}}));
  EXPECT_EQ(ShipsIn("h\n\\\xFC.shp,A,\n"), Ships{Ship("\xFC.shp", "A")});
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

TEST_F(ThePack, AMissingPackIsAnErrorOfItsOwnKind) {
  try {
    ReadShipPack(files, folder.Windows("none.pak"), folder.windows);
    ADD_FAILURE() << "it was read";
  } catch (const FileError& error) {
    EXPECT_EQ(error.kind, ErrorKind::missing);
  }
}

TEST_F(ThePack, NothingIsEverWritten) {
  std::vector<std::string> changes;
  files.before = [&](const FileOperation& operation) {
    if (operation.kind != FileOperation::Kind::open && operation.kind != FileOperation::Kind::read &&
        !IsQuestion(operation.kind)) {
      changes.push_back(InWords(operation));
    }
  };
  EXPECT_EQ(ShipsIn("h\n\\a.shp,A,\n").size(), 1U);
  EXPECT_EQ(changes, std::vector<std::string>());
}

TEST_F(ThePack, AFailureOfReadingIsThrown) {
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    Watch(files, fault);
    try {
      Read("h\n\\a.shp,A,\n");
      EXPECT_FALSE(fault.happened);
    } catch (const FileError&) {
      EXPECT_TRUE(fault.happened);
    }
    EXPECT_EQ(files.open, 0);
  });
  EXPECT_GE(operations, 2);
}

}  // namespace
}  // namespace oravin::test
