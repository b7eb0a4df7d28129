#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/text.h"

namespace oravin {

/// A text field of fixed width, single-byte, left-aligned and padded with spaces. Longer text is cut to the width.
template <std::size_t length>
struct FixedText {
  static constexpr std::size_t width = length;

  FixedText() { characters.fill(' '); }
  FixedText(std::string_view text) : FixedText() { Set(text); }  // NOLINT(google-explicit-constructor)

  void Set(std::string_view text) {
    characters.fill(' ');
    text.copy(characters.data(), length);
  }

  /// The text without padding; fields from files may be padded with spaces or zeros.
  [[nodiscard]] std::string Trimmed() const {
    std::string_view text(characters.data(), length);
    return Trim(text.substr(0, text.find('\0')));
  }

  bool operator==(const FixedText&) const = default;

  std::array<char, length> characters;
};

}  // namespace oravin
