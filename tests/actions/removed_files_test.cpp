// The files and textures of imported ships that are removed: what goes, and where the rest is kept.

#include "removing.h"

namespace oravin::test {
namespace {

TEST_F(Removing, FilesThatAreMissingAlreadyDoNotMatter) {
  std::filesystem::remove(stage.Model(manta));
  std::filesystem::remove(AddOn("ships/manta.shp"));
  std::filesystem::remove(AddOn("stats/manta.txt"));
  std::filesystem::remove(stage.files.Game("shipstats.def"));
  std::filesystem::remove(stage.files.Program("shipsData.txt"));
  Remove({manta});
  EXPECT_FALSE(exists(AddOn("removed")));
  EXPECT_FALSE(exists(stage.files.Program("shipsData.txt")));
  EXPECT_EQ(stage.installation.ships.size(), 14U);
}

TEST_F(Removing, AFileThatAShipThatStaysHasTooStays) {
  stage.files.ships[wraith].file = "MANTA.shp";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  WriteFileAt(stage.files.Game("ships/manta.bak"), "the original weapons");
  Remove({manta}, true);
  EXPECT_TRUE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_TRUE(exists(stage.files.Game("ships/manta.bak")));
  EXPECT_TRUE(exists(AddOn("ships/manta.shp")));
  EXPECT_TRUE(exists(AddOn("stats/manta.txt")));
  Remove({manta}, true);  // Wraith, which is there now
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.bak")));
  EXPECT_TRUE(exists(AddOn("removed/Wraith/manta.shp")));
}

TEST_F(Removing, TwoShipsWithOneModelGoTogether) {
  stage.files.ships[wraith].file = "manta.shp";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  Remove({manta, wraith});
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_TRUE(exists(AddOn("removed/Manta/manta.shp")));
  EXPECT_FALSE(exists(AddOn("removed/Wraith")));
}

TEST_F(Removing, AStockModelOfTheSameNameIsNeverDeleted) {
  stage.Record(manta).ShipFile.Set("ALPHA.shp");
  stage.Record(wraith).ShipFile.Set("bravo.org");
  WriteFileAt(stage.files.Game("ships/bravo.org"), "a stock model, moved aside");
  const Bytes model = ReadFileAt(stage.Model(alpha));
  Remove({manta, wraith});
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), model);
  EXPECT_EQ(ReadTextAt(stage.files.Game("ships/bravo.org")), "a stock model, moved aside");
}

TEST_F(Removing, ItsTexturesStayWithNo) {
  stage.SetTextures(manta, {"skin"});
  stage.AddUserTexture("skin");
  WriteFileAt(AddOn("textures/skin.bmp"), "a bitmap");
  const Bytes cache = stage.Cache();
  Remove({manta}, false);
  EXPECT_TRUE(SameBytes(cache, stage.Cache()));
  EXPECT_TRUE(exists(AddOn("textures/skin.bmp")));
}

TEST_F(Removing, ItsTexturesAndTheirBitmapsGoWithYes) {
  stage.SetTextures(manta, {"skin", "wing"});
  stage.AddUserTexture("other");
  const Bytes before = stage.Cache();
  for (const char* name : {"skin", "gskin", "Wing"}) stage.AddUserTexture(name);
  for (const char* name : {"skin", "wing", "other"}) WriteFileAt(AddOn(std::string("textures/") + name + ".bmp"), name);
  Remove({manta}, true);
  EXPECT_TRUE(SameBytes(before, stage.Cache()));
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/skin.bmp")), "skin");
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/wing.bmp")), "wing");
  EXPECT_FALSE(exists(AddOn("textures/skin.bmp")));
  EXPECT_FALSE(exists(AddOn("textures/wing.bmp")));
  EXPECT_EQ(ReadTextAt(AddOn("textures/other.bmp")), "other");
}

TEST_F(Removing, TheLastOfTwentyOneTexturesGoesToo) {
  std::vector<std::string> names;
  for (int i = 0; i < 21; ++i) names.push_back("skin" + std::to_string(i));
  stage.SetTextures(manta, names);
  const Bytes before = stage.Cache();
  stage.AddUserTexture("skin20");
  WriteFileAt(AddOn("textures/skin20.bmp"), "the last one");
  Remove({manta}, true);
  EXPECT_TRUE(SameBytes(before, stage.Cache()));
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/skin20.bmp")), "the last one");
}

TEST_F(Removing, TexturesThatAShipThatStaysNamesAreKeptWithTheirBitmaps) {
  stage.SetTextures(manta, {"skin", "gwing", "tail"});
  stage.SetTextures(wraith, {"SKIN", "wing", "gtail"});
  const std::vector<std::string> names = {"skin", "gskin", "wing", "gwing", "tail", "gtail"};
  for (const std::string& name : names) stage.AddUserTexture(name);
  for (const std::string& name : names) WriteFileAt(AddOn("textures/" + name + ".bmp"), name);
  const Bytes cache = stage.Cache();
  Remove({manta}, true);
  EXPECT_TRUE(SameBytes(cache, stage.Cache()));
  for (const std::string& name : names) EXPECT_EQ(ReadTextAt(AddOn("textures/" + name + ".bmp")), name);
}

