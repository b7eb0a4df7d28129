#pragma once

#include <string>

namespace oravin {

enum class Icon { none, exclamation, critical, question, information };
enum class Buttons { ok, okCancel, yesNo, yesNoCancel };

/// The answer to a message box. `none`: nobody could answer. It counts as the safe answer, except where a declined
/// question would delete something.
enum class Answer { ok, cancel, yes, no, none };

/// Default title: the program's name.
inline constexpr const char* programTitle = "Oravin";

/// A modal message to the user.
struct Message {
  std::string text;  ///< lines are joined by "\n"
  std::string title = programTitle;
  Icon icon = Icon::none;
  Buttons buttons = Buttons::ok;
  bool success = false;  ///< reports a success, whatever its icon

  bool operator==(const Message&) const = default;
};

}  // namespace oravin
