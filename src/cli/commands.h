#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/main.h"
#include "cli/console.h"
#include "cli/json_forms.h"

namespace oravin {

/// What a command has to tell, in both forms.
struct Result {
  Json document;
  std::string text;  ///< UTF-8, ends in a line break
};

/// What a command works with.
struct Session {
  Main& main;
  Console& console;
};

struct Argument {
  std::string name;  ///< as the usage shows it: TARGET
  std::string help;
};

/// One command: "GROUP VERB", or a verb alone.
struct Command {
  std::string group;  ///< empty for a verb without a group
  std::string verb;
  std::vector<Argument> arguments;  ///< all are required
  std::string help;                 ///< one sentence

  /// Does it, over an installation that start-up has loaded.
  /// @param values the arguments in order, in the core's code page
  /// @return nothing when it failed, which is on the console then
  std::optional<Result> (*run)(Session& session, const std::vector<std::string>& values);
};

/// All commands, in the order in which the help lists them.
std::span<const Command> Commands();

/// "ships swap", or the verb alone.
std::string NameOf(const Command& command);

std::optional<Result> TellStatus(Session& session, const std::vector<std::string>& values);
std::optional<Result> Enable(Session& session, const std::vector<std::string>& values);
std::optional<Result> Disable(Session& session, const std::vector<std::string>& values);
std::optional<Result> ListShips(Session& session, const std::vector<std::string>& values);
std::optional<Result> SwapShips(Session& session, const std::vector<std::string>& values);
std::optional<Result> UnswapOne(Session& session, const std::vector<std::string>& values);
std::optional<Result> UnswapAll(Session& session, const std::vector<std::string>& values);
std::optional<Result> ShowStats(Session& session, const std::vector<std::string>& values);

}  // namespace oravin
