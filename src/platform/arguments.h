#pragma once

#include <string>
#include <vector>

namespace oravin::platform {

/// The words of the command line behind the program's name, in UTF-8; away from Windows the bytes that were given.
std::vector<std::string> Arguments(int argc, const char* const* argv);

}  // namespace oravin::platform
