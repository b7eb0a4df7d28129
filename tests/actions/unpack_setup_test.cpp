// The stock models' way out of the archive, and the disguise of their names in its table.

#include "actions/unpack_models.h"
#include "archive/disguise.h"
#include "base/file_error.h"
#include "demo/compressor.h"
#include "desk/program_end.h"
#include "files/file.h"
#include "support/archive_stage.h"

namespace oravin::test {
namespace {

Bytes ModelBytes(const std::string& name) { return BytesOf("the model " + name + " in full"); }

demo::ArchiveFile Packed(const std::string& name) { return {name, demo::Compress(ModelBytes(name))}; }

/// Alpha, the two-part Twin and Bravo, whose entry is spelled in its own way.
struct UnpackSetupTest : testing::Test {
  UnpackSetupTest() {
    stage.Write({{"hum.wav", BytesOf("the engines hum")},
                 Packed("alpha.shp"),
                 Packed("twin.shp"),
                 Packed("t_twin.shp"),
                 Packed("Bravo.SHP")});
    before = stage.Archive();
    ships = {ShipAt("Alpha", "alpha.shp", Entry("alpha.shp")), ShipAt("Twin", "twin.shp", Entry("twin.shp")),
             ShipAt("Twin", "t_twin.shp", Entry("t_twin.shp")), ShipAt("Bravo", "bravo.shp", Entry("Bravo.SHP")),
             ShipRecord()};
    ships[1].HasSecondPart = true;
    ships[1].SecondPartIndex = Int16Value(2);
  }

  [[nodiscard]] TableEntry Entry(const std::string& name) const { return EntryNamed(before, name); }
  void SetUpModels() { UnpackSetup(stage.host, stage.Installed(ships)); }
  [[nodiscard]] std::string NameNow(const std::string& name) const { return NameIn(stage.Archive(), Entry(name)); }
  [[nodiscard]] Bytes Loose(const std::string& name) const { return ReadFileAt(stage.Game("ships/" + name)); }
  void ExpectPassedOver(const std::string& names) {
    stage.desk.ExpectBox(
        "The names of these ships were left as they are in resource.hog, because the model could not be unpacked or "
        "something else stands at its place in the table:" +
        names);
  }

