#include "actions/restore_weapons.h"

#include <gtest/gtest.h>

#include "demo/archive_writer.h"
#include "demo/compressor.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/stats_tab_stage.h"

namespace oravin::test {
namespace {

constexpr const char* differentBox =
    "This file's backup copy is too different than the\n"
    "the original to restore from. shipname.shp <> shipname.bak";

struct RestoredWeapons : TabStage {
  RestoredWeapons() {
    stock = ModelWith(weapons);
    modified = weapons;
    modified[0] = {weapons[0].filePosition, 1, 1, 2, 3, 9, 9};
    modified[3].gunType = 15;
    modified[5].kind = 3;
    modifiedModel = stock;
    for (const ShpAttachment& attachment : modified) {
      PutElement(modifiedModel, static_cast<std::size_t>(attachment.filePosition), attachment);
    }
    WriteArchive(demo::Compress(stock));
  }

  void Put(const std::string& name, const Bytes& model) const { WriteFileAt(folder.Native(name), model); }
  /// Writes the archive, in which each of the stock ships has the same model.
  void WriteArchive(const Bytes& entry) const {
    std::vector<demo::ArchiveFile> files{{"sounds\\hum.wav", Bytes(100, 0x20)}};
    for (const char* name : {"alpha.shp", "bravo.shp", "twin.shp"}) files.push_back({name, entry});
    Put("game/resource.hog", demo::BuildArchive(files));
  }
  bool Restore(std::size_t ship) { return RestoreWeapons(at.host, installation, ship); }
  /// Restores and expects that nothing at all changes.
  void ExpectNothing(std::size_t ship) {
    const FolderImage before = Image();
    EXPECT_FALSE(Restore(ship));
    EXPECT_TRUE(SameImage(before, Image()));
  }

