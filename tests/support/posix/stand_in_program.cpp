#include "support/stand_in_program.h"

#include <sys/wait.h>

#include <cerrno>

namespace oravin::test {

StandInProgram::StandInProgram(const std::string& name) {
  const std::filesystem::path script = folder.Native("bin/" + name);
  WriteFileAt(script, "#!/bin/sh\nfor word in \"$@\"; do printf '[%s]\\n' \"$word\"; done > '" +
                          folder.Native("called").string() + "'\n");
  permissions(script, std::filesystem::perms::owner_all);
}

bool StandInProgram::Ended() {
  pid_t ended = -1;
  do {
    ended = waitpid(-1, nullptr, 0);
  } while (ended < 0 && errno == EINTR);
  return ended > 0;
}

std::string StandInProgram::Words() const {
  const std::filesystem::path called = folder.Native("called");
  return exists(called) ? ReadTextAt(called) : std::string();
}

}  // namespace oravin::test
