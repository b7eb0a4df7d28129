#include "tabs/archive_backup.h"

#include <algorithm>
#include <array>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "tabs/archive_open.h"

namespace oravin {

namespace {

constexpr std::size_t tableBlock = std::size_t{1} << 20;

/// Copies the first bytes of one open file over those of another.
void CopyStart(File& from, File& to, std::uint64_t size) {
  Bytes block;
  for (std::uint64_t at = 0; at < size; at += block.size()) {
    block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(tableBlock, size - at)));
    Get(from, at, block);
    Put(to, at, block);
  }
}

/// True when H covers the header and lies inside the archive.
bool CanBeRight(const File& hog, std::uint32_t tableSize) {
  return tableSize >= hogTableOffset && tableSize <= hog.length;
}

[[noreturn]] void WrongTableSize(const char* what, const std::string& path, std::uint32_t tableSize) {
  throw FileError(
      what, path,
      "its header says that the table is " + std::to_string(tableSize) + " bytes long, which cannot be right");
}

/// The number of bytes that a backup gives back: the H of the archive or, where that one is damaged, of the backup. The
/// backup must be an archive's and have all of them.
std::uint32_t SizeToRestore(File& backup, const OpenArchive& archive) {
  std::array<std::uint8_t, 4> magic{};
  const bool valid = GetSome(backup, 0, magic) == magic.size() && TextOf(magic) == "BIGF";
  if (!valid) throw FileError("could not restore from", backup.path, "it is no backup of an archive's table");
  const std::uint32_t kept = ReadLongBE(backup, hogTableSizeOffset);
  const std::uint32_t size = CanBeRight(archive.file, archive.tableSize) ? archive.tableSize : kept;
  if (!CanBeRight(archive.file, size)) WrongTableSize("could not restore from", backup.path, size);
  if (backup.length < size) {
    throw FileError("could not restore from", backup.path, "it is shorter than the archive's table");
  }
  return size;
}

}  // namespace

void cmdBackupFAT_Click(Host& host, HogTab& tab) {
  if (!IsArchiveOpen(tab)) return;
  const std::string backup = FatBackupOf(tab.archive.path);
  if (FileExists(host.files, backup) &&
      !AskYesNo(host, "A hog FAT backup file already exists at this location.\nDo you want to overwrite this file?",
                "Backup FAT table")) {
    return;
  }
  Trap(host, "cmdBackupFAT_Click()", [&] {
    if (!CanBeRight(tab.archive.file, tab.archive.tableSize)) {
      WrongTableSize("could not back up the table of", tab.archive.path, tab.archive.tableSize);
    }
    WriteBeside(host.files, backup, [&](File& file) { CopyStart(tab.archive.file, file, tab.archive.tableSize); });
    tab.lblFilePath.caption = "The table was saved as " + backup;
  });
  EnableHogControls(tab);
  if (!FileExists(host.files, backup)) Show(host, "Couldn't create FAT backup file.", Icon::critical, "Error");
}

void cmdRestoreFAT_Click(Host& host, HogTab& tab) {
  if (!IsArchiveOpen(tab) || !MayWriteArchive(host, tab)) return;
  const std::string backup = FatBackupOf(tab.archive.path);
  if (!FileExists(host.files, backup)) {
    Show(host, "Restore file can't be found. Restore aborted.", Icon::critical, "Error");
    return;
  }
  const Message warning{
      "Restoring the FAT table will overwrite any changes made to the table in this"
      " hog file from the hog editor. It can't restore damage done to the hog from"
      " other apps. and it can CAUSE INTERFERENCE with the ship switcher if enabled.",
      "Hog File Allocation Table Restore", Icon::information, Buttons::okCancel};
  if (host.desk.showBox(warning) != Answer::ok) return;
  const bool restored = Trap(host, "cmdRestoreFAT_Click()", [&] {
    File file(host.files, backup, OpenFor::reading);
    CopyStart(file, tab.archive.file, SizeToRestore(file, tab.archive));
    Flush(tab.archive.file);
  });
  // What the list shows must be what the table holds, whatever has become of it.
  if (ReadArchive(host, tab) && restored) tab.lblFilePath.caption = "The table was restored from " + backup;
}

}  // namespace oravin
