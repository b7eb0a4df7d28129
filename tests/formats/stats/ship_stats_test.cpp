#include "stats/ship_stats.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/scripted_desk.h"
#include "support/stats_file.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::Joined;
using test::ReadFileAt;
using test::ScriptedHost;
using test::StatsBlock;
using test::StatsFrom;
using test::TemporaryFolder;
using test::WriteFileAt;

struct StatsFile : testing::Test {
  TemporaryFolder folder;
  ScriptedHost at;
  std::string path = folder.Windows("shipstats.bin");

  [[nodiscard]] std::filesystem::path Native() const { return folder.Native("shipstats.bin"); }
  void Make(const std::vector<Bytes>& blocks) const { WriteFileAt(Native(), Joined(blocks)); }
  void ExpectBox(const std::string& text, const std::string& title) {
    at.desk.ExpectBox(text, title, Icon::exclamation);
  }
};

TEST_F(StatsFile, ABlocksStatisticsAreRead) {
  Make({StatsBlock("A", StatsFrom(100)), StatsBlock("B", StatsFrom(-200.5F))});
  ShipStats stats;
  EXPECT_TRUE(GetShipsStats(at.host, path, 1, stats));
  EXPECT_EQ(stats, StatsFrom(-200.5F));
}

TEST_F(StatsFile, ReadingTrimsTheCallersPath) {
  Make({StatsBlock("A", StatsFrom(1))});
  std::string blanks = "  " + path + " ";
  ShipStats stats;
  EXPECT_TRUE(GetShipsStats(at.host, blanks, 0, stats));
  EXPECT_EQ(blanks, path);
}

TEST_F(StatsFile, ReadingFromAMissingFileLeavesTheRecordAsItWas) {
  ExpectBox("Error - file not found", "GetShipsStats");
  ShipStats stats = StatsFrom(7);
  EXPECT_FALSE(GetShipsStats(at.host, path, 0, stats));
  EXPECT_EQ(stats, StatsFrom(7));
}

TEST_F(StatsFile, ReadingAShipBeyondTheEndReportsUnderTheWritersTitle) {
  Make({StatsBlock("A", StatsFrom(1))});
  ExpectBox("Error - invalid ship", "PutShipsStats");
  ShipStats stats = StatsFrom(7);
  EXPECT_FALSE(GetShipsStats(at.host, path, 1, stats));
  EXPECT_EQ(stats, StatsFrom(7));
}

TEST_F(StatsFile, ABlockThatEndsExactlyAtTheEndOfTheFileIsValid) {
  Make({StatsBlock("A", StatsFrom(1)), StatsBlock("B", StatsFrom(2))});
  ShipStats stats;
  EXPECT_TRUE(GetShipsStats(at.host, path, 1, stats));
  EXPECT_TRUE(PutShipsStats(at.host, path, 1, StatsFrom(3)));
}

TEST_F(StatsFile, OneByteLessOfFileMakesTheBlockInvalid) {
  Bytes bytes = Joined({StatsBlock("A", StatsFrom(1)), StatsBlock("B", StatsFrom(2))});
  bytes.pop_back();
  WriteFileAt(Native(), bytes);
  ExpectBox("Error - invalid ship", "PutShipsStats");
  ExpectBox("Error - invalid ship", "PutShipsStats");
  ShipStats stats;
  EXPECT_FALSE(GetShipsStats(at.host, path, 1, stats));
  EXPECT_FALSE(PutShipsStats(at.host, path, 1, stats));
  EXPECT_EQ(ReadFileAt(Native()), bytes);
}

TEST_F(StatsFile, ANegativeShipIsInvalid) {
  Make({StatsBlock("A", StatsFrom(1))});
  ExpectBox("Error - invalid ship", "PutShipsStats");
  ExpectBox("Error - invalid ship", "PutShipsStats");
  ShipStats stats;
  EXPECT_FALSE(GetShipsStats(at.host, path, -1, stats));
  EXPECT_FALSE(PutShipsStats(at.host, path, -1, stats));
}

