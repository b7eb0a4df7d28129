#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "program_under_test.h"
#include "session.h"

/// What is done with the texture cache on its page, by clicks and keys.
namespace oravin::test {

namespace {

constexpr const char* textures = "tcache.lstTcache";
constexpr const char* thumbnails = "tcache.thumbnails";
constexpr const char* preview = "tcache.preview.picture";
constexpr const char* what = "tcache.preview.lblPreview";

enum TcacheColumn : std::size_t { tcacheNameColumn, tcacheSizeColumn, tcacheDepthColumn, tcacheImagesColumn };

struct TcacheSession : Session {
  TcacheSession() : cache(sample.game / "tcachehw.dat"), before(ReadFileAt(cache)) {
    MakeFolderAt(folder.Native("out"));
    if (!ChooseTab(*this, "Tcache Editor")) throw std::runtime_error("no tab");
    ClickOn(*this, "tcache.cmdOpenTcache");
    if (!CaptionHolds(*this, "tcache.lblTcacheStructs", "426 texture(s)")) throw std::runtime_error("not opened");
  }

  [[nodiscard]] Bytes Now() const { return ReadFileAt(cache); }

  std::filesystem::path cache;
  Bytes before;
};

/// The name in a slot of the cache.
std::string NameInSlot(const Bytes& cache, std::size_t slot) {
  constexpr std::size_t firstSlot = 12;
  constexpr std::size_t slotSize = 240;
  constexpr std::size_t nameInSlot = 72;
  std::string name;
  for (std::size_t at = firstSlot + slot * slotSize + nameInSlot; cache[at] != 0; ++at) {
    name += static_cast<char>(cache[at]);
  }
  return name;
}

testing::AssertionResult NameIsOpen(const Session& session) {
  Json focus;
  if (Eventually([&] { return (focus = Layout(session)["focus"]) == "text"; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the keyboard is in " << focus;
}

/// Writes another name over the one that is being edited, and ends with a key.
void WriteName(const Session& session, const std::string& name, const std::string& key) {
  PressKey(session.desktop, "ctrl+a");
  TypeText(session.desktop, name);
  PressKey(session.desktop, key);
}

std::vector<std::string> SelectedNames(const Session& session, const std::string& control) {
  std::vector<std::string> names;
  const Json rows = Control(session, control)["rows"];
  for (const Json& row : rows) {
    if (row["selected"] == true) names.push_back(row["texts"][0]);
  }
  return names;
}

testing::AssertionResult SelectedBecome(const Session& session, const std::string& control,
                                        const std::vector<std::string>& names) {
  if (Eventually([&] { return SelectedNames(session, control) == names; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "selected are " << Json(SelectedNames(session, control)).dump();
}

testing::AssertionResult Extracted(const TcacheSession& session) {
  if (const auto typed = TypeInto(session, "tcache.txtTcacheDestination", session.folder.Windows("out")); !typed) {
    return typed;
  }
  ClickOn(session, "tcache.cmdExtractTcache");
  if (const auto came = BoxCame(session, "Extraction complete"); !came) return came;
  return AnswerBox(session, "Return");
}

testing::AssertionResult ThumbnailsShown(const Session& session) {
  ClickOn(session, "tcache.chkThumbnails");
  if (const auto shown = Becomes(session, thumbnails, "shown", true); !shown) return shown;
  return Becomes(session, thumbnails, "pictures", 426);
}

Point ThumbnailOf(const Session& session, const std::string& name) {
  return MiddleOf(RowOf(session, thumbnails, name)["rectangle"]);
}

/// A copy of an extracted bitmap that states its own length. What is extracted states its template's, which image
/// programs refuse or warn about.
std::string WithOwnLength(const TcacheSession& session, const std::string& bitmap) {
  Bytes bytes = ReadFileAt(session.folder.Native("out/" + bitmap));
  if (bytes.size() < 6) return {};
  for (std::size_t i = 0; i < 4; ++i) bytes[2 + i] = static_cast<std::uint8_t>(bytes.size() >> (8 * i));
  const auto copy = session.folder.Native("with_own_length.bmp");
  WriteFileAt(copy, bytes);
  return copy.string();
}

/// How many pixels of the preview differ from those that an image program shows of a bitmap.
std::string DifferentPixels(const TcacheSession& session, const std::string& screenshot, const std::string& bitmap) {
  const Json place = Control(session, preview)["picture"];
  const auto number = [&](const char* name) { return std::to_string(place[name].get<int>()); };
  const std::string shot = ScreenshotPath(screenshot);
  const std::string cut = session.folder.Native("cut.png").string();
  const std::string crop = number("width") + "x" + number("height") + "+" + number("x") + "+" + number("y");
  return PrintedBy({"sh", "-c",
                    "convert '" + shot + "' -crop " + crop + " +repage '" + cut + "' && compare -metric AE '" + cut +
                        "' '" + WithOwnLength(session, bitmap) + "' null: 2>&1"},
                   session.desktop.variables);
}

}  // namespace

TEST(TcachePage, ButtonsFollowWhetherACacheIsOpen) {
  const TcacheSession session;
  const std::array<const char*, 4> needOpen = {"tcache.cmdCloseTcache", "tcache.cmdExtractTcache",
                                               "tcache.cmdSelectAllTcache", "tcache.cmdSelectNoneTcache"};
  for (const char* control : needOpen) EXPECT_EQ(Control(session, control)["enabled"], true) << control;
  EXPECT_EQ(Control(session, "tcache.cmdOpenTcache")["enabled"], false);
  EXPECT_EQ(Control(session, textures)["rowCount"], 426);
  const Json first = Control(session, textures)["rows"][0]["texts"];
  EXPECT_EQ(first, Json({"cockpit01", "128 x 128", "8-bit", "7 images"}));
  EXPECT_TRUE(CaptionHolds(session, "tcache.lblTcacheSize", " byte(s)"));
  EXPECT_TRUE(CaptionHolds(session, "tcache.lblTcachePath", "\\StarLancer\\tcachehw.dat"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tcache_open"));
  ClickOn(session, "tcache.cmdCloseTcache");
  ASSERT_TRUE(Becomes(session, textures, "rowCount", 0));
  for (const char* control : needOpen) EXPECT_EQ(Control(session, control)["enabled"], false) << control;
  EXPECT_EQ(Control(session, "tcache.lblTcacheStructs")["caption"], "");
  PressKey(session.desktop, "alt+f");
  ASSERT_TRUE(FocusIs(session, "tcache.txtTcacheSource"));
  PressKey(session.desktop, "Return");
  EXPECT_TRUE(Becomes(session, textures, "rowCount", 426)) << "Enter in the path's box opens the cache";
}

TEST(TcachePage, PreviewStepsThroughTheImages) {
  const TcacheSession session;
  EXPECT_TRUE(Control(session, preview)["picture"].is_null());
  ASSERT_TRUE(SelectRow(session, textures, "gcockpit02"));
  ASSERT_TRUE(CaptionHolds(session, what, "gcockpit02, image 1 of 7: 128 x 128"));
  EXPECT_EQ(Control(session, "tcache.preview.cmdLargerImage")["enabled"], false);
  ClickOn(session, "tcache.preview.cmdSmallerImage");
  ASSERT_TRUE(CaptionHolds(session, what, "image 2 of 7: 64 x 64"));
  ClickOn(session, "tcache.preview.cmdSmallerImage");
  ASSERT_TRUE(CaptionHolds(session, what, "image 3 of 7: 32 x 32"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tcache_smaller"));
  ClickOn(session, "tcache.preview.cmdLargerImage");
  ASSERT_TRUE(CaptionHolds(session, what, "image 2 of 7: 64 x 64"));
  ASSERT_TRUE(SelectRow(session, textures, "squad01"));
  EXPECT_TRUE(CaptionHolds(session, what, "squad01, image 1 of 1: 64 x 64"));
  EXPECT_EQ(Control(session, "tcache.preview.cmdSmallerImage")["enabled"], false);
}

TEST(TcachePage, PreviewIsFittedOrPixelByPixel) {
  const TcacheSession session;
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  ASSERT_TRUE(CaptionHolds(session, what, "cockpit01"));
  const Json pane = Control(session, preview)["rectangle"];
  const Json fitted = Control(session, preview)["picture"];
  EXPECT_EQ(fitted["width"], std::min(pane["width"], pane["height"]));
  EXPECT_EQ(fitted["width"], fitted["height"]);
  ClickOn(session, "tcache.preview.chkFitted");
  ASSERT_TRUE(Eventually([&] { return Control(session, preview)["picture"]["width"] == 128; }));
  EXPECT_EQ(Control(session, preview)["picture"]["height"], 128);
  ResizeWindow(session.desktop, session.frame, 1200, 900);
  ASSERT_TRUE(Eventually([&] { return Control(session, preview)["rectangle"] != pane; }));
  EXPECT_EQ(Control(session, preview)["picture"]["width"], 128);
  ClickOn(session, "tcache.preview.chkFitted");
  EXPECT_TRUE(Eventually([&] {
    const Json control = Control(session, preview);
    return control["picture"]["width"] == std::min(control["rectangle"]["width"], control["rectangle"]["height"]);
  }));
}

TEST(TcachePage, PreviewShowsWhatAnImageProgramShowsOfTheExtractedBitmap) {
  const TcacheSession session;
  ClickOn(session, "tcache.preview.chkFitted");
  for (const char* name : {"cockpit03", "gcockpit03"}) {
    ASSERT_TRUE(SelectRow(session, textures, name));
    ASSERT_TRUE(CaptionHolds(session, what, std::string(name) + ", "));
    ASSERT_TRUE(Extracted(session));
    ASSERT_TRUE(SaveScreenshot(session.desktop, "tcache_one_to_one"));
    EXPECT_EQ(DifferentPixels(session, "tcache_one_to_one", std::string(name) + ".bmp"), "0") << name;
  }
  ClickHeading(session, textures, tcacheDepthColumn);
  ASSERT_TRUE(Eventually([&] { return Control(session, textures)["rows"][0]["texts"][2] == "16-bit"; }));
  const std::string name = Control(session, textures)["rows"][0]["texts"][0];
  ASSERT_TRUE(SelectRow(session, textures, name));
  ASSERT_TRUE(CaptionHolds(session, what, name + ", "));
  ASSERT_TRUE(Extracted(session));
  ASSERT_TRUE(SaveScreenshot(session.desktop, "tcache_one_to_one_16"));
  EXPECT_EQ(DifferentPixels(session, "tcache_one_to_one_16", name + ".bmp"), "0");
}

TEST(TcachePage, HeadingsSortAndTheRowsKeepTheirTextures) {
  const TcacheSession session;
  ClickHeading(session, textures, tcacheImagesColumn);
  ASSERT_TRUE(Becomes(session, textures, "sorted", {{"column", 3}, {"descending", false}}));
  const Json rows = Control(session, textures)["rows"];
  ASSERT_EQ(rows[0]["texts"][3], "1 images");
  const std::string first = rows[0]["texts"][0];
  ASSERT_TRUE(SelectRow(session, textures, first));
  ASSERT_TRUE(Extracted(session));
  EXPECT_TRUE(std::filesystem::exists(session.folder.Native("out/" + first + ".bmp")));
  EXPECT_EQ(ImageOf(session.folder.Native("out")).size(), 1U);
}

TEST(TcachePage, TwoSelectedTexturesAreExtracted) {
  const TcacheSession session;
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  ClickHolding(session.desktop, MiddleOf(RowOf(session, textures, "cockpit02")["rectangle"]), "ctrl");
  ASSERT_TRUE(SelectedBecome(session, textures, {"cockpit01", "cockpit02"}));
  ASSERT_TRUE(Extracted(session));
  const auto files = ImageOf(session.folder.Native("out"));
  EXPECT_EQ(files.size(), 2U);
  for (const char* name : {"cockpit01.bmp", "cockpit02.bmp"}) {
    EXPECT_EQ(PrintedBy({"identify", "-format", "%w %h", WithOwnLength(session, name)}, {}), "128 128");
  }
  EXPECT_TRUE(CaptionHolds(session, "tcache.lblTcacheStructs", "426 texture(s)"));
}

TEST(TcachePage, NameIsEditedInItsPlace) {
  const TcacheSession session;
  ASSERT_TRUE(SelectRow(session, textures, "gcockpit01"));
  PressKey(session.desktop, "F2");
  ASSERT_TRUE(NameIsOpen(session));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tcache_rename"));
  WriteName(session, "another", "Return");
  ASSERT_TRUE(Eventually([&] { return !RowOf(session, textures, "another").is_null(); }));
  ASSERT_TRUE(Becomes(session, textures, "rowCount", 426));
  EXPECT_EQ(NameInSlot(session.Now(), 1), "another");
  EXPECT_EQ(RowOf(session, textures, "another")["selected"], true);
  EXPECT_TRUE(FocusIs(session, textures));
}

TEST(TcachePage, NameThatIsTakenGoesBack) {
  const TcacheSession session;
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  PressKey(session.desktop, "F2");
  ASSERT_TRUE(NameIsOpen(session));
  WriteName(session, "SQUAD01", "Return");
  ASSERT_TRUE(BoxCame(session, "Name already exists"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_FALSE(RowOf(session, textures, "cockpit01").is_null());
  EXPECT_TRUE(RowOf(session, textures, "SQUAD01").is_null());
  EXPECT_TRUE(session.Now() == session.before);
}

TEST(TcachePage, NameWithALetterOutsideTheCodePageGoesBack) {
  if (WindowsPrograms()) GTEST_SKIP() << "Wine may not know the key of a second layout";
  const TcacheSession session;
  AddRussianLetters(session.desktop);
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  PressKey(session.desktop, "F2");
  ASSERT_TRUE(NameIsOpen(session));
  WriteName(session, "sq\xD0\x96kpit", "Return");
  ASSERT_TRUE(BoxCame(session, "The name 'sq?kpit' cannot be used."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_FALSE(RowOf(session, textures, "cockpit01").is_null());
  EXPECT_TRUE(session.Now() == session.before);
}

TEST(TcachePage, EscapeAndAnUnchangedNameWriteNothing) {
  const TcacheSession session;
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  PressKey(session.desktop, "F2");
  ASSERT_TRUE(NameIsOpen(session));
  WriteName(session, "other", "Escape");
  PressKey(session.desktop, "F2");
  ASSERT_TRUE(NameIsOpen(session));
  PressKey(session.desktop, "Return");
  PressKey(session.desktop, "Down");
  ASSERT_TRUE(SelectedBecome(session, textures, {"gcockpit01"}));
  EXPECT_EQ(Layout(session)["boxes"], 0);
  EXPECT_FALSE(RowOf(session, textures, "cockpit01").is_null());
  EXPECT_TRUE(session.Now() == session.before);
}

TEST(TcachePage, SecondClickOnANameEditsIt) {
  const TcacheSession session;
  const Json row = RowOf(session, textures, "cockpit02")["rectangle"];
  const Point name{row["x"].get<int>() + 20, MiddleOf(row).y};
  Click(session.desktop, name);
  ASSERT_TRUE(SelectedBecome(session, textures, {"cockpit02"}));
  ASSERT_TRUE(CaptionHolds(session, what, "cockpit02"));
  std::this_thread::sleep_for(std::chrono::seconds(1));  // two quick clicks are a double click
  Click(session.desktop, name);
  ASSERT_TRUE(NameIsOpen(session));
  WriteName(session, "clicked", "Return");
  ASSERT_TRUE(Eventually([&] { return !RowOf(session, textures, "clicked").is_null(); }));
  EXPECT_EQ(NameInSlot(session.Now(), 2), "clicked");
}

TEST(TcachePage, AllAreSelectedByKey) {
  const TcacheSession session;
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  PressKey(session.desktop, "ctrl+a");
  ASSERT_TRUE(
      Eventually([&] { return SelectedNames(session, textures).size() == Control(session, textures)["rows"].size(); }));
  ClickOn(session, "tcache.cmdSelectNoneTcache");
  ASSERT_TRUE(SelectedBecome(session, textures, {}));
  EXPECT_TRUE(Becomes(session, preview, "picture", nullptr));
}

TEST(TcachePage, EnterAndDoubleClickOpenTheTextureInThePaintProgram) {
  const TcacheSession session;
  const std::filesystem::path called = session.folder.Native("called");
  const std::filesystem::path paint = session.folder.Native("bin/xdg-open");
  const std::filesystem::path bitmap = session.sample.program / "temp.bmp";
  WriteFileAt(paint, "#!/bin/sh\nprintf '[%s]' \"$@\" >> '" + called.string() + "'\n");
  permissions(paint, std::filesystem::perms::owner_all);
  const std::string call = "[" + bitmap.string() + "]";
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  PressKey(session.desktop, "Return");
  ASSERT_TRUE(Eventually([&] { return std::filesystem::exists(called) && ReadTextAt(called) == call; }));
  const Bytes first = ReadFileAt(bitmap);
  Click(session.desktop, MiddleOf(RowOf(session, textures, "cockpit02")["rectangle"]), 2);
  ASSERT_TRUE(Eventually([&] { return ReadTextAt(called) == call + call; }));
  const Bytes second = ReadFileAt(bitmap);
  EXPECT_FALSE(first == second);
  ASSERT_TRUE(ThumbnailsShown(session));
  Click(session.desktop, ThumbnailOf(session, "cockpit01"), 2);
  ASSERT_TRUE(Eventually([&] { return ReadTextAt(called) == call + call + call; }));
  EXPECT_TRUE(ReadFileAt(bitmap) == first);
  PressKey(session.desktop, "Return");
  ASSERT_TRUE(Eventually([&] { return ReadTextAt(called) == call + call + call + call; }));
  EXPECT_EQ(Layout(session)["boxes"], 0);
}

TEST(TcachePage, RestoreAsksFirst) {
  const TcacheSession session;
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  PressKey(session.desktop, "F2");
  ASSERT_TRUE(NameIsOpen(session));
  WriteName(session, "renamed", "Return");
  ASSERT_TRUE(Eventually([&] { return !RowOf(session, textures, "renamed").is_null(); }));
  const Bytes renamed = session.Now();
  ClickOn(session, "tcache.cmdRestoreTCACHE");
  ASSERT_TRUE(BoxCame(session, "Are you sure that you want to do this?"));
  ASSERT_TRUE(AnswerBox(session, "alt+n"));
  EXPECT_TRUE(session.Now() == renamed);
  ClickOn(session, "tcache.cmdRestoreTCACHE");
  ASSERT_TRUE(BoxCame(session, "Are you sure that you want to do this?"));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "TCACHE Restoration complete"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
}

TEST(TcachePage, ChangedCacheIsToldAndOpenedAgain) {
  const TcacheSession session;
  EXPECT_EQ(Control(session, "tcache.lblTcacheStatus")["shown"], false);
  ASSERT_TRUE(ChooseTab(session, "About"));
  constexpr std::uint64_t nameOfFirst = 12 + 72;
  PatchFileAt(session.cache, nameOfFirst, {'p', 'a', 't', 'c', 'h'});
  ASSERT_TRUE(ChooseTab(session, "Tcache Editor"));
  ASSERT_TRUE(Becomes(session, "tcache.lblTcacheStatus", "shown", true));
  EXPECT_TRUE(CaptionHolds(session, "tcache.lblTcacheStatus", "changed on disk"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tcache_changed"));
  ClickOn(session, "tcache.cmdReopenTcache");
  ASSERT_TRUE(Becomes(session, "tcache.lblTcacheStatus", "shown", false));
  EXPECT_FALSE(RowOf(session, textures, "patchit01").is_null());
}

TEST(TcachePage, ThumbnailsAreShownAndSelectedByMouse) {
  const TcacheSession session;
  ASSERT_TRUE(ThumbnailsShown(session));
  EXPECT_EQ(Control(session, textures)["shown"], false);
  Click(session.desktop, ThumbnailOf(session, "gcockpit01"));
  ASSERT_TRUE(SelectedBecome(session, thumbnails, {"gcockpit01"}));
  EXPECT_TRUE(CaptionHolds(session, what, "gcockpit01, image 1 of 7"));
  ClickHolding(session.desktop, ThumbnailOf(session, "gcockpit02"), "shift");
  ASSERT_TRUE(SelectedBecome(session, thumbnails, {"gcockpit01", "cockpit02", "gcockpit02"}));
  ClickHolding(session.desktop, ThumbnailOf(session, "cockpit02"), "ctrl");
  ASSERT_TRUE(SelectedBecome(session, thumbnails, {"gcockpit01", "gcockpit02"}));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tcache_thumbnails"));
  ClickOn(session, "tcache.chkThumbnails");
  ASSERT_TRUE(Becomes(session, textures, "shown", true));
  EXPECT_TRUE(SelectedBecome(session, textures, {"gcockpit01", "gcockpit02"}));
  ASSERT_TRUE(Extracted(session));
  EXPECT_EQ(ImageOf(session.folder.Native("out")).size(), 2U);
}

TEST(TcachePage, ThumbnailsAreWalkedByKeyboard) {
  const TcacheSession session;
  ASSERT_TRUE(SelectRow(session, textures, "cockpit01"));
  ASSERT_TRUE(ThumbnailsShown(session));
  EXPECT_TRUE(SelectedBecome(session, thumbnails, {"cockpit01"}));
  PressKey(session.desktop, "Tab");
  PressKey(session.desktop, "Tab");
  PressKey(session.desktop, "Tab");
  ASSERT_TRUE(FocusIs(session, thumbnails)) << Layout(session)["focus"];
  PressKey(session.desktop, "Right");
  ASSERT_TRUE(SelectedBecome(session, thumbnails, {"gcockpit01"}));
  PressKey(session.desktop, "shift+Right");
  ASSERT_TRUE(SelectedBecome(session, thumbnails, {"gcockpit01", "cockpit02"}));
  PressKey(session.desktop, "Home");
  ASSERT_TRUE(SelectedBecome(session, thumbnails, {"cockpit01"}));
  const Json rows = Control(session, thumbnails)["rows"];
  const auto below = std::find_if(rows.begin(), rows.end(),
                                  [&](const Json& row) { return row["rectangle"]["y"] != rows[0]["rectangle"]["y"]; });
  ASSERT_NE(below, rows.end());
  PressKey(session.desktop, "Down");
  ASSERT_TRUE(SelectedBecome(session, thumbnails, {(*below)["texts"][0]}));
  PressKey(session.desktop, "End");
  ASSERT_TRUE(Eventually([&] {
    const Json now = Control(session, thumbnails)["rows"];
    return !now.empty() && now.back()["row"] == 425 && now.back()["selected"] == true;
  }));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tcache_thumbnails_end"));
  PressKey(session.desktop, "ctrl+a");
  ASSERT_TRUE(Eventually(
      [&] { return SelectedNames(session, thumbnails).size() == Control(session, thumbnails)["rows"].size(); }));
}

TEST(TcachePage, ThumbnailsFollowTheOrderAndTheCache) {
  const TcacheSession session;
  ClickHeading(session, textures, tcacheNameColumn);
  ASSERT_TRUE(Becomes(session, textures, "sorted", {{"column", 0}, {"descending", false}}));
  const std::string first = Control(session, textures)["rows"][0]["texts"][0];
  ASSERT_TRUE(ThumbnailsShown(session));
  EXPECT_EQ(Control(session, thumbnails)["rows"][0]["texts"][0], first);
  ClickOn(session, "tcache.cmdCloseTcache");
  ASSERT_TRUE(Becomes(session, thumbnails, "pictures", 0));
  EXPECT_EQ(Control(session, thumbnails)["rowCount"], 0);
}

TEST(TcachePage, SmallWindowKeepsEverythingInPlace) {
  const TcacheSession session;
  ResizeWindow(session.desktop, session.frame, 900, 560);
  ASSERT_TRUE(Eventually([&] { return Layout(session)["client"]["width"] == 900; }));
  ASSERT_TRUE(SelectRow(session, textures, "gcockpit01"));
  ASSERT_TRUE(CaptionHolds(session, what, "gcockpit01"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tcache_small"));
  ASSERT_TRUE(ThumbnailsShown(session));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tcache_small_thumbnails"));
  const Json client = Layout(session)["client"];
  EXPECT_EQ(client["width"], 900);
  const Json controls = Layout(session)["controls"];
  for (const Json& control : controls) {
    if (control["shown"] == false) continue;
    const Json& place = control["rectangle"];
    EXPECT_LE(place["x"].get<int>() + place["width"].get<int>(), client["x"].get<int>() + 900) << control.dump();
    EXPECT_LE(place["y"].get<int>() + place["height"].get<int>(), client["y"].get<int>() + client["height"].get<int>())
        << control.dump();
  }
}

}  // namespace oravin::test
