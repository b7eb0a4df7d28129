// Names that Windows' file systems cannot have.

#include <gtest/gtest.h>

#include "files/folder_names.h"
#include "files/look_up.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

TEST(FolderNames, OfSeveralSpellingsTheFirstInByteOrderIsTaken) {
  Files files;
  const test::TemporaryFolder folder;
  // More than a listing would happen to give in the right order.
  for (const char* name : {"model.shp", "Model.shp", "MODEL.shp", "mODEL.shp", "moDEL.shp", "MODEL.SHP", "modeL.shp"}) {
    test::WriteFileAt(folder.Native(name), name);
  }
  ASSERT_NE(FindIn(NamesIn(files, folder.windows), "model.shp"), nullptr);
  EXPECT_EQ(FindIn(NamesIn(files, folder.windows), "model.shp")->spelling, "MODEL.SHP");
}

TEST(FileExists, APathWithAControlCharacterDoesNotExist) {
  Files files;
  const test::TemporaryFolder folder;
  test::WriteFileAt(folder.Native("a\tb"), "x");
  EXPECT_FALSE(FileExists(files, folder.Windows("a\tb")));
}

}  // namespace
}  // namespace oravin
