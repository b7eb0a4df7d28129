#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <optional>

#include "base/text.h"
#include "cli/help_text.h"
#include "platform/native_path.h"
#include "tabs/about_tab.h"

namespace oravin {

namespace {

// The parser takes some negative numbers, such as "-.5", for options. With this character before them, which nobody
// types, they are values.
constexpr char valueMark = '\x1f';

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsNegativeNumber(const std::string& word) {
  if (word.size() < 2 || word[0] != '-') return false;
  return IsDigit(word[1]) || (word[1] == '.' && word.size() > 2 && IsDigit(word[2]));
}

std::string Unmarked(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), valueMark), text.end());
  return text;
}

/// The words as the parser wants them: marked, and the last one first.
std::vector<std::string> ForParser(const std::vector<std::string>& words) {
  std::vector<std::string> marked;
  marked.reserve(words.size());
  for (const std::string& word : words) marked.push_back(IsNegativeNumber(word) ? valueMark + word : word);
  std::reverse(marked.begin(), marked.end());
  return marked;
}

/// The words of one command as they were typed.
struct Typed {
  std::vector<std::optional<std::string>> arguments;  ///< in order; nothing for one that was left out
  std::vector<std::string> several;
  std::map<std::string, std::vector<std::string>> options;  ///< of each one its values; none when it was not given
};

/// What the parser fills.
struct Parsed {
  std::string game;
  std::string program;
  std::string answers;
  bool yes = false;
  bool no = false;
  bool json = false;
  std::vector<Typed> typed;        ///< one a command
  std::vector<CLI::App*> parsers;  ///< one a command
};

void AddOptions(CLI::App& app, Parsed& parsed) {
  app.set_help_flag("-h,--help");
  app.set_version_flag("--version", PlainVersion());
  const auto folder = [](const std::string& path) { return path.empty() ? "the folder is empty" : std::string(); };
  app.add_option("--game", parsed.game)->check(CLI::Validator(folder, ""));
  app.add_option("--program", parsed.program)->check(CLI::Validator(folder, ""));
  app.add_flag("--json", parsed.json);
  CLI::Option* yes = app.add_flag("--yes", parsed.yes);
  CLI::Option* no = app.add_flag("--no", parsed.no)->excludes(yes);
  app.add_option("--answers", parsed.answers)
      ->excludes(yes)
      ->excludes(no)
      ->check(CLI::Validator(
          [](const std::string& list) {
            return AnswersFrom(list) ? std::string() : "only yes, no, ok and cancel, separated by commas, are answers";
          },
          ""));
}

void AddArgument(CLI::App& parser, const Argument& argument, std::size_t index, Typed& typed) {
  if (argument.several) {
    parser.add_option(argument.name, typed.several);
    return;
  }
  parser
      .add_option_function<std::string>(argument.name,
                                        [&typed, index](const std::string& word) { typed.arguments[index] = word; })
      ->required(!argument.optional);
}

void AddOption(CLI::App& parser, const CommandOption& option, Typed& typed) {
  std::vector<std::string>* const values = &typed.options[option.name];
  if (option.value.empty()) {
    parser.add_flag_callback(option.name, [values] { *values = {""}; });
  } else if (option.several) {
    // Each time it takes one value; the words behind that are arguments again.
    parser.add_option(option.name, *values)->allow_extra_args(false)->required(option.required);
  } else {
    parser.add_option_function<std::string>(option.name, [values](const std::string& value) { *values = {value}; })
        ->required(option.required);
  }
}

/// Tells the parser what a command takes, and where to put it.
void AddWords(CLI::App& parser, const Command& command, Typed& typed) {
  typed.arguments.resize(command.arguments.size());
  for (std::size_t i = 0; i < command.arguments.size(); ++i) AddArgument(parser, command.arguments[i], i, typed);
  for (const CommandOption& option : command.options) AddOption(parser, option, typed);
}

/// A word as the command gets it.
std::string Word(const std::string& typed, WordKind kind) {
  const std::string word = Unmarked(typed);
  return kind == WordKind::path ? platform::ToWindowsPath(word) : FromUtf8(word);
}

Values ForCommand(const Command& command, const Typed& typed) {
  Values values;
  for (std::size_t i = 0; i < command.arguments.size(); ++i) {
    const Argument& argument = command.arguments[i];
    if (typed.arguments[i]) values.arguments.push_back(Word(*typed.arguments[i], argument.kind));
    if (!argument.several) continue;
    for (const std::string& word : typed.several) values.several.push_back(Word(word, argument.kind));
  }
  for (const CommandOption& option : command.options) {
    for (const std::string& value : typed.options.at(option.name)) {
      values.options[option.name].push_back(option.value.empty() ? std::string() : Word(value, option.kind));
    }
  }
  return values;
}

