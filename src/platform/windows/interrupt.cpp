#include "platform/interrupt.h"

#include <windows.h>

#include <atomic>

namespace oravin::platform {

namespace {

// Set by the console's handler thread.
std::atomic<bool> interrupted = false;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

BOOL WINAPI Remember(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  return interrupted.exchange(true) ? FALSE : TRUE;  // FALSE: the system's handler ends the process
}

}  // namespace

void WatchInterrupts() {
  interrupted = false;
  SetConsoleCtrlHandler(Remember, FALSE);  // never register it twice
  SetConsoleCtrlHandler(nullptr, FALSE);   // the parent may have disabled Ctrl+C
  SetConsoleCtrlHandler(Remember, TRUE);
}

bool Interrupted() { return interrupted; }

}  // namespace oravin::platform
