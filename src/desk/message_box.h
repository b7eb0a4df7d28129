#pragma once

#include <string>

namespace oravin {

enum class Icon { none, exclamation, critical, question, information };
enum class Buttons { ok, okCancel, yesNo, yesNoCancel };

/// What a box was answered with. `none` says that a question was put where nobody could answer it: it is taken as the
/// box's safe answer, save where a declined question would delete something.
enum class Answer { ok, cancel, yes, no, none };

/// The title of a box that asks for none of its own: the program's name.
inline constexpr const char* programTitle = "Oravin";

/// A modal message to the person at the desk.
struct Message {
  std::string text;  ///< lines are joined by "\n"
  std::string title = programTitle;
  Icon icon = Icon::none;
  Buttons buttons = Buttons::ok;
  bool success = false;  ///< the message tells of a success, whatever its icon

  bool operator==(const Message&) const = default;
};

}  // namespace oravin
