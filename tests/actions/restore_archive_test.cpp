// What disabling undoes in the archive and in the ships folder, with a catalogue and without one.

#include "actions/restore_archive.h"

#include "actions/load_table.h"

#include "base/file_error.h"
#include "demo/compressor.h"
#include "support/archive_stage.h"

namespace oravin::test {
namespace {

constexpr const char* question = "Do you wish to delete the imported ship(s) in SL\\ships\\ ?";

/// An archive with disguised names, the loose models, and the table's backup.
struct Restoring : testing::Test {
  Restoring() {
    stage.Write({{"hum.wav", BytesOf("the engines hum")},
                 {"alpha.shp", Bytes(10, 1)},
                 {"Bravo.SHP", Bytes(10, 2)},
                 {"abc", Bytes(10, 3)}});
    plain = stage.Archive();
    const auto table = static_cast<std::ptrdiff_t>(BigEndian32(&plain[12]));
    WriteFileAt(stage.Program("backup/resource.fat"), Bytes(plain.begin(), plain.begin() + table));
    backup = LoadFatBackup(stage.host, stage.Installed());
    ships = {ShipAt("Alpha", "alpha.shp", Entry("alpha.shp")), ShipAt("Bravo", "bravo.shp", Entry("Bravo.SHP")),
             ShipRecord()};
    Write("alpha.shp", "S47ha.shp");
    Write("Bravo.SHP", "S47vo.shp");
    for (const char* name : {"alpha.shp", "alpha.org", "bravo.shp", "own.shp", "manta.shp", "manta.bak", "manta.org"}) {
      WriteFileAt(stage.Game(std::string("ships/") + name), name);
    }
  }

  [[nodiscard]] TableEntry Entry(const std::string& name) const { return EntryNamed(plain, name); }
  /// Writes over the name of an entry.
  void Write(const std::string& entryName, const std::string& name) const {
    PatchFileAt(stage.Game("resource.hog"), Entry(entryName).position + 8, BytesOf(name));
  }
  [[nodiscard]] std::string NameNow(const std::string& name) const { return NameIn(stage.Archive(), Entry(name)); }
  bool Restore() { return RestoreHog(stage.host, stage.Installed(ships), backup); }
  bool RestoreByBackup() { return RestoreHogByBackup(stage.host, stage.Installed(), backup); }
  [[nodiscard]] std::vector<std::string> Loose() const {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : ImageOf(stage.Game("ships"))) names.push_back(name);
    return names;
  }
  void ExpectPassedOver(const std::string& names) {
    stage.desk.ExpectBox(
        "The names of these ships were left as they are in resource.hog, because something else stands at their place "
        "in its table:" +
        names);
  }
  /// Makes the deletion of one file fail.
  void KeepFromDeletion(const std::string& path) {
    stage.host.files.before = [path](const FileOperation& operation) {
      if (operation.kind == FileOperation::Kind::erase && operation.path == path) {
        throw FileError("could not delete", path, "another program has it open");
      }
    };
    stage.desk.ExpectBox("Error - could not delete " + path + ": another program has it open", "RestoreHog");
  }

  ArchiveStage stage;
  Bytes plain;
  HogTable backup;
  Ships ships;
};

using Names = std::vector<std::string>;

TEST_F(Restoring, PutsTheVeryBytesBack) {
  EXPECT_TRUE(Restore());
  EXPECT_TRUE(SameBytes(plain, stage.Archive()));
}

TEST_F(Restoring, WithoutABackupTheCataloguesSpellingIsWritten) {
  backup = {};
  EXPECT_TRUE(Restore());
  EXPECT_EQ(NameNow("alpha.shp"), "alpha.shp");
  EXPECT_EQ(NameNow("Bravo.SHP"), "bravo.shp");
}

TEST_F(Restoring, TheBackupsSpellingCountsAtTheSamePlaceOnly) {
  std::vector<HogEntry> entries = backup.entries;
  for (HogEntry& entry : entries) ++entry.FatPos;
  backup = TableOf(entries);
  EXPECT_TRUE(Restore());
  EXPECT_EQ(NameNow("Bravo.SHP"), "bravo.shp");
}

TEST_F(Restoring, ABackupThatNamesSomethingElseThereIsNotFollowed) {
  std::vector<HogEntry> entries = backup.entries;
  entries[2].Name = "Other.SHP";
  backup = TableOf(entries);
  EXPECT_TRUE(Restore());
  EXPECT_EQ(NameNow("Bravo.SHP"), "bravo.shp");
}

TEST_F(Restoring, ANameThatStandsPlainAlreadyStays) {
  Write("Bravo.SHP", "Bravo.SHP");
  EXPECT_TRUE(Restore());
  EXPECT_TRUE(SameBytes(plain, stage.Archive()));
}

TEST_F(Restoring, TheLooseModelsOfStockShipsAndTheirBackupsAreDeletedAndNothingElse) {
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Loose(), (Names{"manta.bak", "manta.org", "manta.shp", "own.shp"}));
}

