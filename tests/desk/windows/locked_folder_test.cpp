#include <gtest/gtest.h>

#include <cstdlib>

#include "desk/write_help.h"
#include "desk/write_plan.h"
#include "support/environment.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::ScriptedHost;
using test::TemporaryFolder;

/// A folder in which this user may make no files, and which the test cannot make itself; empty when nobody names one.
std::string LockedFolder() {
  const char* named = std::getenv("ORAVIN_LOCKED_FOLDER");
  return named == nullptr ? std::string() : std::string(named);
}

/// A plan that would make files in the folder is refused with this text.
void ExpectRefusal(const std::string& folder, const std::string& text) {
  ScriptedHost at;
  at.desk.ExpectBox(text, "Oravin", Icon::exclamation);
  WritePlan plan;
  plan.folders = {folder};
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
}

TEST(WritePlan, NamesAFolderInWhichNoFilesCanBeMade) {
  const std::string locked = LockedFolder();
  if (locked.empty()) GTEST_SKIP() << "nobody names a folder without rights";
  ExpectRefusal(locked,
                locked +
                    " cannot be written: you have no permission.\n"
                    "Your user may not change what is there. Start Oravin as the user who may (under Windows: click it "
                    "with the right mouse button and choose \"Run as administrator\"), or give your user the right to "
                    "write there, and try again. Nothing has been changed.");
}

TEST(WritePlan, NamesTheVirtualStoresCopies) {
  Files files;
  const std::string locked = LockedFolder();
  if (locked.empty()) GTEST_SKIP() << "nobody names a folder without rights";
  const TemporaryFolder local;
  const test::Environment appData("LOCALAPPDATA", local.windows.substr(0, local.windows.size() - 1));
  const std::string store = local.windows + "VirtualStore\\";
  const std::string copies = store + locked.substr(3);
  test::WriteFileAt(copies + "shipstats.bin", "x");
  const std::string text = RefusalToWrite(files, locked, "you have no permission", store);
  EXPECT_NE(text.find("\n" + copies + "\n"), std::string::npos) << text;
  ExpectRefusal(locked, text);
}

}  // namespace
}  // namespace oravin
