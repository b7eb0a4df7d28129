#include "desk/message_length.h"

#include <algorithm>

namespace oravin {

namespace {

/// About so many characters stand on a line of a message box before it is broken.
constexpr std::size_t lineLength = 60;

/// So many lines, the title and the buttons fit on a screen of 600 pixels at 100 %.
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