TEST_F(StatsFile, WritingKeepsTheNameTheTailAndEveryOtherBlock) {
  Make({StatsBlock("A", StatsFrom(1), 0x11), StatsBlock("B", StatsFrom(2), 0x22), StatsBlock("C", StatsFrom(3), 0x33)});
  EXPECT_TRUE(PutShipsStats(at.host, path, 1, StatsFrom(99)));
  EXPECT_TRUE(test::SameBytes(Joined({StatsBlock("A", StatsFrom(1), 0x11), StatsBlock("B", StatsFrom(99), 0x22),
                                      StatsBlock("C", StatsFrom(3), 0x33)}),
                              ReadFileAt(Native())));
}

TEST_F(StatsFile, WritingToAMissingFileReportsAndMakesNone) {
  ExpectBox("Error - file not found", "PutShipsStats");
  EXPECT_FALSE(PutShipsStats(at.host, path, 0, StatsFrom(1)));
  EXPECT_FALSE(std::filesystem::exists(Native()));
}

TEST_F(StatsFile, WritingAShipBeyondTheEndNeverGrowsTheFile) {
  Make({StatsBlock("A", StatsFrom(1))});
  ExpectBox("Error - invalid ship", "PutShipsStats");
  EXPECT_FALSE(PutShipsStats(at.host, path, 1, StatsFrom(9)));
  EXPECT_EQ(ReadFileAt(Native()), StatsBlock("A", StatsFrom(1)));
}

TEST_F(StatsFile, WritingToAReadOnlyFileReports) {
  Make({StatsBlock("A", StatsFrom(1))});
  test::SetReadOnly(Native(), true);
  ExpectBox("Error - could not open " + path + ": it is read-only", "PutShipsStats");
  EXPECT_FALSE(PutShipsStats(at.host, path, 0, StatsFrom(9)));
}

TEST_F(StatsFile, AFailedReadReportsAndLeavesTheRecord) {
  Make({StatsBlock("A", StatsFrom(1))});
  test::Fault fault{test::FaultKind::failure, 2, 0, false, {}};
  test::Watch(at.host.files, fault);
  ExpectBox("Error - could not read " + path + ": the test lets it fail", "GetShipsStats");
  ShipStats stats = StatsFrom(7);
  EXPECT_FALSE(GetShipsStats(at.host, path, 0, stats));
  EXPECT_EQ(stats, StatsFrom(7));
}

TEST(StatsRows, AreShownInTheirOwnOrder) {
  const std::vector<std::pair<std::string, std::size_t>> wanted = {
      {"Max Speed", 0},        {"Inertia", 4},         {"Yaw Max", 8},
      {"Yaw Inertia", 12},     {"Pitch Max", 16},      {"Pitch Inertia", 20},
      {"Roll Max", 24},        {"Roll Inertia", 28},   {"Shield Strength", 32},
      {"Shield Recharge", 44}, {"Armor Strength", 36}, {"Afterburner Fuel", 40},
      {"Gun Energy", 48},      {"Gun Recharge", 52},   {"Ammo", 56}};
  ASSERT_EQ(statsRows.size(), wanted.size());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    EXPECT_EQ(statsRows.at(i).label, wanted[i].first);
    EXPECT_EQ(statsRows.at(i).field * 4, wanted[i].second) << wanted[i].first;
  }
  EXPECT_EQ(gunEnergyField * 4, 48U);
  EXPECT_EQ(gunRechargeField * 4, 52U);
}

struct StatsText : testing::Test {
  TemporaryFolder folder;
  ScriptedHost at;
  std::string path = folder.Windows("Tiger.txt");
  ShipStats stats = StatsFrom(500);

  bool Read(const std::string& text) {
    WriteFileAt(folder.Native("Tiger.txt"), text);
    return GetImportStats(at.host, path, stats);
  }
  void ExpectWrong(const std::string& reason) {
    at.desk.ExpectBox("Error - could not read " + path + ": " + reason, "GetImportStats", Icon::exclamation);
  }
};

