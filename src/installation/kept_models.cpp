#include "installation/kept_models.h"

#include <algorithm>
#include <charconv>
#include <tuple>

#include "base/file_error.h"
#include "base/text.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr int highestNumber = 999999999;

std::string NameOfCopy(const std::string& spelling, int version, int place) {
  if (place > 1) return spelling + "." + std::to_string(version) + "~" + std::to_string(place);
  return version > 1 ? spelling + "." + std::to_string(version) : spelling;
}

/// Splits a copy's name. A name that NameOfCopy cannot make is a spelling without a number.
KeptCopy CopyNamed(const std::string& file) {
  KeptCopy copy{file, file};
  const std::size_t dot = file.find_last_of('.');
  if (dot == std::string::npos) return copy;
  const char* const last = file.data() + file.size();
  KeptCopy numbered{file, file.substr(0, dot)};
  const auto [after, failure] = std::from_chars(file.data() + dot + 1, last, numbered.version);
  if (failure != std::errc()) return copy;
  if (after != last && *after == '~') std::from_chars(after + 1, last, numbered.place);
  if (numbered.version > highestNumber || numbered.place > highestNumber) return copy;
  return NameOfCopy(numbered.spelling, numbered.version, numbered.place) == file ? numbered : copy;
}

int LatestVersion(const std::vector<KeptCopy>& copies) {
  int latest = 0;
  for (const KeptCopy& copy : copies) latest = std::max(latest, copy.version);
  return latest;
}

/// The copy of a spelling in a version; null when it has none.
const KeptCopy* CopyOf(const std::vector<KeptCopy>& copies, int version, const std::string& spelling) {
  const auto found = std::find_if(copies.begin(), copies.end(), [&](const KeptCopy& copy) {
    return copy.version == version && copy.spelling == spelling;
  });
  return found == copies.end() ? nullptr : &*found;
}

/// The version that loose models belong to: the latest, where every spelling that both have is equal and one of them
/// has no further spelling; else a new one.
int VersionFor(Files& files, const Installation& installation, const std::vector<KeptCopy>& copies,
               const std::vector<std::string>& spellings) {
  const int latest = LatestVersion(copies);
  std::size_t equal = 0;
  for (const std::string& spelling : spellings) {
    const KeptCopy* copy = CopyOf(copies, latest, spelling);
    if (copy == nullptr) continue;
    if (!SameContent(files, installation.modelPath(spelling), KeptModelsFolder(installation) + copy->file)) {
      return latest + 1;
    }
    ++equal;
  }
  const auto inLatest = static_cast<std::size_t>(
      std::count_if(copies.begin(), copies.end(), [&](const KeptCopy& copy) { return copy.version == latest; }));
  const bool belongs = equal > 0 && (equal == spellings.size() || equal == inLatest);
  return belongs ? latest : latest + 1;
}

/// A path in `backup\old\` that is free.
std::string FreePlace(Files& files, const Installation& installation, const std::string& spelling) {
  const std::string base = OldModelsFolder(installation) + spelling;
  std::string path = base;
  for (int number = 2; LookOrThrow(files, path).presence != Presence::absent; ++number)
    path = base + "." + std::to_string(number);
  return path;
}

/// The copies of one name: those that are restored, and older ones.
struct Sorted {
  std::vector<KeptCopy> latest;
  std::vector<KeptCopy> older;  ///< the oldest first
};

Sorted SortedByVersion(std::vector<KeptCopy> copies) {
  std::sort(copies.begin(), copies.end(), [](const KeptCopy& a, const KeptCopy& b) {
    return std::tie(a.version, a.place, a.file) < std::tie(b.version, b.place, b.file);
  });
  const int latest = LatestVersion(copies);
  Sorted sorted;
  for (const KeptCopy& copy : copies) {
    const bool goesBack = copy.version == latest && CopyOf(sorted.latest, latest, copy.spelling) == nullptr;
    (goesBack ? sorted.latest : sorted.older).push_back(copy);
  }
  return sorted;
}

/// The loose file that a copy replaces; empty when there is none. Of several spellings each replaces only a file of the
/// same spelling; a single one replaces the file that the game finds under its name.
std::string LooseFor(const Spellings& loose, const Sorted& sorted, const KeptCopy& copy) {
  const auto found = loose.find(UpperCase(copy.spelling));
  if (found == loose.end()) return {};
  const std::vector<std::string>& there = found->second;
  if (std::find(there.begin(), there.end(), copy.spelling) != there.end()) return copy.spelling;
  return sorted.latest.size() > 1 ? std::string() : there.front();
}

/// Writes temporary files for the copies that are not restored yet; a loose file of other bytes is copied to
/// `backup\old\` first.
void AddMissing(Files& files, const Installation& installation, const Spellings& loose, const Sorted& sorted,
                WholeFiles& together) {
  for (const KeptCopy& copy : sorted.latest) {
    const std::string from = KeptModelsFolder(installation) + copy.file;
    const std::string there = LooseFor(loose, sorted, copy);
    if (!there.empty()) {
      if (SameContent(files, installation.modelPath(there), from)) continue;
      MakeFolder(files, OldModelsFolder(installation));
      CopyWhole(files, installation.modelPath(there), FreePlace(files, installation, there));
    }
    const auto write = [&](File& file) { CopyInto(file, from); };
    if (sorted.latest.size() > 1) {
      AddNew(files, together, installation.modelPath(copy.spelling), write);
    } else {
      AddWhole(files, together, installation.modelPath(copy.spelling), write);
    }
  }
}

