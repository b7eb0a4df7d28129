#include <limits>

#include "support/cache_stage.h"
#include "support/thrown.h"
#include "textures/cache_table.h"

namespace oravin {
namespace {

using test::Cache;
using test::SetLong;
using test::SetName;

struct TheTable : test::CacheStage {
  TcacheTable table;

  void Read() { table = GetTcacheTable(at.host.files, Path()); }
  void ExpectRefused(ErrorKind kind) {
    EXPECT_EQ(test::KindThrown([&] { Read(); }), kind);
    EXPECT_EQ(at.host.files.open, 0);
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
  Read();
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
    ExpectRefused(ErrorKind::wrongFormat);
  }
}

TEST_F(TheTable, ACountOf1000IsAccepted) {
  Make(Cache(1000));
  Read();
  ASSERT_EQ(table.size(), 1000U);
  EXPECT_EQ(table[999].name, "t999");
}

TEST_F(TheTable, CountsOf1And425And426And999AreAccepted) {
  for (const int count : {1, 425, 426, 999}) {
    Make(Cache(count));
    Read();
    EXPECT_EQ(table.size(), static_cast<std::size_t>(count));
  }
}

TEST_F(TheTable, AMissingCacheIsReported) { ExpectRefused(ErrorKind::missing); }

TEST_F(TheTable, AFileThatEndsBeforeItsSlotsIsRefused) {
  const Bytes whole = Cache(3);
  for (const std::size_t length : {0U, 7U, 11U, 12U, 12U + 3 * 240 - 1}) {
    SCOPED_TRACE(length);
    Make(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    ExpectRefused(ErrorKind::wrongFormat);
  }
  Make(Bytes(whole.begin(), whole.begin() + 12 + 3 * 240));
  Read();
  ASSERT_EQ(table.size(), 3U);
}

TEST_F(TheTable, ANameOf40CharactersIsCutToItsFirst32) {
  Bytes cache = Cache(2);
  const std::string name = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN";
  std::copy(name.begin(), name.end(), cache.begin() + 12 + 72);
  Make(cache);
  Read();
  ASSERT_EQ(table.size(), 2U);
  EXPECT_EQ(table[0].name, name.substr(0, 32));
}

TEST_F(TheTable, ANameWithBytesAbove127IsKept) {
  Bytes cache = Cache(1);
  SetName(cache, 0, "\x80\xE9\xFF");
  Make(cache);
  Read();
  ASSERT_EQ(table.size(), 1U);
  EXPECT_EQ(table[0].name, "\x80\xE9\xFF");
}

TEST_F(TheTable, AFailureOfAnyOperationIsThrownAndClosesTheFile) {
  Make(Cache(3));
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Files files;
    test::Watch(files, fault);
    TcacheTable read;
    const auto thrown = test::KindThrown([&] { read = GetTcacheTable(files, Path()); });
    EXPECT_EQ(thrown.has_value(), fault.happened);
    EXPECT_EQ(read.size(), fault.happened ? 0U : 3U);
    EXPECT_EQ(files.open, 0);
  });
}

struct TheSavedEntry : TheTable {};

TEST_F(TheSavedEntry, HasItsNewNameAndTheSameWidthAtBothPlacesAndItsPixelFormat) {
  const Bytes before = Cache(3);
  Make(before);
  Read();
  table[1] = {"  new name ", 252, 5, 32, 16, 77, 240099};
  SaveTcacheEntry(at.host.files, Path(), table, 1);
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
  Read();
  table[0].name = "short";
  SaveTcacheEntry(at.host.files, Path(), table, 0);
  SetName(cache, 0, "short" + std::string(25, '\0') + "xx");
  EXPECT_TRUE(test::SameBytes(cache, Now()));
}

TEST_F(TheSavedEntry, NeverReachesPastItsName) {
  Bytes cache = Cache(1);
  Make(cache);
  Read();
  table[0].name = std::string(50, 'y');
  SaveTcacheEntry(at.host.files, Path(), table, 0);
  SetName(cache, 0, std::string(32, 'y'));
  EXPECT_TRUE(test::SameBytes(cache, Now()));
}

TEST_F(TheSavedEntry, OfAMissingCacheIsNotWritten) {
  table.resize(1);
  EXPECT_EQ(test::KindThrown([&] { SaveTcacheEntry(at.host.files, Path(), table, 0); }), ErrorKind::missing);
  EXPECT_TRUE(test::ImageOf(folder.native).empty());
}

TEST_F(TheSavedEntry, OutsideTheTableIsTheCallersError) {
  const Bytes before = Cache(3);
  Make(before);
  Read();
  for (const int index : {-1, 3, 1000}) {
    EXPECT_EQ(test::KindThrown([&] { SaveTcacheEntry(at.host.files, Path(), table, index); }), ErrorKind::outside);
  }
  EXPECT_TRUE(test::SameBytes(before, Now()));
  Make(Bytes(before.begin(), before.begin() + 300));
  EXPECT_THROW(SaveTcacheEntry(at.host.files, Path(), table, 1), FileError);
  EXPECT_EQ(Now().size(), 300U);
}

struct TheSearch : test::CacheStage {
  int Named(const std::string& name) { return SlotNamed(ReadTcache(at.host.files, Path()), name); }
  int OfFormat(std::int32_t format) { return SlotOfFormat(ReadTcache(at.host.files, Path()), format); }
};

TEST_F(TheSearch, FindsANameWithoutRegardToCaseAndSpaces) {
  Bytes cache = Cache(3);
  SetName(cache, 0, "reaper ");
  Make(cache);
  EXPECT_EQ(Named("REAPER"), 0);
  EXPECT_EQ(Named("  Reaper "), 0);
  EXPECT_EQ(Named("T2"), 2);
  EXPECT_EQ(Named("reape"), -1);
}

TEST_F(TheSearch, DoesNotLookBeyondTheCount) {
  Bytes cache = Cache(3);
  SetLong(cache, 4, 2);
  Make(cache);
  EXPECT_EQ(Named("t1"), 1);
  EXPECT_EQ(Named("t2"), -1);
  EXPECT_EQ(OfFormat(2), -1);
  SetLong(cache, 12 + 480, 2);
  Make(cache);
  EXPECT_EQ(OfFormat(2), -1);
}

TEST_F(TheSearch, FindsTheFirstEntryOfAFormat) {
  Bytes cache = Cache(6);
  SetLong(cache, 12 + 240 * 3, 2);
  SetLong(cache, 12 + 240 * 5, 2);
  Make(cache);
  EXPECT_EQ(OfFormat(2), 3);
  EXPECT_EQ(OfFormat(1), 0);
  EXPECT_EQ(OfFormat(3), -1);
}

TEST_F(TheSearch, OfAMissingCacheSaysSo) {
  EXPECT_EQ(test::KindThrown([&] { Named("x"); }), ErrorKind::missing);
}

TEST_F(TheSearch, OfADamagedCacheFindsNothingAndEnds) {
  Bytes cache = Cache(3);
  SetLong(cache, 4, 0x7FFFFFFF);
  Make(Bytes(cache.begin(), cache.begin() + 12 + 500));
  EXPECT_EQ(Named("t1"), 1);
  EXPECT_EQ(Named("t2"), -1);
  Make({1, 2, 3});
  EXPECT_EQ(Named(""), -1);
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
