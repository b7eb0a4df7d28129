#include "platform/arguments.h"

#include <windows.h>
// Must follow windows.h.
#include <shellapi.h>

#include "platform/windows/wide_text.h"

namespace oravin::platform {

std::vector<std::string> Arguments(int /*argc*/, const char* const* /*argv*/) {
  // The arguments of main are in the system's code page, which may lack characters.
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8FromWide(words[i]));
  LocalFree(words);
  return arguments;
}

}  // namespace oravin::platform