TEST_F(Removing, ABitmapIsMovedOnceWhenTwoRemovedShipsNameIt) {
  for (const int ship : {manta, wraith}) stage.SetTextures(ship, {"skin"});
  WriteFileAt(AddOn("textures/skin.bmp"), "shared");
  Remove({manta, wraith}, true);
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/skin.bmp")), "shared");
  EXPECT_FALSE(exists(AddOn("removed/Wraith/skin.bmp")));
}

TEST_F(Removing, ATextureNameThatIsNoFileNameLeadsNowhere) {
  stage.SetTextures(manta, {"..\\stats\\manta", "*", "con"});
  WriteFileAt(AddOn("stats/manta.bmp"), "elsewhere");
  Remove({manta}, true);
  EXPECT_EQ(ReadTextAt(AddOn("stats/manta.bmp")), "elsewhere");
}

TEST_F(Removing, WithoutACacheThereIsABoxAndTheRemovalGoesOn) {
  std::filesystem::remove(stage.files.Game("tcachehw.dat"));
  stage.desk.ExpectBox("TCACHE not found!", "RemoveTexture()");
  Remove({manta}, true);
  EXPECT_EQ(stage.installation.ships.size(), 14U);
}

TEST_F(Removing, ADamagedCacheKeepsTheShipListedAndItCanBeRemovedWithoutItsTextures) {
  Bytes cache = stage.Cache();
  PutLittleEndian32(&cache.at(4), 0);
  WriteFileAt(stage.files.Game("tcachehw.dat"), cache);
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox("Error - not a valid tcache file", "GetTcacheTable");
  stage.desk.ExpectBox(
      "The textures could not be removed, as the message before this one says, so the ships stay listed. Put that "
      "right and remove them again, or keep their textures.");
  const RemovalResult result = Do({manta}, true);
  EXPECT_TRUE(result.begun);
  EXPECT_FALSE(result.done);
  EXPECT_TRUE(SameImage(before, stage.Image()));
  Remove({manta}, false);
  EXPECT_TRUE(SameBytes(cache, stage.Cache()));
}

TEST_F(Removing, AnotherFolderServesWhereTheNameIsTaken) {
  WriteFileAt(AddOn("removed/Manta/manta.shp"), "an earlier one");
  WriteFileAt(AddOn("removed/MANTA2"), "a file");
  MakeFolderAt(AddOn("removed/Manta3"));  // empty: it serves
  Remove({manta});
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/manta.shp")), "an earlier one");
  EXPECT_EQ(ReadTextAt(AddOn("removed/MANTA2")), "a file");
  EXPECT_EQ(ReadFileAt(AddOn("removed/Manta3/manta.shp")), stage.ModelBytes(manta));
  EXPECT_TRUE(exists(AddOn("removed/Manta3/manta.txt")));
}

TEST(FolderName, HoldsNothingThatAFolderCannotBeCalled) {
  EXPECT_EQ(FolderNameFor("Manta Ray"), "Manta Ray");
  EXPECT_EQ(FolderNameFor("a\\b/c:d*e?f\"g<h>i|j\tk\x7Fl"), "a_b_c_d_e_f_g_h_i_j_k_l");
  EXPECT_EQ(FolderNameFor(""), "_");
  EXPECT_EQ(FolderNameFor("   "), "_");
  EXPECT_EQ(FolderNameFor("."), "_");
  EXPECT_EQ(FolderNameFor(".."), "._");
  EXPECT_EQ(FolderNameFor("Mk. 2."), "Mk. 2_");
  EXPECT_EQ(FolderNameFor("Gl\xFC"
                          "ck \x80\x7F"),
            "Gl_ck __");
  EXPECT_EQ(FolderNameFor("con"), "_con");
  EXPECT_EQ(FolderNameFor("COM1.x"), "_COM1.x");
  EXPECT_EQ(FolderNameFor("Console"), "Console");
}

TEST_F(Removing, AShipWithAnOddNameIsKeptInAFolderOfItsOwn) {
  for (const std::string name : {"..", "a\\b", "con",
                                 "Gl\xFC"
                                 "ck"}) {
    WriteFileAt(AddOn("ships/manta.shp"), name);
    WriteFileAt(stage.files.Game("ships/manta.shp"), stage.ModelBytes(manta));
    stage.installation.ships = RecordsIn(ReadFileAt(stage.files.Program("ships.dat")));
    ShipRecord ship = stage.Record(wraith);
    ship.ShipName.Set(name);
    ship.ShipFile.Set("manta.shp");
    stage.installation.ships.push_back(ship);
    WriteFileAt(stage.files.Program("ships.dat"), CatalogueOf(stage.installation.ships));
    stage.Reload();
    const int last = static_cast<int>(stage.installation.ships.size()) - 2;
    if (stage.Record(manta).ShipName.Trimmed() == "Manta") {
      Remove({manta, last});
    } else {
      Remove({last});
    }
  }
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/manta.shp")), "..");
  EXPECT_EQ(ReadTextAt(AddOn("removed/a_b/manta.shp")), "a\\b");
  EXPECT_EQ(ReadTextAt(AddOn("removed/_con/manta.shp")), "con");
  EXPECT_EQ(ReadTextAt(AddOn("removed/Gl_ck/manta.shp")),
            "Gl\xFC"
            "ck");
}

}  // namespace
}  // namespace oravin::test