void CopyBack(Files& files, const Installation& installation, const std::vector<Sorted>& all) {
  const Spellings loose = SpellingsIn(files, installation.modelsFolder());
  WholeFiles together;
  try {
    for (const Sorted& sorted : all) AddMissing(files, installation, loose, sorted, together);
    CommitWhole(files, together);
  } catch (const FileError&) {
    DropWhole(files, together, 0);
    throw;
  }
}

/// Where the file system does not tell spellings apart, the last one that was written has replaced the others: these
/// count as older.
void CheckSpellings(Files& files, const Installation& installation, Sorted& sorted) {
  if (sorted.latest.size() < 2) return;
  const auto lost = std::stable_partition(sorted.latest.begin(), sorted.latest.end(), [&](const KeptCopy& copy) {
    return SameContent(files, installation.modelPath(copy.spelling), KeptModelsFolder(installation) + copy.file);
  });
  sorted.older.insert(sorted.older.end(), lost, sorted.latest.end());
  sorted.latest.erase(lost, sorted.latest.end());
}

void MoveToOld(Files& files, const Installation& installation, const KeptCopy& copy) {
  MakeFolder(files, OldModelsFolder(installation));
  RenameOver(files, KeptModelsFolder(installation) + copy.file, FreePlace(files, installation, copy.spelling));
}

}  // namespace

Spellings SpellingsIn(Files& files, const std::string& folder) {
  Spellings names;
  for (const FileFacts& item : ListOrThrow(files, folder).items) {
    if (!item.folder) names[UpperCase(item.name)].push_back(item.name);
  }
  for (auto& [name, spellings] : names) std::sort(spellings.begin(), spellings.end());
  return names;
}

std::string KeptModelsFolder(const Installation& installation) { return installation.backupFolder() + "ships\\"; }

std::string OldModelsFolder(const Installation& installation) { return installation.backupFolder() + "old\\"; }

KeptModels ReadKeptModels(Files& files, const Installation& installation) {
  KeptModels kept;
  for (const auto& [name, spellings] : SpellingsIn(files, KeptModelsFolder(installation))) {
    for (const std::string& file : spellings) {
      const KeptCopy copy = CopyNamed(file);
      if (!IsPlainFileName(copy.spelling) || file.ends_with(besideSuffix)) continue;
      kept[UpperCase(copy.spelling)].push_back(copy);
    }
  }
  return kept;
}

void KeepModels(Files& files, const Installation& installation, KeptModels& kept,
                const std::vector<std::string>& spellings) {
  std::vector<KeptCopy>& copies = kept[UpperCase(spellings.front())];
  const int version = VersionFor(files, installation, copies, spellings);
  int place = 0;
  for (const KeptCopy& copy : copies) {
    if (copy.version == version) place = std::max(place, copy.place);
  }
  for (const std::string& spelling : spellings) {
    if (CopyOf(copies, version, spelling) != nullptr) continue;
    // The name of a model may end like that of a copy itself; a place in its name keeps it apart.
    do ++place;
    while (CopyNamed(NameOfCopy(spelling, version, place)).spelling != spelling);
    const KeptCopy copy{NameOfCopy(spelling, version, place), spelling, version, place};
    CopyWhole(files, installation.modelPath(spelling), KeptModelsFolder(installation) + copy.file);
    copies.push_back(copy);
  }
}

void MoveToKept(Files& files, const Installation& installation, const std::string& path) {
  MakeFolder(files, installation.backupFolder());
  MakeFolder(files, KeptModelsFolder(installation));
  KeptModels kept = ReadKeptModels(files, installation);
  KeepModels(files, installation, kept, {SpellingOf(files, path)});
  EraseFile(files, path);
}

void EraseSpareSpellings(Files& files, const Installation& installation, const std::vector<std::string>& models) {
  const Spellings loose = SpellingsIn(files, installation.modelsFolder());
  const KeptModels kept = ReadKeptModels(files, installation);
  for (const std::string& model : models) {
    const auto there = loose.find(UpperCase(model));
    const auto copies = kept.find(UpperCase(model));
    if (there == loose.end() || there->second.size() < 2 || copies == kept.end()) continue;
    const std::string stays = SpellingOf(files, installation.modelPath(model));
    for (const std::string& spelling : there->second) {
      const KeptCopy* copy = CopyOf(copies->second, LatestVersion(copies->second), spelling);
      if (spelling == stays || copy == nullptr) continue;
      const std::string path = installation.modelPath(spelling);
      if (SameContent(files, path, KeptModelsFolder(installation) + copy->file)) EraseFile(files, path);
    }
  }
}

void PutKeptModelsBack(Files& files, const Installation& installation) {
  std::vector<Sorted> all;
  for (auto& [name, copies] : ReadKeptModels(files, installation)) all.push_back(SortedByVersion(copies));
  CopyBack(files, installation, all);
  for (Sorted& sorted : all) CheckSpellings(files, installation, sorted);
  // Older copies first: whenever this stops, the highest remaining number is still the latest.
  for (const Sorted& sorted : all) {
    for (const KeptCopy& copy : sorted.older) MoveToOld(files, installation, copy);
  }
  for (const Sorted& sorted : all) {
    for (const KeptCopy& copy : sorted.latest) EraseFile(files, KeptModelsFolder(installation) + copy.file);
  }
}

std::uint64_t KeptModelsSize(Files& files, const Installation& installation) {
  std::uint64_t size = 0;
  for (const FileFacts& item : ListOrThrow(files, KeptModelsFolder(installation)).items) {
    size += item.length;
  }
  return size;
}

}  // namespace oravin
