#include "actions/status.h"

#include "base/text.h"
#include "cli/commands.h"
#include "cli/text_table.h"

namespace oravin {

namespace {

std::string EnabledText(const Status& status) {
  if (!status.enabled) return "no";
  return "yes, " + std::to_string(status.ships) + " ships, " + std::to_string(status.changedShips) + " of them changed";
}

std::string FileText(const GameFile& file) {
  if (!file.found) return "not found";
  return Grouped(file.size) + " bytes, " + Grouped(file.count) + " " + file.counted;
}

}  // namespace

std::optional<Result> TellStatus(Session& session, const Values&) {
  const Status status = StatusOf(session.main.host.files, session.main.installation, session.main.readOnly);
  std::vector<std::vector<std::string>> rows = {{"Game folder:", status.gameFolder},
                                                {"Program folder:", status.programFolder},
                                                {"Enabled:", EnabledText(status)}};
  if (status.readOnly) rows.push_back({"Only looks:", "yes, another copy of Oravin works on this installation"});
  for (const GameFile& file : status.files) rows.push_back({file.name + ":", FileText(file)});
  return Result{JsonOf(status), TextTable({{}, {}}, rows)};
}

}  // namespace oravin
