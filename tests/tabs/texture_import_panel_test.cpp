#include "tabs/texture_import_panel.h"
#include "base/text.h"
#include "desk/program_end.h"
#include "support/cache_stage.h"
#include "support/fighter_bitmap.h"
#include "textures/loadout_maps.h"

namespace oravin {
namespace {

using test::After;
using test::Bitmap;
using test::Cache;
using test::ChainOf;
using test::Fighter;
using test::Pattern;
using test::ReadFileAt;
using test::SetName;

/// The panel, over a game folder and a program folder.
struct ThePanel : test::CacheStage {
  ThePanel() {
    installation.GamePath = folder.Windows("game\\");
    installation.ProgramPath = folder.Windows("program\\");
    for (std::size_t i = 0; i < 2048; ++i) maps.push_back(static_cast<std::uint8_t>(i * 3 + i / 256));
    Write("program/gloadconv.dat", maps);
    SetCache(Cache(426));
    panel.txtImportTexturePath.text = folder.Windows("a.bmp");
    panel.txtImportTextureName.text = "wing";
  }
  void SetCache(const Bytes& bytes) {
    before = bytes;
    Write("game/tcachehw.dat", bytes);
  }
  [[nodiscard]] Bytes CacheNow() const { return ReadFileAt(folder.Native("game/tcachehw.dat")); }
  void Click() { cmdImportTexture_Click(at.host, panel, installation); }
  void ExpectSuccess() { at.desk.ExpectSuccess("Textured imported successfully!", programTitle, Icon::exclamation); }
  [[nodiscard]] Bytes Companion(const Bytes& chain) const {
    Bytes mapped = chain;
    for (std::size_t i = 0; i < mapped.size(); ++i) mapped[i] = maps[256 * LevelAt(i) + mapped[i]];
    return mapped;
  }
  /// Nothing is left in the program folder but what was there.
  void ExpectTidy() const { EXPECT_EQ(test::ImageOf(folder.Native("program")).size(), 1U); }

