#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "import_session.h"
#include "program_under_test.h"

/// Ships imported, renamed and removed on the page "Import Ships", and meshes converted there.
namespace oravin::test {

namespace {

constexpr const char* done = "Importing Successfull!";
const std::vector<std::string> addOns = {"Manta", "Wraithwing", "Colossus Carrier"};

std::vector<std::string> With(std::vector<std::string> names, const std::vector<std::string>& more) {
  names.insert(names.end(), more.begin(), more.end());
  return names;
}

/// Imports the raiders with the ship whose name is taken under another one.
testing::AssertionResult RaidersImported(const ImportSession& session, const std::string& switches) {
  if (const auto opened = ImportOpened(session, session.Pack("raiders/raiders.pak")); !opened) return opened;
  if (const auto named = RowRenamed(session, packList, "PREDATOR", "Raptor"); !named) return named;
  if (const auto black = RowBecomes(session, packList, "Raptor", "colour", 0); !black) return black;
  return ShipsImported(session, {{"Would you like Oravin to make the ship switches", switches}, {done, "Return"}});
}

bool Exists(const std::filesystem::path& path) { return std::filesystem::exists(path); }

}  // namespace

TEST(ImportShips, PackWithATakenNameIsImportedAndItsSwitchesMade) {
  const ImportSession session;
  ASSERT_TRUE(RowsBecome(session, importedList, addOns));
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/raiders.pak")));
  EXPECT_EQ(Layout(session)["formTitle"], "Import: < raiders.pak >");
  EXPECT_TRUE(RowBecomes(session, packList, "PREDATOR", "colour", 255));
  EXPECT_TRUE(RowBecomes(session, packList, "Locust", "colour", 0));
  const FolderImage before = ImageOf(session.sample.game);
  ClickOn(session, "Fighter_PACK.cmdImportShips");
  ASSERT_TRUE(BoxCame(session, "Ships marked in red have the same names as an existing ship in Oravin."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, importForm));
  EXPECT_TRUE(ImageOf(session.sample.game) == before);

  ASSERT_TRUE(RowRenamed(session, packList, "PREDATOR", "longbow"));
  ASSERT_TRUE(BoxCame(session, "The ship name 'longbow' has the same name as an existing ship."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(RowRenamed(session, packList, "PREDATOR", "Raptor"));
  ASSERT_TRUE(RowBecomes(session, packList, "Raptor", "colour", 0));
  ASSERT_TRUE(ShipsImported(session, {{"Would you like Oravin to make the ship switches", "alt+y"}, {done, "Return"}}));
  EXPECT_TRUE(RowsBecome(session, importedList, With(addOns, {"Locust", "Hornet Queen", "Raptor"})));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "import_ships"));
  ASSERT_TRUE(ChooseTab(session, "Switcher"));
  EXPECT_EQ(RowOf(session, "switcher.swapOrgList", "Sabrewing")["texts"][1], "--->Hornet Queen");
  EXPECT_TRUE(ReadFileAt(session.sample.game / "ships" / "raptor.shp") ==
              ReadFileAt(session.sample.program / "packs" / "raiders" / "raptor.shp"));
}

TEST(ImportShips, SingleModelIsNamedAfterItsFile) {
  const ImportSession session;
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/locust.shp")));
  EXPECT_EQ(Layout(session)["formTitle"], "Import: < locust.shp >");
  EXPECT_TRUE(RowsBecome(session, packList, {"locust"}));
  ASSERT_TRUE(ShipsImported(session, {{done, "Return"}}));
  EXPECT_TRUE(RowsBecome(session, importedList, With(addOns, {"locust"})));
  EXPECT_TRUE(FocusIs(session, "imports.txtImportFighter"));
}

TEST(ImportShips, UncheckedShipIsLeftOut) {
  const ImportSession session;
  ASSERT_TRUE(ImportOpened(session, session.Pack("raiders/raiders.pak")));
  Click(session.desktop, BoxOf(session, packList, "PREDATOR"));
  ASSERT_TRUE(RowBecomes(session, packList, "PREDATOR", "checked", false));
  ASSERT_TRUE(ShipsImported(session, {{"Would you like Oravin to make the ship switches", "alt+n"}, {done, "Return"}}));
  EXPECT_TRUE(RowsBecome(session, importedList, With(addOns, {"Locust", "Hornet Queen"})));
  ASSERT_TRUE(ChooseTab(session, "Switcher"));
  EXPECT_EQ(RowOf(session, "switcher.swapOrgList", "Sabrewing")["texts"][1], "");
}

TEST(ImportShips, RenameInPlaceIsSeenByTheSwitcher) {
  const ImportSession session;
  ASSERT_TRUE(RaidersImported(session, "alt+y"));
  ASSERT_TRUE(RowRenamed(session, importedList, "Hornet Queen", "predator"));
  ASSERT_TRUE(BoxCame(session, "The ship name 'predator' has the same name as an existing ship."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(RowRenamed(session, importedList, "Hornet Queen", "Wasp"));
  ASSERT_TRUE(RowsBecome(session, importedList, With(addOns, {"Locust", "Wasp", "Raptor"})));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "import_renamed"));
  ASSERT_TRUE(ChooseTab(session, "Switcher"));
  EXPECT_TRUE(
      Eventually([&] { return RowOf(session, "switcher.swapOrgList", "Sabrewing")["texts"][1] == "--->Wasp"; }));
}

TEST(ImportShips, SelectedAreRemovedWithTheirTextures) {
  const ImportSession session;
  const unsigned before = session.Textures();
  ASSERT_TRUE(RaidersImported(session, "alt+n"));
  const unsigned with = session.Textures();
  EXPECT_GT(with, before);
  EXPECT_EQ(Control(session, "imports.cmdRemoveShips")["enabled"], false);
  ASSERT_TRUE(SelectRow(session, importedList, "Locust"));
  ClickHolding(session.desktop, MiddleOf(RowOf(session, importedList, "Raptor")["rectangle"]), "ctrl");
  ASSERT_TRUE(RowBecomes(session, importedList, "Raptor", "selected", true));
  ASSERT_TRUE(Becomes(session, "imports.cmdRemoveShips", "enabled", true));
  ClickOn(session, "imports.cmdRemoveShips");
  ASSERT_TRUE(BoxCame(session, "Are you sure that you want to remove these ships?"));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "Do you also want to remove the associated textures for this model?"));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "Removal Complete"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_TRUE(RowsBecome(session, importedList, With(addOns, {"Hornet Queen"})));
  EXPECT_LT(session.Textures(), with);
  EXPECT_GT(session.Textures(), before) << "those of the ship that stays";
  EXPECT_FALSE(Exists(session.sample.game / "ships" / "locust.shp"));
  EXPECT_TRUE(Exists(session.sample.game / "ships" / "hornetq.shp"));
}

