#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers as people type and read them. The decimal point is a point whatever the system's language is.
namespace oravin {

/// Reads a decimal number: digits, a point and an exponent as usual, blanks around it, one sign before it.
/// @return nothing for a text that is no number, and for one that no double-precision number comes near
std::optional<double> NumberFrom(std::string_view text);

/// The shortest decimal text that reads back as the same single-precision number: 0.1, 250, 1e+20.
std::string NumberText(float number);

}  // namespace oravin
