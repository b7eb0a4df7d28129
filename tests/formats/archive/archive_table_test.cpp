// The archive's table: GetHogData, and look-ups in the entries that it returns.

#include <numeric>

#include "base/file_error.h"
#include "support/archive_stage.h"
#include "support/fault.h"

namespace oravin::test {
namespace {

struct HogTableReading : testing::Test {
  /// @return the number of entries read
  int Read() {
    File hog(stage.host.files, stage.hogPath, OpenFor::reading);
    entries = GetHogData(hog, HogCount(hog));
    return static_cast<int>(entries.size());
  }
  /// Reading must throw this error, and change nothing.
  void ExpectRefused(const std::string& reason, ErrorKind kind = ErrorKind::damaged) {
    const Bytes before = stage.Archive();
    try {
      Read();
      ADD_FAILURE() << "the table was read";
    } catch (const FileError& error) {
      EXPECT_EQ(error.what(), "could not read " + stage.hogPath + ": " + reason);
      EXPECT_EQ(error.kind, kind);
    }
    EXPECT_EQ(stage.host.files.open, 0);
    EXPECT_TRUE(SameBytes(before, stage.Archive()));
  }

  ArchiveStage stage;
  std::vector<HogEntry> entries;
};

Bytes Joined(const std::vector<Bytes>& rows) {
  Bytes all;
  for (const Bytes& row : rows) all.insert(all.end(), row.begin(), row.end());
  return all;
}

constexpr const char* endsInside = "its table is damaged: it ends in the middle of an entry";

TEST_F(HogTableReading, EntriesComeInTableOrderWithTheirPlaces) {
  stage.Write(HeaderAnd(3, Joined({TableRow(0x01020304, 0x0A0B0C0D, "ships\\One.shp"), TableRow(7, 0, "b"),
                                   TableRow(0xFFFFFFFF, 0x80000001, "the last")})));
  EXPECT_EQ(Read(), 3);
  const std::vector<HogEntry> expected = {
      {"ships\\One.shp", 0x0A0B0C0D, 0x01020304, 16}, {"b", 0, 7, 38}, {"the last", 0x80000001, 0xFFFFFFFF, 48}};
  EXPECT_EQ(entries, expected);
}

TEST_F(HogTableReading, AnEmptyNameTakesNineBytes) {
  stage.Write(HeaderAnd(3, Joined({TableRow(1, 2, ""), TableRow(3, 4, ""), TableRow(5, 6, "x")})));
  EXPECT_EQ(Read(), 3);
  EXPECT_EQ(entries[0], (HogEntry{"", 2, 1, 16}));
  EXPECT_EQ(entries[1], (HogEntry{"", 4, 3, 25}));
  EXPECT_EQ(entries[2], (HogEntry{"x", 6, 5, 34}));
}

TEST_F(HogTableReading, NothingButTheCountOfEntriesIsRead) {
  stage.Write(HeaderAnd(1, Joined({TableRow(1, 2, "first"), TableRow(3, 4, "second")})));
  EXPECT_EQ(Read(), 1);
  EXPECT_EQ(entries.size(), 1U);
}

TEST_F(HogTableReading, TheMagicAndTheSizesOfTheHeaderAreNotLookedAt) {
  Bytes archive = HeaderAnd(1, TableRow(1, 2, "first"));
  std::fill_n(archive.begin(), 8, std::uint8_t{0xEE});
  std::fill_n(archive.begin() + 12, 4, std::uint8_t{0xEE});
  stage.Write(archive);
  EXPECT_EQ(Read(), 1);
}

TEST_F(HogTableReading, TheFileIsClosedAfterwards) {
  stage.Write(HeaderAnd(1, TableRow(1, 2, "first")));
  Read();
  EXPECT_EQ(stage.host.files.open, 0);
}

TEST_F(HogTableReading, ATableCutOffAtAnyByteIsRefused) {
  const Bytes whole = HeaderAnd(3, Joined({TableRow(1, 2, "first"), TableRow(3, 4, ""), TableRow(5, 6, "third")}));
  for (std::size_t length = 0; length < whole.size(); ++length) {
    SCOPED_TRACE(length);
    stage.Write(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    if (length < 12) {
      ExpectRefused("it ends too early", ErrorKind::failed);
    } else if (length < 16 + 3 * 9) {
      ExpectRefused("it says that it holds 3 files, more than it has room for");
    } else {
      ExpectRefused(endsInside);
    }
  }
}

TEST_F(HogTableReading, DataCutOffBehindTheTableDoNotMatter) {
  Bytes archive = demo::BuildArchive({{"one", Bytes(500, 1)}, {"two", Bytes(500, 2)}});
  archive.resize(archive.size() - 700);
  stage.Write(archive);
  EXPECT_EQ(Read(), 2);
}

TEST_F(HogTableReading, AHugeCountIsRefusedBeforeAnythingIsSizedByIt) {
  stage.Write(HeaderAnd(0xFFFFFFFF, TableRow(1, 2, "first")));
  ExpectRefused("it says that it holds 4,294,967,295 files, more than it has room for");
}

TEST_F(HogTableReading, ACountOneTooHighReadsTheDataBehindTheTableAsAnEntry) {
  Bytes archive = HeaderAnd(2, TableRow(1, 2, "first"));
  const Bytes data = {0, 1, 2, 3, 4, 5, 6, 7, 'n', 'o', 'n', 'e', 0, 9};
  archive.insert(archive.end(), data.begin(), data.end());
  stage.Write(archive);
  EXPECT_EQ(Read(), 2);
  EXPECT_EQ(entries[1], (HogEntry{"none", 0x04050607, 0x00010203, 30}));
}

TEST_F(HogTableReading, ACountThatRunsFarThroughTheDataIsRefused) {
  // Zeros are entries without a name: of these the file has room for more than the count says.
  stage.Write(HeaderAnd(4'000'000, TableRow(1, 2, "first")));
  stage.LengthenTo(40'000'000);
  ExpectRefused("its table is damaged: it is too long");
}

TEST_F(HogTableReading, ANameWithoutAnEndIsRefused) {
  Bytes archive = HeaderAnd(2, TableRow(1, 2, "first"));
  archive.insert(archive.end(), 3'000'000, 'n');
  stage.Write(archive);
  ExpectRefused(endsInside);
}

TEST_F(HogTableReading, AVeryLongNameIsReadWhole) {
  const std::string name(300'000, 'n');
  stage.Write(HeaderAnd(2, Joined({TableRow(1, 2, name), TableRow(3, 4, "next")})));
  EXPECT_EQ(Read(), 2);
  EXPECT_EQ(entries[0].Name, name);
  EXPECT_EQ(entries[1], (HogEntry{"next", 4, 3, 16 + 9 + 300'000}));
}

TEST_F(HogTableReading, EntriesAcrossTheReadersBlocksAreReadWhole) {
  // The first name pushes the others byte by byte over the place where the reader reads on.
  for (std::size_t length = 65536 - 60; length <= 65536 + 4; ++length) {
    SCOPED_TRACE(length);
    stage.Write(HeaderAnd(4, Joined({TableRow(1, 2, std::string(length, 'a')), TableRow(3, 4, "second"),
                                     TableRow(5, 6, ""), TableRow(7, 8, "fourth entry")})));
    ASSERT_EQ(Read(), 4);
    const auto second = static_cast<std::uint32_t>(25 + length);
    EXPECT_EQ(entries[0].Name.size(), length);
    EXPECT_EQ(entries[1], (HogEntry{"second", 4, 3, second}));
    EXPECT_EQ(entries[2], (HogEntry{"", 6, 5, second + 15}));
    EXPECT_EQ(entries[3], (HogEntry{"fourth entry", 8, 7, second + 24}));
  }
}

TEST_F(HogTableReading, AHundredThousandEntries) {
  std::vector<demo::ArchiveFile> files(100'000);
  for (std::size_t i = 0; i < files.size(); ++i) files[i].name = std::string(i % 37, 'x') + std::to_string(i);
  const Bytes archive = demo::BuildArchive(files);
  stage.Write(archive);
  ASSERT_EQ(Read(), 100'000);
  const std::vector<TableEntry> expected = TableIn(archive);
  for (std::size_t i = 0; i < files.size(); ++i) {
    ASSERT_EQ(entries[i], (HogEntry{expected[i].name, expected[i].size, expected[i].offset, expected[i].position}));
  }
}

TEST_F(HogTableReading, ACountOfZeroIsNoEntries) {
  stage.Write(HeaderAnd(0, TableRow(1, 2, "first")));
  EXPECT_EQ(Read(), 0);
}

TEST_F(HogTableReading, AFailureOfAnyOperationIsThrownAndTheFileClosed) {
  stage.Write(HeaderAnd(1, TableRow(1, 2, "first")));
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    Watch(stage.host.files, fault);
    bool threw = false;
    try {
      Read();
    } catch (const FileError&) {
      threw = true;
    }
    EXPECT_EQ(threw, fault.happened);
    EXPECT_EQ(stage.host.files.open, 0);
  });
  stage.host.files.before = nullptr;
  EXPECT_GE(operations, 2);
}

TEST(HogEntryPlace, EndsBehindTheNamesZeroByte) {
  EXPECT_EQ(EndOf({"abc", 0, 0, 100}), 112U);
  EXPECT_EQ(EndOf({"", 0, 0, 0xFFFFFFFF}), 0x100000008ULL);
}

struct HogMagic : testing::Test {
  bool Says(const std::string& content) {
    WriteFileAt(folder.Native("file"), content);
    File file(files, folder.Windows("file"), OpenFor::reading);
    return IsBIGF(file);
  }

  TemporaryFolder folder;
  Files files;
};

TEST_F(HogMagic, IsBIGFInCapitalsAtTheVeryBeginning) {
  EXPECT_TRUE(Says("BIGF"));
  EXPECT_TRUE(Says("BIGF and more"));
  EXPECT_FALSE(Says("bigf"));
  EXPECT_FALSE(Says("BIGf"));
  EXPECT_FALSE(Says(" BIGF"));
}

TEST_F(HogMagic, AFileOfLessThanFourBytesIsNone) {
  EXPECT_FALSE(Says("BIG"));
  EXPECT_FALSE(Says(""));
}

TEST_F(HogMagic, AClosedFileCannotBeAsked) {
  File file;
  EXPECT_THROW(IsBIGF(file), FileError);
}

const std::vector<HogEntry> someEntries = {
    {"ships\\Alpha.shp", 0, 0, 0}, {"  bravo.shp ", 0, 0, 1}, {"BRAVO.SHP", 0, 0, 2}, {"", 0, 0, 3}};

TEST(FindHogEntry, TakesNoNoticeOfLetterCase) { EXPECT_EQ(FindHogEntry(someEntries, 4, "SHIPS\\aLPHA.SHP"), 0); }

TEST(FindHogEntry, TakesNoNoticeOfBlanksAtTheEndsOfEitherName) {
  EXPECT_EQ(FindHogEntry(someEntries, 4, "   ships\\Alpha.shp  "), 0);
  EXPECT_EQ(FindHogEntry(someEntries, 4, "bravo.shp"), 1);
}

TEST(FindHogEntry, TheFirstOfSeveralMatchesWins) { EXPECT_EQ(FindHogEntry(someEntries, 4, "BRAVO.SHP"), 1); }

TEST(FindHogEntry, NothingFoundIsMinusOne) {
  EXPECT_EQ(FindHogEntry(someEntries, 4, "alpha.shp"), -1);
  EXPECT_EQ(FindHogEntry(someEntries, 4, "ships\\ Alpha.shp"), -1);
  EXPECT_EQ(FindHogEntry({}, 0, "alpha.shp"), -1);
}

TEST(FindHogEntry, OnlyTheCountedEntriesAreLookedAt) {
  EXPECT_EQ(FindHogEntry(someEntries, 1, "bravo.shp"), -1);
  EXPECT_EQ(FindHogEntry(someEntries, 100, "bravo.shp"), 1);
  EXPECT_EQ(FindHogEntry(someEntries, -1, "bravo.shp"), -1);
}

TEST(FindHogEntry, ABlankNameFindsAnEmptyOne) { EXPECT_EQ(FindHogEntry(someEntries, 4, "  "), 3); }

TEST(HogNames, FindTheSameEntriesAsTheSearchAndAllOfAName) {
  const HogNames names = NamesOf(someEntries);
  EXPECT_EQ(EntriesNamed(names, " Bravo.shp"), (std::vector<int>{1, 2}));
  EXPECT_EQ(EntriesNamed(names, "ships\\ALPHA.shp "), std::vector<int>{0});
  EXPECT_TRUE(EntriesNamed(names, "alpha.shp").empty());
}

}  // namespace
}  // namespace oravin::test
