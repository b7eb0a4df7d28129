#include "files/whole_file.h"

#include <algorithm>

#include "base/file_error.h"
#include "files/look_up.h"
#include "files/path.h"
#include "platform/file_system.h"

namespace oravin {

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 20;

using Kind = FileOperation::Kind;

}  // namespace

Bytes ReadWhole(Files& files, const std::string& path, std::uint64_t most) {
  File file(files, path, OpenFor::reading);
  const std::uint64_t length = file.length;
  if (length > most) throw FileError("could not read", path, "it is too large to be right");
  Bytes bytes(static_cast<std::size_t>(length));
  Get(file, 0, bytes);
  return bytes;
}

void WriteBeside(Files& files, const std::string& path, const std::function<void(File& file)>& write) {
  const std::string beside = path + besideSuffix;
  try {
    {
      File file(files, beside, OpenFor::replacing);
      write(file);
      Flush(file);
    }
    RenameOver(files, beside, path);
  } catch (const FileError&) {
    EraseIfThere(files, beside);
    throw;
  }
}

void AddWhole(Files& files, WholeFiles& together, const std::string& path,
              const std::function<void(File& file)>& write) {
  const std::string beside = path + besideSuffix;
  try {
    File file(files, beside, OpenFor::replacing);
    write(file);
  } catch (const FileError&) {
    EraseIfThere(files, beside);
    throw;
  }
  together.paths.push_back(path);
}

void AddNew(Files& files, WholeFiles& together, const std::string& path, const std::function<void(File& file)>& write) {
  const std::string folder = ParentFolder(path);
  try {
    File file(files, folder, path.substr(folder.size()) + besideSuffix);
    write(file);
  } catch (const FileError&) {
    EraseIfThere(files, path + besideSuffix);
    throw;
  }
  together.paths.push_back(path);
  together.spelled.insert(path);
}

void CommitWhole(Files& files, WholeFiles& together) {
  if (together.paths.empty()) return;
  std::vector<std::string> besides;
  for (const std::string& path : together.paths) besides.push_back(path + besideSuffix);
  Perform(files, {Kind::flush, together.paths.front()}, "could not write",
          [&] { return platform::FlushMany(besides); });
  for (std::size_t i = 0; i < besides.size(); ++i) {
    const std::string& path = together.paths[i];
    if (together.spelled.contains(path)) {
      const std::string folder = ParentFolder(path);
      RenameSpelled(files, folder, besides[i].substr(folder.size()), path.substr(folder.size()));
    } else {
      RenameOver(files, besides[i], path);
    }
  }
  together = {};
}

void DropWhole(Files& files, WholeFiles& together, std::size_t keep) {
  for (std::size_t i = keep; i < together.paths.size(); ++i) {
    EraseIfThere(files, together.paths[i] + besideSuffix);
    together.spelled.erase(together.paths[i]);
  }
  together.paths.resize(std::min(keep, together.paths.size()));
}

void WriteWhole(Files& files, const std::string& path, std::span<const std::uint8_t> bytes) {
  WriteBeside(files, path, [&](File& file) { Put(file, 0, bytes); });
}

void CopyBytes(File& from, std::uint64_t fromOffset, File& to, std::uint64_t toOffset, std::uint64_t count) {
  Bytes block(static_cast<std::size_t>(std::min<std::uint64_t>(count, blockSize)));
  for (std::uint64_t done = 0; done < count; done += block.size()) {
    const std::span piece(block.data(), static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), count - done)));
    Get(from, fromOffset + done, piece);
    Put(to, toOffset + done, piece);
    StartFlush(to, toOffset + done, piece.size());
  }
}

void CopyInto(File& to, const std::string& from) {
  File source(*to.files, from, OpenFor::reading);
  CopyBytes(source, 0, to, 0, source.length);
}

void CopyWhole(Files& files, const std::string& from, const std::string& to) {
  // The source is opened first: if it is missing, no temporary file is made.
  File source(files, from, OpenFor::reading);
  WriteBeside(files, to, [&](File& file) { CopyBytes(source, 0, file, 0, source.length); });
}

void EraseFile(Files& files, const std::string& path) {
  Perform(files, {Kind::erase, path}, "could not delete", [&] { return platform::EraseNative(path); });
}

void EraseIfThere(Files& files, const std::string& path) {
  try {
    if (files.before) files.before({Kind::cleanUp, path});
    platform::EraseNative(path);
  } catch (const FileError&) {
    // A leftover temporary file is overwritten or deleted by the next run.
  }
}

void RenameOver(Files& files, const std::string& from, const std::string& to) {
  Perform(files, {Kind::rename, from, to}, "could not write", [&] { return platform::RenameNative(from, to); });
}

void RenameSpelled(Files& files, const std::string& folder, const std::string& from, const std::string& to) {
  Perform(files, {Kind::rename, folder + from, folder + to}, "could not write",
          [&] { return platform::RenameSpelledNative(folder, from, to); });
}

void MakeFolder(Files& files, const std::string& path) {
  Perform(files, {Kind::makeFolder, path}, "could not make the folder",
          [&] { return platform::MakeFolderNative(path); });
}

void MakeFolders(Files& files, const std::string& folder) {
  if (folder.empty() || FolderExists(files, folder)) return;
  MakeFolders(files, ParentFolder(folder));
  MakeFolder(files, folder);
}

bool SameContent(Files& files, const std::string& a, const std::string& b) {
  if (!FileExists(files, a) || !FileExists(files, b) || FileLength(files, a) != FileLength(files, b)) return false;
  File first(files, a, OpenFor::reading);
  File second(files, b, OpenFor::reading);
  Bytes blockA(blockSize / 4);
  Bytes blockB(blockSize / 4);
  for (std::uint64_t at = 0;; at += blockA.size()) {
    const std::size_t countA = GetSome(first, at, blockA);
    const std::size_t countB = GetSome(second, at, blockB);
    if (countA != countB ||
        !std::equal(blockA.begin(), blockA.begin() + static_cast<std::ptrdiff_t>(countA), blockB.begin())) {
      return false;
    }
    if (countA < blockA.size()) return true;
  }
}

std::string FreeOldName(Files& files, const std::string& base) {
  std::string name = base + ".old";
  for (int number = 2; FileIsThere(files, name); ++number) name = base + ".old" + std::to_string(number);
  return name;
}

void EraseLeftovers(Files& files, const std::string& folder) {
  for (const FileFacts& item : ListFolder(files, folder).items) {
    if (!item.folder && item.name.ends_with(besideSuffix)) EraseFile(files, folder + item.name);
  }
}

}  // namespace oravin
