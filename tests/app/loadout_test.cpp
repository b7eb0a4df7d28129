// Enable makes the companion textures that imported ships lack, and nothing else; and it learns the maps for that.

#include "demo/model_writer.h"
#include "session.h"
#include "support/cache_files.h"
#include "support/sample_copy.h"

namespace oravin::test {
namespace {

struct Loadout : testing::Test {
  Loadout() : sample(NewSample(folder.Native("sample"))) {
    Form_Load(main, {sample.game.string(), sample.program.string()});
  }
  void Enable() {
    desk.ExpectQuestion(enableQuestion, Answer::yes);
    desk.ExpectSuccess(enabledText, programTitle, Icon::none);
    oravin::Run(main, "switcher.cmdEnable");
  }
  void Disable() {
    desk.ExpectQuestion(disableQuestion, Answer::yes);
    desk.ExpectSuccess("Restoration complete");
    oravin::Run(main, "switcher.cmdDisable");
  }
  /// Imports one of the add-on ships' bitmaps by hand.
  void Import(const std::string& name) {
    ImportTexturePanel& panel = main.imports.texture;
    panel.txtImportTexturePath.text = main.installation.ProgramPath + "addons\\textures\\" + name + ".bmp";
    panel.txtImportTextureName.text = name;
    desk.ExpectSuccess("Textured imported successfully!", programTitle, Icon::exclamation);
    oravin::Run(main, "imports.cmdImportTexture");
  }
  std::vector<std::string> AddedTextures() {
    oravin::Run(main, "tcache.cmdOpenTcache");
    std::vector<std::string> names;
    for (const TcacheEntry& entry : main.tcache.table) {
      if (entry.entryOffset >= TcacheEntryOffset(factoryTextures)) names.push_back(entry.name);
    }
    oravin::Run(main, "tcache.cmdCloseTcache");
    return names;
  }

  TemporaryFolder folder;
  demo::Sample sample;
  Main main;
  ScriptedDesk desk{main.host};
};

const std::vector<std::string> ofTheAddOns = {"manta1",  "gmanta1",  "manta2",  "gmanta2",  "wraith1", "gwraith1",
                                              "wraith2", "gwraith2", "coldeck", "gcoldeck", "colhull"};

TEST_F(Loadout, TheAddOnShipsTexturesComeWithTheirCompanions) {
  const Bytes before = ReadFileAt(sample.game / "tcachehw.dat");
  Enable();
  EXPECT_EQ(AddedTextures(), ofTheAddOns);
  Enable();
  EXPECT_EQ(AddedTextures(), ofTheAddOns) << "those that are there are not added again, and no box tells of them";
  Disable();
  EXPECT_TRUE(SameBytes(before, ReadFileAt(sample.game / "tcachehw.dat")));
}

TEST_F(Loadout, ACompanionIsMadeForEachTextureThatLacksOne) {
  const Bytes before = ReadFileAt(sample.game / "tcachehw.dat");
  for (const char* name : {"manta1", "manta2"}) Import(name);
  Enable();
  std::vector<std::string> wanted = {"manta1", "manta2"};
  wanted.insert(wanted.end(), ofTheAddOns.begin() + 4, ofTheAddOns.end());
  wanted.insert(wanted.end(), {"gmanta1", "gmanta2"});
  EXPECT_EQ(AddedTextures(), wanted);
  Disable();
  EXPECT_TRUE(SameBytes(before, ReadFileAt(sample.game / "tcachehw.dat")));
}

TEST_F(Loadout, MissingMapsAreLearnedFromTheGamesOwnTextures) {
  std::filesystem::remove(sample.program / "gloadconv.dat");
  Enable();
  EXPECT_EQ(ReadFileAt(sample.program / "gloadconv.dat").size(), 2048U);
  EXPECT_EQ(AddedTextures(), ofTheAddOns);
}

TEST_F(Loadout, MissingMapsAreLearnedAlsoWhenNoAddOnNeedsThem) {
  const Bytes shipped = ReadFileAt(sample.program / "gloadconv.dat");
  std::filesystem::remove_all(sample.program / "addons" / "textures");
  std::filesystem::create_directory(sample.program / "addons" / "textures");
  std::filesystem::remove(sample.program / "gloadconv.dat");
  desk.ExpectQuestion(enableQuestion, Answer::yes);
  desk.ExpectBox(
      "The bitmaps of these textures were not found among the add-ons:"
      "\nmanta1\nmanta2\nwraith1\nwraith2\ncoldeck\ncolhull");
  desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  oravin::Run(main, "switcher.cmdEnable");
  EXPECT_EQ(AddedTextures(), std::vector<std::string>());
  const Bytes learned = ReadFileAt(sample.program / "gloadconv.dat");
  ASSERT_EQ(learned.size(), 2048U);
  // What the game's own textures show of them is as it was shipped.
  std::size_t same = 0;
  for (std::size_t cell = 0; cell < 256; ++cell) same += learned[cell] == shipped[cell] ? 1U : 0U;
  EXPECT_GT(same, 100U);
}

TEST_F(Loadout, AnExistingMapsFileIsNeverOverwritten) {
  const Bytes own(2048, 7);
  WriteFileAt(sample.program / "gloadconv.dat", own);
  Enable();
  EXPECT_EQ(ReadFileAt(sample.program / "gloadconv.dat"), own);
}

/// The small installation, whose cache teaches no maps, with an add-on ship of three textures.
struct LoadoutWithoutMaps : testing::Test {
  LoadoutWithoutMaps() {
    const std::vector<std::string> names = {"red", "blue", "grey"};
    for (std::size_t i = 0; i < names.size(); ++i) {
      pixels[names[i]] = Pattern(16, static_cast<unsigned>(40 * i + 3));
      WriteFileAt(installation.Program("addons/textures/" + names[i] + ".bmp"), Bitmap(4, 4, 8, pixels[names[i]]));
    }
    demo::ModelOptions options;
    options.size = 1500;
    options.textures = names;
    WriteFileAt(installation.Program("addons/ships/manta.shp"), demo::BuildModel(options));
    maps = ReadFileAt(installation.Program("gloadconv.dat"));
    factory = CacheNow();
    session = std::make_unique<Session>(installation);
  }
  [[nodiscard]] Bytes CacheNow() const { return ReadFileAt(installation.Game("tcachehw.dat")); }
  [[nodiscard]] Bytes Alone(const Bytes& cache, const std::string& name) const {
    return After(cache, {name, 1, 4, 4, 1, name == "hull" ? Pattern(16) : pixels.at(name), 16});
  }
  [[nodiscard]] Bytes Companion(const Bytes& cache, const std::string& name) const {
    return After(cache, {"g" + name, 1, 4, 4, 1, Mapped(name == "hull" ? Pattern(16) : pixels.at(name)), 16});
  }

