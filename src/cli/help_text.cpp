#include "cli/help_text.h"

#include "base/text.h"
#include "cli/text_table.h"

namespace oravin {

namespace {

constexpr const char* introduction =
    "Usage: oravin-cli [options] GROUP VERB [arguments]\n"
    "\n"
    "Edits the installed files of StarLancer, as the window of Oravin does.\n";

constexpr const char* options =
    "Options, before or after the command:\n"
    "  --game DIR      the game folder, as a path of this machine or a Windows path\n"
    "  --program DIR   Oravin's own folder, likewise; a folder that is not named is\n"
    "                  searched for as at the start of the window\n"
    "  --yes           answer every question with Yes or OK\n"
    "  --no            answer every question with No, or Cancel where there is no No\n"
    "  --answers LIST  answer the questions in this order, for example yes,no,cancel;\n"
    "                  Yes and OK stand for each other, and so do No and Cancel\n"
    "  --json          write the result as one JSON document to standard output, and\n"
    "                  every message box as one line of JSON to standard error\n"
    "  --help          show this help; behind a command, the help of that command\n"
    "  --version       show the version\n"
    "\n"
    "Only one of --yes, --no and --answers can be given. Questions that they do not\n"
    "answer are asked on a terminal; elsewhere the answer is the safe one, No or\n"
    "Cancel.\n";

constexpr const char* remarks =
    "Ships are named as the lists show them; upper and lower case do not matter.\n"
    "A negative number is taken as a value, not as an option. Behind \"--\", all words\n"
    "are arguments.\n"
    "\n"
    "Exit status:\n"
    "  0  done\n"
    "  1  a message box told of a failure, or a name matched nothing\n"
    "  2  wrong usage\n"
    "  3  the program ended itself\n";

std::string UsageOf(const Command& command) {
  std::string usage = NameOf(command);
  for (const Argument& argument : command.arguments) {
    const std::string word = argument.name + (argument.several ? "..." : "");
    usage += argument.several || argument.optional ? " [" + word + "]" : " " + word;
  }
  for (const CommandOption& option : command.options) {
    const std::string words = Trim(option.name + " " + option.value);
    usage += option.required ? " " + words : " [" + words + "]";
    if (option.several) usage += "...";
  }
  return usage;
}

}  // namespace

std::string HelpText(std::span<const Command> commands) {
  std::string text = introduction + std::string("\nCommands:\n");
  for (const Command& command : commands) text += "  " + UsageOf(command) + "\n      " + command.help + "\n";
  return text + "\n" + options + "\n" + remarks;
}

std::string HelpText(const Command& command) {
  std::string text = "Usage: oravin-cli [options] " + UsageOf(command) + "\n\n" + command.help + "\n";
  std::vector<std::vector<std::string>> rows;
  for (const Argument& argument : command.arguments) rows.push_back({"  " + argument.name, argument.help});
  for (const CommandOption& option : command.options) {
    rows.push_back({"  " + option.name + " " + option.value, option.help});
  }
  if (!rows.empty()) text += "\n" + TextTable({{}, {}}, rows);
  return text + "\n\"oravin-cli --help\" shows the options.\n";
}

}  // namespace oravin
