// Where the archive holds a ship's model now, and unpacking it from there.

#include "actions/load_table.h"
#include "actions/unpack_models.h"
#include "base/file_error.h"
#include "demo/compressor.h"
#include "support/archive_stage.h"

namespace oravin::test {
namespace {

/// Two models whose disguised names are the same, and one more.
struct ModelEntry : testing::Test {
  ModelEntry() {
    Write({{"hum.wav", BytesOf("the engines hum")}, Packed("alpha.shp"), Packed("xyzha.shp"), Packed("Bravo.SHP")});
  }

  static Bytes ModelBytes(const std::string& name) { return BytesOf("the model " + name + " in full"); }
  static demo::ArchiveFile Packed(const std::string& name) { return {name, demo::Compress(ModelBytes(name))}; }
  void Write(const std::vector<demo::ArchiveFile>& files) const { stage.Write(files); }
  [[nodiscard]] TableEntry Entry(const std::string& name) const { return EntryNamed(stage.Archive(), name); }
  [[nodiscard]] ShipRecord Alpha() const { return ShipAt("Alpha", "alpha.shp", Entry("alpha.shp")); }
  void Rename(const TableEntry& entry, const std::string& name) const {
    PatchFileAt(stage.Game("resource.hog"), entry.position + 8, BytesOf(name));
  }
  std::optional<HogEntry> Live(const ShipRecord& ship) { return LiveEntryOf(stage.host, stage.Installed(), ship); }
  void ExpectNotFound(const std::string& model = "alpha.shp") {
    stage.desk.ExpectBox("The model " + model + " was not found in resource.hog. Nothing was unpacked.");
  }

