#pragma once

#include <string>
#include <vector>

namespace oravin::platform {

/// The command line's arguments without the program's name: UTF-8 on Windows, elsewhere the original bytes.
std::vector<std::string> Arguments(int argc, const char* const* argv);

}  // namespace oravin::platform
