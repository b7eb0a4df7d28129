#include "actions/texture_batch.h"

#include "actions/import_texture.h"
#include "base/file_error.h"
#include "desk/program_end.h"
#include "support/cache_stage.h"

namespace oravin {
namespace {

using test::After;
using test::As16Bits;
using test::Bitmap;
using test::Cache;
using test::LoadoutMapsForTests;
using test::Mapped;
using test::Pattern;
using test::SameBytes;

std::string IsTaken(const std::string& name) {
  return "A texture with the name of '" + name + "' already exists.\nUnable to import.";
}

struct TheBatch : test::CacheStage {
  Installation installation{folder.windows, folder.windows, {}};
  TextureBatch batch;

  TheBatch() {
    Write("gloadconv.dat", LoadoutMapsForTests());
    Write("8.bmp", Bitmap(8, 4, 8, Pattern(32)));
    Write("other.bmp", Bitmap(8, 4, 8, Pattern(32, 9)));
    Write("16.bmp", Bitmap(8, 4, 16, Pattern(64)));
    Write("24.bmp", Bitmap(8, 4, 24, Pattern(96)));
  }
  bool Begin() { return BeginTextures(at.host, installation, batch); }
  AddedTexture Add(const std::string& name, const std::string& file, AlreadyThere rule = AlreadyThere::byPixels) {
    return AddTexture(at.host, installation, batch, name, folder.Windows(file), rule);
  }
  static Bytes After8(const Bytes& cache, const std::string& name, unsigned seed = 1) {
    const Bytes pixels = Pattern(32, seed);
    return After(After(cache, {name, 1, 8, 4, 1, pixels, 32}), {"g" + name, 1, 8, 4, 1, Mapped(pixels), 32});
  }
};

TEST_F(TheBatch, LeavesTheCacheAsItWasUntilItIsCommitted) {
  const Bytes before = Cache(426);
  Make(before);
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::added);
  EXPECT_EQ(Add("wing", "24.bmp"), AddedTexture::added);
  EXPECT_EQ(Add("tail", "16.bmp"), AddedTexture::added);
  Bytes head = Now();
  head.resize(before.size());
  EXPECT_TRUE(SameBytes(before, head));
  CommitTextures(at.host.files, batch);
  Bytes wanted = After8(before, "hull");
  wanted = After(wanted, {"wing", 2, 8, 4, 1, As16Bits(Pattern(96)), 96});
  wanted = After(wanted, {"tail", 2, 8, 4, 1, Pattern(64), 64});
  EXPECT_TRUE(SameBytes(wanted, Now()));
}

TEST_F(TheBatch, WritesWhatTheImportsOneByOneWrite) {
  const Bytes before = Cache(500);
  Make(before);
  const LoadoutMaps maps = ReadLoadoutMaps(at.host.files, folder.Windows("gloadconv.dat"));
  for (const char* name : {"8", "24", "16"}) {
    const std::string bitmap = folder.Windows(std::string(name) + ".bmp");
    const BmpInfo info = GetBMPInfo(at.host.files, bitmap);
    EXPECT_TRUE(ImportTexture(at.host, Path(), bitmap, name, info));
    if (info.depth != 1) continue;
    const NewTexture texture = MakeTexture(name, info, ReadPixels(at.host.files, bitmap, info));
    EXPECT_TRUE(ImportTextures(at.host, Path(), {CompanionOf(texture, maps)}));
  }
  const Bytes wanted = Now();
  Make(before);
  ASSERT_TRUE(Begin());
  for (const char* name : {"8", "24", "16"}) EXPECT_EQ(Add(name, std::string(name) + ".bmp"), AddedTexture::added);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(wanted, Now()));
}

TEST_F(TheBatch, WithoutATextureTouchesNothing) {
  const Bytes before = Cache(426);
  Make(before);
  ASSERT_TRUE(Begin());
  at.host.files.before = [](const FileOperation& operation) { EXPECT_NE(operation.kind, FileOperation::Kind::write); };
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, CountsTheSamePictureInAUserSlotAsInstalled) {
  Make(After8(Cache(426), "Hull"));
  const Bytes before = Now();
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("HULL", "8.bmp"), AddedTexture::installed);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, CountsWhatItHasJustAddedAsInstalledToo) {
  Make(Cache(426));
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "24.bmp"), AddedTexture::added);
  EXPECT_EQ(Add("hull", "24.bmp"), AddedTexture::installed);
  EXPECT_EQ(batch.cache.count, 427);
}

