#include "support/environment.h"

#include <cstdlib>

namespace oravin::test {

namespace {

void Set(const std::string& name, const std::optional<std::string>& value) {
  if (value) {
    setenv(name.c_str(), value->c_str(), 1);
  } else {
    unsetenv(name.c_str());
  }
}

}  // namespace

Environment::Environment(std::string variable, const std::optional<std::string>& value) : name(std::move(variable)) {
  if (const char* found = std::getenv(name.c_str())) before = found;
  Set(name, value);
}

Environment::~Environment() { Set(name, before); }

}  // namespace oravin::test
