// The names of kept models, and which version a model becomes.

#include "installation/kept_models.h"

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

}  // namespace
}  // namespace oravin::test
