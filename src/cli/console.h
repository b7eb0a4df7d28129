#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "cli/answers.h"
#include "desk/desk.h"

namespace oravin {

/// The desk of the command line: where it writes, whom it can ask, and what has been told so far.
struct Console {
  std::ostream& out;      ///< results alone
  std::ostream& err;      ///< boxes, questions, progress, errors
  std::istream& in;       ///< a person's answers
  bool terminal = false;  ///< a person sits at `err` and `in`
  bool json = false;
  AnswerPlan answers{};

  int failures = 0;           ///< boxes that tell of a failure, and errors
  int successes = 0;          ///< boxes that tell of a success
  std::size_t lineWidth = 0;  ///< characters of the progress line that stands on the terminal
};

/// The desk whose boxes, questions and progress go to the console. The console must outlive it.
///
/// A box is written as "TITLE: text", its further lines indented, a question with its answer; with `json` as one line
/// of JSON. A question is answered by plan; without one a person is asked. Where there is none, or the input has ended,
/// the safe answer is written, and the box returns Answer::none. A question for a folder or a file is cancelled where
/// there is no person. Progress is one rewritten line on a terminal, and nothing elsewhere.
///
/// A box with the exclamation or the critical icon counts as a failure, save for messages of success.
Desk DeskOf(Console& console);

/// Writes "oravin-cli: " and what is wrong, with `json` as {"error":..}, and counts it as a failure.
/// @param text in the core's code page
void SayError(Console& console, const std::string& text);

/// Takes the progress line off the terminal.
void ClearProgressLine(Console& console);

}  // namespace oravin
