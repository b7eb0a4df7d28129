// The call of the converter library: what it is given, what its results are shown as, and what is never lost.

#include "actions/convert_mesh.h"

#include "platform/converter.h"
#include "platform/current_folder.h"
#include "stage.h"
#include "support/fault.h"
#include "support/file_marks.h"

namespace oravin::test {
namespace {

struct MeshConverter : ConvertStage {};

TEST_F(MeshConverter, TheLibraryIsGivenThePathsOfThisMachineAndTheProgramFolderIsTheCurrentOne) {
  WriteMesh("mesh.3ds", 0, true);
  ExpectSuccess();
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 0);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), Report("mesh.3ds", "", "mesh.shp"));
  EXPECT_EQ(std::filesystem::current_path(), folder.Native("program"));
}

TEST_F(MeshConverter, Result0IsASuccess) {
  WriteMesh("mesh.3ds", 0, false);
  ExpectSuccess();
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 0);
}

TEST_F(MeshConverter, Result1TellsOfMissingTextureCoordinates) {
  WriteMesh("mesh.3ds", 1, false);
  ExpectResult("Error: Can't find texture coordinates!");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 1);
}

TEST_F(MeshConverter, Result2TellsOfDamagedTextureCoordinates) {
  WriteMesh("mesh.3ds", 2, false);
  ExpectResult("Error: Problem reading texture coordinates! Break!");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 2);
}

TEST_F(MeshConverter, Result3TellsOfAFileThatCannotBeOpened) {
  WriteMesh("mesh.3ds", 3, false);
  ExpectResult("Error: Can't open file!");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 3);
}

TEST_F(MeshConverter, EveryOtherResultIsShownAsAnEmptyMessage) {
  for (const int result : {4, 255, 2147483647, -1, -2147483647}) {
    SCOPED_TRACE(result);
    WriteMesh("mesh.3ds", result, false);
    ExpectResult("");
    EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), result);
  }
}

TEST_F(MeshConverter, ASourceThatIsNoMeshIsTheLibrarysBusiness) {
  WriteFileAt(Game("mesh.3ds"), "");
  ExpectResult("Error: Can't open file!");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 3);
}

TEST_F(MeshConverter, BlanksAtTheEndsGoAndTheOptionTextIsPutIntoLowerCase) {
  WriteMesh("mesh.3ds", 0, true);
  ExpectSuccess();
  EXPECT_EQ(Convert("  " + GamePath("mesh.3ds") + " ", " -FLIP Y ", " " + GamePath("mesh.shp") + "  "), 0);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), Report("mesh.3ds", "-flip y", "mesh.shp"));
}

TEST_F(MeshConverter, BlanksInsidePathsStay) {
  WriteMesh("my mesh.3ds", 0, true);
  ExpectSuccess();
  EXPECT_EQ(Convert(GamePath("my mesh.3ds"), "", GamePath("my model.shp")), 0);
  EXPECT_EQ(ReadTextAt(Game("my model.shp")), Report("my mesh.3ds", "", "my model.shp"));
}

TEST_F(MeshConverter, NamesAreFoundWithoutRegardToCase) {
  WriteMesh("Mesh.3DS", 0, true);
  ExpectSuccess();
  EXPECT_EQ(Convert(GamePath("MESH.3ds"), "", GamePath("mesh.shp")), 0);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), Report("Mesh.3DS", "", "mesh.shp"));
}

TEST_F(MeshConverter, APathBelowTheCurrentFolderStaysThere) {
  std::filesystem::current_path(folder.Native("game"));
  WriteMesh("mesh.3ds", 0, true);
  ExpectSuccess();
  EXPECT_EQ(Convert("mesh.3ds", "", "mesh.shp"), 0);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), Report("mesh.3ds", "", "mesh.shp"));
}

TEST_F(MeshConverter, AnExistingDestinationIsReplaced) {
  WriteMesh("mesh.3ds", 0, true);
  WriteFileAt(Game("mesh.shp"), "an older model");
  ExpectSuccess();
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 0);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), Report("mesh.3ds", "", "mesh.shp"));
}

TEST_F(MeshConverter, AConversionThatFailsLeavesNoDestination) {
  WriteMesh("mesh.3ds", 1, false);
  WriteFileAt(Game("mesh.shp"), "an older model");
  ExpectResult("Error: Can't find texture coordinates!");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 1);
  EXPECT_FALSE(std::filesystem::exists(Game("mesh.shp")));
}

