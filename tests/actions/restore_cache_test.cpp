#include "actions/restore_cache.h"

#include <gtest/gtest.h>

#include "support/cache_stage.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"
#include "textures/texture_cache.h"

namespace oravin {
namespace {

using test::Cache;
using test::ImageOf;
using test::Little;
using test::PatchFileAt;
using test::ReadFileAt;
using test::ScriptedHost;
using test::WriteFileAt;

struct RestoredCache : testing::Test {
  test::TemporaryFolder folder;
  ScriptedHost at;

  [[nodiscard]] std::filesystem::path Native() const { return folder.Native("tcachehw.dat"); }
  [[nodiscard]] std::string Path() const { return folder.Windows("tcachehw.dat"); }
  void Make(const Bytes& bytes) const { WriteFileAt(Native(), bytes); }
  void Restore() { RestoreTcacheFile(at.host, Path()); }
  /// Restores a cache that must be refused, and looks that it was left as it is.
  void ExpectRefused() {
    const test::FolderImage before = ImageOf(folder.native);
    at.desk.ExpectBox("Error - not a valid tcache file", "RestoreTcacheFile", Icon::exclamation);
    Restore();
    EXPECT_TRUE(at.desk.Done());
    EXPECT_TRUE(test::SameImage(before, ImageOf(folder.native)));
  }
  /// Patches a field of the last factory texture's entry.
  void PatchLast(std::uint64_t field, std::uint32_t value) const {
    PatchFileAt(Native(), 102012 + field, Little(value));
  }
};

TEST_F(RestoredCache, With430TexturesIsLeftWith426) {
  Make(Cache(430));
  Restore();
  const Bytes restored = ReadFileAt(Native());
  const std::uint32_t end = 240012 + 426 * 20;  // 4 x 4 and 2 x 2 pixels a texture
  ASSERT_EQ(restored.size(), end);
  EXPECT_EQ(LittleEndian32(&restored[4]), 426U);
  EXPECT_EQ(LittleEndian32(&restored[8]), end);
  for (std::size_t i = 102252; i < 102252 + 5 * 240; ++i) ASSERT_EQ(restored[i], 0) << i;  // slots 426 to 430
  EXPECT_TRUE(test::SameBytes(Cache(426), restored));
}

TEST_F(RestoredCache, WithTheFactoryTexturesOnlyIsRewrittenTheSame) {
  Make(Cache(426));
  Restore();
  EXPECT_TRUE(test::SameBytes(Cache(426), ReadFileAt(Native())));
}

TEST_F(RestoredCache, Slot426IsZeroedAgainAndTheSlotsAfterItStay) {
  Make(Cache(426));
  PatchFileAt(Native(), TcacheEntryOffset(426), Bytes(2 * 240, 0x55));
  Restore();
  const Bytes restored = ReadFileAt(Native());
  EXPECT_EQ(Bytes(restored.begin() + 102252, restored.begin() + 102252 + 240), Bytes(240));
  EXPECT_EQ(Bytes(restored.begin() + 102252 + 240, restored.begin() + 102252 + 480), Bytes(240, 0x55));
}

TEST_F(RestoredCache, OneSlotMoreThanTheUserTexturesIsZeroed) {
  Make(Cache(430));
  PatchFileAt(Native(), TcacheEntryOffset(430), Bytes(2 * 240, 0x55));
  Restore();
  const Bytes restored = ReadFileAt(Native());
  EXPECT_EQ(restored[TcacheEntryOffset(430) + 239], 0);
  EXPECT_EQ(restored[TcacheEntryOffset(431)], 0x55);
}

TEST_F(RestoredCache, EntriesOfAnImportThatWasCutShortAreZeroedAndOthersStay) {
  Bytes cache = Cache(426);
  for (const std::size_t slot : {428U, 430U, 999U}) cache[12 + 240 * slot] = 7;
  for (const std::size_t slot : {428U, 999U}) test::SetLong(cache, 12 + 240 * slot + 192, 474747);
  Make(cache);
  Restore();
  Bytes wanted = Cache(426);
  wanted[12 + 240 * 430] = 7;
  EXPECT_TRUE(test::SameBytes(wanted, ReadFileAt(Native())));
}

TEST_F(RestoredCache, With1000TexturesKeepsItsPixels) {
  Make(Cache(1000));
  Restore();
  EXPECT_TRUE(test::SameBytes(Cache(426), ReadFileAt(Native())));
}

TEST_F(RestoredCache, ACountThatCannotBeTrueZeroesTheSlotsToTheTablesEndAndNoFurther) {
  for (const std::uint32_t count : {1001U, 0x7FFFFFFFU}) {
    Make(Cache(430));
    PatchFileAt(Native(), 4, Little(count));
    Restore();
    EXPECT_TRUE(test::SameBytes(Cache(426), ReadFileAt(Native()))) << count;
  }
}

TEST_F(RestoredCache, ACountBelowTheFactorysLeavesTheCacheUntouched) {
  for (const std::uint32_t count : {0U, 1U, 425U, 0xFFFFFFFFU}) {
    Make(Cache(426));
    PatchFileAt(Native(), 4, Little(count));
    ExpectRefused();
  }
}

TEST_F(RestoredCache, WithCountsOf999And1000IsZeroedToTheTablesEndAndNoFurther) {
  for (const int count : {999, 1000}) {
    Make(Cache(count));
    Restore();
    EXPECT_TRUE(test::SameBytes(Cache(426), ReadFileAt(Native()))) << count;
  }
}

TEST_F(RestoredCache, LargerThanABlockIsCopiedWhole) {
  Make(Cache(428, 64, 2));
  Restore();
  const Bytes restored = ReadFileAt(Native());
  EXPECT_GT(restored.size(), 4000000U);
  EXPECT_TRUE(test::SameBytes(Cache(426, 64, 2), restored));
}

TEST_F(RestoredCache, EndsWithItsLastFactoryTexturesRoundedSize) {
  Make(Cache(430));
  PatchLast(tcacheWidthInEntry, 3);
  PatchLast(tcacheHeightInEntry, 3);
  Restore();
  const Bytes restored = ReadFileAt(Native());
  EXPECT_EQ(restored.size(), 240012U + 425 * 20 + 11);  // 3 x 3 and 1.5 x 1.5 pixels
  EXPECT_EQ(LittleEndian32(&restored[8]), restored.size());
}

TEST_F(RestoredCache, ADataEndInsideTheTableLeavesTheCacheUntouched) {
  for (const std::uint32_t end : {0U, 7U, 240011U, 0x80000000U}) {
    Make(Cache(426));
    PatchFileAt(Native(), 8, Little(end));
    ExpectRefused();
  }
}

TEST_F(RestoredCache, AnotherDataEndAfterTheTableDoesNotMatter) {
  Make(Cache(426));
  PatchFileAt(Native(), 8, Little(0x7FFFFFFF));
  Restore();
  EXPECT_TRUE(test::SameBytes(Cache(426), ReadFileAt(Native())));
}

TEST_F(RestoredCache, AFactoryTextureWhoseDataLieElsewhereLeavesTheCacheUntouched) {
  const std::uint32_t end = 240012 + 426 * 20;
  for (const std::uint32_t offset : {0U, 240011U, end - 19, end, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    Make(Cache(430));
    PatchFileAt(Native(), 12 + 240 * 17 + tcacheDataInEntry, Little(offset));
    ExpectRefused();
  }
}

TEST_F(RestoredCache, FactoryTexturesThatShareTheirDataAreNoHarm) {
  Make(Cache(426));
  PatchFileAt(Native(), 12 + 240 * 17 + tcacheDataInEntry, Little(240012));
  const Bytes before = ReadFileAt(Native());
  Restore();
  EXPECT_TRUE(test::SameBytes(before, ReadFileAt(Native())));
}

TEST_F(RestoredCache, ARestoreThatWasCutShortIsPickedUpFromItsOldFile) {
  Bytes old = Cache(426);  // patched already: its further textures are forgotten, but their data are still there
  old.resize(old.size() + 80, 9);
  const std::vector<std::size_t> lengths = {0, 5, 12, 240012, Cache(426).size() - 1};
  for (const std::size_t length : lengths) {
    WriteFileAt(folder.Native("tcachehw.old"), old);
    Make(Bytes(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(length)));
    Restore();
    EXPECT_TRUE(test::SameImage({{"tcachehw.dat", Cache(426)}}, ImageOf(folder.native)));
  }
  std::filesystem::remove(Native());
  WriteFileAt(folder.Native("tcachehw.old"), old);
  Restore();
  EXPECT_TRUE(test::SameImage({{"tcachehw.dat", Cache(426)}}, ImageOf(folder.native)));
}

TEST_F(RestoredCache, AnOldFileThatStillHoldsAddedTexturesIsKept) {
  WriteFileAt(folder.Native("tcachehw.old"), Cache(430));
  Restore();
  EXPECT_TRUE(test::SameImage({{"tcachehw.dat", Cache(426)}, {"tcachehw.old", Cache(430)}}, ImageOf(folder.native)));
}

TEST_F(RestoredCache, ADamagedCacheThatIsNoBeginningOfTheOldFileIsLeftUntouched) {
  WriteFileAt(folder.Native("tcachehw.old"), Cache(430));
  Bytes damaged = Cache(426);
  damaged.resize(240100);
  damaged[5000] ^= 1;
  Make(damaged);
  ExpectRefused();
}

TEST_F(RestoredCache, AnOldFileThatIsNotWholeIsNoHelp) {
  WriteFileAt(folder.Native("tcachehw.old"), "somebody's own");
  at.desk.ExpectBox("Error - Path(s) not found", "RestoreTcacheFile", Icon::exclamation);
  Restore();
  EXPECT_EQ(ImageOf(folder.native).size(), 1U);
}

TEST_F(RestoredCache, WhateverFailsTheOldFileIsThereUntilTheCacheIs) {
  for (const test::FaultKind kind : {test::FaultKind::failure, test::FaultKind::stop}) {
    test::AtEachOperation(kind, [&](test::Fault& fault) {
      std::filesystem::remove(Native());
      WriteFileAt(folder.Native("tcachehw.old"), Cache(426));
      ScriptedHost failing;
      failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
      test::Watch(failing.host.files, fault);
      test::Stopped([&] { RestoreTcacheFile(failing.host, Path()); });
      const test::FolderImage after = ImageOf(folder.native);
      const bool restored = after.contains("tcachehw.dat");
      EXPECT_TRUE(restored || after.contains("tcachehw.old"));
      EXPECT_TRUE(test::SameBytes(Cache(426), after.at(restored ? "tcachehw.dat" : "tcachehw.old")));
      // The next one, without a fault, comes to its end.
      ScriptedHost next;
      EXPECT_TRUE(RestoreTcacheFile(next.host, Path()));
      EXPECT_TRUE(test::SameBytes(Cache(426), ReadFileAt(Native())));
    });
  }
}

TEST_F(RestoredCache, AMissingCacheGivesItsBox) {
  at.desk.ExpectBox("Error - Path(s) not found", "RestoreTcacheFile", Icon::exclamation);
  Restore();
  EXPECT_TRUE(ImageOf(folder.native).empty());
}

TEST_F(RestoredCache, NoOtherFileIsTouchedOrLeft) {
  Make(Cache(430));
  WriteFileAt(folder.Native("tcachehw.old"), "somebody's own");
  Restore();
  const test::FolderImage after = ImageOf(folder.native);
  EXPECT_EQ(after.size(), 2U);
  EXPECT_EQ(test::ReadTextAt(folder.Native("tcachehw.old")), "somebody's own");
}

TEST_F(RestoredCache, ATruncatedCacheIsLeftUntouched) {
  const Bytes whole = Cache(426);
  for (const std::size_t length : {std::size_t{0}, std::size_t{11}, std::size_t{102100}, std::size_t{240011},
                                   std::size_t{240012}, whole.size() - 1}) {
    SCOPED_TRACE(length);
    Make(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    ExpectRefused();
  }
}

TEST_F(RestoredCache, ABogusLastFactoryTextureLeavesTheCacheUntouched) {
  const std::vector<std::pair<std::uint64_t, std::uint32_t>> wrong = {
      {0, 0},                             // no pixel format
      {0, 3},                             // an unknown one
      {0, 0xFFFFFFFF},                    //
      {tcacheWidthInEntry, 65537},        // sides that no texture has
      {tcacheWidthInEntry, 0xFFFFFFFF},   //
      {tcacheHeightInEntry, 65537},       //
      {tcacheHeightInEntry, 0xFFFFFFFF},  //
      {tcacheWidthInEntry, 65536},        // more pixels than there are
      {tcacheDataInEntry, 0},             // data inside the table
      {tcacheDataInEntry, 240011},        //
      {tcacheDataInEntry, 0xFFFFFFFF},    // data after the end
      {tcacheDataInEntry, 240012 + 426 * 20 - 19},
  };
  for (const auto& [field, value] : wrong) {
    SCOPED_TRACE(std::to_string(field) + " = " + std::to_string(value));
    Make(Cache(426));
    PatchLast(field, value);
    ExpectRefused();
  }
}

TEST_F(RestoredCache, AnAbsurdNumberOfImagesEndsInNoHang) {
  Make(Cache(430));
  PatchLast(tcacheImagesInEntry, 0x7FFFFFFF);
  Restore();
  // 16 + 4 + 1 + 1/4 + ... pixels: 21.33
  EXPECT_EQ(std::filesystem::file_size(Native()), 240012U + 425 * 20 + 21);
}

TEST_F(RestoredCache, NoImagesAndANegativeNumberOfThemCountAsOne) {
  for (const std::uint32_t images : {0U, 0xFFFFFFFFU}) {
    Make(Cache(430));
    PatchLast(tcacheImagesInEntry, images);
    Restore();
    EXPECT_EQ(std::filesystem::file_size(Native()), 240012U + 425 * 20 + 16);
  }
}

TEST_F(RestoredCache, WhateverFailsTheCacheIsOldOrNew) {
  const Bytes old = Cache(430);
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Make(old);
    ScriptedHost failing;
    failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
    test::Watch(failing.host.files, fault);
    RestoreTcacheFile(failing.host, Path());
    EXPECT_EQ(failing.desk.shown.size(), fault.happened ? 1U : 0U);
    EXPECT_TRUE(test::SameImage({{"tcachehw.dat", fault.happened ? old : Cache(426)}}, ImageOf(folder.native)));
    EXPECT_EQ(failing.host.files.open, 0);
  });
}

TEST_F(RestoredCache, WhereverTheProcessStopsTheCacheIsOldOrNew) {
  const Bytes old = Cache(430);
  test::AtEachOperation(test::FaultKind::stop, [&](test::Fault& fault) {
    Make(old);
    ScriptedHost stopping;
    test::Watch(stopping.host.files, fault);
    const bool stopped = test::Stopped([&] { RestoreTcacheFile(stopping.host, Path()); });
    EXPECT_TRUE(test::SameBytes(stopped ? old : Cache(426), ReadFileAt(Native())));
  });
}

TEST_F(RestoredCache, TheCountOfTheHeaderIsReturned) {
  EXPECT_EQ(TcacheCount(at.host.files, Path()), 0);
  Make(Cache(430));
  EXPECT_EQ(TcacheCount(at.host.files, Path()), 430);
  Make(Bytes(11));
  EXPECT_EQ(TcacheCount(at.host.files, Path()), 0);
  Make(Bytes(12, 0xFF));
  EXPECT_EQ(TcacheCount(at.host.files, Path()), 0x7FFFFFFF);
}

}  // namespace
}  // namespace oravin
