#include "desk/new_name.h"

#include "base/text.h"
#include "desk/dialogs.h"

namespace oravin {

bool NameCanBeStored(Host& host, const std::string& name, const std::string& title) {
  if (IsCodePageText(name)) return true;
  Show(host,
       "The name '" + Presentable(name) +
           "' cannot be used. The game's files\n"
           "hold letters of the code page Windows-1252 alone, and no\n"
           "control characters. Choose a name without the characters\n"
           "that are shown as '?' here.",
       Icon::exclamation, title);
  return false;
}

}  // namespace oravin
