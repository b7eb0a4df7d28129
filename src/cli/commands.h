#pragma once

#include <map>
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
  /// Intentional: a list of plain names in it (textures, imported, failed, removed, inPlaceOf, freeBlocks) is an array
  /// of strings, while other lists are arrays of objects. A name alone has no second field, and scripts read such a
  /// list without a step in between.
  Json document;
  std::string text;  ///< UTF-8, ends in a line break
};

/// What a command works with.
struct Session {
  Main& main;
  Console& console;
};

/// What a word of the command line stands for.
enum class WordKind {
  text,
  path,  ///< a path of this machine or a Windows path; the command gets a Windows path
};

struct Argument {
  std::string name;  ///< as the usage shows it: TARGET
  std::string help;
  WordKind kind = WordKind::text;
  bool several = false;   ///< any number of words, none included; only the last argument can be that
  bool optional = false;  ///< may be left out; only arguments at the end can be that
};

/// An option of one command.
struct CommandOption {
  std::string name;   ///< "--to"
  std::string value;  ///< as the usage shows it: DIR; empty for an option that takes none
  std::string help;
  WordKind kind = WordKind::text;
  bool required = false;
  bool several = false;  ///< may be given more than once, each time with one value
};

/// What a command was given, in the core's code page.
struct Values {
  std::vector<std::string> arguments;                       ///< in order; an optional one may be missing at the end
  std::vector<std::string> several;                         ///< the words of an argument that takes any number
  std::map<std::string, std::vector<std::string>> options;  ///< the values of those that were given

  [[nodiscard]] const std::string& at(std::size_t index) const { return arguments.at(index); }
  [[nodiscard]] bool Has(const std::string& option) const { return options.contains(option); }
  /// The value of an option that was given.
  [[nodiscard]] const std::string& Of(const std::string& option) const { return options.at(option).front(); }
  /// The values of an option that may be given several times, in order; none when it was not given.
  [[nodiscard]] std::vector<std::string> EveryOf(const std::string& option) const {
    return Has(option) ? options.at(option) : std::vector<std::string>();
  }
};

/// What a command works on.
enum class WorksOn {
  installation,
  game,  ///< the game folder alone: Oravin's own may be missing
  file   ///< that it is given
};

/// One command: "GROUP VERB", or a verb alone.
struct Command {
  std::string group;  ///< empty for a verb without a group
  std::string verb;
  std::vector<Argument> arguments;  ///< all are required, save for optional ones and one that takes any number
  std::string help;                 ///< one sentence

  /// Does it, over what start-up has found or loaded of the installation where it works on that.
  /// @return nothing when it failed, which is on the console then
  std::optional<Result> (*run)(Session& session, const Values& values);

  std::vector<CommandOption> options = {};
  WorksOn worksOn = WorksOn::installation;
};

/// All commands, in the order in which the help lists them.
std::span<const Command> Commands();

/// "ships swap", or the verb alone.
std::string NameOf(const Command& command);

std::optional<Result> TellStatus(Session& session, const Values& values);
std::optional<Result> Enable(Session& session, const Values& values);
std::optional<Result> Disable(Session& session, const Values& values);
std::optional<Result> ListShips(Session& session, const Values& values);
std::optional<Result> SwapShips(Session& session, const Values& values);
std::optional<Result> UnswapOne(Session& session, const Values& values);
std::optional<Result> UnswapAll(Session& session, const Values& values);
std::optional<Result> ShowStats(Session& session, const Values& values);
std::optional<Result> SetStat(Session& session, const Values& values);
std::optional<Result> CopyStats(Session& session, const Values& values);
std::optional<Result> RestoreStats(Session& session, const Values& values);
std::optional<Result> RestoreAllStats(Session& session, const Values& values);
std::optional<Result> ListWeapons(Session& session, const Values& values);
std::optional<Result> SetWeapon(Session& session, const Values& values);
std::optional<Result> RestoreShipWeapons(Session& session, const Values& values);
std::optional<Result> ShowCloak(Session& session, const Values& values);
std::optional<Result> ToggleShipCloak(Session& session, const Values& values);
std::optional<Result> ListModelTextures(Session& session, const Values& values);
std::optional<Result> ListHog(Session& session, const Values& values);
std::optional<Result> ExtractHog(Session& session, const Values& values);
std::optional<Result> UnpackHog(Session& session, const Values& values);
std::optional<Result> BackupFat(Session& session, const Values& values);
std::optional<Result> RestoreFat(Session& session, const Values& values);
std::optional<Result> EditHog(Session& session, const Values& values);
std::optional<Result> ListTcache(Session& session, const Values& values);
std::optional<Result> ExtractTcache(Session& session, const Values& values);
std::optional<Result> ImportOneTexture(Session& session, const Values& values);
std::optional<Result> RenameTexture(Session& session, const Values& values);
std::optional<Result> RestoreTcache(Session& session, const Values& values);
std::optional<Result> PreviewTexture(Session& session, const Values& values);
std::optional<Result> ImportShips(Session& session, const Values& values);
std::optional<Result> ListImported(Session& session, const Values& values);
std::optional<Result> RenameImportedShip(Session& session, const Values& values);
std::optional<Result> RemoveImportedShips(Session& session, const Values& values);
std::optional<Result> ConvertMesh(Session& session, const Values& values);
std::optional<Result> DraftList(Session& session, const Values& values);
std::optional<Result> LearnLoadoutMaps(Session& session, const Values& values);

}  // namespace oravin