TEST_F(TheBatch, ShowsTheNameMessageForAnotherPictureInAUserSlot) {
  Make(After8(Cache(426), "hull"));
  const Bytes before = Now();
  ASSERT_TRUE(Begin());
  for (const char* file : {"other.bmp", "16.bmp", "24.bmp"}) {
    at.desk.ExpectBox(IsTaken("Hull"));
    EXPECT_EQ(Add("Hull", file), AddedTexture::nameTaken) << file;
  }
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, TakesTexturesOfOtherSizesWithTheSameBytesForDifferent) {
  Make(After8(Cache(426), "hull"));
  Write("turned.bmp", Bitmap(4, 8, 8, Pattern(32)));
  ASSERT_TRUE(Begin());
  at.desk.ExpectBox(IsTaken("hull"));
  EXPECT_EQ(Add("hull", "turned.bmp"), AddedTexture::nameTaken);
}

TEST_F(TheBatch, ByNameCountsAnyPictureInAUserSlotAsInstalledAndNeedsNoBitmap) {
  Make(After8(Cache(426), "hull"));
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "other.bmp", AlreadyThere::byName), AddedTexture::installed);
  EXPECT_EQ(Add("hull", "none.bmp", AlreadyThere::byName), AddedTexture::installed);
}

TEST_F(TheBatch, ShowsTheNameMessageForAFactoryTextureUnderBothRules) {
  Bytes before = Cache(426);
  test::SetName(before, 425, "hull");
  Make(before);
  ASSERT_TRUE(Begin());
  for (const AlreadyThere rule : {AlreadyThere::byName, AlreadyThere::byPixels}) {
    at.desk.ExpectBox(IsTaken("hull"));
    EXPECT_EQ(Add("hull", "8.bmp", rule), AddedTexture::nameTaken);
  }
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, RefusesANewNameThatCannotBeStored) {
  Bytes before = Cache(427);
  test::SetName(before, 426,
                "o\x81"
                "d");
  Make(before);
  ASSERT_TRUE(Begin());
  for (const char* name : {"a\x1Az", "a\x07z", "a\x8Dz"}) {
    at.desk.ExpectBox(test::CannotBeStored("a?z"), programTitle);
    EXPECT_EQ(Add(name, "16.bmp"), AddedTexture::refused);
  }
  // What has such a name already is not new.
  EXPECT_EQ(Add("o\x81"
                "d",
                "16.bmp", AlreadyThere::byName),
            AddedTexture::installed);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, LeavesACompanionThatIsThereAsItIs) {
  const Bytes before = After(Cache(426), {"ghull", 1, 8, 4, 1, Pattern(32, 7), 32});
  Make(before);
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::added);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After(before, {"hull", 1, 8, 4, 1, Pattern(32), 32}), Now()));
}

TEST_F(TheBatch, TakesBackWhatWasAddedSinceAMark) {
  const Bytes before = Cache(426);
  Make(before);
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("kept", "8.bmp"), AddedTexture::added);
  const BatchMark mark = MarkOf(batch);
  EXPECT_EQ(Add("gone", "24.bmp"), AddedTexture::added);
  EXPECT_EQ(Add("gone2", "8.bmp"), AddedTexture::added);
  GoBackTo(at.host.files, batch, mark);
  EXPECT_EQ(Add("gone2", "16.bmp"), AddedTexture::added);
  GoBackTo(at.host.files, batch, mark);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After8(before, "kept"), Now()));
}

