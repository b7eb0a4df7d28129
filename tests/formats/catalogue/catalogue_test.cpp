#include "catalogue/catalogue.h"
#include "files/file.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::TemporaryFolder;
using test::WriteFileAt;

ShipRecord Ship(const std::string& name, const std::string& file) {
  ShipRecord ship;
  ship.ShipName.Set(name);
  ship.ShipFile.Set(file);
  return ship;
}

Bytes FileOf(const Ships& ships) {
  Bytes bytes;
  for (const ShipRecord& ship : ships) {
    const auto slot = SlotOf(ship);
    bytes.insert(bytes.end(), slot->begin(), slot->end());
  }
  return bytes;
}

struct Catalogue : testing::Test {
  TemporaryFolder folder;
  Files files;
  Ships ships;

  [[nodiscard]] std::filesystem::path Native() const { return folder.Native("ships.dat"); }
  [[nodiscard]] std::string Path() const { return folder.Windows("ships.dat"); }
  /// Reads the catalogue.
  /// @return the number of elements
  std::size_t Load() {
    ships = ReadCatalogue(files, Path());
    return ships.size();
  }
  void ExpectRefused(const std::string& reason) {
    try {
      Load();
      ADD_FAILURE() << "it was read";
    } catch (const FileError& error) {
      EXPECT_EQ(error.what(), "could not read " + Path() + ": " + reason);
    }
    EXPECT_EQ(files.open, 0);
  }
};

TEST_F(Catalogue, AFileWithoutRecordsLoadsAsOneEmptyElement) {
  WriteFileAt(Native(), "");
  EXPECT_EQ(Load(), 1U);
  ASSERT_EQ(ships.size(), 1U);
  EXPECT_TRUE(IsInert(ships[0]));
}

TEST_F(Catalogue, OneRecordLoadsAsTwoElements) {
  WriteFileAt(Native(), FileOf({Ship("Tiger", "tiger.shp")}));
  EXPECT_EQ(Load(), 2U);
  EXPECT_EQ(ships[0].ShipName.Trimmed(), "Tiger");
  EXPECT_TRUE(IsInert(ships[1]));
}

TEST_F(Catalogue, ThreeRecordsLoadAsFourElementsTheLastOneEmpty) {
  WriteFileAt(Native(), FileOf({Ship("A", "a.shp"), Ship("B", "b.shp"), Ship("C", "c.shp")}));
  EXPECT_EQ(Load(), 4U);
  ASSERT_EQ(ships.size(), 4U);
  EXPECT_EQ(ships[2].ShipFile.Trimmed(), "c.shp");
  EXPECT_EQ(ships[3].ShipName.Trimmed(), "");
  EXPECT_EQ(ships[3].ShipFile.Trimmed(), "");
  EXPECT_EQ(ships[3].ShipKind, TaggedValue());
  EXPECT_FALSE(ships[3].Changed);
  EXPECT_FALSE(ships[3].Imported);
  EXPECT_FALSE(ships[3].HasSecondPart);
}

TEST_F(Catalogue, AnIncompleteRecordAtTheEndIsPassedOver) {
  Bytes bytes = FileOf({Ship("A", "a.shp"), Ship("B", "b.shp")});
  bytes.pop_back();
  WriteFileAt(Native(), bytes);
  EXPECT_EQ(Load(), 2U);
  EXPECT_EQ(ships[0].ShipName.Trimmed(), "A");
  EXPECT_TRUE(IsInert(ships[1]));
}

TEST_F(Catalogue, AFileShorterThanARecordLoadsAsOneEmptyElement) {
  WriteFileAt(Native(), Bytes(867, 0xFF));
  EXPECT_EQ(Load(), 1U);
  EXPECT_TRUE(IsInert(ships[0]));
}

TEST_F(Catalogue, ADamagedRecordIsNamed) {
  Bytes bytes = FileOf({Ship("A", "a.shp"), Ship("B", "b.shp"), Ship("C", "c.shp")});
  bytes[868 + 60] = 99;  // the tag of the second record's kind
  WriteFileAt(Native(), bytes);
  ExpectRefused("record 2 is damaged");
  EXPECT_EQ(test::ReadFileAt(Native()), bytes);
}

TEST_F(Catalogue, AMissingFileIsAnError) {
  EXPECT_THROW(Load(), FileError);
  EXPECT_FALSE(std::filesystem::exists(Native()));
}

TEST_F(Catalogue, MoreRecordsThanAnIndexCanCountAreRefused) {
  WriteFileAt(Native(), "");
  std::filesystem::resize_file(Native(), 32767ULL * 868);
  ExpectRefused("it is too large to be a ship catalogue");
}

TEST_F(Catalogue, AnEnormousFileIsRefusedWithoutReadingIt) {
  WriteFileAt(Native(), "");
  {
    // In 32 bits its length would be that of three records. The file system can leave the zeros out.
    File file(files, Path(), OpenFor::changing);
    SetLength(file, (std::uint64_t{1} << 32) + 3 * shipRecordSize);
  }
  ExpectRefused("it is too large to be a ship catalogue");
}

TEST_F(Catalogue, AFailureOfAnyOperationIsThrown) {
  WriteFileAt(Native(), FileOf({Ship("A", "a.shp"), Ship("B", "b.shp")}));
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    test::Watch(files, fault);
    try {
      EXPECT_EQ(Load(), 3U);
      EXPECT_FALSE(fault.happened);
    } catch (const FileError&) {
      EXPECT_TRUE(fault.happened);
    }
    EXPECT_EQ(files.open, 0);
  });
}

