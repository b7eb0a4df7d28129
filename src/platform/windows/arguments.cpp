#include "platform/arguments.h"

#include <windows.h>
// Needs the header above.
#include <shellapi.h>

#include "platform/windows/wide_text.h"

namespace oravin::platform {

std::vector<std::string> Arguments(int /*argc*/, const char* const* /*argv*/) {
  // What main was given has been through the system's code page, which may lack letters.
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8FromWide(words[i]));
  LocalFree(words);
  return arguments;
}

}  // namespace oravin::platform
