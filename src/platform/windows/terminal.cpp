#include "platform/terminal.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <initializer_list>

namespace oravin::platform {

namespace {

bool IsConsole(DWORD which) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(which), &mode) != FALSE;
}

}  // namespace

bool PersonAtTerminal() { return IsConsole(STD_INPUT_HANDLE) && IsConsole(STD_ERROR_HANDLE); }

void PrepareStreams() {
  // Binary: results may be read by programs on any system, so lines end in LF, as in all of Oravin's files.
  for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  SetConsoleCP(CP_UTF8);
}

}  // namespace oravin::platform
