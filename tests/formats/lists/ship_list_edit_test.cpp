// Changes to the ship list: only the intended bytes change.

#include "lists/ship_list_edit.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

const ListedShip added{3, "Manta, the Second", "manta.shp", 0, "hull", ""};
constexpr const char* addedLine = "3,\"Manta, the Second\",\"manta.shp\",0,\"hull\",\"\"";

ShipListText Parsed(const std::string& text) { return ParseShipList("the list", text, 0); }
std::string Adding(const std::string& text) { return WithShip(Parsed(text), added).text; }
std::string Removing(const std::string& text, const std::set<std::size_t>& lines) {
  return WithoutShips(Parsed(text), lines).text;
}
std::string Naming(const std::string& text, std::size_t line, const std::string& name) {
  return WithName(Parsed(text), line, name).text;
}

TEST(AddedLine, ComesAfterTheOthersAndTheCountIsRaised) {
  EXPECT_EQ(Adding("1\r\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\r\n"),
            std::string("2\r\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\r\n") + addedLine + "\r\n");
}

TEST(AddedLine, HasTheLineEndOfTheList) {
  EXPECT_EQ(Adding("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n"),
            std::string("2\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n") + addedLine + "\n");
  EXPECT_EQ(Adding("1\r1,\"A\",\"a.shp\",4,\"h\",\"w\"\r"),
            std::string("2\r1,\"A\",\"a.shp\",4,\"h\",\"w\"\r") + addedLine + "\r");
}

TEST(AddedLine, AMissingFinalLineBreakIsAddedFirst) {
  EXPECT_EQ(Adding("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\""),
            std::string("2\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n") + addedLine + "\n");
  EXPECT_EQ(Adding("1,1,\"A\",\"a.shp\",4,\"h\",w"),
            std::string("2,1,\"A\",\"a.shp\",4,\"h\",w\r\n") + addedLine + "\r\n");
}

TEST(AddedLine, AnEmptyLastValueAtTheEndStaysOne) {
  EXPECT_EQ(Adding("1\n1,\"A\",\"a.shp\",4,\"h\","), std::string("2\n1,\"A\",\"a.shp\",4,\"h\",\n") + addedLine + "\n");
}

TEST(AddedLine, ACommaAtTheEndIsFollowedWithoutALineEnd) {
  EXPECT_EQ(Adding("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\","),
            std::string("2\n1,\"A\",\"a.shp\",4,\"h\",\"w\",") + addedLine + "\n");
}

TEST(AddedLine, EmptyLinesAtTheEndStayThere) {
  EXPECT_EQ(Adding("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n\n \n"),
            std::string("2\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n") + addedLine + "\n\n \n");
}

TEST(AddedLine, TheCountMayGainADigitAndStandInQuotes) {
  std::string nine = " \"9\" \n";
  for (int i = 0; i < 9; ++i) nine += "1,A,a.shp,4,h,w\n";
  std::string ten = " 10 \n";
  for (int i = 0; i < 9; ++i) ten += "1,A,a.shp,4,h,w\n";
  EXPECT_EQ(Adding(nine), ten + addedLine + "\n");
}

TEST(AddedLine, AListOfNoShipsGetsItsFirst) {
  EXPECT_EQ(Adding("0\r\n"), std::string("1\r\n") + addedLine + "\r\n");
  EXPECT_EQ(Adding("0"), std::string("1\r\n") + addedLine + "\r\n");
  EXPECT_EQ(Adding("0,"), std::string("1,") + addedLine + "\r\n");
}

TEST(AddedLine, BytesAbove127StayAsTheyAre) {
  EXPECT_EQ(Adding("1\n1,\"Gl\xFC\x81k\",\"a.shp\",4,\"h\",\"w\"\n"),
            std::string("2\n1,\"Gl\xFC\x81k\",\"a.shp\",4,\"h\",\"w\"\n") + addedLine + "\n");
}

