// The ship list that the program is shipped with: what is read from it, and what is refused.

#include "lists/ship_list.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

struct ShipList : testing::Test {
  std::vector<ListedShip> Read(const std::string& text) {
    WriteFileAt(folder.Native("shipsData.txt"), text);
    return ReadShipList(files, folder.windows + "shipsData.txt");
  }
  /// The error of a list that is refused.
  FileError Refused(const std::string& text) {
    try {
      Read(text);
      ADD_FAILURE() << "it was read";
    } catch (const FileError& error) {
      return error;
    }
    return {"", "", ""};
  }
  void ExpectRefused(const std::string& text, const std::string& reason) {
    SCOPED_TRACE(text.substr(0, 200));
    const FileError error = Refused(text);
    EXPECT_EQ(error.what(), "could not read " + folder.Windows("shipsData.txt") + ": " + reason);
    // These kinds have message boxes of their own.
    EXPECT_NE(error.kind, ErrorKind::missing);
    EXPECT_NE(error.kind, ErrorKind::wrongFormat);
  }

  TemporaryFolder folder;
  Files files;
};

TEST_F(ShipList, SixValuesAShipInTheOrderOfTheFile) {
  const auto ships = Read(
      "2\r\n1,\"Crusader\",\"crusader.shp\",4,\"hull\",\"wing\"\r\n3,\"Manta, the "
      "Second\",\"manta.shp\",0,\"\",\"x\"\r\n");
  ASSERT_EQ(ships.size(), 2U);
  EXPECT_EQ(ships[0].kind, 1);
  EXPECT_EQ(ships[0].name, "Crusader");
  EXPECT_EQ(ships[0].file, "crusader.shp");
  EXPECT_EQ(ships[0].statsIndex, 4);
  EXPECT_EQ(ships[0].texture0, "hull");
  EXPECT_EQ(ships[0].texture1, "wing");
  EXPECT_EQ(ships[1].kind, 3);
  EXPECT_EQ(ships[1].name, "Manta, the Second");
  EXPECT_EQ(ships[1].file, "manta.shp");
  EXPECT_EQ(ships[1].statsIndex, 0);
  EXPECT_EQ(ships[1].texture0, "");
  EXPECT_EQ(ships[1].texture1, "x");
}

TEST_F(ShipList, LinesMayEndInOneCharacterOrTwo) {
  for (const char* end : {"\r\n", "\n", "\r"}) {
    std::string text;
    for (const char* line : {"2", "1,\"A\",\"a.shp\",4,\"h\",\"w\"", "2,\"B\",\"b.shp\",5,\"h\",\"w\""}) {
      text.append(line).append(end);
    }
    const auto ships = Read(text);
    ASSERT_EQ(ships.size(), 2U);
    EXPECT_EQ(ships[1].kind, 2);
    EXPECT_EQ(ships[1].name, "B");
  }
}

