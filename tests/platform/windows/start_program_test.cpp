#include "platform/start_program.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

/// Waits up to ten seconds for a file to come.
bool Comes(const std::filesystem::path& file) {
  for (int i = 0; i < 500 && !std::filesystem::exists(file); ++i) Sleep(20);
  return std::filesystem::exists(file);
}

TEST(StartProgram, StartsAProgramWithItsWordsAndDoesNotWait) {
  const test::TemporaryFolder folder;
  EXPECT_TRUE(StartProgram("cmd.exe /c mkdir \"" + folder.Windows("made by it") + "\""));
  EXPECT_TRUE(Comes(folder.Native("made by it")));
}

TEST(StartProgram, AProgramThatIsMissingIsToldOf) {
  const test::TemporaryFolder folder;
  EXPECT_FALSE(StartProgram("\"" + folder.Windows("missing.exe") + "\" x"));
  EXPECT_FALSE(StartProgram(""));
}

}  // namespace
}  // namespace oravin::platform
