#include "desk/message_length.h"

#include <algorithm>

namespace oravin {

namespace {

/// Approximate number of characters per line of a message box.
constexpr std::size_t lineLength = 60;

/// Lines that fit on a screen 600 pixels high at 100 %, with title and buttons.
constexpr std::size_t mostLines = 28;

}  // namespace

std::size_t ShownLines(std::string_view text) {
  std::size_t lines = 0;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines += std::max<std::size_t>(1, (end - begin + lineLength - 1) / lineLength);
    begin = end + 1;
  }
  return lines;
}

bool IsLong(const Message& box) { return ShownLines(box.text) > mostLines; }

}  // namespace oravin