TEST_F(ShipList, TheLastLineNeedsNoEnd) { EXPECT_EQ(Read("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"").size(), 1U); }

TEST_F(ShipList, EmptyLinesAndSpacesBetweenValuesDoNotMatter) {
  const auto ships =
      Read("\n 2 \n\n 1 , \"A\" ,\"a.shp\", 4 ,\t\"h\",\"w\" \n\n\n2,\"B\",\"b.shp\",5,\"h\",\"w\"\n\n \n");
  ASSERT_EQ(ships.size(), 2U);
  EXPECT_EQ(ships[0].name, "A");
  EXPECT_EQ(ships[0].statsIndex, 4);
  EXPECT_EQ(ships[1].file, "b.shp");
}

TEST_F(ShipList, AllValuesMayStandInOneLineOrEachInItsOwn) {
  EXPECT_EQ(Read("1,1,\"A\",\"a.shp\",4,\"h\",\"w\"").size(), 1U);
  EXPECT_EQ(Read("1\n1\n\"A\"\n\"a.shp\"\n4\n\"h\"\n\"w\"\n").size(), 1U);
}

TEST_F(ShipList, TextsNeedNoQuotesWhereTheyHoldNoComma) {
  const auto ships = Read("1\n1,Crusader Mk II,crusader.shp,4,hull,\n");
  ASSERT_EQ(ships.size(), 1U);
  EXPECT_EQ(ships[0].name, "Crusader Mk II");
  EXPECT_EQ(ships[0].texture1, "");
}

TEST_F(ShipList, SpacesInsideQuotesStay) {
  EXPECT_EQ(Read("1\n1,\" TIGER \",\"t.shp\",4,\"h\",\"w\"")[0].name, " TIGER ");
}

TEST_F(ShipList, ALineWithAnEmptyModelIsReadWithItsName) {
  const auto ships = Read("2\n1,\"Nothing\",\"\",4,\"h\",\"w\"\n1,\"Blank\",\"   \",4,\"h\",\"w\"\n");
  ASSERT_EQ(ships.size(), 2U);
  EXPECT_EQ(ships[0].name, "Nothing");
  EXPECT_EQ(ships[0].file, "");
  EXPECT_EQ(ships[1].file, "   ");
}

TEST_F(ShipList, AMissingListIsAnErrorOfItsOwnKind) {
  try {
    ReadShipList(files, folder.windows + "shipsData.txt");
    ADD_FAILURE() << "it was read";
  } catch (const FileError& error) {
    EXPECT_EQ(error.kind, ErrorKind::missing);
  }
}

TEST_F(ShipList, ANumberOfShipsThatIsNotPositiveIsAnErrorOfItsOwnKind) {
  for (const std::string text : {"0\n", "-1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n", "-0.5\n", "-99999999999999999999\n"}) {
    EXPECT_EQ(Refused(text).kind, ErrorKind::wrongFormat) << text;
  }
}

TEST_F(ShipList, AnEmptyListIsRefused) {
  ExpectRefused("", "it ends too early (line 1)");
  ExpectRefused(" \r\n\r\n", "it ends too early (line 1)");
}

TEST_F(ShipList, ANumberOfShipsThatIsNoNumberIsRefused) {
  ExpectRefused("ships\n", "\"ships\" is no number (line 1)");
  ExpectRefused("\"\"\n", "\"\" is no number (line 1)");
  ExpectRefused("nan\n", "\"nan\" is no number (line 1)");
  ExpectRefused("inf\n", "\"inf\" is no number (line 1)");
  ExpectRefused("1 2\n", "\"1 2\" is no number (line 1)");
}

TEST_F(ShipList, ANumberOfShipsThatIsNotWholeIsRefused) {
  ExpectRefused("1.5\n", "a whole number from 1 to 2147483647 is wanted (line 1)");
}

TEST_F(ShipList, MoreShipsThanAnIndexCanTellApartAreRefused) {
  ExpectRefused("32766\n", "it says that it lists 32766 ships");
  ExpectRefused("2147483647\n", "it says that it lists 2147483647 ships");
  ExpectRefused("2147483648\n", "a whole number from 1 to 2147483647 is wanted (line 1)");
}

TEST_F(ShipList, AListCutOffAfterAnyValueIsRefused) {
  const std::vector<std::string> values = {"1", "\"A\"", "\"a.shp\"", "4", "\"h\"", "\"w\""};
  std::string text = "2\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n";
  for (const std::string& value : values) {
    ExpectRefused(text,
                  "it ends too early (line " + std::to_string(1 + std::count(text.begin(), text.end(), '\n')) + ")");
    text += (text.ends_with('\n') ? "" : "\n") + value;
  }
  EXPECT_EQ(Read(text).size(), 2U);
}

TEST_F(ShipList, ACountThatIsTooHighIsRefused) {
  ExpectRefused("3\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n1,\"B\",\"b.shp\",4,\"h\",\"w\"\n", "it ends too early (line 4)");
}

TEST_F(ShipList, ACountThatIsTooLowIsRefused) {
  ExpectRefused(
      "2\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n1,\"B\",\"b.shp\",4,\"h\",\"w\"\n1,\"C\",\"c.shp\",4,\"h\",\"w\"\n",
      "it says that it lists 2 ships, but more follows");
  ExpectRefused("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\nremark\n", "it says that it lists 1 ships, but more follows");
}

TEST_F(ShipList, AMissingValueInALineMovesTheOthersAndIsRefused) {
  ExpectRefused("1\n1,\"A\",4,\"h\",\"w\",\"x\"\n", "\"h\" is no number (line 2)");
}

TEST_F(ShipList, ABrokenQuoteIsRefused) {
  ExpectRefused("1\n1,\"A,\"a.shp\",4,\"h\",\"w\"\n", "a comma is missing after a quote (line 2)");
  ExpectRefused("1\n1,\"A\",\"a.shp,4\n", "a quote is not closed (line 2)");
  ExpectRefused("1\n1,\"A\",\"a.shp\",4,\"h\",\"w", "a quote is not closed (line 2)");
}

TEST_F(ShipList, AKindOrABlockThatIsNoWholeNumberOfItsRangeIsRefused) {
  ExpectRefused("1\nx,\"A\",\"a.shp\",4,\"h\",\"w\"\n", "\"x\" is no number (line 2)");
  ExpectRefused("1\n32768,\"A\",\"a.shp\",4,\"h\",\"w\"\n", "a whole number from -32768 to 32767 is wanted (line 2)");
  ExpectRefused("1\n1.5,\"A\",\"a.shp\",4,\"h\",\"w\"\n", "a whole number from -32768 to 32767 is wanted (line 2)");
  ExpectRefused("1\n1,\"A\",\"a.shp\",-1,\"h\",\"w\"\n", "a whole number from 0 to 32767 is wanted (line 2)");
  ExpectRefused("1\n1,\"A\",\"a.shp\",32768,\"h\",\"w\"\n", "a whole number from 0 to 32767 is wanted (line 2)");
  ExpectRefused("1\n1,\"A\",\"a.shp\",,\"h\",\"w\"\n", "\"\" is no number (line 2)");
}

TEST_F(ShipList, AModelThatIsNoPlainFileNameIsRefused) {
  for (const std::string name :
       {"..\\resource.hog", "sub\\a.shp", "sub/a.shp", "C:a.shp", "*.shp", "a?.shp", ".", "..", "\\a.shp"}) {
    ExpectRefused("1\n1,\"A\",\"" + name + "\",4,\"h\",\"w\"\n", "\"" + name + "\" is no file name");
  }
}

TEST_F(ShipList, AVeryLongValueIsShownInPart) {
  const std::string longName(100, 'x');
  ExpectRefused("1\n1,\"A\",\"" + longName + "\\\",4,\"h\",\"w\"\n",
                "\"" + longName.substr(0, 40) + "\" is no file name");
  ExpectRefused(longName, "\"" + longName.substr(0, 40) + "\" is no number (line 1)");
}

TEST_F(ShipList, AFileOfEnormousSizeIsRefused) {
  ExpectRefused(std::string((16U << 20U) + 1, ' '), "it is too large to be right");
}

TEST_F(ShipList, TheListIsNeverWritten) {
  const std::string text = "1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n";
  std::vector<std::string> changes;
  files.before = [&](const FileOperation& operation) {
    if (operation.kind != FileOperation::Kind::open && operation.kind != FileOperation::Kind::read &&
        !IsQuestion(operation.kind)) {
      changes.push_back(InWords(operation));
    }
  };
  Read(text);
  EXPECT_EQ(changes, std::vector<std::string>());
  EXPECT_EQ(ReadTextAt(folder.Native("shipsData.txt")), text);
}

TEST_F(ShipList, AFailureOfAnyOperationIsThrown) {
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    Watch(files, fault);
    try {
      EXPECT_EQ(Read("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n").size(), 1U);
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
