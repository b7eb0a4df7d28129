#include "actions/import_texture.h"

#include "base/text.h"
#include "desk/program_end.h"
#include "support/cache_stage.h"
#include "textures/colour.h"
#include "textures/loadout_maps.h"
#include "textures/texture_cache.h"

namespace oravin {
namespace {

using test::After;
using test::As16Bits;
using test::Bitmap;
using test::Cache;
using test::LoadoutMapsForTests;
using test::LongAt;
using test::Mapped;
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

  /// Imports with what the bitmap says of itself.
  bool Import(const std::string& name) {
    BmpInfo info;
    EXPECT_TRUE(GetBMPInfo(at.host, bitmap, info));
    return ImportTexture(at.host, Path(), bitmap, name, info);
  }
  /// Imports the second way, from the folder as the program folder.
  bool ImportWithCompanion(const std::string& name) {
    return ImportTexture(at.host, Path(), name, bitmap, folder.windows);
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

TEST_F(TheImport, WithACompanionRefusesANameThatCannotBeStored) {
  const Bytes before = Cache(426);
  Make(before);
  Write("a.bmp", Bitmap(8, 4, 16, Pattern(64)));
  at.desk.ExpectBox(test::CannotBeStored("h?ll"), programTitle);
  EXPECT_FALSE(ImportWithCompanion("h\x1All"));
  EXPECT_TRUE(test::SameBytes(before, Now()));
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
  // The data end lies behind the file's own end now; the next import goes there.
  const Bytes between = Now();
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  EXPECT_TRUE(Import("next"));
  EXPECT_TRUE(test::SameBytes(After(between, {"next", 1, 4, 4, 1, Pattern(16), 16}), Now()));
}

TEST_F(TheImport, OfAChainKeepsAllItsImages) {
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

TEST_F(TheImport, OfALongNameLeavesAZeroByteBehindIt) {
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

TEST_F(TheImport, IntoAMissingCacheIsTold) {
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

TEST_F(TheImport, FarBehindTheFilesEndIsRefused) {
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
      // Slot 426 and what lies behind the data end are nobody's.
      std::fill_n(now.begin() + 102252, 240, std::uint8_t{0});
      now.resize(before.size());
      EXPECT_TRUE(test::SameBytes(before, now));
      // The next one comes to its end and gives the same cache as without the fault.
      EXPECT_TRUE(ImportTexture(at.host, Path(), bitmap, "new", BmpInfo{1078, 4, 4, 1, 1}));
      EXPECT_TRUE(test::SameBytes(after, Now()));
    });
  }
}

struct TheImportWithItsCompanion : TheImport {
  TheImportWithItsCompanion() { Write("gloadconv.dat", LoadoutMapsForTests()); }
};

TEST_F(TheImportWithItsCompanion, OfAn8BitBitmapAddsBoth) {
  const Bytes before = Cache(426);
  Make(before);
  Write("a.bmp", Bitmap(256, 256, 8, Pattern(87380)));
  EXPECT_TRUE(ImportWithCompanion(" hull "));
  const Bytes first = After(before, {"hull", 1, 256, 256, 8, Pattern(87380), 87380});
  const Bytes both = After(first, {"ghull", 1, 256, 256, 8, Mapped(Pattern(87380)), 87380});
  EXPECT_TRUE(test::SameBytes(both, Now()));
}

TEST_F(TheImportWithItsCompanion, OfDeeperBitmapsAddsOneAlone) {
  const Bytes before = Cache(998);
  Make(before);
  Write("a.bmp", Bitmap(4, 4, 24, Pattern(48)));
  EXPECT_TRUE(ImportWithCompanion("deep"));
  const Bytes first = After(before, {"deep", 2, 4, 4, 1, As16Bits(Pattern(48)), 48});
  EXPECT_TRUE(test::SameBytes(first, Now()));
  Write("a.bmp", Bitmap(4, 4, 16, Pattern(32)));
  EXPECT_TRUE(ImportWithCompanion("deeper"));
  EXPECT_TRUE(test::SameBytes(After(first, {"deeper", 2, 4, 4, 1, Pattern(32), 32}), Now()));
}

TEST_F(TheImportWithItsCompanion, WithOneFreeSlotEndsTheProgramBeforeAnythingIsWritten) {
  const Bytes before = Cache(999);
  Make(before);
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  at.desk.ExpectBox(full, "ERROR!!!", Icon::critical);
  EXPECT_THROW(ImportWithCompanion("hull"), ProgramEnd);
  EXPECT_TRUE(test::SameBytes(before, Now()));
}

TEST_F(TheImportWithItsCompanion, WhoseCompanionIsThereLeavesItAndNeedsOneSlot) {
  Bytes before = Cache(999);
  SetName(before, 3, "GHULL");
  Make(before);
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  std::filesystem::remove(folder.Native("gloadconv.dat"));  // it is not needed then
  EXPECT_TRUE(ImportWithCompanion("hull"));
  EXPECT_TRUE(test::SameBytes(After(before, {"hull", 1, 4, 4, 1, Pattern(16), 16}), Now()));
}

TEST_F(TheImportWithItsCompanion, MakesTheSameChecks) {
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  at.desk.ExpectBox("Error. Path(s) not found", "ImportTexture");
  EXPECT_FALSE(ImportWithCompanion("x"));
  Make(Cache(1000));
  at.desk.ExpectBox(full, "ERROR!!!", Icon::critical);
  EXPECT_THROW(ImportWithCompanion("x"), ProgramEnd);
  Bytes cache = Cache(426);
  SetLong(cache, 8, 5);
  Make(cache);
  at.desk.ExpectBox(notValid, "ImportTexture", Icon::critical);
  EXPECT_FALSE(ImportWithCompanion("x"));
  Make(Cache(426));
  at.desk.ExpectBox(Taken("T7"), programTitle);
  EXPECT_FALSE(ImportWithCompanion("T7"));
  Write("a.bmp", Bitmap(4, 3, 8, Pattern(12)));
  at.desk.ExpectBox("Operation terminated", programTitle, Icon::none);
  EXPECT_FALSE(ImportWithCompanion("x"));
  std::filesystem::remove(folder.Native("a.bmp"));
  at.desk.ExpectBox("File not found", "GetBMPInfo");
  EXPECT_FALSE(ImportWithCompanion("x"));
  EXPECT_TRUE(test::SameBytes(Cache(426), Now()));
}

TEST_F(TheImportWithItsCompanion, WithoutMapsLearnsThem) {
  Bytes before = Cache(426);
  SetName(before, 0, "wing");   // of pixels 1
  SetName(before, 8, "gwing");  // of pixels 9
  Make(before);
  std::filesystem::remove(folder.Native("gloadconv.dat"));
  Write("a.bmp", Bitmap(4, 4, 8, Bytes(16, 1)));
  EXPECT_TRUE(ImportWithCompanion("x"));
  const Bytes first = After(before, {"x", 1, 4, 4, 1, Bytes(16, 1), 16});
  EXPECT_TRUE(test::SameBytes(After(first, {"gx", 1, 4, 4, 1, Bytes(16, 9), 16}), Now()));
  EXPECT_EQ(ReadFileAt(folder.Native("gloadconv.dat")).size(), 2048U);
}

TEST_F(TheImportWithItsCompanion, WithMapsThatCannotBeLearnedComesAloneAndSaysWhy) {
  const Bytes before = Cache(999);
  Make(before);
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  std::filesystem::remove(folder.Native("gloadconv.dat"));
  at.desk.ExpectBox(
      "gloadconv.dat cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
      "LearnLoadout");
  EXPECT_TRUE(ImportWithCompanion("x")) << "into the last slot: a texture alone needs but one";
  EXPECT_TRUE(test::SameBytes(After(before, {"x", 1, 4, 4, 1, Pattern(16), 16}), Now()));
  EXPECT_FALSE(std::filesystem::exists(folder.Native("gloadconv.dat")));
}

TEST_F(TheImportWithItsCompanion, WithDamagedMapsWritesNothingAndLeavesThemAlone) {
  Make(Cache(426));
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  Write("gloadconv.dat", Bytes(2047));
  at.desk.ExpectBox("Error - could not use " + folder.Windows("gloadconv.dat") + ": it must be 2048 bytes long",
                    "ImportTexture");
  EXPECT_FALSE(ImportWithCompanion("x"));
  EXPECT_TRUE(test::SameBytes(Cache(426), Now()));
  EXPECT_EQ(ReadFileAt(folder.Native("gloadconv.dat")), Bytes(2047));
}

TEST_F(TheImportWithItsCompanion, OfALongNameCutsItTo30CharactersAndTheCompanionHas31) {
  Make(Cache(426));
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  EXPECT_TRUE(ImportWithCompanion(std::string(40, 'x')));
  TcacheTable table;
  EXPECT_EQ(GetTcacheTable(at.host, Path(), table), 428);
  EXPECT_EQ(table[426].name, std::string(30, 'x'));
  EXPECT_EQ(table[427].name, "g" + std::string(30, 'x'));
}

TEST_F(TheImportWithItsCompanion, ThatFailsAnywhereAddsBothOrNone) {
  const Bytes before = Cache(426);
  const Bytes after =
      After(After(before, {"x", 1, 4, 4, 1, Pattern(16), 16}), {"gx", 1, 4, 4, 1, Mapped(Pattern(16)), 16});
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  for (const test::FaultKind kind : {test::FaultKind::failure, test::FaultKind::stop}) {
    test::AtEachOperation(kind, [&](test::Fault& fault) {
      Make(before);
      test::ScriptedHost failing;
      failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
      test::Watch(failing.host.files, fault);
      test::Stopped([&] { ImportTexture(failing.host, Path(), "x", bitmap, folder.windows); });
      Bytes now = Now();
      if (fault.happened) {
        std::fill_n(now.begin() + 102252, 480, std::uint8_t{0});
        now.resize(before.size());
      }
      EXPECT_TRUE(test::SameBytes(fault.happened ? before : after, now));
    });
  }
}

struct TheConversion : test::CacheStage {
  TheConversion() { Write("gloadconv.dat", LoadoutMapsForTests()); }
  bool Convert(const std::string& source = "source", const std::string& folderName = "") {
    return ConvertTexture(at.host, folder.Windows(source), folder.windows + folderName, "made",
                          folder.Windows("gloadconv.dat"));
  }
};

TEST_F(TheConversion, TakesEveryByteThroughItsLevelsMap) {
  const Bytes pixels = Pattern(87380);
  Write("source", pixels);
  Write("made", Pattern(100000));  // an old one is replaced
  EXPECT_TRUE(Convert());
  const Bytes made = ReadFileAt(folder.Native("made"));
  EXPECT_TRUE(test::SameBytes(Mapped(pixels), made));
  EXPECT_EQ(made[65535], LoadoutMapsForTests()[pixels[65535]]);
  EXPECT_EQ(made[65536], LoadoutMapsForTests()[256 + pixels[65536]]);
  EXPECT_EQ(made[87379], LoadoutMapsForTests()[256 * 7 + pixels[87379]]);
}

TEST_F(TheConversion, CountsWhatLiesBehindTheChainToTheLastLevel) {
  Write("source", Pattern(90000));
  EXPECT_TRUE(Convert());
  EXPECT_TRUE(test::SameBytes(Mapped(Pattern(90000)), ReadFileAt(folder.Native("made"))));
}

TEST_F(TheConversion, WithAMissingPathDoesNothing) {
  const auto missing = [&] { at.desk.ExpectBox("Path(s) not found", "ConvertTexture"); };
  Write("made", Pattern(5));
  missing();
  EXPECT_FALSE(Convert());
  Write("source", Pattern(10));
  missing();
  EXPECT_FALSE(Convert("source", "none\\"));
  std::filesystem::remove(folder.Native("gloadconv.dat"));
  missing();
  EXPECT_FALSE(Convert());
  EXPECT_EQ(ReadFileAt(folder.Native("made")), Pattern(5));
}

TEST(TheLevels, AreTheImagesOfAFightersChain) {
  std::size_t begin = 0;
  for (std::size_t level = 0; level < loadoutLevels; ++level) {
    const std::size_t side = std::size_t{256} >> level;
    EXPECT_EQ(LevelAt(begin), level);
    EXPECT_EQ(LevelAt(begin + side * side - 1), level);
    begin += side * side;
  }
  EXPECT_EQ(begin, 87380U);
  EXPECT_EQ(LevelAt(87380), 7U);
}

}  // namespace
}  // namespace oravin