TEST_F(Catalogue, TwoConsecutiveRecordsWithOneNameAreOneTwoPartShip) {
  WriteFileAt(Native(),
              FileOf({Ship("A", "a.shp"), Ship("Tiger", "b.shp"), Ship("  tIGER", "c.shp"), Ship("D", "d.shp")}));
  EXPECT_EQ(Load(), 5U);
  EXPECT_FALSE(ships[0].HasSecondPart);
  EXPECT_TRUE(ships[1].HasSecondPart);
  EXPECT_EQ(ships[1].SecondPartIndex, Int16Value(2));
  EXPECT_FALSE(ships[2].HasSecondPart);
  EXPECT_EQ(ships[2].SecondPartIndex, Int16Value(0));
}

TEST_F(Catalogue, ThreeConsecutiveRecordsWithOneNameFlagTheFirstAndTheSecond) {
  WriteFileAt(Native(), FileOf({Ship("T", "a.shp"), Ship("T", "b.shp"), Ship("T", "c.shp")}));
  EXPECT_EQ(Load(), 4U);
  EXPECT_TRUE(ships[0].HasSecondPart);
  EXPECT_TRUE(ships[1].HasSecondPart);
  EXPECT_FALSE(ships[2].HasSecondPart);
}

TEST_F(Catalogue, OneNameInRecordsApartMakesNoTwoPartShip) {
  WriteFileAt(Native(), FileOf({Ship("T", "a.shp"), Ship("X", "b.shp"), Ship("T", "c.shp")}));
  Load();
  for (const ShipRecord& ship : ships) EXPECT_FALSE(ship.HasSecondPart);
}

TEST_F(Catalogue, TheFlagsInTheFileDoNotMatter) {
  ShipRecord claims = Ship("A", "a.shp");
  claims.HasSecondPart = true;
  claims.SecondPartIndex = Int16Value(7);
  WriteFileAt(Native(), FileOf({claims, Ship("B", "b.shp")}));
  Load();
  EXPECT_FALSE(ships[0].HasSecondPart);
  EXPECT_EQ(ships[0].SecondPartIndex, Int16Value(0));
}

TEST_F(Catalogue, TheSentinelIsNobodysSecondPart) {
  WriteFileAt(Native(), FileOf({Ship("", "a.shp")}));
  EXPECT_EQ(Load(), 2U);
  EXPECT_FALSE(ships[0].HasSecondPart);
}

TEST_F(Catalogue, EnabledIsWhileTheFileExistsAndIsNotEmpty) {
  EXPECT_FALSE(FeaturesEnabled(files, folder.windows + "ships.dat"));
  WriteFileAt(Native(), "");
  EXPECT_FALSE(FeaturesEnabled(files, folder.windows + "ships.dat"));
  WriteFileAt(Native(), "x");
  EXPECT_TRUE(FeaturesEnabled(files, folder.windows + "ships.dat"));
}

struct PutRecord : Catalogue {
  Bytes before;

  void SetUp() override {
    before = FileOf({Ship("A", "a.shp"), Ship("B", "b.shp"), Ship("C", "c.shp")});
    for (std::size_t i = 800; i < before.size(); i += 868) before[i] = 0x5A;  // filler that is never read
    before.resize(before.size() + 5, 0x77);
    WriteFileAt(Native(), before);
    Load();
  }
};

TEST_F(PutRecord, WritesOneSlotAndKeepsAllOtherBytes) {
  ships[1].Changed = true;
  ships[1].ChangedToName.Set("C");
  PutShipRecord(files, folder.windows + "ships.dat", ships, 1);
  Bytes expected = before;
  const auto slot = SlotOf(ships[1]);
  ASSERT_TRUE(slot);
  std::copy(slot->begin(), slot->end(), expected.begin() + 868);
  EXPECT_TRUE(test::SameBytes(expected, test::ReadFileAt(Native())));
  EXPECT_NE(expected, before);
}

TEST_F(PutRecord, ReadsBackAsItWasWritten) {
  ships[2].Changed = true;
  ships[2].ChangedToIndex = Int16Value(1);
  PutShipRecord(files, folder.windows + "ships.dat", ships, 2);
  const Ships written = ships;
  EXPECT_EQ(Load(), 4U);
  EXPECT_EQ(ships, written);
}

/// Runs something that must fail and returns the error in words.
template <typename Run>
std::string ErrorOf(Run&& run) {
  try {
    run();
  } catch (const FileError& error) {
    return error.what();
  }
  return "no error";
}

TEST_F(PutRecord, TheSentinelIsNeverWritten) {
  EXPECT_EQ(ErrorOf([&] { PutShipRecord(files, folder.windows + "ships.dat", ships, 3); }),
            "could not write " + Path() + ": it has no record 4");
  EXPECT_EQ(test::ReadFileAt(Native()), before);
}

TEST_F(PutRecord, AMissingFileIsNotMade) {
  std::filesystem::remove(Native());
  EXPECT_EQ(ErrorOf([&] { PutShipRecord(files, folder.windows + "ships.dat", ships, 0); }),
            "could not open " + Path() + ": it does not exist");
  EXPECT_FALSE(std::filesystem::exists(Native()));
}

TEST_F(PutRecord, AReadOnlyFileIsAnError) {
  test::SetReadOnly(Native(), true);
  EXPECT_EQ(ErrorOf([&] { PutShipRecord(files, folder.windows + "ships.dat", ships, 0); }),
            "could not open " + Path() + ": it is read-only");
}

TEST_F(PutRecord, ARecordThatDoesNotFitIsAnError) {
  ships[0].ShipKind = {TaggedValue::text, 0, std::string(100, 'x')};
  EXPECT_EQ(ErrorOf([&] { PutShipRecord(files, folder.windows + "ships.dat", ships, 0); }),
            "could not write " + Path() + ": a record is longer than its slot");
  EXPECT_EQ(test::ReadFileAt(Native()), before);
}

}  // namespace
}  // namespace oravin
