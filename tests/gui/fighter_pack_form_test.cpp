#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>

#include "import_session.h"

/// The form in which the ships to import are chosen.
namespace oravin::test {

namespace {

constexpr const char* picture = "Fighter_PACK.preview.picture";
/// Longer than the time in which two clicks are a double click.
constexpr std::chrono::milliseconds notTwoOfOne(700);
constexpr int onName = 40;  // pixels behind the check box
constexpr const char* skipped = "Importing Completed - but there where errors on some ships";

/// A pack of many ships that share a model.
void WriteLargePack(const ImportSession& session, int ships) {
  const std::filesystem::path folder = session.sample.program / "packs" / "raiders";
  std::string pack = "\"Many\"\r\n";
  for (int i = 0; i < ships; ++i) {
    const std::string name = "many" + std::to_string(i);
    std::filesystem::copy_file(folder / "locust.shp", folder / (name + ".shp"));
    pack.append("\"\\").append(name).append(".shp\",\"").append(name).append("\",\"\"\r\n");
  }
  WriteFileAt(folder / "many.pak", pack);
}

/// A window's height in pixels.
int HeightOf(const Session& session, const std::string& window) {
  const std::string geometry =
      PrintedBy({"xdotool", "getwindowgeometry", "--shell", window}, session.desktop.variables);
  const std::string name = "HEIGHT=";
  const std::size_t at = geometry.find(name);
  return at == std::string::npos ? 0 : std::stoi(geometry.substr(at + name.size()));
}

/// A hash of what the screen shows, after taking a picture of it.
std::string PixelsOnScreen(const Session& session, const std::string& name) {
  if (!SaveScreenshot(session.desktop, name)) return {};
  return PrintedBy({"identify", "-format", "%#", ScreenshotPath(name)}, session.desktop.variables);
}

}  // namespace

TEST(FighterPackForm, ShipsAreCheckedByMouseAndKeyboard) {
  const ImportSession session;
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/raiders.pak")));
  EXPECT_TRUE(FocusIs(session, packList));
  Click(session.desktop, BoxOf(session, packList, "Locust"));
  ASSERT_TRUE(RowBecomes(session, packList, "Locust", "checked", false));
  std::this_thread::sleep_for(notTwoOfOne);
  Click(session.desktop, BoxOf(session, packList, "Locust"));
  ASSERT_TRUE(RowBecomes(session, packList, "Locust", "checked", true));
  ASSERT_TRUE(SelectRow(session, packList, "PREDATOR"));
  PressKey(session.desktop, "space");
  ASSERT_TRUE(RowBecomes(session, packList, "PREDATOR", "checked", false));
  EXPECT_TRUE(CaptionHolds(session, "Fighter_PACK.lblPack", "2 of 3 will be imported"));
  PressKey(session.desktop, "Up");
  PressKey(session.desktop, "space");
  ASSERT_TRUE(RowBecomes(session, packList, "Hornet Queen", "checked", false));

  PressKey(session.desktop, "alt+n");
  ASSERT_TRUE(RowBecomes(session, packList, "Locust", "checked", false));
  EXPECT_TRUE(Becomes(session, "Fighter_PACK.cmdImportShips", "enabled", false));
  PressKey(session.desktop, "alt+a");
  ASSERT_TRUE(RowBecomes(session, packList, "PREDATOR", "checked", true));
  EXPECT_TRUE(CaptionHolds(session, "Fighter_PACK.lblPack", "Rename or uncheck them"));
  PressKey(session.desktop, "Escape");
  EXPECT_TRUE(FormIs(session, ""));
  EXPECT_EQ(Layout(session)["boxes"], 2) << "those of Enable";
}

TEST(FighterPackForm, AClickOnTheBoxOfTheSelectedShipDoesNotEditItsName) {
  const ImportSession session;
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/raiders.pak")));
  ASSERT_TRUE(RowBecomes(session, packList, "Locust", "selected", true)) << "the first ship";
  Click(session.desktop, BoxOf(session, packList, "Locust"));
  ASSERT_TRUE(RowBecomes(session, packList, "Locust", "checked", false));
  std::this_thread::sleep_for(notTwoOfOne);
  EXPECT_EQ(Layout(session)["focus"], packList);
  PressKey(session.desktop, "F2");
  EXPECT_TRUE(FocusIs(session, "text")) << "by the key it is edited";
  PressKey(session.desktop, "Escape");
  EXPECT_TRUE(FocusIs(session, packList));
  PressKey(session.desktop, "Escape");
  EXPECT_TRUE(FormIs(session, ""));
}

TEST(FighterPackForm, ANameThatIsClickedAndThenEditedByF2KeepsWhatIsTyped) {
  const ImportSession session;
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/raiders.pak")));
  ASSERT_TRUE(SelectRow(session, packList, "PREDATOR"));
  ASSERT_TRUE(SelectRow(session, packList, "Locust"));
  std::this_thread::sleep_for(notTwoOfOne);
  const Point box = BoxOf(session, packList, "Locust");
  Click(session.desktop, {box.x + onName, box.y});
  PressKey(session.desktop, "F2");
  ASSERT_TRUE(FocusIs(session, "text"));
  PressKey(session.desktop, "ctrl+a");
  TypeText(session.desktop, "Was");
  std::this_thread::sleep_for(notTwoOfOne);  // the second click on the name would have it edited now
  TypeText(session.desktop, "p");
  PressKey(session.desktop, "Return");
  EXPECT_TRUE(RowBecomes(session, packList, "Wasp", "selected", true));
}

TEST(FighterPackForm, TexturesOfTheSelectedShipAreShown) {
  const ImportSession session;
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/raiders.pak")));
  EXPECT_TRUE(RowBecomes(session, packList, "Locust", "selected", true)) << "the first ship";
  ASSERT_TRUE(RowsBecome(session, textureList, {"locust1", "locust2"}));
  EXPECT_EQ(RowOf(session, textureList, "locust2")["texts"], Json({"locust2", "no", "found", "256 x 256", "8 bit"}));
  EXPECT_TRUE(Eventually([&] { return !Control(session, picture)["picture"].is_null(); }));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "fighter_pack"));
  ASSERT_TRUE(SelectRow(session, packList, "PREDATOR"));
  EXPECT_TRUE(RowsBecome(session, textureList, {"raptor1"}));
}

