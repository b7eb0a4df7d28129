// What the player had before is kept: hidden files too, and never over a file of which the system cannot say anything.

#include "actions/safekeeping.h"

#include "base/file_error.h"
#include "files/whole_file.h"
#include "installation/kept_models.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/swap_stage.h"

namespace oravin::test {
namespace {

struct Safekeeping : testing::Test {
  void Keep() {
    MakeFolders(stage.host.files, KeptModelsFolder(stage.installation));
    KeepPlayersFiles(stage.host.files, stage.installation, {"alpha.shp"}, stage.Live(), {});
  }
  void FailLooksAt(const std::string& path) {
    stage.host.files.before = [path](const FileOperation& operation) {
      if (operation.kind == FileOperation::Kind::look && operation.path == path) {
        throw FileError("could not look for", path, faultReason);
      }
    };
  }
  [[nodiscard]] std::filesystem::path Defaults() const { return stage.files.Game("shipstats.def"); }
  [[nodiscard]] std::string DefaultsPath() const { return stage.installation.defaultsPath(); }

  SwitcherStage stage;
};

TEST_F(Safekeeping, AHiddenModelIsCopiedLikeAnyOther) {
  WriteFileAt(stage.Model(alpha), "the player's own");
  if (!SetDosAttributes(stage.Model(alpha), hiddenMark)) GTEST_SKIP() << "no hidden files here";
  Keep();
  EXPECT_EQ(ReadTextAt(stage.files.Program("backup/ships/alpha.shp")), "the player's own");
}

TEST_F(Safekeeping, HiddenDefaultsAreCopiedAndNotMadeAnew) {
  WriteFileAt(Defaults(), "the stock statistics");
  if (!SetDosAttributes(Defaults(), hiddenMark)) GTEST_SKIP() << "no hidden files here";
  Keep();
  EXPECT_EQ(ReadTextAt(stage.files.Program("backup/shipstats.def")), "the stock statistics");
  KeepDefaults(stage.host, stage.installation);
  EXPECT_EQ(ReadTextAt(Defaults()), "the stock statistics");
  WriteFileAt(stage.files.Program("ships.dat"), "a catalogue");
  KeepDefaults(stage.host, stage.installation);
  EXPECT_EQ(ReadTextAt(Defaults()), "the stock statistics");
}

TEST_F(Safekeeping, DefaultsThatTheSystemCannotSayAreThereAreNotMadeAnew) {
  stage.Enable();
  WriteFileAt(Defaults(), "the stock statistics");
  FailLooksAt(DefaultsPath());
  stage.desk.ExpectBox("Error - could not look for " + DefaultsPath() + ": " + faultReason, "BackupShipStats");
  KeepDefaults(stage.host, stage.installation);
  EXPECT_EQ(ReadTextAt(Defaults()), "the stock statistics");
}

TEST_F(Safekeeping, WithoutTheDefaultsACatalogueThatTheSystemCannotSayIsThereMakesNone) {
  stage.Enable();
  std::filesystem::remove(Defaults());
  const std::string catalogue = stage.installation.cataloguePath();
  FailLooksAt(catalogue);
  stage.desk.ExpectBox("Error - could not look for " + catalogue + ": " + faultReason, "BackupShipStats");
  KeepDefaults(stage.host, stage.installation);
  EXPECT_FALSE(exists(Defaults()));
}

TEST_F(Safekeeping, DefaultsThatTheSystemCannotSayAreThereAreNotPassedOver) {
  WriteFileAt(Defaults(), "new");
  FailLooksAt(DefaultsPath());
  EXPECT_THROW(Keep(), FileError);
  stage.host.files.before = nullptr;
  EXPECT_FALSE(exists(stage.files.Program("backup/shipstats.def")));
}

}  // namespace
}  // namespace oravin::test
