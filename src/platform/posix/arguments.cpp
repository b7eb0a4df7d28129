#include "platform/arguments.h"

namespace oravin::platform {

std::vector<std::string> Arguments(int argc, const char* const* argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

}  // namespace oravin::platform
