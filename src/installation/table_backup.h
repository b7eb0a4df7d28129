#pragma once

#include <string>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "installation/model_entry.h"

/// `backup\resource.fat` in the program folder: the archive's header and table as they were before the first name was
/// disguised. Ships that the live table no longer lists are found by it, and names are put back as they were spelled.
namespace oravin {

/// Keeps the backup.
///
/// It is written where it is missing, and only from a table in which no model's name is disguised. When the live table
/// is wholly plain and differs from the backup (the game was patched or installed again), the backup is renewed and the
/// old one kept as the first free of `backup\resource.old`, `backup\resource.old2`, ... Otherwise it stays.
///
/// It holds the archive's first H bytes; where H is not believable, those up to the end of the last entry. Where the
/// archive's count was repaired in this read, the backup carries the number of entries read, big-endian.
///
/// @param models the stock models of the catalogue
/// @throws FileError when a file fails
void KeepFatBackup(Files& files, const std::string& gamePath, const std::string& programPath, const HogTable& live,
                   bool repaired, const std::vector<std::string>& models);

/// How many bytes KeepFatBackup would write at the most.
std::uint64_t FatBackupSize(Files& files, const std::string& gamePath, const std::string& programPath,
                            const HogTable& live);

/// Reads the backup's table; an empty one where there is no backup.
HogTable ReadFatBackup(Host& host, const std::string& programPath);

}  // namespace oravin
