// The converter's readme, opened in the person's own text editor. A script stands in for the desktop's opener.

#include <sys/wait.h>

#include <cerrno>

#include "../stage.h"
#include "support/environment.h"

namespace oravin::test {
namespace {

struct ConvertReadme : testing::Test {
  ConvertReadme() {
    const auto script = folder.Native("bin/xdg-open");
    WriteFileAt(script, "#!/bin/sh\nprintf '[%s]' \"$@\" > '" + folder.Native("called").string() + "'\n");
    permissions(script, std::filesystem::perms::owner_all);
    installation.ProgramPath = folder.Windows("my program\\");
    MakeFolderAt(folder.Native("my program"));
  }

  static bool Ended() {
    pid_t ended = -1;
    do {
      ended = waitpid(-1, nullptr, 0);
    } while (ended < 0 && errno == EINTR);
    return ended > 0;
  }

  TemporaryFolder folder;
  Environment path{"PATH", folder.Native("bin").string() + ":/usr/bin:/bin"};
  Installation installation;
};

TEST_F(ConvertReadme, IsOpenedInTheTextEditor) {
  WriteFileAt(folder.Native("my program/3ds2sl.txt"), "the converter's readme");
  cmd3d2SLReadme_Click(installation);
  ASSERT_TRUE(Ended());
  EXPECT_EQ(ReadTextAt(folder.Native("called")), "[" + folder.Native("my program/3ds2sl.txt").string() + "]");
}

TEST_F(ConvertReadme, IsAskedForWithoutALookWhetherItIsThere) {
  cmd3d2SLReadme_Click(installation);
  ASSERT_TRUE(Ended());
  EXPECT_TRUE(std::filesystem::exists(folder.Native("called")));
}

}  // namespace
}  // namespace oravin::test
