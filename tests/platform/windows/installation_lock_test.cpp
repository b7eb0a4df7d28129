#include "platform/installation_lock.h"

#include <gtest/gtest.h>

#include "platform/current_folder.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

// The mark is the system's, so that a second record of this process finds what another process would.

TEST(FolderLock, ASecondOneMayNotWorkOnTheFolderByWhateverName) {
  const test::TemporaryFolder folder;
  test::MakeFolderAt(folder.Native("Game"));
  FolderLock lock;
  FolderLock second;
  ASSERT_TRUE(LockFolder(folder.Windows("Game/"), lock));
  EXPECT_FALSE(LockFolder(folder.Windows("Game/"), second));
  EXPECT_FALSE(LockFolder(folder.Windows("GAME"), second));
  EXPECT_FALSE(LockFolder(folder.windows + ".\\game\\", second));
  EXPECT_EQ(second.handle, -1);
  UnlockFolder(lock);
}

TEST(FolderLock, AnotherFolderIsFreeAndTheFirstIsOnceTheMarkIsTakenAway) {
  const test::TemporaryFolder folder;
  const test::TemporaryFolder other;
  FolderLock lock;
  FolderLock second;
  ASSERT_TRUE(LockFolder(folder.windows, lock));
  EXPECT_TRUE(LockFolder(other.windows, second));
  UnlockFolder(lock);
  EXPECT_EQ(lock.handle, -1);
  EXPECT_TRUE(LockFolder(folder.windows, second));
  UnlockFolder(second);
  UnlockFolder(second);  // nothing happens
}

TEST(FolderLock, LeavesNoFileBehind) {
  const test::TemporaryFolder folder;
  FolderLock lock;
  ASSERT_TRUE(LockFolder(folder.windows, lock));
  EXPECT_TRUE(test::ImageOf(folder.native).empty());
  UnlockFolder(lock);
}

TEST(FolderLock, AFolderThatIsMissingIsNotRefused) {
  const test::TemporaryFolder folder;
  FolderLock lock;
  EXPECT_TRUE(LockFolder(folder.Windows("missing"), lock));
  EXPECT_EQ(lock.handle, -1);
}

}  // namespace
}  // namespace oravin::platform
