#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "archive/archive_table.h"
#include "installation/installation.h"

/// `backup\resource.fat` in the program folder: the archive's header and table as they were before the first name was
/// disguised. It finds ships that the live table no longer lists, and restores names as they were spelled.
namespace oravin {

/// Keeps the backup up to date.
///
/// Nothing is written while the name of any model is disguised in the live table. Otherwise a missing backup is
/// written. A backup that differs from the live table (the game was patched or reinstalled) is renewed, and the old one
/// is kept under the first free name of `backup\resource.old`, `backup\resource.old2`, ...
///
/// The backup has the archive's first H bytes; if H cannot be right, those up to the end of the last entry.
///
/// @param repaired the archive's count was 0 and has been repaired in this read: then the backup's count is the number
///   of entries read, big-endian
/// @param models the stock models of the catalogue
/// @throws FileError when a file fails
void KeepFatBackup(Files& files, const Installation& installation, const HogTable& live, bool repaired,
                   const std::vector<std::string>& models);

/// The number of bytes that KeepFatBackup may write.
/// @throws FileError when the archive cannot be read
std::uint64_t FatBackupSize(Files& files, const Installation& installation, const HogTable& live);

}  // namespace oravin
