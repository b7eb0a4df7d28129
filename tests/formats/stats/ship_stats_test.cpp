#include "stats/ship_stats.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/stats_file.h"
#include "support/temporary_folder.h"
#include "support/thrown.h"

namespace oravin {
namespace {

using test::Joined;
using test::KindThrown;
using test::ReadFileAt;
using test::StatsBlock;
using test::StatsFrom;
using test::TemporaryFolder;
using test::TextThrown;
using test::WriteFileAt;

struct StatsFile : testing::Test {
  TemporaryFolder folder;
  Files files;
  std::string path = folder.Windows("shipstats.bin");

  [[nodiscard]] std::filesystem::path Native() const { return folder.Native("shipstats.bin"); }
  void Make(const std::vector<Bytes>& blocks) const { WriteFileAt(Native(), Joined(blocks)); }
  /// What reading or writing a block fails with.
  std::optional<ErrorKind> ReadFailure(int block) {
    return KindThrown([&] { ReadShipsStats(files, path, block); });
  }
  std::optional<ErrorKind> WriteFailure(int block) {
    return KindThrown([&] { WriteShipsStats(files, path, block, StatsFrom(9)); });
  }
};

TEST_F(StatsFile, ABlocksStatisticsAreRead) {
  Make({StatsBlock("A", StatsFrom(100)), StatsBlock("B", StatsFrom(-200.5F))});
  EXPECT_EQ(ReadShipsStats(files, path, 1), StatsFrom(-200.5F));
  File file(files, path, OpenFor::reading);
  EXPECT_EQ(ReadBlock(file, 0), StatsFrom(100));
}

TEST_F(StatsFile, SpacesAroundThePathDoNotMatter) {
  Make({StatsBlock("A", StatsFrom(1))});
  const std::string spaced = "  " + path + " ";
  EXPECT_EQ(ReadShipsStats(files, spaced, 0), StatsFrom(1));
  WriteShipsStats(files, spaced, 0, StatsFrom(2));
  EXPECT_EQ(ReadShipsStats(files, path, 0), StatsFrom(2));
}

TEST_F(StatsFile, AMissingFileIsAnErrorAndIsNotMade) {
  EXPECT_EQ(ReadFailure(0), ErrorKind::missing);
  EXPECT_EQ(WriteFailure(0), ErrorKind::missing);
  EXPECT_FALSE(std::filesystem::exists(Native()));
}

TEST_F(StatsFile, ABlockThatEndsExactlyAtTheEndOfTheFileIsValid) {
  Make({StatsBlock("A", StatsFrom(1)), StatsBlock("B", StatsFrom(2))});
  EXPECT_EQ(ReadFailure(1), std::nullopt);
  EXPECT_EQ(WriteFailure(1), std::nullopt);
}

TEST_F(StatsFile, OneByteLessOfFileMakesTheBlockInvalid) {
  Bytes bytes = Joined({StatsBlock("A", StatsFrom(1)), StatsBlock("B", StatsFrom(2))});
  bytes.pop_back();
  WriteFileAt(Native(), bytes);
  EXPECT_EQ(ReadFailure(1), ErrorKind::outside);
  EXPECT_EQ(WriteFailure(1), ErrorKind::outside);
  EXPECT_EQ(ReadFileAt(Native()), bytes);
}

TEST_F(StatsFile, ANegativeBlockIsInvalid) {
  Make({StatsBlock("A", StatsFrom(1))});
  EXPECT_EQ(ReadFailure(-1), ErrorKind::outside);
  EXPECT_EQ(WriteFailure(-1), ErrorKind::outside);
}

TEST_F(StatsFile, WritingKeepsTheNameTheTailAndEveryOtherBlock) {
  Make({StatsBlock("A", StatsFrom(1), 0x11), StatsBlock("B", StatsFrom(2), 0x22), StatsBlock("C", StatsFrom(3), 0x33)});
  WriteShipsStats(files, path, 1, StatsFrom(99));
  EXPECT_TRUE(test::SameBytes(Joined({StatsBlock("A", StatsFrom(1), 0x11), StatsBlock("B", StatsFrom(99), 0x22),
                                      StatsBlock("C", StatsFrom(3), 0x33)}),
                              ReadFileAt(Native())));
}

TEST_F(StatsFile, WritingABlockBeyondTheEndNeverGrowsTheFile) {
  Make({StatsBlock("A", StatsFrom(1))});
  EXPECT_EQ(ReadFailure(1), ErrorKind::outside);
  EXPECT_EQ(WriteFailure(1), ErrorKind::outside);
  EXPECT_EQ(ReadFileAt(Native()), StatsBlock("A", StatsFrom(1)));
}

TEST_F(StatsFile, WritingToAReadOnlyFileIsAnError) {
  Make({StatsBlock("A", StatsFrom(1))});
  test::SetReadOnly(Native(), true);
  EXPECT_EQ(TextThrown([&] { WriteShipsStats(files, path, 0, StatsFrom(9)); }),
            "could not open " + path + ": it is read-only");
}

TEST_F(StatsFile, WhateverFailsIsAnErrorAndNothingElse) {
  const Bytes before = StatsBlock("A", StatsFrom(1));
  const Bytes after = StatsBlock("A", StatsFrom(9));
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Make({before});
    Files failing;
    test::Watch(failing, fault);
    const auto error = test::Thrown([&] {
      EXPECT_EQ(ReadShipsStats(failing, path, 0), StatsFrom(1));
      WriteShipsStats(failing, path, 0, StatsFrom(9));
    });
    EXPECT_EQ(error.has_value(), fault.happened);
    EXPECT_EQ(ReadFileAt(Native()), fault.happened ? before : after);
  });
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
  Files files;
  std::string path = folder.Windows("Tiger.txt");

