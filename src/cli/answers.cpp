#include "cli/answers.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace oravin {

namespace {

constexpr std::array<Answer, 4> allAnswers = {Answer::ok, Answer::cancel, Answer::yes, Answer::no};

bool Affirms(Answer answer) { return answer == Answer::ok || answer == Answer::yes; }

}  // namespace

const char* WordOf(Answer answer) {
  switch (answer) {
    case Answer::ok:
      return "ok";
    case Answer::cancel:
      return "cancel";
    case Answer::yes:
      return "yes";
    case Answer::no:
      return "no";
    case Answer::none:
      break;
  }
  return "none";
}

std::vector<Answer> OfferedAnswers(Buttons buttons) {
  switch (buttons) {
    case Buttons::ok:
      return {Answer::ok};
    case Buttons::okCancel:
      return {Answer::ok, Answer::cancel};
    case Buttons::yesNo:
      return {Answer::yes, Answer::no};
    case Buttons::yesNoCancel:
      break;
  }
  return {Answer::yes, Answer::no, Answer::cancel};
}

std::optional<std::vector<Answer>> AnswersFrom(std::string_view list) {
  std::vector<Answer> answers;
  for (std::size_t begin = 0; begin <= list.size();) {
    const std::size_t end = std::min(list.find(',', begin), list.size());
    const std::string word = LowerCase(Trim(list.substr(begin, end - begin)));
    const auto* const found =
        std::find_if(allAnswers.begin(), allAnswers.end(), [&](Answer answer) { return word == WordOf(answer); });
    if (found == allAnswers.end()) return std::nullopt;
    answers.push_back(*found);
    begin = end + 1;
  }
  return answers;
}

Answer FittingAnswer(Answer wanted, Buttons buttons) {
  const std::vector<Answer> offered = OfferedAnswers(buttons);
  if (std::find(offered.begin(), offered.end(), wanted) != offered.end()) return wanted;
  // Of the answers that mean the same, the buttons' order puts No before Cancel.
  const auto alike =
      std::find_if(offered.begin(), offered.end(), [&](Answer answer) { return Affirms(answer) == Affirms(wanted); });
  return alike != offered.end() ? *alike : offered.front();
}

Answer SafeAnswer(Buttons buttons) { return FittingAnswer(Answer::cancel, buttons); }

std::optional<Answer> PlannedAnswer(AnswerPlan& plan, Buttons buttons) {
  if (buttons == Buttons::ok) return Answer::ok;
  if (plan.always) return FittingAnswer(*plan.always ? Answer::yes : Answer::no, buttons);
  if (plan.used < plan.inOrder.size()) return FittingAnswer(plan.inOrder[plan.used++], buttons);
  return std::nullopt;
}

std::optional<Answer> TypedAnswer(std::string_view typed, Buttons buttons) {
  const std::string word = LowerCase(Trim(typed));
  if (word.empty()) return std::nullopt;
  for (const Answer answer : OfferedAnswers(buttons)) {
    if (std::string_view(WordOf(answer)).substr(0, word.size()) == word) return answer;
  }
  return std::nullopt;
}

}  // namespace oravin
