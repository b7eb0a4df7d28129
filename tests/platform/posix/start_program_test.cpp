#include "platform/start_program.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "support/environment.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

using test::Environment;

/// A search path that holds programs of the test alone: each writes its arguments, one a line, to a file of its name.
struct StartedPrograms : testing::Test {
  test::TemporaryFolder folder;
  Environment path{"PATH", folder.Native("bin")};

  void Provide(const std::string& name) const {
    const auto script = folder.Native("bin") / name;
    const std::string out = folder.Native("out-" + name).string();
    test::WriteFileAt(
        script, "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + out + ".part'\n/bin/mv '" + out + ".part' '" + out + "'\n");
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
  }

  /// What the program was given; waits for it, since nobody else does.
  [[nodiscard]] std::string GivenTo(const std::string& name) const {
    const auto out = folder.Native("out-" + name);
    for (int i = 0; i < 500 && !std::filesystem::exists(out); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return std::filesystem::exists(out) ? test::ReadTextAt(out) : "the program was not started";
  }
};

TEST_F(StartedPrograms, NotepadOpensTheUsersOwnViewer) {
  Provide("xdg-open");
  test::WriteFileAt(folder.Native("Readme.TXT"), "x");
  EXPECT_TRUE(StartProgram("notepad " + folder.Windows("readme.txt")));
  EXPECT_EQ(GivenTo("xdg-open"), folder.Native("Readme.TXT").string() + "\n");
}

TEST_F(StartedPrograms, NotepadTakesAPathWithBlanksAsOne) {
  Provide("xdg-open");
  test::WriteFileAt(folder.Native("my files/read me.txt"), "x");
  EXPECT_TRUE(StartProgram("notepad " + folder.Windows("my files/read me.txt")));
  EXPECT_EQ(GivenTo("xdg-open"), folder.Native("my files/read me.txt").string() + "\n");
}

TEST_F(StartedPrograms, NotepadTakesAPathInQuotes) {
  Provide("xdg-open");
  test::WriteFileAt(folder.Native("read me.txt"), "x");
  EXPECT_TRUE(StartProgram("notepad \"" + folder.Windows("read me.txt") + "\""));
  EXPECT_EQ(GivenTo("xdg-open"), folder.Native("read me.txt").string() + "\n");
}

TEST_F(StartedPrograms, ThePaintProgramOpensTheUsersOwnImageProgram) {
  Provide("xdg-open");
  test::WriteFileAt(folder.Native("my files/temp.bmp"), "x");
  EXPECT_TRUE(
      StartProgram("\"C:\\Program Files\\Accessories\\MSPAINT.EXE\" \"" + folder.Windows("my files\\temp.bmp") + "\""));
  EXPECT_EQ(GivenTo("xdg-open"), folder.Native("my files/temp.bmp").string() + "\n");
}

TEST_F(StartedPrograms, AWindowsProgramRunsThroughWine) {
  Provide("wine");
  EXPECT_TRUE(StartProgram("\"C:\\My Game\\sltool.exe\" one \"two three\""));
  EXPECT_EQ(GivenTo("wine"), "C:\\My Game\\sltool.exe\none\ntwo three\n");
}

TEST_F(StartedPrograms, AnotherProgramRunsByItsOwnName) {
  Provide("painter");
  EXPECT_TRUE(StartProgram("painter \"a b\" c"));
  EXPECT_EQ(GivenTo("painter"), "a b\nc\n");
}

TEST_F(StartedPrograms, AMissingProgramIsNotStarted) {
  EXPECT_FALSE(StartProgram("painter a"));
  EXPECT_FALSE(StartProgram("notepad " + folder.Windows("readme.txt")));
  EXPECT_FALSE(StartProgram("tool.exe"));
  EXPECT_FALSE(StartProgram(""));
  EXPECT_FALSE(StartProgram("  "));
}

}  // namespace
}  // namespace oravin::platform
