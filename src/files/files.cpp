#include "files/files.h"

#include <algorithm>

#include "base/run_time_error.h"

namespace oravin {

namespace {

constexpr int firstFreeHandle = 3;
constexpr std::size_t windowSize = 16384;

OpenFile& FileOf(Files& files, int handle) {
  const auto found = files.open.find(handle);
  if (found == files.open.end())
    throw RunTimeError("could not use", "file " + std::to_string(handle), "it is not open");
  return found->second;
}

bool InWindow(const OpenFile& file, std::uint64_t offset, std::size_t count) {
  return offset >= file.windowAt && offset - file.windowAt <= file.window.size() &&
         count <= file.window.size() - (offset - file.windowAt);
}

std::size_t ReadThrough(Files& files, OpenFile& file, std::uint64_t offset, std::span<std::uint8_t> bytes) {
  std::size_t count = 0;
  DoOrThrow(files, FileOperation::Kind::read, file.path, "could not read",
            [&] { return platform::ReadNative(file.native, offset, bytes, count); });
  return count;
}

}  // namespace

Files::~Files() { CloseAll(*this); }

void DoOrThrow(Files& files, FileOperation::Kind kind, const std::string& path, const char* what,
               const std::function<std::string()>& operation) {
  if (files.before) files.before({kind, path});
  const std::string reason = operation();
  if (!reason.empty()) throw RunTimeError(what, path, reason);
}

int FreeFile(const Files& files) {
  int handle = firstFreeHandle;
  while (files.open.contains(handle)) ++handle;
  return handle;
}

namespace {

/// Puts a file on a handle; `open` opens it and returns the system's reason where it cannot.
void OpenAs(Files& files, int handle, const std::string& path,
            const std::function<std::string(platform::NativeFile& native)>& open) {
  Close(files, handle);
  OpenFile file;
  file.path = path;
  DoOrThrow(files, FileOperation::Kind::open, path, "could not open", [&] { return open(file.native); });
  const std::string reason = platform::LengthNative(file.native, file.length);
  if (!reason.empty()) {
    platform::CloseNative(file.native);
    throw RunTimeError("could not open", path, reason);
  }
  files.open.emplace(handle, std::move(file));
}

}  // namespace

void OpenBinary(Files& files, int handle, const std::string& path, platform::OpenFor purpose) {
  OpenAs(files, handle, path,
         [&](platform::NativeFile& native) { return platform::OpenNative(path, purpose, native); });
}

void OpenSpelled(Files& files, int handle, const std::string& folder, const std::string& name) {
  OpenAs(files, handle, folder + name,
         [&](platform::NativeFile& native) { return platform::OpenSpelledNative(folder, name, native); });
}

void Close(Files& files, int handle) {
  const auto found = files.open.find(handle);
  if (found == files.open.end()) return;
  platform::CloseNative(found->second.native);
  files.open.erase(found);
}

void CloseAll(Files& files) {
  while (!files.open.empty()) Close(files, files.open.begin()->first);
}

bool IsOpen(const Files& files, int handle) { return files.open.contains(handle); }

std::uint64_t LengthOf(Files& files, int handle) { return FileOf(files, handle).length; }

std::size_t GetSome(Files& files, int handle, std::uint64_t offset, std::span<std::uint8_t> bytes) {
  OpenFile& file = FileOf(files, handle);
  if (bytes.empty()) return 0;
  if (!InWindow(file, offset, bytes.size())) {
    if (bytes.size() >= windowSize) return ReadThrough(files, file, offset, bytes);
    file.window.resize(windowSize);
    file.windowAt = offset;
    std::size_t count = 0;
    try {
      count = ReadThrough(files, file, offset, file.window);
    } catch (...) {
      file.window.clear();
      throw;
    }
    file.window.resize(count);
  }
  const std::size_t begin = static_cast<std::size_t>(offset - file.windowAt);
  const std::size_t count = std::min(bytes.size(), file.window.size() - begin);
  std::copy_n(file.window.begin() + static_cast<std::ptrdiff_t>(begin), count, bytes.begin());
  return count;
}

void Get(Files& files, int handle, std::uint64_t offset, std::span<std::uint8_t> bytes) {
  if (GetSome(files, handle, offset, bytes) == bytes.size()) return;
  throw RunTimeError("could not read", FileOf(files, handle).path, "it ends too early");
}

void Put(Files& files, int handle, std::uint64_t offset, std::span<const std::uint8_t> bytes) {
  OpenFile& file = FileOf(files, handle);
  file.window.clear();
  DoOrThrow(files, FileOperation::Kind::write, file.path, "could not write",
            [&] { return platform::WriteNative(file.native, offset, bytes); });
  file.length = std::max(file.length, offset + bytes.size());
}

void SetLength(Files& files, int handle, std::uint64_t length) {
  OpenFile& file = FileOf(files, handle);
  file.window.clear();
  DoOrThrow(files, FileOperation::Kind::write, file.path, "could not write",
            [&] { return platform::SetLengthNative(file.native, length); });
  file.length = length;
}

void StartFlush(Files& files, int handle, std::uint64_t offset, std::uint64_t count) {
  platform::StartFlushNative(FileOf(files, handle).native, offset, count);
}

void Flush(Files& files, int handle) {
  OpenFile& file = FileOf(files, handle);
  DoOrThrow(files, FileOperation::Kind::flush, file.path, "could not write",
            [&] { return platform::FlushNative(file.native); });
}

OpenedFile::OpenedFile(Files& owner, const std::string& path, platform::OpenFor purpose)
    : files(owner), handle(FreeFile(owner)) {
  OpenBinary(files, handle, path, purpose);
}

OpenedFile::OpenedFile(Files& owner, const std::string& folder, const std::string& name)
    : files(owner), handle(FreeFile(owner)) {
  OpenSpelled(files, handle, folder, name);
}

OpenedFile::~OpenedFile() { Close(files, handle); }

}  // namespace oravin
