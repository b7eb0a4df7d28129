#include <string>
#include <vector>

#include "app/handlers.h"
#include "base/hex_text.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/hog_table.h"
#include "files/path.h"
#include "platform/installation_lock.h"
#include "platform/interrupt.h"
#include "tabs/archive_tab.h"

namespace oravin {

namespace {

/// Opens the archive as the tab does; if that fails, a message box says why.
bool OpenHog(Session& session, const std::string& file) {
  session.main.hog.txtHogPath.text = file;
  Run(session.main, "hog.cmdOpen");
  return IsArchiveOpen(session.main.hog);
}

/// The same for commands that write to the archive or its folder: read-only while another Oravin is using it.
bool OpenHogForChanges(Session& session, const std::string& file) {
  Main& main = session.main;
  main.readOnly = !platform::LockFolder(ParentFolder(file), main.gameLock);
  return OpenHog(session, file);
}

bool IsPattern(const std::string& name) { return name.find_first_of("*?") != std::string::npos; }

/// Selects the entries with these names; reports each name that no entry has.
void SelectEntries(Session& session, const std::vector<std::string>& names) {
  HogTab& tab = session.main.hog;
  const HogNames known = NamesOf(tab.archive.entries);
  std::vector<ListRow>& rows = tab.hogList.rows;  // in table order, since the archive was only just opened
  for (const std::string& name : names) {
    bool found = false;
    if (IsPattern(name)) {
      for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!MatchesPattern(tab.archive.entries[i].Name, name)) continue;
        rows[i].selected = true;
        found = true;
      }
    } else {
      for (const int index : EntriesNamed(known, name)) {
        rows[static_cast<std::size_t>(index)].selected = true;
        found = true;
      }
    }
    if (!found) SayError(session.console, "there is no file \"" + name + "\" in this archive");
  }
}

std::optional<Result> ExtractBy(Session& session, const Values& values, const char* action, const char* handler) {
  if (!OpenHog(session, values.at(0))) return std::nullopt;
  Main& main = session.main;
  main.hog.txtHogDest.text = values.Of("--to");
  if (values.several.empty()) {
    Run(main, "hog.cmdSelectAll");
  } else {
    SelectEntries(session, values.several);
    if (!SelectedRow(main.hog.hogList)) return std::nullopt;
  }
  platform::WatchInterrupts();
  main.host.desk.stopAsked = platform::Interrupted;
  const int failuresBefore = session.console.failures;
  const int successesBefore = session.console.successes;
  Run(main, handler);
  const bool done = session.console.successes > successesBefore;
  if (!done && session.console.failures == failuresBefore) SayError(session.console, "not all files were extracted");
  const std::string files = Grouped(main.hog.filesExtracted) + (main.hog.filesExtracted == 1 ? " file" : " files");
  return Result{{{"action", action},
                 {"done", done},
                 {"files", main.hog.filesExtracted},
                 {"to", ToUtf8(main.hog.txtHogDest.text)}},
                files + " extracted.\n"};
}

/// Runs an action on an archive; the action reports a failure in a message box.
std::optional<Result> RunOnHog(Session& session, const Values& values, const char* action, const char* handler) {
  if (!OpenHogForChanges(session, values.at(0))) return std::nullopt;
  const int failuresBefore = session.console.failures;
  const HogTab& tab = session.main.hog;
  Run(session.main, handler);
  if (session.console.failures > failuresBefore) return std::nullopt;
  const bool done = tab.status.kind != HogStatus::Kind::none;
  return Result{{{"action", action}, {"done", done}},
                (done ? ToUtf8(tab.lblFilePath.caption) : "Nothing was done") + ".\n"};
}

}  // namespace

std::optional<Result> ListHog(Session& session, const Values& values) {
  if (!OpenHog(session, values.at(0))) return std::nullopt;
  return Result{HogJson(session.main), HogText(session.main)};
}

std::optional<Result> ExtractHog(Session& session, const Values& values) {
  return ExtractBy(session, values, "extract", "hog.cmdExtract");
}

std::optional<Result> UnpackHog(Session& session, const Values& values) {
  return ExtractBy(session, values, "unpack", "hog.cmdUnpackExtract");
}

std::optional<Result> BackupFat(Session& session, const Values& values) {
  return RunOnHog(session, values, "backup-fat", "hog.cmdBackupFAT");
}

std::optional<Result> RestoreFat(Session& session, const Values& values) {
  return RunOnHog(session, values, "restore-fat", "hog.cmdRestoreFAT");
}

std::optional<Result> EditHog(Session& session, const Values& values) {
  if (values.options.empty()) {
    SayError(session.console, "nothing is to be changed: give --name, --offset or --size");
    return std::nullopt;
  }
  if (!OpenHogForChanges(session, values.at(0))) return std::nullopt;
  Main& main = session.main;
  const std::vector<HogEntry>& entries = main.hog.archive.entries;
  const int index = FindHogEntry(entries, static_cast<int>(entries.size()), values.at(1));
  if (index < 0) {
    SayError(session.console, "there is no file \"" + values.at(1) + "\" in this archive");
    return std::nullopt;
  }
  SelectOnly(main.hog.hogList, static_cast<std::size_t>(index));
  main.host.desk.showForm = [&](const std::string&) {
    if (values.Has("--name")) main.tableEditor.txtName.text = values.Of("--name");
    if (values.Has("--offset")) main.tableEditor.txtOffset.text = values.Of("--offset");
    if (values.Has("--size")) main.tableEditor.txtSize.text = values.Of("--size");
    Run(main, "FAT_Editor.cmdSave");
  };
  const int failuresBefore = session.console.failures;
  Run(main, "hog.pldHogProperties");
  if (session.console.failures > failuresBefore) return std::nullopt;
  const HogEntry& entry = entries[static_cast<std::size_t>(index)];
  return Result{JsonOf(main, entry), "The table now says: " + ToUtf8(entry.Name) + ", offset " +
                                         DecToHex(entry.Offset) + ", size " + DecToHex(entry.Size) + ".\n"};
}

}  // namespace oravin