TEST_F(TheBatch, TakesAllBack) {
  const Bytes before = Cache(426);
  Make(before);
  ASSERT_TRUE(Begin());
  const BatchMark mark = MarkOf(batch);
  EXPECT_EQ(Add("gone", "24.bmp"), AddedTexture::added);
  GoBackTo(at.host.files, batch, mark);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, IsTakenBackWholeAfterItsCommitByteForByte) {
  Bytes before = Cache(426);
  for (std::size_t i = 0; i < 480; ++i) before[12 + 240 * 426 + i] = 0x3C;  // the content of unused slots
  Make(before);
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::added);
  CommitTextures(at.host.files, batch);
  EXPECT_FALSE(SameBytes(before, Now()));
  TakeBackTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::added);
  TakeBackTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, RefusesABitmapThatDoesNotFitAndGoesOn) {
  const Bytes before = Cache(426);
  Make(before);
  Write("bad.bmp", Bitmap(8, 4, 8, Pattern(31)));
  ASSERT_TRUE(Begin());
  at.desk.ExpectBox("Operation terminated", programTitle, Icon::none);
  EXPECT_EQ(Add("bad", "bad.bmp"), AddedTexture::refused);
  at.desk.ExpectBox("File not found", "GetBMPInfo");
  EXPECT_EQ(Add("none", "none.bmp"), AddedTexture::refused);
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::added);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After8(before, "hull"), Now()));
}

TEST_F(TheBatch, EndsTheProgramForAFullCacheAndWhatCameBeforeCanStillBeCommitted) {
  const Bytes before = Cache(999);
  Make(before);
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("last", "24.bmp"), AddedTexture::added);
  at.desk.ExpectBox("Critical Error - TCACHE is FULL! Use Disable/Restore.", "ERROR!!!", Icon::critical);
  EXPECT_THROW(Add("over", "24.bmp"), ProgramEnd);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After(before, {"last", 2, 8, 4, 1, As16Bits(Pattern(96)), 96}), Now()));
}

TEST_F(TheBatch, NeedsTwoFreeSlotsForAnEightBitTextureUnlessItIsThereAlready) {
  Make(After(Cache(998), {"hull", 1, 8, 4, 1, Pattern(32), 32}));
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::installed);
  at.desk.ExpectBox("Critical Error - TCACHE is FULL! Use Disable/Restore.", "ERROR!!!", Icon::critical);
  EXPECT_THROW(Add("over", "8.bmp"), ProgramEnd);
}

TEST_F(TheBatch, WhoseTexturesCompanionIsThereNeedsOneSlotAndNoMaps) {
  Bytes before = Cache(999);
  test::SetName(before, 3, "GHULL");
  Make(before);
  std::filesystem::remove(folder.Native("gloadconv.dat"));
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::added);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After(before, {"hull", 1, 8, 4, 1, Pattern(32), 32}), Now()));
}

TEST_F(TheBatch, MapsEveryLevelOfAMipmapChainForTheCompanion) {
  const Bytes before = Cache(426);
  Make(before);
  Write("chain.bmp", Bitmap(256, 256, 8, Pattern(87380)));
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add(" hull ", "chain.bmp"), AddedTexture::added);
  CommitTextures(at.host.files, batch);
  const Bytes first = After(before, {"hull", 1, 256, 256, 8, Pattern(87380), 87380});
  EXPECT_TRUE(SameBytes(After(first, {"ghull", 1, 256, 256, 8, Mapped(Pattern(87380)), 87380}), Now()));
}

TEST_F(TheBatch, CutsANameTo30CharactersSoThatTheCompanionHas31) {
  Make(Cache(426));
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add(std::string(40, 'x'), "8.bmp"), AddedTexture::added);
  CommitTextures(at.host.files, batch);
  const TcacheTable table = GetTcacheTable(at.host.files, Path());
  ASSERT_EQ(table.size(), 428U);
  EXPECT_EQ(table[426].name, std::string(30, 'x'));
  EXPECT_EQ(table[427].name, "g" + std::string(30, 'x'));
}

TEST_F(TheBatch, ThatFailsOrStopsAnywhereAddsBothTexturesOrNone) {
  const Bytes before = Cache(426);
  const Bytes after = After8(before, "x");
  for (const test::FaultKind kind : {test::FaultKind::failure, test::FaultKind::stop}) {
    test::AtEachOperation(kind, [&](test::Fault& fault) {
      Make(before);
      test::ScriptedHost failing;
      failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
      test::Watch(failing.host.files, fault);
      test::Stopped([&] {
        TextureBatch one;
        if (!BeginTextures(failing.host, installation, one)) return;
        AddTexture(failing.host, installation, one, "x", folder.Windows("8.bmp"), AlreadyThere::byName);
        Trap(failing.host, "CommitTextures", [&] { CommitTextures(failing.host.files, one); });
      });
      Bytes now = Now();
      if (fault.happened) {
        std::fill_n(now.begin() + 102252, 480, std::uint8_t{0});
        now.resize(before.size());
      }
      EXPECT_TRUE(SameBytes(fault.happened ? before : after, now));
    });
  }
}

