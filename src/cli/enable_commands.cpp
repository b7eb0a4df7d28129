#include "actions/status.h"
#include "app/handlers.h"
#include "cli/commands.h"

namespace oravin {

namespace {

/// Runs one of the two actions, which end with a message of success when they are through.
/// @param saying what to say of an action that was done
std::optional<Result> RunWhole(Session& session, const char* action, const char* handler,
                               std::string (*saying)(const Status&)) {
  const int failuresBefore = session.console.failures;
  const int successesBefore = session.console.successes;
  Run(session.main, handler);
  const bool done = session.console.successes > successesBefore;
  if (!done && session.console.failures > failuresBefore) return std::nullopt;
  const Status status = StatusOf(session.main.host.files, session.main.installation, session.main.readOnly);
  return Result{{{"action", action}, {"done", done}, {"enabled", status.enabled}, {"ships", status.ships}},
                done ? saying(status) : "Nothing was done.\n"};
}

}  // namespace

std::optional<Result> Enable(Session& session, const Values&) {
  return RunWhole(session, "enable", "switcher.cmdEnable", [](const Status& status) {
    return "Enabled: the catalogue holds " + std::to_string(status.ships) + " ships.\n";
  });
}

std::optional<Result> Disable(Session& session, const Values&) {
  return RunWhole(session, "disable", "switcher.cmdDisable",
                  [](const Status&) { return std::string("Disabled: the game's files are restored.\n"); });
}

}  // namespace oravin