  ShipStats Read(const std::string& text) {
    WriteFileAt(folder.Native("Tiger.txt"), text);
    return ReadImportStats(files, path);
  }
  void ExpectWrong(const std::string& text, const std::string& reason) {
    EXPECT_EQ(TextThrown([&] { Read(text); }), "could not read " + path + ": " + reason);
  }
};

TEST_F(StatsText, TheTenthValueIsTheShieldRecharge) {
  const ShipStats stats = Read("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n11\r\n12\r\n13\r\n14\r\n15\r\n");
  EXPECT_EQ(stats.values[44 / 4], 10);
  EXPECT_EQ(stats.values[36 / 4], 11);
  EXPECT_EQ(stats.values[40 / 4], 12);
  const ShipStats wanted{{1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 10, 13, 14, 15}};
  EXPECT_EQ(stats, wanted);
}

TEST_F(StatsText, CommasAndLineEndsMayBeMixed) {
  const ShipStats stats = Read("1.5,-2, 3\n4,5,6,7\r\n\r\n8,9,10,11,12,13,14,0.015625");
  EXPECT_EQ(stats.values[0], 1.5F);
  EXPECT_EQ(stats.values[1], -2);
  EXPECT_EQ(stats.values[14], 0.015625F);
}

TEST_F(StatsText, WhatFollowsTheFifteenthValueDoesNotMatter) {
  EXPECT_EQ(Read("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\nmade by nobody \"in\" particular").values[14], 15);
}

TEST_F(StatsText, AMissingFileIsAnError) {
  EXPECT_EQ(KindThrown([&] { ReadImportStats(files, path); }), ErrorKind::missing);
}

TEST_F(StatsText, TooFewValuesAreAnError) {
  ExpectWrong("1,2,3\n4,5,6,7,8,9,10,11,12,13,14\n", "it ends too early (line 3)");
}

TEST_F(StatsText, WhatIsNoNumberIsAnError) {
  ExpectWrong("1,2,3\nfast,5,6,7,8,9,10,11,12,13,14,15\n", "\"fast\" is no number (line 2)");
}

TEST_F(StatsText, ANumberThatIsTooLargeForTheGameIsAnError) {
  ExpectWrong("1,1e39,3,4,5,6,7,8,9,10,11,12,13,14,15", "Inertia is too large");
}

TEST_F(StatsText, AFileThatIsFarTooLongIsNotRead) {
  ExpectWrong("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15" + std::string(65536, '\n'), "it is too large to be right");
}

struct AppendedBlock : StatsFile {
  int Append() { return AppendShipBlock(files, path, "Tiger", StatsFrom(70)); }
  static Bytes NewBlock() { return StatsBlock("Tiger", StatsFrom(70), 0); }
};

TEST_F(AppendedBlock, IsAtTheEndWithTheNameTheStatisticsAndZeros) {
  Make({StatsBlock("A", StatsFrom(1)), StatsBlock("B", StatsFrom(2))});
  EXPECT_EQ(Append(), 2);
  EXPECT_TRUE(test::SameBytes(Joined({StatsBlock("A", StatsFrom(1)), StatsBlock("B", StatsFrom(2)), NewBlock()}),
                              ReadFileAt(Native())));
}

TEST_F(AppendedBlock, AZeroLengthFileStaysEmpty) {
  WriteFileAt(Native(), "");
  EXPECT_EQ(Append(), 0);
  EXPECT_EQ(std::filesystem::file_size(Native()), 0U);
}

