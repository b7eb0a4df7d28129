#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/host.h"

namespace oravin::test {

/// The box about a name that cannot be stored.
inline std::string CannotBeStored(const std::string& shown) {
  return "The name '" + shown +
         "' cannot be used. The game's files\nhold letters of the code page Windows-1252 alone, and no\ncontrol "
         "characters. Choose a name without the characters\nthat are shown as '?' here.";
}

/// The desk of the tests: it holds the boxes that a test expects, in order, with the answers to give. A box that was
/// not expected, that differs in any part, or that never came fails the test, and so does a dialog that was not
/// expected or never opened. It fills the host's desk for as long as it lives.
///
///   Host host;
///   ScriptedDesk desk(host);
///   desk.ExpectBox("Error - file not found", "IsCloaked", Icon::exclamation);
///   ToggleCloakOf(host, installation, ship);
struct ScriptedDesk {
  explicit ScriptedDesk(Host& host);
  ScriptedDesk(const ScriptedDesk&) = delete;
  ScriptedDesk& operator=(const ScriptedDesk&) = delete;
  ~ScriptedDesk();

  /// The next box, compared part by part, and the answer that it is given.
  void Expect(const Message& box, Answer answer = Answer::ok);
  /// A message with the OK button alone.
  void ExpectBox(const std::string& text, const std::string& title = programTitle, Icon icon = Icon::exclamation);
  /// The same for a message of success.
  void ExpectSuccess(const std::string& text, const std::string& title = programTitle, Icon icon = Icon::information);
  /// A Yes/No question.
  void ExpectQuestion(const std::string& text, Answer answer, const std::string& title = programTitle);

  /// The next choice of the folder browser (a Windows path); empty for Cancel.
  void AnswerFolder(const std::string& folder);
  /// The next choice of the open dialog; empty for Cancel.
  void AnswerFile(const std::string& file);

  /// What is done with the next form (its name is given) before it closes.
  void OnForm(std::function<void(const std::string& form)> act);
  /// The long action is asked to stop once it has asked so many times whether it should.
  void StopAfter(int questions);

  /// From here on boxes that are not expected do not fail the test: `answer` is asked instead, and they are recorded
  /// like all others. For walks over failures, where the box depends on where the failure comes.
  void AllowOthers(std::function<Answer(const Message&)> answer);

  /// Fails the test for every expected box or dialog that has not come, and forgets them. Called at the end of life.
  /// @return whether all of them had come
  bool Done();

  std::vector<Message> shown;               ///< every box that came, expected or not
  std::vector<std::string> prompts;         ///< the folder browser's
  std::vector<FileQuestion> fileQuestions;  ///< the open dialog's
  std::vector<Progress> progress;           ///< every step that was shown
  std::vector<std::string> clipboard;       ///< every text that was put there

  Host& host;
  std::deque<std::pair<Message, Answer>> expected;
  std::deque<std::string> folders;
  std::deque<std::string> files;
  std::deque<std::function<void(const std::string& form)>> forms;
  std::function<Answer(const Message&)> others;
  std::optional<int> stopAfter;
};

/// A host with its scripted desk.
struct ScriptedHost {
  Host host;
  ScriptedDesk desk{host};
};

/// A box in words, for failure messages.
std::string InWords(const Message& box);

}  // namespace oravin::test

namespace oravin {

/// GoogleTest prints boxes with this.
void PrintTo(const Message& box, std::ostream* out);

}  // namespace oravin
