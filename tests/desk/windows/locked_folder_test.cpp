#include <gtest/gtest.h>

#include "desk/write_help.h"
#include "desk/write_plan.h"
#include "support/environment.h"
#include "support/file_marks.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::ScriptedHost;
using test::TemporaryFolder;

/// A folder in which this user may make no files.
struct LockedFolder {
  LockedFolder() {
    test::MakeFolderAt(folder.Native("locked"));
    test::SetReadOnly(folder.Native("locked"), true);
  }
  LockedFolder(const LockedFolder&) = delete;
  LockedFolder& operator=(const LockedFolder&) = delete;
  ~LockedFolder() { test::SetReadOnly(folder.Native("locked"), false); }

  TemporaryFolder folder;
  std::string path = folder.Windows("locked/");
};

/// A plan that would make files in the folder is refused with this text.
void ExpectRefusal(const LockedFolder& locked, const std::string& text) {
  ScriptedHost at;
  at.desk.ExpectBox(text, "Oravin", Icon::exclamation);
  WritePlan plan;
  plan.folders = {locked.path};
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
}

TEST(WritePlan, NamesAFolderInWhichNoFilesCanBeMade) {
  const LockedFolder locked;
  ExpectRefusal(locked,
                locked.path +
                    " cannot be written: you have no permission.\n"
                    "Your user may not change what is there. Start Oravin as the user who may (under Windows: click it "
                    "with the right mouse button and choose \"Run as administrator\"), or give your user the right to "
                    "write there, and try again. Nothing has been changed.");
}

TEST(WritePlan, NamesTheVirtualStoresCopies) {
  const LockedFolder locked;
  const TemporaryFolder local;
  const test::Environment appData("LOCALAPPDATA", local.windows.substr(0, local.windows.size() - 1));
  const std::string store = local.windows + "VirtualStore\\";
  test::WriteFileAt(store + locked.path.substr(3) + "shipstats.bin", "x");
  const std::string text = RefusalToWrite(locked.path, "you have no permission", store);
  EXPECT_NE(text.find(store + locked.path.substr(3)), std::string::npos) << text;
  ExpectRefusal(locked, text);
}

}  // namespace
}  // namespace oravin