TEST_F(Restoring, LooseModelsThatAreMissingDoNotMatter) {
  std::filesystem::remove(stage.Game("ships/alpha.shp"));
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Loose(), (Names{"manta.bak", "manta.org", "manta.shp", "own.shp"}));
}

TEST_F(Restoring, TheBackupOfAnAddOnGoesWhereItIsTheSameAsTheAddOn) {
  ShipRecord ship = ShipAt("Manta", "manta.shp", {});
  ship.Imported = true;
  ships.push_back(ship);
  WriteFileAt(stage.Program("addons/ships/manta.shp"), "the add-on");
  for (const auto& [content, stays] : {std::pair("the add-on", false), std::pair("another", true)}) {
    WriteFileAt(stage.Game("ships/manta.shp"), "edited");
    WriteFileAt(stage.Game("ships/manta.bak"), content);
    EXPECT_TRUE(Restore());
    EXPECT_FALSE(exists(stage.Game("ships/manta.shp")));
    EXPECT_EQ(exists(stage.Game("ships/manta.bak")), stays) << content;
  }
}

TEST_F(Restoring, ANameAtAPlaceThatBearsAnotherIsPassedOverAndNamed) {
  Write("alpha.shp", "omega.shp");
  ExpectPassedOver("\nalpha.shp");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(NameNow("alpha.shp"), "omega.shp");
  EXPECT_EQ(NameNow("Bravo.SHP"), "Bravo.SHP");
  EXPECT_EQ(Loose(), (Names{"manta.bak", "manta.org", "manta.shp", "own.shp"}));
}

TEST_F(Restoring, APlaceInsideTheHeaderIsNeverWritten) {
  const Bytes before = stage.Archive();
  for (const std::uint32_t place : {1U, 8U, 15U}) {
    ships.resize(1);
    ships[0].HogFatPos = Int32Value(place);
    ExpectPassedOver("\nalpha.shp");
    EXPECT_TRUE(Restore());
  }
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(Restoring, AShipWithoutAPlaceIsPassedOverSilentlyAndItsLooseModelDeleted) {
  ships[0] = StockShip("Alpha", "alpha.shp");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(NameNow("alpha.shp"), "S47ha.shp");
  EXPECT_EQ(Loose(), (Names{"manta.bak", "manta.org", "manta.shp", "own.shp"}));
}

TEST_F(Restoring, RecordsWithoutAModelAreLeftAlone) {
  ships = {ShipAt("Blank", "", Entry("alpha.shp")), ShipRecord()};
  const FolderImage before = stage.Image();
  EXPECT_TRUE(Restore());
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Restoring, AnAddOnShipThatIsStillAmongTheAddOnsLosesItsLooseModelAlone) {
  WriteFileAt(stage.Program("addons/ships/Manta.shp"), "the add-on");
  ships = {ImportedShip("Manta", "manta.shp")};
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Loose(), (Names{"alpha.org", "alpha.shp", "bravo.shp", "manta.bak", "manta.org", "own.shp"}));
  EXPECT_EQ(ReadTextAt(stage.Program("addons/ships/Manta.shp")), "the add-on");
}

TEST_F(Restoring, AnAddOnShipThatIsGoneIsAskedForAndDeletedWhateverTheAnswerIs) {
  for (const Answer answer : {Answer::yes, Answer::no}) {
    WriteFileAt(stage.Game("ships/manta.shp"), "again");
    WriteFileAt(stage.Game("ships/manta.bak"), "again");
    ships = {ImportedShip("Manta", "manta.shp")};
    stage.desk.ExpectQuestion(question, answer);
    EXPECT_TRUE(Restore());
    EXPECT_EQ(Loose(), (Names{"alpha.org", "alpha.shp", "bravo.shp", "manta.org", "own.shp"}));
  }
}

TEST_F(Restoring, TheQuestionIsAskedOnceForAllOfThem) {
  WriteFileAt(stage.Game("ships/wraith.bak"), "older");
  WriteFileAt(stage.Game("ships/wraith.shp"), "newer");
  ships = {ImportedShip("Manta", "manta.shp"), ImportedShip("Wraith", "wraith.shp")};
  stage.desk.ExpectQuestion(question, Answer::no);
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Loose(), (Names{"alpha.org", "alpha.shp", "bravo.shp", "manta.org", "own.shp"}));
}

