#pragma once

#include <span>
#include <string>
#include <vector>

#include "app/start_up.h"
#include "cli/answers.h"
#include "cli/commands.h"

namespace oravin {

/// What a command line asks for.
struct CommandLine {
  enum class Kind { run, show, wrong };

  Kind kind = Kind::wrong;
  std::string text;  ///< what to show (help, version), or what is wrong with the usage; ends in a line break

  const Command* command = nullptr;
  Values values;
  GivenFolders folders;
  AnswerPlan answers;
  bool json = false;
};

/// Reads a command line: `[options] GROUP VERB [arguments]`, the options anywhere. A word that begins with "-" and a
/// digit, or "-." and a digit, is a negative number and thus a value; after "--" all words are values. A number such as
/// "-.5" is passed on as "-0.5".
/// @param words without the program's name, UTF-8
CommandLine ReadCommandLine(std::span<const Command> commands, const std::vector<std::string>& words);

}  // namespace oravin