  Bytes stock;
  Bytes modifiedModel;
  ShpAttachments modified;
};

TEST_F(RestoredWeapons, OfAStockShipAreThoseOfTheArchivesModel) {
  Put("game/ships/alpha.shp", modifiedModel);
  FolderImage expected = Image();
  expected.at("game/ships/alpha.shp") = stock;
  EXPECT_TRUE(Restore(alpha));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(RestoredWeapons, KeepWhatElseDiffersInTheModel) {
  Bytes other = modifiedModel;
  other[26] = 2;
  other.back() = 1;
  Put("game/ships/alpha.shp", other);
  Bytes expected = stock;
  expected[26] = 2;
  expected.back() = 1;
  EXPECT_TRUE(Restore(alpha));
  EXPECT_TRUE(SameBytes(expected, ReadFileAt(Game("ships/alpha.shp"))));
}

TEST_F(RestoredWeapons, OfAChangedShipGoIntoItsPartnersModelToo) {
  installation.ships[bravo].Changed = true;
  installation.ships[bravo].ChangedToIndex = Int16Value(alpha);
  Put("game/ships/alpha.shp", modifiedModel);
  Put("game/ships/bravo.shp", modifiedModel);
  FolderImage expected = Image();
  expected.at("game/ships/alpha.shp") = stock;
  expected.at("game/ships/bravo.shp") = stock;
  EXPECT_TRUE(Restore(bravo));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(RestoredWeapons, OfAChangedShipThatHoldsAnotherFormAreNotWritten) {
  installation.ships[bravo].Changed = true;
  installation.ships[bravo].ChangedToIndex = Int16Value(alpha);
  ShpAttachments others = {Gun(1, 2, 3)};
  Put("game/ships/alpha.shp", ModelWith(others));
  Put("game/ships/bravo.shp", ModelWith(others));
  at.desk.ExpectBox(differentBox);
  ExpectNothing(bravo);
}

TEST_F(RestoredWeapons, AreNotWrittenWhereThePartnerAloneHasAnotherForm) {
  installation.ships[bravo].Changed = true;
  installation.ships[bravo].ChangedToIndex = Int16Value(alpha);
  Put("game/ships/bravo.shp", modifiedModel);
  ShpAttachments others = {Gun(1, 2, 3)};
  Put("game/ships/alpha.shp", ModelWith(others));
  at.desk.ExpectBox(differentBox);
  ExpectNothing(bravo);
}

TEST_F(RestoredWeapons, GoNotIntoAModelWithAsManyAttachmentsElsewhere) {
  ShpAttachments moved = weapons;
  Bytes model = ModelHead();
  AddOther(model, 2, 9);
  AddAttachments(model, moved);
  Put("game/ships/alpha.shp", model);
  at.desk.ExpectBox(differentBox);
  ExpectNothing(alpha);
}

TEST_F(RestoredWeapons, GoIntoTheVariantOfTheSameForm) {
  Put("game/ships/twin.shp", modifiedModel);
  Put("game/ships/t_twin.shp", modifiedModel);
  FolderImage expected = Image();
  expected.at("game/ships/twin.shp") = stock;
  expected.at("game/ships/t_twin.shp") = stock;
  EXPECT_TRUE(Restore(twin));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(RestoredWeapons, LeaveAVariantOfAnotherFormAlone) {
  ShpAttachments others = {Gun(1, 2, 3)};
  Put("game/ships/t_twin.shp", ModelWith(others));
  Put("game/ships/twin.shp", modifiedModel);
  FolderImage expected = Image();
  expected.at("game/ships/twin.shp") = stock;
  EXPECT_TRUE(Restore(twin));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(RestoredWeapons, OfAStockShipThatTheArchiveHasNotHaveNoOriginal) {
  Put("game/resource.hog", demo::BuildArchive({{"sounds\\hum.wav", Bytes(100, 0x20)}}));
  at.desk.ExpectBox("No suitable original can be found", "RestoreWeapons");
  ExpectNothing(alpha);
}

TEST_F(RestoredWeapons, OfAStockShipWhoseEntryIsEmptyHaveNoOriginal) {
  WriteArchive({});
  at.desk.ExpectBox("No suitable original can be found", "RestoreWeapons");
  ExpectNothing(alpha);
}

TEST_F(RestoredWeapons, StayWhereTheArchiveIsMissing) {
  std::filesystem::remove(Game("resource.hog"));
  at.desk.ExpectBox("Error - Path(s) not found", "UnpackFile()");
  ExpectNothing(alpha);
}

TEST_F(RestoredWeapons, StayWhereTheArchivesModelIsDamaged) {
  Bytes damaged = demo::Compress(stock);
  damaged.resize(5);
  Put("game/resource.hog", demo::BuildArchive({{"alpha.shp", damaged}}));
  at.desk.ExpectBox("Error - could not unpack alpha.shp: it refers to what lies before its start", "UnpackFile()");
  ExpectNothing(alpha);
}

TEST_F(RestoredWeapons, OfAStoredModelCountTheAttachmentsInTheBytesThatFollowItToo) {
  // The loose model was written with the same bytes after its own, so the tables have one form.
  ShpAttachments more = {Gun(1, 2, 3, 4)};
  Bytes next;
  AddAttachments(next, more);
  next.resize(60000);
  Put("game/resource.hog", demo::BuildArchive({{"alpha.shp", stock}, {"next", next}}));
  Bytes loose = stock;
  loose.insert(loose.end(), next.begin(), next.begin() + 50000);
  Bytes changed = loose;
  std::copy(modifiedModel.begin(), modifiedModel.end(), changed.begin());
  Put("game/ships/alpha.shp", changed);
  EXPECT_TRUE(Restore(alpha));
  EXPECT_TRUE(SameBytes(loose, ReadFileAt(Game("ships/alpha.shp"))));
}

TEST_F(RestoredWeapons, OfAMissingModelHaveTheirBox) {
  std::filesystem::remove(Game("ships/alpha.shp"));
  at.desk.ExpectBox("Error - Path not found");
  ExpectNothing(alpha);
}

TEST_F(RestoredWeapons, OfAnImportedShipAreThoseOfItsBackup) {
  Put("game/ships/manta.shp", modifiedModel);
  Put("game/ships/manta.bak", stock);
  FolderImage expected = Image();
  expected.at("game/ships/manta.shp") = stock;
  EXPECT_TRUE(Restore(manta));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(RestoredWeapons, OfAnImportedShipWithoutABackupAreThoseOfTheAddOn) {
  Put("game/ships/manta.shp", modifiedModel);
  Put("program/addons/ships/manta.shp", stock);
  FolderImage expected = Image();
  expected.at("game/ships/manta.shp") = stock;
  EXPECT_TRUE(Restore(manta));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(RestoredWeapons, TheBackupComesBeforeTheAddOn) {
  Put("game/ships/manta.shp", stock);
  Put("game/ships/manta.bak", modifiedModel);
  Put("program/addons/ships/manta.shp", stock);
  FolderImage expected = Image();
  expected.at("game/ships/manta.shp") = modifiedModel;
  EXPECT_TRUE(Restore(manta));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(RestoredWeapons, ABackupWithAnotherNumberStopsEvenWhereTheAddOnWouldFit) {
  ShpAttachments others = {Gun(1, 2, 3)};
  Put("game/ships/manta.bak", ModelWith(others));
  Put("program/addons/ships/manta.shp", modifiedModel);
  at.desk.ExpectBox(differentBox);
  ExpectNothing(manta);
}

TEST_F(RestoredWeapons, OfAnImportedShipWithoutEitherHaveNoOriginal) {
  at.desk.ExpectBox("No suitable original can be found", "RestoreWeapons");
  ExpectNothing(wraith);
}

TEST_F(RestoredWeapons, PastTheHundredAndTwentiethStayAsTheyAre) {
  ShpAttachments many;
  for (int i = 0; i < 125; ++i) many.push_back({0, 2, i, i, i, 1, 0});
  Bytes changed = ModelWith(many);
  WriteArchive(demo::Compress(changed));
  for (const std::size_t i : {0U, 119U, 120U, 124U}) {
    ShpAttachment other = many[i];
    other.gunType = 15;
    PutElement(changed, static_cast<std::size_t>(other.filePosition), other);
  }
  Put("game/ships/alpha.shp", changed);
  EXPECT_TRUE(Restore(alpha));
  Bytes expected = changed;
  for (const std::size_t i : {0U, 119U}) PutElement(expected, static_cast<std::size_t>(many[i].filePosition), many[i]);
  EXPECT_TRUE(SameBytes(expected, ReadFileAt(Game("ships/alpha.shp"))));
}

TEST_F(RestoredWeapons, OfAReadOnlyModelAreRefused) {
  Put("game/ships/alpha.shp", modifiedModel);
  SetReadOnly(Game("ships/alpha.shp"), true);
  at.desk.ExpectBox(ModelPath("alpha.shp") +
                    " cannot be written: it is read-only.\nTake the read-only mark away and try again. Nothing has "
                    "been changed.");
  ExpectNothing(alpha);
}

TEST_F(RestoredWeapons, OfAShipThatIsNoneAreNothing) {
  ExpectNothing(7);
  ExpectNothing(8);
}

TEST_F(RestoredWeapons, AFailureAnywhereIsReportedAndASecondTryFinishesIt) {
  const FolderImage done = Image();
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    Put("game/ships/twin.shp", modifiedModel);
    Put("game/ships/t_twin.shp", modifiedModel);
    ScriptedHost here;
    here.desk.AllowOthers([](const Message&) { return Answer::ok; });
    Watch(here.host.files, fault);
    const bool restored = RestoreWeapons(here.host, installation, twin);
    EXPECT_TRUE(restored || fault.happened);
    EXPECT_EQ(here.desk.shown.empty(), !fault.happened);
    EXPECT_TRUE(Restore(twin));
    EXPECT_TRUE(SameImage(done, Image()));
  });
  EXPECT_GT(operations, 15);
}

}  // namespace
}  // namespace oravin::test