  SmallInstallation installation;
  std::map<std::string, Bytes> pixels;
  Bytes maps;
  Bytes factory;
  std::unique_ptr<Session> session;
};

TEST_F(LoadoutWithoutMaps, TexturesComeAloneAfterOneMessageAndTheNextEnableMakesAllCompanions) {
  std::filesystem::remove(installation.Program("gloadconv.dat"));
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox(
      "gloadconv.dat cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
      "LearnLoadout");
  session->desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  session->Press("switcher.cmdEnable");
  EXPECT_TRUE(session->desk.Done());
  Bytes wanted = factory;
  for (const char* name : {"red", "blue", "grey", "hull"}) wanted = Alone(wanted, name);
  EXPECT_TRUE(SameBytes(wanted, CacheNow()));
  EXPECT_FALSE(std::filesystem::exists(installation.Program("gloadconv.dat")));
  WriteFileAt(installation.Program("gloadconv.dat"), maps);
  session->Enable();
  for (const char* name : {"red", "blue", "grey", "hull"}) wanted = Companion(wanted, name);
  EXPECT_TRUE(SameBytes(wanted, CacheNow()));
}

TEST_F(LoadoutWithoutMaps, DamagedMapsGiveOneMessageAndStayAsTheyAre) {
  WriteFileAt(installation.Program("gloadconv.dat"), Bytes(2047));
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox(
      "Error - could not use " + installation.programPath + "gloadconv.dat: it must be 2048 bytes long",
      "LearnLoadout");
  session->desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  session->Press("switcher.cmdEnable");
  Bytes wanted = factory;
  for (const char* name : {"red", "blue", "grey", "hull"}) wanted = Alone(wanted, name);
  EXPECT_TRUE(SameBytes(wanted, CacheNow()));
  EXPECT_EQ(ReadFileAt(installation.Program("gloadconv.dat")), Bytes(2047));
}

TEST_F(LoadoutWithoutMaps, WithoutACacheThereIsNoMessage) {
  std::filesystem::remove(installation.Program("gloadconv.dat"));
  std::filesystem::remove(installation.Game("tcachehw.dat"));
  session->Enable();
  EXPECT_FALSE(std::filesystem::exists(installation.Program("gloadconv.dat")));
}

}  // namespace
}  // namespace oravin::test
