#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers as decimal text. The decimal point is always a point.
namespace oravin {

/// Reads a decimal number: digits, a point and an exponent, with optional sign and surrounding spaces.
/// @return nothing for a text that is not a number, or a number that is out of range
std::optional<double> NumberFrom(std::string_view text);

/// The shortest decimal text that reads back as the same single-precision number: 0.1, 250, 1e+20.
std::string NumberText(float number);

}  // namespace oravin
