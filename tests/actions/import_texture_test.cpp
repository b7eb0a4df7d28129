#include "actions/import_texture.h"

#include "desk/program_end.h"
#include "support/cache_stage.h"
#include "textures/texture_cache.h"

namespace oravin {
namespace {

using test::After;
using test::As16Bits;
using test::Bitmap;
using test::Cache;
using test::LongAt;
using test::Pattern;
using test::ReadFileAt;
using test::SetLong;
using test::SetName;

constexpr const char* full = "Critical Error - TCACHE is FULL! Use Disable/Restore.";
constexpr const char* notValid = "Error - not a valid TCACHE file!";

std::string Taken(const std::string& name) {
  return "A texture with the name of '" + name + "' already exists.\nUnable to import.";
}

struct TheImport : test::CacheStage {
  std::string bitmap = folder.Windows("a.bmp");

  /// Imports with the values of the bitmap's header.
  bool Import(const std::string& name) {
    return ImportTexture(at.host, Path(), bitmap, name, GetBMPInfo(at.host.files, bitmap));
  }
  void ExpectRefused(const Bytes& cache, const std::string& name, const Message& box) {
    Make(cache);
    at.desk.Expect(box);
    EXPECT_FALSE(Import(name));
    EXPECT_TRUE(at.desk.Done());
    EXPECT_TRUE(test::SameBytes(cache, Now()));
  }
  void ExpectNotValid(const Bytes& cache) {
    ExpectRefused(cache, "new", {notValid, "ImportTexture", Icon::critical, Buttons::ok, false});
  }
};

TEST_F(TheImport, OfAn8BitBitmapAppendsItsEntryAndItsPixels) {
  const Bytes before = Cache(426);
  Make(before);
  Write("a.bmp", Bitmap(8, 4, 8, Pattern(32)));
  EXPECT_TRUE(Import("  Hull1 "));
  EXPECT_TRUE(test::SameBytes(After(before, {"Hull1", 1, 8, 4, 1, Pattern(32), 32}), Now()));
}

TEST_F(TheImport, OfA16BitBitmapKeepsItsPixelsAndTakesItsTemplateFromTheFirst16BitEntry) {
  Bytes before = Cache(428);
  SetLong(before, 12 + 240 * 426, 2);  // the first 16-bit entry
  SetLong(before, 12 + 240 * 426 + 64, 2);
  SetLong(before, 12 + 240 * 426 + 68, 4);
  for (std::size_t i = 4; i < 60; ++i) before[12 + 240 * 426 + i] = 0xA5;
  Make(before);
  Write("a.bmp", Bitmap(8, 4, 16, Pattern(64)));
  EXPECT_TRUE(Import("hull"));
  EXPECT_TRUE(test::SameBytes(After(before, {"hull", 2, 8, 4, 1, Pattern(64), 64}), Now()));
  EXPECT_EQ(Now()[12 + 240 * 428 + 4], 0xA5);
}

TEST_F(TheImport, OfA24BitBitmapStoresTwoThirdsButReservesAll) {
  const Bytes before = Cache(426);
  Make(before);
  const Bytes pixels = Pattern(12288);
  Write("a.bmp", Bitmap(64, 64, 24, pixels));
  EXPECT_TRUE(Import("hull"));
  ASSERT_EQ(As16Bits(pixels).size(), 8192U);
  EXPECT_TRUE(test::SameBytes(After(before, {"hull", 2, 64, 64, 1, As16Bits(pixels), 12288}), Now()));
  EXPECT_EQ(LongAt(Now(), 8), before.size() + 12288);
  // The data end lies after the file's own end now; the next import goes there.
  const Bytes between = Now();
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  EXPECT_TRUE(Import("next"));
  EXPECT_TRUE(test::SameBytes(After(between, {"next", 1, 4, 4, 1, Pattern(16), 16}), Now()));
}

TEST_F(TheImport, OfAMipmapChainKeepsAllItsLevels) {
  const Bytes before = Cache(426);
  Make(before);
  Write("a.bmp", Bitmap(256, 256, 24, Pattern(262140)));
  EXPECT_TRUE(Import("chain"));
  EXPECT_TRUE(test::SameBytes(After(before, {"chain", 2, 256, 256, 8, As16Bits(Pattern(262140)), 262140}), Now()));
}

TEST_F(TheImport, OfTheFirst16BitTextureStartsFromTheSlotBefore) {
  Bytes before = Cache(426);
  for (std::size_t i = 196; i < 220; ++i) before[102012 + i] = 0x5A;
  Make(before);
  Write("a.bmp", Bitmap(4, 4, 16, Pattern(32)));
  EXPECT_TRUE(Import("deep"));
  EXPECT_TRUE(test::SameBytes(After(before, {"deep", 2, 4, 4, 1, Pattern(32), 32}), Now()));
  EXPECT_EQ(Now()[102252 + 200], 0x5A);
}

TEST_F(TheImport, OfALongNameLeavesAZeroByteAfterIt) {
  const Bytes before = Cache(426);
  Make(before);
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  EXPECT_TRUE(Import(std::string(50, 'n')));
  EXPECT_TRUE(test::SameBytes(After(before, {std::string(31, 'n'), 1, 4, 4, 1, Pattern(16), 16}), Now()));
}

TEST_F(TheImport, With999TexturesFillsTheCacheAndTheNextOneEndsTheProgram) {
  const Bytes before = Cache(999);
  Make(before);
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  EXPECT_TRUE(Import("last"));
  const Bytes filled = After(before, {"last", 1, 4, 4, 1, Pattern(16), 16});
  EXPECT_TRUE(test::SameBytes(filled, Now()));
  at.desk.ExpectBox(full, "ERROR!!!", Icon::critical);
  EXPECT_THROW(Import("one too many"), ProgramEnd);
  EXPECT_TRUE(test::SameBytes(filled, Now()));
  EXPECT_EQ(at.host.files.open, 0);
}

TEST_F(TheImport, IntoAMissingCacheShowsItsBox) {
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  at.desk.ExpectBox("Error. Path(s) not found", "ImportTexture");
  EXPECT_FALSE(Import("x"));
  EXPECT_EQ(test::ImageOf(folder.native).size(), 1U);
}

TEST_F(TheImport, IntoACacheWhoseDataEndIsSmallerThan240TimesItsCountIsRefused) {
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  Bytes cache = Cache(426);
  for (const std::uint32_t end : {0U, 240U * 426U - 1, 240011U, 0x80000000U, 0xFFFFFFFFU}) {
    SetLong(cache, 8, end);
    ExpectNotValid(cache);
  }
}

TEST_F(TheImport, IntoACacheWithABogusCountIsRefused) {
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  Bytes cache = Cache(426);
  for (const std::uint32_t count : {0U, 0xFFFFFFFFU, 1001U, 0x7FFFFFFFU}) {
    SetLong(cache, 4, count);
    ExpectNotValid(cache);
  }
}

TEST_F(TheImport, ThatWouldWriteOverATextureIsRefused) {
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  Bytes cache = Cache(426);
  SetLong(cache, 8, static_cast<std::uint32_t>(cache.size() - 1));
  ExpectNotValid(cache);
}

TEST_F(TheImport, FarAfterTheFilesEndIsRefused) {
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  Bytes cache = Cache(426);
  SetLong(cache, 8, 0x7FFFFFFF);
  ExpectNotValid(cache);
  ExpectNotValid(Bytes(cache.begin(), cache.begin() + 12));
  ExpectNotValid({});
}

TEST_F(TheImport, WorksInCachesOf1And425Textures) {
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  for (const int count : {1, 425}) {
    const Bytes before = Cache(count);
    Make(before);
    EXPECT_TRUE(Import("x"));
    EXPECT_TRUE(test::SameBytes(After(before, {"x", 1, 4, 4, 1, Pattern(16), 16}), Now()));
  }
}

TEST_F(TheImport, OfABitmapThatDoesNotFitIsTerminated) {
  const Message box{"Operation terminated", programTitle, Icon::none, Buttons::ok, false};
  for (const Bytes& file : {Bitmap(300, 300, 8, Pattern(90000)), Bitmap(8, 8, 32, Pattern(256)),
                            Bitmap(8, 8, 8, Pattern(63)), Bitmap(8, 8, 8, Pattern(65)), Bitmap(8, -8, 8, Pattern(64)),
                            Bitmap(8, 8, 1, Pattern(32)), Bitmap(8, 8, 4, Pattern(32))}) {
    Write("a.bmp", file);
    ExpectRefused(Cache(426), "new", box);
  }
  Make(Cache(426));
  at.desk.Expect(box);
  EXPECT_FALSE(ImportTexture(at.host, Path(), folder.Windows("none.bmp"), "new", BmpInfo{54, 4, 4, 1, 1}));
}

TEST_F(TheImport, OfATakenNameIsRefusedWhateverItsCase) {
  Bytes cache = Cache(426);
  SetName(cache, 7, "reaper");
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  ExpectRefused(cache, "Reaper", {Taken("Reaper"), programTitle, Icon::exclamation, Buttons::ok, false});
}

TEST_F(TheImport, ThatFailsAnywhereLeavesEveryTextureAndTheCount) {
  const Bytes before = Cache(426);
  const Bytes after = After(before, {"new", 1, 4, 4, 1, Pattern(16), 16});
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  for (const test::FaultKind kind : {test::FaultKind::failure, test::FaultKind::stop}) {
    test::AtEachOperation(kind, [&](test::Fault& fault) {
      Make(before);
      test::ScriptedHost failing;
      failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
      test::Watch(failing.host.files, fault);
      bool imported = false;
      test::Stopped([&] { imported = ImportTexture(failing.host, Path(), bitmap, "new", BmpInfo{1078, 4, 4, 1, 1}); });
      EXPECT_NE(imported, fault.happened);
      Bytes now = Now();
      if (imported) {
        EXPECT_TRUE(test::SameBytes(after, now));
        return;
      }
      // Slot 426 and what follows the data end belong to no texture.
      std::fill_n(now.begin() + 102252, 240, std::uint8_t{0});
      now.resize(before.size());
      EXPECT_TRUE(test::SameBytes(before, now));
      // The next one succeeds and gives the same cache as without the fault.
      EXPECT_TRUE(ImportTexture(at.host, Path(), bitmap, "new", BmpInfo{1078, 4, 4, 1, 1}));
      EXPECT_TRUE(test::SameBytes(after, Now()));
    });
  }
}

TEST_F(TheImport, OfPixelsInMemoryAddsAllOrNone) {
  const Bytes before = Cache(998);
  Make(before);
  const NewTexture one = MakeTexture("one", {0, 8, 4, 1, 1}, Pattern(32));
  const NewTexture two = MakeTexture("two", {0, 4, 4, 1, 1}, Pattern(16));
  const NewTexture odd = MakeTexture("odd", {0, 3, 4, 1, 1}, Pattern(12));
  at.desk.Expect({"Operation terminated", programTitle, Icon::none, Buttons::ok, false});
  EXPECT_FALSE(ImportTextures(at.host, Path(), {one, odd}));
  at.desk.ExpectBox(Taken("T7"), programTitle);
  EXPECT_FALSE(ImportTextures(at.host, Path(), {one, MakeTexture("T7", {0, 4, 4, 1, 1}, Pattern(16))}));
  at.desk.ExpectBox(full, "ERROR!!!", Icon::critical);
  EXPECT_THROW(ImportTextures(at.host, Path(), {one, two, odd}), ProgramEnd);
  EXPECT_TRUE(test::SameBytes(before, Now()));
  EXPECT_TRUE(ImportTextures(at.host, Path(), {one, two}));
  const Bytes first = After(before, {"one", 1, 8, 4, 1, Pattern(32), 32});
  EXPECT_TRUE(test::SameBytes(After(first, {"two", 1, 4, 4, 1, Pattern(16), 16}), Now()));
}

}  // namespace
}  // namespace oravin
