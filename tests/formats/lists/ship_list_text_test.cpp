// The ship list as it is written: it reads back as the same ships, and what could not be read back is not written.

#include "lists/ship_list_text.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

struct SavedShipList : testing::Test {
  void Save(const std::vector<ListedShip>& ships) { ReplaceShipList(files, path, ships); }
  static void ExpectUnreadable(const std::vector<ListedShip>& ships, const std::string& why) {
    SCOPED_TRACE(why);
    const auto fault = WhyUnreadable(ships);
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->text, why);
  }
  [[nodiscard]] std::string Text(const std::string& name) const { return ReadTextAt(folder.Native(name)); }

  TemporaryFolder folder;
  Files files;
  const std::string path = folder.Windows("shipsData.txt");
  const ListedShip alpha = {1, "Alpha", "alpha.shp", 4, "hull", "wing"};
  const ListedShip bravo = {2, "Bravo, the Second", "Bravo.SHP", 32767, "", ""};
};

TEST_F(SavedShipList, HasTheCountAndThenALineAShip) {
  EXPECT_EQ(TextOfShipList(std::vector{alpha, bravo}),
            "2\r\n1,\"Alpha\",\"alpha.shp\",4,\"hull\",\"wing\"\r\n"
            "2,\"Bravo, the Second\",\"Bravo.SHP\",32767,\"\",\"\"\r\n");
}

TEST_F(SavedShipList, ReadsBackAsTheSameShips) {
  const std::vector<ListedShip> ships = {alpha,
                                         bravo,
                                         {3, " blanks ", "b c.shp", 0, " t,1 ", "\xE4\xFF'"},
                                         {-32768, "", "", 0, "", ""},
                                         {32767, std::string(500, 'n'), "   ", 1, "a;b", "x"}};
  EXPECT_FALSE(WhyUnreadable(ships));
  Save(ships);
  const std::vector<ListedShip> read = ReadShipList(files, path);
  ASSERT_EQ(read.size(), ships.size());
  for (std::size_t i = 0; i < ships.size(); ++i) EXPECT_TRUE(read[i] == ships[i]) << i;
}

TEST_F(SavedShipList, ThousandsOfShipsReadBack) {
  std::vector<ListedShip> ships(mostListedShips, alpha);
  EXPECT_FALSE(WhyUnreadable(ships));
  Save(ships);
  EXPECT_EQ(ReadShipList(files, path).size(), ships.size());
}

TEST_F(SavedShipList, WhatCouldNotBeReadBackIsAFault) {
  ExpectUnreadable({}, "There are no ships in the list.");
  ExpectUnreadable(std::vector<ListedShip>(mostListedShips + 1, alpha),
                   "There are more than 32,765 ships in the list.");
  for (const char* text : {"a\"b", "a\nb", "a\rb"}) {
    for (std::string ListedShip::*const field :
         {&ListedShip::name, &ListedShip::file, &ListedShip::texture0, &ListedShip::texture1}) {
      ListedShip ship = alpha;
      ship.*field = text;
      ExpectUnreadable({bravo, ship}, "Line 2, \"" + ship.name + "\": a text of it has a quote or a line end.");
    }
  }
  for (const char* file : {"..\\a.shp", "a\\b.shp", "c:a.shp", "con.shp", "a.shp."}) {
    ListedShip ship = alpha;
    ship.file = file;
    ExpectUnreadable({ship}, "Line 1, \"Alpha\": \"" + std::string(file) + "\" is no file name.");
  }
  for (const int block : {-1, 32768}) {
    ListedShip ship = alpha;
    ship.statsIndex = block;
    ExpectUnreadable({ship}, "Line 1, \"Alpha\": its statistics block is not from 0 to 32767.");
  }
  ListedShip ship = alpha;
  ship.kind = 32768;
  ExpectUnreadable({ship}, "Line 1, \"Alpha\": its kind is no 16-bit number.");
}

TEST_F(SavedShipList, AnOldListWithOtherBytesIsKeptUnderTheFirstFreeName) {
  WriteFileAt(folder.Native("shipsData.txt"), "the first list");
  Save({alpha});
  EXPECT_EQ(Text("shipsData.old"), "the first list");
  Save({bravo});
  EXPECT_EQ(Text("shipsData.old2"), TextOfShipList(std::vector{alpha}));
  Save({bravo});
  EXPECT_FALSE(std::filesystem::exists(folder.Native("shipsData.old3"))) << "nothing was replaced";
  EXPECT_EQ(Text("shipsData.txt"), TextOfShipList(std::vector{bravo}));
}

