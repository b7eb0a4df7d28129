#include "platform/terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include "support/posix/forked.h"

namespace oravin::platform {
namespace {

enum class End { terminal, file };

/// Asks in another process whose standard input and standard error lead to a terminal or to a file.
int Asked(End input, End error) {
  return test::InAnotherProcess([&] {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) return 9;
    const int terminal = open(ptsname(master), O_RDWR | O_NOCTTY);
    const int file = open("/dev/null", O_RDWR);
    if (terminal < 0 || file < 0) return 9;
    dup2(input == End::terminal ? terminal : file, STDIN_FILENO);
    dup2(error == End::terminal ? terminal : file, STDERR_FILENO);
    return PersonAtTerminal() ? 1 : 0;
  });
}

TEST(Terminal, APersonSitsThereOnlyWithATerminalAtBothEnds) {
  const int both = Asked(End::terminal, End::terminal);
  if (both == 9) GTEST_SKIP() << "this system has no pseudo terminals";
  EXPECT_EQ(both, 1);
  EXPECT_EQ(Asked(End::terminal, End::file), 0);
  EXPECT_EQ(Asked(End::file, End::terminal), 0);
  EXPECT_EQ(Asked(End::file, End::file), 0);
}

}  // namespace
}  // namespace oravin::platform
