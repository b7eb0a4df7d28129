#include "files/folder_names.h"

#include <gtest/gtest.h>

#include "support/file_marks.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

TEST(FolderNames, FindsFilesWithoutRegardToCase) {
  Files files;
  const test::TemporaryFolder folder;
  test::WriteFileAt(folder.Native("Model.SHP"), "abc");
  test::WriteFileAt(folder.Native("empty"), "");
  const FolderNames names = NamesIn(files, folder.windows);
  ASSERT_NE(FindIn(names, "MODEL.shp"), nullptr);
  EXPECT_EQ(FindIn(names, "MODEL.shp")->spelling, "Model.SHP");
  EXPECT_EQ(FindIn(names, "MODEL.shp")->length, 3U);
  ASSERT_NE(FindIn(names, "EMPTY"), nullptr);
  EXPECT_EQ(FindIn(names, "empty")->length, 0U);
}

TEST(FolderNames, AFileThatIsNotThereIsNotFound) {
  Files files;
  const test::TemporaryFolder folder;
  test::WriteFileAt(folder.Native("a"), "abc");
  const FolderNames names = NamesIn(files, folder.windows);
  EXPECT_EQ(FindIn(names, "b"), nullptr);
}

TEST(FolderNames, FoldersDoNotCount) {
  Files files;
  const test::TemporaryFolder folder;
  test::MakeFolderAt(folder.Native("sub"));
  EXPECT_TRUE(NamesIn(files, folder.windows).items.empty());
}

TEST(FolderNames, HiddenAndSystemFilesDoNotCount) {
  Files files;
  const test::TemporaryFolder folder;
  test::WriteFileAt(folder.Native("hidden"), "x");
  test::WriteFileAt(folder.Native("system"), "x");
  if (!test::SetDosAttributes(folder.Native("hidden"), test::hiddenMark)) {
    GTEST_SKIP() << "the file system of the temporary folder keeps no extended attributes";
  }
  test::SetDosAttributes(folder.Native("system"), test::systemMark);
  EXPECT_TRUE(NamesIn(files, folder.windows).items.empty());
}

TEST(FolderNames, AMissingFolderHasNoFiles) {
  Files files;
  const test::TemporaryFolder folder;
  EXPECT_TRUE(NamesIn(files, folder.Windows("missing/")).items.empty());
}

}  // namespace
}  // namespace oravin
