#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "demo/bitmap_writer.h"
#include "program_under_test.h"
#include "session.h"

/// Textures imported by hand, through the panel of the "Import Ships" tab.
namespace oravin::test {

namespace {

constexpr std::uint32_t factoryTextures = 426;
constexpr const char* panelPicture = "imports.preview.picture";

/// Bytes that make a picture which differs from row to row.
Bytes Pixels(std::size_t count) {
  Bytes pixels(count);
  for (std::size_t i = 0; i < count; ++i) pixels[i] = static_cast<std::uint8_t>(i / 64 + i % 7);
  return pixels;
}

/// A bitmap of 16 bits differs from one of 24 in the one number that says so, and its pixels.
Bytes Bitmap16(int side) {
  constexpr std::size_t bitsAt = 28;
  Bytes bitmap = demo::BuildBitmap24(side, side, Pixels(static_cast<std::size_t>(side * side * 2)));
  bitmap[bitsAt] = 16;
  return bitmap;
}

struct PanelSession : Session {
  PanelSession() : cache(sample.game / "tcachehw.dat"), before(ReadFileAt(cache)) {
    WriteFileAt(folder.Native("palette.bmp"), demo::BuildBitmap8(64, 64, demo::SpacePalette(), Pixels(64 * 64)));
    WriteFileAt(folder.Native("fighter.bmp"), demo::BuildBitmap8(256, 256, demo::SpacePalette(), Pixels(256 * 256)));
    WriteFileAt(folder.Native("colour.bmp"), demo::BuildBitmap24(64, 32, Pixels(64 * 32 * 3)));
    WriteFileAt(folder.Native("high.bmp"), Bitmap16(32));
    if (!ChooseTab(*this, "Import Ships")) throw std::runtime_error("no tab");
  }

  /// How many textures the cache on disk says it holds.
  [[nodiscard]] std::uint32_t Textures() const {
    const Bytes now = ReadFileAt(cache);
    return now[4] | static_cast<std::uint32_t>(now[5]) << 8U;
  }

  std::filesystem::path cache;
  Bytes before;
};

testing::AssertionResult Named(const PanelSession& session, const std::string& bitmap, const std::string& name) {
  if (const auto typed = TypeInto(session, "imports.txtImportTexturePath", session.folder.Windows(bitmap)); !typed) {
    return typed;
  }
  return TypeInto(session, "imports.txtImportTextureName", name);
}

testing::AssertionResult Imported(const PanelSession& session, const std::string& bitmap, const std::string& name) {
  if (const auto named = Named(session, bitmap, name); !named) return named;
  ClickOn(session, "imports.cmdImportTexture");
  if (const auto came = BoxCame(session, "Textured imported successfully!"); !came) return came;
  return AnswerBox(session, "Return");
}

testing::AssertionResult InfoIs(const Session& session, const std::array<std::string, 4>& captions) {
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const std::string label = "imports.lblBMPinfo[" + std::to_string(i) + "]";
    if (const auto is = Becomes(session, label, "caption", captions.at(i)); !is) return is;
  }
  return testing::AssertionSuccess();
}

}  // namespace

TEST(ImportPanel, BitmapsOfEveryDepthAreImported) {
  const PanelSession session;
  ASSERT_TRUE(Imported(session, "palette.bmp", "mine8"));
  EXPECT_EQ(session.Textures(), factoryTextures + 1);
  EXPECT_TRUE(InfoIs(session, {"x Dim: 64", "y Dim: 64", "Depth: 1 bit", "Blocks: 1"}));
  ASSERT_TRUE(Imported(session, "high.bmp", "mine16"));
  EXPECT_EQ(session.Textures(), factoryTextures + 2);
  EXPECT_TRUE(InfoIs(session, {"x Dim: 32", "y Dim: 32", "Depth: 2 bit", "Blocks: 1"}));
  ASSERT_TRUE(Imported(session, "colour.bmp", "mine24"));
  EXPECT_EQ(session.Textures(), factoryTextures + 3);
  EXPECT_TRUE(InfoIs(session, {"x Dim: 64", "y Dim: 32", "Depth: 3 bit", "Blocks: 1"}));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "import_done"));

  ASSERT_TRUE(ChooseTab(session, "Tcache Editor"));
  ClickOn(session, "tcache.cmdOpenTcache");
  ASSERT_TRUE(CaptionHolds(session, "tcache.lblTcacheStructs", "429 texture(s)"));
  ClickOn(session, "tcache.cmdRestoreTCACHE");
  ASSERT_TRUE(BoxCame(session, "This should remove all textures that you have added."));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "TCACHE Restoration complete"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_EQ(session.Textures(), factoryTextures);
  EXPECT_TRUE(Becomes(session, "tcache.lblTcacheStatus", "shown", true)) << "the list still shows what was removed";
}

