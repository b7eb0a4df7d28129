// Enable makes the companion textures that imported ships lack, and nothing else.

#include "demo/sample.h"
#include "session.h"

namespace oravin::test {
namespace {

struct Loadout : testing::Test {
  Loadout() : sample(demo::WriteSample(folder.Native("sample"))) {
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
  /// The names of the first two textures of the first imported ship, from the catalogue that Enable builds.
  std::vector<std::string> ImportedShipsTextures() const {
    for (const ShipRecord& ship : main.installation.ships) {
      if (ship.Imported && !ship.Textures[0].Trimmed().empty()) {
        return {ship.Textures[0].Trimmed(), ship.Textures[1].Trimmed()};
      }
    }
    return {};
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

TEST_F(Loadout, ShipsWithoutTheirTexturesInTheCacheNeedNothing) {
  const Bytes before = ReadFileAt(sample.game / "tcachehw.dat");
  Enable();
  EXPECT_FALSE(ImportedShipsTextures().empty());
  EXPECT_TRUE(SameBytes(before, ReadFileAt(sample.game / "tcachehw.dat")));
}

TEST_F(Loadout, ACompanionIsMadeForEachTextureThatLacksOne) {
  const Bytes before = ReadFileAt(sample.game / "tcachehw.dat");
  Enable();
  const std::vector<std::string> names = ImportedShipsTextures();
  Disable();
  for (const std::string& name : names) Import(name);
  Enable();
  EXPECT_EQ(AddedTextures(), (std::vector<std::string>{names[0], names[1], "g" + names[0], "g" + names[1]}));
  Enable();
  EXPECT_EQ(AddedTextures().size(), 4U) << "those that are there are not made again, and no box tells of them";
  Disable();
  EXPECT_TRUE(SameBytes(before, ReadFileAt(sample.game / "tcachehw.dat")));
}

TEST_F(Loadout, MissingMapsAreLearnedFromTheGamesOwnTextures) {
  Enable();
  const std::string name = ImportedShipsTextures().front();
  Disable();
  Import(name);
  std::filesystem::remove(sample.program / "gloadconv.dat");
  Enable();
  EXPECT_EQ(ReadFileAt(sample.program / "gloadconv.dat").size(), 2048U);
  EXPECT_EQ(AddedTextures(), (std::vector<std::string>{name, "g" + name}));
}

}  // namespace
}  // namespace oravin::test