TEST_F(AppendedBlock, AMissingFileIsMadeAndStaysEmpty) {
  EXPECT_EQ(Append(), 0);
  EXPECT_EQ(test::ImageOf(folder.native), (test::FolderImage{{"shipstats.bin", {}}}));
}

TEST_F(AppendedBlock, AnOddLengthGivesTheRoundedQuotientAndTheBlockBeginsAtTheOldEnd) {
  const std::vector<std::pair<std::size_t, int>> lengths = {{1, 0},   {175, 0}, {176, 0}, {177, 1},  {500, 1}, {528, 2},
                                                            {529, 2}, {880, 2}, {881, 3}, {1056, 3}, {1232, 4}};
  for (const auto& [length, index] : lengths) {
    const Bytes old(length, 0x77);
    WriteFileAt(Native(), old);
    EXPECT_EQ(Append(), index) << length;
    EXPECT_TRUE(test::SameBytes(Joined({old, NewBlock()}), ReadFileAt(Native()))) << length;
  }
}

TEST_F(AppendedBlock, AReadOnlyFileIsAnError) {
  Make({StatsBlock("A", StatsFrom(1))});
  test::SetReadOnly(Native(), true);
  EXPECT_EQ(TextThrown([&] { Append(); }), "could not open " + path + ": it is read-only");
  EXPECT_EQ(ReadFileAt(Native()), StatsBlock("A", StatsFrom(1)));
}

TEST_F(AppendedBlock, WhereverTheProcessStopsTheOldBlocksAreThere) {
  const Bytes old = StatsBlock("A", StatsFrom(1));
  test::AtEachOperation(test::FaultKind::stop, [&](test::Fault& fault) {
    WriteFileAt(Native(), old);
    Files stopping;
    test::Watch(stopping, fault);
    const bool stopped = test::Stopped([&] { AppendShipBlock(stopping, path, "Tiger", StatsFrom(70)); });
    EXPECT_EQ(ReadFileAt(Native()), stopped ? old : Joined({old, NewBlock()}));
  });
}

TEST_F(AppendedBlock, IsFoundByItsNameAfterTheStockBlocks) {
  Make({StatsBlock("Tiger", StatsFrom(1)), StatsBlock("Wolf", StatsFrom(2)), StatsBlock("TIGER", StatsFrom(3)),
        StatsBlock("Tiger", StatsFrom(4))});
  EXPECT_EQ(FindAddedBlock(files, path, "Tiger", 1), 2);
  EXPECT_EQ(FindAddedBlock(files, path, " tiger ", 0), 0);
  EXPECT_EQ(FindAddedBlock(files, path, "Tiger", 3), 3);
  EXPECT_EQ(FindAddedBlock(files, path, "Tiger", 4), -1);
  EXPECT_EQ(FindAddedBlock(files, path, "Bear", 0), -1);
  EXPECT_EQ(FindAddedBlock(files, path, "Tiger", -5), 0);
  EXPECT_EQ(FindAddedBlock(files, path, "Tiger", 0, 1), 2);
  EXPECT_EQ(FindAddedBlock(files, path, "tiger", 1, 1), 3);
  EXPECT_EQ(FindAddedBlock(files, path, "Tiger", 1, 2), -1);
}

TEST_F(AppendedBlock, IsNotFoundInAMissingFile) {
  EXPECT_EQ(KindThrown([&] { FindAddedBlock(files, path, "Tiger", 0); }), ErrorKind::missing);
}

struct AddedBlocks : StatsFile {
  static Bytes Zeros() { return Bytes(statsBlockSize); }
  void Expect(const std::vector<Bytes>& blocks) const {
    EXPECT_TRUE(test::SameBytes(Joined(blocks), ReadFileAt(Native())));
  }

  const Bytes a = StatsBlock("A", StatsFrom(1));
  const Bytes b = StatsBlock("B", StatsFrom(2));
};

TEST_F(AddedBlocks, TheFirstFreeOneAfterTheStockBlocksIsFound) {
  Make({Zeros(), a, Zeros(), b, Zeros()});
  EXPECT_EQ(FindFreeBlock(files, path, 0), 0);
  EXPECT_EQ(FindFreeBlock(files, path, 1), 2);
  EXPECT_EQ(FindFreeBlock(files, path, 3), 4);
  EXPECT_EQ(FindFreeBlock(files, path, 5), -1);
  EXPECT_EQ(FindFreeBlock(files, path, -1), 0);
}