  Installation installation;
  ImportTexturePanel panel = NewImportTexturePanel();
  Bytes maps;
  Bytes before;
};

TEST_F(ThePanel, HasItsControls) {
  EXPECT_EQ(panel.frameTextureImport.caption, "&Manual Texture Importing (not needed to import ship):");
  EXPECT_EQ(panel.cmdImportTexture.caption, "&Import Texture");
  EXPECT_EQ(panel.cmdImportTexture.tooltip, "Imports texture into the Tcachehw.dat file");
  EXPECT_EQ(panel.chkForFighter.caption, "For fighter");
  EXPECT_FALSE(panel.chkForFighter.checked);
  EXPECT_EQ(panel.cmdImportTextureBrowse.caption, "Bro&wse");
  const std::array<std::string, 4> info = {"x Dim:", "y Dim:", "Depth:", "Blocks:"};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(panel.lblBMPinfo.at(i).caption, info.at(i));
  EXPECT_EQ(panel.lbl3DConv[0].caption, "Texture name:");
  EXPECT_EQ(panel.lbl3DConv[1].caption, "&Import texture:");
}

TEST_F(ThePanel, ImportsABitmapAsItIs) {
  Write("a.bmp", Bitmap(8, 8, 16, Pattern(128)));
  ExpectSuccess();
  Click();
  EXPECT_TRUE(test::SameBytes(After(before, {"wing", 2, 8, 8, 1, Pattern(128), 128}), CacheNow()));
  EXPECT_EQ(panel.lblBMPinfo[0].caption, "x Dim: 8");
  EXPECT_EQ(panel.lblBMPinfo[1].caption, "y Dim: 8");
  EXPECT_EQ(panel.lblBMPinfo[2].caption, "Depth: 2 bit");
  EXPECT_EQ(panel.lblBMPinfo[3].caption, "Blocks: 1");
}

TEST_F(ThePanel, RefusesANameThatCannotBeStoredBeforeAnythingIsMade) {
  Write("a.bmp", Fighter());
  for (const bool fighter : {false, true}) {
    panel.chkForFighter.checked = fighter;
    for (const std::string& name : {FromUtf8("w\xD0\x96ng"), std::string("w\nng"), std::string("w\x9Dng")}) {
      panel.nameTakesFocus = false;
      panel.txtImportTextureName.text = name;
      at.desk.ExpectBox(test::CannotBeStored("w?ng"), programTitle);
      Click();
      EXPECT_TRUE(panel.nameTakesFocus);
      EXPECT_TRUE(test::SameBytes(before, CacheNow()));
      ExpectTidy();
    }
  }
}

TEST_F(ThePanel, ImportsA24BitBitmap) {
  Write("a.bmp", Bitmap(8, 8, 24, Bytes(192, 255)));
  ExpectSuccess();
  Click();
  EXPECT_TRUE(test::SameBytes(After(before, {"wing", 2, 8, 8, 1, Bytes(128, 255), 192}), CacheNow()));
}

TEST_F(ThePanel, OfABitmapWithPaddedRowsEndsAndLeavesTheCacheAsItWas) {
  Write("a.bmp", Bitmap(2, 2, 24, Pattern(16)));
  at.desk.ExpectBox("Operation terminated", programTitle, Icon::none);
  Click();
  EXPECT_EQ(panel.lblBMPinfo[3].caption, "Blocks: 0");
  EXPECT_TRUE(test::SameBytes(before, CacheNow()));
}

TEST_F(ThePanel, ImportsAFighterTwice) {
  Write("a.bmp", Fighter());
  panel.chkForFighter.checked = true;
  ExpectSuccess();
  Click();
  const Bytes chain = ChainOf(Fighter());
  const Bytes first = After(before, {"wing", 1, 256, 256, 8, chain, 87380});
  EXPECT_TRUE(test::SameBytes(After(first, {"gwing", 1, 256, 256, 8, Companion(chain), 87380}), CacheNow()));
  ExpectTidy();
}

TEST_F(ThePanel, OfAFighterMakesSureOfBothNamesFirst) {
  Write("a.bmp", Fighter());
  panel.chkForFighter.checked = true;
  for (const char* name : {"WING", "GWing"}) {
    Bytes cache = Cache(426);
    SetName(cache, 5, name);
    SetCache(cache);
    const std::string tried = name[0] == 'W' ? "wing" : "gwing";
    at.desk.ExpectBox("A texture with the name of '" + tried + "' already exists.\nUnable to import.", programTitle);
    Click();
    EXPECT_TRUE(at.desk.Done());
    EXPECT_TRUE(test::SameBytes(before, CacheNow()));
    ExpectTidy();
  }
}

TEST_F(ThePanel, OfAFighterMakesSureOfTwoSlotsFirst) {
  Write("a.bmp", Fighter());
  panel.chkForFighter.checked = true;
  for (const int count : {999, 1000}) {
    SetCache(Cache(count));
    at.desk.ExpectBox("Critical Error - TCACHE is FULL! Use Disable/Restore.", "ERROR!!!", Icon::critical);
    EXPECT_THROW(Click(), ProgramEnd);
    EXPECT_TRUE(test::SameBytes(before, CacheNow()));
    ExpectTidy();
  }
}

TEST_F(ThePanel, OfAFighterWithoutMapsLearnsThem) {
  Bytes cache = Cache(426);
  SetName(cache, 0, "hull");   // of pixels 1
  SetName(cache, 8, "ghull");  // of pixels 9
  SetCache(cache);
  std::filesystem::remove(folder.Native("program/gloadconv.dat"));
  Write("a.bmp", Fighter());
  panel.chkForFighter.checked = true;
  ExpectSuccess();
  Click();
  maps = ReadFileAt(folder.Native("program/gloadconv.dat"));
  ASSERT_EQ(maps.size(), 2048U);
  EXPECT_EQ(maps[1], 9);
  const Bytes chain = ChainOf(Fighter());
  const Bytes first = After(before, {"wing", 1, 256, 256, 8, chain, 87380});
  EXPECT_TRUE(test::SameBytes(After(first, {"gwing", 1, 256, 256, 8, Companion(chain), 87380}), CacheNow()));
  ExpectTidy();
}

TEST_F(ThePanel, OfAFighterWhoseMapsCannotBeLearnedImportsItAloneAndSaysWhy) {
  std::filesystem::remove(folder.Native("program/gloadconv.dat"));
  Write("a.bmp", Fighter());
  panel.chkForFighter.checked = true;
  at.desk.ExpectBox(
      "gloadconv.dat cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
      "LearnLoadout");
  ExpectSuccess();
  Click();
  EXPECT_TRUE(test::SameBytes(After(before, {"wing", 1, 256, 256, 8, ChainOf(Fighter()), 87380}), CacheNow()));
  EXPECT_TRUE(test::ImageOf(folder.Native("program")).empty());
}

TEST_F(ThePanel, OfAFighterWithDamagedMapsImportsNothingAndLeavesThemAlone) {
  Write("program/gloadconv.dat", Bytes(2047));
  Write("a.bmp", Fighter());
  panel.chkForFighter.checked = true;
  at.desk.ExpectBox(
      "Error - could not use " + folder.Windows("program\\gloadconv.dat") + ": it must be 2048 bytes long",
      "ConvertTexture");
  Click();
  EXPECT_TRUE(test::SameBytes(before, CacheNow()));
  EXPECT_EQ(ReadFileAt(folder.Native("program/gloadconv.dat")), Bytes(2047));
  ExpectTidy();
}

TEST_F(ThePanel, OfAFighterWithoutMapsAndWithoutACacheShowsOneBox) {
  std::filesystem::remove(folder.Native("program/gloadconv.dat"));
  std::filesystem::remove(folder.Native("game/tcachehw.dat"));
  Write("a.bmp", Fighter());
  panel.chkForFighter.checked = true;
  at.desk.ExpectBox("Path(s) not found", "ConvertTexture");
  Click();
  EXPECT_TRUE(test::ImageOf(folder.Native("program")).empty());
}

TEST_F(ThePanel, OfAFighterThatIsNoneStops) {
  Write("a.bmp", Bitmap(8, 8, 8, Pattern(64)));
  panel.chkForFighter.checked = true;
  at.desk.ExpectBox("Error - not a fighter texture", "ConvertFighterText");
  Click();
  EXPECT_TRUE(test::SameBytes(before, CacheNow()));
  ExpectTidy();
}

TEST_F(ThePanel, OfAFighterThatFailsAnywhereAddsBothOrNoneAndTidiesUp) {
  Write("a.bmp", Fighter());
  panel.chkForFighter.checked = true;
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    SetCache(Cache(426));
    test::ScriptedHost failing;
    failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
    test::Watch(failing.host.files, fault);
    cmdImportTexture_Click(failing.host, panel, installation);
    EXPECT_EQ(failing.desk.shown.size(), 1U);
    const auto count = test::LongAt(CacheNow(), 4);
    EXPECT_EQ(count, fault.happened ? 426U : 428U);
    ExpectTidy();
  });
}