TEST(ImportPanel, FighterIsImportedWithItsCompanion) {
  const PanelSession session;
  ClickOn(session, "imports.chkForFighter");
  ASSERT_TRUE(Becomes(session, "imports.chkForFighter", "checked", true));
  ASSERT_TRUE(Imported(session, "fighter.bmp", "mine"));
  EXPECT_EQ(session.Textures(), factoryTextures + 2);
  ASSERT_TRUE(ChooseTab(session, "Tcache Editor"));
  ClickOn(session, "tcache.cmdOpenTcache");
  ASSERT_TRUE(CaptionHolds(session, "tcache.lblTcacheStructs", "428 texture(s)"));
  ASSERT_TRUE(SelectRow(session, "tcache.lstTcache", "cockpit01"));
  PressKey(session.desktop, "End");
  EXPECT_TRUE(CaptionHolds(session, "tcache.preview.lblPreview", "gmine, image 1 of 8: 256 x 256"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "import_fighter"));
}

TEST(ImportPanel, BitmapIsShownOnceItsPathIsTyped) {
  const PanelSession session;
  EXPECT_TRUE(Control(session, panelPicture)["picture"].is_null());
  ASSERT_TRUE(Named(session, "colour.bmp", "mine"));
  ASSERT_TRUE(InfoIs(session, {"x Dim: 64", "y Dim: 32", "Depth: 3 bit", "Blocks: 1"}));
  const Json place = Control(session, panelPicture)["picture"];
  ASSERT_FALSE(place.is_null());
  EXPECT_NEAR(place["width"].get<int>(), 2 * place["height"].get<int>(), 1);
  ClickOn(session, "imports.preview.chkFitted");
  EXPECT_TRUE(Eventually([&] { return Control(session, panelPicture)["picture"]["width"] == 64; }));
  ASSERT_TRUE(Named(session, "none.bmp", "mine"));
  EXPECT_TRUE(Becomes(session, panelPicture, "picture", nullptr));
  EXPECT_EQ(Layout(session)["boxes"], 0);
}

TEST(ImportPanel, MissingNameIsAskedForWhereItIsTyped) {
  const PanelSession session;
  ASSERT_TRUE(Named(session, "palette.bmp", ""));
  ClickOn(session, "imports.cmdImportTexture");
  ASSERT_TRUE(BoxCame(session, "Enter name for texture"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FocusIs(session, "imports.txtImportTextureName"));
  TypeText(session.desktop, "mine");
  PressKey(session.desktop, "Tab");
  ASSERT_TRUE(FocusIs(session, "imports.txtImportTexturePath"));
  ClickOn(session, "imports.cmdImportTexture");
  ASSERT_TRUE(BoxCame(session, "Textured imported successfully!"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_TRUE(FocusIs(session, "imports.cmdImportTexture")) << "the name's box takes the keyboard once";
  EXPECT_EQ(session.Textures(), factoryTextures + 1);
}

TEST(ImportPanel, NameWithALetterOutsideTheCodePageIsRefusedWhereItIsTyped) {
  if (WindowsPrograms()) GTEST_SKIP() << "Wine may not know the key of a second layout";
  const PanelSession session;
  AddRussianLetters(session.desktop);
  ASSERT_TRUE(Named(session, "palette.bmp", "m\xD0\x96ne"));
  ClickOn(session, "imports.cmdImportTexture");
  ASSERT_TRUE(BoxCame(session, "The name 'm?ne' cannot be used."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_TRUE(FocusIs(session, "imports.txtImportTextureName"));
  EXPECT_TRUE(ReadFileAt(session.cache) == session.before);
}

TEST(ImportPanel, RefusalsChangeNothing) {
  const PanelSession session;
  ASSERT_TRUE(Named(session, "none.bmp", "mine"));
  ClickOn(session, "imports.cmdImportTexture");
  ASSERT_TRUE(BoxCame(session, "Import texture not found."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(Named(session, "palette.bmp", "COCKPIT01"));
  ClickOn(session, "imports.cmdImportTexture");
  ASSERT_TRUE(BoxCame(session, "A texture with the name of 'COCKPIT01' already exists.\nUnable to import."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_TRUE(ReadFileAt(session.cache) == session.before);
}

TEST(ImportPanel, SmallWindowHasRoomForIt) {
  const PanelSession session;
  ResizeWindow(session.desktop, session.frame, 900, 560);
  ASSERT_TRUE(Eventually([&] { return Layout(session)["client"]["width"] == 900; }));
  ASSERT_TRUE(Named(session, "palette.bmp", "mine"));
  ASSERT_TRUE(InfoIs(session, {"x Dim: 64", "y Dim: 64", "Depth: 1 bit", "Blocks: 1"}));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "import_small"));
  EXPECT_GT(Control(session, panelPicture)["picture"]["height"], 150);
}

}  // namespace oravin::test
