#include "cli/console.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "cli/json_forms.h"
#include "platform/native_path.h"

namespace oravin {

namespace {

constexpr std::size_t longestProgressLine = 78;  // fits the narrowest usual terminal

std::optional<std::string> ReadLine(Console& console) {
  std::string line;
  if (!std::getline(console.in, line)) return std::nullopt;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

/// The box's text behind its title, each further line indented below it.
void WritePlainBox(Console& console, const Message& box) {
  std::string text = ToUtf8(box.title) + ": ";
  for (const char c : ToUtf8(box.text)) {
    if (c == '\r') continue;
    text += c;
    if (c == '\n') text += "  ";
  }
  console.err << text << '\n';
}

void WriteChoices(Console& console, Buttons buttons) {
  std::string choices;
  for (const Answer answer : OfferedAnswers(buttons))
    choices += (choices.empty() ? "" : "/") + std::string(WordOf(answer));
  console.err << "  [" << choices << "] " << std::flush;
}

/// Asks until the answer is one of the box's own; at the end of the input it is the safe one, which nobody gave.
/// @return nothing at the end of the input
std::optional<Answer> AskPerson(Console& console, const Message& box) {
  WritePlainBox(console, box);
  for (;;) {
    WriteChoices(console, box.buttons);
    const auto line = ReadLine(console);
    if (!line) {
      console.err << WordOf(SafeAnswer(box.buttons)) << '\n';
      return std::nullopt;
    }
    if (const auto answer = TypedAnswer(*line, box.buttons)) return answer;
  }
}

Answer ShowBox(Console& console, const Message& box) {
  ClearProgressLine(console);
  const bool grave = box.icon == Icon::exclamation || box.icon == Icon::critical;
  if (box.success) {
    ++console.successes;
  } else if (grave) {
    ++console.failures;
  }
  const auto planned = PlannedAnswer(console.answers, box.buttons);
  const bool asked = !planned && console.terminal;
  const auto given = asked ? AskPerson(console, box) : planned;
  const Answer answer = given.value_or(SafeAnswer(box.buttons));
  if (console.json) {
    console.err << OneLine(JsonOf(box, answer)) << std::endl;
  } else if (!asked) {
    WritePlainBox(console, box);
    if (box.buttons != Buttons::ok) {
      WriteChoices(console, box.buttons);
      console.err << WordOf(answer) << '\n';
    }
  }
  return given.value_or(Answer::none);
}

/// A path that a person types; empty for Cancel.
std::string AskPath(Console& console, const std::string& prompt) {
  ClearProgressLine(console);
  if (!console.terminal) return {};
  console.err << ToUtf8(prompt) << " (an empty line cancels): " << std::flush;
  const auto line = ReadLine(console);
  if (!line) console.err << '\n';
  return line ? platform::ToWindowsPath(Trim(*line)) : std::string();
}

std::string BrowseForFolder(Console& console, const std::string& prompt) {
  if (!console.terminal) {
    SayError(console, "a folder is asked for (\"" + prompt +
                          "\") and nobody is there to answer; name the folders with --game and --program");
  }
  return AskPath(console, prompt);
}

/// The path of a file; says which one where nobody can answer.
std::string AskFile(Console& console, const FileQuestion& question) {
  const std::string prompt = question.name.empty() ? question.title : question.title + " " + question.name;
  if (!console.terminal) {
    SayError(console, "a file is asked for (\"" + prompt + "\") and nobody is there to answer");
  }
  return AskPath(console, prompt);
}

void ShowProgress(Console& console, const Progress& progress) {
  if (!console.terminal) return;
  ClearProgressLine(console);
  if (progress.total == 0) return;
  // Measured in the core's code page, where a character is a byte.
  std::string line = progress.text + " (" + std::to_string(progress.done) + "/" + std::to_string(progress.total) + ")";
  line.resize(std::min(line.size(), longestProgressLine));
  console.lineWidth = line.size();
  console.err << ToUtf8(line) << std::flush;
}

}  // namespace

Desk DeskOf(Console& console) {
  Desk desk;
  desk.showBox = [&console](const Message& box) { return ShowBox(console, box); };
  desk.browseForFolder = [&console](const std::string& prompt) { return BrowseForFolder(console, prompt); };
  desk.openDialog = [&console](const FileQuestion& question) { return AskFile(console, question); };
  desk.showProgress = [&console](const Progress& progress) { ShowProgress(console, progress); };
  return desk;
}

void SayError(Console& console, const std::string& text) {
  ClearProgressLine(console);
  ++console.failures;
  if (console.json) {
    console.err << OneLine(Json{{"error", ToUtf8(text)}}) << std::endl;
  } else {
    console.err << "oravin-cli: " << ToUtf8(text) << std::endl;
  }
}

void ClearProgressLine(Console& console) {
  if (console.lineWidth == 0) return;
  console.err << '\r' << std::string(console.lineWidth, ' ') << '\r' << std::flush;
  console.lineWidth = 0;
}

}  // namespace oravin
