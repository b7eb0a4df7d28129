// Enable makes the companion textures that imported ships lack, and nothing else.

#include "session.h"
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

}  // namespace
}  // namespace oravin::test