TEST_F(StatsText, TheTenthValueIsTheShieldRecharge) {
  EXPECT_TRUE(Read("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n11\r\n12\r\n13\r\n14\r\n15\r\n"));
  EXPECT_EQ(stats.values[44 / 4], 10);
  EXPECT_EQ(stats.values[36 / 4], 11);
  EXPECT_EQ(stats.values[40 / 4], 12);
  const ShipStats wanted{{1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 10, 13, 14, 15}};
  EXPECT_EQ(stats, wanted);
}

TEST_F(StatsText, CommasAndLineEndsMayBeMixed) {
  EXPECT_TRUE(Read("1.5,-2, 3\n4,5,6,7\r\n\r\n8,9,10,11,12,13,14,0.015625"));
  EXPECT_EQ(stats.values[0], 1.5F);
  EXPECT_EQ(stats.values[1], -2);
  EXPECT_EQ(stats.values[14], 0.015625F);
}

TEST_F(StatsText, WhatFollowsTheFifteenthValueDoesNotMatter) {
  EXPECT_TRUE(Read("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\nmade by nobody \"in\" particular"));
  EXPECT_EQ(stats.values[14], 15);
}

TEST_F(StatsText, AMissingFileGivesItsBoxAndLeavesTheRecord) {
  at.desk.ExpectBox("File not found!", "GetImportStats", Icon::critical);
  EXPECT_FALSE(GetImportStats(at.host, path, stats));
  EXPECT_EQ(stats, StatsFrom(500));
}

TEST_F(StatsText, TooFewValuesLeaveTheRecord) {
  ExpectWrong("it ends too early (line 3)");
  EXPECT_FALSE(Read("1,2,3\n4,5,6,7,8,9,10,11,12,13,14\n"));
  EXPECT_EQ(stats, StatsFrom(500));
}

TEST_F(StatsText, WhatIsNoNumberLeavesTheRecord) {
  ExpectWrong("\"fast\" is no number (line 2)");
  EXPECT_FALSE(Read("1,2,3\nfast,5,6,7,8,9,10,11,12,13,14,15\n"));
  EXPECT_EQ(stats, StatsFrom(500));
}

TEST_F(StatsText, ANumberThatIsTooLargeForTheGameLeavesTheRecord) {
  ExpectWrong("Inertia is too large");
  EXPECT_FALSE(Read("1,1e39,3,4,5,6,7,8,9,10,11,12,13,14,15"));
  EXPECT_EQ(stats, StatsFrom(500));
}

TEST_F(StatsText, AFileThatIsFarTooLongIsNotRead) {
  ExpectWrong("it is too large to be right");
  EXPECT_FALSE(Read("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15" + std::string(65536, '\n')));
}

struct AppendedBlock : StatsFile {
  ShipRecord ship;

  void SetUp() override { ship.ShipName.Set("Tiger"); }
  int Copy() { return CopyShipStats(at.host, path, ship, StatsFrom(70)); }
  static Bytes NewBlock() { return StatsBlock("Tiger", StatsFrom(70), 0); }
};

TEST_F(AppendedBlock, StandsAtTheEndWithTheNameTheStatisticsAndZeros) {
  Make({StatsBlock("A", StatsFrom(1)), StatsBlock("B", StatsFrom(2))});
  EXPECT_EQ(Copy(), 2);
  EXPECT_TRUE(test::SameBytes(Joined({StatsBlock("A", StatsFrom(1)), StatsBlock("B", StatsFrom(2)), NewBlock()}),
                              ReadFileAt(Native())));
}

TEST_F(AppendedBlock, BlanksAroundTheNameAreNotWritten) {
  ship.ShipName.Set("  Tiger ");
  Make({StatsBlock("A", StatsFrom(1))});
  EXPECT_EQ(Copy(), 1);
  EXPECT_EQ(ReadFileAt(Native()), Joined({StatsBlock("A", StatsFrom(1)), NewBlock()}));
}

TEST_F(AppendedBlock, AZeroLengthFileStaysEmpty) {
  WriteFileAt(Native(), "");
  EXPECT_EQ(Copy(), 0);
  EXPECT_EQ(std::filesystem::file_size(Native()), 0U);
}