TEST_F(SavedShipList, NoFailureAndNoStopLosesTheOldList) {
  for (const FaultKind kind : {FaultKind::failure, FaultKind::stop}) {
    AtEachOperation(kind, [&](Fault& fault) {
      TemporaryFolder place;
      WriteFileAt(place.Native("shipsData.txt"), "the old list");
      Files failing;
      Watch(failing, fault);
      bool saved = false;
      const bool stopped = Stopped([&] {
        try {
          ReplaceShipList(failing, place.Windows("shipsData.txt"), std::vector{alpha});
          saved = true;
        } catch (const FileError&) {
          EXPECT_TRUE(kind == FaultKind::failure && fault.happened) << fault.what;
        }
      });
      const std::string now = ReadTextAt(place.Native("shipsData.txt"));
      EXPECT_EQ(now, saved || now != "the old list" ? TextOfShipList(std::vector{alpha}) : "the old list")
          << fault.what;
      if (saved) {
        EXPECT_EQ(ReadTextAt(place.Native("shipsData.old")), "the old list") << fault.what;
      }
      if (kind == FaultKind::failure && fault.happened) {
        EXPECT_FALSE(saved) << fault.what;
        EXPECT_EQ(now, "the old list") << fault.what;
      }
      EXPECT_TRUE(kind == FaultKind::stop || !stopped);
    });
  }
}

TEST_F(SavedShipList, AnOldListTooLargeToBeRightIsKeptToo) {
  WriteFileAt(folder.Native("shipsData.txt"), std::string((16U << 20U) + 1, 'x'));
  Save({alpha});
  EXPECT_EQ(std::filesystem::file_size(folder.Native("shipsData.old")), (16U << 20U) + 1);
}

/// Not everything that can be read should be listed.
TEST_F(SavedShipList, AShipThatTheCatalogueCouldNotHoldIsNotListed) {
  const auto with = [&](auto&& change) {
    ListedShip ship = alpha;
    change(ship);
    return WhyNotListed(ship);
  };
  EXPECT_EQ(WhyNotListed(alpha), "");
  EXPECT_EQ(WhyNotListed(bravo), "");
  EXPECT_EQ(with([](auto& ship) { ship.kind = 0; }), "its kind is not 1, 2 or 3");
  EXPECT_EQ(with([](auto& ship) { ship.kind = 4; }), "its kind is not 1, 2 or 3");
  EXPECT_EQ(with([](auto& ship) { ship.name = "  "; }), "a ship must have a name");
  EXPECT_EQ(with([](auto& ship) { ship.file = " "; }), "it has no model");
  EXPECT_EQ(with([](auto& ship) { ship.name = std::string(30, 'n'); }), "");
  EXPECT_EQ(with([](auto& ship) { ship.name = std::string(31, 'n'); }), "a ship's name can have at most 30 characters");
  EXPECT_EQ(with([](auto& ship) { ship.file = std::string(26, 'f') + ".shp"; }), "");
  EXPECT_EQ(with([](auto& ship) { ship.file = std::string(27, 'f') + ".shp"; }),
            "its model's name is longer than 30 characters");
  EXPECT_EQ(with([](auto& ship) { ship.texture0 = std::string(31, 't'); }),
            "its texture's name is longer than 30 characters");
  EXPECT_EQ(with([](auto& ship) { ship.texture1 = "a\"b"; }),
            "its second texture's name has a quote or a line end in it");
  EXPECT_EQ(with([](auto& ship) { ship.file = "alpha.txt"; }), "its model's name does not end in .shp");
  EXPECT_EQ(with([](auto& ship) { ship.file = "b\xE4r.shp"; }), "\"b\xE4r.shp\" is no file name");
  EXPECT_EQ(with([](auto& ship) { ship.file = "a\\b.shp"; }), "\"a\\b.shp\" is no file name");
  EXPECT_EQ(with([](auto& ship) { ship.statsIndex = 32768; }), "its statistics block is not from 0 to 32767");
}

TEST_F(SavedShipList, OneNameIsAShipsAndItsSecondPartsAlone) {
  ListedShip second = alpha;
  second.file = "t_alpha.shp";
  second.name = "ALPHA ";
  EXPECT_FALSE(WhyNotSaved(std::vector{alpha, second, bravo}));
  const auto apart = WhyNotSaved(std::vector{alpha, bravo, second});
  ASSERT_TRUE(apart.has_value());
  EXPECT_EQ(apart->line, 2U);
  EXPECT_EQ(
      apart->text,
      "Line 3, \"ALPHA \": line 1 has the same name, which only a ship and its second part directly behind it have.");
  ListedShip third = alpha;
  third.file = "x.shp";
  const auto three = WhyNotSaved(std::vector{alpha, second, third});
  ASSERT_TRUE(three.has_value());
  EXPECT_EQ(three->line, 2U);
}

TEST_F(SavedShipList, AModelIsOneShipsAlone) {
  ListedShip other = bravo;
  other.file = "ALPHA.shp";
  const auto fault = WhyNotSaved(std::vector{alpha, other});
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->text, "Line 2, \"Bravo, the Second\": line 1 has the same model.");
  EXPECT_EQ(fault->line, 1U);
}

}  // namespace
}  // namespace oravin::test
