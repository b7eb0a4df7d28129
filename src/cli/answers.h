#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/message_box.h"

namespace oravin {

/// How the command line answers question boxes without asking a person.
struct AnswerPlan {
  std::optional<bool> always;   ///< --yes is true, --no is false
  std::vector<Answer> inOrder;  ///< --answers
  std::size_t used = 0;         ///< how many of them have been given
};

/// Reads the list of --answers: the words yes, no, ok and cancel, separated by commas, without regard to case.
/// @return nothing when a word is none of these
std::optional<std::vector<Answer>> AnswersFrom(std::string_view list);

/// The answer as a box with these buttons can take it: Yes and OK stand for each other, and so do No and Cancel where
/// the box has only one of the two.
Answer FittingAnswer(Answer wanted, Buttons buttons);

/// The answer that changes nothing: No to Yes/No, Cancel where there is a Cancel.
Answer SafeAnswer(Buttons buttons);

/// The answer by plan: OK to a box with that button alone, which uses up no answer of the list; else --yes or --no,
/// else the next of the list.
/// @return nothing when the plan says nothing (any more)
std::optional<Answer> PlannedAnswer(AnswerPlan& plan, Buttons buttons);

/// The answers that a box with these buttons offers, in the order of the buttons.
std::vector<Answer> OfferedAnswers(Buttons buttons);

/// What a person typed as an answer: its word or the beginning of it, without regard to case.
/// @return nothing when the box does not offer it
std::optional<Answer> TypedAnswer(std::string_view typed, Buttons buttons);

/// "ok", "cancel", "yes" or "no"; "none" where nobody answered.
const char* WordOf(Answer answer);

}  // namespace oravin