  ArchiveStage stage;
};

void ExpectEntry(const std::optional<HogEntry>& entry, const TableEntry& expected) {
  ASSERT_TRUE(entry.has_value());
  EXPECT_EQ(entry->Offset, expected.offset);
  EXPECT_EQ(entry->Size, expected.size);
  EXPECT_EQ(entry->FatPos, expected.position);
}

TEST_F(ModelEntry, ARecordThatIsStillRightIsTaken) { ExpectEntry(Live(Alpha()), Entry("alpha.shp")); }

TEST_F(ModelEntry, ItIsRightInAnotherLetterCase) {
  ExpectEntry(Live(ShipAt("Bravo", "bravo.shp", Entry("Bravo.SHP"))), Entry("Bravo.SHP"));
}

TEST_F(ModelEntry, ItIsRightWhenTheNameIsDisguised) {
  const ShipRecord alpha = Alpha();
  const TableEntry entry = Entry("alpha.shp");
  Rename(entry, "S47");
  Rename(Entry("xyzha.shp"), "S47");  // two of one disguised name: the place alone tells them apart
  ExpectEntry(Live(alpha), entry);
}

TEST_F(ModelEntry, AModelThatMovedInAPatchedArchiveIsLookedUpAnew) {
  const ShipRecord alpha = Alpha();
  Write({{"new.wav", Bytes(200, 1)}, Packed("Bravo.SHP"), Packed("alpha.shp")});
  ExpectEntry(Live(alpha), Entry("alpha.shp"));
}

TEST_F(ModelEntry, AnotherOffsetOrSizeAtThePlaceMeansThatItIsLookedUpAnew) {
  ShipRecord alpha = Alpha();
  alpha.HogOffset = Int32Value(Entry("alpha.shp").offset + 1);
  ExpectEntry(Live(alpha), Entry("alpha.shp"));
  alpha = Alpha();
  alpha.HogSize = Int32Value(Entry("alpha.shp").size - 1);
  ExpectEntry(Live(alpha), Entry("alpha.shp"));
}

TEST_F(ModelEntry, APlaceInsideTheHeaderOrPastTheEndIsLookedUpAnew) {
  for (const std::uint32_t place : {1U, 8U, 15U, 100'000'000U, 0xFFFFFFFFU}) {
    ShipRecord alpha = Alpha();
    alpha.HogFatPos = Int32Value(place);
    ExpectEntry(Live(alpha), Entry("alpha.shp"));
  }
}

TEST_F(ModelEntry, AnewTheOneDisguisedNameServesAsLastResort) {
  ShipRecord alpha = Alpha();
  const TableEntry entry = Entry("alpha.shp");
  Rename(entry, "S47");
  alpha.HogSize = Int32Value(entry.size + 1);
  ExpectEntry(Live(alpha), entry);
  Rename(Entry("xyzha.shp"), "S47");
  EXPECT_FALSE(Live(alpha));
}

TEST_F(ModelEntry, ALongerNameAtThePlaceIsAnotherOne) {
  const ShipRecord alpha = Alpha();
  Write({{"hum.wav", BytesOf("the engines hum")}, Packed("alpha.shpx")});
  EXPECT_FALSE(Live(alpha));
}

TEST_F(ModelEntry, ARecordWithoutAPlaceIsLookedUpByItsPlainName) {
  ASSERT_TRUE(Live(StockShip("Alpha", "ALPHA.shp")));
  EXPECT_EQ(Live(StockShip("Alpha", "ALPHA.shp"))->FatPos, Live(Alpha())->FatPos);
  EXPECT_FALSE(Live(StockShip("Other", "other.shp")));
}

TEST_F(ModelEntry, WithoutTheArchiveARecordWithoutAPlaceIsAnErrorToo) {
  std::filesystem::remove(stage.Game("resource.hog"));
  EXPECT_THROW(Live(StockShip("Alpha", "alpha.shp")), FileError);
}

TEST_F(ModelEntry, WithoutTheArchiveThereIsAnError) {
  const ShipRecord alpha = Alpha();
  std::filesystem::remove(stage.Game("resource.hog"));
  EXPECT_THROW(Live(alpha), FileError);
}

TEST_F(ModelEntry, UnpackShipWritesTheModelUnderTheNameAskedFor) {
  EXPECT_TRUE(UnpackShip(stage.host, stage.Installed(), Alpha(), "other.shp"));
  EXPECT_EQ(ReadFileAt(stage.Game("ships/other.shp")), ModelBytes("alpha.shp"));
  EXPECT_FALSE(exists(stage.Game("ships/alpha.shp")));
}

TEST_F(ModelEntry, UnpackShipNeverWritesWhatNowStandsAtTheOldPlace) {
  const ShipRecord alpha = Alpha();
  // The names have changed places, and with them the models.
  Write({{"hum.wav", BytesOf("the engines hum")}, Packed("bravo.shp"), Packed("xyzha.shp"), Packed("alpha.shp")});
  EXPECT_TRUE(UnpackShip(stage.host, stage.Installed(), alpha, "alpha.shp"));
  EXPECT_EQ(ReadFileAt(stage.Game("ships/alpha.shp")), ModelBytes("alpha.shp"));
}

TEST_F(ModelEntry, UnpackShipSaysWhenTheModelIsNowhereAndWritesNothing) {
  const ShipRecord alpha = Alpha();
  Write({Packed("Bravo.SHP")});
  WriteFileAt(stage.Game("ships/alpha.shp"), "as it was");
  const FolderImage before = stage.Image();
  ExpectNotFound();
  EXPECT_FALSE(UnpackShip(stage.host, stage.Installed(), alpha, "alpha.shp"));
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(ModelEntry, UnpackShipFindsTheModelOfARecordWithoutAPlaceByItsName) {
  EXPECT_TRUE(UnpackShip(stage.host, stage.Installed(), StockShip("Alpha", "alpha.shp"), "alpha.shp"));
  EXPECT_EQ(ImageOf(stage.Game("ships")).size(), 1U);
}

TEST_F(ModelEntry, UnpackShipSaysSoWhereTheArchiveHasNoModelOfARecordWithoutAPlace) {
  stage.desk.ExpectBox("The model other.shp was not found in resource.hog. Nothing was unpacked.");
  EXPECT_FALSE(UnpackShip(stage.host, stage.Installed(), StockShip("Other", "other.shp"), "other.shp"));
  EXPECT_TRUE(ImageOf(stage.Game("ships")).empty());
}

TEST_F(ModelEntry, UnpackShipWithATableThatCannotBeReadDoesNotSayThatTheModelIsMissing) {
  ShipRecord alpha = Alpha();
  alpha.HogSize = Int32Value(1);
  PatchFileAt(stage.Game("resource.hog"), 8, {0x7F, 0xFF, 0xFF, 0xFF});
  stage.desk.ExpectBox("Error - could not read " + stage.hogPath +
                           ": it says that it holds 2,147,483,647 files, more than it has room for",
                       "GetHogData");
  stage.desk.ExpectBox("Error - could not look for alpha.shp in " + stage.hogPath + ": its table cannot be read",
                       "UnpackFile()");
  EXPECT_FALSE(UnpackShip(stage.host, stage.Installed(), alpha, "alpha.shp"));
}

TEST_F(ModelEntry, UnpackShipWithoutTheArchiveShowsTheTrapsBox) {
  const ShipRecord alpha = Alpha();
  std::filesystem::remove(stage.Game("resource.hog"));
  stage.desk.ExpectBox("Error - could not open " + stage.hogPath + ": it does not exist", "UnpackFile()");
  EXPECT_FALSE(UnpackShip(stage.host, stage.Installed(), alpha, "alpha.shp"));
}

}  // namespace
}  // namespace oravin::test
