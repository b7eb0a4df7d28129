#include "support/scripted_desk.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>

namespace oravin::test {

namespace {

/// The safe answer to a box that nobody expected.
Answer SafeAnswer(Buttons buttons) {
  switch (buttons) {
    case Buttons::ok:
      return Answer::ok;
    case Buttons::yesNo:
      return Answer::no;
    default:
      return Answer::cancel;
  }
}

bool Fits(Buttons buttons, Answer answer) {
  switch (buttons) {
    case Buttons::ok:
      return answer == Answer::ok;
    case Buttons::okCancel:
      return answer == Answer::ok || answer == Answer::cancel;
    case Buttons::yesNo:
      return answer == Answer::yes || answer == Answer::no;
    default:
      return answer != Answer::ok;
  }
}

Answer ShowScripted(ScriptedDesk& desk, const Message& box) {
  desk.shown.push_back(box);
  if (!desk.expected.empty() && desk.expected.front().first == box) {
    const Answer answer = desk.expected.front().second;
    desk.expected.pop_front();
    return answer;
  }
  if (desk.others) return desk.others(box);
  if (desk.expected.empty()) {
    ADD_FAILURE() << "a box came that was not expected:\n" << InWords(box);
    return SafeAnswer(box.buttons);
  }
  const auto [wanted, answer] = desk.expected.front();
  desk.expected.pop_front();
  ADD_FAILURE() << "a box differs. Expected:\n" << InWords(wanted) << "Came:\n" << InWords(box);
  return Fits(box.buttons, answer) ? answer : SafeAnswer(box.buttons);
}

std::string Next(std::deque<std::string>& answers, const std::string& what) {
  if (answers.empty()) {
    ADD_FAILURE() << what << " opened that was not expected";
    return {};
  }
  std::string answer = answers.front();
  answers.pop_front();
  return answer;
}

}  // namespace

ScriptedDesk::ScriptedDesk(Host& owner) : host(owner) {
  host.desk.showBox = [this](const Message& box) { return ShowScripted(*this, box); };
  host.desk.browseForFolder = [this](const std::string& prompt) {
    prompts.push_back(prompt);
    return Next(folders, "a folder browser (" + prompt + ")");
  };
  host.desk.openDialog = [this](const FileQuestion& question) {
    fileQuestions.push_back(question);
    return Next(files, "an open dialog (" + question.title + ")");
  };
  host.desk.showProgress = [this](const Progress& step) { progress.push_back(step); };
  host.desk.putOnClipboard = [this](const std::string& text) { clipboard.push_back(text); };
  host.desk.stopAsked = [this] { return stopAfter && (*stopAfter)-- <= 0; };
  host.desk.showForm = [this](const std::string& form) {
    if (forms.empty()) {
      ADD_FAILURE() << "the form " << form << " opened, which was not expected";
      return;
    }
    const auto act = forms.front();
    forms.pop_front();
    act(form);
  };
}

ScriptedDesk::~ScriptedDesk() {
  Done();
  host.desk = {};
}

void ScriptedDesk::Expect(const Message& box, Answer answer) {
  if (!Fits(box.buttons, answer)) ADD_FAILURE() << "no such button can be pressed on this box:\n" << InWords(box);
  expected.emplace_back(box, answer);
}

void ScriptedDesk::ExpectBox(const std::string& text, const std::string& title, Icon icon) {
  Expect({text, title, icon, Buttons::ok, false});
}

void ScriptedDesk::ExpectSuccess(const std::string& text, const std::string& title, Icon icon) {
  Expect({text, title, icon, Buttons::ok, true});
}

void ScriptedDesk::ExpectQuestion(const std::string& text, Answer answer, const std::string& title) {
  Expect({text, title, Icon::question, Buttons::yesNo, false}, answer);
}

void ScriptedDesk::AnswerFolder(const std::string& folder) { folders.push_back(folder); }

void ScriptedDesk::AnswerFile(const std::string& file) { files.push_back(file); }

void ScriptedDesk::OnForm(std::function<void(const std::string& form)> act) { forms.push_back(std::move(act)); }

void ScriptedDesk::StopAfter(int questions) { stopAfter = questions; }

void ScriptedDesk::AllowOthers(std::function<Answer(const Message&)> answer) { others = std::move(answer); }

bool ScriptedDesk::Done() {
  const bool all = expected.empty() && folders.empty() && files.empty() && forms.empty();
  if (!forms.empty()) ADD_FAILURE() << forms.size() << " form(s) never opened";
  forms.clear();
  for (const auto& [box, answer] : expected) ADD_FAILURE() << "a box never came:\n" << InWords(box);
  if (!folders.empty()) ADD_FAILURE() << folders.size() << " folder browser(s) never opened";
  if (!files.empty()) ADD_FAILURE() << files.size() << " open dialog(s) never opened";
  expected.clear();
  folders.clear();
  files.clear();
  return all;
}

std::string InWords(const Message& box) {
  static constexpr std::array<const char*, 5> icons = {"none", "exclamation", "critical", "question", "information"};
  static constexpr std::array<const char*, 4> buttons = {"OK", "OK/Cancel", "Yes/No", "Yes/No/Cancel"};
  return "  text:    " + box.text + "\n  title:   " + box.title +
         "\n  icon:    " + icons.at(static_cast<std::size_t>(box.icon)) +
         "\n  buttons: " + buttons.at(static_cast<std::size_t>(box.buttons)) +
         (box.success ? "\n  a message of success\n" : "\n");
}

}  // namespace oravin::test

namespace oravin {

void PrintTo(const Message& box, std::ostream* out) { *out << "\n" << test::InWords(box); }

}  // namespace oravin
