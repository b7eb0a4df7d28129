#include "actions/back_up_table.h"

#include "actions/edit_entry.h"
#include "base/file_error.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

/// True when H covers the header and lies inside the archive.
bool CanBeRight(const File& hog, std::uint32_t tableSize) {
  return tableSize >= hogTableOffset && tableSize <= hog.length;
}

[[noreturn]] void WrongTableSize(const char* what, const std::string& path, std::uint32_t tableSize) {
  throw FileError(
      what, path,
      "its header says that the table is " + std::to_string(tableSize) + " bytes long, which cannot be right",
      ErrorKind::damaged);
}

/// The number of bytes to restore: the H of the archive or, if that is damaged, of the backup.
std::uint32_t SizeToRestore(File& backup, const OpenArchive& archive) {
  constexpr const char* what = "could not restore from";
  if (!IsBIGF(backup))
    throw FileError(what, backup.path, "it is no backup of an archive's table", ErrorKind::wrongFormat);
  const std::uint32_t kept = ReadLongBE(backup, hogTableSizeOffset);
  const std::uint32_t size = CanBeRight(archive.file, archive.tableSize) ? archive.tableSize : kept;
  if (!CanBeRight(archive.file, size)) WrongTableSize(what, backup.path, size);
  if (backup.length < size) {
    throw FileError(what, backup.path, "it is shorter than the archive's table", ErrorKind::damaged);
  }
  return size;
}

}  // namespace

TableCopy BackUpTable(Host& host, OpenArchive& archive) {
  const std::string backup = FatBackupOf(archive.path);
  if (FileExists(host.files, backup) &&
      !AskYesNo(host, "A hog FAT backup file already exists at this location.\nDo you want to overwrite this file?",
                "Backup FAT table")) {
    return TableCopy::declined;
  }
  const bool saved = Trap(host, "cmdBackupFAT_Click()", [&] {
    if (!CanBeRight(archive.file, archive.tableSize)) {
      WrongTableSize("could not back up the table of", archive.path, archive.tableSize);
    }
    WriteBeside(host.files, backup, [&](File& file) { CopyBytes(archive.file, 0, file, 0, archive.tableSize); });
  });
  return saved ? TableCopy::done : TableCopy::failed;
}

TableCopy RestoreTable(Host& host, OpenArchive& archive) {
  if (!MayWriteArchive(host, archive)) return TableCopy::declined;
  const std::string backup = FatBackupOf(archive.path);
  if (!FileExists(host.files, backup)) {
    Show(host, "Restore file can't be found. Restore aborted.", Icon::critical, "Error");
    return TableCopy::declined;
  }
  const Message warning{
      "Restoring the FAT table will overwrite any changes made to the table in this"
      " hog file from the hog editor. It can't restore damage done to the hog from"
      " other apps. and it can CAUSE INTERFERENCE with the ship switcher if enabled.",
      "Hog File Allocation Table Restore", Icon::information, Buttons::okCancel};
  if (host.desk.showBox(warning) != Answer::ok) return TableCopy::declined;
  const bool restored = Trap(host, "cmdRestoreFAT_Click()", [&] {
    File file(host.files, backup, OpenFor::reading);
    CopyBytes(file, 0, archive.file, 0, SizeToRestore(file, archive));
    Flush(archive.file);
  });
  return restored ? TableCopy::done : TableCopy::failed;
}

}  // namespace oravin
