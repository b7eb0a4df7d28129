// The names of kept models, and which version a model becomes.

#include "installation/kept_models.h"

#include "base/file_error.h"
#include "support/swap_stage.h"

namespace oravin::test {
namespace {

struct Keeping : testing::Test {
  Keeping() { WriteFileAt(stage.files.Program("backup/ships/none/none"), ""); }

  void Loose(const std::string& name, const std::string& text) const {
    WriteFileAt(stage.files.Game("ships/" + name), text);
  }
  void Keep(const std::string& name) {
    KeptModels kept = ReadKeptModels(stage.host.files, stage.installation);
    KeepModels(stage.host.files, stage.installation, kept, {name});
  }
  [[nodiscard]] std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : Without(ImageOf(stage.files.Program("backup/ships")), {"none/", "none/none"})) {
      names.push_back(name);
    }
    return names;
  }
  using Names = std::vector<std::string>;

  SwitcherStage stage;
};

TEST_F(Keeping, AnEqualLatestVersionServesAndADifferentOneGetsTheNextNumber) {
  for (const char* text : {"one", "one", "two", "one"}) {
    Loose("alpha.shp", text);
    Keep("alpha.shp");
  }
  EXPECT_EQ(Files(), (Names{"alpha.shp", "alpha.shp.2", "alpha.shp.3"}));
}

TEST_F(Keeping, AModelThatIsNamedLikeACopyGoesBackUnderItsOwnName) {
  Loose("alpha.2", "two");
  Loose("alpha", "one");
  Keep("alpha.2");
  Keep("alpha");
  EXPECT_EQ(Files(), (Names{"alpha", "alpha.2.1~2"}));
  const FolderImage before = ImageOf(stage.files.Game("ships"));
  for (const char* name : {"alpha", "alpha.2"}) std::filesystem::remove(stage.files.Game("ships/" + std::string(name)));
  PutKeptModelsBack(stage.host.files, stage.installation);
  EXPECT_TRUE(SameImage(before, ImageOf(stage.files.Game("ships"))));
  EXPECT_EQ(Files(), Names());
}

TEST_F(Keeping, NamesThatNoVersionHasAreSpellings) {
  for (const std::string name : {"a.1", "a.0", "a.-2", "a.02", "a.2~1", "a.2~", "a.2~x", "a.2x", "a.99999999999",
                                 "a.2~99999999999", "a.1000000000"}) {
    WriteFileAt(stage.files.Program("backup/ships/" + name), name);
  }
  const KeptModels kept = ReadKeptModels(stage.host.files, stage.installation);
  EXPECT_EQ(kept.size(), 11U);
  for (const auto& [name, copies] : kept) {
    ASSERT_EQ(copies.size(), 1U) << name;
    EXPECT_EQ(copies[0].spelling, copies[0].file);
    EXPECT_EQ(copies[0].version, 1);
  }
}

TEST_F(Keeping, AFileInTheMakingIsNoKeptModel) {
  WriteFileAt(stage.files.Program("backup/ships/alpha.shp.oravin-new"), "half");
  EXPECT_TRUE(ReadKeptModels(stage.host.files, stage.installation).empty());
}

TEST_F(Keeping, AMovedModelIsKeptAndGoneWithFoldersThatAreMadeForIt) {
  std::filesystem::remove_all(stage.files.Program("backup"));
  Loose("Alpha.shp", "the player's");
  MoveToKept(stage.host.files, stage.installation, stage.installation.GamePath + "ships\\ALPHA.shp");
  EXPECT_EQ(ReadTextAt(stage.files.Program("backup/ships/Alpha.shp")), "the player's");
  EXPECT_FALSE(exists(stage.files.Game("ships/Alpha.shp")));
}

/// Lets every listing of a folder fail.
void FailListing(oravin::Files& files, const std::string& folder) {
  files.before = [folder](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::list && operation.path == folder) {
      throw FileError("could not list", folder, "the disk does not answer");
    }
  };
}

TEST_F(Keeping, AFolderThatCannotBeListedIsNotTakenForAnEmptyOne) {
  Loose("alpha.shp", "one");
  Keep("alpha.shp");
  Loose("alpha.shp", "two");
  const FolderImage before = stage.Image();
  oravin::Files& files = stage.host.files;
  FailListing(files, KeptModelsFolder(stage.installation));
  EXPECT_THROW(ReadKeptModels(files, stage.installation), FileError);
  EXPECT_THROW(PutKeptModelsBack(files, stage.installation), FileError);
  EXPECT_THROW(KeptModelsSize(files, stage.installation), FileError);
  EXPECT_THROW(MoveToKept(files, stage.installation, stage.ModelPath(alpha)), FileError);
  FailListing(files, stage.installation.modelsFolder());
  EXPECT_THROW(PutKeptModelsBack(files, stage.installation), FileError);
  EXPECT_THROW(EraseSpareSpellings(files, stage.installation, {"alpha.shp"}), FileError);
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Keeping, WhereTheSystemCannotSayWhetherAPlaceIsFreeNothingIsMoved) {
  Loose("alpha.shp", "one");
  Keep("alpha.shp");
  Loose("alpha.shp", "two");
  const std::string place = OldModelsFolder(stage.installation) + "alpha.shp";
  stage.host.files.before = [place](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::look && operation.path == place) {
      throw FileError("could not look for", place, "the disk does not answer");
    }
  };
  EXPECT_THROW(PutKeptModelsBack(stage.host.files, stage.installation), FileError);
  EXPECT_EQ(ReadTextAt(stage.files.Game("ships/alpha.shp")), "two");
  EXPECT_EQ(Files(), Names{"alpha.shp"});
}

}  // namespace
}  // namespace oravin::test
