#include "installation/table_backup.h"

#include <algorithm>

#include "files/file.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "installation/model_entry.h"

namespace oravin {

namespace {

constexpr std::size_t backupBlock = 1U << 18U;

/// H, or the end of the table's last entry if H cannot be right.
std::uint64_t BackupLength(File& hog, const std::vector<HogEntry>& entries) {
  const std::uint64_t tableEnd = entries.empty() ? hogTableOffset : EndOf(entries.back());
  const std::uint64_t stated = ReadLongBE(hog, hogTableSizeOffset);
  return stated < hogTableOffset || stated > hog.length || stated < tableEnd ? tableEnd : stated;
}

/// Passes the content of a backup made now to `take`, block by block, until that returns false.
template <typename Take>
bool EachBlock(File& hog, const HogTable& live, bool repaired, Take&& take) {
  const std::uint64_t length = BackupLength(hog, live.entries);
  for (std::uint64_t at = 0; at < length; at += backupBlock) {
    Bytes block(static_cast<std::size_t>(std::min<std::uint64_t>(backupBlock, length - at)));
    Get(hog, at, block);
    if (at == 0 && repaired) PutBigEndian32(&block.at(hogCountOffset), static_cast<std::uint32_t>(live.entries.size()));
    if (!take(at, block)) return false;
  }
  return true;
}

bool EqualsBackup(File& hog, const std::string& backup, const HogTable& live, bool repaired) {
  if (FileLength(*hog.files, backup) != BackupLength(hog, live.entries)) return false;
  File old(*hog.files, backup, OpenFor::reading);
  return EachBlock(hog, live, repaired, [&](std::uint64_t at, const Bytes& block) {
    Bytes kept(block.size());
    Get(old, at, kept);
    return kept == block;
  });
}

}  // namespace

void KeepFatBackup(Files& files, const Installation& installation, const HogTable& live, bool repaired,
                   const std::vector<std::string>& models) {
  if (std::any_of(models.begin(), models.end(), [&](const auto& model) { return IsDisguised(model, live); })) return;
  const std::string backup = installation.backupPath(fatBackupName);
  File hog(files, installation.archivePath(), OpenFor::reading);
  if (FileExists(files, backup)) {
    if (EqualsBackup(hog, backup, live, repaired)) return;
    CopyWhole(files, backup, FreeOldName(files, installation.backupPath("resource")));
  }
  WriteBeside(files, backup, [&](File& file) {
    EachBlock(hog, live, repaired, [&](std::uint64_t at, const Bytes& block) {
      Put(file, at, block);
      return true;
    });
  });
}

std::uint64_t FatBackupSize(Files& files, const Installation& installation, const HogTable& live) {
  File hog(files, installation.archivePath(), OpenFor::reading);
  return BackupLength(hog, live.entries) + FileLength(files, installation.backupPath(fatBackupName));
}

}  // namespace oravin
