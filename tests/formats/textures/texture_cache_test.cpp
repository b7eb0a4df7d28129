#include <limits>

#include "base/file_error.h"
#include "support/cache_stage.h"
#include "textures/texture_cache.h"

namespace oravin {
namespace {

using test::Cache;
using test::SetLong;
using test::SetName;

struct TheTable : test::CacheStage {
  TcacheTable table{TcacheEntry{"kept", 1, 2, 3, 4, 5, 6}};

  void ExpectRefused(const std::string& text) {
    at.desk.ExpectBox(text, "GetTcacheTable");
    EXPECT_EQ(GetTcacheTable(at.host, Path(), table), 0);
    EXPECT_TRUE(at.desk.Done());
    ASSERT_EQ(table.size(), 1U);
    EXPECT_EQ(table[0].name, "kept");
  }
};

TEST_F(TheTable, HoldsEveryUsedSlot) {
  Bytes cache = Cache(3);
  SetLong(cache, 12 + 240, 2);
  SetLong(cache, 12 + 240 + 64, 128);
  SetLong(cache, 12 + 240 + 68, 64);
  SetLong(cache, 12 + 240 + 116, 7);
  SetLong(cache, 12 + 240 + 224, 240100);
  SetLong(cache, 12 + 240 + 120, 9);  // the copies are not read
  SetLong(cache, 12 + 240 + 124, 9);
  Make(cache);
  EXPECT_EQ(GetTcacheTable(at.host, "  " + Path() + " ", table), 3);
  ASSERT_EQ(table.size(), 3U);
  EXPECT_EQ(table[0], (TcacheEntry{"t0", 12, 2, 4, 4, 1, 240012}));
  EXPECT_EQ(table[1], (TcacheEntry{"t1", 252, 7, 128, 64, 2, 240100}));
  EXPECT_EQ(table[2], (TcacheEntry{"t2", 492, 2, 4, 4, 1, 240052}));
}

TEST_F(TheTable, ACountOf0OfANegativeValueOrOf1001IsRefused) {
  for (const std::uint32_t count : {0U, 0xFFFFFFFFU, 0x80000000U, 1001U, 0x7FFFFFFFU}) {
    SCOPED_TRACE(count);
    Bytes cache = Cache(1000);
    SetLong(cache, 4, count);
    Make(cache);
    ExpectRefused("Error - not a valid tcache file");
  }
}

TEST_F(TheTable, ACountOf1000IsAccepted) {
  Make(Cache(1000));
  EXPECT_EQ(GetTcacheTable(at.host, Path(), table), 1000);
  EXPECT_EQ(table[999].name, "t999");
}

TEST_F(TheTable, CountsOf1And425And426And999AreAccepted) {
  for (const int count : {1, 425, 426, 999}) {
    Make(Cache(count));
    EXPECT_EQ(GetTcacheTable(at.host, Path(), table), count);
    EXPECT_EQ(table.size(), static_cast<std::size_t>(count));
  }
}

TEST_F(TheTable, AMissingCacheIsTold) { ExpectRefused("Error - Path(s) not found."); }

TEST_F(TheTable, AFileThatEndsBeforeItsSlotsIsRefused) {
  const Bytes whole = Cache(3);
  for (const std::size_t length : {0U, 7U, 11U, 12U, 12U + 3 * 240 - 1}) {
    SCOPED_TRACE(length);
    Make(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    ExpectRefused("Error - not a valid tcache file");
  }
  Make(Bytes(whole.begin(), whole.begin() + 12 + 3 * 240));
  EXPECT_EQ(GetTcacheTable(at.host, Path(), table), 3);
}

TEST_F(TheTable, ANameOf40CharactersIsCutToItsFirst32) {
  Bytes cache = Cache(2);
  const std::string name = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN";
  std::copy(name.begin(), name.end(), cache.begin() + 12 + 72);
  Make(cache);
  EXPECT_EQ(GetTcacheTable(at.host, Path(), table), 2);
  EXPECT_EQ(table[0].name, name.substr(0, 32));
}

TEST_F(TheTable, ANameWithBytesAbove127IsKept) {
  Bytes cache = Cache(1);
  SetName(cache, 0, "\x80\xE9\xFF");
  Make(cache);
  EXPECT_EQ(GetTcacheTable(at.host, Path(), table), 1);
  EXPECT_EQ(table[0].name, "\x80\xE9\xFF");
}

TEST_F(TheTable, AFailureIsToldOnceAndLeavesItAsItWas) {
  Make(Cache(3));
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    test::ScriptedHost failing;
    failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
    test::Watch(failing.host.files, fault);
    TcacheTable read;
    const int count = GetTcacheTable(failing.host, Path(), read);
    EXPECT_EQ(count, fault.happened ? 0 : 3);
    EXPECT_EQ(failing.desk.shown.size(), fault.happened ? 1U : 0U);
    EXPECT_EQ(read.size(), fault.happened ? 0U : 3U);
  });
}

struct TheSavedEntry : TheTable {};

TEST_F(TheSavedEntry, HasItsNewNameAndTheSameWidthAtBothPlacesAndItsPixelFormat) {
  const Bytes before = Cache(3);
  Make(before);
  GetTcacheTable(at.host, Path(), table);
  table[1] = {"  new name ", 252, 5, 32, 16, 77, 240099};
  SaveTcacheEntry(at.host, Path(), table, 1);
  Bytes expected = before;
  SetName(expected, 1, "new name");
  SetLong(expected, 252 + 64, 32);
  SetLong(expected, 252 + 120, 32);
  SetLong(expected, 252 + 68, 16);
  SetLong(expected, 252 + 124, 16);
  SetLong(expected, 252 + 116, 5);
  SetLong(expected, 252 + 224, 240099);
  EXPECT_TRUE(test::SameBytes(expected, Now()));
}

TEST_F(TheSavedEntry, ClearsOnlyTheFirst30BytesOfTheName) {
  Bytes cache = Cache(1);
  SetName(cache, 0, std::string(32, 'x'));
  Make(cache);
  GetTcacheTable(at.host, Path(), table);
  table[0].name = "short";
  SaveTcacheEntry(at.host, Path(), table, 0);
  SetName(cache, 0, "short" + std::string(25, '\0') + "xx");
  EXPECT_TRUE(test::SameBytes(cache, Now()));
}

TEST_F(TheSavedEntry, NeverReachesPastItsName) {
  Bytes cache = Cache(1);
  Make(cache);
  GetTcacheTable(at.host, Path(), table);
  table[0].name = std::string(50, 'y');
  SaveTcacheEntry(at.host, Path(), table, 0);
  SetName(cache, 0, std::string(32, 'y'));
  EXPECT_TRUE(test::SameBytes(cache, Now()));
}

TEST_F(TheSavedEntry, OfAMissingCacheBearsTheReadersTitle) {
  at.desk.ExpectBox("Error - Path(s) not found.", "GetTcacheTable");
  SaveTcacheEntry(at.host, Path(), table, 0);
}

TEST_F(TheSavedEntry, OutsideTheTableIsTheCallersError) {
  const Bytes before = Cache(3);
  Make(before);
  GetTcacheTable(at.host, Path(), table);
  for (const int index : {-1, 3, 1000}) EXPECT_THROW(SaveTcacheEntry(at.host, Path(), table, index), FileError);
  Make(Bytes(before.begin(), before.begin() + 300));
  EXPECT_THROW(SaveTcacheEntry(at.host, Path(), table, 1), FileError);
  EXPECT_EQ(Now().size(), 300U);
}

struct TheSearch : test::CacheStage {};

TEST_F(TheSearch, FindsANameWithoutRegardToCaseAndBlanks) {
  Bytes cache = Cache(3);
  SetName(cache, 0, "reaper ");
  Make(cache);
  EXPECT_EQ(FindStructOffset(at.host, Path(), "REAPER"), 12U);
  EXPECT_EQ(FindStructOffset(at.host, Path(), "  Reaper "), 12U);
  EXPECT_EQ(FindStructOffset(at.host, Path(), "T2"), 492U);
  EXPECT_EQ(FindStructOffset(at.host, Path(), "reape"), 0U);
}

TEST_F(TheSearch, DoesNotLookBeyondTheCount) {
  Bytes cache = Cache(3);
  SetLong(cache, 4, 2);
  Make(cache);
  EXPECT_EQ(FindStructOffset(at.host, Path(), "t1"), 252U);
  EXPECT_EQ(FindStructOffset(at.host, Path(), "t2"), 0U);
  EXPECT_EQ(FindStructType(at.host, Path(), 2), 0U);
  SetLong(cache, 12 + 480, 2);
  Make(cache);
  EXPECT_EQ(FindStructType(at.host, Path(), 2), 0U);
}

TEST_F(TheSearch, FindsTheFirstEntryOfAFormat) {
  Bytes cache = Cache(6);
  SetLong(cache, 12 + 240 * 3, 2);
  SetLong(cache, 12 + 240 * 5, 2);
  Make(cache);
  EXPECT_EQ(FindStructType(at.host, Path(), 2), 732U);
  EXPECT_EQ(FindStructType(at.host, Path(), 1), 12U);
  EXPECT_EQ(FindStructType(at.host, Path(), 3), 0U);
}

TEST_F(TheSearch, OfAMissingCacheHasItsOwnBoxes) {
  at.desk.ExpectBox("TCACHE file not found", "FindStructOffset");
  EXPECT_EQ(FindStructOffset(at.host, Path(), "x"), 0U);
  at.desk.ExpectBox("TCACHE file not found", "FindStructType");
  EXPECT_EQ(FindStructType(at.host, Path(), 1), 0U);
}

TEST_F(TheSearch, OfADamagedCacheFindsNothingAndEnds) {
  Bytes cache = Cache(3);
  SetLong(cache, 4, 0x7FFFFFFF);
  Make(Bytes(cache.begin(), cache.begin() + 12 + 500));
  EXPECT_EQ(FindStructOffset(at.host, Path(), "t1"), 252U);
  EXPECT_EQ(FindStructOffset(at.host, Path(), "t2"), 0U);
  Make({1, 2, 3});
  EXPECT_EQ(FindStructOffset(at.host, Path(), ""), 0U);
}

struct TheRange : test::CacheStage {
  Bytes buffer;
  std::uint64_t end = 0;
};

TEST_F(TheRange, From0To0IsTheWholeFile) {
  Make(test::Pattern(10));
  EXPECT_EQ(MemMappedFile(at.host, Path(), buffer, 0, end), 10U);
  EXPECT_EQ(end, 10U);
  EXPECT_EQ(buffer, test::Pattern(10));
}

TEST_F(TheRange, LeavesItsEndOut) {
  Make(test::Pattern(10));
  end = 7;
  EXPECT_EQ(MemMappedFile(at.host, Path(), buffer, 3, end), 4U);
  EXPECT_EQ(buffer, test::Pattern(4, 4));
}

TEST_F(TheRange, OfAMissingAndOfAnEmptyFileIsTold) {
  at.desk.ExpectBox("Path(s) not found", "MemMappedFile");
  EXPECT_EQ(MemMappedFile(at.host, Path(), buffer, 0, end), 0U);
  Make({});
  at.desk.ExpectBox("File is empty", "MemMappedFile", Icon::information);
  EXPECT_EQ(MemMappedFile(at.host, Path(), buffer, 0, end), 0U);
}

TEST_F(TheRange, ThatBeginsBehindItsEndIsToldAndReadsNothing) {
  Make(test::Pattern(10));
  buffer = {1, 2, 3};
  end = 4;
  for (const std::uint64_t start : {4U, 9U, 4000000000U}) {
    at.desk.ExpectBox("Expression (startOffset < endOffset) is false", "MemMappedFile", Icon::information);
    EXPECT_EQ(MemMappedFile(at.host, Path(), buffer, start, end), 0U);
    EXPECT_TRUE(buffer.empty());
    EXPECT_TRUE(at.desk.Done());
  }
}

TEST_F(TheRange, ThatReachesPastTheFileIsTheCallersError) {
  Make(test::Pattern(10));
  end = std::numeric_limits<std::uint64_t>::max();
  EXPECT_THROW(MemMappedFile(at.host, Path(), buffer, 0, end), FileError);
  end = 11;
  EXPECT_THROW(MemMappedFile(at.host, Path(), buffer, 0, end), FileError);
}

TEST(AnEntrysData, AreBoundedWhateverItClaims) {
  const auto entry = [](std::int32_t width, std::int32_t height, std::int32_t images, std::int32_t format,
                        std::int32_t offset) { return TcacheEntry{"x", 12, images, width, height, format, offset}; };
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(DataSizeOf(entry(256, 256, 8, 2, 0)), 174760U);
  EXPECT_EQ(DataSizeOf(entry(3, 3, 2, 1, 0)), 11U);
  EXPECT_EQ(DataSizeOf(entry(65536, 65536, 1, 1, 0)), std::nullopt);  // 2^32
  EXPECT_EQ(DataSizeOf(entry(most, most, most, most, 0)), std::nullopt);
  EXPECT_EQ(DataSizeOf(entry(-4, -4, 1, 1, 0)), std::nullopt);
  EXPECT_EQ(DataSizeOf(entry(4, 4, 0, 1, 0)), 16U);
  EXPECT_EQ(DataSizeOf(entry(4, 4, most, 1, 0)), 21U);
  EXPECT_EQ(DataSizeOf(entry(4, 4, 1, -1, 0)), 0U);
  EXPECT_TRUE(DataLiesIn(entry(4, 4, 1, 1, 240012), 240028));
  EXPECT_FALSE(DataLiesIn(entry(4, 4, 1, 1, 240013), 240028));
  EXPECT_FALSE(DataLiesIn(entry(4, 4, 1, 1, 240011), 300000));
  EXPECT_FALSE(DataLiesIn(entry(4, 4, 1, 1, -1), 300000));
  EXPECT_FALSE(DataLiesIn(entry(4, 4, 1, 1, most), 300000));
  EXPECT_TRUE(DataLiesIn(entry(0, 4, 1, 1, 0), 300000));
}

}  // namespace
}  // namespace oravin
