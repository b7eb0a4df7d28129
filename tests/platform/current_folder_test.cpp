#include "platform/current_folder.h"

#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

/// Puts the current folder back at the end of a test.
struct KeptCurrentFolder {
  std::filesystem::path before = std::filesystem::current_path();
  ~KeptCurrentFolder() { std::filesystem::current_path(before); }
};

TEST(CurrentFolder, IsTheOneThatWasSetAndEndsInABackslash) {
  const KeptCurrentFolder kept;
  const test::TemporaryFolder folder;
  ASSERT_TRUE(SetCurrentFolder(folder.windows));
  EXPECT_EQ(CurrentFolder(), folder.windows);
}

TEST(CurrentFolder, RelativePathsLieInIt) {
  const KeptCurrentFolder kept;
  const test::TemporaryFolder folder;
  test::WriteFileAt(folder.Native("ships/Model.shp"), "abc");
  ASSERT_TRUE(SetCurrentFolder(folder.windows));
  EXPECT_EQ(LookAt("SHIPS\\model.SHP").facts.length, 3U);
  EXPECT_EQ(SpellingOf("SHIPS\\model.SHP"), "Model.shp");
}

TEST(CurrentFolder, StaysWhereAFolderIsMissing) {
  const KeptCurrentFolder kept;
  const test::TemporaryFolder folder;
  ASSERT_TRUE(SetCurrentFolder(folder.windows));
  EXPECT_FALSE(SetCurrentFolder(folder.Windows("missing")));
  EXPECT_EQ(CurrentFolder(), folder.windows);
}

TEST(CurrentFolder, OfTheRootIsTheDrive) {
  const KeptCurrentFolder kept;
  ASSERT_TRUE(SetCurrentFolder("Z:\\"));
  EXPECT_EQ(CurrentFolder(), "Z:\\");
}

}  // namespace
}  // namespace oravin::platform
