#include "base/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/text.h"

namespace oravin {

std::optional<double> NumberFrom(std::string_view text) {
  const std::string trimmed = Trim(text);
  std::string_view digits = trimmed;
  if (digits.starts_with('+')) {
    digits.remove_prefix(1);
    if (digits.starts_with('-')) return std::nullopt;
  }
  double number = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool whole = failure == std::errc() && end == digits.data() + digits.size();
  return whole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::string NumberText(float number) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), end.ptr};
}

}  // namespace oravin