TEST_F(TheBatch, GivesATextureThatWasImportedByHandItsCompanion) {
  const Bytes before = After(Cache(426), {"Hull", 1, 8, 4, 1, Pattern(32), 32});
  Make(before);
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::installed);
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::installed) << "it has one now";
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After(before, {"ghull", 1, 8, 4, 1, Mapped(Pattern(32)), 32}), Now()));
}

TEST_F(TheBatch, GivesAnotherPictureThatWasImportedByHandTheCompanionOfThatPicture) {
  const Bytes before = After(Cache(426), {"hull", 1, 4, 8, 1, Pattern(32, 9), 32});
  Make(before);
  ASSERT_TRUE(Begin());
  at.desk.ExpectBox(IsTaken("hull"));
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::nameTaken);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After(before, {"ghull", 1, 4, 8, 1, Mapped(Pattern(32, 9)), 32}), Now()));
}

TEST_F(TheBatch, GivesNoCompanionToTheGamesOwnTexturesOrToDeepOnes) {
  Bytes before = After(Cache(426), {"deep", 2, 8, 4, 1, Pattern(64), 64});
  test::SetName(before, 425, "hull");
  Make(before);
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("deep", "16.bmp"), AddedTexture::installed);
  at.desk.ExpectBox(IsTaken("hull"));
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::nameTaken);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, ByNameLeavesTheCompanionToTheLoadout) {
  const Bytes before = After(Cache(426), {"hull", 1, 8, 4, 1, Pattern(32), 32});
  Make(before);
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp", AlreadyThere::byName), AddedTexture::installed);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, EndsTheProgramWhereALackingCompanionFindsNoSlot) {
  Make(After(Cache(999), {"hull", 1, 8, 4, 1, Pattern(32), 32}));
  const Bytes before = Now();
  ASSERT_TRUE(Begin());
  at.desk.ExpectBox("Critical Error - TCACHE is FULL! Use Disable/Restore.", "ERROR!!!", Icon::critical);
  EXPECT_THROW(Add("hull", "8.bmp"), ProgramEnd);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, WithoutMapsATextureThatWasImportedByHandStaysAlone) {
  const Bytes before = After(Cache(426), {"hull", 1, 8, 4, 1, Pattern(32), 32});
  Make(before);
  std::filesystem::remove(folder.Native("gloadconv.dat"));
  at.desk.ExpectBox(
      "gloadconv.dat cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
      "LearnLoadout");
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::installed);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(before, Now()));
}

TEST_F(TheBatch, TakesBackACompanionWithItsShip) {
  const Bytes before = After(Cache(426), {"hull", 1, 8, 4, 1, Pattern(32), 32});
  Make(before);
  ASSERT_TRUE(Begin());
  const BatchMark mark = MarkOf(batch);
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::installed);
  EXPECT_EQ(batch.cache.count, 428);
  GoBackTo(at.host.files, batch, mark);
  EXPECT_TRUE(SameBytes(before, Now()));
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::installed);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After(before, {"ghull", 1, 8, 4, 1, Mapped(Pattern(32)), 32}), Now()));
}

TEST_F(TheBatch, LearnsMissingMapsAtTheFirstNeed) {
  Bytes before = Cache(426);
  test::SetName(before, 0, "wing");   // of pixels 1
  test::SetName(before, 8, "gwing");  // of pixels 9
  Make(before);
  std::filesystem::remove(folder.Native("gloadconv.dat"));
  Write("8.bmp", Bitmap(8, 4, 8, Bytes(32, 1)));
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("deep", "24.bmp"), AddedTexture::added);
  EXPECT_FALSE(std::filesystem::exists(folder.Native("gloadconv.dat")));
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::added);
  EXPECT_EQ(test::ReadFileAt(folder.Native("gloadconv.dat")).size(), 2048U);
  CommitTextures(at.host.files, batch);
  Bytes wanted = After(before, {"deep", 2, 8, 4, 1, As16Bits(Pattern(96)), 96});
  wanted = After(wanted, {"hull", 1, 8, 4, 1, Bytes(32, 1), 32});
  EXPECT_TRUE(SameBytes(After(wanted, {"ghull", 1, 8, 4, 1, Bytes(32, 9), 32}), Now()));
}