TEST(FighterPackForm, ShipWithoutItsTextureIsSkipped) {
  const ImportSession session;
  const FolderImage game = ImageOf(session.sample.game);
  ASSERT_TRUE(ImportOpened(session, session.Pack("sentinels/dragonfly.shp")));
  ClickOn(session, "Fighter_PACK.cmdImportShips");
  ASSERT_TRUE(Eventually([&] { return ActiveWindowTitle(session.desktop) == "Find texture file"; }));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(BoxCame(session, "Texture not found - skipping ship!"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(BoxCame(session, skipped));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, ""));
  EXPECT_TRUE(RowsBecome(session, importedList, {"Manta", "Wraithwing", "Colossus Carrier"}));
  EXPECT_TRUE(ImageOf(session.sample.game) == game);
}

TEST(FighterPackForm, MissingTextureIsGivenBeforeTheImport) {
  const ImportSession session;
  ASSERT_TRUE(ImportOpened(session, session.Pack("sentinels/sentinels.pak")));
  ASSERT_TRUE(SelectRow(session, packList, "Dragonfly"));
  ASSERT_TRUE(RowsBecome(session, textureList, {"dragon1", "dragon2"}));
  EXPECT_EQ(RowOf(session, textureList, "dragon2")["texts"][2], "not found");
  ASSERT_TRUE(SelectRow(session, textureList, "dragon2"));
  ASSERT_TRUE(CaptionHolds(session, "Fighter_PACK.preview.lblPreview", "no bitmap was found"));
  ClickOn(session, "Fighter_PACK.cmdFindBitmap");
  ChooseInDialog(session, (session.sample.program / "packs" / "sentinels" / "dragon1.bmp").string());
  ASSERT_TRUE(FormIs(session, importForm));
  const std::string given = "given: " + session.Pack("sentinels/dragon1.bmp");
  EXPECT_TRUE(RowBecomes(session, textureList, "dragon2", "texts", {"dragon2", "no", given, "256 x 256", "8 bit"}));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "fighter_pack_given"));
  ASSERT_TRUE(ShipsImported(session, {{"Importing Successfull!", "Return"}}));
  EXPECT_TRUE(
      RowsBecome(session, importedList, {"Manta", "Wraithwing", "Colossus Carrier", "Sentinel Monitor", "Dragonfly"}));
}

