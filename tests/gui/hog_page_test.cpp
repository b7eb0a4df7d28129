#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "demo/archive_writer.h"
#include "program_under_test.h"
#include "session.h"

/// What is done with an archive on its page, by clicks and keys, with the archive looked at after each step.
namespace oravin::test {

namespace {

constexpr const char* archiveList = "hog.hogList";
constexpr const char* form = "FAT_Editor";
constexpr std::size_t tableAt = 16;
constexpr std::size_t nameInEntry = 8;

/// The page with a small archive beside the sample's.
struct PageSession : Session {
  PageSession() : hog(folder.Native("small.hog")), archive(demo::BuildArchive(Files())) {
    WriteFileAt(hog, archive);
    if (!ChooseTab(*this, "Hog Editor")) throw std::runtime_error("no tab");
  }

  static std::vector<demo::ArchiveFile> Files() {
    return {{"first.txt", Bytes(300, 'a')}, {"second.bin", Bytes(20, 2)}, {"sub\\third.wav", Bytes(5, 3)}};
  }

  /// The bytes of the archive that is open now.
  [[nodiscard]] Bytes OnDisk() const { return ReadFileAt(hog); }

  std::filesystem::path hog;
  Bytes archive;
};

testing::AssertionResult Opened(const Session& session, const std::string& path, const std::string& files) {
  if (const auto typed = TypeInto(session, "hog.txtHogPath", path); !typed) return typed;
  PressKey(session.desktop, "alt+o");
  return CaptionHolds(session, "hog.lblHogFiles", files + " file(s)");
}

testing::AssertionResult SmallOpened(const PageSession& session) {
  return Opened(session, session.folder.Windows("small.hog"), "3");
}

/// Opens the list's menu by the keyboard.
testing::AssertionResult MenuOpened(const Session& session) {
  const int before = WindowsInSight(session.desktop, "Oravin");
  PressKey(session.desktop, "Menu");
  if (Eventually([&] { return WindowsInSight(session.desktop, "Oravin") > before; })) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << "no menu";
}

testing::AssertionResult Selected(const Session& session, const std::string& name) {
  if (SelectRow(session, archiveList, name)) return CaptionHolds(session, "hog.lblShown", " 1 selected");
  return testing::AssertionFailure() << "no row " << name;
}

/// Double-clicks on a row and waits for the form.
testing::AssertionResult FormOpened(const Session& session, const std::string& name) {
  const Json row = RowOf(session, archiveList, name);
  if (row.is_null()) return testing::AssertionFailure() << "no row " << name;
  Click(session.desktop, MiddleOf(row["rectangle"]), 2);
  return FormIs(session, form);
}

std::string ClipboardText(const PageSession& session) {
  const std::filesystem::path kept = session.folder.Native("clipboard.txt");
  Program reader({OTHER_PROGRAM, "clipboard", kept.string()}, session.desktop.variables);
  return ExitStatus(reader) == 0 ? ReadTextAt(kept) : "nothing";
}

Bytes WithName(Bytes archive, std::size_t entryAt, const std::string& name) {
  std::copy(name.begin(), name.end(), archive.begin() + static_cast<std::ptrdiff_t>(entryAt + nameInEntry));
  return archive;
}

}  // namespace

TEST(HogPage, ButtonsFollowWhetherAnArchiveIsOpen) {
  const PageSession session;
  const std::array<const char*, 7> needOpen = {"hog.cmdCloseHog",  "hog.cmdExtract",    "hog.cmdUnpackExtract",
                                               "hog.cmdSelectAll", "hog.cmdSelectNone", "hog.cmdBackupFAT",
                                               "hog.txtFilter"};
  for (const char* control : needOpen) EXPECT_EQ(Control(session, control)["enabled"], false) << control;
  ClickOn(session, "hog.cmdOpen");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblHogFiles", "1000 file(s)")) << "the game's own archive";
  for (const char* control : needOpen) EXPECT_EQ(Control(session, control)["enabled"], true) << control;
  EXPECT_EQ(Control(session, "hog.cmdRestoreFAT")["enabled"], false) << "there is no backup yet";
  ClickOn(session, "hog.cmdBackupFAT");
  ASSERT_TRUE(Becomes(session, "hog.cmdRestoreFAT", "enabled", true));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_open"));
  ClickOn(session, "hog.cmdCloseHog");
  ASSERT_TRUE(Becomes(session, archiveList, "rowCount", 0));
  for (const char* control : needOpen) EXPECT_EQ(Control(session, control)["enabled"], false) << control;
  EXPECT_EQ(Control(session, "hog.cmdRestoreFAT")["enabled"], false);
}

TEST(HogPage, AccessKeysOfTheLabelsLeadToTheirFields) {
  const PageSession session;
  ASSERT_TRUE(SmallOpened(session));
  for (const auto& [key, field] :
       {std::pair("alt+d", "hog.txtHogDest"), {"alt+f", "hog.txtFilter"}, {"alt+l", "hog.txtHogPath"}}) {
    PressKey(session.desktop, key);
    EXPECT_TRUE(FocusIs(session, field)) << key;
  }
}

TEST(HogPage, EntryIsRenamedInPlace) {
  const PageSession session;
  ASSERT_TRUE(SmallOpened(session));
  ASSERT_TRUE(FormOpened(session, "first.txt"));
  EXPECT_EQ(Control(session, "FAT_Editor.txtName")["text"], "first.txt");
  EXPECT_EQ(Control(session, "FAT_Editor.txtSize")["text"], "12C");
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_form"));

  ASSERT_TRUE(TypeInto(session, "FAT_Editor.txtName", "first.text"));
  ClickOn(session, "FAT_Editor.cmdSave");
  ASSERT_TRUE(BoxCame(session, "The name of the file MUST be the same length or the\nentire .hog file"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_form_box"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, form));
  EXPECT_TRUE(session.OnDisk() == session.archive);

  ASSERT_TRUE(TypeInto(session, "FAT_Editor.txtName", "FIRST.bak"));
  PressKey(session.desktop, "Return");
  ASSERT_TRUE(FormIs(session, ""));
  EXPECT_TRUE(SameBytes(WithName(session.archive, tableAt, "FIRST.bak"), session.OnDisk()));
  EXPECT_EQ(RowOf(session, archiveList, "FIRST.bak")["texts"][3], "bak");
  EXPECT_EQ(RowOf(session, archiveList, "FIRST.bak")["selected"], true);
  EXPECT_TRUE(FocusIs(session, archiveList));
}

TEST(HogPage, NameWithALetterOutsideTheCodePageIsRefused) {
  if (WindowsPrograms()) GTEST_SKIP() << "Wine may not know the key of a second layout";
  const PageSession session;
  AddRussianLetters(session.desktop);
  ASSERT_TRUE(SmallOpened(session));
  ASSERT_TRUE(FormOpened(session, "first.txt"));
  ASSERT_TRUE(TypeInto(session, "FAT_Editor.txtName", "f\xD0\x96rst.txt"));
  ClickOn(session, "FAT_Editor.cmdSave");
  ASSERT_TRUE(BoxCame(session, "The name 'f?rst.txt' cannot be used."));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_form_letter"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, form));
  EXPECT_TRUE(session.OnDisk() == session.archive);
  ASSERT_TRUE(TypeInto(session, "FAT_Editor.txtName", "furst.txt"));
  PressKey(session.desktop, "Return");
  ASSERT_TRUE(FormIs(session, ""));
  EXPECT_TRUE(SameBytes(WithName(session.archive, tableAt, "furst.txt"), session.OnDisk()));
}

TEST(HogPage, EscapeAndCancelWriteNothing) {
  const PageSession session;
  ASSERT_TRUE(SmallOpened(session));
  ASSERT_TRUE(FormOpened(session, "second.bin"));
  ASSERT_TRUE(TypeInto(session, "FAT_Editor.txtName", "SECOND.BIN"));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(FormIs(session, ""));
  PressKey(session.desktop, "Return");  // the list has the keyboard again
  ASSERT_TRUE(FormIs(session, form));
  EXPECT_EQ(Control(session, "FAT_Editor.txtName")["text"], "second.bin");
  PressKey(session.desktop, "alt+c");
  ASSERT_TRUE(FormIs(session, ""));
  EXPECT_TRUE(session.OnDisk() == session.archive);
}

TEST(HogPage, MenuCopiesPastesAndShowsProperties) {
  const PageSession session;
  ASSERT_TRUE(SmallOpened(session));
  ASSERT_TRUE(Selected(session, "second.bin"));
  const Json source = RowOf(session, archiveList, "second.bin")["texts"];
  ASSERT_TRUE(MenuOpened(session));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_menu"));
  PressKey(session.desktop, "c");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblFilePath", "Copied: the place of second.bin"));
  const std::string line = "second.bin\t" + source[1].get<std::string>() + "\t" + source[2].get<std::string>();
  EXPECT_EQ(ClipboardText(session), line);

  ASSERT_TRUE(Selected(session, "first.txt"));
  ASSERT_TRUE(MenuOpened(session));
  PressKey(session.desktop, "p");
  ASSERT_TRUE(BoxCame(session, "Do you want second.bin\nto stand in for first.txt?"));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(Eventually([&] { return RowOf(session, archiveList, "first.txt")["texts"][1] == source[1]; }));
  EXPECT_EQ(RowOf(session, archiveList, "first.txt")["texts"][2], source[2]);

  ASSERT_TRUE(Selected(session, "sub\\third.wav"));
  ASSERT_TRUE(MenuOpened(session));
  PressKey(session.desktop, "Up");
  PressKey(session.desktop, "Return");
  ASSERT_TRUE(FormIs(session, form));
  EXPECT_EQ(Control(session, "FAT_Editor.txtName")["text"], "sub\\third.wav");
  PressKey(session.desktop, "Escape");
  EXPECT_TRUE(FormIs(session, ""));
}

TEST(HogPage, CopyByKeyPutsAllSelectedOnTheClipboard) {
  const PageSession session;
  ASSERT_TRUE(SmallOpened(session));
  ASSERT_TRUE(Selected(session, "first.txt"));
  PressKey(session.desktop, "ctrl+a");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 3 selected"));
  PressKey(session.desktop, "ctrl+c");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblFilePath", "Copied: the place of first.txt"));
  const std::string text = ClipboardText(session);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
  EXPECT_EQ(text.rfind("first.txt\t", 0), 0U);
}

TEST(HogPage, RightClickSelectsTheRowAndBringsUpTheMenu) {
  const PageSession session;
  ASSERT_TRUE(SmallOpened(session));
  const int before = WindowsInSight(session.desktop, "Oravin");
  RightClick(session.desktop, MiddleOf(RowOf(session, archiveList, "second.bin")["rectangle"]));
  ASSERT_TRUE(Eventually([&] { return WindowsInSight(session.desktop, "Oravin") > before; }));
  PressKey(session.desktop, "c");
  EXPECT_TRUE(CaptionHolds(session, "hog.lblFilePath", "Copied: the place of second.bin"));
  EXPECT_TRUE(Eventually([&] { return WindowsInSight(session.desktop, "Oravin") == before; })) << "one menu alone";
  EXPECT_TRUE(FocusIs(session, archiveList));
}

TEST(HogPage, BackupAndRestoreByClick) {
  const PageSession session;
  ASSERT_TRUE(SmallOpened(session));
  ClickOn(session, "hog.cmdBackupFAT");
  ASSERT_TRUE(Becomes(session, "hog.cmdRestoreFAT", "enabled", true));
  ASSERT_TRUE(FormOpened(session, "first.txt"));
  ASSERT_TRUE(TypeInto(session, "FAT_Editor.txtName", "wrong.txt"));
  PressKey(session.desktop, "Return");
  ASSERT_TRUE(FormIs(session, ""));
  ASSERT_FALSE(session.OnDisk() == session.archive);
  ClickOn(session, "hog.cmdRestoreFAT");
  ASSERT_TRUE(BoxCame(session, "Restoring the FAT table will overwrite any changes"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(Eventually([&] { return !RowOf(session, archiveList, "first.txt").is_null(); }));
  EXPECT_TRUE(SameBytes(session.archive, session.OnDisk()));
}

TEST(HogPage, EscapeStopsAnExtraction) {
  const PageSession session;
  constexpr int files = 30000;
  std::vector<demo::ArchiveFile> many;
  for (int i = 0; i < files; ++i) many.push_back({"file" + std::to_string(i) + ".bin", Bytes(64, 7)});
  WriteFileAt(session.folder.Native("long.hog"), demo::BuildArchive(many));
  MakeFolderAt(session.folder.Native("out"));
  ASSERT_TRUE(Opened(session, session.folder.Windows("long.hog"), std::to_string(files)));
  ASSERT_TRUE(TypeInto(session, "hog.txtHogDest", session.folder.Windows("out")));
  PressKey(session.desktop, "alt+s");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 30,000 selected"));
  ClickOn(session, "hog.cmdExtract");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblFilePath", "Extracting file"));
  EXPECT_EQ(Layout(session)["status"].get<std::string>().rfind("Esc stops this.", 0), 0U);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_extracting"));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(BoxCame(session, "You stopped the extraction."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  const auto written = static_cast<int>(ImageOf(session.folder.Native("out")).size());
  EXPECT_GT(written, 0);
  EXPECT_LT(written, files);
  EXPECT_TRUE(FocusIs(session, "hog.cmdExtract")) << "the keyboard is where it was";
  EXPECT_EQ(Layout(session)["status"], "");
  EXPECT_EQ(Control(session, "hog.cmdExtract")["enabled"], true);
}

TEST(HogPage, FirstBytesAreShownAndFoldedAway) {
  const PageSession session;
  ASSERT_TRUE(SmallOpened(session));
  ASSERT_TRUE(Selected(session, "first.txt"));
  const std::string text = Control(session, "hog.txtFirstBytes")["text"];
  EXPECT_EQ(text.rfind("first.txt, stored\n0000   61 61 61", 0), 0U) << text;
  const int height = Control(session, archiveList)["rectangle"]["height"];
  PressKey(session.desktop, "alt+y");
  ASSERT_TRUE(Becomes(session, "hog.txtFirstBytes", "shown", false));
  ASSERT_TRUE(CaptionHolds(session, "hog.cmdFirstBytes", "Show first"));
  EXPECT_TRUE(Eventually([&] { return Control(session, archiveList)["rectangle"]["height"] > height; }));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_folded"));
  PressKey(session.desktop, "alt+y");
  ASSERT_TRUE(Becomes(session, "hog.txtFirstBytes", "shown", true));
  EXPECT_TRUE(Becomes(session, "hog.txtFirstBytes", "text", text));
}

TEST(HogPage, DroppedArchiveIsOpened) {
  const PageSession session;
  const Program files({OTHER_PROGRAM, "drag", session.hog.string()}, session.desktop.variables);
  ASSERT_TRUE(Eventually([&] { return ActiveWindowTitle(session.desktop) == "Files"; }));
  Drag(session.desktop, {60, 70}, MiddleOf(Control(session, archiveList)["rectangle"]));
  EXPECT_TRUE(Becomes(session, "hog.txtHogPath", "text", session.folder.Windows("small.hog")));
  EXPECT_TRUE(Becomes(session, archiveList, "rowCount", 3));
}

TEST(HogPage, LongTextsDoNotWidenTheWindow) {
  const PageSession session;
  const std::string name = std::string(110, 'n') + "&.txt";
  WriteFileAt(session.folder.Native("wide.hog"), demo::BuildArchive({{name, Bytes(4, 1)}}));
  ResizeWindow(session.desktop, session.frame, 900, 560);
  ASSERT_TRUE(Eventually([&] { return Layout(session)["client"]["width"] == 900; }));
  ASSERT_TRUE(Opened(session, session.folder.Windows("wide.hog"), "1"));
  PressKey(session.desktop, "alt+s");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 1 selected"));
  Click(session.desktop, MiddleOf(RowOf(session, archiveList, name)["rectangle"]));
  PressKey(session.desktop, "ctrl+c");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblFilePath", "Copied: the place of nnn"));
  const Json layout = Layout(session);
  EXPECT_EQ(layout["client"]["width"], 900);
  const Json label = Control(session, "hog.lblFilePath")["rectangle"];
  EXPECT_LT(label["x"].get<int>() + label["width"].get<int>(), layout["client"]["x"].get<int>() + 900);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_small"));
}

}  // namespace oravin::test
