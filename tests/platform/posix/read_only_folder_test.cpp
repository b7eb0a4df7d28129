#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "support/file_marks.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

using test::TemporaryFolder;
using test::WriteFileAt;

TEST(WhyNoNewFiles, TellsOfMissingReadOnlyAndWrongFolders) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  test::MakeFolderAt(folder.Native("locked"));
  test::SetReadOnly(folder.Native("locked"), true);
  EXPECT_EQ(WhyNoNewFiles(folder.windows), "");
  EXPECT_EQ(WhyNoNewFiles(folder.Windows("locked")), "it is read-only");
  EXPECT_EQ(WhyNoNewFiles(folder.Windows("missing")), "it does not exist");
  EXPECT_EQ(WhyNoNewFiles(folder.Windows("file")), "a part of the path is no folder");
  test::SetReadOnly(folder.Native("locked"), false);
}

}  // namespace
}  // namespace oravin::platform
