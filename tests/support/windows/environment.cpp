#include "support/environment.h"

#include <cstdlib>

namespace oravin::test {

namespace {

// An empty value takes the variable away.
void Set(const std::string& name, const std::optional<std::string>& value) {
  _putenv_s(name.c_str(), value.value_or("").c_str());
}

}  // namespace

Environment::Environment(std::string variable, const std::optional<std::string>& value) : name(std::move(variable)) {
  if (const char* found = std::getenv(name.c_str())) before = found;
  Set(name, value);
}

Environment::~Environment() { Set(name, before); }

}  // namespace oravin::test
