#include "support/held_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "support/posix/forked.h"
#include "support/temporary_folder.h"

namespace oravin::test {

namespace {

constexpr int unexpected = 255;

/// Waits until the process has ended; its status as `waitpid` gives it.
int EndOf(pid_t process) {
  int status = -1;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

}  // namespace

int InAnotherProcess(const std::function<int()>& run) {
  const pid_t process = fork();
  if (process < 0) throw std::runtime_error("the test cannot start a process");
  if (process == 0) {
    int result = unexpected;
    try {
      result = run();
    } catch (...) {
      result = unexpected;
    }
    _exit(result);
  }
  const int status = EndOf(process);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

OtherProcess::OtherProcess(const std::function<void()>& begin) {
  std::array<int, 2> ready{};
  if (pipe(ready.data()) != 0) throw std::runtime_error("the test cannot make a pipe");
  const pid_t process = fork();
  if (process < 0) throw std::runtime_error("the test cannot start a process");
  if (process == 0) {
    close(ready[0]);
    try {
      begin();
    } catch (...) {
      _exit(unexpected);
    }
    const char sign = 1;
    if (write(ready[1], &sign, 1) != 1) _exit(unexpected);
    for (;;) pause();
  }
  id = process;
  close(ready[1]);
  char sign = 0;
  const bool begun = read(ready[0], &sign, 1) == 1;
  close(ready[0]);
  if (begun) return;
  EndOf(process);
  throw std::runtime_error("the other process of the test did not begin");
}

OtherProcess::~OtherProcess() {
  kill(static_cast<pid_t>(id), SIGKILL);
  EndOf(static_cast<pid_t>(id));
}

HeldFile::HeldFile(const std::filesystem::path& path)
    : process(std::make_shared<OtherProcess>([path] {
        if (open(path.c_str(), O_RDONLY) < 0) throw std::runtime_error("cannot open");
      })) {}

bool KnowsHeldFiles(const std::filesystem::path& folder) {
#ifdef F_SETLEASE
  const std::filesystem::path path = folder / "probe-of-leases";
  WriteFileAt(path, "x");
  const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
  const bool known = fcntl(file, F_SETLEASE, F_WRLCK) == 0;
  close(file);
  std::filesystem::remove(path);
  return known;
#else
  return folder.empty();
#endif
}

}  // namespace oravin::test
