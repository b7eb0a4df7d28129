#include "platform/file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include "platform/native_path.h"

namespace oravin::platform {

namespace {

constexpr mode_t anyoneMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;

std::string Reason(int error) {
  switch (error) {
    case ENOENT:
      return "it does not exist";
    case EACCES:
    case EPERM:
      return "you have no permission";
    case EROFS:
      return "the disk is read-only";
    case ENOSPC:
      return "the disk is full";
    case EISDIR:
      return "it is a folder";
    case ENOTDIR:
      return "a part of the path is no folder";
    default:
      return std::generic_category().message(error);
  }
}

/// Whether a failed look means that nothing is there.
Presence WhyNoFacts(int error) { return error == ENOENT || error == ENOTDIR ? Presence::absent : Presence::failed; }

int Descriptor(NativeFile file) { return static_cast<int>(file); }

std::string Sum(bool done) { return done ? std::string() : Reason(errno); }

/// Wine stores a file's DOS attributes as hexadecimal text in this extended attribute: 2 is hidden, 4 is system.
unsigned DosAttributes(const std::string& path) {
  std::array<char, 16> text{};
  const ssize_t length = getxattr(path.c_str(), "user.DOSATTRIB", text.data(), text.size() - 1);
  return length > 0 ? static_cast<unsigned>(std::strtoul(text.data(), nullptr, 16)) : 0;
}

FileFacts FactsFrom(const std::string& name, const std::string& path, const struct stat& status) {
  FileFacts facts;
  facts.name = name;
  facts.folder = S_ISDIR(status.st_mode);
  facts.length = facts.folder ? 0 : static_cast<std::uint64_t>(status.st_size);
  const unsigned attributes = DosAttributes(path);
  facts.hidden = (attributes & 2U) != 0;
  facts.system = (attributes & 4U) != 0;
  facts.modified = std::int64_t{status.st_mtim.tv_sec} * 1000000000 + status.st_mtim.tv_nsec;
  facts.links = static_cast<std::uint32_t>(status.st_nlink);
  facts.identity = {status.st_dev, status.st_ino};
  return facts;
}

}  // namespace

std::string OpenNative(const std::string& path, OpenFor purpose, NativeFile& file) {
  file = noFile;
  const std::string native = ToNativePath(path);
  if (native.empty()) return "there is no such drive";
  int flags = O_CLOEXEC;
  switch (purpose) {
    case OpenFor::reading:
      flags |= O_RDONLY;
      break;
    case OpenFor::changing:
      flags |= O_RDWR;
      break;
    case OpenFor::creating:
      flags |= O_RDWR | O_CREAT;
      break;
    case OpenFor::replacing:
      flags |= O_RDWR | O_CREAT | O_TRUNC;
      break;
  }
  struct stat status;
  const bool there = stat(native.c_str(), &status) == 0;
  if (there && S_ISDIR(status.st_mode)) return Reason(EISDIR);
  // Respect read-only files even if the user (root) could write to them.
  if (there && purpose != OpenFor::reading && (status.st_mode & anyoneMayWrite) == 0) return "it is read-only";
  const int descriptor = open(native.c_str(), flags, 0666);
  if (descriptor < 0) return Reason(errno);
  file = descriptor;
  return {};
}

std::string OpenSpelledNative(const std::string& folder, const std::string& name, NativeFile& file) {
  file = noFile;
  const std::string native = ToNativePath(folder);
  if (native.empty()) return "there is no such drive";
  const int descriptor = open((native + name).c_str(), O_CLOEXEC | O_RDWR | O_CREAT | O_TRUNC, 0666);
  if (descriptor < 0) return Reason(errno);
  file = descriptor;
  return {};
}

std::string ReadNative(NativeFile file, std::uint64_t offset, std::span<std::uint8_t> bytes, std::size_t& count) {
  count = 0;
  while (count < bytes.size()) {
    const ssize_t got =
        pread(Descriptor(file), bytes.data() + count, bytes.size() - count, static_cast<off_t>(offset + count));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return Reason(errno);
    if (got == 0) break;
    count += static_cast<std::size_t>(got);
  }
  return {};
}

std::string WriteNative(NativeFile file, std::uint64_t offset, std::span<const std::uint8_t> bytes) {
  std::size_t count = 0;
  while (count < bytes.size()) {
    const ssize_t put =
        pwrite(Descriptor(file), bytes.data() + count, bytes.size() - count, static_cast<off_t>(offset + count));
    if (put < 0 && errno == EINTR) continue;
    if (put < 0) return Reason(errno);
    count += static_cast<std::size_t>(put);
  }
  return {};
}

std::string LengthNative(NativeFile file, std::uint64_t& length) {
  struct stat status;
  if (fstat(Descriptor(file), &status) != 0) return Reason(errno);
  length = static_cast<std::uint64_t>(status.st_size);
  return {};
}

std::string SetLengthNative(NativeFile file, std::uint64_t length) {
  return Sum(ftruncate(Descriptor(file), static_cast<off_t>(length)) == 0);
}

std::string FlushNative(NativeFile file) { return Sum(fsync(Descriptor(file)) == 0); }

#ifdef SYNC_FILE_RANGE_WRITE
void StartFlushNative(NativeFile file, std::uint64_t offset, std::uint64_t count) {
  sync_file_range(Descriptor(file), static_cast<off64_t>(offset), static_cast<off64_t>(count), SYNC_FILE_RANGE_WRITE);
}
#else
void StartFlushNative(NativeFile, std::uint64_t, std::uint64_t) {}
#endif

std::string CloseNative(NativeFile file) { return Sum(close(Descriptor(file)) == 0); }

std::string FlushMany(const std::vector<std::string>& paths) {
  // One flush of the file system waits once; one per file would wait for each.
  std::vector<dev_t> flushed;
  for (const std::string& path : paths) {
    const int file = open(ToNativePath(path).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return Reason(errno);
    struct stat status;
    const bool known = fstat(file, &status) == 0;
    const bool done = known && std::find(flushed.begin(), flushed.end(), status.st_dev) != flushed.end();
    std::string reason = !known ? Reason(errno) : done ? std::string() : Sum(syncfs(file) == 0);
    if (known) flushed.push_back(status.st_dev);
    close(file);
    if (!reason.empty()) return reason;
  }
  return {};
}

std::string EraseNative(const std::string& path) { return Sum(unlink(ToNativePath(path).c_str()) == 0); }

std::string RenameNative(const std::string& from, const std::string& to) {
  return Sum(rename(ToNativePath(from).c_str(), ToNativePath(to).c_str()) == 0);
}

std::string RenameSpelledNative(const std::string& folder, const std::string& from, const std::string& to) {
  const std::string native = ToNativePath(folder);
  return Sum(rename((native + from).c_str(), (native + to).c_str()) == 0);
}

std::string MakeFolderNative(const std::string& path) {
  std::string native = ToNativePath(path);
  while (native.size() > 1 && native.back() == '/') native.pop_back();
  if (mkdir(native.c_str(), 0777) == 0) return {};
  const int error = errno;
  struct stat status;
  if (error == EEXIST && stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) return {};
  return Reason(error);
}

LookUp LookAt(const std::string& path) {
  const std::string native = ToNativePath(path);
  struct stat status;
  if (native.empty()) return {};
  if (stat(native.c_str(), &status) != 0) return {WhyNoFacts(errno), {}, Reason(errno)};
  LookUp found{Presence::visible, FactsFrom(std::string(), native, status), {}};
  if (path.ends_with('\\') && !found.facts.folder) return {};
  if (found.facts.hidden || found.facts.system) found.presence = Presence::hidden;
  return found;
}

LookUp LookCloselyAt(const std::string& path) { return LookAt(path); }

std::string SpellingOf(const std::string& path) {
  std::string native = ToNativePath(path);
  while (native.size() > 1 && native.back() == '/') native.pop_back();
  return native.substr(native.find_last_of('/') + 1);
}

Listing ListNative(const std::string& folder) {
  std::string native = ToNativePath(folder);
  if (native.empty()) return {};
  if (native.back() != '/') native += '/';
  DIR* listing = opendir(native.c_str());
  if (listing == nullptr) return {WhyNoFacts(errno), {}, Reason(errno)};
  Listing found{Presence::visible, {}, {}};
  for (;;) {
    errno = 0;
    const dirent* item = readdir(listing);
    if (item == nullptr) break;
    const std::string name = static_cast<const char*>(item->d_name);
    struct stat status;
    if (name == "." || name == ".." || stat((native + name).c_str(), &status) != 0) continue;
    found.items.push_back(FactsFrom(name, native + name, status));
  }
  if (errno != 0) found = {Presence::failed, {}, Reason(errno)};
  closedir(listing);
  return found;
}

bool IsSameFile(const std::string& a, const std::string& b) {
  struct stat first;
  struct stat second;
  return stat(ToNativePath(a).c_str(), &first) == 0 && stat(ToNativePath(b).c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

std::string WhyNotWritable(const std::string& path) {
  NativeFile file = noFile;
  std::string reason = OpenNative(path, OpenFor::changing, file);
  if (!reason.empty()) return reason;
#ifdef F_SETLEASE
  // The kernel grants a write lease only if nobody else has the file open. It refuses for another reason if the file
  // system has no leases or the file belongs to another user; then the question stays open. If somebody opens the file
  // at that moment, a signal is sent; SIGURG is ignored by default.
  fcntl(Descriptor(file), F_SETSIG, SIGURG);
  const bool held = fcntl(Descriptor(file), F_SETLEASE, F_WRLCK) != 0 && errno == EAGAIN;
  if (!held) fcntl(Descriptor(file), F_SETLEASE, F_UNLCK);
#else
  const bool held = false;
#endif
  close(Descriptor(file));
  return held ? "another program has it open" : "";
}

std::string WhyNoNewFiles(const std::string& folder) {
  const std::string native = ToNativePath(folder);
  struct stat status;
  if (stat(native.c_str(), &status) != 0) return Reason(errno);
  if (!S_ISDIR(status.st_mode)) return Reason(ENOTDIR);
  if ((status.st_mode & anyoneMayWrite) == 0) return "it is read-only";
  return Sum(access(native.c_str(), W_OK | X_OK) == 0);
}

std::optional<std::uint64_t> FreeSpace(const std::string& folder) {
  struct statvfs status;
  if (statvfs(ToNativePath(folder).c_str(), &status) != 0) return std::nullopt;
  return static_cast<std::uint64_t>(status.f_bavail) * status.f_frsize;
}

}  // namespace oravin::platform