TEST_F(AppendedBlock, AMissingFileIsMadeAndStaysEmpty) {
  EXPECT_EQ(Copy(), 0);
  EXPECT_EQ(test::ImageOf(folder.native), (test::FolderImage{{"shipstats.bin", {}}}));
}

TEST_F(AppendedBlock, AnOddLengthGivesTheRoundedQuotientAndTheBlockBeginsAtTheOldEnd) {
  const std::vector<std::pair<std::size_t, int>> lengths = {{1, 0},   {175, 0}, {176, 0}, {177, 1},  {500, 1}, {528, 2},
                                                            {529, 2}, {880, 2}, {881, 3}, {1056, 3}, {1232, 4}};
  for (const auto& [length, index] : lengths) {
    const Bytes old(length, 0x77);
    WriteFileAt(Native(), old);
    EXPECT_EQ(Copy(), index) << length;
    EXPECT_TRUE(test::SameBytes(Joined({old, NewBlock()}), ReadFileAt(Native()))) << length;
  }
}

TEST_F(AppendedBlock, AReadOnlyFileReportsAndGivesZero) {
  Make({StatsBlock("A", StatsFrom(1))});
  test::SetReadOnly(Native(), true);
  ExpectBox("Error - could not open " + path + ": it is read-only", "CopyShipStats");
  EXPECT_EQ(Copy(), 0);
  EXPECT_EQ(ReadFileAt(Native()), StatsBlock("A", StatsFrom(1)));
}

TEST_F(AppendedBlock, WhereverTheProcessStopsTheOldBlocksAreThere) {
  const Bytes old = StatsBlock("A", StatsFrom(1));
  test::AtEachOperation(test::FaultKind::stop, [&](test::Fault& fault) {
    WriteFileAt(Native(), old);
    ScriptedHost stopping;
    test::Watch(stopping.host.files, fault);
    const bool stopped = test::Stopped([&] { CopyShipStats(stopping.host, path, ship, StatsFrom(70)); });
    EXPECT_EQ(ReadFileAt(Native()), stopped ? old : Joined({old, NewBlock()}));
  });
}

TEST_F(AppendedBlock, IsFoundByItsNameBehindTheStockBlocks) {
  Make({StatsBlock("Tiger", StatsFrom(1)), StatsBlock("Wolf", StatsFrom(2)), StatsBlock("TIGER", StatsFrom(3)),
        StatsBlock("Tiger", StatsFrom(4))});
  EXPECT_EQ(FindAddedBlock(at.host, path, "Tiger", 1), 2);
  EXPECT_EQ(FindAddedBlock(at.host, path, " tiger ", 0), 0);
  EXPECT_EQ(FindAddedBlock(at.host, path, "Tiger", 3), 3);
  EXPECT_EQ(FindAddedBlock(at.host, path, "Tiger", 4), -1);
  EXPECT_EQ(FindAddedBlock(at.host, path, "Bear", 0), -1);
  EXPECT_EQ(FindAddedBlock(at.host, path, "Tiger", -5), 0);
  EXPECT_EQ(FindAddedBlock(at.host, path, "Tiger", 0, 1), 2);
  EXPECT_EQ(FindAddedBlock(at.host, path, "tiger", 1, 1), 3);
  EXPECT_EQ(FindAddedBlock(at.host, path, "Tiger", 1, 2), -1);
}

TEST_F(AppendedBlock, IsNotFoundInAMissingFile) {
  ExpectBox("Error - could not open " + path + ": it does not exist", "CopyShipStats");
  EXPECT_EQ(FindAddedBlock(at.host, path, "Tiger", 0), -1);
}

struct AddedBlocks : StatsFile {
  static Bytes Zeros() { return Bytes(statsBlockSize); }
  void Expect(const std::vector<Bytes>& blocks) const {
    EXPECT_TRUE(test::SameBytes(Joined(blocks), ReadFileAt(Native())));
  }

  const Bytes a = StatsBlock("A", StatsFrom(1));
  const Bytes b = StatsBlock("B", StatsFrom(2));
};