TEST_F(ThePanel, WithoutABitmapIsReported) {
  at.desk.ExpectBox("Import texture not found.", programTitle);
  Click();
  EXPECT_TRUE(test::SameBytes(before, CacheNow()));
}

TEST_F(ThePanel, WithoutANameShowsABoxAndFocusesTheName) {
  Write("a.bmp", Bitmap(8, 8, 8, Pattern(64)));
  for (const char* name : {"", "   "}) {
    panel.nameTakesFocus = false;
    panel.txtImportTextureName.text = name;
    at.desk.ExpectBox("Enter name for texture", "Import Texture");
    Click();
    EXPECT_TRUE(panel.nameTakesFocus);
    EXPECT_EQ(panel.lblBMPinfo[2].caption, "Depth: 1 bit");
  }
  EXPECT_TRUE(test::SameBytes(before, CacheNow()));
}

TEST_F(ThePanel, CutsANameTo30Characters) {
  Write("a.bmp", Bitmap(8, 8, 8, Pattern(64)));
  panel.txtImportTextureName.text = std::string(35, 'n');
  ExpectSuccess();
  Click();
  EXPECT_TRUE(test::SameBytes(After(before, {std::string(30, 'n'), 1, 8, 8, 1, Pattern(64), 64}), CacheNow()));
}

TEST_F(ThePanel, BrowsesForABitmapAndShowsWhatItSays) {
  Write("b.bmp", Bitmap(256, 128, 24, Pattern(98304)));
  at.desk.AnswerFile(folder.Windows("b.bmp"));
  cmdImportTextureBrowse_Click(at.host, panel);
  ASSERT_EQ(at.desk.fileQuestions.size(), 1U);
  EXPECT_EQ(at.desk.fileQuestions[0].filter, "8-bit / 16-bit / 24-bit Bitmap (*.bmp)|*.bmp|All Files *.*|*.*");
  EXPECT_EQ(panel.txtImportTexturePath.text, folder.Windows("b.bmp"));
  EXPECT_EQ(panel.lblBMPinfo[0].caption, "x Dim: 256");
  EXPECT_EQ(panel.lblBMPinfo[1].caption, "y Dim: 128");
  EXPECT_EQ(panel.lblBMPinfo[2].caption, "Depth: 3 bit");
  EXPECT_EQ(panel.lblBMPinfo[3].caption, "Blocks: 1");
  at.desk.AnswerFile("");
  cmdImportTextureBrowse_Click(at.host, panel);
  EXPECT_EQ(panel.txtImportTexturePath.text, folder.Windows("b.bmp"));
}

}  // namespace
}  // namespace oravin
