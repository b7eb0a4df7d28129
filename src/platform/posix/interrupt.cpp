#include "platform/interrupt.h"

#include <csignal>

namespace oravin::platform {

namespace {

// A signal handler can only use a global variable.
volatile std::sig_atomic_t interrupted = 0;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

void Remember(int) { interrupted = 1; }

}  // namespace

void WatchInterrupts() {
  interrupted = 0;
  struct sigaction action {};
  action.sa_handler = Remember;
  action.sa_flags = SA_RESTART;
  action.sa_flags |= static_cast<int>(SA_RESETHAND);  // so the second one ends the process
  sigaction(SIGINT, &action, nullptr);
}

bool Interrupted() { return interrupted != 0; }

}  // namespace oravin::platform