TEST(AddedLine, ATextThatTheListCannotHoldIsRefused) {
  const ShipListText list = Parsed("0\n");
  for (const std::string bad : {"a\"b", "a\nb", "a\rb", "a\tb", "\x7F"}) {
    EXPECT_THROW(WithShip(list, {3, bad, "a.shp", 0, "", ""}), FileError);
    EXPECT_THROW(WithShip(list, {3, "a", bad, 0, "", ""}), FileError);
    EXPECT_THROW(WithShip(list, {3, "a", "a.shp", 0, bad, ""}), FileError);
    EXPECT_THROW(WithShip(list, {3, "a", "a.shp", 0, "", bad}), FileError);
  }
  EXPECT_THROW(WithShip(list, {3, "a", "..\\a.shp", 0, "", ""}), FileError);
}

TEST(AddedLine, AFullListIsRefused) {
  std::string text = "32765\n";
  for (int i = 0; i < 32765; ++i) text += "1,A,a.shp,4,h,w\n";
  EXPECT_THROW(Adding(text), FileError);
}

constexpr const char* three =
    "3\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n3,\"M\",\"m.shp\",0,\"h\",\"\"\n2,\"B\",\"b.shp\",5,\"h\",\"w\"\n";

TEST(RemovedLine, LeavesTheOthersAsTheyAre) {
  EXPECT_EQ(Removing(three, {0}), "2\n3,\"M\",\"m.shp\",0,\"h\",\"\"\n2,\"B\",\"b.shp\",5,\"h\",\"w\"\n");
  EXPECT_EQ(Removing(three, {1}), "2\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n2,\"B\",\"b.shp\",5,\"h\",\"w\"\n");
  EXPECT_EQ(Removing(three, {2}), "2\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n3,\"M\",\"m.shp\",0,\"h\",\"\"\n");
  EXPECT_EQ(Removing(three, {0, 2}), "1\n3,\"M\",\"m.shp\",0,\"h\",\"\"\n");
  EXPECT_EQ(Removing(three, {0, 1, 2}), "0\n");
  EXPECT_EQ(Removing(three, {}), three);
}

TEST(RemovedLine, IsWhatAddingItMade) {
  for (const std::string end : {"\n", "\r\n"}) {
    const std::string text = "1" + end + "1,\"A\",\"a.shp\",4,\"h\",\"w\"" + end;
    EXPECT_EQ(Removing(Adding(text), {1}), text);
  }
}

TEST(RemovedLine, ItsSpacesGoWithItAndEmptyLinesStay) {
  EXPECT_EQ(Removing("2\n\n \t3,M,m.shp,0,h,  \n\n1,A,a.shp,4,h,w\n", {0}), "1\n\n\n1,A,a.shp,4,h,w\n");
}

TEST(RemovedLine, AShipMayStandInSeveralLinesOrShareOneWithOthers) {
  EXPECT_EQ(Removing("2\n3\nM\nm.shp\n0\nh\nw\n1,A,a.shp,4,h,w\n", {0}), "1\n1,A,a.shp,4,h,w\n");
  EXPECT_EQ(Removing("3,1,A,a.shp,4,h,w,3,M,m.shp,0,h,,2,B,b.shp,5,h,w\n", {1}), "2,1,A,a.shp,4,h,w,2,B,b.shp,5,h,w\n");
  EXPECT_EQ(Removing("2,1,A,a.shp,4,h,w,3,M,m.shp,0,h,x\n", {1}), "1,1,A,a.shp,4,h,w,");
  EXPECT_EQ(Adding(Removing("2,1,A,a.shp,4,h,w,3,M,m.shp,0,h,x\n", {1})),
            std::string("2,1,A,a.shp,4,h,w,") + addedLine + "\r\n");
}

TEST(RemovedLine, TheLastOneMayLackItsLineBreak) {
  EXPECT_EQ(Removing("2\n1,A,a.shp,4,h,w\n3,M,m.shp,0,h,", {1}), "1\n1,A,a.shp,4,h,w\n");
}

TEST(RenamedLine, OnlyTheNameChanges) {
  EXPECT_EQ(
      Naming(three, 1, "New, name"),
      "3\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n3,\"New, name\",\"m.shp\",0,\"h\",\"\"\n2,\"B\",\"b.shp\",5,\"h\",\"w\""
      "\n");
  EXPECT_EQ(Naming("1\r\n 3 ,\tM m  , m.shp ,0,h,w", 0, "N"), "1\r\n 3 ,\t\"N\"  , m.shp ,0,h,w");
  EXPECT_EQ(Naming("1\n3,,m.shp,0,h,w", 0, "N"), "1\n3,\"N\",m.shp,0,h,w");
  EXPECT_EQ(Naming("1\n3\n\"M\"\nm.shp\n0\nh\nw", 0, "N"), "1\n3\n\"N\"\nm.shp\n0\nh\nw");
}