TEST_F(TheBatch, WithMapsThatCannotBeLearnedAddsTexturesAloneAndSaysWhyOnce) {
  const Bytes before = Cache(998);
  Make(before);
  std::filesystem::remove(folder.Native("gloadconv.dat"));
  at.desk.ExpectBox(
      "gloadconv.dat cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
      "LearnLoadout");
  ASSERT_TRUE(Begin());
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::added);
  EXPECT_EQ(Add("wing", "other.bmp"), AddedTexture::added) << "into the last slot";
  CommitTextures(at.host.files, batch);
  const Bytes first = After(before, {"hull", 1, 8, 4, 1, Pattern(32), 32});
  EXPECT_TRUE(SameBytes(After(first, {"wing", 1, 8, 4, 1, Pattern(32, 9), 32}), Now()));
}

TEST_F(TheBatch, WithDamagedMapsRefusesWhatNeedsThemAndLeavesThemAlone) {
  const Bytes before = Cache(426);
  Make(before);
  Write("gloadconv.dat", Bytes(2047));
  ASSERT_TRUE(Begin());
  at.desk.ExpectBox("Error - could not use " + folder.Windows("gloadconv.dat") + ": it must be 2048 bytes long",
                    "ImportTexture");
  EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::refused);
  EXPECT_EQ(Add("wing", "16.bmp"), AddedTexture::added);
  CommitTextures(at.host.files, batch);
  EXPECT_TRUE(SameBytes(After(before, {"wing", 2, 8, 4, 1, Pattern(64), 64}), Now()));
  EXPECT_EQ(test::ReadFileAt(folder.Native("gloadconv.dat")), Bytes(2047));
}

TEST_F(TheBatch, DoesNotBeginOnAMissingOrDamagedCache) {
  at.desk.ExpectBox("Error. Path(s) not found", "ImportTexture");
  EXPECT_FALSE(Begin());
  Bytes damaged = Cache(426);
  test::SetLong(damaged, 8, 1);
  Make(damaged);
  at.desk.ExpectBox("Error - not a valid TCACHE file!", "ImportTexture", Icon::critical);
  EXPECT_FALSE(Begin());
  EXPECT_TRUE(SameBytes(damaged, Now()));
}

TEST_F(TheBatch, CountsATextureAndItsCompanionTogetherOrNotAtAll) {
  const Bytes before = Cache(426);
  Make(before);
  for (const bool room : {false, true}) {
    ASSERT_TRUE(Begin());
    batch.counting = true;
    const std::int32_t end = 0x7FFFFFFF - (room ? 64 : 63);
    batch.cache.dataEnd = end;
    Add("hull", "8.bmp");
    EXPECT_EQ(batch.cache.count, room ? 428 : 426);
    EXPECT_EQ(SlotsIn(batch.cache), room ? 428 : 426);
    EXPECT_EQ(batch.cache.dataEnd, room ? 0x7FFFFFFF : end);
    EXPECT_TRUE(SameBytes(before, Now()));
  }
}

TEST_F(TheBatch, AFailedWriteTakesTheTextureBack) {
  const Bytes before = Cache(426);
  Make(before);
  for (int failing = 1; failing <= 2; ++failing) {
    ASSERT_TRUE(Begin());
    int writes = 0;
    at.host.files.before = [&](const FileOperation& operation) {
      if (operation.kind != FileOperation::Kind::write) return;
      if (++writes == failing) throw FileError("could not write", operation.path, "the disk is full");
    };
    at.desk.AllowOthers([](const Message&) { return Answer::ok; });
    EXPECT_EQ(Add("hull", "8.bmp"), AddedTexture::refused);
    at.host.files.before = nullptr;
    EXPECT_TRUE(SameBytes(before, Now())) << failing;
    EXPECT_EQ(batch.cache.count, 426);
  }
}

}  // namespace
}  // namespace oravin
