#include "platform/installation_lock.h"

#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "platform/start_program.h"
#include "support/posix/forked.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

/// What a second process finds: 1 when it may work on the folder, 0 when it may not.
int SecondProcess(const std::string& folder) {
  return test::InAnotherProcess([&] {
    FolderLock lock;
    return LockFolder(folder, lock) ? 1 : 0;
  });
}

TEST(FolderLock, ASecondProcessMayNotWorkOnTheFolder) {
  const test::TemporaryFolder folder;
  FolderLock lock;
  ASSERT_TRUE(LockFolder(folder.windows, lock));
  EXPECT_EQ(SecondProcess(folder.windows), 0);
}

TEST(FolderLock, AnotherFolderIsFree) {
  const test::TemporaryFolder folder;
  const test::TemporaryFolder other;
  FolderLock lock;
  ASSERT_TRUE(LockFolder(folder.windows, lock));
  EXPECT_EQ(SecondProcess(other.windows), 1);
}

TEST(FolderLock, IsFreeAgainOnceTheMarkIsTakenAway) {
  const test::TemporaryFolder folder;
  FolderLock lock;
  ASSERT_TRUE(LockFolder(folder.windows, lock));
  UnlockFolder(lock);
  EXPECT_EQ(lock.handle, -1);
  EXPECT_EQ(SecondProcess(folder.windows), 1);
  UnlockFolder(lock);  // nothing happens
}

TEST(FolderLock, GoesWithTheProcessThatHeldIt) {
  const test::TemporaryFolder folder;
  FolderLock lock;
  {
    const test::OtherProcess holder([&] {
      FolderLock theirs;
      if (!LockFolder(folder.windows, theirs)) throw std::runtime_error("not locked");
    });
    EXPECT_FALSE(LockFolder(folder.windows, lock));
    EXPECT_EQ(lock.handle, -1);
  }
  EXPECT_TRUE(LockFolder(folder.windows, lock));
  UnlockFolder(lock);
}

TEST(FolderLock, TheSameRecordCanLockAnewAndMoveToAnotherFolder) {
  const test::TemporaryFolder folder;
  const test::TemporaryFolder other;
  FolderLock lock;
  ASSERT_TRUE(LockFolder(folder.windows, lock));
  EXPECT_TRUE(LockFolder(folder.windows, lock));
  EXPECT_TRUE(LockFolder(other.windows, lock));
  EXPECT_EQ(SecondProcess(folder.windows), 1);
  EXPECT_EQ(SecondProcess(other.windows), 0);
  UnlockFolder(lock);
}

TEST(FolderLock, LeavesNoFileBehind) {
  const test::TemporaryFolder folder;
  FolderLock lock;
  ASSERT_TRUE(LockFolder(folder.windows, lock));
  EXPECT_TRUE(test::ImageOf(folder.native).empty());
  UnlockFolder(lock);
  EXPECT_TRUE(test::ImageOf(folder.native).empty());
}

TEST(FolderLock, AFolderThatIsMissingIsNotRefused) {
  const test::TemporaryFolder folder;
  FolderLock lock;
  EXPECT_TRUE(LockFolder(folder.Windows("missing"), lock));
  EXPECT_EQ(lock.handle, -1);
}

TEST(FolderLock, AProgramThatWasStartedDoesNotInheritIt) {
  const test::TemporaryFolder folder;
  FolderLock lock;
  ASSERT_TRUE(LockFolder(folder.windows, lock));
  ASSERT_TRUE(StartProgram("sleep 2"));
  UnlockFolder(lock);
  EXPECT_EQ(SecondProcess(folder.windows), 1);
}

}  // namespace
}  // namespace oravin::platform
