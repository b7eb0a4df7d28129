#include "platform/interrupt.h"

#include <windows.h>

#include <atomic>

namespace oravin::platform {

namespace {

// The system tells of it in a thread of its own.
std::atomic<bool> interrupted = false;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

BOOL WINAPI Remember(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  return interrupted.exchange(true) ? FALSE : TRUE;  // the second one goes on to the system, which ends the process
}

}  // namespace

void WatchInterrupts() {
  interrupted = false;
  SetConsoleCtrlHandler(Remember, FALSE);  // only once, however often this is called
  SetConsoleCtrlHandler(nullptr, FALSE);   // a parent may have had Ctrl+C ignored
  SetConsoleCtrlHandler(Remember, TRUE);
}

bool Interrupted() { return interrupted; }

}  // namespace oravin::platform
