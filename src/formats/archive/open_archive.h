#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "archive/archive_table.h"
#include "files/file.h"

/// An archive that stays open, and changes of single entries of its table.
namespace oravin {

struct OpenArchive {
  File file;                    ///< closed while no archive is open
  std::string path;             ///< empty while no archive is open
  std::string whyReadOnly;      ///< why it cannot be written, in words; empty where it can
  std::uint32_t size = 0;       ///< in bytes, as its header says
  std::uint32_t tableSize = 0;  ///< H, the size in bytes of header and table, as its header says
  std::vector<HogEntry> entries;
};

/// The path of the backup of an archive's table: the archive's with the extension ".FAT".
std::string FatBackupOf(const std::string& hogPath);

/// Opens the file of `archive.path`, for writing where that is possible, and sets `whyReadOnly`.
/// @param archive its file must be closed: the system cannot tell this program's own hold on it from another one's
/// @throws FileError
void OpenArchiveFile(Files& files, OpenArchive& archive);

/// Opens an archive. Its table is not read yet.
/// @throws FileError; of the kind `wrongFormat` when the file does not begin with "BIGF"
OpenArchive OpenArchiveAt(Files& files, const std::string& path);

/// Which header gave the number of entries.
enum class TableCondition {
  readable,       ///< the archive's own, or that of the table's backup
  noBackup,       ///< none: the archive's count is damaged, and there is no backup
  backupDamaged,  ///< none: the backup's count is damaged too
};

struct TableReading {
  TableCondition condition = TableCondition::readable;
  std::uint32_t count = 0;  ///< of the header that was read last
};

/// Reads the header and the table of an open archive.
///
/// A count of 0 or of more than 100,000 is taken to be damaged: then size, count and table size come from the table's
/// backup in the archive's folder, and the entries still from the archive. Nothing is repaired.
/// @param archive its size, table size and entries change only when the table is readable
/// @throws FileError
TableReading ReadArchiveTable(OpenArchive& archive);

/// The new content of an entry of the table.
struct EntryChange {
  std::string name;  ///< as long as the entry's own; empty to leave that one
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
};

/// True when the file still has the entry as it was read; else its place may belong to another entry by now.
/// @throws FileError
bool IsAsRead(OpenArchive& archive, std::size_t index);

/// Writes over an entry of the table in the file, and reads the entry again from there.
/// @throws FileError
void WriteEntry(OpenArchive& archive, std::size_t index, const EntryChange& change);

}  // namespace oravin