void AddCommands(CLI::App& app, std::span<const Command> commands, Parsed& parsed) {
  std::map<std::string, CLI::App*> groups = {{"", &app}};
  parsed.typed.resize(commands.size());
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const Command& command = commands[i];
    CLI::App*& group = groups[command.group];
    if (group == nullptr) {
      group = app.add_subcommand(command.group);
      group->require_subcommand(1);
    }
    CLI::App* parser = group->add_subcommand(command.verb);
    AddWords(*parser, command, parsed.typed[i]);
    parsed.parsers.push_back(parser);
  }
}

/// The command that the words name; null when they name none.
const Command* NamedCommand(std::span<const Command> commands, const Parsed& parsed) {
  for (std::size_t i = 0; i < commands.size(); ++i) {
    if (parsed.parsers[i]->parsed()) return &commands[i];
  }
  return nullptr;
}

/// What is wrong with words that name no command.
std::string MissingCommand(const CLI::App& app) {
  std::string given;
  for (const CLI::App* group : app.get_subcommands()) given += group->get_name() + " ";
  const std::vector<std::string> rest = app.remaining(true);
  if (rest.empty()) return given.empty() ? "a command is missing" : "a verb is missing behind \"" + Trim(given) + "\"";
  return "there is no command \"" + given + Unmarked(rest.front()) + "\"";
}

/// What is wrong with an option that was given too often or without its value.
/// @param error the parser's text, which begins with the option and a colon
std::string WrongOption(const Command* command, const std::string& error) {
  const std::string name = error.substr(0, error.find(':'));
  const auto several = [&](const CommandOption& option) { return option.several && option.name == name; };
  const bool oftener = command != nullptr && std::any_of(command->options.begin(), command->options.end(), several);
  return name + (oftener ? " must be given with one value each time" : " must be given once and with one value");
}

CommandLine WrongUsage(const std::string& what) {
  CommandLine line;
  line.kind = CommandLine::Kind::wrong;
  line.text = "oravin-cli: " + what + "\n\"oravin-cli --help\" shows how it is used.\n";
  return line;
}

CommandLine ToShow(const std::string& text) {
  CommandLine line;
  line.kind = CommandLine::Kind::show;
  line.text = text;
  return line;
}

CommandLine ToRun(const Command& command, const Typed& typed, const Parsed& parsed) {
  CommandLine line;
  line.kind = CommandLine::Kind::run;
  line.command = &command;
  line.values = ForCommand(command, typed);
  // Start-up may make another folder the current one before it looks at these.
  line.folders = {platform::ToWindowsPath(Unmarked(parsed.game)), platform::ToWindowsPath(Unmarked(parsed.program))};
  if (parsed.yes || parsed.no) line.answers.always = parsed.yes;
  if (!parsed.answers.empty()) line.answers.inOrder = AnswersFrom(parsed.answers).value_or(std::vector<Answer>());
  line.json = parsed.json;
  return line;
}

}  // namespace

CommandLine ReadCommandLine(std::span<const Command> commands, const std::vector<std::string>& words) {
  CLI::App app;
  Parsed parsed;
  app.name("oravin-cli");
  app.fallthrough();
  app.allow_windows_style_options(false);
  app.require_subcommand(1);
  AddOptions(app, parsed);
  AddCommands(app, commands, parsed);
  try {
    app.parse(ForParser(words));
  } catch (const CLI::CallForHelp&) {
    const Command* command = NamedCommand(commands, parsed);
    return ToShow(command != nullptr ? HelpText(*command) : HelpText(commands));
  } catch (const CLI::CallForVersion&) {
    return ToShow("oravin-cli " + PlainVersion() + "\n");
  } catch (const CLI::ArgumentMismatch& error) {
    return WrongUsage(WrongOption(NamedCommand(commands, parsed), Unmarked(error.what())));
  } catch (const CLI::ParseError& error) {
    const bool verbless = std::string(error.what()) == "A subcommand is required";
    return WrongUsage(verbless ? MissingCommand(app) : Unmarked(error.what()));
  }
  const Command* command = NamedCommand(commands, parsed);
  if (command == nullptr) return WrongUsage(MissingCommand(app));
  return ToRun(*command, parsed.typed[static_cast<std::size_t>(command - commands.data())], parsed);
}

}  // namespace oravin