TEST_F(AddedBlocks, ABlockWithAnyByteInItIsNotFree) {
  for (const std::size_t byte : {0U, 63U, 64U, 123U, 124U, 351U}) {
    Bytes block = Zeros();
    block[byte] = 1;
    Make({a, block});
    EXPECT_EQ(FindFreeBlock(files, path, 1), -1) << byte;
  }
}

TEST_F(AddedBlocks, ABlockThatTheFileEndsInsideIsNotFree) {
  Make({a, Bytes(351)});
  EXPECT_EQ(FindFreeBlock(files, path, 1), -1);
}

TEST_F(AddedBlocks, AWholeBlockIsWrittenAnew) {
  Make({a, Bytes(352, 0x77), b});
  PutShipBlock(files, path, 1, "Manta", StatsFrom(50));
  Expect({a, StatsBlock("Manta", StatsFrom(50), 0), b});
}

TEST_F(AddedBlocks, ANameOfSixtyFourCharactersFillsItsFieldAndALongerOneIsCut) {
  Make({a});
  const std::string longest(64, 'x');
  PutShipBlock(files, path, 0, longest + "y", StatsFrom(50));
  Expect({StatsBlock(longest, StatsFrom(50), 0)});
  PutBlockName(files, path, 0, longest + "y");
  Expect({StatsBlock(longest, StatsFrom(50), 0)});
  EXPECT_EQ(NameOfBlock(files, path, 0), longest);
}

TEST_F(AddedBlocks, ARenamedBlockKeepsEverythingAfterItsName) {
  Bytes block = StatsBlock("A longer name", StatsFrom(1));
  Make({block, b});
  PutBlockName(files, path, 0, "Short");
  std::fill_n(block.begin(), 64, std::uint8_t{0});
  const Bytes name = BytesOf("Short");
  std::copy(name.begin(), name.end(), block.begin());
  Expect({block, b});
}

TEST_F(AddedBlocks, ABlockIsFilledWithZeros) {
  Make({a, b});
  ClearShipBlock(files, path, 0);
  Expect({Zeros(), b});
}

TEST_F(AddedBlocks, ABlocksNameIsReadUpToItsFirstZeroByte) {
  Bytes block = a;
  std::fill_n(block.begin(), 64, std::uint8_t{'x'});
  const Bytes name = BytesOf(std::string(" Tiger \0junk", 12));
  std::copy(name.begin(), name.end(), block.begin());
  Make({block});
  EXPECT_EQ(NameOfBlock(files, path, 0), "Tiger");
}

TEST_F(AddedBlocks, ABlockThatIsNotThereHasNoNameAndIsNeverWritten) {
  EXPECT_EQ(NameOfBlock(files, path, 0), "");
  EXPECT_THROW(ClearShipBlock(files, path, 0), FileError);
  EXPECT_FALSE(exists(Native()));
  Make({a, Bytes(351)});
  for (const int index : {-1, 1, 2, 32767}) {
    EXPECT_EQ(NameOfBlock(files, path, index), "") << index;
    EXPECT_THROW(PutShipBlock(files, path, index, "M", StatsFrom(1)), FileError) << index;
    EXPECT_THROW(PutBlockName(files, path, index, "M"), FileError) << index;
    EXPECT_THROW(ClearShipBlock(files, path, index), FileError) << index;
  }
  Expect({a, Bytes(351)});
}

struct StatsBlockNames : testing::Test {
  std::vector<std::string> Read(const Bytes& bytes) {
    WriteFileAt(folder.Native("shipstats.bin"), bytes);
    return BlockNames(files, folder.Windows("shipstats.bin"));
  }

  TemporaryFolder folder;
  Files files;
};

TEST_F(StatsBlockNames, EndAtAZeroByteAndAreTrimmed) {
  Bytes bytes(352 * 3);
  const Bytes name = BytesOf(" Rescue Tug  ");
  std::copy(name.begin(), name.end(), bytes.begin());
  bytes[20] = 'x';  // after the zero byte
  std::fill_n(bytes.begin() + 704, 352, std::uint8_t{'n'});
  EXPECT_EQ(Read(bytes), (std::vector<std::string>{"Rescue Tug", "", std::string(64, 'n')}));
}

TEST_F(StatsBlockNames, APieceOfABlockAtTheEndIsNone) {
  EXPECT_EQ(Read(Bytes(352 + 351)).size(), 1U);
  EXPECT_TRUE(Read(Bytes(351)).empty());
  EXPECT_TRUE(Read({}).empty());
}

TEST_F(StatsBlockNames, AMissingFileIsAnError) {
  EXPECT_THROW(BlockNames(files, folder.Windows("missing.bin")), FileError);
}

}  // namespace
}  // namespace oravin
