#pragma once

#include <cstddef>
#include <string_view>

#include "desk/message_box.h"

namespace oravin {

/// The number of lines of a text in a message box, which wraps lines at 60 characters. An empty line counts as one.
/// @param text its lines are separated by "\n"; one character per byte
std::size_t ShownLines(std::string_view text);

/// True if a message is too long for a message box on a small screen.
bool IsLong(const Message& box);

}  // namespace oravin
