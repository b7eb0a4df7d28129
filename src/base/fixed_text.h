#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/text.h"

namespace oravin {

/// A text field of fixed width, single-byte, left-aligned and padded with blanks. Longer text is cut at the width.
template <std::size_t length>
struct FixedText {
  static constexpr std::size_t width = length;

  FixedText() { characters.fill(' '); }
  FixedText(std::string_view text) : FixedText() { Set(text); }  // NOLINT(google-explicit-constructor)

  void Set(std::string_view text) {
    characters.fill(' ');
    text.copy(characters.data(), length);
  }

  /// The text without the padding: files hold fields that are padded with blanks or with zeros.
  [[nodiscard]] std::string Trimmed() const {
    std::string_view text(characters.data(), length);
    return Trim(text.substr(0, text.find('\0')));
  }

  bool operator==(const FixedText&) const = default;

  std::array<char, length> characters;
};

}  // namespace oravin