  ArchiveStage stage;
  Ships ships;
  Bytes before;
};

TEST_F(UnpackSetupTest, EveryModelIsWrittenAndEveryNameDisguised) {
  SetUpModels();
  EXPECT_EQ(Loose("alpha.shp"), ModelBytes("alpha.shp"));
  EXPECT_EQ(Loose("bravo.shp"), ModelBytes("Bravo.SHP"));
  EXPECT_EQ(NameNow("alpha.shp"), "S47ha.shp");
  EXPECT_EQ(NameNow("Bravo.SHP"), "S47vo.shp");
  EXPECT_EQ(NameNow("hum.wav"), "hum.wav");
}

TEST_F(UnpackSetupTest, NothingElseInTheArchiveChanges) {
  Bytes expected = before;
  for (const auto& [entry, name] : std::vector<std::pair<const char*, std::string>>{{"alpha.shp", "S47ha.shp"},
                                                                                    {"twin.shp", "S47n.shp"},
                                                                                    {"t_twin.shp", "S47win.shp"},
                                                                                    {"Bravo.SHP", "S47vo.shp"}}) {
    std::copy(name.begin(), name.end(), expected.begin() + Entry(entry).position + 8);
  }
  SetUpModels();
  EXPECT_TRUE(SameBytes(expected, stage.Archive()));
}

TEST_F(UnpackSetupTest, TheFirstPartsModelServesBothParts) {
  SetUpModels();
  EXPECT_EQ(Loose("twin.shp"), ModelBytes("twin.shp"));
  EXPECT_EQ(Loose("t_twin.shp"), ModelBytes("twin.shp"));
  EXPECT_EQ(NameNow("twin.shp"), "S47n.shp");
  EXPECT_EQ(NameNow("t_twin.shp"), "S47win.shp");
}

TEST_F(UnpackSetupTest, OfThreeRecordsWithOneNameTheThirdHasItsOwnModel) {
  ships[0].ShipName.Set("Twin");  // three in a row: the first two are marked
  ships[0].HasSecondPart = true;
  ships[0].SecondPartIndex = Int16Value(1);
  SetUpModels();
  EXPECT_EQ(Loose("alpha.shp"), ModelBytes("alpha.shp"));
  EXPECT_EQ(Loose("twin.shp"), ModelBytes("alpha.shp"));
  EXPECT_EQ(Loose("t_twin.shp"), ModelBytes("t_twin.shp"));
}

TEST_F(UnpackSetupTest, APartnerBehindTheShipIsNoPartner) {
  ships[2].HasSecondPart = true;
  ships[2].SecondPartIndex = Int16Value(1);
  ships[1].HasSecondPart = false;
  SetUpModels();
  EXPECT_EQ(Loose("twin.shp"), ModelBytes("twin.shp"));
  EXPECT_EQ(Loose("t_twin.shp"), ModelBytes("t_twin.shp"));
  EXPECT_EQ(Loose("bravo.shp"), ModelBytes("Bravo.SHP"));
}

TEST_F(UnpackSetupTest, TwoShipsMayHaveOneModel) {
  ships.insert(ships.begin() + 3, ShipAt("Alpha Two", "ALPHA.shp", Entry("alpha.shp")));
  SetUpModels();
  EXPECT_EQ(Loose("ALPHA.shp"), ModelBytes("alpha.shp"));
  EXPECT_EQ(Loose("bravo.shp"), ModelBytes("Bravo.SHP"));
  EXPECT_EQ(ImageOf(stage.Game("ships")).size(), 4U);
  EXPECT_EQ(NameNow("alpha.shp"), "S47HA.shp");
}

TEST_F(UnpackSetupTest, ImportedShipsAndRecordsWithoutAModelAreLeftAlone) {
  ships = {ImportedShip("Manta", "hum.wav"), ShipAt("Blank", "", Entry("alpha.shp"))};
  ships[0].HogFatPos = Int32Value(Entry("hum.wav").position);
  SetUpModels();
  EXPECT_TRUE(ImageOf(stage.Game("ships")).empty());
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(UnpackSetupTest, AShipWithoutAPlaceIsPassedOverSilently) {
  ships[0] = StockShip("Alpha", "alpha.shp");
  SetUpModels();
  EXPECT_FALSE(exists(stage.Game("ships/alpha.shp")));
  EXPECT_EQ(NameNow("alpha.shp"), "alpha.shp");
}

TEST_F(UnpackSetupTest, ASecondPartWithoutAPlaceStillGetsTheFirstPartsModel) {
  ships[2] = StockShip("Twin", "t_twin.shp");
  SetUpModels();
  EXPECT_EQ(Loose("t_twin.shp"), ModelBytes("twin.shp"));
  EXPECT_EQ(NameNow("t_twin.shp"), "t_twin.shp");
}

TEST_F(UnpackSetupTest, RunAgainOnDisguisedNamesItDoesTheSame) {
  SetUpModels();
  const FolderImage once = stage.Image();
  SetUpModels();
  EXPECT_TRUE(SameImage(once, stage.Image()));
}

TEST_F(UnpackSetupTest, AModelThatIsNowhereKeepsWhatStandsAtItsPlace) {
  ships[0] = ShipAt("Gone", "gone1.shp", Entry("alpha.shp"));
  stage.desk.ExpectBox("The model gone1.shp was not found in resource.hog. Nothing was unpacked.");
  ExpectPassedOver("\ngone1.shp");
  SetUpModels();
  EXPECT_EQ(NameNow("alpha.shp"), "alpha.shp");
  EXPECT_EQ(NameNow("Bravo.SHP"), "S47vo.shp");
}

TEST_F(UnpackSetupTest, APlaceThatBearsAnotherNameIsNotWrittenThoughTheLooseModelIsThere) {
  WriteFileAt(stage.Game("ships/gone1.shp"), "the player's own");
  ships[0] = ShipAt("Gone", "gone1.shp", Entry("alpha.shp"));
  stage.desk.ExpectBox("The model gone1.shp was not found in resource.hog. Nothing was unpacked.");
  ExpectPassedOver("\ngone1.shp");
  SetUpModels();
  EXPECT_EQ(NameNow("alpha.shp"), "alpha.shp");
  EXPECT_EQ(ReadTextAt(stage.Game("ships/gone1.shp")), "the player's own");
}

TEST_F(UnpackSetupTest, AModelThatCouldNotBeUnpackedKeepsItsNamePlain) {
  PatchFileAt(stage.Game("resource.hog"), Entry("alpha.shp").offset + 5, {0x00, 0x00});  // refers to before its start
  PatchFileAt(stage.Game("resource.hog"), Entry("Bravo.SHP").position, {0x7F, 0xFF, 0xFF, 0xFF});
  ships[3].HogOffset = Int32Value(0x7FFFFFFF);
  stage.desk.ExpectBox(
      "Error - could not unpack " + stage.shipsFolder + "alpha.shp: it refers to what lies before its start",
      "UnpackFile()");
  stage.desk.ExpectBox("Error - could not unpack " + stage.shipsFolder + "bravo.shp: its place in " + stage.hogPath +
                           " lies past that file's end",
                       "UnpackFile()");
  ExpectPassedOver("\nalpha.shp\nbravo.shp");
  SetUpModels();
  EXPECT_EQ(NameNow("alpha.shp"), "alpha.shp");
  EXPECT_EQ(NameNow("Bravo.SHP"), "Bravo.SHP");
  EXPECT_EQ(NameNow("twin.shp"), "S47n.shp");
}

TEST_F(UnpackSetupTest, APlaceInsideTheHeaderIsNeverWritten) {
  // The model itself is found by its name, so that it is loose; its record's place stays wrong.
  for (const std::uint32_t place : {1U, 8U, 15U}) {
    stage.Write(before);
    ships[0].HogFatPos = Int32Value(place);
    ExpectPassedOver("\nalpha.shp");
    SetUpModels();
    const Bytes now = stage.Archive();
    EXPECT_EQ(Bytes(now.begin(), now.begin() + 24), Bytes(before.begin(), before.begin() + 24)) << place;
    EXPECT_EQ(NameNow("alpha.shp"), "alpha.shp");
  }
}

TEST_F(UnpackSetupTest, APlaceInsideTheHeaderThatSpellsTheNameIsNotWrittenEither) {
  // Position 8 plus 8 is where the first entry's bytes begin: they are made to spell the name.
  Bytes archive = before;
  const Bytes name = BytesOf(std::string("alpha.shp") + '\0');
  std::copy(name.begin(), name.end(), archive.begin() + 16);
  stage.Write(archive);
  File hog(stage.host.files, stage.hogPath, OpenFor::changing);
  EXPECT_FALSE(DisguiseName(hog, 8, "alpha.shp"));
  EXPECT_FALSE(RestoreName(hog, 8, "alpha.shp", "alpha.shp"));
  EXPECT_FALSE(NamesModel(hog, 8, "alpha.shp"));
  EXPECT_TRUE(SameBytes(archive, stage.Archive()));
}

TEST_F(UnpackSetupTest, WhereTheModelMovedItIsUnpackedButTheOldPlaceIsNotWritten) {
  stage.Write({Packed("Bravo.SHP"), {"hum.wav", BytesOf("the engines hum")}, Packed("alpha.shp")});
  const Bytes patched = stage.Archive();
  ships = {ships[0]};
  ExpectPassedOver("\nalpha.shp");
  SetUpModels();
  EXPECT_EQ(Loose("alpha.shp"), ModelBytes("alpha.shp"));
  EXPECT_TRUE(SameBytes(patched, stage.Archive()));
}

TEST_F(UnpackSetupTest, AShortNameCannotBeDisguised) {
  stage.Write({Packed("abc")});
  before = stage.Archive();
  ships = {ShipAt("Short", "abc", Entry("abc"))};
  ExpectPassedOver("\nabc");
  SetUpModels();
  EXPECT_EQ(Loose("abc"), ModelBytes("abc"));
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(UnpackSetupTest, OfManyThatArePassedOverTheFirstTwentyAreNamed) {
  std::string names;
  ships.clear();
  for (int i = 0; i < 23; ++i) {
    const std::string file = "gone" + std::to_string(100 + i) + ".shp";
    ships.push_back(ShipAt("Gone", file, Entry("alpha.shp")));
    stage.desk.ExpectBox("The model " + file + " was not found in resource.hog. Nothing was unpacked.");
    if (i < 20) names += "\n" + file;
  }
  ExpectPassedOver(names + "\nand 3 more");
  SetUpModels();
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(UnpackSetupTest, AnInvalidPathGivesACriticalBoxAndEndsTheProgram) {
  Installation nowhere = stage.Installed(ships);
  nowhere.GamePath += "nowhere\\";
  stage.desk.ExpectBox("Error - Invalid Path", "UnpackSetup", Icon::critical);
  EXPECT_THROW(UnpackSetup(stage.host, nowhere), ProgramEnd);
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
  EXPECT_TRUE(ImageOf(stage.Game("ships")).empty());
}

TEST_F(UnpackSetupTest, WithoutTheShipsFolderNothingIsDisguised) {
  std::filesystem::remove_all(stage.Game("ships"));
  for (const char* name : {"alpha.shp", "twin.shp", "t_twin.shp", "bravo.shp"}) {
    stage.desk.ExpectBox("Error - could not open " + stage.shipsFolder + name + ".oravin-new: it does not exist",
                         "UnpackFile()");
  }
  ExpectPassedOver("\nalpha.shp\ntwin.shp\nt_twin.shp\nbravo.shp");
  SetUpModels();
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(UnpackSetupTest, WithoutTheArchiveEveryStepSaysSo) {
  std::filesystem::remove(stage.Game("resource.hog"));
  for (int model = 0; model < 4; ++model) {
    stage.desk.ExpectBox("Error - could not open " + stage.hogPath + ": it does not exist", "UnpackFile()");
  }
  stage.desk.ExpectBox("Error - could not open " + stage.hogPath + ": it does not exist", "UnpackSetup");
  SetUpModels();
  EXPECT_TRUE(ImageOf(stage.Game("ships")).empty());
}

TEST_F(UnpackSetupTest, ProgressIsShownShipByShipAndThenEnds) {
  SetUpModels();
  ASSERT_EQ(stage.desk.progress.size(), 4U);
  EXPECT_EQ(stage.desk.progress[0].text, "Unpacking alpha.shp");
  EXPECT_EQ(stage.desk.progress[0].total, 5);
  EXPECT_EQ(stage.desk.progress[2].text, "Unpacking bravo.shp");
  EXPECT_EQ(stage.desk.progress[2].done, 3);
  EXPECT_EQ(stage.desk.progress[3].text, "");
  EXPECT_EQ(stage.desk.progress[3].total, 0);
}

}  // namespace
}  // namespace oravin::test
