#pragma once

#include <optional>
#include <string>

namespace oravin::test {

/// Sets an environment variable, or takes it away, for as long as this record lives.
struct Environment {
  Environment(std::string variable, const std::optional<std::string>& value);
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment();

  std::string name;
  std::optional<std::string> before;
};

}  // namespace oravin::test