TEST(RenamedLine, ANameThatTheListCannotHoldIsRefused) {
  for (const std::string bad : {"a\"b", "a\nb", "a\rb"}) EXPECT_THROW(Naming(three, 1, bad), FileError);
}

TEST(ImportedLine, IsFoundByKindNameAndModelWithoutRegardToCase) {
  const ShipListText list = Parsed("4\n1,M,m.shp,0,,\n3,M,other.shp,0,,\n3,\" m \",M.SHP,0,,\n3,M,m.shp,0,,\n");
  EXPECT_EQ(FindImportedLine(list, "M", "m.shp"), 2U);
  EXPECT_EQ(FindImportedLine(list, "m ", "OTHER.shp"), 1U);
  EXPECT_EQ(FindImportedLine(list, "X", "m.shp"), std::nullopt);
  EXPECT_EQ(FindImportedLine(list, "M", "x.shp"), std::nullopt);
}

TEST(ImportedLine, ALongNameIsComparedAsTheCatalogueHoldsIt) {
  const std::string longName = "A name that is longer than thirty characters";
  const ShipListText list = Parsed("1\n3,\"" + longName + "\",m.shp,0,,\n");
  EXPECT_EQ(FindImportedLine(list, longName.substr(0, 30), "m.shp"), 0U);
}

TEST(ImportedLine, IsFoundFromALineOn) {
  const ShipListText list = Parsed("2\n3,M,m.shp,0,,\n3,M,m.shp,0,,\n");
  EXPECT_EQ(FindImportedLine(list, "M", "m.shp", 1), 1U);
  EXPECT_EQ(FindImportedLine(list, "M", "m.shp", 2), std::nullopt);
}

struct ShipListFile : testing::Test {
  void Make(const std::string& text) const { WriteFileAt(folder.Native("shipsData.txt"), text); }
  [[nodiscard]] std::string Now() const { return ReadTextAt(folder.Native("shipsData.txt")); }

  TemporaryFolder folder;
  Files files;
};

/// Adds a ship to the list on disk, as an import does.
void Add(Files& files, const std::string& path, const ListedShip& ship) {
  WriteShipList(files, WithShip(ReadShipListText(files, path), ship));
}

TEST_F(ShipListFile, AnImportedShipIsAdded) {
  Make(three);
  Add(files, folder.windows + "shipsData.txt", added);
  EXPECT_EQ(Now(), "4" + std::string(three).substr(1) + addedLine + "\n");
}

TEST_F(ShipListFile, AMissingOrDamagedListIsNotTouched) {
  EXPECT_THROW(Add(files, folder.windows + "shipsData.txt", added), FileError);
  EXPECT_FALSE(exists(folder.Native("shipsData.txt")));
  for (const std::string bad : {"", "x", "-1\n", "2\n1,A,a.shp,4,h,w\n", "1\n1,\"A,a.shp,4,h,w\n",
                                "0\n1,A,a.shp,4,h,w\n", "1\n1,A,..\\a.shp,4,h,w\n"}) {
    Make(bad);
    EXPECT_THROW(Add(files, folder.windows + "shipsData.txt", added), FileError) << bad;
    EXPECT_EQ(Now(), bad);
  }
}

TEST_F(ShipListFile, WhateverFailsOrStopsTheListIsWhole) {
  const std::string after = "4" + std::string(three).substr(1) + addedLine + "\n";
  for (const FaultKind kind : {FaultKind::failure, FaultKind::stop}) {
    AtEachOperation(kind, [&](Fault& fault) {
      Make(three);
      Files failing;
      Watch(failing, fault);
      const bool stopped = Stopped([&] {
        try {
          Add(failing, folder.windows + "shipsData.txt", added);
          EXPECT_FALSE(fault.happened);
        } catch (const FileError&) {
          EXPECT_TRUE(fault.happened);
        }
      });
      EXPECT_EQ(stopped, fault.happened && kind == FaultKind::stop);
      EXPECT_EQ(Now(), fault.happened ? three : after);
    });
  }
}

}  // namespace
}  // namespace oravin::test
