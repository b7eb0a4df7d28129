#include "tabs/archive_open.h"

#include <optional>
#include <utility>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

namespace {

constexpr std::uint32_t mostEntries = 100000;

/// What the header of an archive, or of its table's backup, says.
struct Header {
  std::uint32_t size = 0;
  std::uint32_t count = 0;
  std::uint32_t tableSize = 0;
};

Header HeaderOf(File& file) {
  return {ReadLongBE(file, hogSizeOffset), ReadLongBE(file, hogCountOffset), ReadLongBE(file, hogTableSizeOffset)};
}

bool IsDamaged(const Header& header) { return header.count == 0 || header.count > mostEntries; }

std::string InWords(const Header& header) { return "It says that it holds " + Grouped(header.count) + " files."; }

/// The header that counts: the archive's own, or that of the table's backup where the archive's is damaged. Nothing
/// when that cannot be had; then a box has been shown.
std::optional<Header> ReadHeader(Host& host, OpenArchive& archive) {
  const Header own = HeaderOf(archive.file);
  if (!IsDamaged(own)) return own;
  const std::string backup = FatBackupOf(archive.path);
  if (!FileExists(host.files, backup)) {
    Show(host,
         "The table of this archive is damaged. " + InWords(own) + "\nWith a backup of the table beside it, " +
             Presentable(backup) + ",\nits files could be listed and the table be repaired. Nothing was changed.",
         Icon::exclamation);
    return std::nullopt;
  }
  File file(host.files, backup, OpenFor::reading);
  const Header kept = HeaderOf(file);
  if (!IsDamaged(kept)) return kept;
  Show(host,
       "The table of this archive is damaged, and so is its backup,\n" + Presentable(backup) + ". " + InWords(kept) +
           "\nNothing was changed.",
       Icon::exclamation);
  return std::nullopt;
}

/// A size with its digits grouped. A size of 0 has no digits at all: that is how the pattern "##,###,###,###" shows it.
std::string Formatted(std::uint32_t size) { return size == 0 ? std::string() : Grouped(size); }

/// Opens an archive, for writing where that is possible.
/// @param file must be closed: whoever holds the archive open cannot be told apart from another program
/// @return why it can only be read; empty where it can be written
std::string OpenHog(Files& files, const std::string& path, File& file) {
  std::string whyOnlyRead = WhyNotWritable(files, path);
  file = File(files, path, whyOnlyRead.empty() ? OpenFor::changing : OpenFor::reading);
  return whyOnlyRead;
}

void Forget(HogTab& tab) {
  tab.archive = {};
  tab.lblHogSize.caption.clear();
  tab.lblHogFiles.caption.clear();
  tab.lblFilePath.caption.clear();
  tab.txtFirstBytes.text.clear();
  ClearRows(tab.hogList);
  EnableHogControls(tab);
}

/// Opens a file if it is an archive. If it is not, the archive that was open before is opened again, so that the list
/// shows what is open.
bool TakeUp(Host& host, HogTab& tab, const std::string& path, OpenArchive& opened) {
  Close(tab.archive.file);
  bool valid = false;
  opened.path = path;
  const bool done = Trap(host, "cmdOpen_Click()", [&] {
    opened.whyOnlyRead = OpenHog(host.files, path, opened.file);
    valid = IsBIGF(opened.file);
  });
  if (done && valid) return true;
  Close(opened.file);
  if (done) Show(host, "This file is not a valid SL Hog file", Icon::exclamation, "Extractor");
  if (!IsArchiveOpen(tab)) return false;
  if (!Trap(host, "cmdOpen_Click()", [&] { OpenHog(host.files, tab.archive.path, tab.archive.file); })) Forget(tab);
  return false;
}

}  // namespace

void cmdBrowseHogPath_Click(Host& host, HogTab& tab) {
  std::string folder = ParentFolder(tab.txtHogPath.text);
  const std::string chosen = ChooseFile(host, "Open Hog", folder, "", "SL Hog File *.hog|*.hog|All Files *.*|*.*");
  if (!chosen.empty()) tab.txtHogPath.text = chosen;
}

void cmdBrowseHogDest_Click(Host& host, HogTab& tab) {
  std::string chosen = BrowseForFolder(host);
  if (!chosen.empty()) tab.txtHogDest.text = AddBackslash(chosen);
}

bool ReadArchive(Host& host, HogTab& tab) {
  OpenArchive& archive = tab.archive;
  std::optional<Header> header;
  const bool whole = Trap(host, "cmdOpen_Click()", [&] {
    header = ReadHeader(host, archive);
    if (!header) return;
    archive.entries = ReadHogTable(archive.file, archive.path, header->count);
  });
  if (!whole || !header) {
    Forget(tab);
    return false;
  }
  archive.size = header->size;
  archive.tableSize = header->tableSize;
  tab.lblHogSize.caption = "Hog Size: " + Formatted(archive.size) + " byte(s)";
  tab.lblHogFiles.caption = std::to_string(header->count) + " file(s)";
  tab.lblFilePath.caption = OnlyReadRemark(tab);
  DisplayHog(tab);
  EnableHogControls(tab);
  return true;
}

void cmdOpen_Click(Host& host, HogTab& tab) {
  TrimInPlace(tab.txtHogPath.text);
  if (!FileExists(host.files, tab.txtHogPath.text)) {
    Show(host, "File not found", Icon::exclamation, "File path error");
    return;
  }
  OpenArchive opened;
  if (!TakeUp(host, tab, tab.txtHogPath.text, opened)) return;
  tab.archive = std::move(opened);
  tab.hogList.sorted.reset();
  tab.txtFilter.text.clear();
  tab.txtFirstBytes.text.clear();
  ClearRows(tab.hogList);
  ReadArchive(host, tab);
}

void cmdCloseHog_Click(HogTab& tab) {
  tab.txtFilter.text.clear();
  Forget(tab);
}

}  // namespace oravin