TEST(ImportShips, DeleteKeyRemovesAndNoKeepsThem) {
  const ImportSession session;
  ASSERT_TRUE(SelectRow(session, importedList, "Manta"));
  PressKey(session.desktop, "Delete");
  ASSERT_TRUE(BoxCame(session, "Are you sure that you want to remove these ships?"));
  ASSERT_TRUE(AnswerBox(session, "alt+n"));
  EXPECT_TRUE(RowsBecome(session, importedList, addOns));
}

TEST(ImportShips, AllAreRemoved) {
  const ImportSession session;
  ClickOn(session, "imports.cmdRemoveAll");
  ASSERT_TRUE(BoxCame(session, "Are you sure that you want to remove these ships?"));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "Do you also want to remove the associated textures for this model?"));
  ASSERT_TRUE(AnswerBox(session, "alt+n"));
  ASSERT_TRUE(BoxCame(session, "Removal Complete"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_TRUE(RowsBecome(session, importedList, {}));
  EXPECT_TRUE(Becomes(session, "imports.cmdRemoveAll", "enabled", false));
}

TEST(ImportShips, DroppedPackOpensTheImportOnAnyPage) {
  const ImportSession session;
  const std::filesystem::path folder = session.sample.program / "packs" / "sentinels";
  const std::string picture = (folder / "dragon1.bmp").string();
  const std::string pack = (folder / "sentinels.pak").string();
  const std::vector<std::pair<const char*, const char*>> places = {{"Import Ships", importedList},
                                                                   {"Import Ships", "imports.txtImportFighter"},
                                                                   {"Switcher", "switcher.swapToList"},
                                                                   {"Hog Editor", "hog.hogList"}};
  for (const auto& [tab, control] : places) {
    SCOPED_TRACE(control);
    ASSERT_TRUE(ChooseTab(session, tab));
    std::vector<std::string> command = {OTHER_PROGRAM, "drag", picture, pack};
    if (tab == std::string("Hog Editor"))
      command.erase(command.begin() + 2);  // it would open the picture as an archive
    const Program files(command, session.desktop.variables);
    ASSERT_TRUE(Eventually([&] { return ActiveWindowTitle(session.desktop) == "Files"; }));
    Drag(session.desktop, {60, 70}, MiddleOf(Control(session, control)["rectangle"]));
    ASSERT_TRUE(Eventually([&] { return Layout(session)["form"] == importForm; }));
    EXPECT_EQ(Layout(session)["tab"], "Import Ships");
    EXPECT_EQ(Control(session, "imports.txtImportFighter")["text"], session.Pack("sentinels/sentinels.pak"));
    ClickOn(session, "Fighter_PACK.cmdImportCancel");
    ASSERT_TRUE(Eventually([&] { return Layout(session)["form"].get<std::string>().empty(); }));
  }
  EXPECT_EQ(Layout(session)["boxes"], 2) << "those of Enable";
}

TEST(ImportShips, FileGivenAtTheStartIsImportedOverTheWindow) {
  Session session(Beginning::desktop);
  StartProgram(session, {(session.sample.program / "packs" / "raiders" / "locust.shp").string()});
  ASSERT_TRUE(BoxCame(session, "Press \"Enable\" on the Switcher tab first."));
  EXPECT_EQ(Layout(session)["tab"], "Import Ships");
}

TEST(ImportShips, ConverterAsksForWhatIsMissing) {
  const ImportSession session;
  ClickOn(session, "convert.cmdConvert3dsToSL");
  ASSERT_TRUE(BoxCame(session, "Enter a source file name"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FocusIs(session, "convert.txt3DSource"));
  WriteFileAt(session.folder.Native("mesh.3ds"), "result 0\nwrites\n");
  ASSERT_TRUE(TypeInto(session, "convert.txt3DSource", session.folder.Windows("mesh.3ds")));
  ClickOn(session, "convert.cmdConvert3dsToSL");
  ASSERT_TRUE(BoxCame(session, "Enter a destination file name"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FocusIs(session, "convert.txt3DDest"));
  ASSERT_TRUE(TypeInto(session, "convert.txt3DDest", session.folder.Windows("mesh.shp")));
  ClickOn(session, "convert.cmdConvert3dsToSL");
  ASSERT_TRUE(BoxCame(session, "3ds2sl"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "convert_no_library"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_TRUE(FormIs(session, ""));
}

TEST(ImportShips, ConvertedModelGoesOnToTheImport) {
  const ImportSession session;
  if (WindowsPrograms()) {
    std::filesystem::copy_file(*WindowsPrograms() + "/../tests/convert/libstand_in_converter.dll",
                               session.sample.program / "3ds2sl.dll");
  } else {
    std::filesystem::copy_file(STAND_IN_LIBRARY, session.sample.program / "3ds2sl.so");
  }
  WriteFileAt(session.folder.Native("mesh.3ds"), "result 0\nwrites\n");
  ASSERT_TRUE(TypeInto(session, "convert.txt3DSource", session.folder.Windows("mesh.3ds") + "  "));
  ASSERT_TRUE(TypeInto(session, "convert.txt3DDest", session.folder.Windows("mesh.shp")));
  ClickOn(session, "convert.cmdConvert3dsToSL");
  ASSERT_TRUE(BoxCame(session, "Conversion Successful!"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, importForm));
  EXPECT_EQ(Layout(session)["formTitle"], "Import: < mesh.shp >");
  EXPECT_EQ(Control(session, "imports.txtImportFighter")["text"], session.folder.Windows("mesh.shp"));
  PressKey(session.desktop, "Escape");
  EXPECT_TRUE(FormIs(session, ""));
  EXPECT_TRUE(Becomes(session, "convert.txt3DSource", "text", session.folder.Windows("mesh.3ds")));
}

}  // namespace oravin::test
