// Fuzzes the archive's tab: it opens the input, extracts and unpacks everything and saves an entry unchanged. The tab
// opens exactly what the readers can read. Only files in the destination may be written, each with an entry's bytes,
// and the archive stays as it is.

#include <algorithm>

#include "archive/open_archive.h"
#include "base/file_error.h"
#include "input_file.h"
#include "tabs/archive_tab.h"
#include "tabs/first_bytes.h"
#include "tabs/table_editor.h"

namespace {

namespace fs = std::filesystem;
using oravin::Bytes;

fs::path Out() { return oravin::fuzz::Folder().native / "out"; }

void EmptyOut() {
  fs::remove_all(Out());
  fs::create_directories(Out());
}

/// True when some entry's stored bytes are those of the file.
bool IsStoredEntry(const Bytes& archive, const std::vector<oravin::HogEntry>& entries, const Bytes& file) {
  return std::any_of(entries.begin(), entries.end(), [&](const oravin::HogEntry& entry) {
    return entry.Size == file.size() && std::uint64_t{entry.Offset} + entry.Size <= archive.size() &&
           std::equal(file.begin(), file.end(), archive.begin() + static_cast<std::ptrdiff_t>(entry.Offset));
  });
}

void CheckExtracted(const Bytes& archive, const oravin::HogTab& tab) {
  unsigned found = 0;
  for (const auto& item : fs::recursive_directory_iterator(Out())) {
    if (!item.is_regular_file()) continue;
    ++found;
    const Bytes file = oravin::fuzz::ReadInput(fs::relative(item.path(), oravin::fuzz::Folder().native).string());
    oravin::fuzz::Require(IsStoredEntry(archive, tab.archive.entries, file), "a file holds an entry's stored bytes");
  }
  oravin::fuzz::Require(found == tab.filesExtracted, "every extracted file is there and no other");
}

void CheckNothingElse() {
  for (const auto& item : fs::directory_iterator(oravin::fuzz::Folder().native)) {
    const std::string name = item.path().filename().string();
    oravin::fuzz::Require(name == "out" || name == "input.hog", "nothing is written outside the destination");
  }
}

/// True when the readers open the input and return its table; false when they throw or find its count damaged.
bool CanBeRead(oravin::Files& files, const std::string& path) {
  try {
    oravin::OpenArchive archive = oravin::OpenArchiveAt(files, path);
    const oravin::TableReading reading = oravin::ReadArchiveTable(archive);
    const bool readable = reading.condition == oravin::TableCondition::readable;
    oravin::fuzz::Require(archive.entries.size() == (readable ? reading.count : 0), "all entries are read, or none");
    return readable;
  } catch (const oravin::FileError&) {
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  fuzz::WriteInput("input.hog", {data, size});
  EmptyOut();
  fuzz::CountingHost here;
  HogTab tab = NewHogTab();
  FatEditor form = NewFatEditor();
  tab.txtHogPath.text = fuzz::Folder().windows + "input.hog";
  tab.txtHogDest.text = fuzz::Folder().windows + "out";
  const bool readable = CanBeRead(here.host.files, tab.txtHogPath.text);
  fuzz::Require(here.host.files.open == 0, "the readers leave no file open");
  cmdOpen_Click(here.host, tab);
  fuzz::Require(IsArchiveOpen(tab) == readable, "the tab opens what the readers can read");
  fuzz::Require(here.boxes == (readable ? 0 : 1), "what is not opened has its one message box");
  if (!IsArchiveOpen(tab)) return 0;
  cmdSelectAll_Click(tab);
  hogList_ItemClick(tab);

  const Bytes archive(data, data + size);
  cmdExtract_Click(here.host, tab);
  CheckExtracted(archive, tab);
  CheckNothingElse();
  EmptyOut();
  cmdUnpackExtract_Click(here.host, tab);
  CheckNothingElse();

  here.host.desk.showForm = [&](const std::string&) { cmdSave_Click(here.host, tab, form); };
  pldHogProperties_Click(here.host, tab, form);
  cmdCloseHog_Click(tab);
  fuzz::Require(fuzz::ReadInput("input.hog") == archive, "the archive stays as it is");
  return 0;
}
