// Enable with too few free slots in the texture cache ends before its first change; with just enough it goes on.

#include "demo/model_writer.h"
#include "desk/program_end.h"
#include "session.h"
#include "support/cache_files.h"

namespace oravin::test {
namespace {

namespace fs = std::filesystem;

/// The small installation: its three add-on ships use one texture, "hull", which needs two slots with its companion.
struct FullCache : testing::Test {
  void Start() { session = std::make_unique<Session>(installation); }
  [[nodiscard]] Bytes CacheNow() const { return ReadFileAt(installation.Game("tcachehw.dat")); }
  /// Fills the cache with textures of 16 bits, which need no companions.
  void Fill(std::uint32_t count) const {
    Bytes cache = CacheNow();
    while (LongAt(cache, 4) < count)
      cache = After(cache, {"x" + std::to_string(LongAt(cache, 4)), 2, 2, 2, 1, Pattern(8), 8});
    WriteFileAt(installation.Game("tcachehw.dat"), cache);
  }
  void Add(const std::string& name, std::uint32_t side = 4) const {
    const Bytes pixels = Pattern(std::size_t{side} * side);
    WriteFileAt(installation.Game("tcachehw.dat"), After(CacheNow(), {name, 1, side, side, 1, pixels, side * side}));
  }
  /// Makes one of the add-on ships use these textures.
  void Use(const std::string& model, const std::vector<std::string>& textures) const {
    demo::ModelOptions options;
    options.size = 1500;
    options.textures = textures;
    WriteFileAt(installation.Program("addons/ships/" + model), demo::BuildModel(options));
  }
  void Write(const std::string& texture, int bits, std::size_t pixels = 0) const {
    WriteFileAt(installation.Program("addons/textures/" + texture + ".bmp"),
                Bitmap(4, 4, bits, Pattern(pixels > 0 ? pixels : 2 * static_cast<std::size_t>(bits))));
  }
  void ExpectFull() {
    const FolderImage before = ImageOf(installation.folder.native);
    session->desk.ExpectQuestion(enableQuestion, Answer::yes);
    session->desk.ExpectBox("Critical Error - TCACHE is FULL! Use Disable/Restore.", "ERROR!!!", Icon::critical);
    EXPECT_THROW(session->Press("switcher.cmdEnable"), ProgramEnd);
    EXPECT_TRUE(session->desk.Done());
    EXPECT_TRUE(SameImage(before, ImageOf(installation.folder.native)));
  }
  void ExpectEnabled(std::uint32_t count) {
    session->Enable();
    EXPECT_EQ(LongAt(CacheNow(), 4), count);
  }
  /// From so many textures on Enable brings the cache to 1000; from one more it ends.
  void ExpectLimit(std::uint32_t fits) {
    const Bytes cache = CacheNow();
    Fill(fits + 1);
    Start();
    ExpectFull();
    WriteFileAt(installation.Game("tcachehw.dat"), cache);
    Fill(fits);
    ExpectEnabled(1000);
  }

