#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

#include "base/text.h"
#include "platform/native_path.h"
#include "tabs/about_tab.h"

namespace oravin {

namespace {

constexpr const char* introduction = "Edits the installed files of StarLancer, as the window of Oravin does.";

constexpr const char* remarks =
    "Options stand before or after the command. Only one of --yes, --no and --answers\n"
    "can be given. Questions that they do not answer are asked on a terminal;\n"
    "elsewhere the answer is the safe one, No or Cancel.\n"
    "\n"
    "Ships are named as the lists show them; upper and lower case do not matter.\n"
    "A negative number is taken as a value, not as an option. After \"--\", all words\n"
    "are arguments.\n"
    "\n"
    "Exit status:\n"
    "  0  done\n"
    "  1  a message box reported a failure, or a name matched nothing\n"
    "  2  wrong usage\n"
    "  3  the program ended itself";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The words as the parser wants them: the last one first, and a negative number that begins with the point written
/// with a 0 before that. The parser takes "-.5" for an option and "-0.5" for a value.
std::vector<std::string> ForParser(std::vector<std::string> words) {
  const auto options = std::find(words.begin(), words.end(), "--");
  for (auto word = words.begin(); word != options; ++word) {
    if (word->starts_with("-.") && word->size() > 2 && IsDigit((*word)[2])) word->insert(1, 1, '0');
  }
  std::reverse(words.begin(), words.end());
  return words;
}

/// What the parser fills.
struct Parsed {
  std::string game;
  std::string program;
  AnswerPlan answers;
  bool json = false;
  std::vector<CLI::App*> parsers;  ///< one a command
};

void AddFolder(CLI::App& app, const std::string& name, std::string& folder, const std::string& help) {
  const auto given = [](const std::string& path) { return path.empty() ? "the folder is empty" : std::string(); };
  app.add_option(name, folder, help)->type_name("DIR")->check(CLI::Validator(given, ""));
}

void AddOptions(CLI::App& app, Parsed& parsed) {
  app.set_version_flag("--version", PlainVersion(), "show the version");
  AddFolder(app, "--game", parsed.game, "the game folder, as a path of this machine or a Windows\npath");
  AddFolder(app, "--program", parsed.program,
            "Oravin's own folder, likewise; a folder that is not named\nis searched for as at the start of the window");
  app.add_flag("--json", parsed.json,
               "write the result as one JSON document to standard output,\n"
               "and every message box as one line of JSON to standard\nerror");
  CLI::Option* const yes = app.add_flag_callback(
      "--yes", [&parsed] { parsed.answers.always = true; }, "answer every question with Yes or OK");
  CLI::Option* const no = app.add_flag_callback(
      "--no", [&parsed] { parsed.answers.always = false; },
      "answer every question with No, or Cancel where there is\nno No");
  const auto list = [&parsed](const std::string& text) {
    const auto answers = AnswersFrom(text);
    if (!answers) {
      throw CLI::ValidationError("--answers", "only yes, no, ok and cancel, separated by commas, are answers");
    }
    parsed.answers.inOrder = *answers;
  };
  app.add_option_function<std::string>("--answers", list,
                                       "answer the questions in this order, for example\n"
                                       "yes,no,cancel; Yes and OK stand for each other, and so do\nNo and Cancel")
      ->option_text("LIST")
      ->excludes(yes, no);
  no->excludes(yes);
  for (CLI::Option* option : {yes, no}) option->option_text(" ");  // the help says which exclude each other
}

/// What a command takes.
void AddWords(CLI::App& parser, const Command& command) {
  constexpr int many = CLI::detail::expected_max_vector_size;
  for (const Argument& argument : command.arguments) {
    CLI::Option* const word = parser.add_option(argument.name)->option_text(" ")->description(argument.help);
    word->required(!argument.several && !argument.optional)->expected(1, argument.several ? many : 1);
    word->allow_extra_args(argument.several);
  }
  for (const CommandOption& option : command.options) {
    if (option.value.empty()) {
      parser.add_flag(option.name)->description(option.help);
      continue;
    }
    // Given several times, it takes one value each time; the words after that are arguments again.
    CLI::Option* const word = parser.add_option(option.name)->type_name(option.value)->description(option.help);
    word->required(option.required)->expected(1, option.several ? many : 1)->allow_extra_args(false);
  }
}

/// The words that were given for an argument or an option, as the command gets them.
std::vector<std::string> WordsOf(const CLI::App& parser, const std::string& name, WordKind kind) {
  std::vector<std::string> words = parser.get_option(name)->results();
  for (std::string& word : words) word = kind == WordKind::path ? platform::ToWindowsPath(word) : FromUtf8(word);
  return words;
}

Values ForCommand(const Command& command, const CLI::App& parser) {
  Values values;
  for (const Argument& argument : command.arguments) {
    std::vector<std::string>& to = argument.several ? values.several : values.arguments;
    const std::vector<std::string> words = WordsOf(parser, argument.name, argument.kind);
    to.insert(to.end(), words.begin(), words.end());
  }
  for (const CommandOption& option : command.options) {
    if (parser.count(option.name) > 0) values.options[option.name] = WordsOf(parser, option.name, option.kind);
  }
  return values;
}

void AddCommands(CLI::App& app, std::span<const Command> commands, Parsed& parsed) {
  std::map<std::string, CLI::App*> groups = {{"", &app}};
  for (const Command& command : commands) {
    CLI::App*& group = groups[command.group];
    if (group == nullptr) group = app.add_subcommand(command.group)->require_subcommand(0, 1)->group("Commands");
    CLI::App* const parser = group->add_subcommand(command.verb, command.help)->group("Commands");
    AddWords(*parser, command);
    parsed.parsers.push_back(parser);
  }
}

/// The index of the command that the words name; past the end when they name none.
std::size_t NamedCommand(const Parsed& parsed) {
  const auto named =
      std::find_if(parsed.parsers.begin(), parsed.parsers.end(), [](CLI::App* p) { return p->parsed(); });
  return static_cast<std::size_t>(named - parsed.parsers.begin());
}

/// What is wrong with words that name no command.
std::string MissingCommand(const CLI::App& app) {
  std::string given;
  for (const CLI::App* group : app.get_subcommands()) given += group->get_name() + " ";
  const std::vector<std::string> rest = app.remaining(true);
  if (rest.empty()) return given.empty() ? "a command is missing" : "a verb is missing after \"" + Trim(given) + "\"";
  return "there is no command \"" + given + rest.front() + "\"";
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

CommandLine ToRun(const Command& command, const CLI::App& parser, const Parsed& parsed) {
  CommandLine line;
  line.kind = CommandLine::Kind::run;
  line.command = &command;
  line.values = ForCommand(command, parser);
  // Start-up may make another folder the current one before it looks at these.
  line.folders = {platform::ToWindowsPath(parsed.game), platform::ToWindowsPath(parsed.program)};
  line.answers = parsed.answers;
  line.json = parsed.json;
  return line;
}

}  // namespace

CommandLine ReadCommandLine(std::span<const Command> commands, const std::vector<std::string>& words) {
  CLI::App app(introduction, "oravin-cli");
  Parsed parsed;
  app.fallthrough();
  app.allow_windows_style_options(false);
  app.require_subcommand(0, 1);
  app.set_help_flag("-h,--help", "show this help; after a command, the help of that command");
  app.get_formatter()->column_width(20);
  app.get_formatter()->label("OPTIONS", "options");
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.footer("\"oravin-cli --help\" shows the options of all commands.");
  AddCommands(app, commands, parsed);
  app.footer(remarks);
  AddOptions(app, parsed);
  try {
    app.parse(ForParser(words));
  } catch (const CLI::CallForHelp&) {
    return ToShow(app.help("", CLI::AppFormatMode::All));
  } catch (const CLI::CallForVersion&) {
    return ToShow("oravin-cli " + PlainVersion() + "\n");
  } catch (const CLI::ExtrasError& error) {
    return WrongUsage(NamedCommand(parsed) == commands.size() ? MissingCommand(app) : error.what());
  } catch (const CLI::ParseError& error) {
    return WrongUsage(error.what());
  }
  const std::size_t named = NamedCommand(parsed);
  if (named == commands.size()) return WrongUsage(MissingCommand(app));
  return ToRun(commands[named], *parsed.parsers[named], parsed);
}

}  // namespace oravin
