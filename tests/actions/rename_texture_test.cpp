#include "actions/rename_texture.h"

#include "support/cache_stage.h"
#include "textures/texture_cache.h"

namespace oravin {
namespace {

using test::Cache;
using test::SetName;

struct TheRenaming : test::CacheStage {
  Installation installation{folder.windows, folder.windows, {}};

  TheRenaming() { Make(Cache(430)); }
  std::optional<std::string> Rename(std::size_t index, const std::optional<std::string>& oldName,
                                    const std::string& newName) {
    return RenameCachedTexture(at.host, installation, index, oldName, newName);
  }
};

TEST_F(TheRenaming, ReturnsTheNameThatWasStored) {
  EXPECT_EQ(Rename(3, "T3 ", "  " + std::string(40, 'n')), std::string(30, 'n'));
  Bytes expected = Cache(430);
  SetName(expected, 3, std::string(30, 'n'));
  EXPECT_TRUE(test::SameBytes(expected, Now()));
}

TEST_F(TheRenaming, OfATextureOfAnotherCacheGoesByItsIndex) {
  EXPECT_EQ(Rename(429, std::nullopt, "new"), "new");
  EXPECT_EQ(GetTcacheTable(at.host.files, Path()).at(429).name, "new");
}

TEST_F(TheRenaming, AfterABoxReturnsNothingAndChangesNothing) {
  constexpr const char* changed =
      "The game's texture cache has changed since this list was read. Open it again. Nothing has been changed.";
  at.desk.ExpectBox("Enter name for texture", programTitle);
  EXPECT_FALSE(Rename(3, "t3", " "));
  at.desk.ExpectBox("Name already exists", programTitle);
  EXPECT_FALSE(Rename(3, "t3", "T4"));
  at.desk.ExpectBox(changed, programTitle);
  EXPECT_FALSE(Rename(3, "other", "new"));
  at.desk.ExpectBox(changed, programTitle);
  EXPECT_FALSE(Rename(430, std::nullopt, "new"));
  EXPECT_TRUE(test::SameBytes(Cache(430), Now()));
}

}  // namespace
}  // namespace oravin