TEST_F(MeshConverter, AMissingSourceIsSaidAndTheDestinationStays) {
  WriteFileAt(Game("mesh.shp"), "an older model");
  for (const std::string& source : {GamePath("mesh.3ds"), GamePath(""), std::string()}) {
    ExpectRefused("File not Found");
    EXPECT_EQ(Convert(source, "", GamePath("mesh.shp")), std::nullopt);
  }
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), "an older model");
}

TEST_F(MeshConverter, ASourceIsNeverItsOwnDestination) {
  WriteMesh("mesh.3ds", 0, true);
  const std::string mesh = ReadTextAt(Game("mesh.3ds"));
  for (const char* destination : {"mesh.3ds", "MESH.3DS"}) {
    ExpectRefused("The destination is the source file itself. Nothing was converted.");
    EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath(destination)), std::nullopt);
    EXPECT_EQ(ReadTextAt(Game("mesh.3ds")), mesh);
  }
}

TEST_F(MeshConverter, WithoutTheLibraryABoxSaysWhereItBelongsAndTheDestinationStays) {
  WriteMesh("mesh.3ds", 0, true);
  WriteFileAt(Game("mesh.shp"), "an older model");
  std::filesystem::remove(Library());
  ExpectUnusable("it is not there");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), std::nullopt);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), "an older model");
}

TEST_F(MeshConverter, ALibraryWithoutTheFunctionIsSaidAndTheDestinationStays) {
  WriteMesh("mesh.3ds", 0, true);
  WriteFileAt(Game("mesh.shp"), "an older model");
  Install(OTHER_LIBRARY);
  ExpectUnusable("it has no function named convert3ds2sl");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), std::nullopt);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), "an older model");
}

TEST_F(MeshConverter, AFileThatIsNoLibraryIsSaidAndTheDestinationStays) {
  WriteMesh("mesh.3ds", 0, true);
  WriteFileAt(Game("mesh.shp"), "an older model");
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  for (const std::string& content : {std::string(), std::string("no library"), std::string(100000, 'x')}) {
    WriteFileAt(Library(), content);
    EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), std::nullopt);
    const Message& box = here.desk.shown.back();
    EXPECT_EQ(box.title, "Oravin - 3DS2SL Mesh Converter");
    EXPECT_EQ(box.icon, Icon::exclamation);
    EXPECT_NE(box.text.find("this machine cannot load it as a library ("), std::string::npos) << box.text;
    EXPECT_NE(box.text.find(installation.ProgramPath), std::string::npos) << box.text;
  }
  EXPECT_EQ(here.desk.shown.size(), 3U);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), "an older model");
}

TEST_F(MeshConverter, TheLibraryIsLookedForAtTheMomentOfUse) {
  WriteMesh("mesh.3ds", 0, false);
  ExpectSuccess();
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 0);
  std::filesystem::remove(Library());
  ExpectUnusable("it is not there");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), std::nullopt);
  Install(STAND_IN_LIBRARY);
  ExpectSuccess();
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 0);
}

TEST_F(MeshConverter, ADestinationThatCannotBeDeletedIsSaidAndTheLibraryNotCalled) {
  WriteMesh("mesh.3ds", 0, true);
  WriteFileAt(Game("mesh.shp"), "an older model");
  Fault fault;
  fault.at = 1;
  Watch(here.host.files, fault);
  here.desk.ExpectBox("Error - could not erase " + GamePath("mesh.shp") + ": " + faultReason, "m3DtoSL");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), std::nullopt);
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), "an older model");
}

TEST_F(MeshConverter, ADestinationWithWildcardsDeletesNothing) {
  WriteMesh("mesh.3ds", 0, true);
  WriteFileAt(Game("mesh.shp"), "an older model");
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  Convert(GamePath("mesh.3ds"), "", GamePath("*.shp"));
  EXPECT_EQ(ReadTextAt(Game("mesh.shp")), "an older model");
}

TEST(FromTheRoot, OnlyRelativePathsAreTakenFromTheCurrentFolder) {
  EXPECT_EQ(platform::FromTheRoot("a.3ds"), platform::CurrentFolder() + "a.3ds");
  EXPECT_EQ(platform::FromTheRoot("b\\a.3ds"), platform::CurrentFolder() + "b\\a.3ds");
  for (const char* path : {"Z:\\b\\a.3ds", "c:\\a", "\\a", "\\\\server\\a", "/a", ""}) {
    EXPECT_EQ(platform::FromTheRoot(path), path);
  }
}

}  // namespace
}  // namespace oravin::test