TEST(FighterPackForm, LongImportTellsHowFarItIs) {
  const ImportSession session;
  WriteLargePack(session, 120);
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/many.pak")));
  const int paintings = Layout(session)["progressPaintings"];
  ClickOn(session, "Fighter_PACK.cmdImportShips");
  ASSERT_TRUE(BoxCame(session, "Importing Successfull!"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "fighter_pack_many"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, ""));
  EXPECT_GT(Layout(session)["progressPaintings"], paintings);
  EXPECT_EQ(Layout(session)["status"], "");
  EXPECT_EQ(Control(session, importedList)["rowCount"], 123);
}

TEST(FighterPackForm, ALongResultIsListedWholeAndCanBeScrolled) {
  const ImportSession session;
  std::string pack = "\"Many\"\r\n";
  for (int i = 1; i <= 60; ++i) pack += "\"\\locust.shp\",\"many" + std::to_string(i) + "\",\"\"\r\n";
  WriteFileAt(session.sample.program / "packs" / "raiders" / "many.pak", pack);
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/many.pak")));
  ClickOn(session, "Fighter_PACK.cmdImportShips");
  ASSERT_TRUE(BoxCame(session, "Importing Successfull!"));
  const std::string text = Layout(session)["box"]["text"];
  for (int i = 2; i <= 60; ++i) {
    const std::string file = "locust" + std::to_string(i) + ".shp.";
    EXPECT_NE(text.find("The model locust.shp was imported as " + file), std::string::npos) << file;
  }
  // The message is known before its window has come up.
  ASSERT_TRUE(Eventually([&] { return ActiveWindowTitle(session.desktop) == "Oravin"; }));
  EXPECT_LT(HeightOf(session, ActiveWindow(session.desktop)), 600);
  std::string top;  // painted whole when two pictures in a row are equal
  ASSERT_TRUE(Eventually([&] {
    const std::string before = std::exchange(top, PixelsOnScreen(session, "long_result"));
    return before == top;
  }));
  PressKey(session.desktop, "Next");
  EXPECT_TRUE(Eventually([&] { return PixelsOnScreen(session, "long_result_scrolled") != top; }));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, ""));
  EXPECT_EQ(Control(session, importedList)["rowCount"], 63);
}

TEST(FighterPackForm, EscapeStopsALongImport) {
  const ImportSession session;
  WriteLargePack(session, 120);
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/many.pak")));
  ClickOn(session, "Fighter_PACK.cmdImportShips");
  ASSERT_TRUE(Eventually(
      [&] { return Layout(session)["status"].get<std::string>().rfind("Esc stops this.  Importing many", 0) == 0; }));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(BoxCame(session, skipped));
  EXPECT_NE(Layout(session)["box"]["text"].get<std::string>().find("The import was stopped before its end."),
            std::string::npos);
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, ""));
  EXPECT_GT(Control(session, importedList)["rowCount"], 3);
  EXPECT_LT(Control(session, importedList)["rowCount"], 123);
}

TEST(FighterPackForm, SmallestFormHasRoomForIt) {
  const ImportSession session;
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/raiders.pak")));
  ASSERT_TRUE(SelectRow(session, packList, "Locust"));
  ResizeWindow(session.desktop, ActiveWindow(session.desktop), 100, 100);
  ASSERT_TRUE(Eventually([&] { return Layout(session)["formClient"]["width"] < 760; }));
  const Json layout = Layout(session);
  const Json& client = layout["formClient"];
  for (const Json& control : layout["controls"]) {
    if (control["name"].get<std::string>().rfind("Fighter_PACK.", 0) != 0) continue;
    const Json& rectangle = control["rectangle"];
    EXPECT_GE(rectangle["x"], client["x"]) << control.dump();
    EXPECT_LE(rectangle["x"].get<int>() + rectangle["width"].get<int>(),
              client["x"].get<int>() + client["width"].get<int>())
        << control.dump();
    EXPECT_LE(rectangle["y"].get<int>() + rectangle["height"].get<int>(),
              client["y"].get<int>() + client["height"].get<int>())
        << control.dump();
  }
  EXPECT_GT(Control(session, picture)["picture"]["height"], 100);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "fighter_pack_small"));
}

}  // namespace oravin::test