TEST_F(Restoring, ThePlaceOfAnImportedShipIsNeverWritten) {
  const Bytes before = stage.Archive();
  WriteFileAt(stage.Program("addons/ships/alpha.shp"), "an add-on of the same name");
  ships = {ShipAt("Alpha", "alpha.shp", Entry("alpha.shp"))};
  ships[0].Imported = true;
  EXPECT_TRUE(Restore());
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(Restoring, AMissingArchiveGivesItsBoxAndNothingIsDone) {
  std::filesystem::remove(stage.Game("resource.hog"));
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox("Error - hog not found", "RestoreHog");
  EXPECT_FALSE(Restore());
  stage.desk.ExpectBox("Error - hog not found", "RestoreHog");
  EXPECT_FALSE(RestoreByBackup());
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Restoring, AModelThatCannotBeDeletedIsToldOfAndTheOthersAreRestored) {
  KeepFromDeletion(stage.shipsFolder + "alpha.shp");
  EXPECT_FALSE(Restore());
  EXPECT_TRUE(SameBytes(plain, stage.Archive()));
  EXPECT_EQ(Loose(), (Names{"alpha.shp", "manta.bak", "manta.org", "manta.shp", "own.shp"}));
}

TEST_F(Restoring, ANameThatCannotBeWrittenIsToldOfAndTheOthersAreRestored) {
  int writes = 0;
  stage.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::write && ++writes == 1) {
      throw FileError("could not write", operation.path, "the disk is full");
    }
  };
  stage.desk.ExpectBox("Error - could not write " + stage.hogPath + ": the disk is full", "RestoreHog");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(NameNow("alpha.shp"), "S47ha.shp");
  EXPECT_EQ(NameNow("Bravo.SHP"), "Bravo.SHP");
}

TEST_F(Restoring, ByTheBackupAloneEveryDisguisedNameIsPutBackAsItWasSpelled) {
  EXPECT_TRUE(RestoreByBackup());
  EXPECT_TRUE(SameBytes(plain, stage.Archive()));
}

TEST_F(Restoring, ByTheBackupAloneOnlyTheModelsOfDisguisedNamesAreDeleted) {
  Write("Bravo.SHP", "Bravo.SHP");  // never disguised: the loose model is the player's own
  EXPECT_TRUE(RestoreByBackup());
  EXPECT_EQ(Loose(), (Names{"bravo.shp", "manta.bak", "manta.org", "manta.shp", "own.shp"}));
}

TEST_F(Restoring, ByTheBackupAloneANameIsPutBackAtTheSamePlaceOnly) {
  std::vector<HogEntry> entries = backup.entries;
  for (HogEntry& entry : entries) ++entry.FatPos;
  backup = TableOf(entries);
  const FolderImage before = stage.Image();
  EXPECT_TRUE(RestoreByBackup());
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Restoring, AnEmptyBackupRestoresNothing) {
  backup = {};
  const FolderImage before = stage.Image();
  EXPECT_TRUE(RestoreByBackup());
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Restoring, ANameInTheBackupThatIsNoFileNameIsPassedOver) {
  stage.Write({{"..\\..\\evil.shp", Bytes(10, 1)}});
  plain = stage.Archive();
  backup = stage.Table();
  Write("..\\..\\evil.shp", "S47..\\evil.shp");
  WriteFileAt(stage.folder.Native("evil.shp"), "not the program's business");
  const FolderImage before = stage.Image();
  EXPECT_TRUE(RestoreByBackup());
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Restoring, ByTheBackupAloneAModelThatCannotBeDeletedKeepsItsNameDisguisedForTheNextRun) {
  KeepFromDeletion(stage.shipsFolder + "alpha.shp");
  EXPECT_FALSE(RestoreByBackup());
  EXPECT_EQ(NameNow("alpha.shp"), "S47ha.shp");
  EXPECT_EQ(NameNow("Bravo.SHP"), "Bravo.SHP");
  stage.host.files.before = nullptr;
  EXPECT_TRUE(RestoreByBackup());
  EXPECT_TRUE(SameBytes(plain, stage.Archive()));
  EXPECT_EQ(Loose(), (Names{"manta.bak", "manta.org", "manta.shp", "own.shp"}));
}

}  // namespace
}  // namespace oravin::test
