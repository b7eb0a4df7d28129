// The panel of the converter: its texts, its checks, and how it hands the new model on.

#include "tabs/convert_panel.h"

#include "stage.h"

namespace oravin::test {
namespace {

struct TheConvertPanel : ConvertStage {
  void Press() {
    cmdConvert3dsToSL_Click(here.host, panel, installation,
                            {txtImportFighter, [this](const std::string& path) { imported.push_back(path); }});
  }

  ConvertPanel panel = NewConvertPanel();
  TextBox txtImportFighter;
  std::vector<std::string> imported;  ///< the files that the import was shown for
};

TEST_F(TheConvertPanel, HasItsCaptions) {
  EXPECT_EQ(panel.frame3DConversion.caption, "&3D model conversion (not needed to import downloaded ships):");
  EXPECT_EQ(panel.lbl3DSource.caption, "&Source .3ds file:");
  EXPECT_EQ(panel.cmdConvert3dsToSL.tooltip, "Converts .3ds file to shp file - see readme");
  EXPECT_EQ(panel.cmd3d2SLReadme.caption, "&View 3D Readme");
  EXPECT_FALSE(panel.lbl3DDest.caption.empty());
}

TEST_F(TheConvertPanel, ConvertsAndShowsTheImportOfTheNewModel) {
  WriteMesh("mesh.3ds", 0, true);
  panel.txt3DSource.text = GamePath("mesh.3ds");
  panel.txt3DDest.text = GamePath("mesh.shp");
  ExpectSuccess();
  Press();
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), Report("mesh.3ds", "", "mesh.shp"));
  EXPECT_EQ(txtImportFighter.text, GamePath("mesh.shp"));
  EXPECT_EQ(imported, std::vector{GamePath("mesh.shp")});
}

TEST_F(TheConvertPanel, BlanksAtTheEndsGoFromTheTextBoxesThemselvesBeforeAnyCheck) {
  panel.txt3DSource.text = "   ";
  panel.txt3DDest.text = "  x  ";
  ExpectRefused("Enter a source file name");
  Press();
  EXPECT_EQ(panel.txt3DSource.text, "");
  EXPECT_EQ(panel.txt3DDest.text, "x");
}

TEST_F(TheConvertPanel, WithoutASourceNothingHappensAndItTakesTheFocus) {
  panel.txt3DDest.text = GamePath("mesh.shp");
  WriteFileAt(Game("mesh.shp"), "an older model");
  ExpectRefused("Enter a source file name");
  Press();
  EXPECT_TRUE(panel.sourceTakesFocus);
  EXPECT_FALSE(panel.destinationTakesFocus);
  EXPECT_EQ(txtImportFighter.text, "");
  EXPECT_TRUE(imported.empty());
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), "an older model");
}

TEST_F(TheConvertPanel, WithoutADestinationNothingHappensAndItTakesTheFocus) {
  WriteMesh("mesh.3ds", 0, true);
  panel.txt3DSource.text = GamePath("mesh.3ds");
  panel.txt3DDest.text = "  ";
  ExpectRefused("Enter a destination file name");
  Press();
  EXPECT_FALSE(panel.sourceTakesFocus);
  EXPECT_TRUE(panel.destinationTakesFocus);
  EXPECT_EQ(txtImportFighter.text, "");
  EXPECT_TRUE(imported.empty());
}

TEST_F(TheConvertPanel, TheSourceIsAskedForFirst) {
  ExpectRefused("Enter a source file name");
  Press();
}

TEST_F(TheConvertPanel, AFailedConversionNamesTheDestinationButShowsNoImport) {
  WriteMesh("mesh.3ds", 1, false);
  panel.txt3DSource.text = GamePath("mesh.3ds");
  panel.txt3DDest.text = GamePath("mesh.shp");
  ExpectResult("Error: Can't find texture coordinates!");
  Press();
  EXPECT_EQ(txtImportFighter.text, GamePath("mesh.shp"));
  EXPECT_TRUE(imported.empty());
}

TEST_F(TheConvertPanel, AFailedConversionThatWroteAModelShowsItsImport) {
  WriteMesh("mesh.3ds", 2, true);
  panel.txt3DSource.text = GamePath("mesh.3ds");
  panel.txt3DDest.text = GamePath("mesh.shp");
  ExpectResult("Error: Problem reading texture coordinates! Break!");
  Press();
  EXPECT_EQ(imported, std::vector{GamePath("mesh.shp")});
}

TEST_F(TheConvertPanel, WithoutTheLibraryTheOldModelIsNotImportedInTheNewOnesPlace) {
  WriteMesh("mesh.3ds", 0, true);
  WriteFileAt(Game("mesh.shp"), "an older model");
  std::filesystem::remove(Library());
  panel.txt3DSource.text = GamePath("mesh.3ds");
  panel.txt3DDest.text = GamePath("mesh.shp");
  ExpectUnusable("it is not there");
  Press();
  EXPECT_EQ(txtImportFighter.text, GamePath("mesh.shp"));
  EXPECT_TRUE(imported.empty());
}

TEST_F(TheConvertPanel, ADestinationBelowTheCurrentFolderIsImportedFromThere) {
  std::filesystem::current_path(folder.Native("game"));
  WriteMesh("mesh.3ds", 0, true);
  panel.txt3DSource.text = "mesh.3ds";
  panel.txt3DDest.text = "mesh.shp";
  ExpectSuccess();
  Press();
  EXPECT_EQ(txtImportFighter.text, GamePath("mesh.shp"));
  EXPECT_EQ(imported, std::vector{GamePath("mesh.shp")});
}

TEST_F(TheConvertPanel, BrowsingBeginsInTheGameFolderAndNamesTheDestination) {
  WriteMesh("My.Mesh.3ds", 0, true);
  here.desk.AnswerFile(GamePath("My.Mesh.3ds"));
  cmd3DSourceBrowse_Click(here.host, panel, installation);
  ASSERT_EQ(here.desk.fileQuestions.size(), 1U);
  EXPECT_EQ(here.desk.fileQuestions[0].folder, installation.GamePath);
  EXPECT_EQ(here.desk.fileQuestions[0].name, "");
  EXPECT_EQ(here.desk.fileQuestions[0].filter, "3ds file *.3ds|*.3ds|All Files *.*|*.*");
  EXPECT_EQ(panel.txt3DSource.text, GamePath("My.Mesh.3ds"));
  EXPECT_EQ(panel.txt3DDest.text, GamePath("My.Mesh.shp"));
}

TEST_F(TheConvertPanel, ACancelledBrowseOrAMissingFileLeavesTheBoxes) {
  panel.txt3DSource.text = "old.3ds";
  panel.txt3DDest.text = "old.shp";
  for (const std::string& answer : {std::string(), GamePath("missing.3ds")}) {
    here.desk.AnswerFile(answer);
    cmd3DSourceBrowse_Click(here.host, panel, installation);
    EXPECT_EQ(panel.txt3DSource.text, "old.3ds");
    EXPECT_EQ(panel.txt3DDest.text, "old.shp");
  }
}

}  // namespace
}  // namespace oravin::test
