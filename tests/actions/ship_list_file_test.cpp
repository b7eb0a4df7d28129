// The ship list of the program folder: the message boxes of loading and of saving it.

#include "actions/ship_list_file.h"

#include <gtest/gtest.h>

#include "desk/program_end.h"
#include "support/fault.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

struct TheShipListFile : testing::Test {
  TheShipListFile() { installation.ProgramPath = folder.windows; }

  std::vector<ListedShip> Load(const std::string& text) {
    WriteFileAt(folder.Native("shipsData.txt"), text);
    return LoadShipList(here.host, installation);
  }
  [[nodiscard]] std::string Now() const { return ReadTextAt(folder.Native("shipsData.txt")); }

  TemporaryFolder folder;
  ScriptedHost here;
  Installation installation;
  const ListedShip alpha = {1, "Alpha", "alpha.shp", 4, "hull", "wing"};
};

TEST_F(TheShipListFile, IsLoaded) {
  EXPECT_EQ(Load("1\n1,\"Alpha\",\"alpha.shp\",4,\"hull\",\"wing\"\n"), std::vector{alpha});
}

TEST_F(TheShipListFile, AMissingListGivesACriticalBox) {
  here.desk.ExpectBox("shipsData.txt not found", programTitle, Icon::critical);
  EXPECT_TRUE(LoadShipList(here.host, installation).empty());
}

TEST_F(TheShipListFile, ANumberOfShipsThatIsNotPositiveEndsTheProgram) {
  for (const std::string text : {"0\n", "-1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n", "-0.5\n"}) {
    here.desk.ExpectBox("Error in shipsData.txt file", programTitle, Icon::critical);
    EXPECT_THROW(Load(text), ProgramEnd);
    EXPECT_TRUE(here.desk.Done()) << text;
  }
}

TEST_F(TheShipListFile, ADamagedListGivesTheErrorTrapsBox) {
  here.desk.ExpectBox("Error - could not read " + folder.Windows("shipsData.txt") + ": it ends too early (line 1)",
                      "ReadShipList");
  EXPECT_TRUE(Load("").empty());
}

TEST_F(TheShipListFile, AFailureOfLoadingGivesOneBoxAndNoShips) {
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    here.desk.shown.clear();
    Watch(here.host.files, fault);
    const auto ships = Load("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n");
    EXPECT_EQ(ships.size(), fault.happened ? 0U : 1U);
    EXPECT_EQ(here.desk.shown.size(), fault.happened ? 1U : 0U);
  });
  here.host.files.before = nullptr;
  EXPECT_GE(operations, 2);
}

TEST_F(TheShipListFile, IsSavedAndTheOldOneIsKept) {
  Load("1\n1,\"A\",\"a.shp\",4,\"h\",\"w\"\n");
  EXPECT_TRUE(SaveShipList(here.host, installation.shipListPath(), std::vector{alpha}));
  EXPECT_EQ(Now(), "1\r\n1,\"Alpha\",\"alpha.shp\",4,\"hull\",\"wing\"\r\n");
  EXPECT_TRUE(std::filesystem::exists(folder.Native("shipsData.old")));
}

TEST_F(TheShipListFile, WhatCouldNotBeReadBackIsNotSaved) {
  ListedShip bad = alpha;
  bad.texture0 = "a\"b";
  const std::vector<std::pair<std::vector<ListedShip>, std::string>> cases = {
      {{}, "There are no ships in the list."},
      {{alpha, bad}, "Line 2, \"Alpha\": a text of it has a quote or a line end."}};
  for (const auto& [ships, why] : cases) {
    here.desk.ExpectBox(why + "\nThe ship list was not saved.", "Ship list");
    EXPECT_FALSE(SaveShipList(here.host, installation.shipListPath(), ships));
    EXPECT_TRUE(here.desk.Done());
    EXPECT_FALSE(std::filesystem::exists(folder.Native("shipsData.txt")));
  }
}

TEST_F(TheShipListFile, AFailureOfSavingGivesOneBoxAndKeepsTheOldList) {
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    WriteFileAt(folder.Native("shipsData.txt"), "the old list");
    here.desk.shown.clear();
    Watch(here.host.files, fault);
    const bool saved = SaveShipList(here.host, installation.shipListPath(), std::vector{alpha});
    here.host.files.before = nullptr;
    EXPECT_EQ(saved, !fault.happened) << fault.what;
    EXPECT_EQ(here.desk.shown.size(), fault.happened ? 1U : 0U) << fault.what;
    if (fault.happened) {
      EXPECT_EQ(here.desk.shown.at(0).title, "SaveShipList");
      EXPECT_EQ(Now(), "the old list") << fault.what;
    }
  });
}

}  // namespace
}  // namespace oravin::test
