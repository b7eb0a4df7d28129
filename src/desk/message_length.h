#pragma once

#include <cstddef>
#include <string_view>

#include "desk/message_box.h"

namespace oravin {

/// The lines that a text takes in a message box, which breaks long lines: each line of the text counts as many as it
/// has times 60 characters, a begun one as a whole one, and an empty line counts as one.
/// @param text its lines are joined by "\n"; each byte is a character
std::size_t ShownLines(std::string_view text);

/// True for a message of more lines than a message box has room for on a small screen.
bool IsLong(const Message& box);

}  // namespace oravin