  SmallInstallation installation;
  std::unique_ptr<Session> session;
};

TEST_F(FullCache, With999TexturesNothingAtAllIsChanged) {
  Fill(999);
  Start();
  ExpectFull();
  EXPECT_FALSE(fs::exists(installation.Program("ships.dat")));
}

TEST_F(FullCache, OfAnEnabledInstallationLeavesItsCatalogueItsSwapsAndTheArchive) {
  Start();
  session->Enable();
  session->Swap(alpha, manta);
  Write("red", 8);
  Use("wraith.shp", {"red"});
  Fill(999);
  ExpectFull();
}

TEST_F(FullCache, ANameThatAddOnsShareIsCountedOnce) { ExpectLimit(998); }

TEST_F(FullCache, ATextureOf16BitsNeedsOneSlot) {
  Write("hull", 16);
  ExpectLimit(999);
}

TEST_F(FullCache, ATextureOf24BitsNeedsOneSlot) {
  Write("hull", 24);
  ExpectLimit(999);
}

TEST_F(FullCache, TexturesOfSeveralAddOnsAddUp) {
  Write("red", 8);
  Write("deep", 24);
  Use("manta.shp", {"red", "hull", "RED"});
  Use("wraith.shp", {"deep", "Hull"});
  ExpectLimit(995);
}

TEST_F(FullCache, ACompanionThatIsThereIsNotCounted) {
  Add("GHull");
  ExpectLimit(999);
}

TEST_F(FullCache, ATextureThatIsThereNeedsItsCompanionAlone) {
  Add("hull");
  ExpectLimit(999);
}

TEST_F(FullCache, TexturesThatAreThereWithTheirCompanionsNeedNothing) {
  Add("hull");
  Add("ghull");
  Fill(1000);
  Start();
  ExpectEnabled(1000);
}

TEST_F(FullCache, AnAddOnThatIsTheCompanionOfATextureThatIsThereIsCountedOnce) {
  Add("red");
  Write("gred", 16);
  Use("manta.shp", {"gred", "red"});
  ExpectLimit(997);  // gred; hull and ghull
}

TEST_F(FullCache, ABitmapThatIsMissingNeedsNothing) {
  fs::remove(installation.Program("addons/textures/hull.bmp"));
  Fill(1000);
  Start();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("The bitmaps of these textures were not found among the add-ons:\nhull");
  session->desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  session->Press("switcher.cmdEnable");
  EXPECT_EQ(LongAt(CacheNow(), 4), 1000U);
}

TEST_F(FullCache, ABitmapThatDoesNotFitNeedsNothingWhileThereIsASlot) {
  Write("red", 8, 15);
  Use("manta.shp", {"red"});
  Fill(998);
  Start();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("Operation terminated", programTitle, Icon::none);
  session->desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  session->Press("switcher.cmdEnable");
  EXPECT_EQ(LongAt(CacheNow(), 4), 1000U);
}

TEST_F(FullCache, ATextureOfTheGamesOwnNeedsAtMostACompanion) {
  Write("texture7", 8);
  Use("manta.shp", {"texture7"});
  Fill(998);
  Start();
  ExpectFull();
}

TEST_F(FullCache, WithoutMapsNoCompanionIsCounted) {
  fs::remove(installation.Program("gloadconv.dat"));
  Add("red");
  Use("manta.shp", {"red"});
  Fill(999);
  Start();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox(
      "gloadconv.dat cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
      "LearnLoadout");
  session->desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  session->Press("switcher.cmdEnable");
  EXPECT_EQ(LongAt(CacheNow(), 4), 1000U);
}

TEST_F(FullCache, WithMapsThatWillBeLearnedCompanionsAreCountedAndNothingIsLearnedYet) {
  Bytes cache = CacheNow();
  SetName(cache, 0, "wing");
  SetName(cache, 1, "gwing");
  WriteFileAt(installation.Game("tcachehw.dat"), cache);
  fs::remove(installation.Program("gloadconv.dat"));
  Fill(999);
  Start();
  ExpectFull();
  EXPECT_FALSE(fs::exists(installation.Program("gloadconv.dat")));
}

/// A texture whose sides no new texture can have, so that its companion is refused.
struct FullCacheWithAnOddTexture : FullCache {
  FullCacheWithAnOddTexture() {
    Add("red");
    Bytes cache = CacheNow();
    for (const std::size_t field : {64U, 120U}) SetLong(cache, 12 + 240 * 426 + field, 3);
    WriteFileAt(installation.Game("tcachehw.dat"), cache);
    Use("manta.shp", {"red"});
  }
};

TEST_F(FullCacheWithAnOddTexture, ItsCompanionIsRefusedAndNotCounted) {
  Add("blue");
  Use("wraith.shp", {"blue"});
  Fill(997);  // hull, ghull, and the companion of blue
  Start();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("Operation terminated", programTitle, Icon::none);
  session->desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  session->Press("switcher.cmdEnable");
  EXPECT_EQ(LongAt(CacheNow(), 4), 1000U);
}

TEST_F(FullCacheWithAnOddTexture, TheImportOfItsCompanionAsksForASlotFirst) {
  Fill(998);  // hull and ghull
  Start();
  ExpectFull();
}

}  // namespace
}  // namespace oravin::test
