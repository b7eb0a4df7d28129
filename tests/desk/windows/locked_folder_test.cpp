#include <gtest/gtest.h>

#include "desk/write_plan.h"
#include "support/file_marks.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::ScriptedHost;
using test::TemporaryFolder;

TEST(WritePlan, NamesAFolderInWhichNoFilesCanBeMade) {
  const TemporaryFolder folder;
  test::MakeFolderAt(folder.Native("locked"));
  test::SetReadOnly(folder.Native("locked"), true);
  ScriptedHost at;
  at.desk.ExpectBox(folder.Windows("locked/") +
                        " cannot be written: you have no permission.\n"
                        "Put that right and try again. Nothing has been changed.",
                    "Oravin", Icon::exclamation);
  WritePlan plan;
  plan.folders = {folder.Windows("locked/")};
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
  test::SetReadOnly(folder.Native("locked"), false);
}

}  // namespace
}  // namespace oravin
