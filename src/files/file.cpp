#include "files/file.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "base/file_error.h"
#include "platform/file_system.h"

namespace oravin {

namespace {

using Kind = FileOperation::Kind;

constexpr std::size_t windowSize = 16384;

/// Opens a file by calling `open`, which returns the system's reason on failure.
void OpenAs(File& file, Files& files, const std::string& path,
            const std::function<std::string(platform::NativeFile& native)>& open) {
  file.path = path;
  Perform(files, {Kind::open, path}, "could not open", [&] { return open(file.native); });
  const std::string reason = platform::LengthNative(file.native, file.length);
  if (!reason.empty()) {
    platform::CloseNative(file.native);
    throw FileError("could not open", path, reason);
  }
  file.files = &files;
  ++files.open;
}

Files& OwnerOf(const File& file) {
  if (file.files == nullptr) throw FileError("could not use", file.path, "it is not open");
  return *file.files;
}

bool InWindow(const File& file, std::uint64_t offset, std::size_t count) {
  return offset >= file.windowAt && offset - file.windowAt <= file.window.size() &&
         count <= file.window.size() - (offset - file.windowAt);
}

std::size_t ReadThrough(File& file, std::uint64_t offset, std::span<std::uint8_t> bytes) {
  std::size_t count = 0;
  Perform(OwnerOf(file), {Kind::read, file.path, {}, offset, bytes.size()}, "could not read",
          [&] { return platform::ReadNative(file.native, offset, bytes, count); });
  return count;
}

}  // namespace

File::File(Files& owner, const std::string& place, OpenFor purpose) {
  OpenAs(*this, owner, place,
         [&](platform::NativeFile& opened) { return platform::OpenNative(place, purpose, opened); });
}

File::File(Files& owner, const std::string& folder, const std::string& name) {
  OpenAs(*this, owner, folder + name,
         [&](platform::NativeFile& opened) { return platform::OpenSpelledNative(folder, name, opened); });
}

File::File(File&& other) noexcept { *this = std::move(other); }

File& File::operator=(File&& other) noexcept {
  if (this == &other) return *this;
  Close(*this);
  files = std::exchange(other.files, nullptr);
  path = std::move(other.path);
  native = std::exchange(other.native, platform::noFile);
  length = other.length;
  window = std::move(other.window);
  windowAt = other.windowAt;
  return *this;
}

File::~File() { Close(*this); }

bool IsOpen(const File& file) { return file.files != nullptr; }

void Close(File& file) {
  if (!IsOpen(file)) return;
  platform::CloseNative(file.native);
  --file.files->open;
  file.files = nullptr;
  file.native = platform::noFile;
  file.window.clear();
}

std::size_t GetSome(File& file, std::uint64_t offset, std::span<std::uint8_t> bytes) {
  if (bytes.empty()) return 0;
  if (!InWindow(file, offset, bytes.size())) {
    if (bytes.size() >= windowSize) return ReadThrough(file, offset, bytes);
    file.window.resize(windowSize);
    file.windowAt = offset;
    std::size_t count = 0;
    try {
      count = ReadThrough(file, offset, file.window);
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

void Get(File& file, std::uint64_t offset, std::span<std::uint8_t> bytes) {
  if (GetSome(file, offset, bytes) == bytes.size()) return;
  throw FileError("could not read", file.path, "it ends too early");
}

void Put(File& file, std::uint64_t offset, std::span<const std::uint8_t> bytes) {
  file.window.clear();
  Perform(OwnerOf(file), {Kind::write, file.path, {}, offset, bytes.size(), bytes}, "could not write",
          [&] { return platform::WriteNative(file.native, offset, bytes); });
  file.length = std::max(file.length, offset + bytes.size());
}

void SetLength(File& file, std::uint64_t length) {
  file.window.clear();
  Perform(OwnerOf(file), {Kind::cut, file.path, {}, 0, length}, "could not write",
          [&] { return platform::SetLengthNative(file.native, length); });
  file.length = length;
}

void StartFlush(File& file, std::uint64_t offset, std::uint64_t count) {
  platform::StartFlushNative(file.native, offset, count);
}

void Flush(File& file) {
  Perform(OwnerOf(file), {Kind::flush, file.path}, "could not write",
          [&] { return platform::FlushNative(file.native); });
}

}  // namespace oravin