TEST_F(AddedBlocks, TheFirstFreeOneBehindTheStockBlocksIsFound) {
  Make({Zeros(), a, Zeros(), b, Zeros()});
  EXPECT_EQ(FindFreeBlock(at.host, path, 0), 0);
  EXPECT_EQ(FindFreeBlock(at.host, path, 1), 2);
  EXPECT_EQ(FindFreeBlock(at.host, path, 3), 4);
  EXPECT_EQ(FindFreeBlock(at.host, path, 5), -1);
  EXPECT_EQ(FindFreeBlock(at.host, path, -1), 0);
}

TEST_F(AddedBlocks, ABlockWithAnyByteInItIsNotFree) {
  for (const std::size_t byte : {0U, 63U, 64U, 123U, 124U, 351U}) {
    Bytes block = Zeros();
    block[byte] = 1;
    Make({a, block});
    EXPECT_EQ(FindFreeBlock(at.host, path, 1), -1) << byte;
  }
}

TEST_F(AddedBlocks, ABlockThatTheFileEndsInsideIsNotFree) {
  Make({a, Bytes(351)});
  EXPECT_EQ(FindFreeBlock(at.host, path, 1), -1);
}

TEST_F(AddedBlocks, AWholeBlockIsWrittenAnew) {
  Make({a, Bytes(352, 0x77), b});
  PutShipBlock(at.host.files, path, 1, "Manta", StatsFrom(50));
  Expect({a, StatsBlock("Manta", StatsFrom(50), 0), b});
}

TEST_F(AddedBlocks, ANameOfSixtyFourCharactersFillsItsFieldAndALongerOneIsCut) {
  Make({a});
  const std::string longest(64, 'x');
  PutShipBlock(at.host.files, path, 0, longest + "y", StatsFrom(50));
  Expect({StatsBlock(longest, StatsFrom(50), 0)});
  PutBlockName(at.host.files, path, 0, longest + "y");
  Expect({StatsBlock(longest, StatsFrom(50), 0)});
  EXPECT_EQ(NameOfBlock(at.host.files, path, 0), longest);
}

TEST_F(AddedBlocks, ARenamedBlockKeepsEverythingBehindItsName) {
  Bytes block = StatsBlock("A longer name", StatsFrom(1));
  Make({block, b});
  PutBlockName(at.host.files, path, 0, "Short");
  std::fill_n(block.begin(), 64, std::uint8_t{0});
  const Bytes name = BytesOf("Short");
  std::copy(name.begin(), name.end(), block.begin());
  Expect({block, b});
}

TEST_F(AddedBlocks, ABlockIsFilledWithZeros) {
  Make({a, b});
  ClearShipBlock(at.host.files, path, 0);
  Expect({Zeros(), b});
}

TEST_F(AddedBlocks, ABlocksNameIsReadUpToItsFirstZeroByte) {
  Bytes block = a;
  std::fill_n(block.begin(), 64, std::uint8_t{'x'});
  const Bytes name = BytesOf(std::string(" Tiger \0junk", 12));
  std::copy(name.begin(), name.end(), block.begin());
  Make({block});
  EXPECT_EQ(NameOfBlock(at.host.files, path, 0), "Tiger");
}

TEST_F(AddedBlocks, ABlockThatIsNotThereHasNoNameAndIsNeverWritten) {
  EXPECT_EQ(NameOfBlock(at.host.files, path, 0), "");
  EXPECT_THROW(ClearShipBlock(at.host.files, path, 0), FileError);
  EXPECT_FALSE(exists(Native()));
  Make({a, Bytes(351)});
  for (const int index : {-1, 1, 2, 32767}) {
    EXPECT_EQ(NameOfBlock(at.host.files, path, index), "") << index;
    EXPECT_THROW(PutShipBlock(at.host.files, path, index, "M", StatsFrom(1)), FileError) << index;
    EXPECT_THROW(PutBlockName(at.host.files, path, index, "M"), FileError) << index;
    EXPECT_THROW(ClearShipBlock(at.host.files, path, index), FileError) << index;
  }
  Expect({a, Bytes(351)});
}

}  // namespace
}  // namespace oravin
