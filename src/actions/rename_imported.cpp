#include "actions/rename_imported.h"

#include <algorithm>
#include <vector>

#include "actions/add_on_ship.h"
#include "actions/imported_parts.h"
#include "actions/swap_ships.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "installation/imported_lines.h"
#include "lists/ship_list_edit.h"
#include "stats/ship_stats.h"

namespace oravin {

namespace {

constexpr const char* renameTitle = "lstImported_AfterLabelEdit()";

/// What is known before the first change.
struct Rename {
  std::vector<std::size_t> parts;  ///< the ship's records
  std::string oldName;
  std::string newName;
  ShipListText list;
  std::vector<std::size_t> lines;  ///< of the parts in the list
  std::string listProblem;         ///< why the list stays as it is
};

bool IsPart(const Rename& rename, std::size_t index) {
  return std::find(rename.parts.begin(), rename.parts.end(), index) != rename.parts.end();
}

bool Taken(const Ships& ships, const Rename& rename) {
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const std::string name = ships[i].ShipName.Trimmed();
    // The ship's own name may be spelled in another case.
    if (IsPart(rename, i) ? name == rename.newName : SameName(name, rename.newName)) return true;
  }
  return false;
}

/// True when the ship can have the new name; otherwise a message box has said why not.
bool NameIsRight(Host& host, const Ships& ships, const Rename& rename) {
  std::string refusal = WhyNoShipName(rename.newName);
  if (refusal.empty() && Taken(ships, rename)) {
    refusal = "The ship name '" + rename.newName + "' has the same name as an existing ship.";
  }
  if (!refusal.empty()) Show(host, refusal, Icon::exclamation);
  return refusal.empty();
}

/// Finds the lines of the ship's parts. Without them the ship can be renamed all the same.
/// @throws FileError when there is a list that cannot be used
void FindLines(Files& files, const Installation& installation, Rename& rename) {
  if (!VisibleFileIsThere(files, installation.shipListPath())) {
    rename.listProblem = "it does not exist";
    return;
  }
  rename.list = ReadShipListText(files, installation.shipListPath());
  Ships parts;
  for (const std::size_t part : rename.parts) parts.push_back(installation.ships[part]);
  const auto lines = FindImportedLines(rename.list, parts);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (lines[i]) rename.lines.push_back(*lines[i]);
    // A rename that was stopped may have changed the list already.
    if (lines[i] || FindImportedLine(rename.list, rename.newName, ModelOf(parts[i]))) continue;
    rename.listProblem = "it does not list the ship";
  }
}

WritePlan PlanRename(const Installation& installation, const Rename& rename) {
  WritePlan plan;
  plan.files = {installation.cataloguePath(), installation.defaultsPath()};
  if (rename.lines.empty()) return plan;
  plan.files.push_back(installation.shipListPath());
  plan.folders = {installation.ProgramPath};
  NeedRoom(plan, installation.ProgramPath, rename.list.text.size() + shipNameWidth);
  return plan;
}

void RenameLines(Files& files, Rename& rename) {
  if (rename.lines.empty()) return;
  for (const std::size_t line : rename.lines) rename.list = WithName(rename.list, line, rename.newName);
  WriteShipList(files, rename.list);
}

void RenameBlocks(Files& files, const Installation& installation, const Rename& rename) {
  for (const int block : OwnBlocks(files, installation, rename.parts)) {
    PutBlockName(files, installation.defaultsPath(), block, rename.newName);
  }
}

/// Sets the name in the records of the stock ships that are swapped to the ship, and last in its own.
void RenameRecords(Files& files, Installation& installation, const Rename& rename) {
  Ships renamed = installation.ships;
  const auto put = [&](std::size_t index) {
    PutShipRecord(files, installation.cataloguePath(), renamed, index);
    installation.ships[index] = renamed[index];
  };
  for (std::size_t i = 0; i < renamed.size(); ++i) {
    const int by = IndexIn(renamed[i].ChangedToIndex);
    if (IsInert(renamed[i]) || !renamed[i].Changed || by < 0 || !IsPart(rename, static_cast<std::size_t>(by))) continue;
    renamed[i].ChangedToName.Set(rename.newName);
    put(i);
  }
  for (const std::size_t part : rename.parts) {
    renamed[part].ShipName.Set(rename.newName);
    put(part);
  }
}

/// Reports why the list could not be changed.
void ReportList(Host& host, const Rename& rename) {
  if (rename.listProblem.empty()) return;
  Show(host,
       "The ship is called \"" + rename.newName + "\" now, but " + shipListName +
           " could not be changed: " + rename.listProblem + ".\nThe next \"Enable\" goes by that list.",
       Icon::exclamation);
}

}  // namespace

bool RenameImported(Host& host, Installation& installation, int index, const std::string& newName) {
  Rename rename;
  rename.parts = ImportedParts(installation.ships, index);
  if (rename.parts.empty() || !CatalogueThere(host, installation, renameTitle)) return false;
  rename.oldName = installation.ships[rename.parts.front()].ShipName.Trimmed();
  rename.newName = Trim(newName);
  if (!NameIsRight(host, installation.ships, rename)) return false;
  if (!Trap(host, renameTitle, [&] { FindLines(host.files, installation, rename); })) return false;
  if (!ReadyToWrite(host, PlanRename(installation, rename))) return false;
  const bool done = Trap(host, renameTitle, [&] {
    RenameLines(host.files, rename);
    RenameBlocks(host.files, installation, rename);
    RenameRecords(host.files, installation, rename);
  });
  if (done) ReportList(host, rename);
  return done;
}

}  // namespace oravin
